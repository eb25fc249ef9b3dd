#ifndef QUILLFORM_SOQUILLFORM_H
#define QUILLFORM_SOQUILLFORM_H

#include <Inventor/SbBox2f.h>
#include <Inventor/SbBox3f.h>
#include <Inventor/SbPList.h>
#include <Inventor/SbString.h>
#include <Inventor/SbVec2i32.h>
#include <Inventor/SbVec3f.h>
#include <Inventor/draggers/SoDragger.h>
#include <Inventor/fields/SoSFBool.h>
#include <Inventor/fields/SoSFEnum.h>
#include <Inventor/fields/SoSFString.h>
#include <QFont>
#include <QPointer>
#include <QWidget>
#include <Quillform/Export.h>
#include <Quillform/core/SoQuillformSub.h>
#include <Quillform/core/SoWatchedFields.h>
#include <memory>
#include <set>
#include <string>
#include <vector>

class QBoxLayout;
class SoAuditor;
class SoChildElements;
class SoGetBoundingBoxAction;
class SoGetMatrixAction;
class SoGroup;
class SoKeyboardEvent;
class SoMaterial;
class SoPickStyle;
class SoSearchAction;
class SoSensor;
class SoSeparator;
class SoSwitch;
class SoText3;
class SoTransform;
class SoTranslation;

/// Base of every dialog element: top-level dialogs, groups, controls and menu entries.
///
/// An element is a node kit. Its fields describe it, in a dialog file or in code, and it is realised as Qt
/// widgets, as geometry in the scene, or both. What the user does updates the fields and calls the
/// element's auditors; setting a field from code updates what is on screen and calls nobody.
///
/// All calls belong on the one thread that owns the scene graph and the Qt event loop.
///
/// File format, with the defaults:
/// \code
/// Quillform {
///   enable          TRUE    # SoSFBool:   the element accepts user input
///   label           ""      # SoSFString: text beside or on the element
///   auditorID       ""      # SoSFString: name by which auditors and loadFromFile find the element
///   labelAlignment  RIGHT   # SoSFEnum:   LEFT, CENTER or RIGHT, within the label's column
/// }
/// \endcode
///
/// Catalog added to that of SoDragger: the hidden part `geomSwitch` (SoSwitch) below `geomSeparator`. All
/// geometry of derived classes hangs below it. It is made with the 3D form and never written to a file.
class QUILLFORM_API SoQuillform : public SoDragger {
  typedef SoDragger inherited;
  SO_QUILLFORM_HEADER(SoQuillform);
  SO_KIT_CATALOG_ENTRY_HEADER(geomSwitch);
  friend class SoQuillformSub;

public:
  /// Where a text stands within its rectangle.
  enum LabelAlignment { LEFT = 0, CENTER = 1, RIGHT = 2 };

  SoSFBool enable;         ///< accepts user input; default TRUE
  SoSFString label;        ///< text beside or on the element, Latin-1; default empty
  SoSFString auditorID;    ///< identifier for look-ups; default empty
  SoSFEnum labelAlignment; ///< a LabelAlignment; default RIGHT

  SoQuillform();

  /// \name Starting and stopping the library
  /// @{

  /// Starts the library; call it before the first element is made and once for every finish(). The first
  /// call registers all classes. Returns the number of starts in force.
  static int init();

  /// Undoes one init(); the last one empties the cache of dialog files and unregisters the classes. Elements
  /// that are still referenced stay usable and may be released later. Ignored without an init() to undo.
  static void finish();

  /// TRUE between the first init() and the last finish().
  static SbBool isInitialized();

  /// The fixed text "Quillform".
  static const char* getProductName();

  /// The library's version as four numbers with dots.
  static const char* getVersion();

  /// Number of element nodes alive in the process.
  static int getInstanceCount();
  /// @}

  /// \name Dialog files
  /// @{

  /// Returns the element of a dialog file whose auditorID equals \a auditorID, or the file's first element
  /// when \a auditorID is empty; only elements at the top of the file are looked at.
  ///
  /// A file is read once and kept: the same name gives the very same nodes until finish(), also to a second
  /// caller and even if the file has changed. The cache owns the node; reference it to keep it longer.
  /// Returns nullptr, after a message, when the file cannot be read or holds no such element.
  static SoQuillform* loadFromFile(SbString fileName, SbString auditorID);

