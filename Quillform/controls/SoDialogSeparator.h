#ifndef QUILLFORM_SODIALOGSEPARATOR_H
#define QUILLFORM_SODIALOGSEPARATOR_H

#include <Quillform/core/SoDialogComponent.h>

/// A line between the elements of a dialog: across in a row dialog, upright in a column dialog.
///
/// \code
/// RowDialog {
///   DialogLabel { label "Above" }
///   DialogSeparator { }
///   DialogLabel { label "Below" }
/// }
/// \endcode
///
/// It has no fields of its own, and takes no notice of fields that change after it was built. Catalog, below
/// `geomSwitch`:
/// \code
/// frameSep
///   frameSwitch
///     vFrame     # public, child 0
///     hFrame     # public, child 1
/// \endcode
class QUILLFORM_API SoDialogSeparator : public SoDialogComponent {
  typedef SoDialogComponent inherited;
  SO_QUILLFORM_HEADER(SoDialogSeparator);
  SO_KIT_CATALOG_ENTRY_HEADER(frameSep);
  SO_KIT_CATALOG_ENTRY_HEADER(frameSwitch);
  SO_KIT_CATALOG_ENTRY_HEADER(vFrame);
  SO_KIT_CATALOG_ENTRY_HEADER(hFrame);

public:
  SoDialogSeparator();

  SO_SKIN_HEADER();

  /// Says whether the line lies across (non-zero) or stands upright. Containers call it before they build.
  void setOrientationHorz(int isHorizontal);

  void buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget) override;
  void updateFromSensor(SoSensor* sensor) override;
  void getDefaultSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max) override;
  bool hasSizeAsMinimum() const override;
  SoCellLimits getCellLimits() const override;
  void changeEdgeStyle() override;

  /// \name Steps of the build
  /// What is there already is not made again.
  /// @{
  void createSeparatorWidget(); ///< makes the relay
  void create3DSeparator();     ///< makes the 3D form
  /// @}

protected:
  ~SoDialogSeparator() override;

  void placeWidgets() override;
  void update3D() override;

private:
  int m_isHorizontal = 1;
  SoTransform* m_lineTransform = nullptr; // below frameSep, which owns it
};

#endif // QUILLFORM_SODIALOGSEPARATOR_H
