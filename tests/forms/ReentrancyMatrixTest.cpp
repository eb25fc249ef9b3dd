#include <Inventor/nodes/SoSeparator.h>
#include <QApplication>
#include <QCheckBox>
#include <QEventLoop>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTextEdit>
#include <QTimer>
#include <Quillform/core/SoChildElements.h>
#include <array>
#include <functional>
#include <menus/Menus.h>
#include <property/Agreement.h>
#include <string>
#include <support/FileDialogUser.h>
#include <support/Form.h>
#include <support/HeardElements.h>
#include <support/MessageUser.h>
#include <support/Operate.h>
#include <utility>
#include <vector>

using Menus::chooseEntry;
using Operate::dialogOf;
using Operate::other;

namespace {

typedef std::vector<std::string> Names;

template <class Widget>
Widget* in(SoQuillform* element)
{
  return static_cast<SoDialogComponent*>(element)->getWidget()->findChild<Widget*>();
}

template <class Element>
Element* as(SoQuillform* element)
{
  return static_cast<Element*>(element);
}

float otherEnd(const SoDialogSlider* slider)
{
  return slider->getSliderPosition() > 0.5F ? 0.2F : 0.8F;
}

/// Gives the keyboard of a window to a widget.
template <class Widget>
Widget* focus(Widget* widget)
{
  QApplication::setActiveWindow(widget->window());
  widget->setFocus();
  return widget;
}

/// Gives the keyboard of the scene to an element and leaves its value alone.
void focus(Scene& scene, SoQuillform* element, const char* part = "mainCptSeparator")
{
  scene.press(Choices::middleOf(scene, scene.root(), element, part));
  scene.release(SbVec2s(Scene::width - 2, 2));
}

void typeAnywhere(Scene& scene, SoQuillform* element)
{
  scene.click(Choices::middleOf(scene, scene.root(), element, "frameSep"));
  scene.key(SoKeyboardEvent::A, 'x');
}

void pressShortcut(SoQuillform* entry)
{
  QWidget* window = dialogOf(entry)->getWidget();
  QApplication::setActiveWindow(window);
  QTest::keyClick(window, entry->auditorID.getValue().getString()[0], Qt::ControlModifier);
}

template <void (*choose)(SoQuillform*)>
void chooseAndCancel(SoQuillform* entry)
{
  FileDialogUser user;
  user.then(FileDialogUser::cancel);
  choose(entry);
}

/// Where the element that calls the auditor stands, inside a container of its own.
enum Place { ROW, PAGE, LAUNCHED, MENU };

/// A way in which a user makes an element call its auditors, once.
struct Kind {
  const char* name;
  Place place;
  const char* element; ///< for a dialog file; $ stands for its identifier
  void (*inWindow)(SoQuillform* element);
  void (*inScene)(Scene& scene, SoQuillform* element); ///< nullptr when the scene has no such way
};

void PrintTo(const Kind* kind, std::ostream* out)
{
  *out << kind->name;
}

const Kind pushButton = {"pushButton", ROW, "DialogPushButton { auditorID \"$\" buttonLabel \"$\" }",
                         [](SoQuillform* element) { Operate::click(in<QPushButton>(element)); },
                         [](Scene& scene, SoQuillform* element) {
                           scene.click(as<SoDialogComponent>(element));
                         }};

const Kind checkBox = {"checkBox", ROW, "DialogCheckBox { auditorID \"$\" }",
                       [](SoQuillform* element) { Operate::clickMark(in<QCheckBox>(element)); },
                       [](Scene& scene, SoQuillform* element) {
                         scene.click(Operate::markOf(scene, as<SoDialogCheckBox>(element)));
                       }};

const char* const slider = "DialogIntegerSlider { auditorID \"$\" max 10 }";
const char* const tabs = "TabDialog { auditorID \"$\" RowDialog { label \"one $\" DialogPushButton { } } "
                         "RowDialog { label \"two $\" DialogEditText { } } }";
const char* const file = "MenuFileSelection { auditorID \"$\" label \"$\" accelerator \"Ctrl+$\" }";

void clickBar(SoQuillform* element)
{
  auto* bar = as<SoDialogSlider>(element);
  Operate::click(Operate::barOf(bar), Operate::onBar(bar, otherEnd(bar)));
}

void clickBarInScene(Scene& scene, SoQuillform* element)
{
  auto* bar = as<SoDialogSlider>(element);
  scene.click(Operate::onBar(scene, bar, otherEnd(bar)));
}

/// The page of a tab dialog that is not in sight.
SoDialogComponent* hiddenPage(SoQuillform* element)
{
  return as<SoTabDialog>(element)->getChild(other(as<SoTabDialog>(element)->selectedPage));
}

const std::vector<Kind> kinds = {
  pushButton,
  {"pushButtonByKey", ROW, pushButton.element,
   [](SoQuillform* element) { QTest::keyClick(focus(in<QPushButton>(element)), Qt::Key_Space); },
   [](Scene& scene, SoQuillform* element) {
     focus(scene, element);
     scene.key(SoKeyboardEvent::SPACE);
   }},
  {"pushButtonInPage", PAGE, pushButton.element, pushButton.inWindow, pushButton.inScene},
  {"pushButtonInLaunchedDialog", LAUNCHED, pushButton.element, pushButton.inWindow, pushButton.inScene},
  checkBox,
  {"checkBoxByKey", ROW, checkBox.element,
   [](SoQuillform* element) { QTest::keyClick(focus(in<QCheckBox>(element)), Qt::Key_Space); },
   [](Scene& scene, SoQuillform* element) {
     focus(scene, element, "stateSep");
     scene.key(SoKeyboardEvent::SPACE);
   }},
  {"comboBox", ROW, "DialogComboBox { auditorID \"$\" items [ \"x\", \"y\" ] }",
   [](SoQuillform* element) {
     Operate::choose(in<QComboBox>(element), other(as<SoDialogChoice>(element)->selectedItem));
   },
   [](Scene& scene, SoQuillform* element) {
     auto* combo = as<SoDialogComboBox>(element);
     scene.click(Choices::middleOf(scene, scene.root(), combo, "frameSep"));
     scene.click(Operate::entryOf(scene, combo, other(combo->selectedItem), 2));
   }},
  {"comboBoxByKey", ROW, "DialogComboBox { auditorID \"$\" items [ \"x\", \"y\" ] }",
   [](SoQuillform* element) {
     QTest::keyClick(focus(in<QComboBox>(element)),
                     other(as<SoDialogChoice>(element)->selectedItem) == 1 ? Qt::Key_Down : Qt::Key_Up);
   },
   [](Scene& scene, SoQuillform* element) {
     auto* combo = as<SoDialogComboBox>(element);
     scene.click(Choices::middleOf(scene, scene.root(), combo, "frameSep"));
     scene.key(other(combo->selectedItem) == 1 ? SoKeyboardEvent::DOWN_ARROW : SoKeyboardEvent::UP_ARROW);
     scene.key(SoKeyboardEvent::RETURN);
   }},
  {"radioButtons", ROW, "DialogRadioButtons { auditorID \"$\" items [ \"x\", \"y\" ] }",
   [](SoQuillform* element) {
     Operate::clickMark(as<SoDialogComponent>(element)->getWidget()->findChildren<QRadioButton*>().at(
       other(as<SoDialogChoice>(element)->selectedItem)));
   },
   [](Scene& scene, SoQuillform* element) {
     auto* radio = as<SoDialogRadioButtons>(element);
     scene.click(Operate::entryOf(scene, radio, other(radio->selectedItem)));
   }},
  {"radioButtonsByKey", ROW, "DialogRadioButtons { auditorID \"$\" items [ \"x\", \"y\" ] }",
   [](SoQuillform* element) {
     const int chosen = as<SoDialogChoice>(element)->selectedItem.getValue();
     QWidget* button = as<SoDialogComponent>(element)->getWidget()->findChildren<QRadioButton*>().at(chosen);
     QTest::keyClick(focus(button), chosen == 0 ? Qt::Key_Down : Qt::Key_Up);
   },
   [](Scene& scene, SoQuillform* element) {
     focus(scene, element);
     scene.key(other(as<SoDialogChoice>(element)->selectedItem) == 1 ? SoKeyboardEvent::DOWN_ARROW
                                                                     : SoKeyboardEvent::UP_ARROW);
   }},
  {"editText", ROW, "DialogEditText { auditorID \"$\" }",
   [](SoQuillform* element) {
     QTest::keyClicks(focus(in<QLineEdit>(element)), "x");
     QTest::keyClick(in<QLineEdit>(element), Qt::Key_Return);
   },
   [](Scene& scene, SoQuillform* element) {
     typeAnywhere(scene, element);
     scene.key(SoKeyboardEvent::RETURN);
   }},
  {"editTextOnEveryChange", ROW, "DialogEditText { auditorID \"$\" trigOnEnter FALSE }",
   [](SoQuillform* element) { QTest::keyClicks(focus(in<QLineEdit>(element)), "x"); }, typeAnywhere},
  {"editTextOfManyLines", ROW, "DialogEditText { auditorID \"$\" multiLine TRUE height 60 }",
   [](SoQuillform* element) {
     QTest::keyClicks(focus(in<QTextEdit>(element)), "x");
     QTest::keyClick(in<QTextEdit>(element), Qt::Key_Return);
   },
   [](Scene& scene, SoQuillform* element) {
     typeAnywhere(scene, element);
     scene.key(SoKeyboardEvent::RETURN);
   }},
  {"editTextOfManyLinesOnEveryChange", ROW,
   "DialogEditText { auditorID \"$\" multiLine TRUE height 60 trigOnEnter FALSE }",
   [](SoQuillform* element) { QTest::keyClicks(focus(in<QTextEdit>(element)), "x"); }, typeAnywhere},
  {"editTextLeft", ROW, "DialogEditText { auditorID \"$\" }", nullptr,
   [](Scene& scene, SoQuillform* element) {
     typeAnywhere(scene, element);
     scene.click(scene.pixel(30.0F, -10.0F)); // the title of the dialog
   }},
  {"integerSlider", ROW, slider, clickBar, clickBarInScene},
  {"integerSliderOnEveryMotion", ROW, "DialogIntegerSlider { auditorID \"$\" max 10 continuousTrigger TRUE }", clickBar,
   clickBarInScene},
  {"integerSliderByKey", ROW, slider,
   [](SoQuillform* element) {
     auto* bar = as<SoDialogSlider>(element);
     QTest::keyClick(focus(Operate::barOf(bar)), otherEnd(bar) > 0.5F ? Qt::Key_End : Qt::Key_Home);
   },
   [](Scene& scene, SoQuillform* element) {
     focus(scene, element, "checkSep");
     scene.key(otherEnd(as<SoDialogSlider>(element)) > 0.5F ? SoKeyboardEvent::END : SoKeyboardEvent::HOME);
   }},
  {"integerSliderTyped", ROW, slider,
   [](SoQuillform* element) {
     auto* edit = focus(in<QLineEdit>(element));
     edit->selectAll();
     QTest::keyClicks(edit, otherEnd(as<SoDialogSlider>(element)) > 0.5F ? "7" : "3");
     QTest::keyClick(edit, Qt::Key_Return);
   },
   [](Scene& scene, SoQuillform* element) {
     scene.click(Choices::middleOf(scene, scene.root(), element, "edtFrmSep"));
     scene.key(SoKeyboardEvent::BACKSPACE);
     const char digit = otherEnd(as<SoDialogSlider>(element)) > 0.5F ? '7' : '3';
     scene.key(static_cast<SoKeyboardEvent::Key>(digit), digit);
     scene.key(SoKeyboardEvent::RETURN);
   }},
  {"realSlider", ROW, "DialogRealSlider { auditorID \"$\" max 10 }", clickBar, clickBarInScene},
  {"realSliderDragged", ROW, "DialogRealSlider { auditorID \"$\" max 10 continuousTrigger TRUE }",
   [](SoQuillform* element) {
     auto* bar = as<SoDialogSlider>(element);
     const QPointer<QWidget> widget(Operate::barOf(bar));
     QTest::mousePress(widget, Qt::LeftButton, Qt::NoModifier, Operate::onBar(bar, bar->getSliderPosition()));
     const QPoint to = Operate::onBar(bar, otherEnd(bar));
     Operate::moveTo(bar, otherEnd(bar));
     QTest::mouseRelease(widget, Qt::LeftButton, Qt::NoModifier, to);
   },
   [](Scene& scene, SoQuillform* element) {
     auto* bar = as<SoDialogSlider>(element);
     const SbVec2s to = Operate::onBar(scene, bar, otherEnd(bar));
     scene.press(Operate::onBar(scene, bar, bar->getSliderPosition()));
     scene.move(to);
     scene.release(to);
   }},
  {"tabDialog", ROW, tabs,
   [](SoQuillform* element) {
     auto* bar = in<QTabBar>(element);
     Operate::click(bar, bar->tabRect(other(as<SoTabDialog>(element)->selectedPage)).center());
   },
   [](Scene& scene, SoQuillform* element) {
     const std::string text = hiddenPage(element)->label.getValue().getString();
     const SbVec3f middle = Operate::tabBox(scene.root(), as<SoTabDialog>(element), text).getCenter();
     scene.click(scene.pixel(middle[0], middle[1]));
   }},
  {"tabDialogByKey", ROW, tabs,
   [](SoQuillform* element) {
     QTest::keyClick(focus(in<QTabBar>(element)),
                     other(as<SoTabDialog>(element)->selectedPage) == 1 ? Qt::Key_Right : Qt::Key_Left);
   },
   [](Scene& scene, SoQuillform* element) {
     const bool isFirst = other(as<SoTabDialog>(element)->selectedPage) == 1;
     const std::string text = hiddenPage(element)->label.getValue().getString();
     const SbVec3f middle = Operate::tabBox(scene.root(), as<SoTabDialog>(element), text).getCenter();
     scene.press(scene.pixel(middle[0], middle[1]));
     scene.release(SbVec2s(Scene::width - 2, 2));
     scene.key(isFirst ? SoKeyboardEvent::RIGHT_ARROW : SoKeyboardEvent::LEFT_ARROW);
   }},
  {"pushButtonLauncher", ROW,
   "DialogPushButtonLauncher { auditorID \"$\" buttonLabel \"$\" TopLevelDialog { DialogLabel { label \"$\" } } }",
   pushButton.inWindow, pushButton.inScene},
  {"checkBoxLauncher", ROW, "DialogCheckBoxLauncher { auditorID \"$\" TopLevelDialog { DialogLabel { label \"$\" } } }",
   checkBox.inWindow, checkBox.inScene},
  {"menuPushButton", MENU, "MenuPushButton { auditorID \"$\" label \"$\" }", chooseEntry, chooseEntry},
  {"menuPushButtonByShortcut", MENU, "MenuPushButton { auditorID \"$\" label \"$\" accelerator \"Ctrl+$\" }",
   pressShortcut, nullptr},
  {"menuCheckBox", MENU, "MenuCheckBox { auditorID \"$\" label \"$\" }", chooseEntry, chooseEntry},
  {"menuCheckBoxByShortcut", MENU, "MenuCheckBox { auditorID \"$\" label \"$\" accelerator \"Ctrl+$\" }", pressShortcut,
   nullptr},
  {"menuRadioButtons", MENU, "MenuRadioButtons { auditorID \"$\" items [ \"$0\", \"$1\" ] }", chooseEntry, chooseEntry},
  {"menuFileSelection", MENU, file, chooseAndCancel<chooseEntry>,
   [](Scene& scene, SoQuillform* element) {
     FileDialogUser user;
     user.then(FileDialogUser::cancel);
     chooseEntry(scene, element);
   }},
  {"menuFileSelectionByShortcut", MENU, file, chooseAndCancel<pressShortcut>, nullptr},
  {"menuPushButtonLauncher", MENU,
   "MenuPushButtonLauncher { auditorID \"$\" label \"$\" TopLevelDialog { DialogLabel { label \"$\" } } }", chooseEntry,
   chooseEntry},
  {"menuCheckBoxLauncher", MENU,
   "MenuCheckBoxLauncher { auditorID \"$\" label \"$\" TopLevelDialog { DialogLabel { label \"$\" } } }", chooseEntry,
   chooseEntry},
};

std::string elementText(const Kind& kind, const std::string& id)
{
  std::string text = kind.element;
  for (std::size_t at = text.find('$'); at != std::string::npos; at = text.find('$')) {
    text.replace(at, 1, id);
  }
  return text + " ";
}

/// A child of a dialog with the second element of a kind, "b", alone.
std::string textWithSecond(const Kind& kind)
{
  const std::string second = elementText(kind, "b");
  return kind.place == MENU ? "MenuBar { MenuPopup { label \"menu\" " + second + "} } " : second;
}

/// A dialog with an element "a" inside a container "group", and an element "b" outside it.
std::string textOf(const Kind& kind)
{
  const std::string group = "auditorID \"group\" label \"group\" " + elementText(kind, "a");
  const std::string beside = "DialogLabel { label \"beside\" } ";
  switch (kind.place) {
  case ROW:
    return "TopLevelDialog { " + textWithSecond(kind) + "RowDialog { " + group + beside + "} " + beside + "}";
  case PAGE:
    return "TopLevelDialog { " + textWithSecond(kind) + "TabDialog { RowDialog { " + group +
           "} RowDialog { label \"second\" " + beside + "} } }";
  case LAUNCHED:
    return "TopLevelDialog { " + textWithSecond(kind) + beside +
           "DialogCheckBoxLauncher { state TRUE TopLevelDialog { " + group + "} } }";
  default:
    return "TopLevelDialog { MenuBar { MenuPopup { label \"menu\" " + elementText(kind, "b") + "MenuPopup { " + group +
           "} } } " + beside + "}";
  }
}

int countElements(const SoQuillform* element)
{
  const SoChildElements* children = element->getChildElements();
  int count = 1;
  for (int i = 0; children && i < children->getNum(); i++) {
    count += countElements(children->get(i));
  }
  return count;
}

void removeFromParent(SoQuillform* element)
{
  SoChildElements* siblings = element->getParent()->getChildElements();
  siblings->remove(siblings->find(element));
}

/// Runs something as an application runs it, in a loop of events, so that what is to be deleted later is.
void inEventLoop(const std::function<void()>& call)
{
  QEventLoop loop;
  QTimer::singleShot(0, &loop, [&] {
    call();
    loop.quit();
  });
  loop.exec();
  settle();
}

/// Who hears of "a": an auditor of its own, one of the container around it, or one of the dialog.
enum Hearer { OWN, GROUP, DIALOG };

/// The hearers that there are for a kind.
std::vector<Hearer> hearersOf(const Kind& kind)
{
  if (kind.element == tabs) {
    return {OWN};
  }
  return kind.place == MENU ? std::vector<Hearer>{OWN, DIALOG} : std::vector<Hearer>{OWN, GROUP, DIALOG};
}

/// All kinds that a user can operate by a window, or in the scene.
std::vector<const Kind*> kindsBy(bool byWindow)
{
  std::vector<const Kind*> found;
  for (const Kind& kind : kinds) {
    if (byWindow ? kind.inWindow != nullptr : kind.inScene != nullptr) {
      found.push_back(&kind);
    }
  }
  return found;
}

} // namespace

