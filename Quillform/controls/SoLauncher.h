#ifndef QUILLFORM_SOLAUNCHER_H
#define QUILLFORM_SOLAUNCHER_H

#include <Quillform/auditors/SoAuditorDispatch.h>
#include <Quillform/containers/SoTopLevelDialog.h>
#include <Quillform/controls/SoLaunchedDialogs.h>
#include <Quillform/core/SoChildOperations.h>

/// What all launchers have in common: a \a Base that opens dialogs, its children. When it opens them, and when it
/// closes them, is up to the class itself.
///
/// A launched dialog is built once, closes with the dialog around its launcher, and belongs to the launcher. What its
/// controls do and none of its auditors hears of goes on to the dialog around the launcher.
template <class Base>
class SoLauncher : public Base, public SoChildOperations<SoTopLevelDialog> {
public:
  SoLauncher() : m_launched(this, [this] { launchedDialogsChanged(); }) {}

  /// Hands what happened in a launched dialog to the dialog around the launcher.
  void applyAuditor(SoQuillform* caller) override
  {
    SoAuditorDispatch::handOn(this, caller);
  }

  /// Reports every control of the launched dialogs once; the launcher itself is not reported.
  void applyAuditors() override
  {
    SoAuditorDispatch::applyToChildren(this);
  }

  /// The first launched dialog, or element in one, whose auditorID is \a id; nullptr when there is none.
  SoQuillform* searchForAuditorId(SbString id)
  {
    return SoAuditorDispatch::searchForAuditorId(this, id);
  }

  /// Takes the widgets out of the window, and the windows of the launched dialogs with them.
  void destroyWidget() override
  {
    m_launched.destroyWindows();
    Base::destroyWidget();
  }

  /// Shows or hides the geometry; the launched dialogs follow.
  void show3D(int show) override
  {
    Base::show3D(show);
    m_launched.follow3D();
  }

  /// A launched dialog is seen while it is open, and with the launcher.
  SbBool shows3D(const SoQuillform* child) const override
  {
    return Base::shows3D(child) && m_launched.isOpen3D();
  }

  /// Moves the geometry; the launched dialogs follow.
  void set3DParentTranslation(SbVec3f& translation) override
  {
    Base::set3DParentTranslation(translation);
    m_launched.move3D();
  }

  using SoQuillform::getChildElements;

  /// The launched dialogs.
  SoChildElements* getChildElements() override
  {
    return &m_launched.getElements();
  }

protected:
  ~SoLauncher() override = default;

  /// The list of children.
  SoChildElements& elements() override
  {
    return m_launched.getElements();
  }

  /// A dialog was added or taken out.
  virtual void launchedDialogsChanged() {}

  SoLaunchedDialogs m_launched; ///< the dialogs, with what shows and hides them
};

#endif // QUILLFORM_SOLAUNCHER_H
