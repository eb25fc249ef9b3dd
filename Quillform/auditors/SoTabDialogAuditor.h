#ifndef QUILLFORM_SOTABDIALOGAUDITOR_H
#define QUILLFORM_SOTABDIALOGAUDITOR_H

#include <Quillform/auditors/SoAuditor.h>

class SoTabDialog;

/// Auditor of tab dialogs; the only auditors that hear of their page changes.
class QUILLFORM_API SoTabDialogAuditor : public SoAuditor {
  SO_TYPED_OBJECT_HEADER(SoTabDialogAuditor);

public:
  /// Called after the user has operated \a cpt, whose fields hold what it shows.
  virtual void tabDialog(SoTabDialog* cpt) = 0;
};

#endif // QUILLFORM_SOTABDIALOGAUDITOR_H