  /// Writes the node's 3D representation, everything below its top separator, to a file in ASCII.
  void writeNode(const char* fileName);
  /// @}

  /// \name Skins
  /// @{

  /// Selects a skin by path, by directory name below the working directory, or by directory name below one
  /// of the skin directories, and switches everything on screen to it. An unknown name changes nothing.
  static void setSkin(SbString skinName);

  /// The directories in which skins are looked for, separated by ";".
  static SbString getSkinsDirectories();

  /// Stores \a dirs, separated by ";", as the preference `QUILLFORM_SKINS_DIR`.
  static void setSkinsDirectories(SbString dirs);

  /// Directory of the skin in force, an absolute path; empty until a skin was found.
  static SbString getSkinsPath();

  /// Reads a skin file of the skin in force; selects the preferred skin first when there is none yet.
  /// Returns its root, not referenced, or nullptr when there is no such file.
  static SoSeparator* readFromFile(const SbString& fileName);

  /// Reads a skin file, or \a builtInText with a message when the skin has no such file. The nodes stay in
  /// memory, so that their names stay known.
  static void readDefaultSkinsParts(const SbString& fileName, const char* builtInText);

  /// Reads the text properties once, before the first 3D text is made.
  static void loadFontProperties();

  /// Reads every skin file again and moves the new geometry into the parts that are in use.
  static void change3DSkin();

  /// First half of replacing a named part in place: empties the group and sets it aside.
  static void free3DSkin(SbString defName);

  /// Second half: moves the children of the group just read into the one set aside and names it again.
  static void load3DSkin(SbString defName);
  /// @}

  /// \name Auditors
  /// An element does not own its auditors. They are called in the order in which they were added.
  /// @{

  /// Adds \a auditor at the end; one that is in the list already, or nullptr, changes nothing.
  void addAuditor(SoAuditor* auditor);

  /// Removes \a auditor; one that is not in the list changes nothing. The object stays alive.
  void removeAuditor(SoAuditor* auditor);

  /// The auditor at \a index; nullptr when there is none.
  SoAuditor* getAuditor(int index) const;

  int getAuditorListLength() const; ///< number of auditors

  /// Reports the element to its container once, as if the user had operated it; a container reports its children.
  virtual void applyAuditors();

  /// Takes an auditor that is being deleted out of every list that holds it.
  static void forgetAuditor(SoAuditor* auditor);

  /// Calls the element's own auditors or, when it has none, hands the element to its parent. Elements that
  /// the user operates override it.
  virtual void applyDlgCptAuditor();

  using SoDragger::addAuditor; // the scene graph's own notification list
  using SoDragger::removeAuditor;
  /// @}

  /// \name Place in the dialog
  /// @{

  /// The element that holds this one; nullptr for a root. Containers set it. The parent is not referenced.
  void setParent(SoQuillform* parent);
  SoQuillform* getParent() const; ///< see setParent()

  /// The nearest enclosing top-level dialog. A parent that cannot be traversed ends the search, unless
  /// \a ignoreTraversal is set, with this node when \a returnSelfIfRoot is set and nullptr otherwise.
  /// A node without parent gives itself when it is a group and \a returnSelfIfRoot is set, else nullptr.
  SoQuillform* getFirstTopParent(int ignoreTraversal, int returnSelfIfRoot);
  /// @}

  /// \name Fonts and widgets
  /// @{

  /// Replaces the font of widgets built from now on.
  static void setFont(QFont font);

  /// Gives \a widget the library's font.
  static void setWidgetFont(QWidget* widget);

  /// A copy of the library's font; "Microsoft Sans Serif" at 8 points unless set otherwise.
  static QFont getQuillformFont();

  /// Counts the calls of setFont; texts that were measured earlier have other sizes now.
  static int getFontGeneration();

  /// TRUE when \a widget is not null.
  static SbBool existWidget(QWidget* widget);

  /// TRUE while the element is realised as widgets.
  SbBool isWidgetBuilt() const;
  /// @}

  /// \name Texts
  /// Texts are Latin-1 in fields; SoText3 holds UTF-8, and positions in it count characters.
  /// @{

