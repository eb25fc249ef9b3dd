#include <support/TestFiles.h>

#include <Inventor/SoDB.h>
#include <Inventor/SoInput.h>
#include <Inventor/SoOutput.h>
#include <Inventor/actions/SoWriteAction.h>
#include <Inventor/nodes/SoSeparator.h>
#include <QCoreApplication>
#include <QEvent>
#include <cstdlib>
#include <fstream>

namespace {

void* growBuffer(void* buffer, size_t size)
{
  return std::realloc(buffer, size);
}

/// The bytes that a write action makes of a node.
std::string write(SoNode* node, SbBool binary)
{
  SoOutput output;
  output.setBuffer(std::malloc(1), 1, growBuffer);
  output.setBinary(binary);
  node->ref();
  SoWriteAction action(&output);
  action.apply(node);
  node->unrefNoDelete();
  void* buffer = nullptr;
  size_t size = 0;
  output.getBuffer(buffer, size);
  std::string bytes(static_cast<const char*>(buffer), size);
  std::free(buffer);
  return bytes;
}

SoNode* read(const std::string& bytes)
{
  SoInput input;
  input.setBuffer(bytes.data(), bytes.size());
  SoNode* node = nullptr;
  if (!SoDB::read(&input, node) || !node) {
    return nullptr;
  }
  node->ref();
  return node;
}

} // namespace

QuillformTest::QuillformTest()
{
  start();
}

void QuillformTest::start()
{
  SoQuillform::init();
  SoQuillform::setSkinsDirectories(QUILLFORM_TEST_SKINS);
}

QuillformTest::~QuillformTest()
{
  settle();
  SoQuillform::finish();
  settle();
}

std::string QuillformTest::pathOf(const std::string& name) const
{
  return m_directory.filePath(QString::fromStdString(name)).toStdString();
}

std::string QuillformTest::writeFile(const std::string& name, const std::string& text)
{
  const std::string path = pathOf(name);
  std::ofstream file(path, std::ios::binary);
  if (text.empty() || text[0] != '#') {
    file << "#Inventor V2.1 ascii\n";
  }
  file << text;
  return path;
}

SoTopLevelDialog* QuillformTest::load(const std::string& text, const char* id)
{
  const std::string path = writeFile("dialog" + std::to_string(m_loaded++) + ".iv", text);
  return dynamic_cast<SoTopLevelDialog*>(SoQuillform::loadFromFile(path.c_str(), id));
}

SoTopLevelDialog* QuillformTest::open(const std::string& text)
{
  SoTopLevelDialog* dialog = load(text);
  if (dialog) {
    dialog->buildDialog(nullptr, FALSE);
    dialog->show();
    settle();
  }
  return dialog;
}

std::string toText(SoNode* node)
{
  const std::string bytes = write(node, FALSE);
  return bytes.substr(bytes.find('\n') + 1);
}

std::string toBinary(SoNode* node)
{
  return write(node, TRUE);
}

SoNode* readText(const std::string& text)
{
  return read("#Inventor V2.1 ascii\n" + text);
}

SoNode* throughBinary(SoNode* node)
{
  return read(toBinary(node));
}

void settle()
{
  for (int i = 0; i < 3; i++) {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
}
