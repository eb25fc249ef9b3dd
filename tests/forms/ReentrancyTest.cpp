#include <Inventor/nodes/SoSeparator.h>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <Quillform/Quillform.h>
#include <functional>
#include <support/Form.h>
#include <support/MessageUser.h>
#include <support/Messages.h>
#include <support/Operate.h>
#include <support/Scene.h>
#include <support/TestFiles.h>

namespace {

/// Does once what a test gives it, whoever reports.
struct Doing : SoDialogAuditor {
  void dialogPushButton(SoDialogPushButton* cpt) override
  {
    ++count;
    if (const auto now = std::exchange(action, {})) {
      now(cpt);
    }
  }
  std::function<void(SoDialogPushButton*)> action;
  int count = 0;
};

struct OwnAuditor : SoDialogPushButtonAuditor {
  explicit OwnAuditor(std::function<void(SoDialogPushButton*)> toDo) : action(std::move(toDo)) {}
  void dialogPushButton(SoDialogPushButton* cpt) override
  {
    ++count;
    action(cpt);
  }
  std::function<void(SoDialogPushButton*)> action;
  int count = 0;
};

} // namespace

/// An application's auditor does what it likes in the middle of a click, in a window and in the scene.
class ReentrancyTest : public QuillformTest, public ::testing::WithParamInterface<Form> {
protected:
  void open()
  {
    dialog = load("TopLevelDialog { width 200 height 90 DialogPushButton { auditorID \"a\" buttonLabel \"A\" } "
                  "DialogPushButton { auditorID \"b\" buttonLabel \"B\" } DialogLabel { label \"text\" } }");
    ASSERT_NE(dialog, nullptr);
    dialog->addAuditor(&doing);
    if (GetParam() != SCENE) {
      dialog->buildDialog(nullptr, FALSE);
      dialog->show();
      settle();
    }
    if (GetParam() != WINDOW) {
      scene.open(dialog);
    }
  }

  SoDialogPushButton* button(int index)
  {
    return static_cast<SoDialogPushButton*>(dialog->getChild(index));
  }

  /// Press and release on a button, as the form has it; the button may be gone in between.
  void click(SoDialogPushButton* element)
  {
    if (isByWindow(GetParam())) {
      Operate::click(element->getWidget()->findChild<QPushButton*>());
    }
    else {
      scene.click(element);
    }
    settle();
  }

  /// The dialog still works: each of its buttons is heard once.
  void expectAlive()
  {
    for (int i = 0; i < dialog->getNumChildren(); i++) {
      if (dialog->getChild(i)->isOfType(SoDialogPushButton::getClassTypeId())) {
        const int before = doing.count;
        click(button(i));
        EXPECT_EQ(doing.count, before + 1) << i;
      }
    }
  }

  Doing doing;
  SoTopLevelDialog* dialog = nullptr;
  Scene scene;
};

TEST_P(ReentrancyTest, removesThePressedButton)
{
  open();
  doing.action = [this](SoDialogPushButton* pressed) {
    dialog->removeChild(pressed);
  };
  const int before = SoQuillform::getInstanceCount();
  click(button(0));
  EXPECT_EQ(doing.count, 1);
  EXPECT_EQ(dialog->getNumChildren(), 2);
  EXPECT_EQ(SoQuillform::getInstanceCount(), before - 1);
  expectAlive();
}

TEST_P(ReentrancyTest, removesAnotherButton)
{
  open();
  doing.action = [this](SoDialogPushButton*) {
    dialog->removeChild(0);
  };
  const int before = SoQuillform::getInstanceCount();
  click(button(1));
  EXPECT_EQ(dialog->getNumChildren(), 2);
  EXPECT_EQ(SoQuillform::getInstanceCount(), before - 1);
  expectAlive();
}

TEST_P(ReentrancyTest, removesAllChildren)
{
  open();
  doing.action = [this](SoDialogPushButton*) {
    dialog->removeAllChildren();
  };
  const int before = SoQuillform::getInstanceCount();
  click(button(0));
  EXPECT_EQ(dialog->getNumChildren(), 0);
  EXPECT_EQ(SoQuillform::getInstanceCount(), before - 3);
  auto* added = new SoDialogPushButton;
  added->auditorID = "new";
  dialog->addChild(added);
  settle();
  expectAlive();
}

TEST_P(ReentrancyTest, removesAllChildrenAndAddsNewOnes)
{
  open();
  doing.action = [this](SoDialogPushButton* pressed) {
    pressed->ref();
    dialog->removeAllChildren();
    for (int i = 0; i < 4; i++) {
      dialog->addChild(new SoDialogPushButton);
    }
    dialog->insertChild(pressed, 1);
    pressed->unref();
    dialog->removeChild(0);
  };
  click(button(1));
  ASSERT_EQ(dialog->getNumChildren(), 4);
  EXPECT_STREQ(button(0)->auditorID.getValue().getString(), "b");
  for (int i = 0; i < 4; i++) {
    EXPECT_EQ(dialog->getChild(i)->getRefCount(), 1);
  }
  expectAlive();
}

