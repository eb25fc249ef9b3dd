#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <menus/Menus.h>
#include <support/FileDialogUser.h>

using Menus::Texts;

/// Qt's own file dialog, operated from outside while the entry waits for it.
class MenuFileSelectionTest : public MenusTest {
protected:
  MenuFileSelectionTest()
  {
    QFile(QString::fromStdString(pathOf("b.iv"))).open(QIODevice::WriteOnly);
    QDir(QString::fromStdString(pathOf(""))).mkdir("inner");
  }

  std::string fields(const std::string& more = "") const
  {
    return "MenuFileSelection { auditorID \"open\" label \"&Open...\" accelerator \"Ctrl+O\" title \"Choose \xe4 "
           "file\" "
           "fileDirectory \"" +
           directory() + "\" " + more + " }";
  }

  std::string directory() const
  {
    return QDir(QString::fromStdString(pathOf(""))).absolutePath().toStdString();
  }

  void open(const std::string& more = "")
  {
    openWindow("TopLevelDialog { MenuBar { MenuPopup { label \"&File\" " + fields(more) + " } } }");
    entry = item<SoMenuFileSelection>("open");
  }

  void then(const std::function<void(QFileDialog*)>& operate)
  {
    user.then(operate);
  }

  static void type(QFileDialog* box, const std::string& name)
  {
    auto* edit = box->findChild<QLineEdit*>("fileNameEdit");
    ASSERT_NE(edit, nullptr);
    edit->clear();
    QTest::keyClicks(edit, QString::fromStdString(name));
    QTest::keyClick(edit, Qt::Key_Return);
  }

  void trigger()
  {
    dialog->getWidget()->activateWindow(); // the file dialog before has taken that
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog->getWidget()));
    QTest::keyClick(dialog->getWidget(), Qt::Key_O, Qt::ControlModifier);
  }

  SoMenuFileSelection* entry = nullptr;
  FileDialogUser user;
};

TEST_F(MenuFileSelectionTest, fieldsHaveTheirDefaults)
{
  EXPECT_EQ(SoMenuFileSelection::getClassTypeId().getParent(), SoMenuPushButton::getClassTypeId());
  auto* node = new SoMenuFileSelection;
  node->ref();
  EXPECT_STREQ(node->title.getValue().getString(), "");
  ASSERT_EQ(node->filter.getNum(), 2);
  EXPECT_STREQ(node->filter[0].getString(), "*.iv");
  EXPECT_STREQ(node->filter[1].getString(), "Arborel file");
  EXPECT_TRUE(node->filter.isDefault());
  EXPECT_EQ(node->defaultFilter.getValue(), 0);
  EXPECT_STREQ(node->fileDirectory.getValue().getString(), ".");
  EXPECT_STREQ(node->filename.getValue().getString(), "");
  EXPECT_EQ(node->mode.getValue(), SoMenuFileSelection::OPEN);
  EXPECT_EQ(SoMenuFileSelection::OPEN, 1);
  EXPECT_EQ(SoMenuFileSelection::SAVE, 2);
  node->unref();
}

TEST_F(MenuFileSelectionTest, aChosenFileIsSplitAndReported)
{
  open();
  QString title;
  QString begins;
  QStringList filters;
  QFileDialog::FileMode mode = QFileDialog::AnyFile;
  then([&](QFileDialog* box) {
    title = box->windowTitle();
    begins = box->directory().absolutePath();
    filters = box->nameFilters();
    mode = box->fileMode();
    EXPECT_EQ(box->parentWidget(), nullptr);
    type(box, "b.iv");
  });
  trigger();
  EXPECT_EQ(user.opened, 1);
  EXPECT_EQ(title, QString::fromLatin1("Choose \xe4 file"));
  EXPECT_EQ(begins.toStdString(), directory());
  EXPECT_EQ(filters, (QStringList{"Arborel file (*.iv)", ""})); // the text ends with a separator
  EXPECT_EQ(mode, QFileDialog::ExistingFile);
  EXPECT_EQ(heard.events, Texts{"file open"});
  EXPECT_STREQ(entry->fileDirectory.getValue().getString(), directory().c_str());
  EXPECT_STREQ(entry->filename.getValue().getString(), "b.iv");
}

TEST_F(MenuFileSelectionTest, aCancelEmptiesTheNameAndIsReportedOnce)
{
  open("filename \"before.iv\"");
  then(FileDialogUser::cancel);
  trigger();
  EXPECT_EQ(user.opened, 1);
  EXPECT_EQ(heard.events, Texts{"file open"});
  EXPECT_STREQ(entry->filename.getValue().getString(), "");
  EXPECT_STREQ(entry->fileDirectory.getValue().getString(), directory().c_str());
}

TEST_F(MenuFileSelectionTest, ofThreeFilterValuesTheFirstPairCounts)
{
  open("filter [ \"*.a\", \"First\", \"*.b\" ] defaultFilter 1");
  QStringList filters;
  then([&](QFileDialog* box) {
    filters = box->nameFilters();
    EXPECT_EQ(box->selectedNameFilter(), "First (*.a)");
    FileDialogUser::cancel(box);
  });
  trigger();
  EXPECT_EQ(filters, (QStringList{"First (*.a)", ""}));
}

TEST_F(MenuFileSelectionTest, allPairsAreOffered)
{
  open("filter [ \"*.iv *.wrl\", \"Scenes\", \"*\", \"All \xe4\" ]");
  QStringList filters;
  then([&](QFileDialog* box) {
    filters = box->nameFilters();
    FileDialogUser::cancel(box);
  });
  trigger();
  EXPECT_EQ(filters, (QStringList{"Scenes (*.iv *.wrl)", QString::fromLatin1("All \xe4 (*)"), ""}));
}

