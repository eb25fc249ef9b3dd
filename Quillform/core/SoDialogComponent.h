#ifndef QUILLFORM_SODIALOGCOMPONENT_H
#define QUILLFORM_SODIALOGCOMPONENT_H

#include <Inventor/fields/SoSFInt32.h>
#include <QRect>
#include <QSizePolicy>
#include <Quillform/core/So3DText.h>
#include <Quillform/core/SoDialogQFrame.h>
#include <Quillform/core/SoSizingFields.h>
#include <Quillform/core/SoSkinFile.h>
#include <Quillform/core/SoTopComponent.h>
#include <functional>
#include <memory>
#include <optional>

class QLayoutItem;
class QSpacerItem;
class SoKeyboardEvent;

/// How a component's frame stands in its cell of the layout, the same in both forms.
struct SoCellLimits {
  QSizePolicy::Policy horizontal = QSizePolicy::Preferred; ///< across
  QSizePolicy::Policy vertical = QSizePolicy::Preferred;   ///< upright
  QSize minimum = QSize(0, 0);                             ///< in pixels
  QSize maximum = QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX); ///< in pixels
};

/// What a layout inside a component's frame wants of the frame.
struct SoPlannedContents {
  QSize minimum = QSize(0, 0); ///< in pixels
  Qt::Orientations expanding;  ///< where it takes all room that the frame's neighbours leave
};

/// Base of every control and group: the sizing fields, the label beside the control, and the edge.
///
/// A size of 0 is computed from the contents. What the layout computes is stored in the fields while the
/// element is on screen; what the author set is remembered, used again at the next build and written to files.
///
/// File format, after the fields of SoQuillform, with the defaults:
/// \code
/// DialogComponent {
///   width            0      # SoSFInt32: wanted width in pixels; 0 is computed
///   height           0      # SoSFInt32: wanted height in pixels; 0 is computed
///   fixedWidth       FALSE  # SoSFBool:  the width stays when the dialog is resized
///   fixedHeight      FALSE  # SoSFBool:  the height stays when the dialog is resized
///   minWidth         0      # SoSFInt32: smallest width; 0 is the class's own, 25
///   minHeight        0      # SoSFInt32: smallest height; 0 is the class's own, 25
///   maxWidth         0      # SoSFInt32: largest width; 0 is the class's own, 32767 (unbounded)
///   maxHeight        0      # SoSFInt32: largest height; 0 is the class's own, 32767 (unbounded)
///   labelVisibility  TRUE   # SoSFBool:  the label is shown
///   edgeStyle        NONE   # SoSFEnum:  NONE, SHADOW_IN or SHADOW_OUT, the frame around the control
/// }
/// \endcode
///
/// Catalog, below `geomSwitch`:
/// \code
/// mainCptSeparator
///   edgeStyleSwitch
///     edgeStyleNone        # public
///     edgeStyleShadowIn    # public
///     edgeStyleShadowOut   # public
/// \endcode
class QUILLFORM_API SoDialogComponent : public SoTopComponent {
  typedef SoTopComponent inherited;
  SO_QUILLFORM_HEADER(SoDialogComponent);
  SO_KIT_CATALOG_ENTRY_HEADER(mainCptSeparator);
  SO_KIT_CATALOG_ENTRY_HEADER(edgeStyleSwitch);
  SO_KIT_CATALOG_ENTRY_HEADER(edgeStyleNone);
  SO_KIT_CATALOG_ENTRY_HEADER(edgeStyleShadowIn);
  SO_KIT_CATALOG_ENTRY_HEADER(edgeStyleShadowOut);

public:
  /// The frame drawn around a control.
  enum EdgeStyle { NONE = 0, SHADOW_IN = 1, SHADOW_OUT = 2 };

  /// Stands for an unbounded width or height in every size computation.
  static constexpr int unbounded = 32767;

