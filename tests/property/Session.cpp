#include <property/Session.h>

#include <Inventor/events/SoKeyboardEvent.h>
#include <Inventor/events/SoMouseButtonEvent.h>
#include <Inventor/nodes/SoSeparator.h>
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTextEdit>
#include <QWheelEvent>
#include <Quillform/core/SoChildElements.h>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <forms/Plan.h>
#include <gtest/gtest.h>
#include <property/RandomTree.h>
#include <support/Choices.h>
#include <support/SamePlan.h>
#include <support/TestFiles.h>
#include <utility>

extern "C" void __sanitizer_set_death_callback(void (*callback)()) __attribute__((weak));

namespace {

constexpr int mostElements = 14;           // steps with more take long
constexpr std::size_t mostOperations = 12; // that a failure tells

const Session* running = nullptr;

void reportAtDeath()
{
  if (running) {
    std::fprintf(stderr, "%s\n", running->report().c_str());
  }
}

/// What Qt complains about.
Agreement::Faults& complaints()
{
  static Agreement::Faults faults;
  return faults;
}

void hearQt(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message)
{
  // A display without windows in front of each other says so every time; Qt Test warns of places outside a widget.
  if (type != QtDebugMsg && !message.contains("This plugin does not support") && !message.contains("Mouse event")) {
    complaints().push_back("Qt complains: " + message.toStdString());
  }
}

/// Whether an element belongs to a dialog that one of the elements has opened, or may open.
bool isLaunched(const SoTopLevelDialog* dialog, const SoQuillform* element)
{
  for (; element && element != dialog; element = element->getParent()) {
    if (element->isOfType(SoTopLevelDialog::getClassTypeId())) {
      return true;
    }
  }
  return false;
}

/// The texts that the scene shows, element by element. What is open differs from one copy to the next.
std::vector<std::string> describeScene(SoTopLevelDialog* dialog)
{
  std::vector<SoQuillform*> elements = RandomTree::elementsBelow(dialog);
  elements.push_back(dialog);
  std::vector<std::string> lines;
  for (SoQuillform* element : elements) {
    SoNode* geometry = Plan::partOf(element, "geomSwitch");
    const bool isCompared = !element->isOfType(SoDialogEditText::getClassTypeId()) && !isLaunched(dialog, element);
    if (geometry && isCompared) { // the user may have scrolled that
      for (const std::string& text : Choices::textsIn(geometry)) {
        lines.push_back(RandomTree::placeOf(dialog, element) + ": \"" + text + "\"");
      }
    }
  }
  return lines;
}

/// The window has the tabs above the pages whatever the field says.
bool hasTabsElsewhere(const SoTopLevelDialog* dialog)
{
  const std::vector<SoDialogComponent*> components = Plan::componentsOf(dialog);
  return std::any_of(components.cbegin(), components.cend(), [](const SoDialogComponent* component) {
    const auto* tabs = dynamic_cast<const SoTabDialog*>(component);
    return tabs && tabs->tabsLocation.getValue() != SoTabDialog::TOP;
  });
}

const char* nameOf(Session::Form form)
{
  return form == Session::WINDOW ? "window" : form == Session::SCENE ? "scene" : "both";
}

} // namespace

Session::Session(unsigned seed, Form form)
    : m_seed(seed), m_form(form), m_random(seed), m_dialog(RandomTree::dialog(m_random, form == SCENE))
{
  running = this;
  qInstallMessageHandler(hearQt);
  if (__sanitizer_set_death_callback) {
    __sanitizer_set_death_callback(reportAtDeath);
  }
  std::printf("seed %u, form %s\n", m_seed, nameOf(m_form));
  std::fflush(stdout);
  QObject::connect(&m_watchdog, &QTimer::timeout, [] {
    if (QWidget* modal = QApplication::activeModalWidget()) {
      modal->close();
    }
  });
  m_watchdog.start(50);
}

