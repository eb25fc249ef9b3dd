#ifndef QUILLFORM_SODIALOGSLIDER_H
#define QUILLFORM_SODIALOGSLIDER_H

#include <Inventor/fields/SoMFColor.h>
#include <Quillform/controls/SoValueFormat.h>
#include <Quillform/core/SoDialogComponent.h>
#include <Quillform/platform/SoQtBasicSlider.h>
#include <optional>

class SoKeyboardEvent;

/// Base of the sliders: a bar along which the user moves a cursor, the value as text, and a toggle that makes the
/// slider report every motion instead of the end of each. Dialogs use DialogIntegerSlider and DialogRealSlider;
/// this class has a position and no value.
///
/// File format, after the fields of SoDialogComponent, with the defaults:
/// \code
/// DialogSlider {
///   valueVisible       TRUE              # SoSFBool:   the value is shown as text, which may be typed over
///   format             "%3f"             # SoSFString: printf-style format of that text, with one conversion
///   continuousTrigger  FALSE             # SoSFBool:   every motion is reported, not only the end of a drag
///   toggleVisible      TRUE              # SoSFBool:   the toggle, which edits continuousTrigger, is shown
///   fixedLimits        FALSE             # SoSFBool:   a typed value stays within the limits, else they give way
///   colors             0.66 0.66 0.66    # SoMFColor:  of the bar, from left to right
///   shadedColors       TRUE              # SoSFBool:   the colours run into each other and the bar looks round
/// }
/// \endcode
///
/// Catalog, below `geomSwitch`:
/// \code
/// labelSep
///   labelSwitch
///     labelProp          # public
/// checkSep
///   checkSwtch
///     checkStateOff      # public, child 0
///     checkStateOn       # public, child 1
/// sliderSep
///   frameSep
///     frame              # public
///   cursorSep
///     cursor             # public
/// edtSwtch
///   edtFrmSep
///     edtFrmSwtch
///       valueFrame       # public, child 0
///       editValueFrame   # public, child 1
///   editTextSep
///     editTextProp       # public
/// \endcode
class QUILLFORM_API SoDialogSlider : public SoDialogComponent {
  typedef SoDialogComponent inherited;
  SO_QUILLFORM_HEADER(SoDialogSlider);
  SO_KIT_CATALOG_ENTRY_HEADER(labelSep);
  SO_KIT_CATALOG_ENTRY_HEADER(labelSwitch);
  SO_KIT_CATALOG_ENTRY_HEADER(labelProp);
  SO_KIT_CATALOG_ENTRY_HEADER(checkSep);
  SO_KIT_CATALOG_ENTRY_HEADER(checkSwtch);
  SO_KIT_CATALOG_ENTRY_HEADER(checkStateOff);
  SO_KIT_CATALOG_ENTRY_HEADER(checkStateOn);
  SO_KIT_CATALOG_ENTRY_HEADER(sliderSep);
  SO_KIT_CATALOG_ENTRY_HEADER(frameSep);
  SO_KIT_CATALOG_ENTRY_HEADER(frame);
  SO_KIT_CATALOG_ENTRY_HEADER(cursorSep);
  SO_KIT_CATALOG_ENTRY_HEADER(cursor);
  SO_KIT_CATALOG_ENTRY_HEADER(edtSwtch);
  SO_KIT_CATALOG_ENTRY_HEADER(edtFrmSep);
  SO_KIT_CATALOG_ENTRY_HEADER(edtFrmSwtch);
  SO_KIT_CATALOG_ENTRY_HEADER(valueFrame);
  SO_KIT_CATALOG_ENTRY_HEADER(editValueFrame);
  SO_KIT_CATALOG_ENTRY_HEADER(editTextSep);
  SO_KIT_CATALOG_ENTRY_HEADER(editTextProp);

public:
  SoSFBool valueVisible;      ///< the value is shown as text; default TRUE
  SoSFString format;          ///< of that text, with one conversion; default "%3f"
  SoSFBool continuousTrigger; ///< every motion is reported; default FALSE
  SoSFBool toggleVisible;     ///< the toggle of continuousTrigger is shown; default TRUE
  SoSFBool fixedLimits;       ///< a typed value stays within the limits; default FALSE
  SoMFColor colors;           ///< of the bar, from left to right; default (0.66, 0.66, 0.66)
  SoSFBool shadedColors;      ///< the colours are shaded; default TRUE

