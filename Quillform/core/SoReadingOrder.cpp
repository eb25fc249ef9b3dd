#include <Quillform/core/SoReadingOrder.h>

#include <QWidget>
#include <Quillform/core/SoChildElements.h>
#include <Quillform/core/SoDialogComponent.h>
#include <Quillform/core/SoDialogQFrame.h>
#include <algorithm>
#include <unordered_map>

namespace {

void append(std::vector<SoQuillform*>& elements, SoQuillform* root)
{
  const SoChildElements* children = root->getChildElements();
  for (int i = 0; children && i < children->getNum(); i++) {
    elements.push_back(children->get(i));
    append(elements, children->get(i));
  }
}

/// A widget at which the keyboard stops, and the place of its element.
struct Stop {
  QWidget* widget;
  int place;

  bool operator<(const Stop& other) const
  {
    return place < other.place;
  }
};

typedef std::unordered_map<const QWidget*, int> Places;

/// The place of the element whose frame is the innermost one around \a widget; -1 when there is none.
int findPlace(const Places& places, const QWidget* widget)
{
  for (; widget && !widget->isWindow(); widget = widget->parentWidget()) {
    const auto found = places.find(widget);
    if (found != places.end()) {
      return found->second;
    }
  }
  return -1;
}

bool isStop(const QWidget* widget)
{
  return widget->focusPolicy() != Qt::NoFocus && !widget->focusProxy();
}

/// The innermost relay around \a widget, or the widget itself when it is one.
const QWidget* findRelay(const QWidget* widget)
{
  while (widget && !qobject_cast<const SoDialogQFrame*>(widget)) {
    widget = widget->isWindow() ? nullptr : widget->parentWidget();
  }
  return widget;
}

const QWidget* getFrame(SoQuillform* element)
{
  const bool isComponent = element->isOfType(SoDialogComponent::getClassTypeId());
  return isComponent ? static_cast<SoDialogComponent*>(element)->getWidget() : nullptr;
}

/// Whether the stops are in order already, which they are after most changes; much cheaper than to sort them.
bool isInOrder(const std::vector<SoQuillform*>& elements, const QWidget* window)
{
  auto at = elements.cbegin();
  for (QWidget* widget = window->nextInFocusChain(); widget != window; widget = widget->nextInFocusChain()) {
    const QWidget* relay = isStop(widget) ? findRelay(widget) : nullptr;
    if (relay) {
      at = std::find_if(at, elements.cend(), [relay](SoQuillform* element) { return getFrame(element) == relay; });
      if (at == elements.cend()) {
        return false;
      }
    }
  }
  return true;
}

} // namespace

SoQuillform* SoReadingOrder::getRoot(SoQuillform* element)
{
  while (element->getParent()) {
    element = element->getParent();
  }
  return element;
}

std::vector<SoQuillform*> SoReadingOrder::getElements(SoQuillform* root)
{
  std::vector<SoQuillform*> elements;
  append(elements, root);
  return elements;
}

void SoReadingOrder::applyTo(SoQuillform* root, const QWidget* inside)
{
  const std::vector<SoQuillform*> elements = getElements(root);
  const QWidget* window = inside->window();
  if (isInOrder(elements, window)) {
    return;
  }
  Places places;
  for (SoQuillform* element : elements) {
    if (const QWidget* frame = getFrame(element)) {
      places.emplace(frame, static_cast<int>(places.size()));
    }
  }
  std::vector<Stop> stops;
  for (QWidget* widget = window->nextInFocusChain(); widget != window; widget = widget->nextInFocusChain()) {
    const int place = isStop(widget) ? findPlace(places, widget) : -1;
    if (place >= 0) {
      stops.push_back({widget, place});
    }
  }
  if (std::is_sorted(stops.begin(), stops.end())) {
    return;
  }
  QWidget* const firstSoFar = stops.front().widget;
  std::stable_sort(stops.begin(), stops.end());
  if (stops.front().widget != firstSoFar) {
    // The new first one takes the old one's place among what else is in the window.
    QWidget::setTabOrder(firstSoFar, stops.front().widget);
    QWidget::setTabOrder(stops.front().widget, firstSoFar);
  }
  for (std::size_t i = 1; i < stops.size(); i++) {
    QWidget::setTabOrder(stops[i - 1].widget, stops[i].widget);
  }
}
