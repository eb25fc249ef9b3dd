#include "MousePointer.h"

#include "DialogScene.h"
#include "Failure.h"
#include "QuietQt.h"
#include <Inventor/SbViewportRegion.h>
#include <Inventor/actions/SoHandleEventAction.h>
#include <Inventor/events/SoMouseButtonEvent.h>
#include <Inventor/nodes/SoSeparator.h>
#include <QApplication>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPainter>
#include <QWindow>
#include <Quillform/containers/SoTopLevelDialog.h>
#include <Quillform/controls/SoDialogCheckBox.h>
#include <Quillform/core/SoDialogComponent.h>
#include <Quillform/menus/SoMenuPopup.h>

namespace {

/// A platform without a display says that it can neither raise a list nor grab the keyboard for it; only when it ends
/// the program, this is said.
const char* const cannotOperate = "The window cannot be operated here; draw it on a display.";

[[noreturn]] void failOutOfSight(const SoQuillform* element)
{
  throw Failure(Failure::BAD_FILE, QString("The element with auditorID \"%1\" is not in sight and cannot be pressed; "
                                           "open the page or the menu that it stands in.")
                                     .arg(QString::fromLatin1(element->auditorID.getValue().getString())));
}

/// Where a control beside its label is pressed, from its middle: a check box is only its mark and its text.
SbVec2i32 getPlace(const SoDialogComponent* element, const SbVec2i32& controlSize)
{
  constexpr int mark = 8; // from the left end
  return {dynamic_cast<const SoDialogCheckBox*>(element) ? mark - controlSize[0] / 2 : 0, 0};
}

/// Where an element is pressed in the window, and the window of its own that it stands in.
struct Target {
  QWidget* widget = nullptr;
  QPoint place; // in the widget
};

Target findTarget(const SoDialogComponent* component)
{
  SbVec2i32 size(0, 0);
  SbVec2i32 corner(0, 0);
  component->get2DComponentSize(size, corner);
  const SbVec2i32 place = corner + SbVec2i32(size[0] / 2, size[1] / 2) + getPlace(component, size);
  return {component->getWidget(), QPoint(place[0], place[1])};
}

/// The title of a menu, in the bar or in the menu around it.
Target findTarget(const SoMenuPopup* popup)
{
  QAction* title = popup->getMenu() ? popup->getMenu()->menuAction() : nullptr;
  QWidget* around = title ? title->associatedWidgets().value(0) : nullptr;
  if (const auto* bar = qobject_cast<QMenuBar*>(around)) {
    return {around, bar->actionGeometry(title).center()};
  }
  const auto* menu = qobject_cast<QMenu*>(around);
  return {around, menu ? menu->actionGeometry(title).center() : QPoint()};
}

Target findTarget(const SoQuillform* element)
{
  const auto* popup = dynamic_cast<const SoMenuPopup*>(element);
  const Target target = popup ? findTarget(popup) : findTarget(static_cast<const SoDialogComponent*>(element));
  if (!target.widget || !target.widget->isVisible()) {
    failOutOfSight(element);
  }
  return target;
}

/// Where an element is pressed in the scene, from its origin.
SbVec3f getPlace3D(const SoQuillform* element)
{
  const auto* component = dynamic_cast<const SoDialogComponent*>(element);
  if (!component) {
    return {0.0F, 0.0F, 0.0F};
  }
  SbVec2i32 size(0, 0);
  SbVec2i32 middle(0, 0);
  component->get3DComponentSize(size, middle);
  const SbVec2i32 place = middle + getPlace(component, size);
  return {static_cast<float>(place[0]), static_cast<float>(place[1]), 0.0F};
}

/// Gives a mouse event to the window system's own window, which finds the widget for it.
void send(QWindow* window, QEvent::Type type, const QPoint& global)
{
  const QPoint local = window->mapFromGlobal(global);
  const Qt::MouseButtons buttons = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
  QMouseEvent event(type, local, global, Qt::LeftButton, buttons, Qt::NoModifier);
  QApplication::sendEvent(window, &event);
  QApplication::processEvents();
}

void send(SoHandleEventAction& action, SoNode* root, SoButtonEvent::State state, const SbVec2s& at)
{
  SoMouseButtonEvent event;
  event.setButton(SoMouseButtonEvent::BUTTON1);
  event.setState(state);
  event.setPosition(at);
  action.setEvent(&event);
  action.apply(root);
}

} // namespace

