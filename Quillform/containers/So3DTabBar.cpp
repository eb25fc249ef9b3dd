#include <Quillform/containers/So3DTabBar.h>

#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoTransform.h>
#include <QFontMetrics>
#include <QGuiApplication>
#include <Quillform/containers/SoTabDialog.h>
#include <Quillform/core/So3DPlacement.h>
#include <Quillform/core/SoText.h>
#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

constexpr int largestButton = 16;
constexpr int buttonGap = 1; // around a button
constexpr int tabGap = 1;    // between two tabs
constexpr float pi = 3.14159265F;

/// Where the text of a tab stands over the surface below the tab, and how much of a tab that is not selected, from
/// its outer edge on, is not there.
constexpr float textHeight = 1.0F;
constexpr float lowered = 0.2F;

/// How far a tab above the pane is turned to stand on another side of it, so that its foot is at the pane.
float getTurn(int side)
{
  switch (side) {
  case SoTabDialog::BOTTOM:
    return pi;
  case SoTabDialog::LEFT:
    return pi * 0.5F;
  case SoTabDialog::RIGHT:
    return pi * -0.5F;
  default:
    return 0.0F;
  }
}

bool isUpright(int side)
{
  return side == SoTabDialog::LEFT || side == SoTabDialog::RIGHT;
}

void turn(SoTransform* transform, float angle)
{
  transform->rotation.setValue(SbVec3f(0.0F, 0.0F, 1.0F), angle);
}

SbVec2f centreOf(const QRect& rect, const SbVec2i32& frameSize)
{
  return {static_cast<float>(2 * rect.x() + rect.width() - frameSize[0]) * 0.5F,
          static_cast<float>(frameSize[1] - 2 * rect.y() - rect.height()) * 0.5F};
}

/// The text, cut short with dots when it is wider than \a room.
SbString elide(const SbString& text, int room)
{
  if (!qApp) {
    return text; // nothing is known of fonts
  }
  const QFontMetrics metrics(SoQuillform::getQuillformFont());
  QString shown = SoText::toQt(text);
  if (metrics.horizontalAdvance(shown) <= room) {
    return text;
  }
  const QString dots("...");
  while (!shown.isEmpty() && metrics.horizontalAdvance(shown + dots) > room) {
    shown.chop(1);
  }
  return SoText::fromQt(shown + dots);
}

} // namespace

void So3DTabBar::attach(const Parts& parts)
{
  m_parts = parts;
  addTab(parts.firstTab, parts.firstPlate, parts.firstLooks, parts.firstText);
  for (const Button button : {BACK, FORTH}) {
    m_buttonTransforms[button] = So3DPlacement::insertTransform(parts.buttons[button]);
  }
}

void So3DTabBar::addTab(SoSeparator* node, SoSeparator* plate, SoSwitch* looks, SoSeparator* text)
{
  Tab tab{node, So3DPlacement::insertTransform(plate), looks, So3DPlacement::insertTransform(text), {}};
  tab.text.attach(text, m_parts.textProperties, m_parts.textLook);
  m_tabs.push_back(tab);
}

void So3DTabBar::setTabCount(int count)
{
  m_inSight = count;
  m_parts.tabs->whichChild = count > 0 ? SO_SWITCH_ALL : SO_SWITCH_NONE;
  while (static_cast<int>(m_tabs.size()) > std::max(count, 1)) { // the first one is a part of the element
    m_parts.tabs->removeChild(m_tabs.back().node);
    m_tabs.pop_back();
  }
  while (static_cast<int>(m_tabs.size()) < count) {
    auto* node = new SoSeparator;
    auto* plate = new SoSeparator;
    auto* looks = new SoSwitch;
    auto* text = new SoSeparator;
    looks->addChild(m_parts.looks[0]);
    looks->addChild(m_parts.looks[1]);
    plate->addChild(looks);
    text->addChild(m_parts.textProperties);
    node->addChild(plate);
    node->addChild(text);
    m_parts.tabs->addChild(node);
    addTab(node, plate, looks, text);
  }
}

void So3DTabBar::revealSelected()
{
  m_isToReveal = true;
}

void So3DTabBar::scroll(Button button)
{
  m_first += button == BACK ? -1 : 1;
  m_isToReveal = false;
}

int So3DTabBar::getFirst() const
{
  return m_first;
}

int So3DTabBar::scrollInto(const std::vector<int>& widths, int selected, int room)
{
  const int count = static_cast<int>(widths.size());
  // As many as fit before a tab, that tab included.
  const auto getFirstFor = [&widths, room](int last) {
    int first = last;
    int taken = widths[static_cast<std::size_t>(last)];
    while (first > 0 && taken + widths[static_cast<std::size_t>(first - 1)] <= room) {
      taken += widths[static_cast<std::size_t>(--first)];
    }
    return first;
  };
  if (count == 0) {
    return 0;
  }
  int first = std::clamp(m_first, 0, getFirstFor(count - 1));
  if (m_isToReveal && selected >= 0 && selected < count) {
    first = std::clamp(first, getFirstFor(selected), selected);
  }
  return first;
}

