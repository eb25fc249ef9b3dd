#ifndef QUILLFORM_REFERENCE_ELEMENTCLASS_H
#define QUILLFORM_REFERENCE_ELEMENTCLASS_H

#include "HeaderFile.h"

#include <Inventor/SoType.h>
#include <Quillform/core/SoQuillform.h>

/// What a registered class says about itself, through one of its elements, and what its header says about it.
class ElementClass {
public:
  struct Field {
    QString name;
    QString type;
    QString value;                                   ///< the default, as a file holds it
    std::vector<HeaderFile::Enumerator> enumerators; ///< of a field that holds one; without their meaning
    const SoField* field;                            ///< of the element
  };

  struct Part {
    QString name;
    QString type;
    QString parent;
    bool isPublic;
  };

  ElementClass(const QString& tree, SoType type);
  ~ElementClass();
  ElementClass(const ElementClass&) = delete;
  ElementClass& operator=(const ElementClass&) = delete;

  /// The C++ class.
  static QString getClassName(SoType type);

  const QString name;     ///< of the C++ class
  const QString fileName; ///< of the class in dialog files
  const HeaderFile header;
  std::vector<SoType> bases;    ///< that are elements too, the nearest first
  std::vector<Field> fields;    ///< that the class itself adds
  std::vector<Field> redefined; ///< those of its bases that begin with another value
  std::vector<Part> parts;      ///< that the class itself adds, each behind the one that it stands below

private:
  void compareFields(const SoDragger* base);
  void compareParts(const SoNodekitCatalog* baseCatalog);

  SoDragger* const m_element; // referenced
};

#endif // QUILLFORM_REFERENCE_ELEMENTCLASS_H