  /// The text as it is displayed: "\n", "\t" and "\"" written with a backslash are resolved, other
  /// backslashes and carriage returns dropped. Entries of combo boxes are left as they are.
  static SbString convertToCString(const SbString& text, const SoQuillform* node);

  /// Always an empty text.
  static SbString convertFromCString(const SbString& text, int flag);

  /// Number of line feeds in \a text.
  static int getNumLines(const SbString& text);

  /// Width and height in pixels that \a text takes in the library's font, with a border of 3; (0, 0) for an
  /// empty text.
  static SbVec2i32 getLabelPixelSize(const SbString& text, const SoQuillform* node);

  /// Stores the lines of \a text in \a text3. Lines beyond the last keep what they held.
  static void setStringToText3(SoText3* text3, const SbString& text);

  /// Inserts into a line of \a text3 at a character position, -1 for its end; a text with a line feed opens a
  /// new line instead. Returns the line on which the caret stands afterwards.
  static int insertTextTo3DText(const SbString& insert, SoText3* text3, int line, int pos);

  /// Breaks a line so that no piece is wider than \a maxWidth scene units. Returns the last line made.
  static int wrap3DTextLine(SoText3* text3, int line, float maxWidth, SoGroup* fontGroup, SoQuillform* node);
  /// @}

  /// \name Realisation
  /// Overridden by the element classes; an application builds whole dialogs with
  /// SoTopLevelDialog::buildDialog.
  /// @{

