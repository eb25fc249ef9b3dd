#ifndef QUILLFORM_SOAUDITORDISPATCH_H
#define QUILLFORM_SOAUDITORDISPATCH_H

#include <Inventor/SbString.h>
#include <Quillform/Export.h>
#include <Quillform/auditors/SoAuditor.h>
#include <Quillform/core/SoQuillform.h>
#include <functional>

class SoDialogAuditor;

/// How a user action reaches the auditors, the same for every element.
class QUILLFORM_API SoAuditorDispatch {
public:
  /// Calls \a operation of the element's own auditors in order or, when it has none, hands the element to its
  /// parent.
  template <class Auditor, class Element>
  static void applyOwnAuditors(Element* element, void (Auditor::*operation)(Element*))
  {
    if (element->getAuditorListLength() == 0) {
      handOn(element, element);
      return;
    }
    forEachAuditor(element, [element, operation](SoAuditor* auditor) {
      auto* typed = dynamic_cast<Auditor*>(auditor);
      if (typed) {
        (typed->*operation)(element);
      }
      return typed != nullptr;
    });
  }

  /// Which elements a container reports.
  enum Scope { CONTROLS, WITH_MENUS };

  /// Calls the operation for \a caller's class of \a defaultAuditor, for a container without auditors of its own.
  static void applyDefaultAuditor(SoDialogAuditor* defaultAuditor, SoQuillform* caller, Scope scope);

  /// Calls the operation for \a caller's class of each dialog auditor of \a container, in order; of
  /// \a defaultAuditor, which may be nullptr, when it has none.
  static void applyDialogAuditors(SoQuillform* container, SoDialogAuditor* defaultAuditor, SoQuillform* caller,
                                  Scope scope);

  /// Reports every control of \a container once, those of inner containers included.
  static void applyToChildren(SoQuillform* container);

  /// The first element below \a container, depth first, with that auditorID; nullptr when there is none.
  static SoQuillform* searchForAuditorId(SoQuillform* container, const SbString& id);

  /// Hands \a caller to the parent of \a container, if it has one: to its auditors, or further up.
  static void handOn(SoQuillform* container, SoQuillform* caller);

private:
  /// Calls \a call with each auditor, in order, that is still in the list when its turn comes. An auditor for
  /// which it returns false is of the wrong kind and is named in a message.
  static void forEachAuditor(SoQuillform* element, const std::function<bool(SoAuditor*)>& call);
};

#endif // QUILLFORM_SOAUDITORDISPATCH_H