/// An auditor does to the dialog what it likes, in the callback of every kind of element.
class ReentrancyMatrixTest : public QuillformTest, public ::testing::WithParamInterface<std::tuple<const Kind*, Form>> {
protected:
  const Kind& kind() const
  {
    return *std::get<0>(GetParam());
  }
  Form form() const
  {
    return std::get<1>(GetParam());
  }

  struct Action {
    const char* name;
    void (ReentrancyMatrixTest::*act)();
  };
  static const std::vector<Action> actions;

  static void openWindow(SoTopLevelDialog* opened)
  {
    opened->buildDialog(nullptr, FALSE);
    opened->show();
  }

  void open(SoTopLevelDialog* opened)
  {
    if (hasWindow(form())) {
      openWindow(opened);
    }
    if (hasScene(form())) {
      scene->open(opened);
    }
  }

  SoQuillform* get(const char* id)
  {
    return dialog ? dialog->searchForAuditorId(id) : nullptr;
  }

  /// The user makes an element call its auditors.
  void use(const char* id)
  {
    SoQuillform* element = get(id);
    ASSERT_NE(element, nullptr) << id;
    inEventLoop([&] { isByWindow(form()) ? kind().inWindow(element) : kind().inScene(*scene, element); });
  }

  /// Expects that what is left of the dialog shows what its fields say, and works.
  void expectAlive()
  {
    if (hasWindow(form()) && !dialog->getWidget()) {
      inEventLoop([this] { openWindow(dialog); });
      if (kind().place == LAUNCHED) { // what a dialog has launched closes with its window
        as<SoDialogCheckBoxLauncher>(get("group")->getParent())->state = TRUE;
      }
    }
    for (const std::string& fault : Agreement::checkElements(dialog)) {
      ADD_FAILURE() << fault;
    }
    for (const char* id : {"a", "b"}) { // what "b" launches may cover "a"
      if (get(id)) {
        heard->ids.clear();
        use(id);
        EXPECT_EQ(heard->ids, Names{id});
      }
    }
  }