MousePointer::MousePointer(SoTopLevelDialog* dialog, const Options& options) : m_file(options.files.value(0))
{
  add(dialog, options.click, "click", true);
  add(dialog, options.press, "press", false);
}

void MousePointer::add(SoTopLevelDialog* dialog, const QString& id, const char* option, bool isReleased)
{
  if (id.isEmpty()) {
    return;
  }
  SoQuillform* found = dialog->searchForAuditorId(id.toLatin1().constData());
  if (!dynamic_cast<SoDialogComponent*>(found) && !dynamic_cast<SoMenuPopup*>(found)) {
    throw Failure(
      Failure::BAD_FILE,
      QString("\"%1\" holds no element with auditorID \"%2\" that could be pressed; correct the ID after --%3.")
        .arg(m_file, id, option));
  }
  m_presses.push_back({found, isReleased});
}

void MousePointer::useIn(QWidget* window) const
{
  if (m_presses.empty()) {
    return;
  }
  const QuietQt quiet(cannotOperate);
  QApplication::setActiveWindow(window); // else nothing has the focus
  for (const Press& press : m_presses) {
    const Target target = findTarget(press.element);
    const QPoint at = target.widget->mapToGlobal(target.place);
    QWindow* system = target.widget->window()->windowHandle();
    send(system, QEvent::MouseButtonPress, at);
    if (press.isReleased) {
      send(system, QEvent::MouseButtonRelease, at);
    }
  }
}

QImage MousePointer::grab(QWidget* window)
{
  const QRect frame(window->mapToGlobal(QPoint(0, 0)), window->size());
  QRect seen = frame;
  std::vector<QWidget*> opened;
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    if (widget != window && widget->isVisible() && widget->windowType() == Qt::Popup) {
      opened.push_back(widget);
      seen |= widget->geometry();
    }
  }
  QImage picture = window->grab().toImage();
  if (opened.empty() || picture.isNull()) {
    return picture;
  }
  const qreal ratio = picture.devicePixelRatio();
  QImage whole(seen.size() * ratio, QImage::Format_ARGB32_Premultiplied);
  whole.setDevicePixelRatio(ratio);
  whole.fill(Qt::transparent);
  QPainter painter(&whole);
  painter.drawImage(frame.topLeft() - seen.topLeft(), picture);
  for (QWidget* widget : opened) {
    painter.drawImage(widget->geometry().topLeft() - seen.topLeft(), widget->grab().toImage());
  }
  const QuietQt quiet(cannotOperate);
  for (QWidget* widget : opened) {
    widget->close(); // else it gives the keyboard back at the end, and says so
  }
  return whole;
}

void MousePointer::useIn(DialogScene& scene, const QSize& picture) const
{
  if (m_presses.empty()) {
    return;
  }
  scene.fit(picture);
  SoHandleEventAction action(
    SbViewportRegion(static_cast<short>(picture.width()), static_cast<short>(picture.height())));
  for (const Press& press : m_presses) {
    if (!press.element->isShown3D()) {
      failOutOfSight(press.element);
    }
    const SbVec2s at = scene.project(press.element->get3DParentTranslation() + getPlace3D(press.element), picture);
    send(action, scene.getRoot(), SoButtonEvent::DOWN, at);
    if (press.isReleased) {
      send(action, scene.getRoot(), SoButtonEvent::UP, at);
    }
  }
  scene.look(); // a list that has opened may reach beyond the dialog
}
