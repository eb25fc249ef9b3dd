#ifndef QUILLFORM_SOAUDITORLISTS_H
#define QUILLFORM_SOAUDITORLISTS_H

#include <vector>

class SoAuditor;
class SoQuillform;

/// Which elements hold which auditor, so that an auditor can be deleted while it is in use.
class SoAuditorLists {
public:
  static void add(SoAuditor* auditor, SoQuillform* element); ///< notes that an auditor stands in the list of an element
  static void remove(SoAuditor* auditor, SoQuillform* element); ///< takes that back

  /// Forgets everything about an element that is being destroyed.
  static void removeAll(SoQuillform* element);

  static std::vector<SoQuillform*> getElements(SoAuditor* auditor); ///< the elements in whose lists the auditor stands
};

#endif // QUILLFORM_SOAUDITORLISTS_H
