#ifndef QUILLFORM_TESTS_OPERATE_H
#define QUILLFORM_TESTS_OPERATE_H

#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoText3.h>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QMouseEvent>
#include <QPointer>
#include <QTest>
#include <Quillform/Quillform.h>
#include <Quillform/platform/SoQtBasicSlider.h>
#include <cmath>
#include <forms/Plan.h>
#include <string>
#include <support/Choices.h>
#include <support/Scene.h>

/// Where the user takes hold of the parts of an element, in a window and in the scene, and what he does there.
namespace Operate {

/// The outermost element around an element.
inline SoTopLevelDialog* dialogOf(SoQuillform* element)
{
  while (element && element->getParent()) {
    element = element->getParent();
  }
  return static_cast<SoTopLevelDialog*>(element);
}

/// Of two entries or pages, the one that is not chosen.
inline int other(const SoSFInt32& chosen)
{
  return chosen.getValue() == 0 ? 1 : 0;
}

// In a window

/// Press and release; the widget may be gone in between.
inline void click(QWidget* widget, const QPoint& at = QPoint())
{
  const QPointer<QWidget> alive(widget);
  QTest::mousePress(widget, Qt::LeftButton, Qt::NoModifier, at);
  if (alive) {
    QTest::mouseRelease(widget, Qt::LeftButton, Qt::NoModifier, at);
  }
}

/// Clicks on the mark of a check box or radio button.
inline void clickMark(QWidget* button)
{
  click(button, QPoint(8, button->height() / 2));
}

/// Opens the list of a combo box and chooses an entry of it.
inline void choose(QComboBox* box, int index)
{
  box->showPopup();
  box->view()->setCurrentIndex(box->model()->index(index, 0));
  QTest::keyClick(box->view(), Qt::Key_Return);
}

inline SoQtBasicSlider* barOf(const SoDialogSlider* slider)
{
  return slider->getWidget()->findChild<SoQtBasicSlider*>();
}

/// The pixel of the bar at which the user holds the thumb at a position.
inline QPoint onBar(const SoDialogSlider* slider, float position)
{
  const int room = barOf(slider)->width() - SoQtBasicSlider::thumbWidth;
  return {SoQtBasicSlider::thumbWidth / 2 + static_cast<int>(std::lround(position * static_cast<float>(room))),
          barOf(slider)->height() / 2};
}

/// Moves the pointer over the bar with the left button down.
inline void moveTo(const SoDialogSlider* slider, float position)
{
  SoQtBasicSlider* bar = barOf(slider);
  const QPoint to = onBar(slider, position);
  QMouseEvent event(QEvent::MouseMove, to, bar->mapToGlobal(to), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(bar, &event);
}

// In the scene

/// The pixel of the bar at a position of the cursor.
inline SbVec2s onBar(const Scene& scene, SoDialogSlider* slider, float position)
{
  const SbBox3f bar = Plan::boxOf(scene.root(), Plan::partOf(slider, "frameSep"));
  const float room = bar.getMax()[0] - bar.getMin()[0] - SoQtBasicSlider::thumbWidth;
  return scene.pixel(bar.getMin()[0] + SoQtBasicSlider::thumbWidth * 0.5F + room * position, bar.getCenter()[1]);
}

/// The pixel of the mark of a check box.
inline SbVec2s markOf(const Scene& scene, SoDialogCheckBox* element)
{
  SbVec2i32 size(0, 0);
  SbVec2i32 centre(0, 0);
  element->get3DComponentSize(size, centre);
  const SbVec3f at = element->get3DParentTranslation();
  return scene.pixel(at[0] + static_cast<float>(centre[0] - size[0] / 2 + 8), at[1]);
}

/// The middle of an entry of the open list of a combo box, \a row of \a rows in sight.
inline SbVec2s entryOf(const Scene& scene, SoDialogComboBox* combo, int row, int rows)
{
  const SbBox3f list = Plan::boxOf(scene.root(), Plan::partOf(combo, "itemsSwitch"));
  const float height = list.getMax()[1] - list.getMin()[1];
  return scene.pixel(list.getMin()[0] + 8.0F, // a scroll bar takes the right part of a narrow list
                     list.getMax()[1] - height * (static_cast<float>(row) + 0.5F) / static_cast<float>(rows));
}

/// The node of an entry of radio buttons.
inline SoNode* entryNode(SoDialogRadioButtons* radio, int index)
{
  return static_cast<SoSwitch*>(Plan::partOf(radio, "itemsSep"))->getChild(index);
}

/// The middle of an entry of radio buttons.
inline SbVec2s entryOf(const Scene& scene, SoDialogRadioButtons* radio, int index)
{
  const SbVec3f middle = Plan::boxOf(scene.root(), entryNode(radio, index)).getCenter();
  return scene.pixel(middle[0], middle[1]);
}

/// Where the tab with a text stands in the scene; empty when there is none in sight.
inline SbBox3f tabBox(SoNode* root, SoTabDialog* tabs, const std::string& label)
{
  SoSearchAction search;
  search.setType(SoText3::getClassTypeId());
  search.setInterest(SoSearchAction::ALL);
  search.apply(Plan::partOf(tabs, "pageSwitch"));
  for (int i = 0; i < search.getPaths().getLength(); i++) {
    auto* text = static_cast<SoText3*>(search.getPaths()[i]->getTail());
    if (text->string.getNum() > 0 && text->string[0] == label.c_str()) {
      return Plan::boxOf(root, search.getPaths()[i]->getNodeFromTail(2));
    }
  }
  return SbBox3f();
}

} // namespace Operate

#endif // QUILLFORM_TESTS_OPERATE_H
