#include "OpenWindows.h"

#include "Rows.h"
#include "Stopwatch.h"

#include <Inventor/SoDB.h>
#include <Inventor/SoInput.h>
#include <Inventor/nodes/SoSeparator.h>
#include <QAbstractButton>
#include <QApplication>
#include <QBuffer>
#include <QComboBox>
#include <QLineEdit>
#include <QUiLoader>
#include <QWindow>
#include <Quillform/Quillform.h>
#include <benchmark/benchmark.h>
#include <initializer_list>
#include <memory>
#include <utility>

namespace {

/// Brings a window up to date and tells when nothing more is to come.
class WindowWatch : public QObject {
public:
  explicit WindowWatch(QWidget* window) : m_window(window)
  {
    window->installEventFilter(this);
  }

  /// Until everything is laid out and painted.
  bool processUntilPainted()
  {
    m_isPainted = false;
    return processUntilIdle() && m_isPainted;
  }

  /// Until everything is laid out. The painting is put off to the next processUntilPainted().
  bool processUntilLaidOut()
  {
    m_window->windowHandle()->installEventFilter(this);
    m_holdsPainting = true;
    const bool isIdle = processUntilIdle();
    m_holdsPainting = false;
    m_window->update();
    QApplication::postEvent(m_window, new QEvent(QEvent::UpdateRequest)); // the window waits for the one held back
    return isIdle;
  }

protected:
  bool eventFilter(QObject* /*window*/, QEvent* event) override
  {
    if (m_holdsPainting && (event->type() == QEvent::UpdateRequest || event->type() == QEvent::Expose)) {
      return true;
    }
    m_isPainted = m_isPainted || event->type() == QEvent::Paint;
    m_isBusy = m_isBusy || event->type() == QEvent::Paint || event->type() == QEvent::LayoutRequest ||
               event->type() == QEvent::UpdateRequest;
    return false;
  }

private:
  bool processUntilIdle()
  {
    for (int pass = 0; pass < 100; pass++) {
      m_isBusy = false;
      QApplication::processEvents();
      if (!m_isBusy) {
        return true;
      }
    }
    return false;
  }

  QWidget* m_window;
  bool m_isPainted = false;
  bool m_isBusy = false;
  bool m_holdsPainting = false;
};

/// Shows what the parts of one iteration took, given in seconds for all iterations.
void setLaps(benchmark::State& state, std::initializer_list<std::pair<const char*, double>> laps)
{
  for (const auto& [name, seconds] : laps) {
    state.counters[name] = benchmark::Counter(seconds * 1000.0, benchmark::Counter::kAvgIterations);
  }
}

/// What is missing in a window that should show \a controls controls; nullptr when it is complete.
const char* findFault(const QWidget* window, int controls)
{
  int visible = 0;
  for (const QWidget* widget : window->findChildren<QWidget*>()) {
    if (!qobject_cast<const QAbstractButton*>(widget) && !qobject_cast<const QLineEdit*>(widget) &&
        !qobject_cast<const QComboBox*>(widget)) {
      continue;
    }
    const QRect place(widget->mapTo(window, QPoint(0, 0)), widget->size());
    if (!widget->isVisible()) {
      continue;
    }
    if (place.isEmpty() || !window->rect().contains(place)) {
      return "a control stands outside the window";
    }
    ++visible;
  }
  return visible == controls ? nullptr : "the number of visible controls is wrong";
}

/// A form of Quillform, from its file's text.
class DialogForm {
public:
  void read(const QByteArray& text)
  {
    SoInput input;
    input.setBuffer(text.constData(), static_cast<std::size_t>(text.size()));
    m_root = SoDB::readAll(&input);
    m_root->ref();
    m_dialog = static_cast<SoTopLevelDialog*>(m_root->getChild(0));
  }

  ~DialogForm()
  {
    m_root->unref();
    // A node gives its widgets up for deletion when control returns to the event loop.
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  SoTopLevelDialog* operator->() const
  {
    return m_dialog;
  }

private:
  SoSeparator* m_root = nullptr;
  SoTopLevelDialog* m_dialog = nullptr;
};

void openDialogFile(benchmark::State& state, Rows::Mixture mixture, int count)
{
  double reading = 0.0;
  double building = 0.0;
  double showing = 0.0;
  for (auto _ : state) {
    const Rows rows(mixture, count);
    const QByteArray text = rows.toDialogFile();
    DialogForm form;

    Stopwatch watch;
    form.read(text);
    reading += watch.lap();
    QWidget* window = form->buildDialog(nullptr, FALSE);
    building += watch.lap();
    WindowWatch painting(window);
    form->show();
    const bool isPainted = painting.processUntilPainted();
    showing += watch.lap();
    state.SetIterationTime(watch.total());

    const char* fault = isPainted ? findFault(window, rows.getControlCount()) : "the window was not painted";
    if (fault) {
      state.SkipWithError(fault);
      break;
    }
  }
  setLaps(state, {{"read_ms", reading}, {"build_ms", building}, {"show_ms", showing}});
}

/// Opens forms of a peer; \a make gives the window with all its widgets.
template <class Make>
void openPeer(benchmark::State& state, Rows::Mixture mixture, int count, Make make)
{
  double building = 0.0;
  double showing = 0.0;
  for (auto _ : state) {
    const Rows rows(mixture, count);
    const auto source = make.prepare(rows);

    Stopwatch watch;
    std::unique_ptr<QWidget> window(make.build(source));
    building += watch.lap();
    WindowWatch painting(window.get());
    window->show();
    const bool isPainted = painting.processUntilPainted();
    showing += watch.lap();
    state.SetIterationTime(watch.total());

    const char* fault = isPainted ? findFault(window.get(), rows.getControlCount()) : "the window was not painted";
    if (fault) {
      state.SkipWithError(fault);
      break;
    }
  }
  setLaps(state, {{"build_ms", building}, {"show_ms", showing}});
}

/// Reads the same form with Qt's own loader. The loader looks for its plug-ins once, before the first form.
struct MakeFromUiFile {
  QUiLoader* loader;

