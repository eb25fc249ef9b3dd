#ifndef QUILLFORM_VIEW_DIALOGFILE_H
#define QUILLFORM_VIEW_DIALOGFILE_H

#include <QString>

class SoMessageDialog;
class SoQuillform;
class SoTopLevelDialog;

/// The element of a dialog file that the user wants to see.
class DialogFile {
public:
  /// Reads the file; throws a Failure when it cannot be read or holds no such element.
  DialogFile(const QString& path, const QString& id);

  /// Owned by the library.
  SoQuillform* getElement() const;

  /// What was read, in a line that starts with the file's name.
  QString describe() const;

  /// One sentence about what the reader left out; empty when it took everything.
  const QString& getWarning() const;

  /// The element when it is a message; nullptr when it is anything else. It needs no dialog.
  SoMessageDialog* getMessage() const;

  /// The element itself when it is a dialog, else a new dialog with a copy of it, in a menu if it is an entry
  /// of menus. Throws a Failure when the element cannot stand in a dialog. The caller references the result.
  SoTopLevelDialog* makeDialog() const;

private:
  QString m_path;
  SoQuillform* m_element = nullptr;
  QString m_warning;
};

#endif // QUILLFORM_VIEW_DIALOGFILE_H
