#ifndef QUILLFORM_SODIALOGCOMBOBOX_H
#define QUILLFORM_SODIALOGCOMBOBOX_H

#include <Quillform/controls/So3DEntryList.h>
#include <Quillform/controls/SoDialogChoice.h>

/// A box that shows the chosen entry of a list and drops the list down on demand, with a label beside it.
///
/// \code
/// DialogComboBox { auditorID "unit" label "Unit:" items [ "mm", "cm", "m" ] selectedItem 1 }
/// \endcode
///
/// Choosing an entry calls the auditors, also when it is the one that was chosen before. A `selectedItem` behind
/// the last entry becomes the last one; a negative one shows nothing.
///
/// In the scene a press on the box opens the list in front of everything else of the dialog: below the box, or above
/// it where the view has more room there. A press on an entry chooses it, a press on the box or on another element
/// closes the list. A long list has a scroll bar and follows the wheel.
///
/// It adds no fields to those of SoDialogChoice.
///
/// Catalog, below `geomSwitch`:
/// \code
/// labelSep
///   labelSwitch
///     labelProp            # public
/// frameSep
///   frame                  # public
/// textSep
///   textProp               # public
/// buttonSep
///   buttonSwitch
///     buttonReleased       # public, child 0
///     buttonPressed        # public, child 1
/// itemsSwitch
///   itemStrucSep
///     itemSep
///       itemFrame          # public
///     itemTextSep
///       itemTextProp       # public
/// \endcode
class QUILLFORM_API SoDialogComboBox : public SoDialogChoice {
  typedef SoDialogChoice inherited;
  SO_QUILLFORM_HEADER(SoDialogComboBox);
  SO_KIT_CATALOG_ENTRY_HEADER(labelSep);
  SO_KIT_CATALOG_ENTRY_HEADER(labelSwitch);
  SO_KIT_CATALOG_ENTRY_HEADER(labelProp);
  SO_KIT_CATALOG_ENTRY_HEADER(frameSep);
  SO_KIT_CATALOG_ENTRY_HEADER(frame);
  SO_KIT_CATALOG_ENTRY_HEADER(textSep);
  SO_KIT_CATALOG_ENTRY_HEADER(textProp);
  SO_KIT_CATALOG_ENTRY_HEADER(buttonSep);
  SO_KIT_CATALOG_ENTRY_HEADER(buttonSwitch);
  SO_KIT_CATALOG_ENTRY_HEADER(buttonReleased);
  SO_KIT_CATALOG_ENTRY_HEADER(buttonPressed);
  SO_KIT_CATALOG_ENTRY_HEADER(itemsSwitch);
  SO_KIT_CATALOG_ENTRY_HEADER(itemStrucSep);
  SO_KIT_CATALOG_ENTRY_HEADER(itemSep);
  SO_KIT_CATALOG_ENTRY_HEADER(itemFrame);
  SO_KIT_CATALOG_ENTRY_HEADER(itemTextSep);
  SO_KIT_CATALOG_ENTRY_HEADER(itemTextProp);

public:
  SoDialogComboBox();

  SO_SKIN_HEADER();

  SbVec2i32 getComponentInitSize() override;
  void getDefaultSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max) override;
  void changeEnable() override;
  void changeLabel() override;
  void changeLabelAlignment() override;
  void changeLabelVisibility() override;
  void changeEdgeStyle() override;
  void changeItems() override;
  void changeSelectedItem() override;
  void updateComboBoxWidget(); ///< places the box in the window
  void updateLabelWidget();    ///< places the label in the window

  void handleEvent(SoHandleEventAction* action) override; ///< gives the element events in the scene
  void show3D(int show) override;
  void set3DInactive() override;
  void change3DEnable() override;
  void change3DWidgetEnable(int enable) override;
  void change3DLabelVisibility() override;
  SbBool pressKey3D(const SoKeyboardEvent* event) override;
  void change3DItems() override;
  void change3DSelectedItem() override;
  void update3DComboBox(); ///< places everything but the label
  void update3DLabel();    ///< places the label

  /// \name Steps of the build
  /// What is there already is not made again.
  /// @{
  void createLabelWidget() override; ///< makes the relay, with all its widgets
  void create3DDialogComboBox();     ///< makes the 3D form
  /// @}

protected:
  ~SoDialogComboBox() override;

  void create3DChoice() override;
  void placeWidgets() override;
  QRect getSideLabelRect(int frameHeight) const override;
  void update3D() override;
  bool usesKeys3D() const override;
  void press3D() override;
  void drag3D() override;
  void release3D() override;

private:
  int getTextHeight() const;
  QRect getBoxRect(const SbVec2i32& frame, int textHeight) const;
  QRect getBoxRect3D() const;
  void clampSelection(int count);
  float getSeenHeight(float y);
  QRect getListRect(const QRect& box, int& inSight);
  void open3DList();
  void close3DList();
  void close3DListIfDisabled();
  void update3DList();
  void press3DList();
  int getMarkedEntry() const;

  So3DText m_text3D;                        // the chosen entry in the scene
  So3DEntryList m_list;                     // the list in the scene
  int m_marked = -1;                        // in the open list, the entry that keys have led to
  SoTransform* m_frameTransform = nullptr;  // below frameSep, which owns it
  SoTransform* m_buttonTransform = nullptr; // below buttonSep, which owns it
};

#endif // QUILLFORM_SODIALOGCOMBOBOX_H
