#include <Quillform/menus/SoMenuSeparator.h>

#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoTransform.h>
#include <QMenu>
#include <Quillform/core/So3DPlacement.h>

SO_QUILLFORM_SOURCE(SoMenuSeparator, "MenuSeparator")
SO_SKIN_SOURCE(SoMenuSeparator, "MenuSeparator.iv", "MenuSeparatorFrame")

namespace {

constexpr int separatorWidth = 16; // at least
constexpr int separatorHeight = 8;
constexpr int lineHeight = 2;

} // namespace

SoMenuSeparator::SoMenuSeparator()
{
  SO_QUILLFORM_CONSTRUCTOR(SoMenuSeparator);

  typedef SoMenuSeparator Self;
  static const SoCatalogPart<Self> parts[] = {
    {&Self::sepSep, "sepSep", "SoSeparator", "geomSwitch", FALSE},
    {&Self::sepFrame, "sepFrame", "SoGroup", "sepSep", TRUE},
  };
  SO_QUILLFORM_ADD_PARTS(parts);
  SO_KIT_INIT_INSTANCE();
}

SoMenuSeparator::~SoMenuSeparator() = default;

SbVec2i32 SoMenuSeparator::getItemInitSize()
{
  return {separatorWidth, separatorHeight};
}

void SoMenuSeparator::insertMenuItem(int /*index*/)
{
  getParentMenu()->addSeparator(); // the menu owns it and clears it away
}

SbString SoMenuSeparator::getShownText() const
{
  return "";
}

// The 3D form

void SoMenuSeparator::create3DItem(int index)
{
  inherited::create3DItem(index);
  fillFromSkin("sepFrame", getSkin().getPart("MenuSeparatorFrame"));
  m_lineTransform = So3DPlacement::insertTransform(makePart<SoSeparator>("sepSep"));
}

void SoMenuSeparator::update3DItem()
{
  inherited::update3DItem();
  const SbVec2i32 size = getItemSize();
  So3DPlacement::place(m_lineTransform,
                       QRect(textMargin, (size[1] - lineHeight) / 2, size[0] - 2 * textMargin, lineHeight), size,
                       plateFace);
}

So3DMenuLine::Plates SoMenuSeparator::getPlates() const
{
  return {}; // the line lies on the item's own
}

int SoMenuSeparator::getNumLines3D() const
{
  return 0; // there is nothing to choose
}

int SoMenuSeparator::getLineUnderPointer3D()
{
  return -1;
}
