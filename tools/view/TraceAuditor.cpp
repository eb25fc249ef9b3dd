#include "TraceAuditor.h"

#include <QString>
#include <Quillform/containers/SoTabDialog.h>
#include <Quillform/controls/SoDialogEditText.h>
#include <Quillform/controls/SoDialogPushButton.h>
#include <Quillform/core/SoChildElements.h>
#include <Quillform/menus/SoMenuCheckBox.h>
#include <Quillform/menus/SoMenuFileSelection.h>
#include <Quillform/menus/SoMenuRadioButtons.h>
#include <cstdio>

namespace {

/// A text in quotes and in one line.
QString quote(const SbString& text)
{
  QString quoted = QString::fromLatin1(text.getString());
  quoted.replace('\\', "\\\\").replace('"', "\\\"");
  quoted.replace('\n', "\\n").replace('\r', "\\r").replace('\t', "\\t");
  return '"' + quoted + '"';
}

/// One line of the trace: the operation, the element, and what the element shows. Printed when it is complete.
class TraceLine {
public:
  TraceLine(const char* operation, const SoQuillform* element) : m_line(operation)
  {
    value("auditorID", element->auditorID.getValue());
  }

  TraceLine& value(const char* name, const SbString& text)
  {
    m_line += QString(" %1=").arg(name) + quote(text);
    return *this;
  }

  /// The reader may be a program at the other end of a pipe: the line goes out at once.
  void print() const
  {
    std::printf("%s\n", m_line.toLocal8Bit().constData());
    std::fflush(stdout);
  }

private:
  QString m_line;
};

} // namespace

void TraceAuditor::dialogPushButton(SoDialogPushButton* cpt)
{
  const SbString label = cpt->label.getValue();
  const SbString buttonLabel = cpt->buttonLabel.getValue();
  TraceLine line("dialogPushButton", cpt);
  line.value("label", label.getLength() > 0 ? label : buttonLabel);
  if (label.getLength() > 0 && buttonLabel.getLength() > 0) {
    line.value("buttonLabel", buttonLabel);
  }
  line.print();
}

void TraceAuditor::dialogEditText(SoDialogEditText* cpt)
{
  TraceLine("dialogEditText", cpt)
    .value("label", cpt->label.getValue())
    .value("editText", cpt->editText.getValue())
    .print();
}

void TraceAuditor::menuPushButton(SoMenuPushButton* cpt)
{
  TraceLine("menuPushButton", cpt).value("label", cpt->label.getValue()).print();
}

void TraceAuditor::menuCheckBox(SoMenuCheckBox* cpt)
{
  TraceLine("menuCheckBox", cpt)
    .value("label", cpt->label.getValue())
    .value("state", cpt->state.getValue() ? "TRUE" : "FALSE")
    .print();
}

void TraceAuditor::menuFileSelection(SoMenuFileSelection* cpt)
{
  TraceLine("menuFileSelection", cpt)
    .value("label", cpt->label.getValue())
    .value("fileDirectory", cpt->fileDirectory.getValue())
    .value("filename", cpt->filename.getValue())
    .print();
}

void TraceAuditor::menuRadioButtons(SoMenuRadioButtons* cpt)
{
  TraceLine("menuRadioButtons", cpt)
    .value("selectedItem", SbString(cpt->selectedItem.getValue()))
    .value("item", cpt->getSelectedText())
    .print();
}

void TabTraceAuditor::listenTo(SoQuillform* dialog)
{
  if (auto* tabs = dynamic_cast<SoTabDialog*>(dialog)) {
    tabs->addAuditor(this);
  }
  const SoChildElements* children = dialog->getChildElements();
  for (int i = 0; children && i < children->getNum(); i++) {
    listenTo(children->get(i));
  }
}

void TabTraceAuditor::tabDialog(SoTabDialog* cpt)
{
  const SoDialogComponent* page = cpt->getChild(cpt->selectedPage.getValue());
  TraceLine("tabDialog", cpt)
    .value("selectedPage", SbString(cpt->selectedPage.getValue()))
    .value("label", page ? page->label.getValue() : "")
    .print();
}
