#include <Quillform/containers/SoColumnDialog.h>

#include <QBoxLayout>

SO_QUILLFORM_SOURCE(SoColumnDialog, "ColumnDialog")

SoColumnDialog::SoColumnDialog()
{
  SO_QUILLFORM_CONSTRUCTOR(SoColumnDialog);
  SO_QUILLFORM_ADD_FIELD(columnSpacing, (0));
  SO_KIT_INIT_INSTANCE();
}

SoColumnDialog::~SoColumnDialog() = default;

int SoColumnDialog::getAxis() const
{
  return 0;
}

int SoColumnDialog::getSpacing() const
{
  return columnSpacing.getValue();
}

SbBool SoColumnDialog::hasVerticalCells() const
{
  return TRUE;
}

QBoxLayout* SoColumnDialog::createGroupLayout(QWidget* frame)
{
  auto* layout = new QHBoxLayout(frame);
  layout->setObjectName("ZEPSoColumnDialogLayout");
  return layout;
}

void SoColumnDialog::buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget)
{
  inherited::buildWidget(parent, size, position, asWidget);
  m_watched.watch(columnSpacing);
}

void SoColumnDialog::updateFromSensor(SoSensor* sensor)
{
  if (SoWatchedFields::getFired(sensor) == &columnSpacing) {
    changeSpacing();
  }
  else {
    inherited::updateFromSensor(sensor);
  }
}

void SoColumnDialog::fixSizeWithBorder(SbVec2i32& size, int times)
{
  addBorder(size, SbVec2i32(edge, edge), times);
}

void SoColumnDialog::setChildrenLabelSize()
{
  SoBoxModel::giveOwnLabelSizes(getComponents());
}

void SoColumnDialog::setChildrenComponentSize()
{
  SoBoxModel::giveOwnComponentSizes(getComponents());
}