  void run(const Action& action)
  {
    const int before = SoQuillform::getInstanceCount();
    Scene ownScene;
    HeardElements ownHeard;
    scene = &ownScene;
    heard = &ownHeard;
    another = nullptr;
    gone = 0;
    dialog = load(textOf(kind()));
    ASSERT_NE(dialog, nullptr);
    addAuditors();
    inEventLoop([this] { open(dialog); });
    const int opened = SoQuillform::getInstanceCount();
    heard->action = [this, &action, isDone = false]() mutable {
      if (!std::exchange(isDone, true)) {
        (this->*action.act)();
      }
    };
    use("a");
    EXPECT_EQ(heard->ids, Names{"a"});
    EXPECT_EQ(SoQuillform::getInstanceCount(), opened - gone);
    if (!SoQuillform::isInitialized()) {
      heard->ids.clear();
      use("b");
      EXPECT_LE(heard->ids.size(), 1U); // the classes are not registered any more; it must be safe
      inEventLoop([this] { closeAndRelease(); });
      start();
    }
    else if (dialog) {
      expectAlive();
      inEventLoop([this] { closeAndRelease(); });
    }
    if (another) {
      dialog = another;
      inEventLoop([this] { closeAndRelease(); });
    }
    EXPECT_EQ(SoQuillform::getInstanceCount(), before);
  }

