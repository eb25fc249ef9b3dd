#ifndef QUILLFORM_QUILLFORM_H
#define QUILLFORM_QUILLFORM_H

/// Everything that an application needs of Quillform.

#include <Quillform/auditors/SoAuditor.h>
#include <Quillform/auditors/SoDialogAuditor.h>
#include <Quillform/auditors/SoDialogCheckBoxAuditor.h>
#include <Quillform/auditors/SoDialogChoiceAuditor.h>
#include <Quillform/auditors/SoDialogEditTextAuditor.h>
#include <Quillform/auditors/SoDialogGroupAuditor.h>
#include <Quillform/auditors/SoDialogIntegerSliderAuditor.h>
#include <Quillform/auditors/SoDialogPushButtonAuditor.h>
#include <Quillform/auditors/SoDialogRealSliderAuditor.h>
#include <Quillform/auditors/SoMenuCheckBoxAuditor.h>
#include <Quillform/auditors/SoMenuFileSelectionAuditor.h>
#include <Quillform/auditors/SoMenuPushButtonAuditor.h>
#include <Quillform/auditors/SoMenuRadioButtonsAuditor.h>
#include <Quillform/auditors/SoTabDialogAuditor.h>
#include <Quillform/auditors/SoTopLevelAuditor.h>
#include <Quillform/containers/SoColumnDialog.h>
#include <Quillform/containers/SoDialogGroup.h>
#include <Quillform/containers/SoMessageDialog.h>
#include <Quillform/containers/SoRowDialog.h>
#include <Quillform/containers/SoTabDialog.h>
#include <Quillform/containers/SoTopLevelDialog.h>
#include <Quillform/controls/SoDialogCheckBox.h>
#include <Quillform/controls/SoDialogCheckBoxLauncher.h>
#include <Quillform/controls/SoDialogChoice.h>
#include <Quillform/controls/SoDialogComboBox.h>
#include <Quillform/controls/SoDialogCustom.h>
#include <Quillform/controls/SoDialogEditText.h>
#include <Quillform/controls/SoDialogIntegerSlider.h>
#include <Quillform/controls/SoDialogLabel.h>
#include <Quillform/controls/SoDialogPushButton.h>
#include <Quillform/controls/SoDialogPushButtonLauncher.h>
#include <Quillform/controls/SoDialogRadioButtons.h>
#include <Quillform/controls/SoDialogRealSlider.h>
#include <Quillform/controls/SoDialogSeparator.h>
#include <Quillform/core/SoDialogComponent.h>
#include <Quillform/core/SoDialogWidgetList.h>
#include <Quillform/core/SoQuillform.h>
#include <Quillform/core/SoTopComponent.h>
#include <Quillform/menus/SoMenuBar.h>
#include <Quillform/menus/SoMenuCheckBox.h>
#include <Quillform/menus/SoMenuCheckBoxLauncher.h>
#include <Quillform/menus/SoMenuFileSelection.h>
#include <Quillform/menus/SoMenuItem.h>
#include <Quillform/menus/SoMenuPopup.h>
#include <Quillform/menus/SoMenuPushButton.h>
#include <Quillform/menus/SoMenuPushButtonLauncher.h>
#include <Quillform/menus/SoMenuRadioButtons.h>
#include <Quillform/menus/SoMenuSeparator.h>
#include <Quillform/platform/SbFileHelper.h>
#include <Quillform/platform/SoInSceneMode.h>
#include <Quillform/platform/SoPreferences.h>

#endif // QUILLFORM_QUILLFORM_H
