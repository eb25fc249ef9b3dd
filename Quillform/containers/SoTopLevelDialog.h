#ifndef QUILLFORM_SOTOPLEVELDIALOG_H
#define QUILLFORM_SOTOPLEVELDIALOG_H

#include <Inventor/fields/SoSFInt32.h>
#include <Inventor/fields/SoSFVec2i32.h>
#include <Inventor/fields/SoSFVec3f.h>
#include <QVBoxLayout>
#include <Quillform/core/So3DText.h>
#include <Quillform/core/SoBoxModel.h>
#include <Quillform/core/SoChildOperations.h>
#include <Quillform/core/SoSizingFields.h>
#include <Quillform/core/SoSkinFile.h>
#include <Quillform/core/SoTopComponent.h>
#include <array>
#include <memory>

class SoDialogAuditor;

/// The root of a dialog: a window of its own, a widget of the application that it takes over, or a panel in
/// the scene. Its children stand one below the other; their labels share one column and their controls another.
///
/// \code
/// SoQuillform::init();
/// auto* dialog = static_cast<SoTopLevelDialog*>(SoQuillform::loadFromFile("settings.iv", "settings"));
/// dialog->addAuditor(&myAuditor);
/// dialog->buildDialog(nullptr, FALSE);
/// dialog->show();
/// \endcode
///
/// A file may spell the class `TopLevelDialog` or `SoTopLevelDialog`:
/// \code
/// TopLevelDialog {
///   label "Settings"
///   DialogPushButton { auditorID "apply" buttonLabel "Apply" }
/// }
/// \endcode
///
/// File format, after the fields of SoQuillform, with the defaults; the children follow the fields:
/// \code
/// TopLevelDialog {
///   width                         0         # SoSFInt32: width in pixels; 0 is computed
///   height                        0         # SoSFInt32: height in pixels; 0 is computed
///   position                      0 0       # SoSFVec2i32: place on the screen; the window stands 20 pixels lower
///   position3D                    0 0 0     # SoSFVec3f: top-left corner in the scene; y points down
///   resizable                     TRUE      # SoSFBool: the user may resize the window
///   minWidth                      0         # SoSFInt32: smallest width; 0 is computed
///   minHeight                     0         # SoSFInt32: smallest height; 0 is computed
///   maxWidth                      16777215  # SoSFInt32: largest width; 0 is computed
///   maxHeight                     16777215  # SoSFInt32: largest height; 0 is computed
///   margin                        0         # SoSFInt32: room around the children in pixels
///   rowSpacing                    0         # SoSFInt32: room between children in pixels
///   modalFrame                    FALSE     # SoSFBool: kept, without effect
///   hideChildren                  FALSE     # SoSFBool: restoring in the scene leaves the children in place
///   minimized                     FALSE     # SoSFBool: in the scene, only the title bar is shown
///   minimized3DPosition           0 0 0     # SoSFVec3f: top-left corner of that title bar; y points down
///   independentMinimizedPosition  TRUE      # SoSFBool: the two places in the scene move independently
///   windowResizedByChildren       FALSE     # SoSFBool: a change of contents computes the size anew
///   vScrollVisibility             AUTO      # SoSFEnum: NEVER, ALWAYS or AUTO; kept, without effect
///   hScrollVisibility             AUTO      # SoSFEnum: NEVER, ALWAYS or AUTO; kept, without effect
/// }
/// \endcode
///
/// Catalog, below `geomSwitch`:
/// \code
/// frameSep
///   frame            # public
/// labelSep
///   labelProp        # public
/// minSep
///   minSwtch
///     minReleased    # public
///     minPressed     # public
/// \endcode
///
/// Loading one file for two windows gives one and the same node: building it while it is built keeps the window
/// it has. Building inside a parent moves, resizes and names that parent like a window of its own.
class QUILLFORM_API SoTopLevelDialog : public SoQuillform, public SoChildOperations<SoTopComponent> {
  typedef SoQuillform inherited;
  SO_QUILLFORM_HEADER(SoTopLevelDialog);
  SO_KIT_CATALOG_ENTRY_HEADER(frameSep);
  SO_KIT_CATALOG_ENTRY_HEADER(frame);
  SO_KIT_CATALOG_ENTRY_HEADER(labelSep);
  SO_KIT_CATALOG_ENTRY_HEADER(labelProp);
  SO_KIT_CATALOG_ENTRY_HEADER(minSep);
  SO_KIT_CATALOG_ENTRY_HEADER(minSwtch);
  SO_KIT_CATALOG_ENTRY_HEADER(minReleased);
  SO_KIT_CATALOG_ENTRY_HEADER(minPressed);

public:
  /// When a scroll bar is shown.
  enum ScrollVisibility { NEVER = 0, ALWAYS = 1, AUTO = 2 };