  void addAuditors()
  {
    if (hearer == OWN) {
      heard->hearOwn(get("a"));
      heard->hearOwn(get("b"));
    }
    else if (auto* group = dynamic_cast<SoDialogGroup*>(get("group")); group && hearer == GROUP) {
      group->addAuditor(heard);
    }
    else if (auto* launched = dynamic_cast<SoTopLevelDialog*>(get("group")); launched && hearer == GROUP) {
      launched->addAuditor(heard);
    }
    dialog->addAuditor(heard);
  }

  // What auditors do

  void removeTheCaller()
  {
    gone = countElements(get("a"));
    removeFromParent(get("a"));
  }

  void removeTheCallerAndOpenAMessageBox()
  {
    removeTheCaller();
    openAMessageBox();
  }

  void removeItsParent()
  {
    gone = countElements(get("group"));
    removeFromParent(get("group"));
  }

  void removeAllChildren()
  {
    gone = countElements(dialog) - 1;
    dialog->removeAllChildren();
    SoNode* added = readText(textWithSecond(kind()));
    dialog->addChild(static_cast<SoTopComponent*>(added));
    added->unref(); // the dialog holds it
    gone -= countElements(static_cast<SoQuillform*>(added));
    if (hearer == OWN) {
      heard->hearOwn(get("b"));
    }
  }

