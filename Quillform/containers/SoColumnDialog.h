#ifndef QUILLFORM_SOCOLUMNDIALOG_H
#define QUILLFORM_SOCOLUMNDIALOG_H

#include <Quillform/containers/SoDialogGroup.h>

/// A group whose children stand side by side, each as wide as it needs to be.
///
/// \code
/// ColumnDialog {
///   columnSpacing 4
///   DialogPushButton { label "Camera:" buttonLabel "Show everything" }
///   DialogPushButton { label "Position:" buttonLabel "Remember" }
/// }
/// \endcode
///
/// File format, after the fields of SoDialogGroup, with the default; the children follow the fields:
/// \code
/// ColumnDialog {
///   columnSpacing  0   # SoSFInt32: room between consecutive columns in pixels
/// }
/// \endcode
class QUILLFORM_API SoColumnDialog : public SoDialogGroup {
  typedef SoDialogGroup inherited;
  SO_QUILLFORM_HEADER(SoColumnDialog);

public:
  SoSFInt32 columnSpacing; ///< room between consecutive columns in pixels; default 0

  SoColumnDialog();

  void buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget) override;
  void updateFromSensor(SoSensor* sensor) override;
  void fixSizeWithBorder(SbVec2i32& size, int times) override;
  void setChildrenComponentSize() override;
  void setChildrenLabelSize() override;
  SbBool hasVerticalCells() const override;

protected:
  ~SoColumnDialog() override;

  int getAxis() const override;
  int getSpacing() const override;
  QBoxLayout* createGroupLayout(QWidget* frame) override;
};

#endif // QUILLFORM_SOCOLUMNDIALOG_H
