#ifndef QUILLFORM_REFERENCE_REFERENCEPAGES_H
#define QUILLFORM_REFERENCE_REFERENCEPAGES_H

#include "ElementClass.h"

#include <QMap>
#include <memory>
#include <vector>

/// The pages of docs/reference: one for each element class, and the index.
class ReferencePages {
public:
  /// Looks at all registered classes, with the headers below \a tree.
  explicit ReferencePages(const QString& tree);

  /// The text of every page by the name of its file. Throws std::runtime_error when a header leaves something out.
  QMap<QString, QString> write() const;

private:
  QString writePage(const ElementClass& element) const;
  QString writeIndex() const;
  QString writeFields(const ElementClass& element) const;
  QString writeEnumerations(const ElementClass& element) const;
  QString writeCatalog(const ElementClass& element) const;
  QString writeChildren(const ElementClass& element) const;
  QString writeAuditors(const ElementClass& element) const;
  QString writePicture(const ElementClass& element) const;
  const ElementClass& find(SoType type) const;
  QString linkTo(const QString& className) const;
  QString linkAll(QString text, const QString& except) const;

  const QString m_tree;
  std::vector<std::unique_ptr<ElementClass>> m_classes; // in the order of registration
};

#endif // QUILLFORM_REFERENCE_REFERENCEPAGES_H