  /// Realises the element: as widgets inside \a parent when \a asWidget is non-zero, else in 3D. \a size is
  /// what the container asks for, in pixels; 0 in a coordinate lets the element choose. \a position is the
  /// place inside the container.
  virtual void buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget);

  /// Takes the element's widgets out of the window.
  virtual void destroyWidget();

  /// Reacts to a change of a watched field.
  virtual void updateFromSensor(SoSensor* sensor);

  /// Reports \a caller, an element below this one, to this element's auditors.
  virtual void applyAuditor(SoQuillform* caller);

  virtual void resetSize(); ///< forgets the sizes that the layout has computed

  /// The contents of this element, or of one inside it, have changed: the dialog around it is built anew.
  virtual void updateAfterSceneGraphChange();

  /// A dialog that this element has launched was closed or hidden.
  virtual void launchedDialogClosed();

  /// The layout into which \a child builds its widgets; nullptr when this element holds none.
  virtual QBoxLayout* getLayoutFor(const SoQuillform* child) const;

  /// TRUE when each child stands in a cell of its own whose spare room is below it, not beside it.
  virtual SbBool hasVerticalCells() const;

  virtual void changeEnable();         ///< enables or disables the widgets
  virtual void changeLabel();          ///< shows the label in the window
  virtual void changeLabelAlignment(); ///< aligns the label in the window

  /// The sensors' callback: calls updateFromSensor of the node \a data.
  static void fieldChangedCB(void* data, SoSensor* sensor);
  /// @}

  /// \name 3D form
  /// @{

  /// The element that is active in the scene, such as an open list; nullptr when none is.
  static SoQuillform* get3DCurrentActive();

  /// Makes \a node the active element; the one before it gets set3DInactive().
  static void set3DCurrentActive(SoQuillform* node);

  /// Shows or hides the element's geometry.
  virtual void show3D(int show);

  /// Sets the place of the element's origin, in the coordinates of the node that holds the dialog.
  virtual void set3DParentTranslation(SbVec3f& translation);
  const SbVec3f& get3DParentTranslation() const; ///< see set3DParentTranslation()

  virtual void change3DPosition();               ///< follows a new place in the scene
  virtual void change3DWidgetEnable(int enable); ///< tells the element whether its ancestors let it be operated
  virtual void change3DEnable();                 ///< enables or disables the geometry
  virtual void change3DLabel();                  ///< shows the label in the scene
  virtual void change3DLabelAlignment();         ///< aligns the label in the scene

  /// Drops the element's activity in the scene. Derived classes undo their highlighting first.
  virtual void set3DInactive();

  /// Lays the 3D form out again after the skin in force has changed.
  virtual void update3DAfterSkinChange();

  /// Where the top-left corner of a dialog stands that this element launches: below the element's middle, in front of
  /// everything in the dialog around it, but not so far that it would look larger.
  virtual SbVec3f getLaunchPlace3D() const;

  void apply3DParentTranslation(); ///< brings the geometry to its place

  /// The transform that takes back the motion accumulated between this element and \a node, a node of its own.
  void undoTransformMatrix(SoNode* node, SoTransform* transform);
  float compute3DDepth(SoNode* node); ///< along z, of what undoTransformMatrix() gives

  void setLabelCacheBBox(SbBox3f box);       ///< keeps the extent of the label's text
  const SbBox3f& getLabelCachedBBox() const; ///< what setLabelCacheBBox() keeps

  /// TRUE when that is not empty.
  SbBool isLabelCachedBBox() const;

  void setBuilt3D(int built);              ///< says that the 3D form is there
  int isBuilt3D() const;                   ///< non-zero once the 3D form is there
  void setCanBeTraversed(int traversable); ///< see getFirstTopParent()
  int canBeTraversed() const;              ///< see getFirstTopParent()

  /// FALSE while show3D() hides the element.
  SbBool isShown3D() const;

  /// TRUE while this element lets \a child, an element inside it, be seen in the scene.
  virtual SbBool shows3D(const SoQuillform* child) const;

  /// TRUE when the element is built in 3D and may be updated.
  SbBool isLive3D() const;
  /// @}

  /// \name Keyboard in the scene
  /// See So3DKeyboard.
  /// @{

  /// TRUE for an element that the user can operate with keys now.
  SbBool takesKeys3D() const;

  /// Does what a key that went down means to the element. TRUE when it means something. Nothing does in this class.
  virtual SbBool pressKey3D(const SoKeyboardEvent* event);

  /// What is outlined while the element has the keyboard, from the element's origin. Empty in this class.
  virtual SbBox2f getKeyboardBox3D() const;

  /// What holds the element's geometry; nullptr before the 3D form is made.
  SoSwitch* getGeometrySwitch() const;
  /// @}

  SoField* getField(const SbName& name) const override;   ///< the field or part \a name; nullptr when there is none
  void handleEvent(SoHandleEventAction* action) override; ///< gives the element events in the scene
  void notify(SoNotList* list) override;                  ///< hears of changed fields and parts
  void grabEventsSetup() override;                        ///< keeps the node while it holds the pointer
  void grabEventsCleanup() override;                      ///< lets the node go again
  void write(SoWriteAction* action) override;             ///< writes the fields and the elements inside
  void addWriteReference(SoOutput* out, SbBool isFromField = FALSE) override; ///< counts what write() will write
  void search(SoSearchAction* action) override;                               ///< searches the elements inside too

  /// The elements inside this one; nullptr for an element that holds none.
  virtual SoChildElements* getChildElements();
  const SoChildElements* getChildElements() const; ///< likewise

