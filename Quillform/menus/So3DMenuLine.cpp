#include <Quillform/menus/So3DMenuLine.h>

#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoTransform.h>
#include <Quillform/core/So3DPlacement.h>
#include <Quillform/core/SoQuillform.h>

void So3DMenuLine::attach(SoSeparator* group, SoGroup* properties, SoMaterial* look, const Plates& plates)
{
  if (plates.released) {
    auto* plate = new SoSeparator;
    m_plate = So3DPlacement::insertTransform(plate);
    m_looks = new SoSwitch;
    m_looks->addChild(plates.released);
    m_looks->addChild(plates.held);
    plate->addChild(m_looks);
    group->insertChild(plate, 0); // before the text properties, whose offset is for texts
    setHeld(false);
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
  if (m_looks) {
    m_looks->whichChild = held ? 1 : 0;
  }
}

void So3DMenuLine::forgetExtents()
{
  m_text.forgetExtent();
  m_shortcut.forgetExtent();
}
