#include <Quillform/core/So3DKeyboard.h>

#include <Inventor/actions/SoHandleEventAction.h>
#include <Inventor/events/SoKeyboardEvent.h>
#include <Inventor/events/SoMouseButtonEvent.h>
#include <Inventor/nodes/SoBaseColor.h>
#include <Inventor/nodes/SoDrawStyle.h>
#include <Inventor/nodes/SoLightModel.h>
#include <Inventor/nodes/SoLineSet.h>
#include <Inventor/nodes/SoPickStyle.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoVertexProperty.h>
#include <Quillform/core/SoEventScope.h>
#include <Quillform/core/SoQuillform.h>
#include <Quillform/core/SoReadingOrder.h>
#include <Quillform/platform/SoShiftTabFilter.h>
#include <algorithm>

namespace {

constexpr float outlineHeight = 3.0F; // over the element's plane

/// One user has one keyboard.
struct Keyboard {
  SoQuillform* root = nullptr;        // the dialog that was pressed last
  SoQuillform* element = nullptr;     // in it, the one that has the keyboard
  SoSwitch* outlined = nullptr;       // the element's geometry while it holds the outline
  SoSeparator* outline = nullptr;     // made on first use, kept
  int heldKey = SoKeyboardEvent::ANY; // went down and was used, did not go up yet
  bool wasTaken = false;              // during the event that is on its way
};
Keyboard s_keyboard;

void hideOutline()
{
  if (s_keyboard.outlined) {
    const int index = s_keyboard.outlined->findChild(s_keyboard.outline);
    if (index >= 0) {
      s_keyboard.outlined->removeChild(index);
    }
    s_keyboard.outlined = nullptr;
  }
}

void createOutline()
{
  s_keyboard.outline = new SoSeparator;
  s_keyboard.outline->ref();
  s_keyboard.outline->setName("KeyboardOutline");
  auto* pickStyle = new SoPickStyle;
  pickStyle->style = SoPickStyle::UNPICKABLE;
  auto* lightModel = new SoLightModel;
  lightModel->model = SoLightModel::BASE_COLOR;
  auto* color = new SoBaseColor;
  color->rgb = SbColor(0.16F, 0.5F, 0.87F); // seen well on light and on dark skins
  auto* drawStyle = new SoDrawStyle;
  drawStyle->style = SoDrawStyle::LINES;
  drawStyle->lineWidth = 1.5F;
  auto* lines = new SoLineSet;
  lines->vertexProperty = new SoVertexProperty;
  for (SoNode* node : {static_cast<SoNode*>(pickStyle), static_cast<SoNode*>(lightModel), static_cast<SoNode*>(color),
                       static_cast<SoNode*>(drawStyle), static_cast<SoNode*>(lines)}) {
    s_keyboard.outline->addChild(node);
  }
}

void placeOutline()
{
  float left = 0.0F;
  float bottom = 0.0F;
  float right = 0.0F;
  float top = 0.0F;
  s_keyboard.element->getKeyboardBox3D().getBounds(left, bottom, right, top);
  const SbVec3f corners[] = {SbVec3f(left, top, outlineHeight), SbVec3f(right, top, outlineHeight),
                             SbVec3f(right, bottom, outlineHeight), SbVec3f(left, bottom, outlineHeight),
                             SbVec3f(left, top, outlineHeight)};
  auto* lines = static_cast<SoLineSet*>(s_keyboard.outline->getChild(s_keyboard.outline->getNumChildren() - 1));
  auto* vertices = static_cast<SoVertexProperty*>(lines->vertexProperty.getValue());
  vertices->vertex.setValues(0, 5, corners);
}

void showOutline()
{
  if (!s_keyboard.element || s_keyboard.outlined) {
    return;
  }
  if (!s_keyboard.outline) {
    createOutline();
  }
  placeOutline();
  s_keyboard.outlined = s_keyboard.element->getGeometrySwitch();
  s_keyboard.outlined->addChild(s_keyboard.outline);
}

/// The dialog in which the keyboard is keeps it; its next Tab begins at the first element.
void dropElement()
{
  hideOutline();
  s_keyboard.element = nullptr;
}

void leave()
{
  dropElement();
  s_keyboard.root = nullptr;
}

bool isUsable(const SoQuillform* element)
{
  return element->takesKeys3D();
}

} // namespace

SoQuillform* So3DKeyboard::getElement()
{
  return s_keyboard.element;
}

void So3DKeyboard::take(SoQuillform* element)
{
  SoShiftTabFilter::install();
  s_keyboard.wasTaken = true;
  s_keyboard.heldKey = SoKeyboardEvent::ANY; // it may have gone up when its dialog was not in the scene any more
  if (element == s_keyboard.element) {
    return;
  }
  dropElement();
  s_keyboard.root = SoReadingOrder::getRoot(element);
  s_keyboard.element = isUsable(element) ? element : nullptr;
}