Session::~Session()
{
  m_dialog->removeAuditor(static_cast<SoDialogAuditor*>(this));
  if (hasScene()) {
    m_scene.root()->removeChild(m_dialog);
  }
  m_dialog->unref();
  settle();
  qInstallMessageHandler(nullptr);
  running = nullptr;
}

bool Session::hasWindow() const
{
  return m_form != SCENE;
}

bool Session::hasScene() const
{
  return m_form != WINDOW;
}

// Telling what happened

std::string Session::report() const
{
  std::string text = "QUILLFORM_TEST_SEED=" + std::to_string(m_seed) + " (" + nameOf(m_form) + "), step " +
                     std::to_string(m_step) + "\nThe last operations:\n";
  for (const std::string& operation : m_operations) {
    text += "  " + operation + "\n";
  }
  return text + "The dialog before the last step:\n" + m_before;
}

void Session::begin(const std::string& operation)
{
  m_operations.push_back(std::to_string(m_step) + ": " + operation);
  if (m_operations.size() > mostOperations) {
    m_operations.erase(m_operations.begin());
  }
  if (std::getenv("QUILLFORM_TEST_TRACE")) {
    std::fprintf(stderr, "%s\n", m_operations.back().c_str());
  }
}

void Session::fail(const Agreement::Faults& faults)
{
  for (const std::string& fault : faults) {
    ADD_FAILURE() << fault;
  }
}

// Hearing what the user does

void Session::hear()
{
  ++m_heard;
  if (!m_isUserActing) {
    ADD_FAILURE() << "an auditor was called though no user did anything";
  }
  else if (!m_isAuditorActing && m_random.oneIn(6)) {
    m_isAuditorActing = true;
    m_isUserActing = false;
    changeSomething();
    m_isUserActing = true;
  }
}

void Session::dialogPushButton(SoDialogPushButton* /*cpt*/)
{
  hear();
}
void Session::dialogCheckBox(SoDialogCheckBox* /*cpt*/)
{
  hear();
}
void Session::dialogComboBox(SoDialogComboBox* /*cpt*/)
{
  hear();
}
void Session::dialogEditText(SoDialogEditText* /*cpt*/)
{
  hear();
}
void Session::dialogIntegerSlider(SoDialogIntegerSlider* /*cpt*/)
{
  hear();
}
void Session::dialogRadioButtons(SoDialogRadioButtons* /*cpt*/)
{
  hear();
}
void Session::dialogRealSlider(SoDialogRealSlider* /*cpt*/)
{
  hear();
}
void Session::menuPushButton(SoMenuPushButton* /*cpt*/)
{
  hear();
}
void Session::menuCheckBox(SoMenuCheckBox* /*cpt*/)
{
  hear();
}
void Session::menuFileSelection(SoMenuFileSelection* /*cpt*/)
{
  hear();
}
void Session::menuRadioButtons(SoMenuRadioButtons* /*cpt*/)
{
  hear();
}

// Running

void Session::run(int steps)
{
  build();
  check();
  while (m_step < steps && !::testing::Test::HasFailure()) {
    ++m_step;
    m_before = toText(m_dialog);
    step();
    settle();
    m_isUserActing = false;
    m_isAuditorActing = false;
    check();
  }
  if (!::testing::Test::HasFailure()) {
    m_before = toText(m_dialog);
    compareWithFresh();
  }
  if (::testing::Test::HasFailure()) {
    ADD_FAILURE() << report();
  }
}

void Session::build()
{
  rememberSizes(m_dialog);
  m_before = toText(m_dialog);
  begin("build");
  m_dialog->addAuditor(static_cast<SoDialogAuditor*>(this));
  if (hasWindow()) {
    m_dialog->buildDialog(nullptr, FALSE);
    m_dialog->show();
    settle();
  }
  if (hasScene()) {
    m_scene.open(m_dialog);
    settle();
  }
}

