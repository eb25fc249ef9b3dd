#include "ElementClass.h"

#include <Inventor/draggers/SoTranslate1Dragger.h>
#include <Inventor/fields/SoSFEnum.h>
#include <Inventor/lists/SoFieldList.h>
#include <Inventor/nodekits/SoNodekitCatalog.h>
#include <QRegularExpression>
#include <functional>

namespace {

QString toQString(const SbName& name)
{
  return QString::fromLatin1(name.getString());
}

/// The C++ class of a type of that name.
QString withSo(const QString& typeName)
{
  return typeName.startsWith("So") ? typeName : "So" + typeName;
}

SoDragger* create(SoType type)
{
  auto* element = static_cast<SoDragger*>(type.createInstance());
  element->ref();
  return element;
}

ElementClass::Field describe(const QString& name, SoField* field)
{
  SbString value;
  field->get(value);
  ElementClass::Field described{
    name, withSo(toQString(field->getTypeId().getName())), QString::fromLatin1(value.getString()), {}, field};
  if (field->isOfType(SoSFEnum::getClassTypeId())) {
    const auto* choice = static_cast<const SoSFEnum*>(field);
    for (int i = 0; i < choice->getNumEnums(); i++) {
      SbName enumerator;
      const int number = choice->getEnum(i, enumerator);
      described.enumerators.push_back({toQString(enumerator), number, QString()});
    }
  }
  described.value.replace(QRegularExpression("\\s*\n\\s*"), " "); // of a list
  return described;
}

} // namespace

QString ElementClass::getClassName(SoType type)
{
  return withSo(toQString(type.getName()));
}

ElementClass::ElementClass(const QString& tree, SoType type)
    : name(getClassName(type)), fileName(name.mid(2)), header(tree, name), m_element(create(type))
{
  for (SoType base = type; base != SoQuillform::getClassTypeId();) {
    base = base.getParent();
    bases.push_back(base);
  }
  // SoDragger itself has no instances; what it gives to its classes is in every one of them.
  SoDragger* base = create(bases.empty() ? SoTranslate1Dragger::getClassTypeId() : bases.front());
  compareFields(base);
  compareParts(bases.empty() ? SoDragger::getClassNodekitCatalog() : base->getNodekitCatalog());
  base->unref();
}

ElementClass::~ElementClass()
{
  m_element->unref();
}

void ElementClass::compareFields(const SoDragger* base)
{
  SoFieldList list;
  m_element->getFields(list);
  for (int i = 0; i < list.getLength(); i++) {
    SbName fieldName;
    m_element->getFieldName(list[i], fieldName);
    // Each part has a field of its name.
    if (m_element->getNodekitCatalog()->getPartNumber(fieldName) != SO_CATALOG_NAME_NOT_FOUND) {
      continue;
    }
    const SoField* inheritedField = base->getField(fieldName);
    if (!inheritedField) {
      fields.push_back(describe(toQString(fieldName), list[i]));
    }
    else if (!list[i]->isSame(*inheritedField)) {
      redefined.push_back(describe(toQString(fieldName), list[i]));
    }
  }
}

void ElementClass::compareParts(const SoNodekitCatalog* baseCatalog)
{
  const SoNodekitCatalog* catalog = m_element->getNodekitCatalog();
  const std::function<void(int)> addBelow = [&](int parent) {
    for (int i = 0; i < catalog->getNumEntries(); i++) {
      if (catalog->getParentPartNumber(i) != parent) {
        continue;
      }
      if (baseCatalog->getPartNumber(catalog->getName(i)) == SO_CATALOG_NAME_NOT_FOUND) {
        parts.push_back({toQString(catalog->getName(i)), withSo(toQString(catalog->getType(i).getName())),
                         toQString(catalog->getParentName(i)), catalog->isPublic(i) != FALSE});
      }
      addBelow(i);
    }
  };
  addBelow(0); // the kit itself
}
