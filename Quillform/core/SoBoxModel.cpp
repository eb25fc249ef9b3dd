#include <Quillform/core/SoBoxModel.h>

#include <QBoxLayout>
#include <Quillform/core/SoDialogComponent.h>
#include <algorithm>
#include <memory>

namespace {

constexpr int unbounded = SoDialogComponent::unbounded;

/// An addition that would pass the unbounded size leaves the sum as it is, it does not saturate: this is meant.
int addMaximum(int sum, int max)
{
  if (max == unbounded) {
    return unbounded;
  }
  return unbounded - max >= sum ? sum + max : sum;
}

/// The place of a component in a layout is at least this long, however short the component is.
constexpr int leastCellLength = 20;

SoDialogComponent* toComponent(SoTopComponent* child)
{
  const bool isComponent = child->isOfType(SoDialogComponent::getClassTypeId()); // faster than a cast would find out
  return isComponent ? static_cast<SoDialogComponent*>(child) : nullptr;
}

/// A row is as high as the higher of its label and its control.
int getRowHeight(SoDialogComponent* component)
{
  const int labelHeight = component->labelVisibility.getValue() ? component->getLabelInitSize()[1] : 0;
  return std::max(component->getComponentInitSize()[1], labelHeight);
}

} // namespace

SoBoxModel::SoBoxModel(int axis) : m_axis(axis) {}

int SoBoxModel::clampPixels(long long pixels)
{
  constexpr long long limit = QWIDGETSIZE_MAX;
  return static_cast<int>(std::clamp(pixels, -limit, limit));
}

int SoBoxModel::getLayoutSpacing(int spacing)
{
  return std::clamp(spacing, 0, QWIDGETSIZE_MAX);
}

void SoBoxModel::setAxis(int axis)
{
  m_axis = axis;
}

void SoBoxModel::clear()
{
  m_entries.clear();
  m_cursor = 0;
}

void SoBoxModel::measure(const Children& children)
{
  m_entries.resize(children.size());
  for (std::size_t i = 0; i < children.size(); i++) {
    Entry& entry = m_entries[i];
    children[i]->getSize(entry.size, entry.min, entry.max);
    entry.isBar = !toComponent(children[i]);
    if (entry.isBar) {
      entry.max[1] = entry.min[1];
      entry.least.setValue(entry.min[0], entry.size[1]); // a window puts it above its layout, in its own height
    }
    else {
      entry.least = getLeastSizeOf(children[i], entry.size, entry.min, entry.max);
      entry.least[m_axis] = std::max(entry.least[m_axis], leastCellLength);
    }
  }
}

void SoBoxModel::getTotal(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max, int margin, int spacing, int menuBars) const
{
  const int along = m_axis;
  const int across = 1 - m_axis;
  size.setValue(0, 0);
  min.setValue(0, 0);
  max.setValue(0, 0);
  if (m_entries.empty()) {
    max.setValue(unbounded, unbounded);
  }
  for (const Entry& entry : m_entries) {
    size[across] = std::max(size[across], entry.size[across]);
    min[across] = std::max(min[across], entry.min[across]);
    max[across] = std::max(max[across], entry.max[across]);
    size[along] = clampPixels(static_cast<long long>(size[along]) + entry.size[along]);
    min[along] = clampPixels(static_cast<long long>(min[along]) + entry.min[along]);
    max[along] = addMaximum(max[along], entry.max[along]);
  }
  // Without children the gap is negative: this is meant.
  const long long gaps = (static_cast<long long>(m_entries.size()) - menuBars - 1) * spacing;
  for (int i = 0; i < 2; i++) {
    const int border = clampPixels(2LL * margin + (i == along ? gaps : 0));
    size[i] = clampPixels(static_cast<long long>(size[i]) + border);
    min[i] = clampPixels(static_cast<long long>(min[i]) + border);
    max[i] = max[i] > unbounded - border ? unbounded : max[i] + border;
  }
}

SbVec2i32 SoBoxModel::getLeastSizeOf(SoTopComponent* child, SbVec2i32 size, SbVec2i32 min, SbVec2i32 max)
{
  SoDialogComponent* component = toComponent(child);
  if (component) {
    component->leaveRoomForContents(size, min, max);
  }
  const SbVec2i32& needed = component && component->hasSizeAsMinimum() ? size : min;
  return {std::min(needed[0], max[0]), std::min(needed[1], max[1])};
}

