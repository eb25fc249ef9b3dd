#ifndef QUILLFORM_SODIALOGRADIOBUTTONS_H
#define QUILLFORM_SODIALOGRADIOBUTTONS_H

#include <Quillform/controls/SoDialogChoice.h>
#include <Quillform/core/SoDialogWidgetList.h>
#include <vector>

/// A titled group of buttons, one for each entry of a list, of which one is checked.
///
/// \code
/// DialogRadioButtons { auditorID "side" label "Side" items [ "left", "right" ] selectedItem 1 }
/// \endcode
///
/// The label is the title of the group. Clicking an entry calls the auditors, also when it is the one that is
/// checked. A `selectedItem` that is not an index of `items` becomes the nearest one. In the scene a click on the
/// group beside its entries calls the auditors, too.
///
/// It adds no fields to those of SoDialogChoice.
///
/// Catalog, below `geomSwitch`:
/// \code
/// frameSep
///   frame                  # public
/// labelSep
///   labelSwitch
///     labelProp            # public
/// itemsSep                 # a switch
///   itemSep
///     itemFrameSep
///       itemFrame          # public
///     itemBtnSep
///       itemBtnSwtch
///         stateOff         # public, child 0
///         stateOn          # public, child 1
///     itemTextSep
///       itemTextProp       # public
/// \endcode
class QUILLFORM_API SoDialogRadioButtons : public SoDialogChoice {
  typedef SoDialogChoice inherited;
  SO_QUILLFORM_HEADER(SoDialogRadioButtons);
  SO_KIT_CATALOG_ENTRY_HEADER(frameSep);
  SO_KIT_CATALOG_ENTRY_HEADER(frame);
  SO_KIT_CATALOG_ENTRY_HEADER(labelSep);
  SO_KIT_CATALOG_ENTRY_HEADER(labelSwitch);
  SO_KIT_CATALOG_ENTRY_HEADER(labelProp);
  SO_KIT_CATALOG_ENTRY_HEADER(itemsSep);
  SO_KIT_CATALOG_ENTRY_HEADER(itemSep);
  SO_KIT_CATALOG_ENTRY_HEADER(itemFrameSep);
  SO_KIT_CATALOG_ENTRY_HEADER(itemFrame);
  SO_KIT_CATALOG_ENTRY_HEADER(itemBtnSep);
  SO_KIT_CATALOG_ENTRY_HEADER(itemBtnSwtch);
  SO_KIT_CATALOG_ENTRY_HEADER(stateOff);
  SO_KIT_CATALOG_ENTRY_HEADER(stateOn);
  SO_KIT_CATALOG_ENTRY_HEADER(itemTextSep);
  SO_KIT_CATALOG_ENTRY_HEADER(itemTextProp);

public:
  SoDialogRadioButtons();

  SO_SKIN_HEADER();

  void resetSize() override;
  SbVec2i32 getComponentInitSize() override;
  void getDefaultSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max) override;
  bool hasSizeAsMinimum() const override;
  void changeEnable() override;
  void changeLabel() override;
  void changeLabelAlignment() override;
  void changeLabelVisibility() override;
  void changeEdgeStyle() override;
  void changeItems() override;
  void changeSelectedItem() override;
  void createRadioButtonsWidget(int index); ///< makes the button of an entry in the window
  void updateLabelWidget();                 ///< places the title in the window

  void change3DLabel() override;
  void change3DLabelVisibility() override;
  SbBool pressKey3D(const SoKeyboardEvent* event) override;
  void change3DItems() override;
  void change3DSelectedItem() override;
  void update3DRadioButtons(); ///< places everything but the title
  void update3DLabel();        ///< places the title

  /// Spreads the height of a component of the size \a size over the entries in the scene.
  void computeNewButtonsHeight(const SbVec2i32& size);

  /// \name Steps of the build
  /// What is there already is not made again.
  /// @{
  void createLabelWidget() override; ///< makes the relay, with all its widgets
  void create3DDialogRadioButtons(); ///< makes the 3D form
  /// @}

protected:
  ~SoDialogRadioButtons() override;

  void create3DChoice() override;
  void placeWidgets() override;
  QRect getSideLabelRect(int frameHeight) const override;
  void update3D() override;
  bool usesKeys3D() const override;
  void press3D() override;
  void release3D() override;

private:
  /// One entry in the scene.
  struct Row {
    SoSeparator* node;  // below itemsSep, which owns it
    SoTransform* plate; // below the node, like those that follow
    SoTransform* mark;
    SoSwitch* state;
    So3DText text;
  };

  void addRow(SoSeparator* node, SoSeparator* plate, SoSeparator* mark, SoSwitch* state, SoSeparator* text);
  void setRowCount(int count);
  void clampSelection();
  bool hasTitle() const;
  int getEntryUnderPointer();

  SoDialogWidgetList m_buttons;            // by entry; they belong to the relay
  SbVec2i32 m_entriesSize{0, 0};           // of all entries with their margins, once measured
  std::vector<Row> m_rows;                 // the first one is made of catalog parts
  std::vector<QRect> m_entryRects;         // of the entries in the scene, from the component's top-left corner
  SoTransform* m_frameTransform = nullptr; // below frameSep, which owns it
  int m_pressedEntry = -1;                 // where the button went down
};

#endif // QUILLFORM_SODIALOGRADIOBUTTONS_H
