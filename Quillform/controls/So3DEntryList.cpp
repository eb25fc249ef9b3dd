#include <Quillform/controls/So3DEntryList.h>

#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoPickStyle.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoTransform.h>
#include <Quillform/controls/SoDialogEditText.h>
#include <Quillform/core/So3DPlacement.h>
#include <Quillform/core/SoQuillform.h>
#include <algorithm>
#include <cmath>

namespace {

constexpr int border = 1; // of the list's plate around the entries
constexpr int barWidth = 14;
constexpr int textMargin = 5;

/// Heights over the list's plane. Plates from a skin are one unit thick; one that the author filled may be flat, and
/// must still lie in front of the background.
constexpr float plateFoot = 1.1F;
constexpr float markFoot = plateFoot + 0.1F;
constexpr float textFoot = markFoot + 1.0F;

} // namespace

void So3DEntryList::attach(const Parts& parts)
{
  m_parts = parts;
  m_lift = So3DPlacement::insertTransform(parts.list);

  auto* background = new SoSeparator;
  m_background = So3DPlacement::insertTransform(background);
  background->addChild(parts.frame);
  parts.list->insertChild(background, 1);
  addRow(parts.firstEntry, parts.firstPlate, parts.firstText);

  // The mark lies over the plate of the chosen entry, which a press is meant for.
  m_markSwitch = new SoSwitch;
  auto* mark = new SoSeparator;
  auto* pickStyle = new SoPickStyle;
  pickStyle->style = SoPickStyle::UNPICKABLE;
  m_mark = So3DPlacement::insertTransform(mark);
  mark->addChild(pickStyle);
  mark->addChild(parts.frame);
  m_markSwitch->addChild(mark);
  parts.list->addChild(m_markSwitch);
  createBar();
  close();
}

void So3DEntryList::createBar()
{
  m_barSwitch = new SoSwitch;
  So3DScrollBar::Parts parts = {};
  parts.bar = m_barSwitch;
  parts.groove = new SoSeparator;
  parts.cursor = new SoSeparator;
  parts.groove->addChild(SoDialogEditText::getSkin().getPart("DialogEditTextScrollFrame"));
  parts.cursor->addChild(SoDialogEditText::getSkin().getPart("DialogEditTextCursorFrame"));
  static const char* const looks[2][2] = {{"DialogEditTextUpButtonReleased", "DialogEditTextUpButtonPressed"},
                                          {"DialogEditTextDownButtonReleased", "DialogEditTextDownButtonPressed"}};
  m_barSwitch->addChild(parts.groove);
  m_barSwitch->addChild(parts.cursor);
  for (const int button : {So3DScrollBar::BACK, So3DScrollBar::FORTH}) {
    parts.buttons[button] = new SoSeparator;
    parts.buttonLooks[button] = new SoSwitch;
    for (const char* look : looks[button]) {
      parts.buttonLooks[button]->addChild(SoDialogEditText::getSkin().getPart(look));
    }
    parts.buttons[button]->addChild(parts.buttonLooks[button]);
    m_barSwitch->addChild(parts.buttons[button]);
    m_barButtons[button] = parts.buttons[button];
  }
  m_parts.list->addChild(m_barSwitch);
  m_bar.attach(So3DScrollBar::VERTICAL, parts);
}

void So3DEntryList::addRow(SoSeparator* node, SoSeparator* plate, SoSeparator* text)
{
  Row row{node, So3DPlacement::insertTransform(plate), {}};
  row.text.attach(text, m_parts.textProperties, m_parts.textLook);
  m_rows.push_back(row);
}

void So3DEntryList::setRowCount(int count)
{
  while (static_cast<int>(m_rows.size()) > std::max(count, 1)) { // the first one is a part of the element
    m_parts.list->removeChild(m_rows.back().node);
    m_rows.pop_back();
  }
  while (static_cast<int>(m_rows.size()) < count) {
    auto* node = new SoSeparator;
    auto* plate = new SoSeparator;
    auto* text = new SoSeparator;
    plate->addChild(m_parts.plate);
    text->addChild(m_parts.textProperties);
    node->addChild(plate);
    node->addChild(text);
    m_parts.list->addChild(node);
    addRow(node, plate, text);
  }
}

void So3DEntryList::open(const QRect& rect, const SbVec2i32& frameSize, int inSight, int count, float z, float lift)
{
  m_rect = rect;
  m_frameSize = frameSize;
  m_inSight = inSight;
  m_z = z;
  setCount(count);
  m_lift->translation.setValue(0.0F, 0.0F, lift);
  m_parts.list->whichChild = SO_SWITCH_ALL;
}

