#ifndef QUILLFORM_SOQUILLFORMCLASSES_H
#define QUILLFORM_SOQUILLFORMCLASSES_H

#include <Inventor/SoType.h>
#include <Quillform/Export.h>
#include <vector>

/// The element classes in the order in which they are registered.
class QUILLFORM_API SoQuillformClasses {
public:
  /// The types of all element classes in that order; empty before SoQuillform::init.
  static std::vector<SoType> getTypes();
};

#endif // QUILLFORM_SOQUILLFORMCLASSES_H
