#include <Quillform/menus/SoMenuFileSelection.h>

#include <QFileDialog>
#include <Quillform/auditors/SoAuditorDispatch.h>
#include <Quillform/auditors/SoMenuFileSelectionAuditor.h>
#include <Quillform/core/SoEventScope.h>
#include <Quillform/core/SoText.h>
#include <Quillform/platform/SbFileHelper.h>
#include <string>

SO_QUILLFORM_SOURCE(SoMenuFileSelection, "MenuFileSelection")

SoMenuFileSelection::SoMenuFileSelection()
{
  SO_QUILLFORM_CONSTRUCTOR(SoMenuFileSelection);

  SO_QUILLFORM_ADD_FIELD(title, (""));
  SO_QUILLFORM_ADD_FIELD(filter, ("*.iv"));
  filter.set1Value(1, "Arborel file");
  filter.setDefault(TRUE);
  SO_QUILLFORM_ADD_FIELD(defaultFilter, (0));
  SO_QUILLFORM_ADD_FIELD(fileDirectory, ("."));
  SO_QUILLFORM_ADD_FIELD(filename, (""));
  SO_QUILLFORM_ADD_FIELD(mode, (OPEN));
  if (SO_KIT_IS_FIRST_INSTANCE()) {
    SO_NODE_DEFINE_ENUM_VALUE(Mode, OPEN);
    SO_NODE_DEFINE_ENUM_VALUE(Mode, SAVE);
  }
  SO_NODE_SET_SF_ENUM_TYPE(mode, Mode);
  SO_KIT_INIT_INSTANCE();
}

SoMenuFileSelection::~SoMenuFileSelection() = default;

// Auditors

void SoMenuFileSelection::addAuditor(SoMenuFileSelectionAuditor* auditor)
{
  SoQuillform::addAuditor(auditor);
}

void SoMenuFileSelection::removeAuditor(SoMenuFileSelectionAuditor* auditor)
{
  SoQuillform::removeAuditor(auditor);
}

void SoMenuFileSelection::applyDlgCptAuditor()
{
  SoAuditorDispatch::applyOwnAuditors(this, &SoMenuFileSelectionAuditor::menuFileSelection);
}

void SoMenuFileSelection::validateFilename()
{
  applyDlgCptAuditor();
}

// The file dialog

void SoMenuFileSelection::menuEvent(void* /*action*/, int /*id*/)
{
  openDialogBox();
}

void SoMenuFileSelection::choose3D()
{
  // Not in the middle of an event of the scene: the file dialog has a loop of events of its own.
  SoEventScope::whenOver(this, [this] { openDialogBox(); });
}

void SoMenuFileSelection::openDialogBox()
{
  ref(); // while the file dialog is open, anything may happen to the menu
  QString filters;
  for (int i = 0; i + 1 < filter.getNum(); i += 2) {
    filters +=
      SoText::toQt(filter[i + 1]) + " (" + SoText::toQt(filter[i]) + ");;"; // behind the last one, too: this is meant
  }
  const QString directory = SoText::toQt(SbFileHelper::expandString(fileDirectory.getValue()));
  const QString caption = SoText::toQt(title.getValue());
  QString selected;
  const SbString path = SoText::fromQt(
    mode.getValue() == OPEN ? QFileDialog::getOpenFileName(nullptr, caption, directory, filters, &selected)
                            : QFileDialog::getSaveFileName(nullptr, caption, directory, filters, &selected));
  const std::string chosen = path.getString();
  const std::size_t slash = chosen.rfind('/');
  if (slash != std::string::npos) {
    // The root directory keeps its slash, without which it would be none.
    fileDirectory = slash > 0 ? chosen.substr(0, slash).c_str() : "/";
  }
  filename = chosen.substr(slash == std::string::npos ? 0 : slash + 1).c_str();
  validateFilename(); // after a cancel, too: this is meant
  unref();
}