TEST_F(MenuFileSelectionTest, aNameToSaveUnderNeedNotExist)
{
  open("mode SAVE");
  QString title;
  then([&](QFileDialog* box) {
    title = box->windowTitle();
    EXPECT_EQ(box->acceptMode(), QFileDialog::AcceptSave);
    EXPECT_EQ(box->directory().absolutePath().toStdString(), directory());
    EXPECT_EQ(box->nameFilters().front(), "Arborel file (*.iv)");
    type(box, directory() + "/inner/new.iv");
  });
  trigger();
  EXPECT_EQ(user.opened, 1);
  EXPECT_EQ(title, QString::fromLatin1("Choose \xe4 file"));
  EXPECT_STREQ(entry->fileDirectory.getValue().getString(), (directory() + "/inner").c_str());
  EXPECT_STREQ(entry->filename.getValue().getString(), "new.iv");
  // The next time the dialog begins there.
  then([&](QFileDialog* box) {
    EXPECT_EQ(box->directory().absolutePath().toStdString(), directory() + "/inner");
    FileDialogUser::cancel(box);
  });
  trigger();
  EXPECT_EQ(user.opened, 2);
}

TEST_F(MenuFileSelectionTest, aFileOfTheRootDirectoryKeepsIt)
{
  open("mode SAVE");
  then([](QFileDialog* box) { type(box, "/there-is-no-such-file.iv"); });
  trigger();
  EXPECT_STREQ(entry->fileDirectory.getValue().getString(), "/");
  EXPECT_STREQ(entry->filename.getValue().getString(), "there-is-no-such-file.iv");
}

TEST_F(MenuFileSelectionTest, theDirectoryMayNameAVariable)
{
  qputenv("QUILLFORM_TEST_DIRECTORY", QByteArray::fromStdString(directory()));
  open();
  entry->fileDirectory = "$QUILLFORM_TEST_DIRECTORY/inner";
  then([&](QFileDialog* box) {
    EXPECT_EQ(box->directory().absolutePath().toStdString(), directory() + "/inner");
    FileDialogUser::cancel(box);
  });
  trigger();
  EXPECT_EQ(user.opened, 1);
  EXPECT_STREQ(entry->fileDirectory.getValue().getString(), "$QUILLFORM_TEST_DIRECTORY/inner");
}

TEST_F(MenuFileSelectionTest, itsOwnAuditorHearsInsteadOfTheDialog)
{
  struct Own : SoMenuFileSelectionAuditor {
    void menuFileSelection(SoMenuFileSelection* cpt) override
    {
      names.emplace_back(cpt->filename.getValue().getString());
    }
    Texts names;
  } own;
  open();
  entry->addAuditor(&own);
  then([](QFileDialog* box) { type(box, "b.iv"); });
  trigger();
  EXPECT_EQ(own.names, Texts{"b.iv"});
  EXPECT_TRUE(heard.events.empty());
  entry->validateFilename();
  EXPECT_EQ(own.names.size(), 2U);
  entry->removeAuditor(&own);
  entry->validateFilename();
  EXPECT_EQ(heard.events, Texts{"file open"});
}

TEST_F(MenuFileSelectionTest, theEntryIsChosenWithTheMouse)
{
  open();
  then([](QFileDialog* box) { type(box, "b.iv"); });
  QMenu* popup = Menus::openMenu(Menus::barOf(dialog), 0);
  Menus::choose(popup, 0);
  EXPECT_EQ(heard.events, Texts{"file open"});
}

TEST_F(MenuFileSelectionTest, inTheSceneTheDialogOpensOnceAndIsReportedOnce)
{
  openScene("TopLevelDialog { MenuBar { MenuPopup { label \"&File\" " + fields() + " } } }");
  entry = item<SoMenuFileSelection>("open");
  then([&](QFileDialog* box) {
    EXPECT_FALSE(menu(0)->isOpen3D()); // closed before the file dialog opened
    type(box, "b.iv");
  });
  chooseInScene({menu(0)}, entry);
  EXPECT_EQ(user.opened, 1);
  EXPECT_EQ(heard.events, Texts{"file open"});
  EXPECT_STREQ(entry->filename.getValue().getString(), "b.iv");
}

TEST_F(MenuFileSelectionTest, unhandledChoicesAreTracedOnDemand)
{
  open();
  dialog->removeAuditor(&heard);
  SoPreferences::setString("DEBUG_QUILLFORM_AUDITORS", "1");
  const Messages messages;
  then([](QFileDialog* box) { type(box, "b.iv"); });
  trigger();
  SoPreferences::unset("DEBUG_QUILLFORM_AUDITORS");
  ASSERT_EQ(messages.all().size(), 1U);
  EXPECT_NE(messages.all()[0].find("SoMenuFileSelection component :\n\t\t -> title = \"Choose \xe4 file\""
                                   "\n\t\t -> filename = \"b.iv\""),
            std::string::npos);
}

TEST_F(MenuFileSelectionTest, theEntryMayGoWhileTheFileDialogIsOpen)
{
  open();
  then([&](QFileDialog* box) {
    menu(0)->removeAllChildren();
    dialog->addChild(new SoDialogPushButton);
    type(box, "b.iv");
  });
  trigger();
  EXPECT_TRUE(heard.events.empty()); // it stands in no dialog any more
  EXPECT_TRUE(menu(0)->getMenu()->actions().isEmpty());
}

TEST_F(MenuFileSelectionTest, theDialogMayBeReleasedWhileTheFileDialogIsOpen)
{
  open();
  SoQuillform::finish(); // drops the file cache's reference
  then([&](QFileDialog* box) {
    dialog->destroyWidget();
    release();
    FileDialogUser::cancel(box);
  });
  trigger();
  EXPECT_EQ(user.opened, 1);
  SoQuillform::init();
}