protected:
  /// How far in front of its launcher a dialog stands, in scene units.
  static constexpr float launchedHeight = 40.0F;

  /// Chooses the constructor of a base class that leaves the list of the kit's parts to the derived class, which makes
  /// it anew in any case. While the base classes are made, no sensor is called: the kit connects its first part again
  /// with each class otherwise, before there is anything to be drawn.
  class PartsLater {
  public:
    PartsLater();
    ~PartsLater();
    PartsLater(const PartsLater&) = delete;
    PartsLater& operator=(const PartsLater&) = delete;
    void release() const; ///< lets sensors be called again

  private:
    mutable bool m_isHeld = true;
  };
  explicit SoQuillform(const PartsLater& later); ///< see PartsLater

  ~SoQuillform() override;

  void destroy() override;                ///< the last reference is gone
  SoNode* addToCopyDict() const override; ///< begins a copy, with the elements inside

  /// Copies what is not in fields too.
  void copyContents(const SoFieldContainer* from, SbBool copyConnections) override;
  void setDefaultOnNonWritingFields() override;                    ///< keeps what the library made itself out of files
  SbBool readInstance(SoInput* in, unsigned short flags) override; ///< reads fields, parts and the elements inside

  /// While an element is written its fields hold what its author set, not what the layout computed. Called
  /// with TRUE before and FALSE after.
  virtual void exchangeAuthoredValues(bool writing);

  /// The node of a catalog part, made when it is missing.
  template <class Node>
  Node* makePart(const SbName& name)
  {
    return static_cast<Node*>(getAnyPart(name, TRUE));
  }

  /// Fills a public part with a skin's geometry unless the author has filled it.
  void fillFromSkin(const char* partName, SoGroup* skinPart);

  /// Makes what every 3D form needs: the switch with pick style and material in front.
  void create3DQuillform();

  /// What every text of the element draws after its text properties: the colour of a disabled text.
  SoMaterial* getTextLook() const;

  /// Makes what \a group draws lose its colours while the element is disabled.
  void fadeWhenDisabled(SoGroup* group);

  SoGetBoundingBoxAction* getBoundingBoxAction(); ///< made on first use, kept by the node
  SoSearchAction* getSearchAction();              ///< likewise
  SoGetMatrixAction* getMatrixAction();           ///< likewise

  /// TRUE when the point under the pointer lies below \a node. At a release the pick is made anew, so that a
  /// press that is released elsewhere is told apart.
  SbBool isUnderPointer(SoNode* node);

  /// Where the pointer is, during a press or drag: in the plane of the point that was pressed, relative to the
  /// element's origin.
  SbVec3f getPointer3D();

  /// Makes presses on the element reach press3D, drag3D and release3D. Called once, with the 3D form.
  void listenToPointer3D();
  virtual void press3D();   ///< the button went down on the element
  virtual void drag3D();    ///< the pointer moved with the button down
  virtual void release3D(); ///< the button went up, anywhere

  /// TRUE while the ancestors let the element be operated.
  SbBool isEnabledByParents() const;

  /// TRUE for an element that has a use for keys in the scene.
  virtual bool usesKeys3D() const;

  SoWatchedFields m_watched;   ///< the fields that have reactions
  SbVec3f m_parentTranslation; ///< see set3DParentTranslation

private:
  static void destroyByRef(SoQuillform* node);
  static void startCB3D(void* data, SoDragger* dragger);
  static void motionCB3D(void* data, SoDragger* dragger);
  static void finishCB3D(void* data, SoDragger* dragger);
  void dropConnections(const PartsLater& later);
  void apply3DUsability(bool usable, int pickStyle);
  void showFade(bool shown);
  bool isAuthorPart(int partNumber) const;
  void adoptReadParts(const std::vector<int>& holders);
  int countWrittenChildren(SoWriteAction* action) const; // along a path up to the one on it, else all
  void writeChildren(SoWriteAction* action);

  int m_widgetBuilt = 0;                               // non-zero once realised as widgets
  QPointer<QWidget> m_parentWidget;                    // given to buildWidget
  SoQuillform* m_parent = nullptr;                     // the element that holds this one, not referenced
  std::unique_ptr<SbPList> m_auditors;                 // of SoAuditor*, made by the first addAuditor
  std::unique_ptr<SoGetBoundingBoxAction> m_boxAction; // made on first use
  std::unique_ptr<SoSearchAction> m_searchAction;      // made on first use
  std::unique_ptr<SoGetMatrixAction> m_matrixAction;   // made on first use
  SoPickStyle* m_pickStyle = nullptr;                  // below geomSwitch, which owns it
  SoMaterial* m_material = nullptr;                    // below geomSwitch, which owns it
  SoMaterial* m_textLook = nullptr;                    // see getTextLook, referenced
  SoSwitch* m_fade = nullptr;                          // see fadeWhenDisabled, referenced
  SoTranslation* m_parentTranslationNode = nullptr;    // below geomSeparator, which owns it
  SbBox3f m_labelBox;                                  // cached extent of the label's 3D text
  std::set<std::string> m_skinParts;                   // parts that hold the skin's geometry, not the author's
  bool m_listening = false;                            // the dragger's callbacks are registered
  bool m_holdsPointer = false; // gets every event until the button is released, and is referenced for it
  int m_built3D = 0;
  int m_canBeTraversed = 1;
  int m_shown3D = 1;
  SbBool m_enabledByParents = TRUE; // the last word of the container's change3DWidgetEnable
};

#endif // QUILLFORM_SOQUILLFORM_H
