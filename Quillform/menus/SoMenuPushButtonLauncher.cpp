#include <Quillform/menus/SoMenuPushButtonLauncher.h>

#include <Quillform/core/SoEventScope.h>

SO_QUILLFORM_SOURCE(SoMenuPushButtonLauncher, "MenuPushButtonLauncher")

SoMenuPushButtonLauncher::SoMenuPushButtonLauncher()
{
  SO_QUILLFORM_CONSTRUCTOR(SoMenuPushButtonLauncher);
  SO_KIT_INIT_INSTANCE();
}

SoMenuPushButtonLauncher::~SoMenuPushButtonLauncher() = default;

void SoMenuPushButtonLauncher::buildMenu(void* parentMenu, int asWidget, int index)
{
  inherited::buildMenu(parentMenu, asWidget, index);
  if (asWidget == 0 && !m_launched.isBuilt3D()) {
    m_launched.show3D(false);
  }
}

void SoMenuPushButtonLauncher::menuEvent(void* action, int id)
{
  const SoEventScope scope(this, SoEventScope::getAction());
  inherited::menuEvent(action, id);
  if (isWidgetBuilt()) { // no auditor has removed it
    m_launched.showWindows(true);
    m_launched.raiseWindows();
  }
}

void SoMenuPushButtonLauncher::draggerStartCallback3D()
{
  inherited::draggerStartCallback3D();
  m_launched.show3D(true); // at the press already: this is meant
}

SbVec3f SoMenuPushButtonLauncher::getLaunchPlace3D() const
{
  return getLaunchPlaceBeside3D();
}
