#include <QAbstractItemView>
#include <QComboBox>
#include <QElapsedTimer>
#include <QTest>
#include <Quillform/Quillform.h>
#include <support/Choices.h>
#include <support/Scene.h>
#include <support/TestFiles.h>

namespace {

constexpr int count = 10000;
constexpr int noPause = 500; // milliseconds; on an idle machine it takes a small part of that

} // namespace

class LongListTest : public QuillformTest {
protected:
  LongListTest()
  {
    dialog = load("TopLevelDialog { DialogComboBox { items [ " + Choices::manyItems(count) + " ] } }");
    combo = static_cast<SoDialogComboBox*>(static_cast<SoQuillform*>(dialog->getChild(0)));
  }

  SoTopLevelDialog* dialog;
  SoDialogComboBox* combo;
};

TEST_F(LongListTest, aListOfTenThousandEntriesOpensWithoutAPauseInTheWindow)
{
  dialog->buildDialog(nullptr, FALSE);
  dialog->show();
  settle();
  auto* box = dialog->getWidget()->findChild<QComboBox*>();
  QElapsedTimer timer;
  timer.start();
  QTest::mousePress(box, Qt::LeftButton);
  settle();
  const qint64 took = timer.elapsed();
  EXPECT_TRUE(box->view()->isVisible());
  EXPECT_EQ(box->count(), count);
  EXPECT_LT(took, noPause);
  RecordProperty("milliseconds", static_cast<int>(took));
  box->hidePopup();
}

TEST_F(LongListTest, aListOfTenThousandEntriesOpensWithoutAPauseInTheScene)
{
  Scene scene;
  scene.open(dialog);
  QElapsedTimer timer;
  timer.start();
  scene.click(combo);
  const qint64 took = timer.elapsed();
  EXPECT_EQ(Choices::shownChild(combo, "itemsSwitch"), SO_SWITCH_ALL);
  EXPECT_LT(took, noPause);
  RecordProperty("milliseconds", static_cast<int>(took));
}
