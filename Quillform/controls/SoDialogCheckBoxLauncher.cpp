#include <Quillform/controls/SoDialogCheckBoxLauncher.h>

SO_QUILLFORM_SOURCE(SoDialogCheckBoxLauncher, "DialogCheckBoxLauncher")

SoDialogCheckBoxLauncher::SoDialogCheckBoxLauncher()
{
  SO_QUILLFORM_CONSTRUCTOR(SoDialogCheckBoxLauncher);
  SO_KIT_INIT_INSTANCE();
}

SoDialogCheckBoxLauncher::~SoDialogCheckBoxLauncher() = default;

void SoDialogCheckBoxLauncher::launchedDialogsChanged()
{
  openByState();
}

void SoDialogCheckBoxLauncher::openByState()
{
  if (isWidgetBuilt()) {
    m_launched.showWindows(state.getValue());
  }
  if (isBuilt3D() != 0) {
    m_launched.show3D(state.getValue());
  }
}

void SoDialogCheckBoxLauncher::buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget)
{
  inherited::buildWidget(parent, size, position, asWidget);
  openByState();
}

void SoDialogCheckBoxLauncher::updateFromSensor(SoSensor* sensor)
{
  const bool isState = SoWatchedFields::getFired(sensor) == &state;
  inherited::updateFromSensor(sensor);
  if (isState) {
    openByState();
  }
}

void SoDialogCheckBoxLauncher::eventNotify(unsigned int event, unsigned long data)
{
  inherited::eventNotify(event, data);
  openByState();
}

void SoDialogCheckBoxLauncher::launchedDialogClosed()
{
  if (!state.getValue()) {
    return;
  }
  setStateFromUser(false); // other dialogs that it has launched stay open
  if (isWidgetBuilt()) {
    changeState();
  }
  if (isLive3D()) {
    change3DState();
  }
}