  static QByteArray prepare(const Rows& rows)
  {
    return rows.toUiFile();
  }

  QWidget* build(const QByteArray& text) const
  {
    QBuffer buffer;
    buffer.setData(text);
    buffer.open(QIODevice::ReadOnly);
    return loader->load(&buffer);
  }
};

/// Makes the same form with Qt calls.
struct MakeByHand {
  static const Rows& prepare(const Rows& rows)
  {
    return rows;
  }

  static QWidget* build(const Rows& rows)
  {
    auto* window = new QWidget;
    rows.makeWidgets(window);
    return window;
  }
};

void openUiFile(benchmark::State& state, Rows::Mixture mixture, int count)
{
  QUiLoader loader;
  openPeer(state, mixture, count, MakeFromUiFile{&loader});
}

void openByHand(benchmark::State& state, Rows::Mixture mixture, int count)
{
  openPeer(state, mixture, count, MakeByHand{});
}

void addRowLabelled(benchmark::State& state, Rows::Mixture mixture, int count, const char* label)
{
  const Rows rows(mixture, count);
  DialogForm form;
  form.read(rows.toDialogFile());
  QWidget* window = form->buildDialog(nullptr, FALSE);
  WindowWatch painting(window);
  form->show();
  painting.processUntilPainted();
  double laying = 0.0;
  double showing = 0.0;
  for (auto _ : state) {
    Stopwatch watch;
    auto* button = new SoDialogPushButton;
    button->label = label;
    button->buttonLabel = "Do it";
    form->addChild(button);
    const bool isLaidOut = painting.processUntilLaidOut();
    laying += watch.lap();
    state.SetIterationTime(watch.total());
    painting.processUntilPainted();
    showing += watch.lap();

    const char* fault = isLaidOut ? findFault(window, rows.getControlCount() + 1) : "the layout does not come to rest";
    if (fault) {
      state.SkipWithError(fault);
      break;
    }
    form->removeChild(button);
    painting.processUntilPainted();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  setLaps(state, {{"layout_ms", laying}, {"paint_ms", showing}});
}

void addRow(benchmark::State& state, Rows::Mixture mixture, int count)
{
  addRowLabelled(state, mixture, count, "New row:");
}

/// The label is wider than any other, so that the controls of all rows move.
void addWideRow(benchmark::State& state, Rows::Mixture mixture, int count)
{
  addRowLabelled(state, mixture, count, "A row with a long label:");
}

/// One opening an iteration and few of them, so that the peers take turns often and share a machine's moods.
template <class Function>
void add(const char* name, Function function, Rows::Mixture mixture, int count, int repetitions)
{
  benchmark::RegisterBenchmark(name, function, mixture, count)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(repetitions);
}

} // namespace

void registerWindowBenchmarks()
{
  add("open_dialog_file/1000", openDialogFile, Rows::MIXED, 1000, 15);
  add("open_ui_file/1000", openUiFile, Rows::MIXED, 1000, 15);
  add("open_by_hand/1000", openByHand, Rows::MIXED, 1000, 15);
  add("open_dialog_file/5000", openDialogFile, Rows::MIXED, 5000, 5);
  add("add_row/1000", addRow, Rows::MIXED, 1000, 9);
  add("add_wide_row/1000", addWideRow, Rows::MIXED, 1000, 9);
  add("open_simple_dialog_file/1000", openDialogFile, Rows::SIMPLE, 1000, 15);
  add("open_simple_ui_file/1000", openUiFile, Rows::SIMPLE, 1000, 15);
  add("open_simple_by_hand/1000", openByHand, Rows::SIMPLE, 1000, 15);
  add("open_simple_dialog_file/5000", openDialogFile, Rows::SIMPLE, 5000, 5);
  add("add_simple_row/1000", addRow, Rows::SIMPLE, 1000, 9);
}
