#include <Quillform/menus/SoMenuPushButton.h>

#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoTransform.h>
#include <Quillform/auditors/SoAuditorDispatch.h>
#include <Quillform/auditors/SoMenuPushButtonAuditor.h>
#include <Quillform/core/So3DPlacement.h>
#include <Quillform/menus/SoMenuQPushButton.h>

SO_QUILLFORM_SOURCE(SoMenuPushButton, "MenuPushButton")
SO_SKIN_SOURCE(SoMenuPushButton, "MenuPushButton.iv", "MenuPushButtonReleased", "MenuPushButtonPressed")

SoMenuPushButton::SoMenuPushButton()
{
  SO_QUILLFORM_CONSTRUCTOR(SoMenuPushButton);

  SO_QUILLFORM_ADD_FIELD(accelerator, (""));

  typedef SoMenuPushButton Self;
  static const SoCatalogPart<Self> parts[] = {
    {&Self::btnSep, "btnSep", "SoSeparator", "geomSwitch", FALSE},
    {&Self::btnSwtch, "btnSwtch", "SoSwitch", "btnSep", FALSE},
    {&Self::released, "released", "SoGroup", "btnSwtch", TRUE},
    {&Self::pressed, "pressed", "SoGroup", "btnSwtch", TRUE},
  };
  SO_QUILLFORM_ADD_PARTS(parts);
  SO_KIT_INIT_INSTANCE();
}

SoMenuPushButton::~SoMenuPushButton() = default;

// Auditors

void SoMenuPushButton::addAuditor(SoMenuPushButtonAuditor* auditor)
{
  inherited::addAuditor(auditor);
}

void SoMenuPushButton::removeAuditor(SoMenuPushButtonAuditor* auditor)
{
  inherited::removeAuditor(auditor);
}

void SoMenuPushButton::applyDlgCptAuditor()
{
  SoAuditorDispatch::applyOwnAuditors(this, &SoMenuPushButtonAuditor::menuPushButton);
}

// Building

void SoMenuPushButton::buildMenu(void* parentMenu, int asWidget, int index)
{
  inherited::buildMenu(parentMenu, asWidget, index);
  m_watched.watch(accelerator);
}

void SoMenuPushButton::insertMenuItem(int index)
{
  setRelay(new SoMenuQPushButton(getParentMenu(), index, ID++, this));
  changeLabel();
  changeEnable();
  changeAccelerator();
}

// Reactions

void SoMenuPushButton::menuEvent(void* /*action*/, int /*id*/)
{
  applyDlgCptAuditor();
}

void SoMenuPushButton::updateFromSensor(SoSensor* sensor)
{
  if (SoWatchedFields::getFired(sensor) != &accelerator) {
    inherited::updateFromSensor(sensor);
    return;
  }
  changeAccelerator();
  if (isLive3D()) {
    updateMenu3D();
  }
}

void SoMenuPushButton::changeAccelerator()
{
  setShortcut(accelerator.getValue());
}

// The 3D form

void SoMenuPushButton::create3DItem(int index)
{
  inherited::create3DItem(index);
  fillFromSkin("released", getSkin().getPart("MenuPushButtonReleased"));
  fillFromSkin("pressed", getSkin().getPart("MenuPushButtonPressed"));
  m_buttonTransform = So3DPlacement::insertTransform(makePart<SoSeparator>("btnSep"));
  makePart<SoSwitch>("btnSwtch")->whichChild = 0;
}

void SoMenuPushButton::update3DItem()
{
  inherited::update3DItem();
  const SbVec2i32 size = getItemSize();
  So3DPlacement::place(m_buttonTransform, QRect(0, 0, size[0], size[1]), size, plateFace);
}

So3DMenuLine::Plates SoMenuPushButton::getPlates() const
{
  return {}; // a part of the command
}

SbString SoMenuPushButton::getShortcutText() const
{
  return nameShortcut(getShownText(), accelerator.getValue());
}

void SoMenuPushButton::setHeld3D(int /*line*/, bool held)
{
  if (auto* looks = static_cast<SoSwitch*>(btnSwtch.getValue())) {
    looks->whichChild = held ? 1 : 0;
  }
}

void SoMenuPushButton::draggerFinishCallback3D()
{
  inherited::draggerFinishCallback3D();
  choose3D();
}

void SoMenuPushButton::choose3D()
{
  applyDlgCptAuditor();
}
