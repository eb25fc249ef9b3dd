#ifndef QUILLFORM_SOMENUSEPARATOR_H
#define QUILLFORM_SOMENUSEPARATOR_H

#include <Quillform/menus/SoMenuItem.h>

/// A line between the entries of a menu.
///
/// \code
/// MenuPopup {
///   label "&File"
///   MenuPushButton { label "&Save" }
///   MenuSeparator { }
///   MenuPushButton { label "&Quit" }
/// }
/// \endcode
///
/// It adds no fields to those of SoMenuItem.
///
/// Catalog, below `geomSwitch`:
/// \code
/// sepSep
///   sepFrame           # public
/// \endcode
class QUILLFORM_API SoMenuSeparator : public SoMenuItem {
  typedef SoMenuItem inherited;
  SO_QUILLFORM_HEADER(SoMenuSeparator);
  SO_KIT_CATALOG_ENTRY_HEADER(sepSep);
  SO_KIT_CATALOG_ENTRY_HEADER(sepFrame);

public:
  SoMenuSeparator();

  SO_SKIN_HEADER();

  SbVec2i32 getItemInitSize() override;

  void insertMenuItem(int index) override;

  void create3DItem(int index) override;
  void update3DItem() override;

protected:
  ~SoMenuSeparator() override;

  So3DMenuLine::Plates getPlates() const override;
  SbString getShownText() const override;
  int getNumLines3D() const override;
  int getLineUnderPointer3D() override;

private:
  SoTransform* m_lineTransform = nullptr; // below sepSep, which owns it
};

#endif // QUILLFORM_SOMENUSEPARATOR_H
