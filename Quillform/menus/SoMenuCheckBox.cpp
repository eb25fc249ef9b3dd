#include <Quillform/menus/SoMenuCheckBox.h>

#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoTransform.h>
#include <Quillform/auditors/SoAuditorDispatch.h>
#include <Quillform/auditors/SoMenuCheckBoxAuditor.h>
#include <Quillform/core/So3DPlacement.h>
#include <Quillform/core/SoEventScope.h>
#include <Quillform/menus/SoMenuQCheckBox.h>
#include <algorithm>

SO_QUILLFORM_SOURCE(SoMenuCheckBox, "MenuCheckBox")
SO_SKIN_SOURCE(SoMenuCheckBox, "MenuCheckBox.iv", "MenuCheckBoxStateOn", "MenuCheckBoxStateOff")

SoMenuCheckBox::SoMenuCheckBox()
{
  SO_QUILLFORM_CONSTRUCTOR(SoMenuCheckBox);

  SO_QUILLFORM_ADD_FIELD(state, (FALSE));
  SO_QUILLFORM_ADD_FIELD(onString, (""));
  SO_QUILLFORM_ADD_FIELD(accelerator, (""));

  typedef SoMenuCheckBox Self;
  static const SoCatalogPart<Self> parts[] = {
    {&Self::chkSep, "chkSep", "SoSeparator", "geomSwitch", FALSE},
    {&Self::chkSwtch, "chkSwtch", "SoSwitch", "chkSep", FALSE},
    {&Self::stateOff, "stateOff", "SoGroup", "chkSwtch", TRUE},
    {&Self::stateOn, "stateOn", "SoGroup", "chkSwtch", TRUE},
  };
  SO_QUILLFORM_ADD_PARTS(parts);
  SO_KIT_INIT_INSTANCE();
}

SoMenuCheckBox::~SoMenuCheckBox() = default;

// Auditors

void SoMenuCheckBox::addAuditor(SoMenuCheckBoxAuditor* auditor)
{
  inherited::addAuditor(auditor);
}

void SoMenuCheckBox::removeAuditor(SoMenuCheckBoxAuditor* auditor)
{
  inherited::removeAuditor(auditor);
}

void SoMenuCheckBox::applyDlgCptAuditor()
{
  SoAuditorDispatch::applyOwnAuditors(this, &SoMenuCheckBoxAuditor::menuCheckBox);
}

// Building

SbVec2i32 SoMenuCheckBox::getItemInitSize()
{
  const int width =
    std::max(getLabelPixelSize(label.getValue(), this)[0], getLabelPixelSize(onString.getValue(), this)[0]);
  return {width + markColumn + 2 * textMargin, itemHeight};
}

void SoMenuCheckBox::buildMenu(void* parentMenu, int asWidget, int index)
{
  inherited::buildMenu(parentMenu, asWidget, index);
  m_watched.watch(state);
  m_watched.watch(onString);
  m_watched.watch(accelerator);
}

void SoMenuCheckBox::insertMenuItem(int index)
{
  setRelay(new SoMenuQCheckBox(getParentMenu(), index, ID++, this));
  // Neither the check mark nor the enable state is applied before the field changes: this is meant.
  changeLabel();
  changeAccelerator();
}

// Reactions

void SoMenuCheckBox::menuEvent(void* /*action*/, int /*id*/)
{
  const SoEventScope scope(this, SoEventScope::getAction());
  const auto show = [this] {
    changeState();
    if (isLive3D()) {
      change3DState();
    }
  };
  {
    const SoWatchedFields::Pause pause(m_watched, state);
    state = !state.getValue();
  }
  show();
  applyDlgCptAuditor();
  show(); // an auditor may have said no
}

void SoMenuCheckBox::updateFromSensor(SoSensor* sensor)
{
  const SoField* field = SoWatchedFields::getFired(sensor);
  if (field == &state) {
    changeState();
    if (isLive3D()) {
      change3DState();
    }
  }
  else if (field == &onString) {
    changeOnString();
    if (isLive3D()) {
      change3DOnString();
    }
  }
  else if (field == &accelerator) {
    changeAccelerator();
    if (isLive3D()) {
      updateMenu3D();
    }
  }
  else {
    inherited::updateFromSensor(sensor);
  }
}

SbString SoMenuCheckBox::getShownText() const
{
  const bool isOn = state.getValue() && onString.getValue().getLength() > 0;
  return convertToCString(isOn ? onString.getValue() : label.getValue(), this);
}

void SoMenuCheckBox::changeState()
{
  if (auto* relay = static_cast<SoMenuQCheckBox*>(getRelay())) {
    relay->setChecked(state.getValue());
  }
  changeLabel();
}

void SoMenuCheckBox::changeOnString()
{
  changeLabel();
}

void SoMenuCheckBox::changeAccelerator()
{
  setShortcut(accelerator.getValue());
}

// The 3D form

SoMenuItem::Columns SoMenuCheckBox::getColumns3D() const
{
  Columns columns = inherited::getColumns3D();
  columns.marks = markColumn;
  return columns;
}

SbString SoMenuCheckBox::getShortcutText() const
{
  return nameShortcut(getShownText(), accelerator.getValue());
}

void SoMenuCheckBox::create3DItem(int index)
{
  inherited::create3DItem(index);
  fillFromSkin("stateOff", getSkin().getPart("MenuCheckBoxStateOff"));
  fillFromSkin("stateOn", getSkin().getPart("MenuCheckBoxStateOn"));
  m_markTransform = So3DPlacement::insertTransform(makePart<SoSeparator>("chkSep"));
  makePart<SoSwitch>("chkSwtch");
  change3DState();
}

void SoMenuCheckBox::update3DItem()
{
  inherited::update3DItem();
  So3DPlacement::place(m_markTransform, getMarkRect(0), getItemSize(), textSurface);
}

void SoMenuCheckBox::change3DState()
{
  if (auto* marks = static_cast<SoSwitch*>(chkSwtch.getValue())) {
    marks->whichChild = state.getValue() ? 1 : 0;
  }
  updateLines3D();
}

void SoMenuCheckBox::change3DOnString()
{
  change3DLabel();
}

void SoMenuCheckBox::draggerFinishCallback3D()
{
  inherited::draggerFinishCallback3D();
  menuEvent(nullptr, 0);
}