void Session::step()
{
  const int choice = m_random.below(100);
  if (choice < 45) {
    changeSomething();
  }
  else if (choice < 50) {
    compareWithFresh();
  }
  else if (choice < 55) {
    begin("write and read");
    fail(Agreement::checkFile(m_dialog, m_authored));
  }
  else if (hasWindow() && (!hasScene() || m_random.oneIn(2))) {
    useWindow();
  }
  else {
    useScene();
  }
}

void Session::check()
{
  fail(Agreement::checkElements(m_dialog));
  fail(Agreement::checkLimits(m_dialog, false));
  fail(std::exchange(complaints(), {}));
}

// Changes from code

SoQuillform* Session::anyElement()
{
  std::vector<SoQuillform*> elements = RandomTree::elementsBelow(m_dialog);
  elements.push_back(m_dialog);
  return m_random.of(elements);
}

void Session::changeSomething()
{
  const int choice = m_random.below(40);
  if (choice < 26) {
    changeField();
  }
  else if (choice < 36) {
    changeContents();
  }
  else if (choice < 37) {
    switchSkin();
  }
  else if (choice < 38) {
    hideAndShow();
  }
  else {
    rebuild();
  }
}

void Session::rememberSizes(SoQuillform* element)
{
  m_authored[element] = Agreement::sizesOf(element);
  for (SoQuillform* inner : RandomTree::elementsBelow(element)) {
    m_authored[inner] = Agreement::sizesOf(inner);
  }
}

void Session::changeField()
{
  SoQuillform* element = anyElement();
  const RandomTree::Change change = RandomTree::change(m_random, element, m_form == SCENE);
  const std::string name = RandomTree::nameOf(element, change.field);
  begin("set " + RandomTree::placeOf(m_dialog, element) + ": " + name + " " + change.text);
  static const std::vector<std::string> sizes = {"width", "height", "minWidth", "minHeight", "maxWidth", "maxHeight"};
  const auto size = std::find(sizes.cbegin(), sizes.cend(), name);
  if (size != sizes.cend()) {
    m_authored[element][static_cast<std::size_t>(size - sizes.cbegin())] = std::stoi(change.text);
  }
  m_spacingFollows = m_spacingFollows || change.field == &m_dialog->rowSpacing;
  change.apply();
}

void Session::changeContents()
{
  std::vector<SoQuillform*> containers = {m_dialog};
  const std::vector<SoQuillform*> elements = RandomTree::elementsBelow(m_dialog);
  std::copy_if(elements.cbegin(), elements.cend(), std::back_inserter(containers),
               [](SoQuillform* element) { return element->getChildElements() != nullptr; });
  SoQuillform* container = m_random.of(containers);
  SoChildElements* children = container->getChildElements();
  const std::string place = RandomTree::placeOf(m_dialog, container);
  const int index = m_random.below(children->getNum() + 1);
  if (static_cast<int>(elements.size()) >= mostElements || m_random.oneIn(3)) {
    if (m_random.oneIn(12)) {
      begin("remove all children of " + place);
      children->removeAll();
    }
    else {
      begin("remove child " + std::to_string(index) + " of " + place);
      children->remove(index);
    }
    return;
  }
  SoQuillform* made = RandomTree::element(m_random, m_form == SCENE, 1);
  made->ref();
  rememberSizes(made);
  const bool isReplacing = m_random.oneIn(4);
  begin((isReplacing ? "replace child " : "insert child ") + std::to_string(index) + " of " + place + " by\n" +
        toText(made));
  if (isReplacing) {
    children->replace(index, made);
  }
  else {
    children->insert(made, index);
  }
  made->unref();
}

void Session::switchSkin()
{
  const std::string skin = m_random.oneIn(2) ? "dark" : "default";
  begin("switch to the skin " + skin);
  SoQuillform::setSkin(skin.c_str());
}

void Session::hideAndShow()
{
  begin("hide and show");
  m_dialog->hide();
  m_dialog->show3D(0);
  if (m_random.oneIn(2)) {
    changeField();
  }
  m_dialog->show();
  m_dialog->show3D(1);
}

