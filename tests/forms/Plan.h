#ifndef QUILLFORM_TESTS_PLAN_H
#define QUILLFORM_TESTS_PLAN_H

#include <Inventor/SbBox3f.h>
#include <Inventor/SoPath.h>
#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/actions/SoSearchAction.h>
#include <Inventor/nodekits/SoBaseKit.h>
#include <QRectF>
#include <QWidget>
#include <Quillform/Quillform.h>
#include <Quillform/core/SoChildElements.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

/// Where things stand in the two forms of a dialog.
namespace Plan {

/// Border left and right of a dialog's contents in the scene, and the room above them.
constexpr int border = 4;
constexpr int top = 23;

/// The box of \a node, which stands somewhere below \a root, in the coordinates of \a root.
inline SbBox3f boxOf(SoNode* root, SoNode* node)
{
  const SbBool wasSearching = SoBaseKit::isSearchingChildren();
  SoBaseKit::setSearchingChildren(TRUE);
  SoSearchAction search;
  search.setNode(node);
  search.setSearchingAll(TRUE);
  search.apply(root);
  SoBaseKit::setSearchingChildren(wasSearching);
  SoGetBoundingBoxAction measure(SbViewportRegion(800, 600));
  if (!search.getPath()) {
    return SbBox3f();
  }
  measure.apply(search.getPath());
  return measure.getBoundingBox();
}

/// The node of a catalog part, hidden or not; nullptr when it was not made.
inline SoNode* partOf(SoQuillform* element, const char* name)
{
  const auto* field = static_cast<const SoSFNode*>(element->getField(name));
  return field ? field->getValue() : nullptr;
}

/// A box seen from the front, y down.
inline QRectF seen(const SbBox3f& box)
{
  if (box.isEmpty()) {
    return {};
  }
  return {QPointF(box.getMin()[0], -box.getMax()[1]), QPointF(box.getMax()[0], -box.getMin()[1])};
}

/// The rectangle of a component's frame in the scene, from the top-left corner of its dialog's contents.
inline QRectF inScene(SoTopLevelDialog* dialog, SoQuillform* component)
{
  const SbVec3f place = dialog->get3DParentTranslation();
  return seen(boxOf(dialog, partOf(component, "mainCptSeparator"))).translated(-place[0] - border, place[1] - top);
}

/// The rectangle of a component's widget in its window.
inline QRectF inWindow(SoTopLevelDialog* dialog, SoDialogComponent* component)
{
  QWidget* widget = component->getWidget();
  return {QPointF(widget->mapTo(dialog->getWidget(), QPoint(0, 0))), QSizeF(widget->size())};
}

inline std::string toString(const QRectF& rect)
{
  return "(" + std::to_string(rect.x()) + ", " + std::to_string(rect.y()) + ") " + std::to_string(rect.width()) +
         " x " + std::to_string(rect.height());
}

/// The two rectangles are the same to a pixel.
inline ::testing::AssertionResult agree(const QRectF& one, const QRectF& other)
{
  const double most = std::max({std::abs(one.left() - other.left()), std::abs(one.top() - other.top()),
                                std::abs(one.right() - other.right()), std::abs(one.bottom() - other.bottom())});
  constexpr double roundedInTheScene = 0.001; // its numbers have few digits
  if (most <= 1.0 + roundedInTheScene) {
    return ::testing::AssertionSuccess();
  }
  return ::testing::AssertionFailure() << toString(one) << " and " << toString(other);
}

/// \a inner stands inside \a outer, but for a pixel.
inline ::testing::AssertionResult stands(const QRectF& inner, const QRectF& outer)
{
  if (inner.left() >= outer.left() - 1.0 && inner.right() <= outer.right() + 1.0 && inner.top() >= outer.top() - 1.0 &&
      inner.bottom() <= outer.bottom() + 1.0) {
    return ::testing::AssertionSuccess();
  }
  return ::testing::AssertionFailure() << toString(inner) << " is not inside " << toString(outer);
}

/// All components below \a container, depth first; not those of dialogs that it launches, which have their own plans.
inline std::vector<SoDialogComponent*> componentsOf(const SoQuillform* container)
{
  std::vector<SoDialogComponent*> found;
  const SoChildElements* children = container->getChildElements();
  for (int i = 0; children && i < children->getNum(); i++) {
    if (auto* component = dynamic_cast<SoDialogComponent*>(children->get(i))) {
      found.push_back(component);
    }
    if (!children->get(i)->isOfType(SoTopLevelDialog::getClassTypeId())) {
      const std::vector<SoDialogComponent*> inner = componentsOf(children->get(i));
      found.insert(found.end(), inner.cbegin(), inner.cend());
    }
  }
  return found;
}

/// The rectangles of all components in the window.
inline std::vector<QRectF> windowPlan(SoTopLevelDialog* dialog)
{
  std::vector<QRectF> plan;
  for (SoDialogComponent* component : componentsOf(dialog)) {
    plan.push_back(inWindow(dialog, component));
  }
  return plan;
}

/// The rectangles of all components in the scene.
inline std::vector<QRectF> scenePlan(SoTopLevelDialog* dialog)
{
  std::vector<QRectF> plan;
  for (SoDialogComponent* component : componentsOf(dialog)) {
    plan.push_back(inScene(dialog, component));
  }
  return plan;
}

} // namespace Plan

#endif // QUILLFORM_TESTS_PLAN_H
