#include <Inventor/nodes/SoSeparator.h>
#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <Quillform/core/SoChildElements.h>
#include <array>
#include <functional>
#include <menus/Menus.h>
#include <property/Agreement.h>
#include <property/RandomTree.h>
#include <string>
#include <support/Form.h>
#include <support/HeardElements.h>
#include <support/Operate.h>
#include <utility>
#include <vector>

namespace {

/// A dialog with every kind of element, and with dialogs that its launchers open.
const char* const everything =
  "TopLevelDialog { label \"Everything\" width 300 "
  "MenuBar { MenuPopup { auditorID \"menu\" label \"menu\" "
  "MenuPushButton { auditorID \"p\" label \"p\" accelerator \"F2\" } "
  "MenuCheckBox { auditorID \"c\" label \"c\" accelerator \"F3\" } "
  "MenuRadioButtons { auditorID \"r\" items [ \"r0\", \"r1\" ] accelerators [ \"F4\", \"F5\" ] } "
  "MenuSeparator { } MenuFileSelection { auditorID \"f\" label \"f\" } "
  "MenuPopup { auditorID \"inner\" label \"inner\" MenuPushButton { label \"deep\" } } "
  "MenuPushButtonLauncher { auditorID \"l\" label \"l\" TopLevelDialog { auditorID \"byEntry\" "
  "  position3D 420 -60 0 DialogEditText { } } } "
  "MenuCheckBoxLauncher { auditorID \"m\" label \"m\" TopLevelDialog { DialogComboBox { } } } } } "
  "DialogPushButton { auditorID \"ok\" buttonLabel \"OK\" } "
  "RowDialog { DialogLabel { label \"Text\" } DialogCheckBox { } } DialogSeparator { } "
  "ColumnDialog { DialogIntegerSlider { auditorID \"slider\" max 10 } DialogRealSlider { } } "
  "DialogComboBox { auditorID \"combo\" items [ \"x\", \"y\" ] } DialogRadioButtons { items [ \"x\", \"y\" ] } "
  "DialogEditText { auditorID \"edit\" } DialogEditText { multiLine TRUE height 50 } DialogCustom { height 20 } "
  "TabDialog { RowDialog { label \"one\" DialogPushButton { } } RowDialog { label \"two\" DialogEditText { } } } "
  "DialogPushButtonLauncher { auditorID \"launcher\" buttonLabel \"More\" "
  "  TopLevelDialog { auditorID \"byButton\" position3D 320 60 0 DialogPushButton { buttonLabel \"inner\" } "
  "    TabDialog { RowDialog { label \"page\" DialogIntegerSlider { } } } } } "
  "DialogCheckBoxLauncher { state TRUE TopLevelDialog { auditorID \"byBox\" position3D 320 -200 0 "
  "  DialogCheckBox { } DialogRadioButtons { items [ \"x\", \"y\" ] } } } }";

} // namespace

/// The two sides of a dialog, its nodes and what Qt and the scene show of them, do not die together: not while a user
/// holds something of it either.
class LifetimeTest : public QuillformTest, public ::testing::WithParamInterface<Form> {
protected:
  LifetimeTest()
  {
    // What waits for the user, such as the file dialog, is closed.
    QObject::connect(&m_watchdog, &QTimer::timeout, [] {
      if (QWidget* modal = QApplication::activeModalWidget()) {
        modal->close();
      }
    });
    m_watchdog.start(20);
  }

  template <class Element>
  Element* get(const char* id)
  {
    return dynamic_cast<Element*>(dialog->searchForAuditorId(id));
  }

  template <class Widget>
  Widget* widgetIn(const char* id)
  {
    return get<SoDialogComponent>(id)->getWidget()->findChild<Widget*>();
  }

  /// Opens the dialog, into \a parent or in a window of its own, and all that its launchers open.
  void open(QWidget* parent = nullptr)
  {
    scene = std::make_unique<Scene>();
    dialog = load(everything);
    ASSERT_NE(dialog, nullptr);
    if (hasWindow(GetParam())) {
      dialog->buildDialog(parent, parent ? TRUE : FALSE);
      parent ? parent->show() : dialog->show();
      settle();
      Operate::click(widgetIn<QPushButton>("launcher"));
      Menus::chooseEntry(get<SoMenuItem>("l"));
      for (const char* id : {"byButton", "byBox", "byEntry"}) {
        EXPECT_TRUE(get<SoTopLevelDialog>(id)->getWidget()->isVisible()) << id;
      }
    }
    if (hasScene(GetParam())) {
      scene->open(dialog);
      scene->click(get<SoDialogComponent>("launcher"));
      Menus::chooseEntry(*scene, get<SoMenuItem>("l"));
      for (const char* id : {"byButton", "byBox", "byEntry"}) {
        EXPECT_TRUE(get<SoTopLevelDialog>(id)->isShown3D()) << id;
      }
    }
    settle();
  }