void Session::rebuild()
{
  switch (m_random.below(3)) {
  case 0:
    begin("update after a change of the scene graph");
    m_dialog->updateAfterSceneGraphChange();
    break;
  case 1:
    begin("build again");
    if (hasWindow()) {
      m_dialog->buildDialog(nullptr, FALSE);
    }
    if (hasScene()) {
      SoInSceneMode::setEnabled(TRUE);
      m_dialog->buildDialog(nullptr, FALSE);
      SoInSceneMode::setEnabled(FALSE);
    }
    break;
  default:
    if (hasWindow()) {
      begin("destroy the widgets and build again");
      m_dialog->destroyWidget();
      settle();
      m_dialog->buildDialog(nullptr, FALSE);
      m_dialog->show();
    }
  }
}

void Session::compareWithFresh()
{
  begin("compare with a dialog made anew");
  m_dialog->minimized = FALSE;
  for (SoDialogComponent* element : Plan::componentsOf(m_dialog)) {
    if (auto* slider = dynamic_cast<SoDialogSlider*>(element)) {
      slider->finish3DEditing(); // what is typed and not confirmed is not the value
    }
  }
  m_dialog->updateAfterSceneGraphChange();
  settle();
  fail(Agreement::checkLimits(m_dialog, true));
  Scene scene;
  auto* fresh = static_cast<SoTopLevelDialog*>(m_dialog->copy());
  fresh->ref();
  fresh->width = m_dialog->width.getValue(); // the user may have given the window another size
  fresh->height = m_dialog->height.getValue();
  if (hasWindow()) { // a dialog of any size has no room in memory
    fresh->buildDialog(nullptr, FALSE);
    fresh->show();
    settle();
  }
  scene.open(fresh);
  if (m_spacingFollows) {
    fresh->rowSpacing.touch();
    settle();
    fresh->updateAfterSceneGraphChange(); // the room for its rows is more now
  }
  settle();
  if (hasWindow() && !Plan::componentsOf(fresh).empty() && !hasTabsElsewhere(fresh)) {
    expectSamePlan(fresh, fresh, "the dialog made anew");
    if (hasScene()) {
      expectSamePlan(m_dialog, m_dialog, "the dialog on screen");
    }
  }
  if (hasWindow()) {
    fail(Agreement::compare(Agreement::describeWindow(m_dialog), Agreement::describeWindow(fresh)));
  }
  if (hasScene()) {
    const std::vector<QRectF> plan = Plan::scenePlan(m_dialog);
    const std::vector<QRectF> freshPlan = Plan::scenePlan(fresh);
    for (std::size_t i = 0; i < plan.size(); i++) {
      EXPECT_TRUE(Plan::agree(plan[i], freshPlan[i])) << "frame " << i << ", in the scene and in a scene made anew";
    }
    fail(Agreement::compare(describeScene(m_dialog), describeScene(fresh)));
  }
  scene.root()->removeChild(fresh);
  fresh->unref();
}

// The user at the window

void Session::closePopups()
{
  while (QWidget* popup = QApplication::activePopupWidget()) {
    popup->close();
  }
}

