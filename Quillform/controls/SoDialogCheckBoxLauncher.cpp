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
  m_launched.open(state.getValue());
}

void SoDialogCheckBoxLauncher::buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget)
{
  inherited::buildWidget(parent, size, position, asWidget);
  m_launched.open(state.getValue());
}

void SoDialogCheckBoxLauncher::updateFromSensor(SoSensor* sensor)
{
  const bool isState = SoWatchedFields::getFired(sensor) == &state;
  inherited::updateFromSensor(sensor);
  if (isState) {
    m_launched.open(state.getValue());
  }
}

void SoDialogCheckBoxLauncher::eventNotify(unsigned int event, unsigned long data)
{
  inherited::eventNotify(event, data);
  m_launched.open(state.getValue());
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
