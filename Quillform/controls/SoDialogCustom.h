#ifndef QUILLFORM_SODIALOGCUSTOM_H
#define QUILLFORM_SODIALOGCUSTOM_H

#include <Quillform/core/SoDialogComponent.h>

/// An empty place in a dialog for widgets of the application's own. It has no 3D form and no fields of its own.
///
/// \code
/// DialogCustom { auditorID "plot" width 300 height 200 }
/// \endcode
///
/// After the dialog is built, the application adds its widgets to the frame's layout:
/// \code
/// auto* place = static_cast<SoDialogCustom*>(dialog->searchForAuditorId("plot"));
/// place->getLayout()->addWidget(new Plot);
/// \endcode
/// The frame, with what was added, stays through every later build of the dialog.
class QUILLFORM_API SoDialogCustom : public SoDialogComponent {
  typedef SoDialogComponent inherited;
  SO_QUILLFORM_HEADER(SoDialogCustom);

public:
  SoDialogCustom();

  /// The horizontal layout of the frame; nullptr before the build.
  QBoxLayout* getLayout() const override;

  void buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget) override;
  bool hasSizeAsMinimum() const override;
  SoCellLimits getCellLimits() const override;
  void changeEdgeStyle() override;

  /// \name Steps of the build
  /// What is there already is not made again.
  /// @{
  void addChildWidget(); ///< puts the application's widget into the frame
  /// @}

protected:
  ~SoDialogCustom() override;

private:
  QPointer<QBoxLayout> m_contents; // of the frame
};

#endif // QUILLFORM_SODIALOGCUSTOM_H
