#include <Quillform/auditors/SoDialogAuditor.h>

#include <Inventor/errors/SoDebugError.h>
#include <Quillform/controls/SoDialogPushButton.h>
#include <Quillform/platform/SoPreferences.h>

SO_TYPED_OBJECT_SOURCE(SoDialogAuditor, "DialogAuditor", SoAuditor::getClassTypeId())

namespace {

/// The message about a user action that no auditor handles.
class UnhandledTrace {
public:
  explicit UnhandledTrace(const char* className)
      : m_text(SbString("WARNING ! The DialogAuditor does not define the ") + className + " component :")
  {
  }

  UnhandledTrace& field(const char* name, const SbString& value)
  {
    m_text += SbString("\n\t\t -> ") + name + " = \"" + value + "\"";
    return *this;
  }

  void post(const char* operation) const
  {
    const SbString source = SbString("SoDialogAuditor::") + operation;
    SoDebugError::postInfo(source.getString(), "%s", m_text.getString());
  }

  static bool isWanted()
  {
    return SoPreferences::isSet("DEBUG_QUILLFORM_AUDITORS");
  }

private:
  SbString m_text;
};

} // namespace

void SoDialogAuditor::dialogPushButton(SoDialogPushButton* cpt)
{
  if (UnhandledTrace::isWanted()) {
    UnhandledTrace("SoDialogPushButton")
      .field("label", cpt->label.getValue())
      .field("buttonLabel", cpt->buttonLabel.getValue())
      .post("dialogPushButton");
  }
}

// Nobody can call these yet: their elements are not registered, and each brings its trace along.
void SoDialogAuditor::dialogCheckBox(SoDialogCheckBox* /*cpt*/) {}
void SoDialogAuditor::dialogComboBox(SoDialogComboBox* /*cpt*/) {}
void SoDialogAuditor::dialogEditText(SoDialogEditText* /*cpt*/) {}
void SoDialogAuditor::dialogIntegerSlider(SoDialogIntegerSlider* /*cpt*/) {}
void SoDialogAuditor::dialogRadioButtons(SoDialogRadioButtons* /*cpt*/) {}
void SoDialogAuditor::dialogRealSlider(SoDialogRealSlider* /*cpt*/) {}
void SoDialogAuditor::menuPushButton(SoMenuPushButton* /*cpt*/) {}
void SoDialogAuditor::menuCheckBox(SoMenuCheckBox* /*cpt*/) {}
void SoDialogAuditor::menuFileSelection(SoMenuFileSelection* /*cpt*/) {}
void SoDialogAuditor::menuRadioButtons(SoMenuRadioButtons* /*cpt*/) {}

void SoDialogAuditor::tabDialog(SoTabDialog* /*cpt*/) {}
