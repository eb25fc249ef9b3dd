#include "Skins.h"

#include "Failure.h"
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <Quillform/core/SoQuillform.h>
#include <Quillform/platform/SoPreferences.h>

namespace {

/// Of the installation that the program belongs to, else of the source tree that it was built from.
QString getOwnDirectory()
{
  const QDir program(QCoreApplication::applicationDirPath());
  const QString installed = QDir::cleanPath(program.filePath("../share/quillform/data/Quillform/skins"));
  return QDir(installed).exists() ? installed : QString(QUILLFORM_VIEW_SOURCE_SKINS);
}

void setDirectories(const QString& directories)
{
  SoQuillform::setSkinsDirectories(QFile::encodeName(directories).constData());
}

void chooseDirectories(const QStringList& directories)
{
  for (const QString& directory : directories) {
    if (!QFileInfo(directory).isDir()) {
      throw Failure(Failure::WRONG_USAGE,
                    QString("--skins-dir \"%1\" is no directory; name one that holds skins.").arg(directory));
    }
  }
  if (!directories.isEmpty()) {
    SoPreferences::setString("ARBHOME", ""); // its skins would be found before those asked for
    setDirectories(directories.join(';'));
  }
  else if (SoPreferences::getString("QUILLFORM_SKINS_DIR", "").getLength() == 0) {
    setDirectories(getOwnDirectory());
  }
}

/// Selects a skin by its path, so that a directory that has its name and holds no skin is not taken for it.
void selectByName(const QString& name)
{
  QStringList directories{QDir::currentPath()};
  directories += QFile::decodeName(SoQuillform::getSkinsDirectories().getString()).split(';', Qt::SkipEmptyParts);
  for (const QString& directory : directories) {
    const QString path = QDir(directory).absoluteFilePath(name);
    if (!QDir(path).entryList({"*.iv"}, QDir::Files).isEmpty()) {
      SoQuillform::setSkin(QFile::encodeName(path).constData());
      return;
    }
  }
  throw Failure(Failure::WRONG_USAGE,
                QString("There is no skin \"%1\" in \"%2\"; name one that stands there, a path to "
                        "one, or another directory with --skins-dir.")
                  .arg(name, directories.join("\" or \"")));
}

} // namespace

void Skins::select(const QStringList& directories, const QString& skin)
{
  chooseDirectories(directories);
  if (!skin.isEmpty()) {
    selectByName(skin);
  }
  else if (!directories.isEmpty()) {
    selectByName(QString::fromLocal8Bit(SoPreferences::getString("QUILLFORM_SKIN", "default").getString()));
  }
}