SbVec2i32 SoBoxModel::getLeastSize(int spacing) const
{
  const int along = m_axis;
  const int across = 1 - m_axis;
  SbVec2i32 least(0, 0);
  bool hasGap = false;
  for (const Entry& entry : m_entries) {
    least[across] = std::max(least[across], entry.least[across]);
    const int gap = entry.isBar || !hasGap ? 0 : spacing; // none beside a menu bar
    least[along] = clampPixels(static_cast<long long>(least[along]) + entry.least[along] + gap);
    hasGap = hasGap || !entry.isBar;
  }
  return least;
}

void SoBoxModel::leaveRoom(const SbVec2i32& needed, const SoSizingFields::Values& authored, SbVec2i32& size,
                           SbVec2i32& min, SbVec2i32& max)
{
  for (std::size_t i = 0; i < 2; i++) {
    if (authored[SoSizingFields::MIN_WIDTH + i] != 0) {
      continue; // the author wants the container to become that small
    }
    const int axis = static_cast<int>(i);
    const int largest = authored[SoSizingFields::MAX_WIDTH + i];
    const int room = largest > 0 ? std::min(needed[axis], largest) : needed[axis];
    min[axis] = std::max(min[axis], room);
    size[axis] = std::max(size[axis], room);
    max[axis] = std::max(max[axis], room);
  }
}

void SoBoxModel::distribute(int length, int defaultLength)
{
  int rest = length - defaultLength;
  const int step = rest > 0 ? 1 : -1;
  std::size_t unchanged = 0;
  while (rest != 0 && unchanged < m_entries.size()) {
    Entry& entry = m_entries[m_cursor];
    const int changed = entry.size[m_axis] + step;
    if (changed >= entry.min[m_axis] && changed <= entry.max[m_axis]) {
      entry.size[m_axis] = changed;
      rest -= step;
      unchanged = 0;
    }
    else {
      ++unchanged;
    }
    m_cursor = (m_cursor + 1) % m_entries.size();
  }
}

const SbVec2i32& SoBoxModel::getChildSize(std::size_t index) const
{
  return m_entries[index].size;
}

void SoBoxModel::buildWidgets(const Children& children, QWidget* parent, QBoxLayout* layout) const
{
  layout->setEnabled(false); // each widget that appears would place all of them anew
  for (std::size_t i = 0; i < children.size(); i++) {
    if (SoDialogComponent* component = toComponent(children[i])) {
      component->buildWidgetIfChanged(parent);
      component->setPlannedSize(m_entries[i].size);
    }
    else {
      SbVec2i32 size(0, 0);
      SbVec2i32 place(0, 0);
      children[i]->buildWidget(parent, size, place, 1);
    }
  }
  order(children, layout);
  layout->setEnabled(true);
}

int SoBoxModel::countOutdated(const Children& children, const QWidget* parent)
{
  return static_cast<int>(std::count_if(children.cbegin(), children.cend(), [parent](SoTopComponent* child) {
    const SoDialogComponent* component = toComponent(child);
    return component && !component->isWidgetUpToDate(parent);
  }));
}

bool SoBoxModel::appends(const Children& children, const QWidget* parent)
{
  const auto firstNew = std::find_if_not(children.cbegin(), children.cend(), [parent](SoTopComponent* child) {
    const SoDialogComponent* component = toComponent(child);
    return !component || component->isWidgetUpToDate(parent);
  });
  return std::all_of(firstNew, children.cend(), [](SoTopComponent* child) {
    const SoDialogComponent* component = toComponent(child);
    return component && !component->getWidget();
  });
}

