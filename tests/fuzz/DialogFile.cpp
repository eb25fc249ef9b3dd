#include <fuzz/DialogFile.h>

#include <Inventor/SoDB.h>
#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/actions/SoRayPickAction.h>
#include <Inventor/events/SoKeyboardEvent.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/sensors/SoSensorManager.h>
#include <QApplication>
#include <QPointer>
#include <QTest>
#include <Quillform/Quillform.h>
#include <Quillform/core/SoChildElements.h>
#include <Quillform/platform/SoBoundedInput.h>
#include <algorithm>
#include <array>
#include <support/Scene.h>
#include <support/TestFiles.h>
#include <vector>

namespace {

// A file may hold more than this, but then nothing new is learnt from the rest.
constexpr std::size_t maxTopElements = 3;
constexpr std::size_t maxOperated = 20;

// Showing a window takes memory for all its pixels.
constexpr int maxShownSize = 2000;

/// Lets everything happen that waits for the event loop.
void happen()
{
  settle();
  SoDB::getSensorManager()->processTimerQueue();
  SoDB::getSensorManager()->processDelayQueue(FALSE);
  settle();
}

void addElementsOf(SoQuillform* element, std::vector<SoQuillform*>& found)
{
  found.push_back(element);
  SoChildElements* children = element->getChildElements();
  for (int i = 0; children && i < children->getNum(); i++) {
    addElementsOf(children->get(i), found);
  }
}

/// \a element and all elements inside it.
std::vector<SoQuillform*> elementsOf(SoQuillform* element)
{
  std::vector<SoQuillform*> found;
  addElementsOf(element, found);
  return found;
}

std::vector<SoQuillform*> topElementsOf(SoSeparator* root)
{
  std::vector<SoQuillform*> found;
  for (int i = 0; i < root->getNumChildren() && found.size() < maxTopElements; i++) {
    if (auto* element = dynamic_cast<SoQuillform*>(root->getChild(i))) {
      found.push_back(element);
    }
  }
  return found;
}

/// A dialog that shows \a element; nullptr when it stands in another one or in none.
SoTopLevelDialog* dialogAround(SoQuillform* element)
{
  auto* dialog = dynamic_cast<SoTopLevelDialog*>(element);
  if (dialog || element->getParent()) {
    return dialog;
  }
  auto* component = dynamic_cast<SoTopComponent*>(element);
  if (auto* item = dynamic_cast<SoMenuItem*>(element)) {
    auto* popup = new SoMenuPopup;
    popup->addChild(item);
    auto* bar = new SoMenuBar;
    bar->addChild(popup);
    component = bar;
  }
  if (component) {
    dialog = new SoTopLevelDialog;
    dialog->addChild(component);
  }
  return dialog;
}

/// An entry that, when it is chosen, waits for a user in a box of its own.
bool waitsForAUser(SoQuillform* dialog)
{
  const std::vector<SoQuillform*> elements = elementsOf(dialog);
  return std::any_of(elements.begin(), elements.end(), [](const SoQuillform* element) {
    return element->isOfType(SoMenuFileSelection::getClassTypeId());
  });
}

/// What the program around the dialog may do at any time.
void changeFromCode(SoQuillform* dialog)
{
  for (SoQuillform* element : elementsOf(dialog)) {
    element->enable = !element->enable.getValue();
    element->label = "changed";
  }
  happen();
}

void closePopups()
{
  for (int i = 0; i < 8 && QApplication::activePopupWidget(); i++) {
    QApplication::activePopupWidget()->close();
  }
}

void operate(QWidget* window)
{
  std::vector<QPointer<QWidget>> widgets;
  for (QWidget* widget : window->findChildren<QWidget*>()) {
    if (widgets.size() < maxOperated && widget->isVisible() && !widget->rect().isEmpty()) {
      widgets.emplace_back(widget);
    }
  }
  for (const QPointer<QWidget>& widget : widgets) {
    if (widget && widget->isVisible()) {
      QTest::mouseClick(widget, Qt::LeftButton);
    }
    for (const Qt::Key key : {Qt::Key_PageDown, Qt::Key_Left, Qt::Key_7, Qt::Key_Return, Qt::Key_Tab}) {
      if (widget && widget->isVisible()) {
        QTest::keyClick(widget, key);
      }
    }
    closePopups();
  }
  happen();
}

/// Whether there is memory to draw the dialog and all that it launches.
bool canBeShown(SoTopLevelDialog* dialog)
{
  const std::vector<SoQuillform*> elements = elementsOf(dialog);
  return std::all_of(elements.begin(), elements.end(), [](SoQuillform* element) {
    auto* opened = dynamic_cast<SoTopLevelDialog*>(element);
    const QWidget* window = opened ? opened->getWidget() : nullptr;
    return !window || (window->width() <= maxShownSize && window->height() <= maxShownSize);
  });
}

void useAsWindow(SoTopLevelDialog* dialog)
{
  dialog->buildAs(nullptr, 1);
  if (canBeShown(dialog)) {
    dialog->show();
    happen();
    if (!waitsForAUser(dialog) && dialog->getWidget()) {
      operate(dialog->getWidget());
    }
  }
  changeFromCode(dialog);
}

void typeInto(Scene& scene)
{
  for (const SoKeyboardEvent::Key key : {SoKeyboardEvent::PAGE_DOWN, SoKeyboardEvent::LEFT_ARROW,
                                         SoKeyboardEvent::NUMBER_7, SoKeyboardEvent::RETURN, SoKeyboardEvent::TAB}) {
    scene.key(key);
  }
}

void useInScene(SoTopLevelDialog* dialog)
{
  Scene scene;
  scene.open(dialog);
  const SbViewportRegion region(Scene::width, Scene::height);
  SoGetBoundingBoxAction measure(region);
  measure.apply(scene.root());
  SoRayPickAction pick(region);
  pick.setPoint(scene.pixel(10.0F, -10.0F));
  pick.apply(scene.root());
  if (!waitsForAUser(dialog)) {
    std::vector<SoQuillform*> elements = elementsOf(dialog);
    elements.resize(std::min(elements.size(), maxOperated));
    for (SoQuillform* element : elements) {
      const SbVec3f place = element->get3DParentTranslation();
      scene.press(scene.pixel(place[0] + 2.0F, place[1] - 2.0F));
      scene.move(scene.pixel(place[0] + 12.0F, place[1] - 5.0F));
      scene.release(scene.pixel(place[0] + 2.0F, place[1] - 2.0F));
      typeInto(scene);
    }
  }
  happen();
  changeFromCode(dialog);
  measure.apply(scene.root());
  scene.root()->removeAllChildren();
}

/// What is wrong with how \a element is written and read again.
std::string writeAndRead(SoQuillform* element)
{
  const std::string text = toText(element);
  for (SoNode* again : {readText(text), throughBinary(element)}) {
    if (!again) {
      return "An element was written that cannot be read:\n" + text;
    }
    const std::string textAgain = toText(again);
    again->unref();
    if (textAgain != text) {
      return "An element is not what it was after it was written and read:\n" + text + "\nhas become\n" + textAgain;
    }
  }
  return {};
}

/// What is wrong with \a element, after it has been used in every way.
std::string useElement(SoQuillform* element)
{
  std::string complaint = writeAndRead(element);
  SoTopLevelDialog* dialog = dialogAround(element);
  if (dialog) {
    dialog->ref();
    useAsWindow(dialog);
    useInScene(dialog); // while the window is there
    dialog->destroyWidget();
    happen();
    useInScene(dialog);
    useAsWindow(dialog);
    dialog->destroyWidget();
    dialog->unref();
    happen();
  }
  return complaint;
}

} // namespace

std::string DialogFile::use(const std::string& bytes)
{
  const int alive = SoQuillform::getInstanceCount();
  std::string complaint;
  SoBoundedInput input;
  input.setBuffer(bytes.data(), bytes.size());
  if (SoSeparator* root = input.readAll()) {
    root->ref();
    for (SoQuillform* element : topElementsOf(root)) {
      const std::string found = useElement(element);
      complaint = complaint.empty() ? found : complaint;
    }
    root->unref();
    happen();
  }
  if (SoQuillform::getInstanceCount() != alive) {
    complaint += "\nElements stay alive: " + std::to_string(SoQuillform::getInstanceCount() - alive);
  }
  for (QWidget* window : QApplication::topLevelWidgets()) {
    complaint += "\nA window stays: " + window->windowTitle().toStdString();
    complaint += std::string(" of class ") + window->metaObject()->className();
  }
  return complaint;
}