  void closeAndRelease()
  {
    gone = countElements(dialog);
    if (hasScene(form())) {
      scene->root()->removeChild(dialog);
    }
    std::exchange(dialog, nullptr)->close();
  }

  void destroyAndBuildAgain()
  {
    dialog->destroyWidget();
    if (hasWindow(form())) {
      openWindow(dialog);
    }
  }

  void rebuild()
  {
    dialog->updateAfterSceneGraphChange();
  }

  void loadAndOpenAnotherFile()
  {
    another = load("TopLevelDialog { position3D 400 0 0 DialogPushButton { buttonLabel \"another\" } }");
    ASSERT_NE(another, nullptr);
    gone = -countElements(another);
    open(another);
  }

  void haveItsWindowDeleted()
  {
    if (hasWindow(form())) {
      dialog->getWidget()->deleteLater();
    }
  }

  void openAMessageBox()
  {
    MessageUser user;
    auto* message = new SoMessageDialog("A text", "Title", SoMessageDialog::MD_WARNING);
    message->ref();
    message->unref();
    EXPECT_EQ(user.boxes.size(), 1U);
  }

  void finish()
  {
    dialog->ref(); // the file cache's is the other one
    while (SoQuillform::isInitialized()) {
      SoQuillform::finish();
    }
  }

