#include <Quillform/menus/SoMenuCheckBoxLauncher.h>

#include <Quillform/core/SoEventScope.h>

SO_QUILLFORM_SOURCE(SoMenuCheckBoxLauncher, "MenuCheckBoxLauncher")

SoMenuCheckBoxLauncher::SoMenuCheckBoxLauncher()
{
  SO_QUILLFORM_CONSTRUCTOR(SoMenuCheckBoxLauncher);
  SO_KIT_INIT_INSTANCE();
}

SoMenuCheckBoxLauncher::~SoMenuCheckBoxLauncher() = default;

void SoMenuCheckBoxLauncher::openByState()
{
  if (isWidgetBuilt()) {
    m_launched.showWindows(state.getValue());
  }
  if (isBuilt3D() != 0) {
    m_launched.show3D(state.getValue());
  }
}

void SoMenuCheckBoxLauncher::menuEvent(void* action, int id)
{
  const SoEventScope scope(this, SoEventScope::getAction());
  inherited::menuEvent(action, id);
  openByState();
}

void SoMenuCheckBoxLauncher::updateFromSensor(SoSensor* sensor)
{
  const bool isState = SoWatchedFields::getFired(sensor) == &state;
  inherited::updateFromSensor(sensor);
  if (isState) {
    openByState();
  }
}

void SoMenuCheckBoxLauncher::launchedDialogClosed()
{
  if (!state.getValue()) {
    return;
  }
  {
    const SoWatchedFields::Pause pause(m_watched, state); // other dialogs that it has launched stay open
    state = FALSE;
  }
  changeState();
  if (isLive3D()) {
    change3DState();
  }
}

SbVec3f SoMenuCheckBoxLauncher::getLaunchPlace3D() const
{
  return getLaunchPlaceBeside3D();
}
