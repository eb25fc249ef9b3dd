#ifndef QUILLFORM_SODIALOGCHECKBOX_H
#define QUILLFORM_SODIALOGCHECKBOX_H

#include <Quillform/core/SoDialogComponent.h>

class SoDialogCheckBoxAuditor;

/// A box that is checked or not, with a text that may differ between the two, and a label beside it.
///
/// \code
/// DialogCheckBox { auditorID "axes" label "Axes:" state TRUE onString "shown" offString "hidden" }
/// \endcode
///
/// File format, after the fields of SoDialogComponent, with the defaults:
/// \code
/// DialogCheckBox {
///   state      FALSE   # SoSFBool:   checked
///   onString   ""      # SoSFString: text while checked, and while not checked if offString is empty
///   offString  ""      # SoSFString: text while not checked
/// }
/// \endcode
///
/// Catalog, below `geomSwitch`:
/// \code
/// labelSep
///   labelSwitch
///     labelProp           # public
/// frameSep
///   frame                 # public
/// stateSep
///   stateSwitch
///     stateOff            # public, child 0
///     stateOn             # public, child 1
/// onOffStringSep
///   onOffStringProp       # public
/// \endcode
class QUILLFORM_API SoDialogCheckBox : public SoDialogComponent {
  typedef SoDialogComponent inherited;
  SO_QUILLFORM_HEADER(SoDialogCheckBox);
  SO_KIT_CATALOG_ENTRY_HEADER(labelSep);
  SO_KIT_CATALOG_ENTRY_HEADER(labelSwitch);
  SO_KIT_CATALOG_ENTRY_HEADER(labelProp);
  SO_KIT_CATALOG_ENTRY_HEADER(frameSep);
  SO_KIT_CATALOG_ENTRY_HEADER(frame);
  SO_KIT_CATALOG_ENTRY_HEADER(stateSep);
  SO_KIT_CATALOG_ENTRY_HEADER(stateSwitch);
  SO_KIT_CATALOG_ENTRY_HEADER(stateOff);
  SO_KIT_CATALOG_ENTRY_HEADER(stateOn);
  SO_KIT_CATALOG_ENTRY_HEADER(onOffStringSep);
  SO_KIT_CATALOG_ENTRY_HEADER(onOffStringProp);

public:
  SoSFBool state;       ///< checked; default FALSE
  SoSFString onString;  ///< text while checked; default empty
  SoSFString offString; ///< text while not checked, empty for that of onString; default empty

  SoDialogCheckBox();

  SO_SKIN_HEADER();

  using SoQuillform::addAuditor;
  using SoQuillform::removeAuditor;
  void addAuditor(SoDialogCheckBoxAuditor* auditor);    ///< adds an auditor at the end, unless it is in the list
  void removeAuditor(SoDialogCheckBoxAuditor* auditor); ///< takes an auditor out of the list; it stays alive
  void applyDlgCptAuditor() override;

  void buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget) override;
  void updateFromSensor(SoSensor* sensor) override;

  /// The user has checked (\a event 1) or unchecked (\a event 0) the box.
  void eventNotify(unsigned int event, unsigned long data) override;

  SbVec2i32 getComponentInitSize() override;
  void getDefaultSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max) override;
  void changeEnable() override;
  void changeLabel() override;
  void changeLabelAlignment() override;
  void changeLabelVisibility() override;
  void changeEdgeStyle() override;
  void changeWidgetEnable(int enable) override;
  void changeState();       ///< shows state in the window
  void changeOnOffString(); ///< shows the text in the window
  void change3DLabelVisibility() override;
  virtual void change3DState(); ///< shows state in the scene
  void change3DOnOffString();   ///< shows the text in the scene

  /// The user has clicked the box in the scene.
  virtual void draggerFinishCallback3D();

  /// \name Steps of the build
  /// What is there already is not made again.
  /// @{
  void createLabelWidget();      ///< makes the relay, with all its widgets
  void updateLabelWidget();      ///< places the widgets of the relay
  void updateCheckBoxWidget();   ///< places the check box
  void create3DDialogCheckBox(); ///< makes the 3D form
  /// @}

protected:
  ~SoDialogCheckBox() override;

  void placeWidgets() override;
  void update3D() override;
  bool usesKeys3D() const override;
  SbBool pressWithKey3D() override;
  void release3D() override;

  /// Sets `state` without the reaction that a change from code has.
  void setStateFromUser(bool checked);

private:
  SbString getShownText() const;

  SbVec2i32 m_onTextSize{0, 0};            // of onString with its margins, once measured
  SbVec2i32 m_offTextSize{0, 0};           // of offString with its margins, once measured
  So3DText m_text3D;                       // the text beside the check mark in the scene
  SoTransform* m_frameTransform = nullptr; // below frameSep, which owns it
  SoTransform* m_stateTransform = nullptr; // below stateSep, which owns it
};

#endif // QUILLFORM_SODIALOGCHECKBOX_H
