// The program that libFuzzer runs, see scripts/fuzz.

#include <Inventor/VRMLnodes/SoVRMLInline.h>
#include <Inventor/errors/SoDebugError.h>
#include <Inventor/errors/SoReadError.h>
#include <Inventor/nodes/SoFile.h>
#include <Inventor/nodes/SoGroup.h>
#include <QApplication>
#include <Quillform/Quillform.h>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fuzz/DialogFile.h>
#include <sanitizer/lsan_interface.h>
#include <string>

namespace {

/// What is said about bad files is not printed: nearly every file is bad, here.
void ignoreError(const SoError*, void*) {}
void ignoreMessage(QtMsgType, const QMessageLogContext&, const QString&) {}

void* makeGroup()
{
  return new SoGroup;
}

/// Whether \a bytes may connect a value to a field of another node. The scene-graph library never deletes that node
/// when nobody else holds it, and a connected enumeration takes over the other one's names, with which it cannot be
/// read.
bool mayConnect(const std::string& bytes)
{
  return bytes.find_first_of(std::string("=\0", 2)) != std::string::npos; // binary files tell in other ways
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int LLVMFuzzerInitialize(int* argc, char*** argv)
{
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  new QApplication(*argc, *argv); // lives as long as the process
  SoQuillform::init();
  SoQuillform::setSkinsDirectories(QUILLFORM_TEST_SKINS);
  SoDebugError::setHandlerCallback(ignoreError, nullptr);
  SoReadError::setHandlerCallback(ignoreError, nullptr);
  qInstallMessageHandler(ignoreMessage);
  // Nodes that read other files make a run depend on what is on the disk.
  SoType::overrideType(SoFile::getClassTypeId(), makeGroup);
  SoType::overrideType(SoVRMLInline::getClassTypeId(), makeGroup);
  return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
  std::string bytes(reinterpret_cast<const char*>(data), size);
  if (bytes.empty() || bytes[0] != '#') { // else most runs would end before the first node
    bytes.insert(0, "#Inventor V2.1 ascii\n");
  }
  if (mayConnect(bytes)) {
    const __lsan::ScopedDisabler noLeaks;
    DialogFile::use(bytes);
    return 0;
  }
  const std::string complaint = DialogFile::use(bytes);
  if (!complaint.empty()) {
    std::fprintf(stderr, "%s\n", complaint.c_str());
    std::abort();
  }
  return 0;
}