void So3DEntryList::setCount(int count)
{
  m_count = count;
  m_bar.setRange(static_cast<float>(count), static_cast<float>(m_inSight));
}

void So3DEntryList::close()
{
  releaseBar();
  m_parts.list->whichChild = SO_SWITCH_NONE;
  m_lift->translation.setValue(0.0F, 0.0F, 0.0F);
}

bool So3DEntryList::isOpen() const
{
  return m_parts.list && m_parts.list->whichChild.getValue() == SO_SWITCH_ALL;
}

int So3DEntryList::getFirst() const
{
  return static_cast<int>(std::lround(m_bar.getScrolled()));
}

QRect So3DEntryList::getRowRect(int row) const
{
  // Rounded one by one, so that the rows fill the list whatever its height is.
  const int inner = m_rect.height() - 2 * border;
  const int top = inner * row / m_inSight;
  const int bottom = inner * (row + 1) / m_inSight;
  const int bar = m_count > m_inSight ? barWidth : 0;
  return {m_rect.x() + border, m_rect.y() + border + top, m_rect.width() - 2 * border - bar, bottom - top};
}

void So3DEntryList::show(const SoMFString& items, int selected, SoGetBoundingBoxAction* action)
{
  setCount(items.getNum());
  m_bar.show(m_count > m_inSight);
  m_bar.place(
    QRect(m_rect.right() + 1 - border - barWidth, m_rect.y() + border, barWidth, m_rect.height() - 2 * border),
    m_frameSize, m_z + plateFoot);
  So3DPlacement::place(m_background, m_rect, m_frameSize, m_z);

  const int rows = std::min(m_count, m_inSight);
  setRowCount(rows);
  const int first = getFirst();
  // A text is cut off by its frame, and the list hangs out of the component: seen from a frame around both, with the
  // same centre, nothing is cut off.
  constexpr int around = 8192;
  const SbVec2i32 frameAround = m_frameSize + SbVec2i32(2 * around, 2 * around);
  for (int i = 0; i < rows; i++) {
    Row& row = m_rows[static_cast<std::size_t>(i)];
    const QRect rect = getRowRect(i);
    So3DPlacement::place(row.plate, rect, m_frameSize, m_z + plateFoot);
    row.text.setText(items[first + i]);
    row.text.fit(rect.adjusted(textMargin, 0, -textMargin, 0).translated(around, around), frameAround,
                 SoQuillform::LEFT, m_z + textFoot, action);
  }
  const bool isMarked = selected >= first && selected < first + rows;
  m_markSwitch->whichChild = isMarked ? SO_SWITCH_ALL : SO_SWITCH_NONE;
  if (isMarked) {
    So3DPlacement::place(m_mark, getRowRect(selected - first), m_frameSize, m_z + markFoot);
  }
}

void So3DEntryList::reveal(int index)
{
  if (index < getFirst() || index >= getFirst() + m_inSight) {
    const int first = index - m_inSight / 2; // the entry comes to the middle
    m_bar.scrollTo(static_cast<float>(first));
  }
}

void So3DEntryList::scrollBy(int entries)
{
  m_bar.scrollTo(static_cast<float>(getFirst() + entries));
}

int So3DEntryList::getPressedEntry(const IsPressed& isPressed) const
{
  int pressed = -1;
  for (int i = 0; i < std::min(m_count, m_inSight); i++) {
    if (isPressed(m_rows[static_cast<std::size_t>(i)].node)) {
      pressed = getFirst() + i;
    }
  }
  return pressed;
}

bool So3DEntryList::pressBar(const IsPressed& isPressed, const SbVec3f& pointer)
{
  if (!isPressed(m_barSwitch)) {
    return false;
  }
  for (const auto button : {So3DScrollBar::BACK, So3DScrollBar::FORTH}) {
    if (isPressed(m_barButtons[button])) {
      m_bar.press(button, true);
      scrollBy(button == So3DScrollBar::BACK ? -1 : 1);
      return true;
    }
  }
  const int side = m_bar.getSideOfCursor(pointer);
  m_isDragged = side == 0;
  m_dragStart = m_bar.along(pointer);
  m_scrolledAtStart = m_bar.getScrolled();
  scrollBy(side * std::max(m_inSight - 1, 1)); // the last entry in sight stays in sight
  return true;
}

bool So3DEntryList::dragBar(const SbVec3f& pointer)
{
  if (m_isDragged) {
    m_bar.scrollTo(m_scrolledAtStart + m_bar.toContent(m_bar.along(pointer) - m_dragStart));
  }
  return m_isDragged;
}

void So3DEntryList::releaseBar()
{
  m_isDragged = false;
  m_bar.press(So3DScrollBar::BACK, false);
  m_bar.press(So3DScrollBar::FORTH, false);
}