void So3DTabBar::show(const Row& row, SoGetBoundingBoxAction* action)
{
  std::vector<int> widths;
  for (const SbString& label : row.labels) {
    widths.push_back(SoTabPlan::getTabSize(SoText::toQt(label), SoQuillform::getQuillformFont()).width());
  }
  const int length = row.plan.getBarLength();
  m_hasButtons = std::accumulate(widths.begin(), widths.end(), 0LL) > length;
  const int buttonSize =
    m_hasButtons ? std::clamp(std::min(row.plan.getBarHeight() - 2, length / 4), 0, largestButton) : 0;
  placeButtons(row, buttonSize);

  const int room = length - 2 * buttonSize;
  m_first = scrollInto(widths, row.selected, room);
  m_isToReveal = false;
  std::vector<int> starts;
  int end = 0;
  const auto next = [&] {
    return static_cast<std::size_t>(m_first) + starts.size();
  };
  // One is always in sight, whatever room there is.
  while (next() < widths.size() && (starts.empty() || end + widths[next()] <= room)) {
    starts.push_back(end);
    end += widths[next() - 1];
  }
  setTabCount(static_cast<int>(starts.size()));
  for (std::size_t i = 0; i < starts.size(); i++) {
    const int index = m_first + static_cast<int>(i);
    const int width = std::min(widths[static_cast<std::size_t>(index)], std::max(room, 0));
    placeTab(m_tabs[i], row, index, starts[i], width, action);
  }
}

void So3DTabBar::placeTab(Tab& tab, const Row& row, int index, int start, int width, SoGetBoundingBoxAction* action)
{
  const bool isSelected = index == row.selected;
  const int shown = std::max(width - tabGap, 0);
  const SbVec2i32 size(shown, row.plan.getBarHeight());
  const SbVec2f centre = centreOf(row.plan.getBarRect(start, shown).translated(row.corner), row.frameSize);
  const float angle = getTurn(row.side);
  So3DPlacement::place(tab.plate, centre, SbVec2f(static_cast<float>(size[0]), static_cast<float>(size[1])), row.z);
  turn(tab.plate, angle);
  tab.looks->whichChild = isSelected ? 1 : 0;

  // The text of a tab that is not selected stands in the middle of what is seen of the tab.
  const float down = isSelected ? 0.0F : lowered * 0.5F * static_cast<float>(size[1]);
  tab.lift->translation.setValue(centre[0] + std::sin(angle) * down, centre[1] - std::cos(angle) * down,
                                 row.z + textHeight);
  turn(tab.lift, isUpright(row.side) ? angle : 0.0F);
  const SbString& label = row.labels[static_cast<std::size_t>(index)];
  const int margin = std::min(SoTabPlan::getTabMargin(), shown / 2);
  tab.text.setText(elide(SoText::withoutMnemonic(label), width - margin));
  tab.text.fit(QRect(0, 0, size[0], size[1]).adjusted(margin / 2, 0, -margin / 2, 0), size, SoQuillform::CENTER, 0.0F,
               action);
}

void So3DTabBar::placeButtons(const Row& row, int size)
{
  const int across = row.plan.getBarHeight();
  for (const Button button : {BACK, FORTH}) {
    const int start = row.plan.getBarLength() - (button == BACK ? 2 : 1) * size;
    const SbVec2f centre = centreOf(row.plan.getBarRect(start, size).translated(row.corner), row.frameSize);
    const float side = static_cast<float>(std::max(std::min(size, across) - 2 * buttonGap, 0));
    So3DPlacement::place(m_buttonTransforms[button], centre, SbVec2f(side, side), row.z);
    turn(m_buttonTransforms[button], isUpright(row.side) ? pi * -0.5F : 0.0F); // back is up, forth is down
    press(button, m_isPressed[button]);
  }
}

void So3DTabBar::press(Button button, bool down)
{
  m_isPressed[button] = down && m_hasButtons;
  m_parts.buttonLooks[button]->whichChild = !m_hasButtons ? SO_SWITCH_NONE : m_isPressed[button] ? 1 : 0;
}

int So3DTabBar::getPressedTab(const IsPressed& isPressed) const
{
  for (int i = 0; i < m_inSight; i++) {
    if (isPressed(m_tabs[static_cast<std::size_t>(i)].node)) {
      return m_first + i;
    }
  }
  return -1;
}

int So3DTabBar::getPressedButton(const IsPressed& isPressed) const
{
  for (const Button button : {BACK, FORTH}) {
    if (m_hasButtons && isPressed(m_parts.buttons[button])) {
      return button;
    }
  }
  return -1;
}