  SoSFInt32 width;          ///< wanted width in pixels, 0 computed; default 0
  SoSFInt32 height;         ///< wanted height in pixels, 0 computed; default 0
  SoSFBool fixedWidth;      ///< the width stays when the dialog is resized; default FALSE
  SoSFBool fixedHeight;     ///< the height stays when the dialog is resized; default FALSE
  SoSFInt32 minWidth;       ///< smallest width in pixels, 0 for the class's own; default 0
  SoSFInt32 minHeight;      ///< smallest height in pixels, 0 for the class's own; default 0
  SoSFInt32 maxWidth;       ///< largest width in pixels, 0 for the class's own; default 0
  SoSFInt32 maxHeight;      ///< largest height in pixels, 0 for the class's own; default 0
  SoSFBool labelVisibility; ///< the label is shown; default TRUE
  SoSFEnum edgeStyle;       ///< an EdgeStyle; default NONE

  SoDialogComponent();

  SO_SKIN_HEADER();

  void buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget) override;
  void destroyWidget() override;
  void updateFromSensor(SoSensor* sensor) override;
  void resetSize() override;
  void changeEnable() override;
  void changeLabelAlignment() override;
  void getSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max) override;
  void restoreAuthoredSizes() override;
  void startFromAuthoredSizes() override;

  /// The Qt widget of the label; nullptr when there is none.
  virtual QWidget* getLabelWidget();

  /// Reacts to what the user did to the control's relay; each class says what \a event and \a data mean.
  virtual void eventNotify(unsigned int event, unsigned long data);

  /// The size that the container gives the label column, in pixels.
  virtual void setLabelSize(SbVec2i32& size);

  /// The size that the container gives the control beside the label, in pixels.
  virtual void setComponentSize(SbVec2i32& size);

  /// The natural size of the control without its label; (0, 0) in this class.
  virtual SbVec2i32 getComponentInitSize();

  /// The natural size of the label's text.
  virtual SbVec2i32 getLabelInitSize();

  virtual void setFocus(); ///< gives the control the keyboard of the window; without effect in this class

  /// Tells the component whether its container lets it be operated.
  virtual void changeWidgetEnable(int enable);

  /// The class's own size and bounds, used where a sizing field is 0.
  virtual void getDefaultSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max);

  virtual void changeLabelVisibility();   ///< shows or hides the label in the window
  virtual void changeEdgeStyle();         ///< draws the edge in the window
  virtual void updateComponentWidget();   ///< gives the frame its cell's limits
  virtual void changeWidth();             ///< reacts to width
  virtual void changeHeight();            ///< reacts to height
  virtual void changeMinMaxSize();        ///< reacts to the smallest and largest sizes
  virtual void change3DLabelVisibility(); ///< shows or hides the label in the scene
  virtual void change3DEdgeStyle();       ///< shows the edge in the scene

  void change3DLabel() override;
  void change3DLabelAlignment() override;
  void update3DAfterSkinChange() override;

  const SbVec2i32& getLabelSize() const;     ///< see setLabelSize()
  const SbVec2i32& getComponentSize() const; ///< see setComponentSize()

  /// Writes the six sizing fields without a reaction.
  void setSize(int width, int height, int minWidth, int minHeight, int maxWidth, int maxHeight);

  /// What the author set: (width, height), (minWidth, minHeight), (maxWidth, maxHeight).
  void getDefaultState(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max) const;

  /// Marks as default each sizing field that its author left at 0.
  void setDefaultState();

  /// Where the control stands inside the component's rectangle in the window, from its top-left corner.
  void get2DComponentSize(SbVec2i32& size, SbVec2i32& position) const;

  /// Where the control stands inside the component's rectangle in the scene: its size, and its centre
  /// relative to the component's.
  void get3DComponentSize(SbVec2i32& size, SbVec2i32& position) const;

  /// The component's frame, or the parent widget while that is being made; nullptr before the build.
  QWidget* getWidget() const;

  /// The component's layout, its cell unless a class has one of its own; nullptr before the build.
  virtual QBoxLayout* getLayout() const;

  /// The component's place in its parent's layout; nullptr before the build.
  QBoxLayout* getCell() const;

  /// Prepares the component's cell in its parent's layout.
  void createComponentWidget(QWidget* parent);

  /// Builds the component's widgets inside \a parent, for its container. They stay as they are when nothing that they
  /// depend on has changed since the last build: a dialog of a thousand rows is built anew for each row that is added.
  void buildWidgetIfChanged(QWidget* parent);

  /// Builds the 3D form, for its container, where a layout of the window would put the frame. Like there, a neighbour
  /// may stretch a frame beyond a maximum that its widget does not have.
  void build3DInPlan(const QRect& rect);

  /// TRUE when buildWidgetIfChanged() would keep the widgets.
  bool isWidgetUpToDate(const QWidget* parent) const;

  /// The frame has a new size: stores it in width and height and places what stands inside.
  void widgetResized(int newWidth, int newHeight);

  /// TRUE when the frame never gets smaller than the size chosen for it, whatever its minimum fields say.
  virtual bool hasSizeAsMinimum() const;

  /// Raises what getSize() chose where what stands inside the frame would overlap: a layout goes down to the minimum.
  /// The class itself holds nothing.
  virtual void leaveRoomForContents(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max);

  /// How the component's frame stands in its cell.
  virtual SoCellLimits getCellLimits() const;

  /// The component's cell as it stands in a layout of the window, for planning the 3D form; the caller owns it.
  /// \a hint is the size wanted for the component, and its final rectangle is stored in \a rect.
  QLayoutItem* createPlannedCell(const QSize& hint, QRect& rect, bool verticalCell);

  /// What the layout inside the component's frame wants; nothing when there is none.
  virtual SoPlannedContents getPlannedContents();

  /// Tells the frame, if there is one, how large it should be.
  void setPlannedSize(const SbVec2i32& size);

  /// The rectangle size of the 3D form, in scene units.
  const SbVec2i32& get3DSize() const;

  /// \name Keyboard in the scene
  /// See So3DKeyboard.
  /// @{

  /// Does what a key that went down means to the element. TRUE when it means something. In this class the keys that
  /// press a button press the element.
  SbBool pressKey3D(const SoKeyboardEvent* event) override;

  /// What is outlined while the element has the keyboard: getKeyboardRect3D(), from the component's centre.
  SbBox2f getKeyboardBox3D() const override;

  /// The same in pixels, from the component's top-left corner; y points down.
  virtual QRect getKeyboardRect3D() const;
  /// @}

  void getBoundingBox(SoGetBoundingBoxAction* action) override; ///< the extent of the 3D form

