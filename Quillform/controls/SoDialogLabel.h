#ifndef QUILLFORM_SODIALOGLABEL_H
#define QUILLFORM_SODIALOGLABEL_H

#include <Quillform/core/SoDialogComponent.h>

/// A line or several lines of text. The text is the inherited field `label`, placed by `labelAlignment`.
///
/// \code
/// DialogLabel { label "Choose what is drawn." labelAlignment LEFT }
/// \endcode
///
/// It has no fields of its own. Catalog, below `geomSwitch`:
/// \code
/// labelSep
///   labelProp    # public
/// \endcode
class QUILLFORM_API SoDialogLabel : public SoDialogComponent {
  typedef SoDialogComponent inherited;
  SO_QUILLFORM_HEADER(SoDialogLabel);
  SO_KIT_CATALOG_ENTRY_HEADER(labelSep);
  SO_KIT_CATALOG_ENTRY_HEADER(labelProp);

public:
  SoDialogLabel();

  void buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget) override;
  void updateFromSensor(SoSensor* sensor) override;
  SbVec2i32 getComponentInitSize() override;
  SbVec2i32 getLabelInitSize() override;
  void getDefaultSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max) override;
  SoCellLimits getCellLimits() const override;
  void changeEnable() override;
  void changeLabel() override;
  void changeLabelAlignment() override;
  void changeEdgeStyle() override;
  void changeWidgetEnable(int enable) override;
  void change3DLabel() override;
  void change3DLabelAlignment() override;
  void updateLabelWidget(); ///< places the text in the relay

  /// \name Steps of the build
  /// What is there already is not made again.
  /// @{
  void createLabelWidget();   ///< makes the relay, with all its widgets
  void create3DDialogLabel(); ///< makes the 3D form
  void update3DLabel();       ///< shows and places the text
  /// @}

protected:
  ~SoDialogLabel() override;

  void placeWidgets() override;
  void update3D() override;

private:
  QRect getTextRect(const SbVec2i32& frame) const;

  SbVec2i32 m_textSize{0, 0}; // of the label's text, once measured
  So3DText m_text3D;          // the text in the scene
};

#endif // QUILLFORM_SODIALOGLABEL_H
