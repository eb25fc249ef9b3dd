#ifndef QUILLFORM_SO3DTABBAR_H
#define QUILLFORM_SO3DTABBAR_H

#include <Inventor/SbVec2f.h>
#include <Inventor/SbVec2i32.h>
#include <QRect>
#include <Quillform/containers/SoTabPlan.h>
#include <Quillform/core/So3DText.h>
#include <functional>
#include <vector>

class SoGroup;
class SoMaterial;
class SoNode;
class SoSeparator;
class SoSwitch;
class SoTransform;

/// The tabs of a tab dialog in the scene and, when there are more than fit, two buttons that scroll them. Only tabs
/// that are in sight have nodes.
class So3DTabBar {
public:
  /// The buttons that scroll: towards the first tab, and towards the last.
  enum Button { BACK, FORTH };

  /// What the tabs are made of. The groups that several tabs draw are shared.
  struct Parts {
    SoSwitch* tabs;           ///< holds all of them
    SoSeparator* firstTab;    ///< holds the first one in sight
    SoSeparator* firstPlate;  ///< its plate
    SoSwitch* firstLooks;     ///< its two looks
    SoSeparator* firstText;   ///< its text
    SoGroup* looks[2];        ///< below firstLooks already: unselected, then selected
    SoGroup* textProperties;  ///< below firstText already
    SoMaterial* textLook;     ///< the colour of its text
    SoSeparator* buttons[2];  ///< by Button
    SoSwitch* buttonLooks[2]; ///< by Button: released is child 0, pressed child 1
  };
  void attach(const Parts& parts); ///< says once what the tabs are made of

  /// Shows tabs with these texts; one of them is selected. \a plan is \a corner away from the top-left corner of a
  /// frame of \a frameSize whose centre is the origin. \a side is a SoTabDialog::TabsLocation.
  struct Row {
    std::vector<SbString> labels; ///< texts of the tabs
    int selected;                 ///< index of the selected one
    const SoTabPlan& plan;        ///< where the tabs stand
    int side;                     ///< a SoTabDialog::TabsLocation
    QPoint corner;                ///< of the plan, from the top-left corner of the frame
    SbVec2i32 frameSize;          ///< of the frame, whose centre is the origin
    float z;                      ///< height of the surface that the tabs stand on
  };
  void show(const Row& row, SoGetBoundingBoxAction* action); ///< makes and places the tabs in sight

  /// Makes the selected tab the one that comes into sight with the next show().
  void revealSelected();

  /// Scrolls by one tab with the next show().
  void scroll(Button button);

  /// The number of tabs before the first one in sight.
  int getFirst() const;

  void press(Button button, bool down); ///< shows that a button is held down or not

  /// TRUE when a node is under the pointer.
  using IsPressed = std::function<bool(SoNode* node)>;
  int getPressedTab(const IsPressed& isPressed) const;    ///< -1 when it is none
  int getPressedButton(const IsPressed& isPressed) const; ///< a Button; -1 when it is none

private:
  /// One tab in sight.
  struct Tab {
    SoSeparator* node;  ///< below the switch, which owns it
    SoTransform* plate; ///< likewise
    SoSwitch* looks;    ///< likewise
    SoTransform* lift;  ///< likewise; in front of the text
    So3DText text;
  };
  void addTab(SoSeparator* node, SoSeparator* plate, SoSwitch* looks, SoSeparator* text);
  void setTabCount(int count);
  int scrollInto(const std::vector<int>& widths, int selected, int room);
  void placeButtons(const Row& row, int size);
  void placeTab(Tab& tab, const Row& row, int index, int start, int width, SoGetBoundingBoxAction* action);

  Parts m_parts = {};
  SoTransform* m_buttonTransforms[2] = {nullptr, nullptr}; // below the buttons, which own them
  std::vector<Tab> m_tabs;
  bool m_isPressed[2] = {false, false}; // by Button
  bool m_hasButtons = false;
  bool m_isToReveal = true;
  int m_first = 0; // see getFirst
  int m_inSight = 0;
};

#endif // QUILLFORM_SO3DTABBAR_H