protected:
  explicit SoDialogComponent(const PartsLater& later); ///< see PartsLater

  /// Width and height in pixels of the label's text, measured once for as long as the text and the font stay.
  const SbVec2i32& measureLabel() const;
  ~SoDialogComponent() override;

  /// Copies what is not in fields too.
  void copyContents(const SoFieldContainer* from, SbBool copyConnections) override;
  void exchangeAuthoredValues(bool writing) override;

  /// The relay, once setRelay was called and as long as Qt keeps it.
  template <class Relay>
  Relay* getRelay() const
  {
    return static_cast<Relay*>(static_cast<QFrame*>(m_frame.data()));
  }

  /// The class's size and bounds as getSize uses them: getDefaultSize, with what a class adds to it.
  virtual void getDefaultFrameSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max);

  /// The width and height that the fields say, within what a widget can have.
  SbVec2i32 getFrameSize() const;

  /// The sizing fields as the author set them.
  SoSizingFields::Values getAuthoredSizes() const;

  /// The frame's minimum, as far as the maximum leaves room for it.
  QSize getSmallestSize() const;

  /// TRUE when the build depends on more than the component's fields and the sizes that its container gives it.
  virtual bool isAlwaysBuilt() const;

  /// TRUE while the component has its cell but no frame in it yet.
  bool takesFrame() const;

  /// Makes \a frame the component's widget.
  void setFrame(QFrame* frame);

  /// Puts the frame, made by a derived class, into the component's cell.
  void addFrameToCell();

  /// Places what stands inside the frame; called after every build and resize of the frame.
  virtual void placeWidgets();

  /// \name The label beside the control
  /// Most controls have one; their own operations come down to these.
  /// @{
  void showSideLabel();        ///< gives the relay the label's text
  void alignSideLabel();       ///< gives the relay the label's alignment
  void placeSideLabel();       ///< places the relay's label
  QRect getButtonRect() const; ///< what a button or check box gets beside the label, in the relay
  virtual QRect getSideLabelRect(int frameHeight) const; ///< its rectangle, from the component's top-left corner
  /// @}

  /// \name The 3D form
  /// @{

  /// Makes the component's edge and, when \a sideLabelSwitch names the switch of its label, the label.
  void create3DDialogComponent();

  /// Makes the label below the switch part \a switchName, with the text properties in \a propertiesName.
  void create3DSideLabel(const char* switchName, const char* propertiesName);

  /// Gives the edge and the label their places.
  void update3DDialogComponent();
  void update3DSideLabel(); ///< gives the label its place

  /// get3DComponentSize for a component of the size \a frame. The two forms may have different sizes at a time.
  void getControlRect3D(const SbVec2i32& frame, SbVec2i32& size, SbVec2i32& position) const;

  /// The user presses the element with a key. FALSE when it cannot be pressed.
  virtual SbBool pressWithKey3D();

  /// Lays out the 3D form of a derived class; called after every 3D build and change of skin.
  virtual void update3D();

  /// Height of the component's front face over its origin, in scene units: where controls stand.
  static constexpr float faceHeight = 1.0F;
  /// @}

  SbVec2i32 m_labelSize{0, 0};     ///< see setLabelSize
  SbVec2i32 m_componentSize{0, 0}; ///< see setComponentSize
  SbVec2i32 m_labelInitSize{0, 0}; ///< last result of getLabelInitSize
  SbVec2i32 m_initSize{-1, -1};    ///< cache of getComponentInitSize in the controls; width -1 is not computed
  SbVec2i32 m_ownSize{0, 0};       ///< the size at the last build before the container asked for another
  SbVec2i32 m_position{0, 0};      ///< given to the last build

