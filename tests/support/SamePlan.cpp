#include <support/SamePlan.h>

#include <QPushButton>
#include <forms/Plan.h>

namespace {

/// The rectangle of the button of a push button in the scene, from the top-left corner of its dialog's contents.
QRectF buttonInScene(SoTopLevelDialog* dialog, SoDialogComponent* component)
{
  const SbVec3f place = dialog->get3DParentTranslation();
  return Plan::seen(Plan::boxOf(dialog, Plan::partOf(component, "frameSep")))
    .translated(-place[0] - Plan::border, place[1] - Plan::top);
}

QRectF buttonInWindow(SoTopLevelDialog* dialog, SoDialogComponent* component)
{
  auto* button = component->getWidget()->findChild<QPushButton*>();
  return {QPointF(button->mapTo(dialog->getWidget(), QPoint(0, 0))), QSizeF(button->size())};
}

/// Every text of \a element stands inside \a frame, a part of the element.
void expectTextsInside(SoTopLevelDialog* dialog, SoQuillform* element, const char* separator, const char* frame)
{
  SoNode* part = Plan::partOf(element, separator);
  ASSERT_NE(part, nullptr) << separator;
  const SbBox3f box = Plan::boxOf(dialog, part);
  const QRectF seen = Plan::seen(box);
  const QRectF outer = Plan::seen(Plan::boxOf(dialog, Plan::partOf(element, frame)));
  const bool isSeen = seen.width() > 0.0 && seen.height() > 0.0 && outer.width() > 1.0 && outer.height() > 1.0;
  if (isSeen) { // else the window shows nothing there, either
    EXPECT_TRUE(Plan::stands(seen, outer)) << separator << " of " << element->label.getValue().getString();
    EXPECT_GT(box.getMax()[2], Plan::boxOf(dialog, Plan::partOf(element, frame)).getMin()[2]);
  }
}

} // namespace

void expectSamePlan(SoTopLevelDialog* window, SoTopLevelDialog* scene, const std::string& where)
{
  const auto inWindow = Plan::componentsOf(window);
  const auto inScene = Plan::componentsOf(scene);
  ASSERT_EQ(inWindow.size(), inScene.size()) << where;
  ASSERT_GT(inWindow.size(), 0U);
  for (std::size_t i = 0; i < inWindow.size(); i++) {
    EXPECT_EQ(inWindow[i]->getWidget()->isVisible(), inScene[i]->isShown3D() != FALSE) << where << ": frame " << i;
    if (!inWindow[i]->getWidget()->isVisible()) {
      continue; // on a page that is not selected
    }
    EXPECT_TRUE(Plan::agree(Plan::inScene(scene, inScene[i]), Plan::inWindow(window, inWindow[i])))
      << where << ": frame " << i << " " << inWindow[i]->auditorID.getValue().getString();
    if (inWindow[i]->isOfType(SoDialogPushButton::getClassTypeId())) {
      const QRectF seen = buttonInWindow(window, inWindow[i]);
      if (seen.width() > 1.0 && seen.height() > 1.0) {
        EXPECT_TRUE(Plan::agree(buttonInScene(scene, inScene[i]), seen)) << where << ": button " << i;
      }
      expectTextsInside(scene, inScene[i], "labelSep", "mainCptSeparator");
      expectTextsInside(scene, inScene[i], "buttonLabelSep", "frameSep");
    }
    if (inWindow[i]->isOfType(SoDialogLabel::getClassTypeId())) {
      expectTextsInside(scene, inScene[i], "labelSep", "mainCptSeparator");
    }
  }
  expectTextsInside(scene, scene, "labelSep", "frameSep");
}
