#include <Quillform/core/SoSkinFile.h>

#include <Inventor/lists/SoNodeList.h>
#include <Inventor/nodes/SoGroup.h>
#include <Quillform/core/SoBuiltInSkins.h>
#include <Quillform/core/SoQuillform.h>
#include <Quillform/core/SoSkinsPath.h>
#include <map>

namespace {

/// The live group of every part name seen so far, referenced for the life of the process.
std::map<std::string, SoGroup*>& liveGroups()
{
  static auto* const groups = new std::map<std::string, SoGroup*>;
  return *groups;
}

SoGroup* findNamedGroup(const std::string& name)
{
  return dynamic_cast<SoGroup*>(SoNode::getByName(name.c_str()));
}

void moveChildren(SoGroup* from, SoGroup* to)
{
  to->removeAllChildren();
  for (int i = 0; i < from->getNumChildren(); i++) {
    to->addChild(from->getChild(i));
  }
}

} // namespace

SoSkinFile::SoSkinFile(const char* fileName, std::initializer_list<const char*> partNames)
    : m_fileName(fileName), m_partNames(partNames.begin(), partNames.end())
{
}

int SoSkinFile::isLoaded() const
{
  return m_loaded;
}

void SoSkinFile::setLoaded(int loaded)
{
  m_loaded = loaded;
}

SoGroup* SoSkinFile::getPart(const char* partName)
{
  load();
  SoGroup*& live = liveGroups()[partName];
  if (!live) {
    live = new SoGroup;
    live->ref();
    live->setName(partName);
  }
  return live;
}

void SoSkinFile::load()
{
  if (m_loaded != 0) {
    return;
  }
  // Selecting the preferred skin reads every file, this one too; reading it once more after that would leave
  // two groups of each name.
  SoSkinsPath::selectPreferred();
  if (m_loaded == 0) {
    read();
  }
}

void SoSkinFile::reload()
{
  for (const std::string& name : m_partNames) {
    SoQuillform::free3DSkin(name.c_str());
  }
  read();
}

void SoSkinFile::read()
{
  const char* builtIn = SoBuiltInSkins::text(m_fileName.c_str());
  SoQuillform::readDefaultSkinsParts(m_fileName.c_str(), builtIn ? builtIn : "");
  for (const std::string& name : m_partNames) {
    SoQuillform::load3DSkin(name.c_str());
  }
  keepOneGroupPerName();
  m_loaded = 1;
}

void SoSkinFile::keepOneGroupPerName()
{
  for (const std::string& name : m_partNames) {
    SoGroup* latest = findNamedGroup(name);
    if (!latest) {
      continue; // not in this skin
    }
    SoGroup*& live = liveGroups()[name];
    if (!live) {
      live = latest;
      live->ref();
    }
    else if (live != latest) {
      moveChildren(latest, live);
      latest->setName("");
      live->setName(name.c_str());
    }
  }
}

SoSkinFile& SoTextSkin::getSkin()
{
  static SoSkinFile skin("TextProperties.iv", {"DialogTextProperties"});
  return skin;
}

SoGroup* SoTextSkin::getProperties()
{
  SoQuillform::loadFontProperties();
  return getSkin().getPart("DialogTextProperties");
}
