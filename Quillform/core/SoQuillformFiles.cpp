// Starting and stopping of SoQuillform, and its cache of dialog files.

#include <Quillform/core/SoQuillform.h>

#include <Inventor/SoOutput.h>
#include <Inventor/actions/SoWriteAction.h>
#include <Inventor/errors/SoDebugError.h>
#include <Inventor/nodes/SoSeparator.h>
#include <QFileInfo>
#include <Quillform/core/SoElementKinds.h>
#include <Quillform/platform/SoBoundedInput.h>
#include <Quillform/platform/SoSceneGraphLayers.h>
#include <memory>
#include <utility>
#include <vector>

namespace {

struct LoadedFile {
  SbString fileName; // as it was passed to loadFromFile
  SoSeparator* root; // referenced once
};

int s_initRefCount = 0;
std::vector<LoadedFile> s_loadedFiles;

/// Roots one of whose elements was released by its user. The other elements stay in memory until finish().
std::vector<SoSeparator*> s_abandonedRoots;

/// Reads a whole dialog file; nullptr, after a message that names the file and the line, when it cannot be.
SoSeparator* readDialogFile(const SbString& fileName)
{
  const char* const source = "SoQuillform::loadFromFile";
  SoBoundedInput input;
  if (!input.openFile(fileName.getString())) {
    if (QFileInfo(QString::fromLocal8Bit(fileName.getString())).isDir()) { // the reader says only "not found"
      SoDebugError::post(source, "\"%s\" is a directory. Name a dialog file inside it.", fileName.getString());
    }
    return nullptr; // reported by the input
  }
  SoSeparator* root = input.readAll();
  if (!root) {
    SoDebugError::post(source,
                       "\"%s\" could not be read as a dialog file: the messages before this one name what to mend.",
                       fileName.getString());
  }
  return root;
}

SoSeparator* findLoaded(const SbString& fileName)
{
  for (auto file = s_loadedFiles.rbegin(); file != s_loadedFiles.rend(); ++file) {
    if (file->fileName == fileName) {
      return file->root;
    }
  }
  return nullptr;
}

} // namespace

int SoQuillform::init()
{
  SoSceneGraphLayers::start();
  if (s_initRefCount == 0) {
    SoElementKinds::initClasses();
  }
  return ++s_initRefCount;
}

void SoQuillform::finish()
{
  if (s_initRefCount == 0) {
    return;
  }
  if (--s_initRefCount == 0) {
    // A dying element looks itself up in the cache, so the cache is emptied before any root goes.
    for (const LoadedFile& file : std::exchange(s_loadedFiles, {})) {
      file.root->unref();
    }
    for (SoSeparator* root : std::exchange(s_abandonedRoots, {})) {
      root->unref();
    }
    SoElementKinds::exitClasses();
  }
  SoSceneGraphLayers::finish();
}

SbBool SoQuillform::isInitialized()
{
  return s_initRefCount > 0;
}

const char* SoQuillform::getProductName()
{
  return "Quillform";
}

const char* SoQuillform::getVersion()
{
  return QUILLFORM_VERSION;
}

SoQuillform* SoQuillform::loadFromFile(SbString fileName, SbString auditorID)
{
  const char* const source = "SoQuillform::loadFromFile";
  if (!isInitialized()) {
    SoDebugError::post(source, "%s", "Call SoQuillform::init() before loading a dialog file.");
    return nullptr;
  }
  SoSeparator* root = findLoaded(fileName);
  if (!root) {
    root = readDialogFile(fileName);
    if (!root) {
      return nullptr;
    }
    root->ref();
    s_loadedFiles.push_back({fileName, root});
  }
  for (int i = 0; i < root->getNumChildren(); i++) {
    auto* element = dynamic_cast<SoQuillform*>(root->getChild(i));
    if (element && (auditorID == "" || element->auditorID.getValue() == auditorID)) {
      return element;
    }
  }
  SbString message = "Cannot find any Quillform component ";
  if (auditorID != "") {
    message += "with auditorID = \"";
    message += auditorID;
    message += "\" ";
  }
  message += "in Arborel file \"";
  message += fileName;
  message += "\".";
  SoDebugError::post(source, "%s", message.getString());
  return nullptr;
}

void SoQuillform::destroyByRef(SoQuillform* node)
{
  for (auto file = s_loadedFiles.begin(); file != s_loadedFiles.end(); ++file) {
    SoSeparator* root = file->root;
    int index = root->findChild(node);
    if (index >= 0) {
      s_abandonedRoots.push_back(root);
      s_loadedFiles.erase(file);
      // The root must not list a freed node. Leaving it takes a reference that the dying node no longer has.
      node->ref();
      for (; index >= 0; index = root->findChild(node)) {
        node->ref();
        root->removeChild(index);
      }
      node->unrefNoDelete();
      return;
    }
  }
}

void SoQuillform::writeNode(const char* fileName)
{
  SoOutput output;
  if (!output.openFile(fileName)) {
    SoDebugError::post("SoQuillform::writeNode", "\"%s\" cannot be written. Check the directory and its permissions.",
                       fileName);
    return;
  }
  output.setBinary(FALSE);
  SoWriteAction action(&output);
  action.apply(topSeparator.getValue());
  output.closeFile();
}
