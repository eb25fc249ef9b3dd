#include <Quillform/controls/SoDialogPushButtonLauncher.h>

SO_QUILLFORM_SOURCE(SoDialogPushButtonLauncher, "DialogPushButtonLauncher")

SoDialogPushButtonLauncher::SoDialogPushButtonLauncher()
{
  SO_QUILLFORM_CONSTRUCTOR(SoDialogPushButtonLauncher);
  SO_KIT_INIT_INSTANCE();
}

SoDialogPushButtonLauncher::~SoDialogPushButtonLauncher() = default;

void SoDialogPushButtonLauncher::buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget)
{
  inherited::buildWidget(parent, size, position, asWidget);
  if (asWidget != 0) {
    m_launched.buildWindows();
  }
  else if (!m_launched.isBuilt3D()) {
    m_launched.show3D(false);
  }
}

void SoDialogPushButtonLauncher::eventNotify(unsigned int event, unsigned long data)
{
  inherited::eventNotify(event, data);
  if (isWidgetBuilt()) { // no auditor has removed it
    m_launched.showWindows(true);
    m_launched.raiseWindows();
  }
}

void SoDialogPushButtonLauncher::draggerFinishCallback3D()
{
  inherited::draggerFinishCallback3D();
  m_launched.show3D(true);
}
