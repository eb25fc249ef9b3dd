#ifndef QUILLFORM_SODIALOGPUSHBUTTON_H
#define QUILLFORM_SODIALOGPUSHBUTTON_H

#include <Quillform/core/SoDialogComponent.h>

class SoDialogPushButtonAuditor;
class SoDialogQPushButton;

/// A button that reports each press, with a label beside it.
///
/// \code
/// DialogPushButton { auditorID "apply" label "Changes:" buttonLabel "Apply" }
/// \endcode
///
/// In a window its auditors are called when the button goes down; in the scene when it is released over the
/// button.
///
/// File format, after the fields of SoDialogComponent, with the default:
/// \code
/// DialogPushButton {
///   buttonLabel  ""   # SoSFString: text on the button
/// }
/// \endcode
///
/// Catalog, below `geomSwitch`:
/// \code
/// labelSep
///   labelSwitch
///     labelProp          # public
/// frameSep
///   frameSwitch
///     released           # public, child 0
///     pressed            # public, child 1
/// buttonLabelSep
///   buttonLabelProp      # public
/// \endcode
class QUILLFORM_API SoDialogPushButton : public SoDialogComponent {
  typedef SoDialogComponent inherited;
  SO_QUILLFORM_HEADER(SoDialogPushButton);
  SO_KIT_CATALOG_ENTRY_HEADER(labelSep);
  SO_KIT_CATALOG_ENTRY_HEADER(labelSwitch);
  SO_KIT_CATALOG_ENTRY_HEADER(labelProp);
  SO_KIT_CATALOG_ENTRY_HEADER(frameSep);
  SO_KIT_CATALOG_ENTRY_HEADER(frameSwitch);
  SO_KIT_CATALOG_ENTRY_HEADER(released);
  SO_KIT_CATALOG_ENTRY_HEADER(pressed);
  SO_KIT_CATALOG_ENTRY_HEADER(buttonLabelSep);
  SO_KIT_CATALOG_ENTRY_HEADER(buttonLabelProp);

public:
  SoSFString buttonLabel; ///< text on the button, "&" before its mnemonic letter; default empty

  SoDialogPushButton();

  SO_SKIN_HEADER();

  using SoQuillform::addAuditor;
  using SoQuillform::removeAuditor;
  void addAuditor(SoDialogPushButtonAuditor* auditor);    ///< adds an auditor at the end, unless it is in the list
  void removeAuditor(SoDialogPushButtonAuditor* auditor); ///< takes an auditor out of the list; it stays alive
  void applyDlgCptAuditor() override;

  /// Replaces the geometry of the pressed look by \a node.
  void set3DReleasedGeometry(SoNode* node);

  /// Replaces the geometry of the released look by \a node.
  void set3DPressedGeometry(SoNode* node);

  void buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget) override;
  void updateFromSensor(SoSensor* sensor) override;
  void eventNotify(unsigned int event, unsigned long data) override;
  SbVec2i32 getComponentInitSize() override;
  void getDefaultSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max) override;
  SoCellLimits getCellLimits() const override;
  void changeEnable() override;
  void changeLabel() override;
  void changeLabelAlignment() override;
  void changeLabelVisibility() override;
  void changeEdgeStyle() override;
  void changeWidgetEnable(int enable) override;
  void changeButtonLabel(); ///< shows the text in the window
  void change3DLabel() override;
  void change3DLabelAlignment() override;
  void change3DLabelVisibility() override;
  void change3DButtonLabel();          ///< shows the text in the scene
  void change3DButtonState(int state); ///< shows the pressed look, or the released one for 0
  void updateLabelWidget();            ///< places the label in the relay
  void updateButtonWidget();           ///< places the button in the relay

  /// \name Hooks without effect
  /// @{
  void createButtonWidget() {}             ///< without effect
  void activateButton() {}                 ///< without effect
  void changeButtonState(int /*state*/) {} ///< without effect
  /// @}

  /// \name Steps of the build
  /// What is there already is not made again.
  /// @{
  virtual void draggerStartCallback3D();  ///< the button goes down
  virtual void draggerFinishCallback3D(); ///< the button comes up where it went down
  void createLabelWidget();               ///< makes the relay, with all its widgets
  void create3DDialogPushButton();        ///< makes the 3D form
  void update3DButton();                  ///< places the button and its text
  void update3DLabel();                   ///< shows and places the text
  /// @}

protected:
  ~SoDialogPushButton() override;

  void placeWidgets() override;
  void update3D() override;
  bool usesKeys3D() const override;
  SbBool pressWithKey3D() override;
  void press3D() override;
  void release3D() override;

private:
  bool isPressable();
  void setLook(int child, SoNode* node);

  SbVec2i32 m_buttonTextSize{0, 0};           // of buttonLabel with its margins, once measured
  So3DText m_buttonText3D;                    // the text on the button in the scene
  SoTransform* m_buttonTransform = nullptr;   // below frameSep, which owns it
  SoNode* m_ownLooks[2] = {nullptr, nullptr}; // geometry of the application, referenced, by child of frameSwitch
};

#endif // QUILLFORM_SODIALOGPUSHBUTTON_H
