#ifndef QUILLFORM_SOAUDITOR_H
#define QUILLFORM_SOAUDITOR_H

#include <Quillform/platform/SoTypedObject.h>

/// Base of the application's callbacks.
///
/// An application derives from one of the auditor classes, overrides the operation for the elements it cares
/// about, and adds an instance to an element. Elements do not own auditors. An auditor may do anything from
/// inside its operation, and may be deleted at any time: it then leaves all lists.
class QUILLFORM_API SoAuditor : public SoTypedObject {
  SO_TYPED_OBJECT_HEADER(SoAuditor);

public:
  ~SoAuditor() override;

  /// Registers the auditor types, and takes that back in the reverse order. The type of SoTabDialogAuditor is
  /// not among them.
  static void initClasses();
  static void exitClasses(); ///< takes the registration back
};

#endif // QUILLFORM_SOAUDITOR_H
