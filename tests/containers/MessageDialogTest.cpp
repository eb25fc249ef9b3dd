#include <Quillform/platform/SoThreadName.h>
#include <support/MessageUser.h>
#include <support/TestFiles.h>
#include <thread>
#include <utility>

class MessageDialogTest : public QuillformTest {
protected:
  static SoMessageDialog* read(const std::string& text)
  {
    return static_cast<SoMessageDialog*>(readText(text));
  }
};

TEST_F(MessageDialogTest, itsFieldsHaveTheirDefaults)
{
  auto* message = new SoMessageDialog;
  message->ref();
  EXPECT_EQ(message->title.getValue(), "");
  EXPECT_EQ(message->type.getValue(), SoMessageDialog::MD_MESSAGE);
  message->unref();
}

TEST_F(MessageDialogTest, theTypesHaveTheirNamesAndValues)
{
  const char* const names[] = {"MD_ERROR", "MD_INFORMATION", "MD_MESSAGE", "MD_QUESTION", "MD_WARNING", "MD_WORKING"};
  for (int value = 0; value < 6; value++) {
    SoMessageDialog* message = read("MessageDialog { type " + std::string(names[value]) + " }");
    ASSERT_NE(message, nullptr);
    EXPECT_EQ(message->type.getValue(), value);
    message->unref();
  }
}

TEST_F(MessageDialogTest, oneReadWithoutFieldsShowsAnEmptyTitleAndTheLabel)
{
  MessageUser user;
  SoMessageDialog* message = read("MessageDialog { }");
  ASSERT_NE(message, nullptr);
  message->label = "Caf\xe9\\nopens";
  message->show();
  ASSERT_EQ(user.boxes.size(), 1U);
  EXPECT_EQ(user.boxes[0].title, "");
  EXPECT_EQ(user.boxes[0].text, QString::fromUtf8("Café\nopens"));
  message->unref();
}

TEST_F(MessageDialogTest, everyKindShowsItsPictureAndOneButton)
{
  const std::pair<int, QMessageBox::Icon> kinds[] = {{SoMessageDialog::MD_ERROR, QMessageBox::Critical},
                                                     {SoMessageDialog::MD_INFORMATION, QMessageBox::Information},
                                                     {SoMessageDialog::MD_QUESTION, QMessageBox::Question},
                                                     {SoMessageDialog::MD_WARNING, QMessageBox::Warning}};
  for (const auto& kind : kinds) {
    MessageUser user;
    auto* message = new SoMessageDialog;
    message->ref();
    message->title = "Title";
    message->label = "Text";
    message->type = kind.first;
    message->show();
    ASSERT_EQ(user.boxes.size(), 1U);
    EXPECT_EQ(user.boxes[0].title, "Title");
    EXPECT_EQ(user.boxes[0].text, "Text");
    EXPECT_EQ(user.boxes[0].icon, kind.second);
    EXPECT_EQ(user.boxes[0].buttons, QList<QMessageBox::StandardButton>{QMessageBox::Ok});
    message->unref();
  }
}

TEST_F(MessageDialogTest, theConstructorWithATextReturnsWhenTheBoxIsClosed)
{
  MessageUser user;
  auto* message = new SoMessageDialog("It broke.", "Error", SoMessageDialog::MD_ERROR);
  message->ref();
  ASSERT_EQ(user.boxes.size(), 1U);
  EXPECT_EQ(user.boxes[0].icon, QMessageBox::Critical);
  EXPECT_EQ(user.boxes[0].text, "It broke.");
  EXPECT_EQ(message->label.getValue(), "It broke.");
  EXPECT_EQ(message->title.getValue(), "Error");
  message->unref();
}

TEST_F(MessageDialogTest, oneAboutWorkShowsNothing)
{
  MessageUser user;
  auto* message = new SoMessageDialog("Busy", "Work", SoMessageDialog::MD_WORKING);
  message->ref();
  message->show();
  QTest::qWait(100);
  EXPECT_TRUE(user.boxes.empty());
  message->unref();
}

TEST_F(MessageDialogTest, markupIsShownAsItIsWritten)
{
  MessageUser user;
  auto* message = new SoMessageDialog("<b>5 < 6</b>", "", SoMessageDialog::MD_INFORMATION);
  message->ref();
  ASSERT_EQ(user.boxes.size(), 1U);
  EXPECT_TRUE(user.boxes[0].text.contains("&lt;b&gt;5 &lt; 6&lt;/b&gt;")) << user.boxes[0].text.toStdString();
  message->unref();
}

TEST_F(MessageDialogTest, itMayBeReleasedWhileItIsOpen)
{
  MessageUser user;
  auto* message = new SoMessageDialog;
  message->ref();
  message->label = "short-lived";
  user.whileOpen = [message] {
    message->unref();
  };
  message->show();
  EXPECT_EQ(user.boxes.size(), 1U);
}

TEST_F(MessageDialogTest, itIsShownAgain)
{
  MessageUser user;
  auto* message = new SoMessageDialog;
  message->ref();
  message->show();
  message->close();
  message->show();
  EXPECT_EQ(user.boxes.size(), 2U);
  message->unref();
}

TEST_F(MessageDialogTest, itIsWrittenAndReadAgain)
{
  SoMessageDialog* message = read("MessageDialog { label \"L\" title \"T\" type MD_WARNING }");
  ASSERT_NE(message, nullptr);
  SoNode* again = readText(toText(message));
  EXPECT_EQ(toText(again), toText(message));
  again->unref();
  message->unref();
}

TEST_F(MessageDialogTest, aThreadForABoxAboutWorkHasItsName)
{
  auto* message = new SoMessageDialog;
  message->ref();
  SbString name;
  std::thread([message, &name] {
    SoMessageDialog::runWorkingMessageDialog(message);
    name = SoThreadName::getCurrent();
  }).join();
  EXPECT_EQ(name, "SoMessageDialog");
  message->unref();
}
