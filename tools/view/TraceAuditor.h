#ifndef QUILLFORM_VIEW_TRACEAUDITOR_H
#define QUILLFORM_VIEW_TRACEAUDITOR_H

#include <Quillform/auditors/SoDialogAuditor.h>

/// Prints a line on the standard output for everything that the user does in a dialog:
/// \code
/// dialogPushButton auditorID="ok" label="OK"
/// \endcode
class TraceAuditor : public SoDialogAuditor {
public:
  void dialogPushButton(SoDialogPushButton* cpt) override;
  void dialogEditText(SoDialogEditText* cpt) override;
};

#endif // QUILLFORM_VIEW_TRACEAUDITOR_H