  /// Largest size of a window in pixels, the default of maxWidth and maxHeight.
  static constexpr int largestWindow = 16777215;

  SoSFInt32 width;                       ///< width in pixels, 0 computed; default 0
  SoSFInt32 height;                      ///< height in pixels, 0 computed; default 0
  SoSFVec2i32 position;                  ///< place on the screen in pixels; default (0, 0)
  SoSFVec3f position3D;                  ///< top-left corner in the scene, y down; default (0, 0, 0)
  SoSFBool resizable;                    ///< the user may resize the window; default TRUE
  SoSFInt32 minWidth;                    ///< smallest width in pixels, 0 computed; default 0
  SoSFInt32 minHeight;                   ///< smallest height in pixels, 0 computed; default 0
  SoSFInt32 maxWidth;                    ///< largest width in pixels, 0 computed; default 16777215
  SoSFInt32 maxHeight;                   ///< largest height in pixels, 0 computed; default 16777215
  SoSFInt32 margin;                      ///< room around the children in pixels; default 0
  SoSFInt32 rowSpacing;                  ///< room between children in pixels; default 0
  SoSFBool modalFrame;                   ///< kept, without effect; default FALSE
  SoSFBool hideChildren;                 ///< restoring in the scene leaves the children in place; default FALSE
  SoSFBool minimized;                    ///< in the scene, only the title bar is shown; default FALSE
  SoSFVec3f minimized3DPosition;         ///< top-left corner of that title bar, y down; default (0, 0, 0)
  SoSFBool independentMinimizedPosition; ///< the two places move independently; default TRUE
  SoSFBool windowResizedByChildren;      ///< a change of contents computes the size anew; default FALSE
  SoSFEnum vScrollVisibility;            ///< a ScrollVisibility, without effect; default AUTO
  SoSFEnum hScrollVisibility;            ///< a ScrollVisibility, without effect; default AUTO

  SoTopLevelDialog();

  SO_SKIN_HEADER();

  /// \name Opening and closing
  /// @{

  /// Builds the dialog and returns its base widget; shows nothing yet.
  ///
  /// Makes a window, or takes over \a parent when \a buildInsideParent is set. While the in-scene mode is
  /// enabled it makes geometry instead, to be drawn wherever the node stands in a scene, and returns nullptr.
  QWidget* buildDialog(QWidget* parent, int buildInsideParent);

  /// As buildDialog(), whatever the in-scene mode says: makes a window of its own when \a asWidget is non-zero, else
  /// geometry.
  QWidget* buildAs(QWidget* parent, int asWidget);

  /// Shows or hides the dialog's own window. Without effect on a dialog built inside a parent.
  virtual void show();
  virtual void hide(); ///< hides the window; see show()

  /// Hides the dialog and drops one reference to the node. A dialog that a launcher opens belongs to its launcher and
  /// is only hidden.
  void close();

  /// Hides the dialog. One that was built inside a parent ends the whole process with status 0: it lives in the
  /// application's own widget, and the application ends with it.
  void destroyDialog();

  /// Takes the dialog out of the window system; it can be built again.
  void destroyWidget() override;
  /// @}

