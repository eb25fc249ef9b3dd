#ifndef QUILLFORM_REFERENCE_HEADERFILE_H
#define QUILLFORM_REFERENCE_HEADERFILE_H

#include <QMap>
#include <QString>
#include <QStringList>
#include <vector>

/// What the header of a class says about it: the class comment and the comments of fields and enumerations.
struct HeaderFile {
  /// A paragraph or a piece of code of the class comment.
  struct Block {
    enum Kind {
      TEXT,    ///< a paragraph, on one line
      SNIPPET, ///< an example of a dialog file
      PROGRAM, ///< an example of C++
      FORMAT,  ///< the class's own fields with their defaults
      CATALOG  ///< the class's own parts as a tree
    };
    Kind kind;
    QString text;
  };

  /// A field as the format block lists it.
  struct FormatLine {
    QString name;
    QString value;
    QString type;
  };

  /// A part as the catalog block shows it.
  struct CatalogLine {
    QString name;
    QString parent; ///< of the line above it in the tree; empty at the top of the tree
    bool isPublic;
  };

  struct Enumerator {
    QString name;
    int value;
    QString meaning; ///< empty when the name says it all
  };

  struct Enumeration {
    QString name;
    QString meaning;
    std::vector<Enumerator> enumerators;
  };

  /// Reads the header of \a className, wherever it is below \a tree. Throws std::runtime_error when there is none.
  HeaderFile(const QString& tree, const QString& className);

  std::vector<Block> getBlocks(Block::Kind kind) const;
  std::vector<FormatLine> getFormat() const;
  std::vector<CatalogLine> getCatalog() const;

  /// The first sentence of the class comment.
  QString getSummary() const;

  /// TRUE when the class comment calls the class a base of others: dialogs do not use it as it is.
  bool isBase() const;

  QString path; ///< as it is included
  QString code; ///< all of the header
  std::vector<Block> comment;
  QMap<QString, QString> fieldMeanings;  ///< by field name, without the default
  QMap<QString, QString> statedDefaults; ///< by field name
  std::vector<Enumeration> enumerations;

private:
  void readComment(const QString& className);
  void addBlock(const QStringList& lines, bool isCode);
  void readFields();
  void readEnumerations();
};

#endif // QUILLFORM_REFERENCE_HEADERFILE_H