  SoDialogSlider();

  SO_SKIN_HEADER();

  /// Where the cursor stands, from 0 at the left end of the bar to 1 at the right one.
  float getSliderPosition() const;

  /// The text of what the slider shows.
  SbString getValueText() const;

  /// What the positions of the bar stand for.
  SoQtBasicSlider::Scale getScale() const;

  /// Width of the zone that shows the value, and of the bar, in the window and in pixels.
  int getEditZoneWidth() const;
  int getSliderWidth() const; ///< the width of the bar in the window, in pixels

  /// \name What the user does
  /// @{

  /// The bar has been moved: shows it and, while `continuousTrigger` is set, reports it.
  void changeValueFromSlider(float position);

  /// A motion of the bar is over: reports it.
  void changeValueAfterFinish();

  /// A value has been typed, in the window if \a fromQt is non-zero, else in the scene: shows and reports it.
  void changeSliderFromEdit(int fromQt = 1);

  /// The user has changed the toggle of the window (\a event 1).
  void eventNotify(unsigned int event, unsigned long data) override;
  /// @}

  /// Moves the cursor by \a delta, which is added to its position. Reports nothing.
  void changeSliderFromSlider(float delta);

  /// Takes the position from the typed text, of the window if \a fromQt is non-zero, else of the scene. A text that
  /// is no finite number is replaced by the one before.
  virtual void setValueFromEdit(int fromQt);

  /// Takes a position of the bar.
  virtual void setValueFromSlider(float position);

  virtual void changeSliderValue(); ///< gives the bar of the window its position

  /// Stores the value at the position, and reports it if it is another one.
  virtual void setValue();

  virtual void changeEditValue();         ///< shows the value in the window
  virtual int computeEditZoneWidth();     ///< the width that the widest value needs, with its margins
  virtual void changeValueVisible();      ///< shows or hides the value in the window
  virtual void changeToggleVisible();     ///< shows or hides the toggle of the window
  virtual void changeContinuousTrigger(); ///< shows the field in the window's toggle
  virtual void changeFormat();            ///< shows the value in the new format, in both forms
  virtual void change3DEditValue();       ///< shows the value in the scene

  /// Applies a key to the text that is being typed in the scene.
  virtual void computeNewSliderEditValue(const SoKeyboardEvent* event);

  /// Ends typing in the scene; what was typed and not confirmed by Return is dropped.
  virtual void finish3DEditing();

  /// TRUE while what is typed in the scene goes into this slider's value.
  SbBool isEditing3D() const;

  void buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget) override;
  void updateFromSensor(SoSensor* sensor) override;
  void handleEvent(SoHandleEventAction* action) override; ///< gives the element events in the scene
  SbVec2i32 getComponentInitSize() override;
  void getDefaultSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max) override;
  bool hasSizeAsMinimum() const override;
  void setFocus() override;
  void changeEnable() override;
  void changeLabel() override;
  void changeLabelAlignment() override;
  void changeLabelVisibility() override;
  void updateWidget();       ///< places everything but the label again, in both forms
  void updateSliderWidget(); ///< places toggle and bar of the window
  void updateEditWidget();   ///< places the value of the window

  void show3D(int show) override;
  void set3DInactive() override;
  void change3DEnable() override;
  void change3DWidgetEnable(int enable) override;
  void change3DLabelVisibility() override;
  SbBool pressKey3D(const SoKeyboardEvent* event) override;
  void change3DValueVisible();      ///< shows or hides the value in the scene
  void change3DToggleVisible();     ///< shows or hides the toggle in the scene
  void change3DContinuousTrigger(); ///< shows the field in the toggle of the scene
  void change3DSliderValue();       ///< shows position and value in the scene
  void change3DCursor();            ///< gives the cursor its place
  void update3DSlider();            ///< places everything but the label

  /// \name Steps of the build
  /// What is there already is not made again.
  /// @{
  void createLabelWidget();    ///< makes the relay, with all its widgets
  void updateLabelWidget();    ///< places the widgets of the relay
  void create3DDialogSlider(); ///< makes the 3D form
  bool processKeyEvents(
    const SoKeyboardEvent* event); ///< takes a key while the value is edited in the scene; TRUE when it was used
  /// @}

