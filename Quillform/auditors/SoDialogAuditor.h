#ifndef QUILLFORM_SODIALOGAUDITOR_H
#define QUILLFORM_SODIALOGAUDITOR_H

#include <Quillform/auditors/SoAuditor.h>

class SoDialogCheckBox;
class SoDialogComboBox;
class SoDialogEditText;
class SoDialogIntegerSlider;
class SoDialogPushButton;
class SoDialogRadioButtons;
class SoDialogRealSlider;
class SoMenuCheckBox;
class SoMenuFileSelection;
class SoMenuPushButton;
class SoMenuRadioButtons;
class SoTabDialog;

/// Auditor of a whole dialog or group: it hears of every control inside that has no auditor of its own.
///
/// An operation that is not overridden does nothing, unless the preference `DEBUG_QUILLFORM_AUDITORS` is set:
/// then it posts what the user did through SoDebugError::postInfo.
class QUILLFORM_API SoDialogAuditor : public SoAuditor {
  SO_TYPED_OBJECT_HEADER(SoDialogAuditor);

public:
  virtual void dialogPushButton(SoDialogPushButton* cpt);       ///< a button was pressed
  virtual void dialogCheckBox(SoDialogCheckBox* cpt);           ///< a box was checked or unchecked
  virtual void dialogComboBox(SoDialogComboBox* cpt);           ///< an entry of the list was chosen
  virtual void dialogEditText(SoDialogEditText* cpt);           ///< a text was changed
  virtual void dialogIntegerSlider(SoDialogIntegerSlider* cpt); ///< a slider was moved, or its value typed
  virtual void dialogRadioButtons(SoDialogRadioButtons* cpt);   ///< one of the entries was chosen
  virtual void dialogRealSlider(SoDialogRealSlider* cpt);       ///< a slider was moved, or its value typed

  /// Never called by a dialog or group; does nothing.
  virtual void tabDialog(SoTabDialog* cpt);

  virtual void menuPushButton(SoMenuPushButton* cpt);       ///< a command was chosen
  virtual void menuCheckBox(SoMenuCheckBox* cpt);           ///< an entry was switched on or off
  virtual void menuFileSelection(SoMenuFileSelection* cpt); ///< a file was chosen, or the choice cancelled
  virtual void menuRadioButtons(SoMenuRadioButtons* cpt);   ///< one of the entries was chosen
};

#endif // QUILLFORM_SODIALOGAUDITOR_H
