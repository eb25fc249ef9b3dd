#include <Quillform/menus/SoMenuCheckBoxLauncher.h>

#include <Quillform/core/SoEventScope.h>

SO_QUILLFORM_SOURCE(SoMenuCheckBoxLauncher, "MenuCheckBoxLauncher")

SoMenuCheckBoxLauncher::SoMenuCheckBoxLauncher()
{
  SO_QUILLFORM_CONSTRUCTOR(SoMenuCheckBoxLauncher);
  SO_KIT_INIT_INSTANCE();
}

SoMenuCheckBoxLauncher::~SoMenuCheckBoxLauncher() = default;

void SoMenuCheckBoxLauncher::menuEvent(void* action, int id)
{
  const SoEventScope scope(this, SoEventScope::getAction());
  inherited::menuEvent(action, id);
  m_launched.open(state.getValue());
}

void SoMenuCheckBoxLauncher::updateFromSensor(SoSensor* sensor)
{
  const bool isState = SoWatchedFields::getFired(sensor) == &state;
  inherited::updateFromSensor(sensor);
  if (isState) {
    m_launched.open(state.getValue());
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
