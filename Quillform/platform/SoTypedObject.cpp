#include <Quillform/platform/SoTypedObject.h>

SbBool SoTypedObject::isOfType(SoType type) const
{
  return getTypeId().isDerivedFrom(type);
}