protected:
  /// The two ends of the bar, and the value field.
  struct Range {
    double min;   ///< value at the left end
    double max;   ///< value at the right end
    double value; ///< between them
  };

  ~SoDialogSlider() override;

  /// The constructor of a slider with values of \a kind; \a defaultFormat is used where `format` cannot be.
  SoDialogSlider(SoValueFormat::Kind kind, const char* defaultFormat);

  virtual Range getRange() const; ///< the value and its limits as numbers

  /// The value at a position, as the value field would hold it.
  virtual double getValueAt(float position) const;

  /// A number typed by the user, as the value field would hold it; nothing for one that it cannot hold.
  virtual std::optional<double> convertTyped(double typed) const;

  /// Writes the value field, or the limits, without a reaction.
  virtual void storeValue(double value);
  virtual void storeLimits(double min, double max); ///< sets the limits without a reaction

  /// How far an arrow key moves the cursor, as a part of the bar.
  virtual float getSingleStep() const;

  /// Code has changed the value or its limits: the cursor goes where the value says.
  void followValue();

  void placeWidgets() override;
  void update3D() override;
  bool usesKeys3D() const override;
  void press3D() override;
  void drag3D() override;
  void release3D() override;

private:
  /// Where the parts stand, from the component's top-left corner.
  struct Places {
    QRect toggle;
    QRect bar;
    QRect edit;
  };

  void showColors();
  Places getPlaces(const SbVec2i32& size) const;
  float getPositionOf(double value) const;
  double getShownValue() const;
  const SoValueFormat& getFormat() const;
  float getPageStep() const; // of the cursor
  void showValue();
  void dropUnfinished();
  void setContinuousFromUser(bool continuous);

  void create3DCaret();
  void create3DColors();
  void change3DColors();
  void start3DEditing();
  float getPointerOnBar();       // the position under the pointer, which may be beyond the ends
  float getCursorRoom() const;   // from the cursor's first place to its last, in scene units
  float getFirstCursorX() const; // of the cursor's middle at position 0, from the component's

  mutable SoValueFormat m_format;               // after the text in m_formatText
  mutable std::optional<SbString> m_formatText; // the format field as it was when it was parsed
  std::optional<float> m_moved;  // where the user has moved the cursor, from 0 to 1; else it follows the value
  std::optional<double> m_typed; // the value that the user typed, exactly; m_moved is its position
  int m_editZoneWidth = 0;
  int m_sliderWidth = 0;

  So3DText m_valueText3D;
  SoTransform* m_checkTransform = nullptr;  // below checkSep, which owns it
  SoTransform* m_frameTransform = nullptr;  // below frameSep, which owns it
  SoTransform* m_cursorTransform = nullptr; // below cursorSep, which owns it
  SoTransform* m_valueTransform = nullptr;  // below edtFrmSep, which owns it
  SoSwitch* m_caretSwitch = nullptr;        // below editTextSep, which owns it
  SoTransform* m_caretTransform = nullptr;  // below the caret's switch, which owns it
  SoSeparator* m_colors3D = nullptr;        // below frameSep, which owns it
  enum Pressed { NOTHING, BAR, TOGGLE };
  Pressed m_pressed = NOTHING; // what the pointer holds in the scene
  float m_grabOffset = 0.0F;   // from the cursor's position to where the pointer holds it, in positions
  bool m_editing3D = false;    // what is typed in the scene goes into the value
  SbString m_editText3D;       // the text typed so far
};

#endif // QUILLFORM_SODIALOGSLIDER_H
