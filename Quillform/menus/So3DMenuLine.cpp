#include <Quillform/menus/So3DMenuLine.h>

#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoTransform.h>
#include <Quillform/core/So3DPlacement.h>
#include <Quillform/core/SoQuillform.h>

void So3DMenuLine::attach(SoSeparator* group, SoGroup* properties, SoMaterial* look, SoGroup* heldPlate)
{
  if (heldPlate) {
    m_held = new SoSwitch;
    auto* plate = new SoSeparator;
    m_plate = So3DPlacement::insertTransform(plate);
    plate->addChild(heldPlate);
    m_held->addChild(plate);
    group->insertChild(m_held, 0); // before the text properties, whose offset is for texts
  }
  auto* shortcut = new SoSeparator; // keeps its place to itself
  m_shortcut.attach(shortcut, properties, look);
  group->addChild(shortcut);
  m_text.attach(group, properties, look);
}

bool So3DMenuLine::isAttached() const
{
  return m_text.isAttached();
}

void So3DMenuLine::setTexts(const SbString& text, const SbString& shortcut)
{
  if (text != m_shownText) {
    m_shownText = text;
    m_text.setText(text);
  }
  if (shortcut != m_shownShortcut) {
    m_shownShortcut = shortcut;
    m_shortcut.setText(shortcut);
  }
}

void So3DMenuLine::place(const Place& place, int alignment, SoGetBoundingBoxAction* action)
{
  So3DPlacement::place(m_plate, place.rect, place.frame, place.plate);
  const QRect text(place.rect.x() + place.text, place.rect.y(), place.shortcut - place.text, place.rect.height());
  m_text.fit(text, place.frame, alignment, place.surface, action);
  m_shortcut.fit(text, place.frame, SoQuillform::RIGHT, place.surface, action);
}

void So3DMenuLine::setHeld(bool held)
{
  if (m_held) {
    m_held->whichChild = held ? SO_SWITCH_ALL : SO_SWITCH_NONE;
  }
}

void So3DMenuLine::forgetExtents()
{
  m_text.forgetExtent();
  m_shortcut.forgetExtent();
}
