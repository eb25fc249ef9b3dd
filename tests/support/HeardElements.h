#ifndef QUILLFORM_TESTS_HEARDELEMENTS_H
#define QUILLFORM_TESTS_HEARDELEMENTS_H

#include <Quillform/Quillform.h>
#include <functional>
#include <string>
#include <vector>

/// Writes down the identifiers of the controls that it hears of, and then does what the test wants.
struct HeardElements : SoDialogAuditor {
  void dialogPushButton(SoDialogPushButton* cpt) override
  {
    note(cpt);
  }
  void dialogCheckBox(SoDialogCheckBox* cpt) override
  {
    note(cpt);
  }
  void dialogComboBox(SoDialogComboBox* cpt) override
  {
    note(cpt);
  }
  void dialogRadioButtons(SoDialogRadioButtons* cpt) override
  {
    note(cpt);
  }
  void dialogIntegerSlider(SoDialogIntegerSlider* cpt) override
  {
    note(cpt);
  }
  void dialogRealSlider(SoDialogRealSlider* cpt) override
  {
    note(cpt);
  }
  void dialogEditText(SoDialogEditText* cpt) override
  {
    note(cpt);
  }

  std::vector<std::string> ids;
  std::function<void()> action;

private:
  void note(const SoQuillform* cpt)
  {
    ids.emplace_back(cpt->auditorID.getValue().getString());
    if (action) {
      action();
    }
  }
};

#endif // QUILLFORM_TESTS_HEARDELEMENTS_H
