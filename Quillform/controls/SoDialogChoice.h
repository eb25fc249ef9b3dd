#ifndef QUILLFORM_SODIALOGCHOICE_H
#define QUILLFORM_SODIALOGCHOICE_H

#include <Inventor/fields/SoMFString.h>
#include <Quillform/core/SoDialogComponent.h>

class SoDialogChoiceAuditor;

/// Base of the controls that pick one entry of a list: SoDialogComboBox and SoDialogRadioButtons.
///
/// The list is never empty for long: a list without entries gets a placeholder, an empty text that the next
/// entry replaces. Entries are shown as they are written, backslashes included.
///
/// File format, after the fields of SoDialogComponent, with the defaults:
/// \code
/// DialogChoice {
///   items         ""   # SoMFString: the entries, in display order
///   selectedItem  0    # SoSFInt32:  index of the chosen entry
/// }
/// \endcode
///
/// It adds no catalog parts.
class QUILLFORM_API SoDialogChoice : public SoDialogComponent {
  typedef SoDialogComponent inherited;
  SO_QUILLFORM_HEADER(SoDialogChoice);

public:
  SoMFString items;       ///< the entries, in display order; default one empty text, the placeholder
  SoSFInt32 selectedItem; ///< index of the chosen entry; default 0

  SoDialogChoice();

  /// \name Entries
  /// @{

  /// Appends an entry; the first one replaces the placeholder.
  void addItem(SbString item);

  /// Inserts an entry at \a index, which is clamped to the entries; the first one replaces the placeholder.
  void insertItem(int index, SbString item);

  /// Removes the entry at \a index; ignored when there is none.
  void removeItem(int index);

  /// Gives an empty list its placeholder, and notices when the placeholder is gone.
  void fixItemsNumber();

  /// Number of entries without the placeholder.
  int getNumItems() const;

  /// The text of the chosen entry; empty when `selectedItem` is not an index of `items`.
  SbString getSelectedText() const;
  /// @}

  using SoQuillform::addAuditor;
  using SoQuillform::removeAuditor;
  void addAuditor(SoDialogChoiceAuditor* auditor);    ///< adds an auditor at the end, unless it is in the list
  void removeAuditor(SoDialogChoiceAuditor* auditor); ///< takes an auditor out of the list; it stays alive
  void applyDlgCptAuditor() override;

  void buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget) override;
  void updateFromSensor(SoSensor* sensor) override;

  /// The user has chosen the entry \a event in the window.
  void eventNotify(unsigned int event, unsigned long data) override;

  void changeEnable() override;
  void changeLabelAlignment() override;
  void changeLabelVisibility() override;
  void changeWidgetEnable(int enable) override;
  virtual void changeItems();          ///< shows the entries in the window
  virtual void changeSelectedItem();   ///< shows the chosen entry in the window
  virtual void change3DSelectedItem(); ///< shows the chosen entry in the scene
  virtual void change3DItems();        ///< shows the entries in the scene

  /// \name Steps of the build
  /// What is there already is not made again.
  /// @{
  virtual void createLabelWidget(); ///< makes the relay, with all its widgets
  /// @}

protected:
  explicit SoDialogChoice(const PartsLater& later); ///< see PartsLater
  ~SoDialogChoice() override;

  /// Copies what is not in fields too.
  void copyContents(const SoFieldContainer* from, SbBool copyConnections) override;

  /// Makes the 3D form unless it is there already.
  virtual void create3DChoice();

  /// The user has chosen the entry \a index in the scene.
  void chooseIn3D(int index);

private:
  bool holdsPlaceholder() const;

  int m_placeholder = 1; // 1 while a single empty entry stands for an empty list
};

#endif // QUILLFORM_SODIALOGCHOICE_H