std::unique_ptr<QBoxLayout> SoBoxModel::createPlan(const Children& children, std::vector<QRect>& rects, int spacing,
                                                   int margin, bool verticalCells) const
{
  rects.resize(children.size());
  auto layout = std::make_unique<QBoxLayout>(m_axis == 1 ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
  layout->setContentsMargins(margin, margin, margin, margin);
  layout->setSpacing(spacing);
  for (std::size_t i = 0; i < children.size(); i++) {
    if (SoDialogComponent* component = toComponent(children[i])) {
      const SbVec2i32& wanted = m_entries[i].size;
      layout->addItem(component->createPlannedCell(QSize(wanted[0], wanted[1]), rects[i], verticalCells));
    }
  }
  return layout;
}

std::vector<QRect> SoBoxModel::plan(const Children& children, const QSize& size, int spacing, int margin,
                                    bool verticalCells) const
{
  std::vector<QRect> rects;
  const std::unique_ptr<QBoxLayout> layout = createPlan(children, rects, spacing, margin, verticalCells);
  QRect contents(QPoint(0, 0), size);
  for (std::size_t i = 0; i < children.size(); i++) {
    if (!toComponent(children[i])) { // a menu bar, which a window puts above its layout
      rects[i] = QRect(contents.topLeft(), QSize(contents.width(), m_entries[i].size[1]));
      contents.setTop(rects[i].bottom() + 1);
    }
  }
  layout->setGeometry(contents);
  return rects;
}

void SoBoxModel::build3D(const Children& children, const std::vector<QRect>& plan)
{
  for (std::size_t i = 0; i < children.size(); i++) {
    if (SoDialogComponent* component = toComponent(children[i])) {
      component->build3DInPlan(plan[i]);
    }
    else {
      SbVec2i32 size(plan[i].width(), plan[i].height());
      SbVec2i32 place(plan[i].x(), plan[i].y());
      children[i]->buildWidget(nullptr, size, place, 0);
    }
  }
}

SoPlannedContents SoBoxModel::planContents(const Children& children, int spacing, int margin, bool verticalCells) const
{
  std::vector<QRect> rects;
  const std::unique_ptr<QBoxLayout> layout = createPlan(children, rects, spacing, margin, verticalCells);
  return {layout->minimumSize(), layout->expandingDirections()};
}

void SoBoxModel::order(const Children& children, QBoxLayout* layout)
{
  int index = 0;
  for (SoTopComponent* child : children) {
    SoDialogComponent* component = toComponent(child);
    QBoxLayout* cell = component ? component->getCell() : nullptr;
    if (!cell) {
      continue;
    }
    QLayoutItem* item = layout->itemAt(index);
    if (!item || item->layout() != cell) {
      layout->removeItem(cell);
      cell->setParent(nullptr);
      layout->insertLayout(index, cell);
    }
    ++index;
  }
}

void SoBoxModel::giveCommonLabelColumn(const Children& children, HiddenLabels hidden)
{
  int column = 0;
  for (SoTopComponent* child : children) {
    SoDialogComponent* component = toComponent(child);
    if (component && component->labelVisibility.getValue()) {
      column = std::max(column, component->getLabelInitSize()[0]);
    }
  }
  for (SoTopComponent* child : children) {
    if (SoDialogComponent* component = toComponent(child)) {
      const bool hasHeight = component->labelVisibility.getValue() || hidden == HIDDEN_LABELS_KEEP_HEIGHT;
      SbVec2i32 size(column, hasHeight ? component->getLabelInitSize()[1] : 0);
      component->setLabelSize(size);
    }
  }
}

void SoBoxModel::giveOwnLabelSizes(const Children& children)
{
  for (SoTopComponent* child : children) {
    if (SoDialogComponent* component = toComponent(child)) {
      SbVec2i32 size = component->labelVisibility.getValue() ? component->getLabelInitSize() : SbVec2i32(0, 0);
      component->setLabelSize(size);
    }
  }
}

void SoBoxModel::giveCommonComponentColumn(const Children& children)
{
  int column = 0;
  for (SoTopComponent* child : children) {
    if (SoDialogComponent* component = toComponent(child)) {
      column = std::max(column, component->getComponentInitSize()[0]);
    }
  }
  for (SoTopComponent* child : children) {
    if (SoDialogComponent* component = toComponent(child)) {
      SbVec2i32 size(column, getRowHeight(component));
      component->setComponentSize(size);
    }
  }
}

void SoBoxModel::giveOwnComponentSizes(const Children& children)
{
  for (SoTopComponent* child : children) {
    if (SoDialogComponent* component = toComponent(child)) {
      SbVec2i32 size(component->getComponentInitSize()[0], getRowHeight(component));
      component->setComponentSize(size);
    }
  }
}