  QWidget* getWidget() const;     ///< the base widget; nullptr before the build and after Qt destroyed it
  QVBoxLayout* getLayout() const; ///< its layout

  /// Sets `position` without moving the window; (0, 0) is not written to files.
  void setPosition(SbVec2i32& pos);

  /// \name Auditors
  /// @{
  using SoQuillform::addAuditor;
  using SoQuillform::removeAuditor;
  void addAuditor(SoDialogAuditor* auditor);    ///< adds an auditor at the end, unless it is in the list
  void removeAuditor(SoDialogAuditor* auditor); ///< takes an auditor out of the list; it stays alive

  /// Reports an element of the dialog to the dialog's auditors. Without any, a launched dialog hands it to its
  /// launcher and so to the dialog around that.
  void applyAuditor(SoQuillform* caller) override;

  /// Reports every control of the dialog once, so that auditors see the initial values.
  void applyAuditors() override;

  /// The first element, depth first, whose auditorID is \a id; nullptr when there is none. The dialog itself
  /// is not compared.
  SoQuillform* searchForAuditorId(SbString id);
  /// @}

  /// \name Layout
  /// @{

  /// The size that the dialog will have, with its bounds, in pixels.
  void getSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max);

  /// The size computed from the children alone.
  void getDefaultSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max);

  /// The saved size state: width and height, their minima, their maxima.
  void getDefaultState(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max) const;

  /// Builds the dialog anew, as window when \a asWidget is non-zero, else in 3D.
  void updateDialogBuild(int asWidget);

  /// Builds the dialog anew in the forms it has; called when its contents have changed.
  void updateAfterSceneGraphChange() override;

  /// Builds the children into the window.
  void updateChildren();

  /// Gives every child the label column, and then the control column, that the children share.
  void setChildrenLabelSize();
  void setChildrenComponentSize(); ///< gives the controls their column

  /// Writes the six sizing fields without a reaction.
  void setSize(int width, int height, int minWidth, int minHeight, int maxWidth, int maxHeight);

  /// Marks as default each sizing field whose saved value is 0.
  void setDefaultState();

  /// Spreads the difference between \a newSize and the default size over the children's heights.
  void computeNewChildrenHeight(SbVec2i32& newSize);

  /// The first child that is a menu bar; nullptr when there is none.
  SoTopComponent* widgetHasMenuBar() const;
  /// @}

  /// \name 3D form
  /// @{
  void handleEvent(SoHandleEventAction* action) override; ///< gives the element events in the scene
  void show3D(int show) override;
  SbBool shows3D(const SoQuillform* child) const override;
  void show3DChildren(int show); ///< shows or hides the geometry of all children
  void minimize3DDialog();       ///< leaves only the title bar in the scene
  void restore3DDialog();        ///< brings back what minimize3DDialog() has hidden
  void updateMinimizedState();   ///< follows the field minimized in the scene
  void change3DPosition() override;
  void change3DLabel() override;
  void change3DEnable() override;
  void update3DAfterSkinChange() override;
  /// @}

  void setCurrentFocusedWidget(QWidget* widget);  ///< keeps a widget for getCurrentFocusedWidget()
  QWidget* getCurrentFocusedWidget() const;       ///< the widget last set; nullptr once it is deleted
  void setCurrentScrolledWidget(QWidget* widget); ///< keeps a widget for getCurrentScrolledWidget()
  QWidget* getCurrentScrolledWidget() const;      ///< the widget last set; nullptr once it is deleted

  void buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget) override;
  void updateFromSensor(SoSensor* sensor) override;
  void resetSize() override;
  void changeEnable() override;
  void changeLabel() override;
  virtual void changeWidth();      ///< reacts to width
  virtual void changeHeight();     ///< reacts to height
  virtual void changeMinMaxSize(); ///< reacts to the smallest and largest sizes
  void changeRowSpacing();         ///< reacts to rowSpacing
  void changePosition();           ///< moves the window to position

  /// Reads the elements that follow the fields; FALSE when one cannot be read.
  virtual SbBool readChildren(SoInput* in);
  QBoxLayout* getLayoutFor(const SoQuillform* child) const override;
  using SoQuillform::getChildElements;
  SoChildElements* getChildElements() override;

  /// \name Steps of the build
  /// What is there already is not made again.
  /// @{
  void createBaseWidget(QWidget* parent); ///< makes the window, or takes \a parent over
  void updateBaseWidget();                ///< gives the window its limits and its size
  void create3DTopLevelDialog();          ///< makes the 3D form
  void update3DTopLevelDialog();          ///< gives the 3D form its sizes
  void update3DLabel();                   ///< shows and places the text
  void update3DChildren();                ///< plans and builds the 3D forms of the children
  void update3DChildrenPosition();        ///< brings the children to their places
  /// @}