TEST_P(ReentrancyTest, addsChildren)
{
  open();
  doing.action = [this](SoDialogPushButton*) {
    dialog->insertChild(new SoDialogPushButton, 0);
    dialog->addChild(new SoDialogPushButton);
  };
  click(button(0));
  EXPECT_EQ(dialog->getNumChildren(), 5);
  expectAlive();
}

TEST_P(ReentrancyTest, replacesThePressedButton)
{
  open();
  doing.action = [this](SoDialogPushButton* pressed) {
    dialog->replaceChild(pressed, new SoDialogPushButton);
  };
  click(button(0));
  EXPECT_EQ(dialog->getNumChildren(), 3);
  expectAlive();
}

TEST_P(ReentrancyTest, closesTheDialog)
{
  open();
  const int before = SoQuillform::getInstanceCount();
  QPointer<QWidget> window(dialog->getWidget());
  doing.action = [this](SoDialogPushButton*) {
    dialog->close();
  };
  click(button(0));
  EXPECT_EQ(doing.count, 1);
  EXPECT_TRUE(window.isNull() || !window->isVisible());
  if (GetParam() != WINDOW) {
    scene.root()->removeChild(dialog);
  }
  settle();
  EXPECT_EQ(SoQuillform::getInstanceCount(), before - 4);
}

TEST_P(ReentrancyTest, takesTheDialogOutOfTheSceneAndClosesIt)
{
  open();
  const int before = SoQuillform::getInstanceCount();
  doing.action = [this](SoDialogPushButton*) {
    if (GetParam() != WINDOW) {
      scene.root()->removeChild(dialog);
    }
    dialog->close();
  };
  click(button(0));
  EXPECT_EQ(SoQuillform::getInstanceCount(), before - 4);
  scene.click(scene.pixel(100.0F, -40.0F));
}

TEST_P(ReentrancyTest, destroysTheDialogsWidgets)
{
  open();
  doing.action = [this](SoDialogPushButton*) {
    dialog->destroyWidget();
  };
  click(button(0));
  EXPECT_EQ(dialog->getWidget(), nullptr);
  if (GetParam() == SCENE || GetParam() == BOTH_BY_SCENE) {
    expectAlive();
  }
}

TEST_P(ReentrancyTest, rebuildsTheDialog)
{
  open();
  doing.action = [this](SoDialogPushButton*) {
    dialog->updateAfterSceneGraphChange();
    dialog->buildDialog(nullptr, FALSE);
    dialog->updateDialogBuild(dialog->isWidgetBuilt() ? 1 : 0);
  };
  click(button(0));
  expectAlive();
}

TEST_P(ReentrancyTest, loadsAnotherFileAndOpensIt)
{
  open();
  SoTopLevelDialog* other = nullptr;
  doing.action = [&](SoDialogPushButton*) {
    other = load("TopLevelDialog { DialogPushButton { buttonLabel \"Other\" } }");
    other->buildDialog(nullptr, FALSE);
    other->show();
  };
  click(button(0));
  ASSERT_NE(other, nullptr);
  expectAlive();
  other->close();
}

TEST_P(ReentrancyTest, changesTheAuditorList)
{
  open();
  Doing second;
  doing.action = [&](SoDialogPushButton*) {
    dialog->removeAuditor(&doing);
    dialog->addAuditor(&second);
  };
  click(button(0));
  EXPECT_EQ(doing.count, 1);
  EXPECT_EQ(second.count, 0);
  click(button(0));
  EXPECT_EQ(doing.count, 1);
  EXPECT_EQ(second.count, 1);
  dialog->removeAuditor(&second);
}

TEST_P(ReentrancyTest, deletesTheAuditorThatRuns)
{
  open();
  OwnAuditor* own = nullptr;
  own = new OwnAuditor([&own](SoDialogPushButton*) {
    delete own; // nothing of it is used from here on
  });
  OwnAuditor next([](SoDialogPushButton*) {});
  button(0)->addAuditor(own);
  button(0)->addAuditor(&next);
  SoDialogPushButton* pressed = button(0);
  pressed->ref();
  click(pressed);
  EXPECT_EQ(pressed->getAuditorListLength(), 1);
  EXPECT_EQ(next.count, 1);
  pressed->removeAuditor(&next);
  pressed->unref();
}

