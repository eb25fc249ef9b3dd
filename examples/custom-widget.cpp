// Puts a widget of its own, a plot, into a dialog, and lets the dialog's sliders change it.
#include <Inventor/Qt/SoQt.h>
#include <QBoxLayout>
#include <QCoreApplication>
#include <QPainter>
#include <QPainterPath>
#include <Quillform/Quillform.h>
#include <cmath>

/// A damped wave.
class Plot : public QWidget {
public:
  void setWave(float newFrequency, float newDamping)
  {
    frequency = newFrequency;
    damping = newDamping;
    update();
  }

protected:
  void paintEvent(QPaintEvent* /*event*/) override
  {
    QPainter painter(this);
    painter.fillRect(rect(), palette().base());
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath wave;
    for (int x = 0; x < width(); x++) {
      const double time = static_cast<double>(x) / width();
      const double value = std::exp(-damping * time) * std::cos(2.0 * M_PI * frequency * time);
      const QPointF point(x, height() * (0.5 - 0.45 * value));
      if (x == 0) {
        wave.moveTo(point);
      }
      wave.lineTo(point);
    }
    painter.setPen(QPen(palette().highlight(), 2.0));
    painter.drawPath(wave);
  }

private:
  float frequency = 0.0F;
  float damping = 0.0F;
};

class PlotAuditor : public SoDialogAuditor {
public:
  PlotAuditor(SoTopLevelDialog* dialog, Plot* plot)
      : frequency(static_cast<SoDialogRealSlider*>(dialog->searchForAuditorId("frequency"))),
        damping(static_cast<SoDialogRealSlider*>(dialog->searchForAuditorId("damping"))), plot(plot)
  {
    showWave();
  }

  void dialogRealSlider(SoDialogRealSlider* /*slider*/) override
  {
    showWave();
  }

private:
  void showWave()
  {
    plot->setWave(frequency->value.getValue(), damping->value.getValue());
  }

  SoDialogRealSlider* frequency;
  SoDialogRealSlider* damping;
  Plot* plot;
};

int main(int argc, char** argv)
{
  SoQt::init(argv[0]);
  SoQuillform::init();
  const QString file = argc > 1 ? QString(argv[1]) : QCoreApplication::applicationDirPath() + "/custom-widget.iv";
  auto* dialog = dynamic_cast<SoTopLevelDialog*>(SoQuillform::loadFromFile(qPrintable(file), "plot-dialog"));
  if (!dialog) {
    return 1;
  }
  dialog->buildDialog(nullptr, FALSE);
  // The place has a layout once the dialog is built. The widget belongs to it from then on.
  auto* place = static_cast<SoDialogCustom*>(dialog->searchForAuditorId("plot"));
  auto* plot = new Plot;
  place->getLayout()->addWidget(plot);
  PlotAuditor auditor(dialog, plot);
  dialog->addAuditor(&auditor);
  dialog->show();
  SoQt::mainLoop();
  SoQuillform::finish();
}