  // What a user is doing at that moment: he does it in every form that there is

  struct Gesture {
    const char* name;
    void (LifetimeTest::*inWindow)();
    void (LifetimeTest::*inScene)();
  };
  static const std::vector<Gesture> gestures;

  void doNothing() {}
  void hold(QWidget* widget, const QPoint& at)
  {
    held = widget;
    heldAt = at;
    QTest::mousePress(widget, Qt::LeftButton, Qt::NoModifier, at);
  }
  void holdButton()
  {
    auto* button = widgetIn<QPushButton>("ok");
    hold(button, button->rect().center());
  }
  void holdButtonInScene()
  {
    scene->press(scene->centre(get<SoDialogComponent>("ok")));
  }
  void holdSlider()
  {
    auto* slider = get<SoDialogSlider>("slider");
    hold(Operate::barOf(slider), Operate::onBar(slider, 0.6F));
  }
  void holdSliderInScene()
  {
    scene->press(Operate::onBar(*scene, get<SoDialogSlider>("slider"), 0.6F));
    scene->move(Operate::onBar(*scene, get<SoDialogSlider>("slider"), 0.8F));
  }
  void openMenus()
  {
    QMenu* menu = Menus::openMenu(Menus::barOf(dialog), 0);
    Menus::openMenu(menu, menu->actions().indexOf(get<SoMenuPopup>("inner")->getMenu()->menuAction()));
  }
  void openMenusInScene()
  {
    for (const char* id : {"menu", "inner"}) {
      scene->click(Menus::lineOf(*scene, get<SoMenuItem>(id)));
    }
  }
  void openList()
  {
    widgetIn<QComboBox>("combo")->showPopup();
  }
  void openListInScene()
  {
    scene->click(Choices::middleOf(*scene, scene->root(), get<SoDialogComponent>("combo"), "frameSep"));
  }
  void type()
  {
    QApplication::setActiveWindow(dialog->getWidget()->window());
    widgetIn<QLineEdit>("edit")->setFocus();
    QTest::keyClicks(widgetIn<QLineEdit>("edit"), "x");
  }
  void typeInScene()
  {
    scene->click(Choices::middleOf(*scene, scene->root(), get<SoDialogComponent>("edit"), "frameSep"));
    scene->key(SoKeyboardEvent::A, 'x');
  }

  void begin(const Gesture& gesture)
  {
    if (hasWindow(GetParam())) {
      (this->*gesture.inWindow)();
    }
    if (hasScene(GetParam())) {
      (this->*gesture.inScene)();
    }
  }

  /// Lets go of what is held, and then operates whatever is still on screen.
  void operateWhatRemains()
  {
    if (held) {
      QTest::mouseRelease(held, Qt::LeftButton, Qt::NoModifier, heldAt);
    }
    scene->release(scene->pixel(50.0F, -50.0F));
    std::vector<QPointer<QWidget>> widgets;
    for (QWidget* widget : QApplication::allWidgets()) {
      if (widget->isVisible()) {
        widgets.emplace_back(widget);
      }
    }
    for (const QPointer<QWidget>& widget : widgets) {
      if (widget && widget->isVisible()) {
        Operate::click(widget, widget->rect().center());
      }
      if (widget && widget->isVisible()) {
        QTest::keyClick(widget.data(), Qt::Key_Space);
      }
    }
    constexpr int columns = 9;
    constexpr int rows = 14;
    for (int i = 0; i < columns * rows; i++) {
      scene->click(
        scene->pixel(20.0F + 75.0F * static_cast<float>(i % columns), -8.0F - 25.0F * static_cast<float>(i / columns)));
    }
    for (const auto key : {SoKeyboardEvent::TAB, SoKeyboardEvent::SPACE, SoKeyboardEvent::RETURN}) {
      scene->key(key);
    }
    scene->key(SoKeyboardEvent::A, 'y');
    settle();
  }

  void changeEveryField()
  {
    std::vector<SoQuillform*> elements = RandomTree::elementsBelow(dialog);
    elements.push_back(dialog);
    for (SoQuillform* element : elements) {
      SoFieldList fields;
      element->getFields(fields);
      for (int i = 0; i < fields.getLength(); i++) {
        if (!fields[i]->isOfType(SoSFNode::getClassTypeId())) {
          fields[i]->touch();
        }
      }
    }
  }

  void expectWorks()
  {
    for (const std::string& fault : Agreement::checkElements(dialog)) {
      ADD_FAILURE() << fault;
    }
    HeardElements heard;
    dialog->addAuditor(&heard);
    std::size_t expected = 0;
    if (hasWindow(GetParam())) {
      Operate::click(widgetIn<QPushButton>("ok"));
      EXPECT_EQ(heard.ids.size(), ++expected);
    }
    if (hasScene(GetParam())) {
      scene->click(get<SoDialogComponent>("ok"));
      EXPECT_EQ(heard.ids.size(), ++expected);
    }
  }

