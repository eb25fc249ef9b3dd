#include <Quillform/core/SoReadingOrder.h>

#include <QWidget>
#include <Quillform/core/SoChildElements.h>
#include <Quillform/core/SoDialogComponent.h>
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
  Places places;
  for (SoQuillform* element : getElements(root)) {
    if (element->isOfType(SoDialogComponent::getClassTypeId())) {
      places.emplace(static_cast<SoDialogComponent*>(element)->getWidget(), static_cast<int>(places.size()));
    }
  }
  std::vector<Stop> stops;
  const QWidget* window = inside->window();
  for (QWidget* widget = window->nextInFocusChain(); widget != window; widget = widget->nextInFocusChain()) {
    const int place = widget->focusPolicy() != Qt::NoFocus && !widget->focusProxy() ? findPlace(places, widget) : -1;
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
