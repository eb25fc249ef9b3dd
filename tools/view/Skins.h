#ifndef QUILLFORM_VIEW_SKINS_H
#define QUILLFORM_VIEW_SKINS_H

#include <QString>
#include <QStringList>

/// Where the program finds its skins, and which one it shows.
class Skins {
public:
  /// Looks for skins in \a directories or, when there are none, where the environment says or else in the
  /// program's own. Selects \a skin; throws a Failure when it is not there. With neither given, the preferred
  /// skin is left to the library.
  static void select(const QStringList& directories, const QString& skin);
};

#endif // QUILLFORM_VIEW_SKINS_H
