#ifndef QUILLFORM_SODIALOGEDITTEXT_H
#define QUILLFORM_SODIALOGEDITTEXT_H

#include <Quillform/core/So3DScrollBar.h>
#include <Quillform/core/So3DTextLines.h>
#include <Quillform/core/SoDialogComponent.h>

class SoDialogEditTextAuditor;
class SoKeyboardEvent;

/// A text that the user can type, in one line or in many, with a label beside it.
///
/// \code
/// DialogEditText { auditorID "name" label "Name:" editText "cube" }
/// DialogEditText { auditorID "notes" label "Notes:" multiLine TRUE height 80 trigOnEnter FALSE }
/// \endcode
///
/// In a window it is one of Qt's editors. In the scene a press on its frame starts editing: what is typed is added
/// at the end, Backspace takes the last character away, and Return finishes, as does a press on another element;
/// Return with Shift begins a new line. A text that is larger than the frame scrolls.
///
/// In a text of several lines the escapes of dialog files, those of a line end, a tab and a quotation mark, are shown
/// as what they mean; a text of one line is shown as it is. `isNumeric` is kept for the files and has no effect.
/// `wrapLine` set before the dialog is built takes effect in the scene only: a window wraps until the field changes
/// while it is open.
///
/// File format, after the fields of SoDialogComponent, with the defaults:
/// \code
/// DialogEditText {
///   editText     ""      # SoSFString: the text
///   editable     TRUE    # SoSFBool:   the user can change it
///   trigOnEnter  TRUE    # SoSFBool:   auditors are called on Return, in the scene when editing is finished;
///                        #             FALSE: on every change
///   isNumeric    FALSE   # SoSFBool:   without effect
///   multiLine    FALSE   # SoSFBool:   several lines
///   wrapLine     TRUE    # SoSFBool:   long lines of several are broken
/// }
/// \endcode
///
/// Catalog, below `geomSwitch`:
/// \code
/// labelSep
///   labelSwitch
///     labelProp            # public
/// scrollVSwitch
///   downSep
///     downSwitch
///       downReleased       # public, child 0
///       downPressed        # public, child 1
///   upSep
///     upSwitch
///       upReleased         # public, child 0
///       upPressed          # public, child 1
///   scrollVSep
///     scrollVBack          # public
///       scrollVFrame       # public
///     cursorVSep
///       cursorVFrame       # public
/// scrollHSwitch
///   leftSep
///     leftSwitch
///       leftReleased       # public, child 0
///       leftPressed        # public, child 1
///   rightSep
///     rightSwitch
///       rightReleased      # public, child 0
///       rightPressed       # public, child 1
///   scrollHSep
///     scrollHBack          # public
///       scrollHFrame       # public
///     cursorHSep
///       cursorHFrame       # public
/// editSep
///   frameSep
///     frameSwitch
///       frame              # public, child 0
///       editFrame          # public, child 1
///   textSep
///     textProp             # public
/// \endcode
class QUILLFORM_API SoDialogEditText : public SoDialogComponent {
  typedef SoDialogComponent inherited;
  SO_QUILLFORM_HEADER(SoDialogEditText);
  SO_KIT_CATALOG_ENTRY_HEADER(labelSep);
  SO_KIT_CATALOG_ENTRY_HEADER(labelSwitch);
  SO_KIT_CATALOG_ENTRY_HEADER(labelProp);
  SO_KIT_CATALOG_ENTRY_HEADER(scrollVSwitch);
  SO_KIT_CATALOG_ENTRY_HEADER(downSep);
  SO_KIT_CATALOG_ENTRY_HEADER(downSwitch);
  SO_KIT_CATALOG_ENTRY_HEADER(downReleased);
  SO_KIT_CATALOG_ENTRY_HEADER(downPressed);
  SO_KIT_CATALOG_ENTRY_HEADER(upSep);
  SO_KIT_CATALOG_ENTRY_HEADER(upSwitch);
  SO_KIT_CATALOG_ENTRY_HEADER(upReleased);
  SO_KIT_CATALOG_ENTRY_HEADER(upPressed);
  SO_KIT_CATALOG_ENTRY_HEADER(scrollVSep);
  SO_KIT_CATALOG_ENTRY_HEADER(scrollVBack);
  SO_KIT_CATALOG_ENTRY_HEADER(scrollVFrame);
  SO_KIT_CATALOG_ENTRY_HEADER(cursorVSep);
  SO_KIT_CATALOG_ENTRY_HEADER(cursorVFrame);
  SO_KIT_CATALOG_ENTRY_HEADER(scrollHSwitch);
  SO_KIT_CATALOG_ENTRY_HEADER(leftSep);
  SO_KIT_CATALOG_ENTRY_HEADER(leftSwitch);
  SO_KIT_CATALOG_ENTRY_HEADER(leftReleased);
  SO_KIT_CATALOG_ENTRY_HEADER(leftPressed);
  SO_KIT_CATALOG_ENTRY_HEADER(rightSep);
  SO_KIT_CATALOG_ENTRY_HEADER(rightSwitch);
  SO_KIT_CATALOG_ENTRY_HEADER(rightReleased);
  SO_KIT_CATALOG_ENTRY_HEADER(rightPressed);
  SO_KIT_CATALOG_ENTRY_HEADER(scrollHSep);
  SO_KIT_CATALOG_ENTRY_HEADER(scrollHBack);
  SO_KIT_CATALOG_ENTRY_HEADER(scrollHFrame);
  SO_KIT_CATALOG_ENTRY_HEADER(cursorHSep);
  SO_KIT_CATALOG_ENTRY_HEADER(cursorHFrame);
  SO_KIT_CATALOG_ENTRY_HEADER(editSep);
  SO_KIT_CATALOG_ENTRY_HEADER(frameSep);
  SO_KIT_CATALOG_ENTRY_HEADER(frameSwitch);
  SO_KIT_CATALOG_ENTRY_HEADER(frame);
  SO_KIT_CATALOG_ENTRY_HEADER(editFrame);
  SO_KIT_CATALOG_ENTRY_HEADER(textSep);
  SO_KIT_CATALOG_ENTRY_HEADER(textProp);

public:
  SoSFString editText;  ///< the text, Latin-1; default empty
  SoSFBool editable;    ///< the user can change the text; default TRUE
  SoSFBool multiLine;   ///< several lines; default FALSE
  SoSFBool wrapLine;    ///< long lines of several are broken; default TRUE
  SoSFBool trigOnEnter; ///< auditors hear of finished texts only, not of every change; default TRUE
  SoSFBool isNumeric;   ///< without effect: this is meant; default FALSE

