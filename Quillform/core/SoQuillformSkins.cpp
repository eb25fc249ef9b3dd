// The skins of SoQuillform: where they are found, how their files are read, and the switch in place.

#include <Quillform/core/SoQuillform.h>

#include <Inventor/SoDB.h>
#include <Inventor/SoInput.h>
#include <Inventor/errors/SoDebugError.h>
#include <Inventor/lists/SbStringList.h>
#include <Inventor/lists/SoNodeList.h>
#include <Inventor/nodes/SoSeparator.h>
#include <QDir>
#include <QFileInfo>
#include <QStringList>
#include <Quillform/core/SoElementKinds.h>
#include <Quillform/core/SoLive3DElements.h>
#include <Quillform/core/SoSkinFile.h>
#include <Quillform/core/SoSkinsPath.h>
#include <Quillform/platform/SbFileHelper.h>
#include <Quillform/platform/SoBoundedInput.h>
#include <Quillform/platform/SoPreferences.h>
#include <cstring>
#include <vector>

namespace {

SbString s_skinsPath;
bool s_isFirstFailure = true;

/// What is read stays in memory for the life of the process, so that its names stay known.
std::vector<SoSeparator*>& keptRoots()
{
  static auto* const roots = new std::vector<SoSeparator*>;
  return *roots;
}

void keep(SoSeparator* root)
{
  if (root) {
    root->ref();
    keptRoots().push_back(root);
  }
}

SbString toAbsolute(const SbString& path)
{
  const QFileInfo info(QString::fromLocal8Bit(path.getString()));
  return QDir::cleanPath(info.absoluteFilePath()).toLocal8Bit().constData();
}

/// The places in which a skin of that name may be, in the order in which they are tried.
std::vector<SbString> getCandidates(const SbString& skinName)
{
  std::vector<SbString> candidates{skinName, SbString("./") + skinName};
  const SbString directories = SbFileHelper::toUnixPath(SoQuillform::getSkinsDirectories());
  for (const QString& directory : QString::fromLocal8Bit(directories.getString()).split(';', Qt::SkipEmptyParts)) {
    candidates.push_back(SbString(directory.toLocal8Bit().constData()) + "/" + skinName);
  }
  return candidates;
}

/// Takes the reader's search directories away for as long as it lives.
///
/// An SoInput that opens a file puts the file's directory into the list and takes it out when it dies, so
/// this must be destroyed after the input.
class SearchDirectories {
public:
  SearchDirectories()
  {
    const SbStringList& directories = SoInput::getDirectories();
    for (int i = 0; i < directories.getLength(); i++) {
      m_saved.push_back(*directories[i]);
    }
    SoInput::clearDirectories();
  }
  ~SearchDirectories()
  {
    SoInput::clearDirectories();
    for (const SbString& directory : m_saved) {
      SoInput::addDirectoryLast(directory.getString());
    }
  }
  SearchDirectories(const SearchDirectories&) = delete;
  SearchDirectories& operator=(const SearchDirectories&) = delete;

private:
  std::vector<SbString> m_saved;
};

SoNode* findNamed(const SbString& name)
{
  SoNodeList nodes;
  return SoNode::getByName(name.getString(), nodes) > 0 ? nodes[0] : nullptr;
}

SbString setAsideName(const SbString& defName)
{
  return SbString("_Zep_Tmp_") + defName;
}

} // namespace

SbString SoQuillform::getSkinsPath()
{
  return s_skinsPath;
}

SbString SoQuillform::getSkinsDirectories()
{
  SbString directories;
  const SbString home = SoPreferences::getString("ARBHOME", "");
  if (home.getLength() > 0) {
    directories = home + "/data/Quillform/skins/";
  }
  const SbString more = SoPreferences::getString("QUILLFORM_SKINS_DIR", "");
  if (more.getLength() > 0) {
    if (directories.getLength() > 0) {
      directories += ";";
    }
    directories += more;
  }
  return directories;
}

void SoQuillform::setSkinsDirectories(SbString dirs)
{
  SoPreferences::setString("QUILLFORM_SKINS_DIR", dirs);
}

void SoQuillform::setSkin(SbString skinName)
{
  if (skinName.getLength() == 0) {
    return; // "./" and the skin directories themselves are no skins
  }
  for (const SbString& candidate : getCandidates(skinName)) {
    if (SbFileHelper::isAccessible(candidate)) {
      s_skinsPath = toAbsolute(candidate);
      change3DSkin();
      return;
    }
  }
}

void SoSkinsPath::selectPreferred()
{
  if (s_skinsPath.getLength() == 0) {
    SoQuillform::setSkin(SoPreferences::getString("QUILLFORM_SKIN", "default"));
  }
}

SoSeparator* SoQuillform::readFromFile(const SbString& fileName)
{
  const SearchDirectories searchDirectories;
  SoSkinsPath::selectPreferred();
  if (s_skinsPath.getLength() == 0) {
    return nullptr; // the reader would look in the working directory
  }
  // By full path: a bare name would be tried in the working directory first.
  const SbString path = s_skinsPath + "/" + fileName;
  SoBoundedInput input;
  if (!input.openFile(path.getString(), TRUE)) {
    return nullptr;
  }
  return input.readAll();
}

void SoQuillform::readDefaultSkinsParts(const SbString& fileName, const char* builtInText)
{
  if (SoSeparator* root = readFromFile(fileName)) {
    keep(root);
    return;
  }
  SbString message = SbString("The skin file : <") + fileName + "> cannot be found.";
  if (s_isFirstFailure) {
    message += "\nIMPORTANT : Internal Quillform component skin is loaded to prevent from your application to exit.\n";
    message += "For loading your own Quillform skins, please verify the QUILLFORM_SKINS_DIR environment variable.";
    s_isFirstFailure = false;
  }
  SoDebugError::post("Quillform::readDefaultSkinsParts", "%s", message.getString());
  if (builtInText && *builtInText != '\0') {
    SoInput input;
    input.setBuffer(builtInText, std::strlen(builtInText));
    keep(SoDB::readAll(&input));
  }
}

void SoQuillform::loadFontProperties()
{
  SoTextSkin::getSkin().load();
}

void SoQuillform::change3DSkin()
{
  SoTextSkin::getSkin().reload();
  SoElementKinds::change3DSkins();
  SoLive3DElements::updateAfterSkinChange();
}

void SoQuillform::free3DSkin(SbString defName)
{
  SoNode* node = findNamed(defName);
  if (!node) {
    return;
  }
  node->setName(setAsideName(defName).getString());
  if (node->isOfType(SoGroup::getClassTypeId())) {
    static_cast<SoGroup*>(node)->removeAllChildren();
  }
}

void SoQuillform::load3DSkin(SbString defName)
{
  SoNode* old = findNamed(setAsideName(defName));
  SoNode* fresh = findNamed(defName);
  if (!old || !fresh || !old->isOfType(SoGroup::getClassTypeId()) || !fresh->isOfType(SoGroup::getClassTypeId())) {
    return;
  }
  auto* oldGroup = static_cast<SoGroup*>(old);
  auto* freshGroup = static_cast<SoGroup*>(fresh);
  for (int i = 0; i < freshGroup->getNumChildren(); i++) {
    oldGroup->addChild(freshGroup->getChild(i));
  }
  fresh->setName("");
  old->setName(defName.getString());
}
