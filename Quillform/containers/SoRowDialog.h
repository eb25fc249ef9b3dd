#ifndef QUILLFORM_SOROWDIALOG_H
#define QUILLFORM_SOROWDIALOG_H

#include <Quillform/containers/SoDialogGroup.h>

/// A group whose children stand one below the other, with one column of labels and one of controls.
///
/// \code
/// RowDialog {
///   rowSpacing 4
///   DialogPushButton { label "Camera:" buttonLabel "Show everything" }
///   DialogPushButton { label "Position:" buttonLabel "Remember" }
/// }
/// \endcode
///
/// File format, after the fields of SoDialogGroup, with the default; the children follow the fields:
/// \code
/// RowDialog {
///   rowSpacing  0   # SoSFInt32: room between consecutive rows in pixels
/// }
/// \endcode
class QUILLFORM_API SoRowDialog : public SoDialogGroup {
  typedef SoDialogGroup inherited;
  SO_QUILLFORM_HEADER(SoRowDialog);

public:
  SoSFInt32 rowSpacing; ///< room between consecutive rows in pixels; default 0

  SoRowDialog();

  void buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget) override;
  void updateFromSensor(SoSensor* sensor) override;
  void fixSizeWithBorder(SbVec2i32& size, int times) override;
  void setChildrenComponentSize() override;
  void setChildrenLabelSize() override;

protected:
  ~SoRowDialog() override;

  int getAxis() const override;
  int getSpacing() const override;
  QBoxLayout* createGroupLayout(QWidget* frame) override;
};

#endif // QUILLFORM_SOROWDIALOG_H
