#ifndef QUILLFORM_SOQUILLFORMSUB_H
#define QUILLFORM_SOQUILLFORMSUB_H

#include <Inventor/SbName.h>
#include <Inventor/SoType.h>
#include <Inventor/fields/SoFieldData.h>
#include <Inventor/fields/SoSFNode.h>
#include <Inventor/nodekits/SoNodekitCatalog.h>
#include <Inventor/nodekits/SoSubKit.h>
#include <mutex>

/// One row of an element's node-kit catalog. Parts start empty; rows of one parent stand in drawing order.
template <class Element>
struct SoCatalogPart {
  SoSFNode Element::*field; ///< the part field
  const char* name;         ///< name of the part, also of its field in a file
  const char* type;         ///< class of the part's node
  const char* parent;       ///< part below which it stands
  SbBool isPublic;          ///< whether a dialog file may set it
};

/// What SO_QUILLFORM_HEADER and SO_QUILLFORM_SOURCE share between all element classes.
class SoQuillformSub {
public:
  /// Adds the rows of a catalog table to a class's catalog and field data on its first construction, and
  /// prepares the part fields of the instance on every one.
  template <class Element, int rowCount>
  static void addParts(Element* element, const SoCatalogPart<Element> (&rows)[rowCount], SbBool isFirst,
                       SoNodekitCatalog* catalog, SoFieldData* fieldData)
  {
    for (const SoCatalogPart<Element>& row : rows) {
      SoSFNode& field = element->*row.field;
      field.setValue(nullptr);
      field.setContainer(element);
      if (isFirst) {
        const SoType type = SoType::fromName(row.type);
        catalog->addEntry(row.name, type, type, TRUE, row.parent, "", FALSE, SoType::badType(), SoType::badType(),
                          row.isPublic);
        fieldData->addField(element, row.name, &field);
      }
    }
  }
};

/// Declares what every element class needs for the scene-graph type system: the type, its registration,
/// the field data and the node-kit catalog.
#define SO_QUILLFORM_HEADER(Class) \
  SO_KIT_HEADER(Class); \
  static std::mutex s_classMutex; \
\
public: \
  /** Registers the class, and its parent class first if that is not registered. */ \
  static void initClass(); \
  /** Takes the registration back. Nodes that are still referenced stay usable. */ \
  static void exitClass()

/// Defines what SO_QUILLFORM_HEADER declares; \a typeName is the name in dialog files.
#define SO_QUILLFORM_SOURCE(Class, typeName) SO_QUILLFORM_SOURCE_WITH_ALIAS(Class, typeName, "")

/// As SO_QUILLFORM_SOURCE, with a second spelling for dialog files. The reader drops a leading "So" when it
/// looks a name up but never adds one, so a type whose name has one needs its short spelling as an alias.
#define SO_QUILLFORM_SOURCE_WITH_ALIAS(Class, typeName, aliasName) \
  SO_KIT_SOURCE(Class) \
  std::mutex Class::s_classMutex; \
  void Class::initClass() \
  { \
    if (inherited::getClassTypeId() == SoType::badType()) { \
      inherited::initClass(); \
    } \
    const std::lock_guard<std::mutex> lock(s_classMutex); \
    if (classTypeId != SoType::badType()) { \
      return; \
    } \
    classTypeId = SoType::createType(inherited::getClassTypeId(), typeName, &Class::createInstance, \
                                     static_cast<uint16_t>(SoNode::getNextActionMethodIndex())); \
    SoNode::incNextActionMethodIndex(); \
    if (*aliasName != '\0') { \
      SoType::createType(classTypeId, aliasName, &Class::createInstance, classTypeId.getData()); \
    } \
    parentFieldData = inherited::getFieldDataPtr(); \
    parentcatalogptr = inherited::getClassNodekitCatalogPtr(); \
  } \
  void Class::exitClass() \
  { \
    const std::lock_guard<std::mutex> lock(s_classMutex); \
    if (classTypeId == SoType::badType()) { \
      return; \
    } \
    if (*aliasName != '\0') { \
      SoType::removeType(aliasName); \
    } \
    SoType::removeType(classTypeId.getName()); \
    classTypeId = SoType::badType(); \
    /* A node that the application still holds reads its fields and parts through these. */ \
    if (SoQuillform::getInstanceCount() == 0) { \
      delete fieldData; \
      fieldData = nullptr; \
      delete classcatalog; \
      classcatalog = nullptr; \
      classinstances = 0; \
    } \
  }

/// First statement of every element's constructor.
#define SO_QUILLFORM_CONSTRUCTOR(Class) \
  const std::lock_guard<std::mutex> classLock(s_classMutex); \
  SO_KIT_CONSTRUCTOR(Class); \
  isBuiltIn = TRUE

/// Adds a field with its default value, given in parentheses, inside an element's constructor. Unlike the
/// scene-graph library's own macro it looks the name up only for the first instance of a class.
#define SO_QUILLFORM_ADD_FIELD(field, defaultValue) \
  field.setValue defaultValue; \
  field.setContainer(this); \
  if (SO_KIT_IS_FIRST_INSTANCE()) \
  fieldData->addField(this, #field, &field)

/// Adds a catalog table, an array of SoCatalogPart, inside an element's constructor.
#define SO_QUILLFORM_ADD_PARTS(table) \
  SoQuillformSub::addParts(this, table, SO_KIT_IS_FIRST_INSTANCE(), classcatalog, fieldData)

#endif // QUILLFORM_SOQUILLFORMSUB_H
