#ifndef QUILLFORM_SODIALOGGROUP_H
#define QUILLFORM_SODIALOGGROUP_H

#include <Quillform/core/SoBoxModel.h>
#include <Quillform/core/SoChildOperations.h>
#include <Quillform/core/SoDialogComponent.h>
#include <memory>

class SoDialogAuditor;

/// Base of the elements that hold controls and other groups inside a dialog: rows, columns and tabs.
///
/// File format, after the fields of SoDialogComponent, with the defaults; the children follow the fields:
/// \code
/// DialogGroup {
///   windowResizedByChildren  TRUE   # SoSFBool:  a change of contents computes the group's size anew
///   margin                   0      # SoSFInt32: room around the children in pixels
///   vScrollVisibility        AUTO   # SoSFEnum:  NEVER, ALWAYS or AUTO; kept, without effect
///   hScrollVisibility        AUTO   # SoSFEnum:  NEVER, ALWAYS or AUTO; kept, without effect
/// }
/// \endcode
///
/// A disabled group disables everything inside it; what is disabled by itself stays so when the group is enabled
/// again.
class QUILLFORM_API SoDialogGroup : public SoDialogComponent, public SoChildOperations<SoDialogComponent> {
  typedef SoDialogComponent inherited;
  SO_QUILLFORM_HEADER(SoDialogGroup);

public:
  /// When a scroll bar is shown.
  enum ScrollVisibility { NEVER = 0, ALWAYS = 1, AUTO = 2 };

  SoSFBool windowResizedByChildren; ///< a change of contents computes the group's size anew; default TRUE
  SoSFInt32 margin;                 ///< room around the children in pixels; default 0
  SoSFEnum vScrollVisibility;       ///< a ScrollVisibility, without effect; default AUTO
  SoSFEnum hScrollVisibility;       ///< a ScrollVisibility, without effect; default AUTO

  SoDialogGroup();

  /// \name Auditors
  /// @{
  using SoQuillform::addAuditor;
  using SoQuillform::removeAuditor;
  void addAuditor(SoDialogAuditor* auditor);    ///< adds an auditor at the end, unless it is in the list
  void removeAuditor(SoDialogAuditor* auditor); ///< takes an auditor out of the list; it stays alive

  /// Reports an element of the group to the group's auditors, or to the parent when it has none.
  void applyAuditor(SoQuillform* caller) override;

  /// Reports every control of the group once.
  void applyAuditors() override;

  /// The first element in the group, depth first, whose auditorID is \a id; nullptr when there is none.
  SoQuillform* searchForAuditorId(SbString id);
  /// @}

  /// \name Layout
  /// @{
  void getDefaultSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max) override;
  void setLabelSize(SbVec2i32& size) override;
  void setComponentSize(SbVec2i32& size) override;
  SbVec2i32 getComponentInitSize() override;
  SbVec2i32 getLabelInitSize() override;
  void leaveRoomForContents(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max) override;
  SoCellLimits getCellLimits() const override;
  SoPlannedContents getPlannedContents() override;
  void resetSize() override;
  void restoreAuthoredSizes() override;
  void startFromAuthoredSizes() override;
  void updateAfterSceneGraphChange() override;

  /// Adds the group's edge to a size, \a times times.
  virtual void fixSizeWithBorder(SbVec2i32& size, int times);

  virtual void setChildrenComponentSize(); ///< gives the controls their column
  virtual void setChildrenLabelSize();     ///< gives the labels their column

  /// Spread the difference between \a newSize and the default size over the children.
  void computeNewChildrenHeight(SbVec2i32& newSize);
  void computeNewChildrenWidth(SbVec2i32& newSize); ///< as computeNewChildrenHeight(), along the other axis

  QBoxLayout* getLayoutFor(const SoQuillform* child) const override;
  /// @}

  void buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget) override;
  void destroyWidget() override;
  void updateFromSensor(SoSensor* sensor) override;
  void changeEnable() override;
  void changeLabel() override;
  void changeEdgeStyle() override;
  void changeWidgetEnable(int enable) override;

  void show3D(int show) override;
  void set3DParentTranslation(SbVec3f& translation) override;
  void change3DPosition() override;
  void change3DEnable() override;
  void change3DWidgetEnable(int enable) override;

  /// Reads the elements that follow the fields; FALSE when one cannot be read.
  virtual SbBool readChildren(SoInput* in);
  using SoQuillform::getChildElements;
  SoChildElements* getChildElements() override;

  /// \name Steps of the build
  /// What is there already is not made again.
  /// @{

  /// Builds the children into the group's frame, which is made when it is missing.
  virtual void updateChildren();

  /// Builds the children in the scene, where planChildren wants them.
  virtual void update3DChildren();
  /// @}

protected:
  ~SoDialogGroup() override;

  SoChildElements& elements() override; ///< the list of children
  void getDefaultFrameSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max) override;
  bool isAlwaysBuilt() const override;
  void update3D() override;

  /// 0 when the children stand side by side, 1 when they stand one below the other, -1 in a group that does not
  /// lay them out.
  virtual int getAxis() const;

  /// The least size of the group's frame in which its children, as they were measured last, do not overlap.
  virtual SbVec2i32 getLeastFrameSize() const;

  /// Room between consecutive children in pixels.
  virtual int getSpacing() const;

  /// The layout of the group's frame, of the kind and name that the class wants.
  virtual QBoxLayout* createGroupLayout(QWidget* frame);

  /// What a row or column needs around its children, in pixels.
  static constexpr int edge = 6;

  /// Adds \a border to a size: once within the unbounded size, else \a times times.
  static void addBorder(SbVec2i32& size, const SbVec2i32& border, int times);

  /// Brings the spacing of the layout up to date.
  void changeSpacing();

  SoBoxModel::Children getComponents() const; ///< the children, in order

  /// Makes the group's frame and puts it into the group's cell.
  virtual void createGroupWidget();

  /// The rectangles of the children in the scene, from the group's top-left corner.
  virtual std::vector<QRect> planChildren();

  /// Height of the surface on which the children stand in the scene, over the group's origin.
  virtual float getFaceHeight() const;

  /// Reports \a caller as a group without auditors of its own does: to the parent, or to the default auditor.
  void applyOuterAuditor(SoQuillform* caller);

private:
  int getContentsMargin() const;
  int getPlannedMargin() const;
  void distribute(const SbVec2i32& newSize, int axis);

  SoChildElements m_children;                        // in the node kit's own child list
  SoBoxModel m_box;                                  // sizes of the children
  QPointer<QBoxLayout> m_groupLayout;                // of the group's frame
  std::unique_ptr<SoDialogAuditor> m_defaultAuditor; // of a group without a parent
  std::vector<QRect> m_plan;      // rectangles of the children in the scene, from the group's top-left corner
  bool m_isEnableApplied = false; // the first build has passed enable on to the children
};

#endif // QUILLFORM_SODIALOGGROUP_H
