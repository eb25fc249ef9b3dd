#ifndef QUILLFORM_VIEW_TRACEAUDITOR_H
#define QUILLFORM_VIEW_TRACEAUDITOR_H

#include <Quillform/auditors/SoDialogAuditor.h>
#include <Quillform/auditors/SoTabDialogAuditor.h>

class SoQuillform;

/// Prints a line on the standard output for everything that the user does in a dialog:
/// \code
/// dialogPushButton auditorID="ok" label="OK"
/// \endcode
class TraceAuditor : public SoDialogAuditor {
public:
  void dialogPushButton(SoDialogPushButton* cpt) override;
  void dialogEditText(SoDialogEditText* cpt) override;
  void menuPushButton(SoMenuPushButton* cpt) override;
  void menuCheckBox(SoMenuCheckBox* cpt) override;
  void menuFileSelection(SoMenuFileSelection* cpt) override;
  void menuRadioButtons(SoMenuRadioButtons* cpt) override;
};

/// Does the same for the tab dialogs, which report their pages to their own auditors only.
class TabTraceAuditor : public SoTabDialogAuditor {
public:
  /// Listens to every tab dialog below \a dialog.
  void listenTo(SoQuillform* dialog);

  void tabDialog(SoTabDialog* cpt) override;
};

#endif // QUILLFORM_VIEW_TRACEAUDITOR_H
