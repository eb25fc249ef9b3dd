#include <Quillform/controls/SoDialogChoice.h>

#include <Quillform/auditors/SoAuditorDispatch.h>
#include <Quillform/auditors/SoDialogChoiceAuditor.h>
#include <algorithm>

SO_QUILLFORM_SOURCE(SoDialogChoice, "DialogChoice")

SoDialogChoice::SoDialogChoice() : SoDialogChoice(PartsLater())
{
  SO_KIT_INIT_INSTANCE();
}

SoDialogChoice::SoDialogChoice(const PartsLater& later) : inherited(later)
{
  SO_QUILLFORM_CONSTRUCTOR(SoDialogChoice);

  SO_QUILLFORM_ADD_FIELD(items, (""));
  SO_QUILLFORM_ADD_FIELD(selectedItem, (0));
}

SoDialogChoice::~SoDialogChoice() = default;

// Auditors

void SoDialogChoice::addAuditor(SoDialogChoiceAuditor* auditor)
{
  inherited::addAuditor(auditor);
}

void SoDialogChoice::removeAuditor(SoDialogChoiceAuditor* auditor)
{
  inherited::removeAuditor(auditor);
}

void SoDialogChoice::applyDlgCptAuditor()
{
  SoAuditorDispatch::applyOwnAuditors(this, &SoDialogChoiceAuditor::dialogChoice);
}

// Entries

bool SoDialogChoice::holdsPlaceholder() const
{
  return items.getNum() == 0 || (items.getNum() == 1 && m_placeholder != 0 && items[0].getLength() == 0);
}

int SoDialogChoice::getNumItems() const
{
  return holdsPlaceholder() ? 0 : items.getNum();
}

SbString SoDialogChoice::getSelectedText() const
{
  const int index = selectedItem.getValue();
  return index >= 0 && index < items.getNum() ? items[index] : SbString();
}

void SoDialogChoice::addItem(SbString item)
{
  const int index = getNumItems();
  m_placeholder = 0; // before the write, whose reaction looks at it
  items.set1Value(index, item);
}

void SoDialogChoice::insertItem(int index, SbString item)
{
  const int count = getNumItems();
  m_placeholder = 0;
  index = std::clamp(index, 0, count);
  if (count > 0) {
    const SoWatchedFields::Pause pause(m_watched, items);
    items.insertSpace(index, 1);
  }
  items.set1Value(index, item);
}

void SoDialogChoice::removeItem(int index)
{
  if (index >= 0 && index < getNumItems()) {
    items.deleteValues(index, 1);
  }
}

void SoDialogChoice::fixItemsNumber()
{
  if (items.getNum() == 0) {
    const SoWatchedFields::Pause pause(m_watched, items);
    items.set1Value(0, "");
    m_placeholder = 1;
  }
  else if (!holdsPlaceholder()) {
    m_placeholder = 0;
  }
}

// Building

void SoDialogChoice::buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget)
{
  inherited::buildWidget(parent, size, position, asWidget);
  fixItemsNumber();
  if (asWidget != 0) {
    createLabelWidget();
    placeWidgets();
  }
  else {
    create3DChoice();
    update3D();
  }
  m_watched.watch(items);
  m_watched.watch(selectedItem);
}

// Reactions

void SoDialogChoice::eventNotify(unsigned int event, unsigned long /*data*/)
{
  {
    const SoWatchedFields::Pause pause(m_watched, selectedItem);
    selectedItem = static_cast<int>(event);
  }
  applyDlgCptAuditor();
  if (isLive3D()) {
    change3DSelectedItem();
  }
}

void SoDialogChoice::chooseIn3D(int index)
{
  if (index != selectedItem.getValue()) {
    {
      const SoWatchedFields::Pause pause(m_watched, selectedItem);
      selectedItem = index;
    }
    change3DSelectedItem();
    if (isWidgetBuilt()) {
      changeSelectedItem();
    }
  }
  applyDlgCptAuditor();
}

void SoDialogChoice::updateFromSensor(SoSensor* sensor)
{
  const SoField* field = SoWatchedFields::getFired(sensor);
  if (field == &items) {
    fixItemsNumber();
    if (isWidgetBuilt()) {
      changeItems();
    }
    if (isLive3D()) {
      change3DItems();
    }
  }
  else if (field == &selectedItem) {
    if (isWidgetBuilt()) {
      changeSelectedItem();
    }
    if (isLive3D()) {
      change3DSelectedItem();
    }
  }
  else {
    inherited::updateFromSensor(sensor);
  }
}

void SoDialogChoice::createLabelWidget() {}
void SoDialogChoice::create3DChoice() {}
void SoDialogChoice::changeEnable() {}
void SoDialogChoice::changeLabelAlignment() {}
void SoDialogChoice::changeLabelVisibility() {}
void SoDialogChoice::changeWidgetEnable(int /*enable*/) {}
void SoDialogChoice::changeItems() {}
void SoDialogChoice::changeSelectedItem() {}
void SoDialogChoice::change3DSelectedItem() {}
void SoDialogChoice::change3DItems() {}

// Copies

void SoDialogChoice::copyContents(const SoFieldContainer* from, SbBool copyConnections)
{
  inherited::copyContents(from, copyConnections);
  m_placeholder = static_cast<const SoDialogChoice*>(from)->m_placeholder;
}