  SoDialogEditText();

  SO_SKIN_HEADER();

  using SoQuillform::addAuditor;
  using SoQuillform::removeAuditor;
  void addAuditor(SoDialogEditTextAuditor* auditor);    ///< adds an auditor at the end, unless it is in the list
  void removeAuditor(SoDialogEditTextAuditor* auditor); ///< takes an auditor out of the list; it stays alive
  void applyDlgCptAuditor() override;

  void buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget) override;
  void updateFromSensor(SoSensor* sensor) override;

  /// The user has pressed Return (\a event 1) or changed the text (\a event 2) in the window.
  void eventNotify(unsigned int event, unsigned long data) override;

  void handleEvent(SoHandleEventAction* action) override; ///< gives the element events in the scene

  SbVec2i32 getComponentInitSize() override;
  void getDefaultSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max) override;
  void setFocus() override;
  void changeEnable() override;
  void changeLabel() override;
  void changeLabelAlignment() override;
  void changeLabelVisibility() override;
  void changeEdgeStyle() override;
  void changeWidgetEnable(int enable) override;

  virtual void changeEditable(); ///< lets the user type in the window, or not

  /// Replaces the editor of the window by one of the other kind, at the same place.
  virtual void changeMultiLine();

  virtual void changeWrapLine(); ///< breaks long lines in the window, or not
  virtual void changeEditText(); ///< shows the text in the window

  void createEditTextWidget(); ///< does nothing: the editor is made together with the label
  void updateEditTextWidget(); ///< places the editor in the window
  void updateLabelWidget();    ///< places the label in the window

  /// \name Editing in the scene
  /// @{

  /// TRUE while what is typed in the scene goes into this text.
  SbBool isEditing3D() const;

  /// Ends editing, and calls the auditors if `trigOnEnter` is set; calls nobody when nobody is editing.
  void finish3DEditing();

  /// Adds a character at the end as if the user had typed it; 10 begins a new line.
  void insertCharTo3DText(char character);

  /// Takes the last character away as if the user had pressed Backspace.
  void removeCharIn3DText();

  void move3DCaret(int x, int y); ///< does nothing: texts are edited at their end only

  /// Scrolls the text by \a delta scene units, towards the beginning when it is positive.
  void move3DCursor(float delta);

  void set3DInactive() override;
  /// @}

  void change3DEnable() override;
  void change3DWidgetEnable(int enable) override;
  void change3DLabel() override;
  void change3DLabelAlignment() override;
  void change3DLabelVisibility() override;
  SbBool pressKey3D(const SoKeyboardEvent* event) override;
  void show3D(int show) override;
  void update3DAfterSkinChange() override;
  void change3DEditText();   ///< lays the text out again
  void update3DEditText();   ///< places everything but the label
  void update3DLabel();      ///< places the label
  void update3DScrollBars(); ///< shows the scroll bars that the text needs
  void update3DCursors();    ///< gives the cursors of the scroll bars their lengths and places

  /// Follows a text that the user has just changed: \a previousLine was the index of its last line before.
  void update3DTextCache(int previousLine);
  void update3DTextScrollPosition(); ///< shows the lines to which the bars are scrolled
  void update3DTextPosition();       ///< scrolls to the end of a text that is being edited, and shows the caret

  /// \name Steps of the build
  /// What is there already is not made again.
  /// @{
  void createLabelWidget();      ///< makes the relay, with all its widgets
  void create3DDialogEditText(); ///< makes the 3D form
  bool processKeyEvents(
    const SoKeyboardEvent* event); ///< takes a key while the text is edited in the scene; TRUE when it was used
  /// @}