void Session::useWindow()
{
  if (!m_dialog->getWidget()) {
    return;
  }
  const int choice = m_random.below(10);
  if (choice == 0) {
    resizeWindow();
    return;
  }
  if (choice == 1) {
    clickButton();
    return;
  }
  QWidget* base = m_dialog->getWidget();
  QApplication::setActiveWindow(base);
  std::vector<QWidget*> widgets;
  for (QWidget* widget : base->findChildren<QWidget*>()) {
    if (widget->window() == base && widget->isVisible() && widget->width() > 0 && widget->height() > 0) {
      widgets.push_back(widget);
    }
  }
  if (widgets.empty()) {
    return;
  }
  QWidget* widget = m_random.of(widgets);
  const QPoint at(m_random.below(widget->width()), m_random.below(widget->height()));
  const std::string where = std::string(widget->metaObject()->className()) + " " + widget->objectName().toStdString() +
                            " at " + std::to_string(at.x()) + ", " + std::to_string(at.y());
  m_isUserActing = true;
  if (choice < 6) {
    begin("press " + where);
    press(widget, at);
  }
  else if (choice < 9) {
    begin("type into " + where);
    type(widget);
  }
  else {
    begin("turn the wheel over " + where);
    const QPoint turned(0, m_random.oneIn(2) ? 120 : -240);
    QWheelEvent wheel(at, widget->mapToGlobal(at), QPoint(), turned, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(widget, &wheel);
  }
  if (QWidget* popup = QApplication::activePopupWidget()) {
    begin("and choose in the list");
    QTest::keyClick(popup, m_random.oneIn(2) ? Qt::Key_Down : Qt::Key_Up);
    if (QApplication::activePopupWidget() == popup) {
      QTest::keyClick(popup, m_random.oneIn(3) ? Qt::Key_Escape : Qt::Key_Return);
    }
  }
  closePopups();
}

void Session::press(QWidget* widget, const QPoint& at)
{
  // A press on a selected text would drag it, and wait for the end of that.
  for (QLineEdit* edit : m_dialog->getWidget()->findChildren<QLineEdit*>()) {
    edit->deselect();
  }
  for (QTextEdit* edit : m_dialog->getWidget()->findChildren<QTextEdit*>()) {
    QTextCursor cursor = edit->textCursor();
    cursor.clearSelection();
    edit->setTextCursor(cursor);
  }
  QPointer<QWidget> target(widget); // an auditor may take it away
  const Qt::MouseButton button = m_random.oneIn(8) ? Qt::RightButton : Qt::LeftButton;
  QTest::mousePress(target, button, Qt::NoModifier, at);
  for (int i = m_random.oneIn(2) ? 0 : 3; i > 0 && target; i--) {
    QTest::mouseMove(target, QPoint(m_random.below(300) - 50, m_random.below(60) - 20));
  }
  if (target) {
    QTest::mouseRelease(target, button, Qt::NoModifier, m_random.oneIn(6) ? QPoint(-10, -10) : at);
  }
}

void Session::type(QWidget* widget)
{
  static const std::vector<Qt::Key> keys = {
    Qt::Key_A,        Qt::Key_B,         Qt::Key_1,      Qt::Key_2,      Qt::Key_7,   Qt::Key_Return,
    Qt::Key_Enter,    Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Tab,    Qt::Key_Up,  Qt::Key_Down,
    Qt::Key_Left,     Qt::Key_Right,     Qt::Key_Space,  Qt::Key_Home,   Qt::Key_End, Qt::Key_PageUp,
    Qt::Key_PageDown, Qt::Key_Escape,    Qt::Key_Minus,  Qt::Key_Period, Qt::Key_Z};
  widget->setFocus();
  QPointer<QWidget> target(widget);
  for (int i = m_random.between(1, 4); i > 0 && target; i--) {
    QTest::keyClick(target, m_random.of(keys), m_random.oneIn(8) ? Qt::ControlModifier : Qt::NoModifier);
  }
}

void Session::clickButton()
{
  std::vector<QPushButton*> buttons;
  for (QPushButton* button : m_dialog->getWidget()->findChildren<QPushButton*>()) {
    if (button->isVisible() && button->isEnabled() && button->width() > 2 && button->height() > 2) {
      buttons.push_back(button);
    }
  }
  if (buttons.empty()) {
    return;
  }
  begin("click a button");
  const int before = m_heard;
  m_isUserActing = true;
  QPointer<QPushButton> button(m_random.of(buttons));
  QTest::mousePress(button, Qt::LeftButton);
  if (button) {
    QTest::mouseRelease(button, Qt::LeftButton);
  }
  EXPECT_EQ(m_heard, before + 1);
}

void Session::resizeWindow()
{
  const QSize size(m_random.between(1, 700), m_random.between(1, 500));
  begin("resize the window to " + std::to_string(size.width()) + " x " + std::to_string(size.height()));
  m_dialog->getWidget()->resize(size);
}

// The user at the scene

SbVec2s Session::placeInScene()
{
  const std::vector<SoDialogComponent*> components = Plan::componentsOf(m_dialog);
  if (components.empty() || m_random.oneIn(4)) {
    const SbVec3f corner = m_dialog->get3DParentTranslation();
    return m_scene.pixel(corner[0] + static_cast<float>(m_random.between(-5, 300)),
                         corner[1] + static_cast<float>(m_random.between(-300, 5)));
  }
  const SoDialogComponent* component = m_random.of(components);
  const SbVec3f centre = component->get3DParentTranslation();
  const SbVec2i32 half(std::clamp(component->get3DSize()[0] / 2, 0, 400),
                       std::clamp(component->get3DSize()[1] / 2, 0, 400));
  return m_scene.pixel(centre[0] + static_cast<float>(m_random.between(-half[0], half[0])),
                       centre[1] + static_cast<float>(m_random.between(-half[1], half[1])));
}

void Session::sendToScene(SoEvent& event, const SbVec2s& at)
{
  event.setPosition(at);
  m_scene.action().setEvent(&event);
  m_scene.action().apply(m_scene.root());
}

void Session::useScene()
{
  const SbVec2s at = placeInScene();
  const std::string where = std::to_string(at[0]) + ", " + std::to_string(at[1]);
  m_isUserActing = true;
  switch (m_random.below(8)) {
  case 0: {
    begin("turn the wheel over the scene at " + where);
    SoMouseButtonEvent wheel;
    wheel.setButton(m_random.oneIn(2) ? SoMouseButtonEvent::BUTTON4 : SoMouseButtonEvent::BUTTON5);
    wheel.setState(SoButtonEvent::DOWN);
    sendToScene(wheel, at);
    break;
  }
  case 1:
  case 2: {
    const SbVec2s to = placeInScene();
    begin("drag in the scene from " + where + " to " + std::to_string(to[0]) + ", " + std::to_string(to[1]));
    m_scene.press(at);
    m_scene.move(SbVec2s(static_cast<short>((at[0] + to[0]) / 2), static_cast<short>((at[1] + to[1]) / 2)));
    m_scene.move(to);
    m_scene.release(to);
    break;
  }
  case 3:
  case 4:
    begin("click in the scene at " + where + " and type");
    m_scene.click(at);
    typeInScene();
    break;
  default:
    begin("click in the scene at " + where);
    m_scene.click(at);
  }
}

void Session::typeInScene()
{
  static const std::vector<SoKeyboardEvent::Key> keys = {
    SoKeyboardEvent::RETURN,   SoKeyboardEvent::BACKSPACE,  SoKeyboardEvent::ESCAPE,     SoKeyboardEvent::TAB,
    SoKeyboardEvent::PAD_7,    SoKeyboardEvent::PAD_PERIOD, SoKeyboardEvent::LEFT_ARROW, SoKeyboardEvent::RIGHT_ARROW,
    SoKeyboardEvent::UP_ARROW, SoKeyboardEvent::DOWN_ARROW, SoKeyboardEvent::SPACE};
  static const std::vector<char> characters = {'a', 'W', '1', '5', '.', '-', ' ', '\xe9', '"'};
  for (int i = m_random.between(1, 6); i > 0; i--) {
    SoKeyboardEvent event;
    if (m_random.oneIn(3)) {
      event.setKey(m_random.of(keys));
    }
    else {
      event.setKey(SoKeyboardEvent::A);
      event.setPrintableCharacter(m_random.of(characters));
    }
    event.setShiftDown(m_random.oneIn(4));
    for (const SoButtonEvent::State state : {SoButtonEvent::DOWN, SoButtonEvent::UP}) {
      event.setState(state);
      sendToScene(event, m_scene.pixel(0.0F, 0.0F));
    }
  }
}
