#include <Quillform/menus/So3DMenuKeys.h>

#include <Inventor/events/SoKeyboardEvent.h>
#include <Quillform/core/So3DKeyboard.h>
#include <Quillform/core/SoEventScope.h>
#include <Quillform/menus/SoMenuBar.h>
#include <algorithm>

namespace {

/// The open menu inside \a menu; nullptr when all are closed.
SoMenuPopup* getOpenMenu(const SoMenuPopup* menu)
{
  for (int i = 0; i < menu->getNumChildren(); i++) {
    auto* inner = dynamic_cast<SoMenuPopup*>(menu->getChild(i));
    if (inner && inner->isOpen3D()) {
      return inner;
    }
  }
  return nullptr;
}

} // namespace

std::vector<SoMenuPopup*> So3DMenuKeys::getTitles() const
{
  std::vector<SoMenuPopup*> titles;
  for (int i = 0; i < m_bar->getNumChildren(); i++) {
    if (m_bar->getChild(i)->getNumUsableLines3D() > 0) {
      titles.push_back(m_bar->getChild(i));
    }
  }
  return titles;
}

SoMenuPopup* So3DMenuKeys::getTitle() const
{
  const std::vector<SoMenuPopup*> titles = getTitles();
  auto title =
    std::find_if(titles.begin(), titles.end(), [](const SoMenuPopup* menu) { return menu->isOpen3D() != FALSE; });
  if (title == titles.end()) {
    title = std::find(titles.begin(), titles.end(), m_title);
  }
  if (title == titles.end()) {
    title = titles.begin();
  }
  return title != titles.end() ? *title : nullptr;
}

void So3DMenuKeys::pointerUsed()
{
  m_isOpenedByKey = false;
}

bool So3DMenuKeys::press(const SoKeyboardEvent* event)
{
  SoMenuPopup* menu = getTitle();
  if (!menu) {
    return false;
  }
  m_title = menu;
  if (!menu->isOpen3D()) {
    // Who has closed a menu with the pointer does not expect keys to open it again.
    return So3DKeyboard::isOutlined() && pressInBar(event->getKey(), So3DKeyboard::isPress(event));
  }
  while (SoMenuPopup* inner = getOpenMenu(menu)) {
    menu = inner;
  }
  return pressInMenu(menu, event->getKey(), So3DKeyboard::isPress(event));
}

bool So3DMenuKeys::pressInBar(int key, bool isPress)
{
  switch (key) {
  case SoKeyboardEvent::LEFT_ARROW:
    goTo(-1, false);
    return true;
  case SoKeyboardEvent::RIGHT_ARROW:
    goTo(1, false);
    return true;
  case SoKeyboardEvent::UP_ARROW:
    m_isOpenedByKey = true;
    enter(getTitle(), -1);
    return true;
  default:
    if (!isPress && key != SoKeyboardEvent::DOWN_ARROW) {
      return false;
    }
    m_isOpenedByKey = true;
    enter(getTitle(), 1);
    return true;
  }
}

bool So3DMenuKeys::pressInMenu(SoMenuPopup* menu, int key, bool isPress)
{
  const bool isInner = menu->getParent() != m_bar;
  switch (key) {
  case SoKeyboardEvent::UP_ARROW:
    menu->moveMark3D(-1);
    return true;
  case SoKeyboardEvent::DOWN_ARROW:
    menu->moveMark3D(1);
    return true;
  case SoKeyboardEvent::HOME:
  case SoKeyboardEvent::END:
    menu->mark3D(nullptr, 0);
    menu->moveMark3D(key == SoKeyboardEvent::HOME ? 1 : -1);
    return true;
  case SoKeyboardEvent::RIGHT_ARROW:
    if (auto* inner = dynamic_cast<SoMenuPopup*>(menu->getMarkedItem3D())) {
      enter(inner, 1);
    }
    else {
      goTo(1, true);
    }
    return true;
  case SoKeyboardEvent::LEFT_ARROW:
    if (isInner) {
      leave(menu);
    }
    else {
      goTo(-1, true);
    }
    return true;
  case SoKeyboardEvent::ESCAPE:
    leave(menu);
    if (!isInner) {
      endUse();
    }
    return true;
  default:
    if (isPress) {
      choose(menu);
    }
    return isPress;
  }
}

/// To a neighbouring title, around the ends of the bar.
void So3DMenuKeys::goTo(int step, bool isOpening)
{
  const std::vector<SoMenuPopup*> titles = getTitles();
  const auto here = std::find(titles.begin(), titles.end(), m_title);
  if (here == titles.end() || titles.size() == 1) {
    return;
  }
  const int count = static_cast<int>(titles.size());
  SoMenuPopup* next =
    titles[static_cast<std::size_t>((static_cast<int>(here - titles.begin()) + step + count) % count)];
  m_title = next;
  if (isOpening) {
    enter(next, 1);
  }
  So3DKeyboard::updateOutline(m_bar);
}

/// Opens a menu and goes to its first entry or, for a negative \a step, to its last one.
void So3DMenuKeys::enter(SoMenuPopup* menu, int step)
{
  const SoEventScope scope(menu, SoEventScope::getAction()); // the auditors of what was active may do anything
  menu->open3D();
  menu->moveMark3D(step);
}

void So3DMenuKeys::choose(SoMenuPopup* menu)
{
  SoMenuItem* item = menu->getMarkedItem3D();
  if (auto* inner = dynamic_cast<SoMenuPopup*>(item)) {
    enter(inner, 1);
  }
  else if (item) {
    item->choose3DLine(menu->getMarkedLine3D());
    endUse();
  }
}

/// Closes a menu. The keyboard goes back to its line in the menu around it.
void So3DMenuKeys::leave(SoMenuPopup* menu)
{
  menu->close3D();
  auto* around = dynamic_cast<SoMenuPopup*>(menu->getParent());
  if (around && menu->getNumUsableLines3D() > 0) {
    around->mark3D(menu, 0);
  }
}

/// The menus are closed. Who began with the pointer has no more use for keys here.
void So3DMenuKeys::endUse()
{
  if (!m_isOpenedByKey) {
    So3DKeyboard::release(m_bar);
  }
}
