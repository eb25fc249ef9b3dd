#include <Quillform/auditors/SoDialogAuditor.h>

#include <Inventor/errors/SoDebugError.h>
#include <Quillform/controls/SoDialogCheckBox.h>
#include <Quillform/controls/SoDialogComboBox.h>
#include <Quillform/controls/SoDialogEditText.h>
#include <Quillform/controls/SoDialogIntegerSlider.h>
#include <Quillform/controls/SoDialogPushButton.h>
#include <Quillform/controls/SoDialogRadioButtons.h>
#include <Quillform/controls/SoDialogRealSlider.h>
#include <Quillform/menus/SoMenuCheckBox.h>
#include <Quillform/menus/SoMenuFileSelection.h>
#include <Quillform/menus/SoMenuRadioButtons.h>
#include <Quillform/platform/SoPreferences.h>
#include <string>

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

  /// The chosen entry of a list.
  UnhandledTrace& selected(int index, const SbString& item)
  {
    m_text += SbString("\n\t\t -> selectedItem ") + std::to_string(index).c_str() + " : " + item;
    return *this;
  }

  UnhandledTrace& text(const SbString& text)
  {
    m_text += text;
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

void SoDialogAuditor::dialogCheckBox(SoDialogCheckBox* cpt)
{
  if (UnhandledTrace::isWanted()) {
    UnhandledTrace("SoDialogCheckBox")
      .field("label", cpt->label.getValue())
      .field("onString", cpt->onString.getValue())
      .field("offString", cpt->offString.getValue())
      .post("dialogCheckBox");
  }
}

void SoDialogAuditor::dialogComboBox(SoDialogComboBox* cpt)
{
  if (UnhandledTrace::isWanted()) {
    UnhandledTrace("SoDialogComboBox")
      .field("label", cpt->label.getValue())
      .selected(cpt->selectedItem.getValue(), cpt->getSelectedText())
      .post("dialogComboBox");
  }
}

void SoDialogAuditor::dialogEditText(SoDialogEditText* cpt)
{
  if (UnhandledTrace::isWanted()) {
    UnhandledTrace("SoDialogEditText")
      .field("label", cpt->label.getValue())
      .field("editText", cpt->editText.getValue())
      .post("dialogEditText");
  }
}

void SoDialogAuditor::dialogIntegerSlider(SoDialogIntegerSlider* cpt)
{
  if (UnhandledTrace::isWanted()) {
    UnhandledTrace("SoDialogIntegerSlider")
      .field("label", cpt->label.getValue())
      .text(std::to_string(cpt->value.getValue()).c_str()) // right behind the label: this is meant
      .post("dialogIntegerSlider");
  }
}

void SoDialogAuditor::dialogRealSlider(SoDialogRealSlider* cpt)
{
  if (UnhandledTrace::isWanted()) {
    UnhandledTrace("SoDialogRealSlider")
      .field("label", cpt->label.getValue())
      .text(SbString("\n\t\t -> value \"") + cpt->getValueText() + "\"")
      .post("dialogRealSlider");
  }
}

void SoDialogAuditor::dialogRadioButtons(SoDialogRadioButtons* cpt)
{
  if (UnhandledTrace::isWanted()) {
    UnhandledTrace("SoDialogRadioButtons")
      .field("label", cpt->label.getValue())
      .selected(cpt->selectedItem.getValue(), cpt->getSelectedText())
      .post("dialogRadioButtons");
  }
}

void SoDialogAuditor::menuPushButton(SoMenuPushButton* cpt)
{
  if (UnhandledTrace::isWanted()) {
    UnhandledTrace("SoMenuPushButton").field("label", cpt->label.getValue()).post("menuPushButton");
  }
}

void SoDialogAuditor::menuCheckBox(SoMenuCheckBox* cpt)
{
  if (UnhandledTrace::isWanted()) {
    UnhandledTrace("SoMenuCheckBox")
      .field("label", cpt->label.getValue())
      .field("onString", cpt->onString.getValue())
      .post("menuCheckBox");
  }
}

void SoDialogAuditor::menuFileSelection(SoMenuFileSelection* cpt)
{
  if (UnhandledTrace::isWanted()) {
    UnhandledTrace("SoMenuFileSelection")
      .field("title", cpt->title.getValue())
      .field("filename", cpt->filename.getValue())
      .post("menuFileSelection");
  }
}

void SoDialogAuditor::menuRadioButtons(SoMenuRadioButtons* cpt)
{
  if (UnhandledTrace::isWanted()) {
    UnhandledTrace("SoMenuRadioButtons")
      .field("label", cpt->label.getValue())
      .selected(cpt->selectedItem.getValue(), cpt->getSelectedText())
      .post("menuRadioButtons");
  }
}

void SoDialogAuditor::tabDialog(SoTabDialog* /*cpt*/) {}