protected:
  ~SoDialogEditText() override;

  void placeWidgets() override;
  void update3D() override;
  bool usesKeys3D() const override;
  void press3D() override;
  void drag3D() override;
  void release3D() override;

private:
  /// A scroll bar with the parts that can be pressed.
  struct Scroller {
    So3DScrollBar bar;
    SoNode* buttons[2] = {nullptr, nullptr}; // by So3DScrollBar::Button
    SoNode* groove = nullptr;
    SoNode* cursor = nullptr;
  };

  void setUpRelay();
  QRect getEditorRect(const SbVec2i32& frameSize) const;
  QRect getFrameRect3D() const;
  QRect getTextRect3D() const;
  int getRows3D() const; // that have room in the frame
  SbString getShownText() const;
  void setLines3D();
  void setTextFromUser(const SbString& text);
  void start3DEditing();
  void stop3DEditing();
  void updateUsability3D();
  bool pressScroller(Scroller& scroller);
  void scrollTo(Scroller& scroller, float scrolled);

  SbVec2i32 m_textSize{0, 0};              // of editText with its margins, once measured
  So3DTextLines m_lines;                   // the text in the scene
  Scroller m_vertical;                     // in texts of several lines
  Scroller m_horizontal;                   // in those that are not wrapped
  Scroller* m_pressed = nullptr;           // whose button or cursor the pointer holds
  int m_pressedButton = -1;                // a So3DScrollBar::Button, -1 for the cursor
  float m_dragStart = 0.0F;                // where the pointer took the cursor
  float m_scrolledAtStart = 0.0F;          // and how far the bar was scrolled then
  bool m_editing3D = false;                // what is typed in the scene goes here
  SoTransform* m_frameTransform = nullptr; // below frameSep, which owns it
  SoSwitch* m_caretSwitch = nullptr;       // below editSep, which owns it
  SoTransform* m_caretTransform = nullptr; // below the caret's switch, which owns it
};

#endif // QUILLFORM_SODIALOGEDITTEXT_H