  /// Takes the dialog out of the scene and lets go of its last reference.
  void release()
  {
    if (hasScene(GetParam())) {
      scene->root()->removeChild(dialog);
    }
    std::exchange(dialog, nullptr)->close();
  }

  /// Goes through all gestures, each with a dialog of its own.
  void forEveryGesture(const std::function<void(const Gesture&)>& call)
  {
    for (const Gesture& gesture : gestures) {
      SCOPED_TRACE(gesture.name);
      const int before = SoQuillform::getInstanceCount();
      held = nullptr;
      call(gesture);
      settle();
      EXPECT_EQ(SoQuillform::getInstanceCount(), before);
      for (const QWidget* widget : QApplication::topLevelWidgets()) {
        EXPECT_FALSE(widget->isVisible()) << widget->objectName().toStdString();
      }
    }
  }

  SoTopLevelDialog* dialog = nullptr;
  std::unique_ptr<Scene> scene;
  QPointer<QWidget> held;
  QPoint heldAt;

private:
  QTimer m_watchdog;
};

const std::vector<LifetimeTest::Gesture> LifetimeTest::gestures = {
  {"doNothing", &LifetimeTest::doNothing, &LifetimeTest::doNothing},
  {"holdButton", &LifetimeTest::holdButton, &LifetimeTest::holdButtonInScene},
  {"holdSlider", &LifetimeTest::holdSlider, &LifetimeTest::holdSliderInScene},
  {"openMenus", &LifetimeTest::openMenus, &LifetimeTest::openMenusInScene},
  {"openList", &LifetimeTest::openList, &LifetimeTest::openListInScene},
  {"type", &LifetimeTest::type, &LifetimeTest::typeInScene},
};

/// Those that make sense only where there is a window.
class LifetimeOfWidgetsTest : public LifetimeTest {};

INSTANTIATE_TEST_SUITE_P(Forms, LifetimeOfWidgetsTest, ::testing::Values(WINDOW, BOTH_BY_WINDOW),
                         ::testing::PrintToStringParamName());
INSTANTIATE_TEST_SUITE_P(Forms, LifetimeTest, ::testing::Values(WINDOW, SCENE, BOTH_BY_WINDOW),
                         ::testing::PrintToStringParamName());

TEST_P(LifetimeTest, theDialogIsClosedWhileItIsShown)
{
  forEveryGesture([this](const Gesture& gesture) {
    open();
    begin(gesture);
    release();
    operateWhatRemains();
  });
}

TEST_P(LifetimeTest, theNodeIsReleasedWhileItIsShown)
{
  forEveryGesture([this](const Gesture& gesture) {
    open();
    begin(gesture);
    std::exchange(dialog, nullptr)->unref(); // the file cache's reference
    scene->root()->removeAllChildren();
    operateWhatRemains();
    scene = nullptr;
  });
}

TEST_P(LifetimeOfWidgetsTest, theParentWidgetIsDeletedUnderABuiltDialog)
{
  forEveryGesture([this](const Gesture& gesture) {
    auto* parent = new QWidget;
    open(parent);
    begin(gesture);
    delete parent;
    EXPECT_EQ(dialog->getWidget(), nullptr);
    EXPECT_EQ(get<SoDialogComponent>("ok")->getWidget(), nullptr);
    operateWhatRemains();
    changeEveryField();
    dialog->removeChild(dialog->getNumChildren() - 1);
    dialog->addChild(new SoDialogCheckBoxLauncher);
    {
      QWidget again;
      dialog->buildDialog(&again, TRUE);
      again.show();
      settle();
      expectWorks();
    }
    release();
    operateWhatRemains();
  });
}

TEST_P(LifetimeOfWidgetsTest, itsOwnWindowIsDeletedUnderABuiltDialog)
{
  forEveryGesture([this](const Gesture& gesture) {
    open();
    begin(gesture);
    delete dialog->getWidget();
    operateWhatRemains();
    changeEveryField();
    dialog->buildDialog(nullptr, FALSE);
    dialog->show();
    settle();
    expectWorks();
    release();
  });
}

TEST_P(LifetimeTest, theLibraryIsFinishedWithDialogsOnScreen)
{
  for (const bool isHeld : {false, true}) {
    forEveryGesture([this, isHeld](const Gesture& gesture) {
      open();
      if (isHeld) {
        dialog->ref();
      }
      begin(gesture);
      SoQuillform::finish();
      EXPECT_FALSE(SoQuillform::isInitialized());
      operateWhatRemains();
      scene = nullptr;
      if (isHeld) {
        dialog->destroyWidget();
        dialog->unref();
      }
      settle();
      start();
      open();
      expectWorks();
      release();
    });
  }
}
