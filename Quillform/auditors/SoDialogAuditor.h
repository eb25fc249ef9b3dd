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
  virtual void dialogPushButton(SoDialogPushButton* cpt);
  virtual void dialogCheckBox(SoDialogCheckBox* cpt);
  virtual void dialogComboBox(SoDialogComboBox* cpt);
  virtual void dialogEditText(SoDialogEditText* cpt);
  virtual void dialogIntegerSlider(SoDialogIntegerSlider* cpt);
  virtual void dialogRadioButtons(SoDialogRadioButtons* cpt);
  virtual void dialogRealSlider(SoDialogRealSlider* cpt);

  /// Never called by a dialog or group; does nothing.
  virtual void tabDialog(SoTabDialog* cpt);

  virtual void menuPushButton(SoMenuPushButton* cpt);
  virtual void menuCheckBox(SoMenuCheckBox* cpt);
  virtual void menuFileSelection(SoMenuFileSelection* cpt);
  virtual void menuRadioButtons(SoMenuRadioButtons* cpt);
};

#endif // QUILLFORM_SODIALOGAUDITOR_H
