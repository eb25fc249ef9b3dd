#ifndef QUILLFORM_SOTYPEDOBJECT_H
#define QUILLFORM_SOTYPEDOBJECT_H

#include <Inventor/SbName.h>
#include <Inventor/SoType.h>
#include <Quillform/Export.h>

/// Base of plain objects that carry a run-time type of the scene-graph type system without being nodes.
class QUILLFORM_API SoTypedObject {
public:
  virtual ~SoTypedObject() = default;

  /// The type of this object; bad while the type is not registered.
  virtual SoType getTypeId() const = 0;

  /// TRUE when this object is of \a type or of a type derived from it.
  SbBool isOfType(SoType type) const;

protected:
  SoTypedObject() = default;
  SoTypedObject(const SoTypedObject&) = default;            ///< copies may be made
  SoTypedObject& operator=(const SoTypedObject&) = default; ///< and assigned
};

/// Declares the run-time type of a class derived from SoTypedObject, with its registration.
#define SO_TYPED_OBJECT_HEADER(Class) \
public: \
  /** The type registered for this class; bad before initClass and after exitClass. */ \
  static SoType getClassTypeId(); \
  SoType getTypeId() const override; \
  /** Registers the type under the class's name without its prefix. */ \
  static void initClass(); \
  /** Removes the type again. */ \
  static void exitClass(); \
\
private: \
  static SoType s_classTypeId

/// Defines what SO_TYPED_OBJECT_HEADER declares. \a parentType is an expression evaluated at initClass.
#define SO_TYPED_OBJECT_SOURCE(Class, typeName, parentType) \
  SoType Class::s_classTypeId = SoType::badType(); \
  SoType Class::getClassTypeId() \
  { \
    return s_classTypeId; \
  } \
  SoType Class::getTypeId() const \
  { \
    return s_classTypeId; \
  } \
  void Class::initClass() \
  { \
    s_classTypeId = SoType::createType(parentType, typeName); \
  } \
  void Class::exitClass() \
  { \
    SoType::removeType(typeName); \
    s_classTypeId = SoType::badType(); \
  }

#endif // QUILLFORM_SOTYPEDOBJECT_H