  SoTopLevelDialog* dialog = nullptr; ///< nullptr when it has been released
  SoTopLevelDialog* another = nullptr;
  Scene* scene = nullptr;
  HeardElements* heard = nullptr;
  Hearer hearer = DIALOG;
  int gone = 0; ///< so many elements have been removed
};

const std::vector<ReentrancyMatrixTest::Action> ReentrancyMatrixTest::actions = {
  {"removeTheCaller", &ReentrancyMatrixTest::removeTheCaller},
  {"removeTheCallerAndOpenAMessageBox", &ReentrancyMatrixTest::removeTheCallerAndOpenAMessageBox},
  {"removeItsParent", &ReentrancyMatrixTest::removeItsParent},
  {"removeAllChildren", &ReentrancyMatrixTest::removeAllChildren},
  {"closeAndRelease", &ReentrancyMatrixTest::closeAndRelease},
  {"destroyAndBuildAgain", &ReentrancyMatrixTest::destroyAndBuildAgain},
  {"haveItsWindowDeleted", &ReentrancyMatrixTest::haveItsWindowDeleted},
  {"rebuild", &ReentrancyMatrixTest::rebuild},
  {"loadAndOpenAnotherFile", &ReentrancyMatrixTest::loadAndOpenAnotherFile},
  {"openAMessageBox", &ReentrancyMatrixTest::openAMessageBox},
  {"finish", &ReentrancyMatrixTest::finish},
};

