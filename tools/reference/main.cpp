// Writes docs/reference from the element classes and the comments in their headers.
//
//   quillform-reference TREE           writes the pages below TREE
//   quillform-reference --check TREE   says which pages are not what the classes say

#include "ReferencePages.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <cstring>
#include <iostream>
#include <stdexcept>

namespace {

QString readAll(const QString& path)
{
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

int check(const QDir& directory, const QMap<QString, QString>& pages)
{
  QStringList wrong;
  for (auto page = pages.begin(); page != pages.end(); ++page) {
    if (readAll(directory.filePath(page.key())) != page.value()) {
      wrong.append(page.key());
    }
  }
  for (const QString& name : directory.entryList({"*.md"}, QDir::Files)) {
    if (!pages.contains(name)) {
      wrong.append(name);
    }
  }
  if (wrong.isEmpty()) {
    return 0;
  }
  std::cerr << "docs/reference is not what the classes say: run scripts/reference. It differs in "
            << qPrintable(wrong.join(", ")) << ".\n";
  return 1;
}

void write(const QDir& directory, const QMap<QString, QString>& pages)
{
  directory.mkpath(".");
  for (const QString& name : directory.entryList({"*.md"}, QDir::Files)) {
    QFile::remove(directory.filePath(name));
  }
  for (auto page = pages.begin(); page != pages.end(); ++page) {
    QFile file(directory.filePath(page.key()));
    if (!file.open(QIODevice::WriteOnly) || file.write(page.value().toUtf8()) < 0) {
      throw std::runtime_error(file.fileName().toStdString() + " cannot be written");
    }
  }
}

} // namespace

int main(int argc, char** argv)
{
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  const bool isCheck = argc == 3 && std::strcmp(argv[1], "--check") == 0;
  if (argc != 2 && !isCheck) {
    std::cerr << "quillform-reference [--check] TREE\n";
    return 2;
  }
  const QString tree = QString::fromLocal8Bit(argv[argc - 1]);
  const QDir directory(tree + "/docs/reference");
  int status = 0;
  SoQuillform::init();
  try {
    const QMap<QString, QString> pages = ReferencePages(tree).write();
    if (isCheck) {
      status = check(directory, pages);
    }
    else {
      write(directory, pages);
    }
  }
  catch (const std::exception& error) {
    std::cerr << "quillform-reference: " << error.what() << "\n";
    status = 1;
  }
  SoQuillform::finish();
  return status;
}
