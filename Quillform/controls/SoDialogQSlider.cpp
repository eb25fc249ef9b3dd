#include <Quillform/controls/SoDialogQSlider.h>

#include <QCheckBox>
#include <QLineEdit>
#include <Quillform/controls/SoDialogCustomSlider.h>
#include <Quillform/controls/SoDialogSlider.h>
#include <Quillform/core/SoEventScope.h>
#include <Quillform/core/SoText.h>

namespace {

/// A bar that says what its positions stand for.
class Bar : public SoDialogCustomSlider {
public:
  explicit Bar(SoDialogQSlider* relay) : SoDialogCustomSlider(relay), m_relay(relay) {}

  Scale getScale() const override
  {
    return m_relay->getScale();
  }

private:
  const SoDialogQSlider* m_relay;
};

} // namespace

SoDialogQSlider::SoDialogQSlider(QWidget* parent, SoDialogSlider* owner)
    : SoDialogQFrame(parent, owner, "SoDialogQSlider"), m_toggle(new QCheckBox(this)), m_bar(new Bar(this)),
      m_edit(new QLineEdit(this))
{
  createLabel(m_bar);
  SoDialogQSlider::nameOthers(QString());
  m_edit->setObjectName(nameOf("LineEditWidget"));
  m_toggle->setObjectName(nameOf("ToggleWidget"));
  SoQuillform::setWidgetFont(m_toggle);
  SoQuillform::setWidgetFont(m_edit);

  connect(m_toggle, &QCheckBox::stateChanged, this, &SoDialogQSlider::eventNotify);
  connect(m_edit, &QLineEdit::returnPressed, this, &SoDialogQSlider::eventNotifyPressed);
  connect(m_edit, &QLineEdit::editingFinished, this, &SoDialogQSlider::eventNotifyEdited);
  m_bar->addValueChangedCallback(valueChangedCallback, this);
}

SoDialogCustomSlider* SoDialogQSlider::getSlider() const
{
  return m_bar;
}

SoDialogSlider* SoDialogQSlider::getSliderNode() const
{
  return static_cast<SoDialogSlider*>(getOwner());
}

// The bar

void SoDialogQSlider::setFinishReported(bool reported)
{
  if (reported) {
    m_bar->addFinishCallback(finishCallback, this);
  }
  else {
    m_bar->removeFinishCallback(finishCallback, this);
  }
}

void SoDialogQSlider::valueChangedCallback(void* data, float position)
{
  if (SoDialogSlider* owner = static_cast<SoDialogQSlider*>(data)->getSliderNode()) {
    const SoEventScope scope(owner);
    owner->changeValueFromSlider(position);
  }
}

void SoDialogQSlider::finishCallback(void* data, float /*position*/)
{
  if (SoDialogSlider* owner = static_cast<SoDialogQSlider*>(data)->getSliderNode()) {
    const SoEventScope scope(owner);
    owner->changeValueAfterFinish();
  }
}

// The toggle

bool SoDialogQSlider::isChecked() const
{
  return m_toggle->isChecked();
}

void SoDialogQSlider::setChecked(bool checked)
{
  disconnect(m_toggle, &QCheckBox::stateChanged, this, &SoDialogQSlider::eventNotify);
  // Not setChecked: inside a click that would leave the box's published state behind.
  m_toggle->setCheckState(checked ? Qt::Checked : Qt::Unchecked);
  connect(m_toggle, &QCheckBox::stateChanged, this, &SoDialogQSlider::eventNotify);
}

void SoDialogQSlider::eventNotify(int /*state*/)
{
  notifyOwner(1, 0);
}

// The value

void SoDialogQSlider::setText(const QString& text)
{
  if (text != m_edit->text()) {
    m_edit->setText(text);
    if (!m_edit->hasFocus()) {
      m_edit->setCursorPosition(0); // of a text that is too long, the beginning is shown
    }
  }
}

SbString SoDialogQSlider::getText() const
{
  return SoText::fromQt(m_edit->text());
}

void SoDialogQSlider::eventNotifyPressed()
{
  if (SoDialogSlider* owner = getSliderNode()) {
    const SoEventScope scope(owner);
    owner->changeSliderFromEdit();
  }
}

void SoDialogQSlider::eventNotifyEdited()
{
  // What was typed without Return at the end is not the value, so it does not stay on screen.
  SoDialogSlider* owner = getSliderNode();
  if (owner && m_edit->window()->focusWidget() != m_edit) {
    owner->changeEditValue();
  }
}

// Looks

void SoDialogQSlider::setToggleVisibility(bool visible)
{
  setShown(m_toggle, visible);
}

void SoDialogQSlider::setEditVisibility(bool visible)
{
  setShown(m_edit, visible);
}

void SoDialogQSlider::nameOthers(const QString& name)
{
  const QString label = name.endsWith(':') ? name.chopped(1) : name;
  m_edit->setAccessibleName((label + " value").trimmed());
  m_toggle->setAccessibleName((label + " continuous update").trimmed());
}

SoQtBasicSlider::Scale SoDialogQSlider::getScale() const
{
  const SoDialogSlider* owner = getSliderNode();
  return owner ? owner->getScale() : SoQtBasicSlider::Scale{0.0, 0.0, 0.0, 0.0};
}

void SoDialogQSlider::toggleWidgetPos(int x, int y, int w, int h)
{
  place(m_toggle, x, y, w, h);
}

void SoDialogQSlider::sliderWidgetPos(int x, int y, int w, int h)
{
  place(m_bar, x, y, w, h);
}

void SoDialogQSlider::editWidgetPos(int x, int y, int w, int h)
{
  place(m_edit, x, y, w, h);
}
