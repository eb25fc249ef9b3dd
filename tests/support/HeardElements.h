#ifndef QUILLFORM_TESTS_HEARDELEMENTS_H
#define QUILLFORM_TESTS_HEARDELEMENTS_H

#include <Quillform/Quillform.h>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

/// Writes down the identifiers of the elements that it hears of, and then does what the test wants. It can be the
/// auditor of a dialog or group, and of every single element.
struct HeardElements : SoDialogAuditor,
                       SoDialogPushButtonAuditor,
                       SoDialogCheckBoxAuditor,
                       SoDialogChoiceAuditor,
                       SoDialogEditTextAuditor,
                       SoDialogIntegerSliderAuditor,
                       SoDialogRealSliderAuditor,
                       SoTabDialogAuditor,
                       SoMenuPushButtonAuditor,
                       SoMenuCheckBoxAuditor,
                       SoMenuRadioButtonsAuditor,
                       SoMenuFileSelectionAuditor {
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
  void dialogChoice(SoDialogChoice* cpt) override
  {
    note(cpt);
  }
  void tabDialog(SoTabDialog* cpt) override
  {
    note(cpt);
  }
  void dialogEditText(SoDialogEditText* cpt) override
  {
    note(cpt);
  }
  void menuPushButton(SoMenuPushButton* cpt) override
  {
    note(cpt);
  }
  void menuCheckBox(SoMenuCheckBox* cpt) override
  {
    note(cpt);
  }
  void menuRadioButtons(SoMenuRadioButtons* cpt) override
  {
    note(cpt);
  }
  void menuFileSelection(SoMenuFileSelection* cpt) override
  {
    note(cpt);
  }

  /// Becomes the auditor of one element, whatever it is.
  void hearOwn(SoQuillform* element)
  {
    // A file selection is a kind of command.
    const bool isAdded =
      addTo<SoMenuFileSelection>(element) || addTo<SoMenuPushButton>(element) || addTo<SoMenuCheckBox>(element) ||
      addTo<SoMenuRadioButtons>(element) || addTo<SoDialogPushButton>(element) || addTo<SoDialogCheckBox>(element) ||
      addTo<SoDialogChoice>(element) || addTo<SoDialogEditText>(element) || addTo<SoDialogIntegerSlider>(element) ||
      addTo<SoDialogRealSlider>(element) || addTo<SoTabDialog>(element);
    ASSERT_TRUE(isAdded) << element->getTypeId().getName().getString();
  }

  std::vector<std::string> ids;
  std::function<void()> action;

private:
  template <class Element>
  bool addTo(SoQuillform* element)
  {
    auto* typed = dynamic_cast<Element*>(element);
    if (typed) {
      typed->addAuditor(this);
    }
    return typed;
  }

  void note(const SoQuillform* cpt)
  {
    ids.emplace_back(cpt->auditorID.getValue().getString());
    if (action) {
      action();
    }
  }
};

#endif // QUILLFORM_TESTS_HEARDELEMENTS_H