protected:
  ~SoTopLevelDialog() override;

  SoChildElements& elements() override; ///< the list of children

  /// Copies what is not in fields too.
  void copyContents(const SoFieldContainer* from, SbBool copyConnections) override;
  void exchangeAuthoredValues(bool writing) override;
  void press3D() override;
  void drag3D() override;
  void release3D() override;

private:
  QWidget* build(QWidget* parent, int buildInsideParent, int asWidget);
  void removeBaseWidget();
  void windowHidden();
  void prepareSizes(int asWidget);
  void leaveRoomForRows(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max) const;
  SbVec2i32 chooseSize(const SbVec2i32& wanted);
  void applyLimits();
  bool hasWidgets() const;
  SoBoxModel::Children getComponents() const;

  void connectPositions();
  void disconnectPositions();
  SoSFVec3f& getActivePosition();
  bool isMenuOpen3D() const; // in the scene
  SbVec3f getOrigin();

  SoChildElements m_children;     // in the node kit's own child list
  QPointer<QWidget> m_base;       // the window, or the parent taken over
  QPointer<QVBoxLayout> m_layout; // of the base widget
  QPointer<QObject> m_hideWatch;  // calls windowHidden()
  QPointer<QWidget> m_builtInto;  // as given to buildDialog
  int m_buildInsideParent = 0;    // as given to buildDialog
  bool m_isMeasured = false;      // m_box holds what the children need
  bool m_suppressUpdates = true;  // until buildDialog has run
  bool m_firstBuild = true;
  int m_layoutSpacing = 0;          // of the rows on screen; follows rowSpacing only when that changes later
  SoBoxModel m_box;                 // sizes of the children
  SoSizingFields::Values m_saved{}; // the saved size state, see SoSizingFields
  SoSizingFields m_sizes;           // the sizing fields, with what the author gave them
  std::unique_ptr<SoDialogAuditor> m_defaultAuditor; // used while no dialog auditor is registered
  QPointer<QWidget> m_focusedWidget;
  QPointer<QWidget> m_scrolledWidget;

  So3DText m_title3D;                       // the title in the scene
  SoTransform* m_frameTransform = nullptr;  // below frameSep, which owns it
  SoTransform* m_titleTransform = nullptr;  // below labelSep, which owns it
  SoTransform* m_buttonTransform = nullptr; // below minSep, which owns it
  std::vector<QRect> m_plan;                // rectangles of the children, from the top-left corner of the contents
  SbVec2i32 m_size3D{0, 0};                 // width and height of the contents in the scene
  bool m_pressedButton = false;             // the minimise button is held down
  bool m_draggingTitle = false;             // the title bar is held down
  bool m_movedSinceMinimized = false;       // the dialog was dragged while it was open
  bool m_positionsConnected = false;        // position3D and minimized3DPosition move together
  SbVec3f m_dragStart;                      // where the pointer met the dialog's plane
  SbVec3f m_positionAtStart;                // of the position field that is dragged
};

#endif // QUILLFORM_SOTOPLEVELDIALOG_H