TEST_P(ReentrancyMatrixTest, anAuditorMayDoAnything)
{
  // Over the four forms, everybody who may hear does everything.
  const std::vector<Hearer> hearers = hearersOf(kind());
  for (std::size_t i = 0; i < actions.size(); i++) {
    hearer = hearers[(i + static_cast<std::size_t>(form())) % hearers.size()];
    SCOPED_TRACE(std::string(actions[i].name) + ", hearer " + std::to_string(hearer));
    run(actions[i]);
  }
}

std::string nameOf(const ::testing::TestParamInfo<std::tuple<const Kind*, Form>>& info)
{
  return std::string(std::get<0>(info.param)->name) + "_" + ::testing::PrintToString(std::get<1>(info.param));
}

INSTANTIATE_TEST_SUITE_P(ByWindow, ReentrancyMatrixTest,
                         ::testing::Combine(::testing::ValuesIn(kindsBy(true)),
                                            ::testing::Values(WINDOW, BOTH_BY_WINDOW)),
                         nameOf);
INSTANTIATE_TEST_SUITE_P(InScene, ReentrancyMatrixTest,
                         ::testing::Combine(::testing::ValuesIn(kindsBy(false)),
                                            ::testing::Values(SCENE, BOTH_BY_SCENE)),
                         nameOf);