private:
  /// What a build of the widgets started from, apart from the fields, and the sizes that came out.
  struct WidgetBuild {
    const QWidget* parent = nullptr;
    int fontGeneration = 0;
    SbVec2i32 labelSize{0, 0};
    SbVec2i32 componentSize{0, 0};
    SoSizingFields::Values sizes{};
  };
  SbVec2i32 chooseSize(const SbVec2i32& wanted);
  void create3DIfNeeded();
  void takeFrameSize();
  void removeFrame();
  QBoxLayout* createCell(bool verticalCell, std::unique_ptr<QSpacerItem>& spacer) const;
  void setSpare(QSpacerItem& spacer, bool verticalCell) const;

  QPointer<QWidget> m_componentWidget;   // parent widget, then the frame
  QPointer<QFrame> m_frame;              // the relay or frame of the derived class
  QPointer<QBoxLayout> m_cell;           // the component's place in its parent's layout
  std::unique_ptr<QSpacerItem> m_spacer; // waits for the frame, then belongs to the cell
  SoSizingFields m_sizes;                // the sizing fields, with what the author gave them
  mutable SbString m_measuredLabel;      // what measureLabel() measured last
  mutable int m_measuredFontGeneration = -1;
  mutable bool m_measuredAsOneLine = false;
  mutable SbVec2i32 m_measuredSize{0, 0}; // and what came out
  WidgetBuild m_widgetBuild;              // the last one
  So3DText m_sideLabel3D;                 // the label in the scene
  SoTransform* m_edgeTransform = nullptr; // below mainCptSeparator, which owns it
  SoSwitch* m_sideLabelSwitch = nullptr;  // a catalog part of the derived class
  SbVec2i32 m_size3D{0, 0};               // rectangle of the 3D form
  std::optional<SbVec2i32> m_planned3D;   // during build3DInPlan
};

#endif // QUILLFORM_SODIALOGCOMPONENT_H
