#include <Quillform/containers/SoRowDialog.h>

#include <QBoxLayout>

SO_QUILLFORM_SOURCE(SoRowDialog, "RowDialog")

SoRowDialog::SoRowDialog()
{
  SO_QUILLFORM_CONSTRUCTOR(SoRowDialog);
  SO_QUILLFORM_ADD_FIELD(rowSpacing, (0));
  SO_KIT_INIT_INSTANCE();
}

SoRowDialog::~SoRowDialog() = default;

int SoRowDialog::getAxis() const
{
  return 1;
}

int SoRowDialog::getSpacing() const
{
  return rowSpacing.getValue();
}

QBoxLayout* SoRowDialog::createGroupLayout(QWidget* frame)
{
  auto* layout = new QVBoxLayout(frame);
  layout->setObjectName("ZEP_SoColumnDialog_Layout"); // the column's name: this is meant
  return layout;
}

void SoRowDialog::buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget)
{
  inherited::buildWidget(parent, size, position, asWidget);
  m_watched.watch(rowSpacing);
}

void SoRowDialog::updateFromSensor(SoSensor* sensor)
{
  if (SoWatchedFields::getFired(sensor) == &rowSpacing) {
    changeSpacing();
  }
  else {
    inherited::updateFromSensor(sensor);
  }
}

void SoRowDialog::fixSizeWithBorder(SbVec2i32& size, int times)
{
  addBorder(size, SbVec2i32(edge, edge), times);
}

void SoRowDialog::setChildrenLabelSize()
{
  // A hidden label keeps its own height here, unlike in a top-level dialog: this is meant.
  SoBoxModel::giveCommonLabelColumn(getComponents(), SoBoxModel::HIDDEN_LABELS_KEEP_HEIGHT);
}

void SoRowDialog::setChildrenComponentSize()
{
  SoBoxModel::giveCommonComponentColumn(getComponents());
}
