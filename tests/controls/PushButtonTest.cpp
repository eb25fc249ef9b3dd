#include <QPushButton>
#include <QTest>
#include <Quillform/Quillform.h>
#include <support/Messages.h>
#include <support/Scene.h>
#include <support/TestFiles.h>

namespace {

/// Writes down what it hears.
struct Heard : SoDialogPushButtonAuditor {
  explicit Heard(std::vector<int>* log, int number) : m_log(log), m_number(number) {}
  void dialogPushButton(SoDialogPushButton* /*cpt*/) override
  {
    m_log->push_back(m_number);
  }
  std::vector<int>* m_log;
  int m_number;
};

struct DialogHeard : SoDialogAuditor {
  void dialogPushButton(SoDialogPushButton* cpt) override
  {
    ids.emplace_back(cpt->auditorID.getValue().getString());
  }
  std::vector<std::string> ids;
};

QPushButton* buttonOf(SoDialogComponent* component)
{
  return component->getWidget()->findChild<QPushButton*>("ZEPSoDialogQPushButtonButtonWidget");
}

} // namespace

class PushButtonTest : public QuillformTest {};

TEST_F(PushButtonTest, aPressCallsTheAuditorsOnceAndTheReleaseNobody)
{
  SoTopLevelDialog* dialog = load("TopLevelDialog { DialogPushButton { auditorID \"ok\" buttonLabel \"OK\" } }");
  ASSERT_NE(dialog, nullptr);
  DialogHeard heard;
  dialog->addAuditor(&heard);
  dialog->buildDialog(nullptr, FALSE);
  dialog->show();
  QPushButton* button = buttonOf(static_cast<SoDialogComponent*>(dialog->getChild(0)));
  ASSERT_NE(button, nullptr);
  EXPECT_EQ(button->text(), "OK");
  QTest::mousePress(button, Qt::LeftButton);
  EXPECT_EQ(heard.ids, std::vector<std::string>{"ok"});
  QTest::mouseRelease(button, Qt::LeftButton);
  EXPECT_EQ(heard.ids.size(), 1U);
}

TEST_F(PushButtonTest, twoAuditorsOfItsOwnRunInOrderAndTheDialogHearsNothing)
{
  SoTopLevelDialog* dialog = load("TopLevelDialog { DialogPushButton { buttonLabel \"OK\" } }");
  DialogHeard heard;
  dialog->addAuditor(&heard);
  std::vector<int> log;
  Heard first(&log, 1);
  Heard second(&log, 2);
  auto* element = static_cast<SoDialogPushButton*>(dialog->getChild(0));
  element->addAuditor(&first);
  element->addAuditor(&second);
  dialog->buildDialog(nullptr, FALSE);
  dialog->show();
  QTest::mouseClick(buttonOf(element), Qt::LeftButton);
  EXPECT_EQ(log, (std::vector<int>{1, 2}));
  EXPECT_TRUE(heard.ids.empty());
}

TEST_F(PushButtonTest, aClickInTheSceneCallsTheAuditorsAtTheRelease)
{
  SoTopLevelDialog* dialog = load("TopLevelDialog { DialogPushButton { auditorID \"ok\" buttonLabel \"OK\" } }");
  DialogHeard heard;
  dialog->addAuditor(&heard);
  Scene scene;
  scene.open(dialog);
  auto* element = static_cast<SoDialogPushButton*>(dialog->getChild(0));
  scene.press(scene.centre(element));
  EXPECT_TRUE(heard.ids.empty());
  scene.release(scene.centre(element));
  EXPECT_EQ(heard.ids, std::vector<std::string>{"ok"});
}