void So3DKeyboard::release(const SoQuillform* element)
{
  for (const SoQuillform* around = s_keyboard.element; around; around = around->getParent()) {
    if (around == element) {
      dropElement();
      break;
    }
  }
  if (s_keyboard.root == element) {
    s_keyboard.root = nullptr;
  }
}

void So3DKeyboard::updateOutline(const SoQuillform* element)
{
  if (s_keyboard.outlined && s_keyboard.element == element) {
    placeOutline();
  }
}

void So3DKeyboard::beginEvent(SoHandleEventAction* action)
{
  if (SO_MOUSE_PRESS_EVENT(action->getEvent(), BUTTON1)) {
    s_keyboard.wasTaken = false;
  }
}

void So3DKeyboard::endEvent(SoQuillform* root, SoHandleEventAction* action)
{
  const SoEvent* event = action->getEvent();
  if (SO_MOUSE_PRESS_EVENT(event, BUTTON1) && !s_keyboard.wasTaken && s_keyboard.root == root) {
    leave();
  }
  if (!event->isOfType(SoKeyboardEvent::getClassTypeId()) || action->isHandled()) {
    return;
  }
  const auto* keyEvent = static_cast<const SoKeyboardEvent*>(event);
  const int key = keyEvent->getKey();
  if (keyEvent->getState() == SoButtonEvent::UP) {
    if (key == s_keyboard.heldKey && key != SoKeyboardEvent::ANY) {
      s_keyboard.heldKey = SoKeyboardEvent::ANY;
      action->setHandled();
    }
  }
  else if (s_keyboard.root == root && pressKey(action)) {
    s_keyboard.heldKey = key;
    action->setHandled();
  }
}

bool So3DKeyboard::isOutlined()
{
  return s_keyboard.outlined;
}

bool So3DKeyboard::pressKey(SoHandleEventAction* action)
{
  const auto* event = static_cast<const SoKeyboardEvent*>(action->getEvent());
  const int key = event->getKey();
  if (event->wasCtrlDown() || event->wasAltDown()) {
    return false;
  }
  if (key == SoKeyboardEvent::TAB) {
    return moveBy(event->wasShiftDown() ? -1 : 1, action);
  }
  SoQuillform* element = s_keyboard.element;
  if (!element || !isUsable(element)) {
    return false;
  }
  if (isPress(event) && key == s_keyboard.heldKey) {
    return true; // a key that is held down presses once
  }
  const SoEventScope scope(element, action);
  if (element->pressKey3D(event)) {
    showOutline();
    return true;
  }
  if (key == SoKeyboardEvent::ESCAPE && s_keyboard.outlined) {
    leave();
    return true;
  }
  return false;
}

bool So3DKeyboard::moveBy(int step, SoHandleEventAction* action)
{
  std::vector<SoQuillform*> elements = SoReadingOrder::getElements(s_keyboard.root);
  if (step < 0) {
    std::reverse(elements.begin(), elements.end());
  }
  const auto current = std::find(elements.begin(), elements.end(), s_keyboard.element);
  if (current != elements.end()) {
    std::rotate(elements.begin(), current + 1, elements.end()); // behind the last one comes the first one
  }
  const auto next = std::find_if(elements.begin(), elements.end(), isUsable);
  if (next == elements.end()) {
    return false;
  }
  const SoEventScope scope(*next, action);
  SoQuillform::set3DCurrentActive(nullptr); // as a press elsewhere ends what was begun
  // The auditors of the element that was active until now may have done anything.
  if (SoReadingOrder::getRoot(*next) == s_keyboard.root && isUsable(*next)) {
    dropElement();
    s_keyboard.element = *next;
    showOutline();
  }
  return true;
}

bool So3DKeyboard::isPress(const SoKeyboardEvent* event)
{
  const int key = event->getKey();
  return key == SoKeyboardEvent::SPACE || key == SoKeyboardEvent::RETURN || key == SoKeyboardEvent::PAD_ENTER;
}

int So3DKeyboard::step(const SoKeyboardEvent* event, int index, int count, int page)
{
  if (count <= 0) {
    return -1;
  }
  int to = index;
  switch (event->getKey()) {
  case SoKeyboardEvent::LEFT_ARROW:
  case SoKeyboardEvent::UP_ARROW:
    to -= 1;
    break;
  case SoKeyboardEvent::RIGHT_ARROW:
  case SoKeyboardEvent::DOWN_ARROW:
    to += 1;
    break;
  case SoKeyboardEvent::PAGE_UP:
    to -= page;
    break;
  case SoKeyboardEvent::PAGE_DOWN:
    to += page;
    break;
  case SoKeyboardEvent::HOME:
    to = 0;
    break;
  case SoKeyboardEvent::END:
    to = count - 1;
    break;
  default:
    return -1;
  }
  return std::clamp(to, 0, count - 1);
}