TEST_P(ReentrancyTest, setsEveryFieldOfTheButton)
{
  open();
  doing.action = [](SoDialogPushButton* pressed) {
    pressed->buttonLabel = "New text";
    pressed->label = "New label";
    pressed->labelVisibility = FALSE;
    pressed->labelVisibility = TRUE;
    pressed->labelAlignment = SoQuillform::LEFT;
    pressed->edgeStyle = SoDialogComponent::SHADOW_IN;
    pressed->width = 60;
    pressed->height = 40;
    pressed->minWidth = 20;
    pressed->maxHeight = 50;
    pressed->enable = FALSE;
    pressed->enable = TRUE;
  };
  click(button(0));
  EXPECT_EQ(doing.count, 1);
  expectAlive();
}

TEST_P(ReentrancyTest, disablesItself)
{
  open();
  doing.action = [](SoDialogPushButton* pressed) {
    pressed->enable = FALSE;
  };
  click(button(0));
  click(button(0));
  EXPECT_EQ(doing.count, 1);
  button(0)->enable = TRUE;
  expectAlive();
}

TEST_P(ReentrancyTest, hidesTheDialog)
{
  open();
  doing.action = [this](SoDialogPushButton*) {
    dialog->hide();
    dialog->show3D(0);
  };
  click(button(0));
  EXPECT_EQ(doing.count, 1);
  dialog->show();
  dialog->show3D(1);
  settle();
  expectAlive();
}

TEST_P(ReentrancyTest, minimisesTheDialog)
{
  open();
  doing.action = [this](SoDialogPushButton*) {
    dialog->minimized = TRUE;
  };
  click(button(0));
  dialog->minimized = FALSE;
  expectAlive();
}

TEST_P(ReentrancyTest, clicksAnotherButtonFromInside)
{
  open();
  doing.action = [this](SoDialogPushButton*) {
    if (isByWindow(GetParam())) {
      button(1)->getWidget()->findChild<QPushButton*>()->click();
    }
    else {
      button(1)->eventNotify(0, 0);
    }
  };
  click(button(0));
  EXPECT_EQ(doing.count, 2);
  expectAlive();
}

TEST_P(ReentrancyTest, runsTheEventLoopAndRemovesItself)
{
  open();
  doing.action = [this](SoDialogPushButton* pressed) {
    dialog->removeChild(pressed);
    settle();
    dialog->addChild(new SoDialogPushButton);
    settle();
  };
  click(button(0));
  EXPECT_EQ(dialog->getNumChildren(), 3);
  expectAlive();
}

TEST_P(ReentrancyTest, showsAMessageAndRemovesItselfWhenThatIsClosed)
{
  open();
  MessageUser user;
  doing.action = [this](SoDialogPushButton* pressed) {
    auto* message = new SoMessageDialog("Really?", "Question", SoMessageDialog::MD_QUESTION);
    message->ref();
    message->unref();
    dialog->removeChild(pressed);
  };
  click(button(0));
  EXPECT_EQ(user.boxes.size(), 1U);
  EXPECT_EQ(dialog->getNumChildren(), 2);
  expectAlive();
}

TEST_P(ReentrancyTest, movesTheButtonToAnotherDialog)
{
  open();
  auto* other = new SoTopLevelDialog;
  other->ref();
  doing.action = [&](SoDialogPushButton* pressed) {
    pressed->ref();
    dialog->removeChild(pressed);
    other->addChild(pressed);
    pressed->unref();
    other->buildDialog(nullptr, FALSE);
    other->show();
  };
  click(button(0));
  EXPECT_EQ(other->getNumChildren(), 1);
  EXPECT_EQ(other->getChild(0)->getParent(), other);
  EXPECT_EQ(other->getChild(0)->getRefCount(), 1);
  EXPECT_EQ(other->getWidget()->findChildren<QPushButton*>().size(), 1);
  expectAlive();
  other->unref();
}

TEST_P(ReentrancyTest, switchesTheSkin)
{
  open();
  doing.action = [](SoDialogPushButton*) {
    SoQuillform::setSkin("dark");
  };
  click(button(0));
  expectAlive();
}

TEST_P(ReentrancyTest, finishesTheLibrary)
{
  SoQuillform::init();
  open();
  doing.action = [](SoDialogPushButton*) {
    SoQuillform::finish();
    SoQuillform::finish();
  };
  dialog->ref();
  click(button(0));
  EXPECT_EQ(doing.count, 1);
  EXPECT_EQ(dialog->getRefCount(), GetParam() == WINDOW ? 1 : 2);
  if (GetParam() != WINDOW) {
    scene.root()->removeChild(dialog);
  }
  dialog->unref();
  settle();
  SoQuillform::init();
}

INSTANTIATE_TEST_SUITE_P(Forms, ReentrancyTest, ::testing::ValuesIn(allForms));
