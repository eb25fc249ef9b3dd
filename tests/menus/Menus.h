#ifndef QUILLFORM_TESTS_MENUS_H
#define QUILLFORM_TESTS_MENUS_H

#include <QApplication>
#include <QMenuBar>
#include <QTest>
#include <Quillform/Quillform.h>
#include <algorithm>
#include <forms/Plan.h>
#include <functional>
#include <string>
#include <support/Choices.h>
#include <support/Messages.h>
#include <support/Operate.h>
#include <support/Scene.h>
#include <support/TestFiles.h>
#include <vector>

/// What the tests of the menus share.
namespace Menus {

/// A dialog's auditor that writes down what happened in its menus; runs \a then in its callback.
struct Heard : SoDialogAuditor {
  void menuPushButton(SoMenuPushButton* cpt) override
  {
    hear("push", cpt);
  }
  void menuCheckBox(SoMenuCheckBox* cpt) override
  {
    hear(cpt->state.getValue() ? "on" : "off", cpt);
  }
  void menuRadioButtons(SoMenuRadioButtons* cpt) override
  {
    hear("radio" + std::to_string(cpt->selectedItem.getValue()), cpt);
  }
  void menuFileSelection(SoMenuFileSelection* cpt) override
  {
    hear("file", cpt);
  }
  void dialogPushButton(SoDialogPushButton* cpt) override
  {
    hear("button", cpt);
  }
  void hear(const std::string& what, SoQuillform* cpt)
  {
    events.push_back(what + " " + cpt->auditorID.getValue().getString());
    if (then) {
      then(cpt);
    }
  }
  std::vector<std::string> events;
  std::function<void(SoQuillform*)> then;
};

typedef std::vector<std::string> Texts;

inline QMenuBar* barOf(SoTopLevelDialog* dialog)
{
  return qobject_cast<QMenuBar*>(dialog->getLayout()->menuBar());
}

/// The actions of a menu or bar in one line each: "[x] text (shortcut)", "---" for a separator, "text >" for a menu.
inline Texts actionsOf(const QWidget* menu)
{
  Texts texts;
  for (const QAction* action : menu->actions()) {
    std::string text;
    if (action->isSeparator()) {
      text = "---";
    }
    else {
      text = action->isCheckable() ? (action->isChecked() ? "[x] " : "[ ] ") : "";
      text += action->text().toLatin1().toStdString();
      text += action->menu() ? " >" : "";
      if (!action->shortcut().isEmpty()) {
        text += " (" + action->shortcut().toString().toStdString() + ")";
      }
      text += action->isEnabled() ? "" : " disabled";
    }
    texts.push_back(text);
  }
  return texts;
}

/// Opens a menu of the bar, or one inside a menu, as the user does, and returns it.
inline QMenu* openMenu(QWidget* around, int index)
{
  QAction* action = around->actions().at(index);
  const QRect place = qobject_cast<QMenuBar*>(around) ? static_cast<QMenuBar*>(around)->actionGeometry(action)
                                                      : static_cast<QMenu*>(around)->actionGeometry(action);
  QTest::mouseClick(around, Qt::LeftButton, Qt::NoModifier, place.center());
  QTest::qWait(0);
  return action->menu();
}

/// Clicks on an entry of an open menu.
inline void choose(QMenu* menu, int index)
{
  const QRect place = menu->actionGeometry(menu->actions().at(index));
  QTest::mouseMove(menu, place.center());
  QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier, place.center());
}

/// The pixel in the middle of line \a line of an item, wherever it stands in the scene.
inline SbVec2s lineOf(const Scene& scene, SoMenuItem* item, int line = 0)
{
  const SbVec3f at = item->get3DParentTranslation();
  const float top = at[1] + static_cast<float>(item->getItemSize()[1]) * 0.5F;
  return scene.pixel(at[0], top - (static_cast<float>(line) + 0.5F) * static_cast<float>(SoMenuItem::itemHeight));
}

/// The rectangle that an item takes in the scene, y down, and its nearest and farthest points.
inline SbBox3f boxOf(SoTopLevelDialog* dialog, SoMenuItem* item)
{
  return Plan::boxOf(dialog, Plan::partOf(item, "geomSwitch"));
}

inline SoMenuPopup* menuOf(SoTopLevelDialog* dialog, int index)
{
  for (int i = 0; i < dialog->getNumChildren(); i++) {
    if (auto* bar = dynamic_cast<SoMenuBar*>(dialog->getChild(i))) {
      return bar->getChild(index);
    }
  }
  return nullptr;
}

/// The menus around an entry, from the bar on.
inline std::vector<SoMenuPopup*> menusAround(SoQuillform* entry)
{
  std::vector<SoMenuPopup*> menus;
  for (SoQuillform* around = entry->getParent(); dynamic_cast<SoMenuPopup*>(around); around = around->getParent()) {
    menus.insert(menus.begin(), static_cast<SoMenuPopup*>(around));
  }
  return menus;
}

/// The line of an entry that a user chooses next: of radio buttons, the one that is not chosen.
inline int nextLineOf(SoQuillform* entry)
{
  const auto* radio = dynamic_cast<SoMenuRadioButtons*>(entry);
  return radio ? Operate::other(radio->selectedItem) : 0;
}

/// Opens the menus around an entry in the window and chooses it.
inline void chooseEntry(SoQuillform* entry)
{
  QWidget* around = barOf(Operate::dialogOf(entry));
  for (SoMenuPopup* menu : menusAround(entry)) {
    around = openMenu(around, around->actions().indexOf(menu->getMenu()->menuAction()));
    ASSERT_TRUE(QTest::qWaitFor([around] { return around->isVisible(); }, 2000));
  }
  const bool isRadio = dynamic_cast<SoMenuRadioButtons*>(entry) != nullptr;
  const std::string text =
    entry->auditorID.getValue().getString() + (isRadio ? std::to_string(nextLineOf(entry)) : std::string());
  const auto actions = around->actions();
  const auto found = std::find_if(actions.cbegin(), actions.cend(),
                                  [&text](const QAction* action) { return action->text().toStdString() == text; });
  ASSERT_NE(found, actions.cend()) << text;
  choose(static_cast<QMenu*>(around), static_cast<int>(found - actions.cbegin()));
}

/// The same in the scene.
inline void chooseEntry(Scene& scene, SoQuillform* entry)
{
  for (SoMenuPopup* menu : menusAround(entry)) {
    scene.click(lineOf(scene, menu));
  }
  scene.click(lineOf(scene, static_cast<SoMenuItem*>(entry), nextLineOf(entry)));
}

} // namespace Menus

/// A dialog with menus, in a window or in the scene.
class MenusTest : public QuillformTest {
protected:
  ~MenusTest() override
  {
    if (dialog) {
      dialog->destroyWidget();
      dialog->unref();
      settle();
    }
  }

  void openWindow(const std::string& text)
  {
    make(text);
    dialog->buildDialog(nullptr, FALSE);
    dialog->show();
    dialog->getWidget()->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog->getWidget()));
    settle();
  }

  void openScene(const std::string& text)
  {
    make(text);
    scene.open(dialog);
  }

  void make(const std::string& text)
  {
    dialog = load(text);
    ASSERT_NE(dialog, nullptr);
    dialog->ref();
    dialog->addAuditor(&heard);
  }

  /// Lets go of the dialog's last reference.
  void release()
  {
    dialog->unref();
    dialog = nullptr;
  }

  template <class Item>
  Item* item(const char* id)
  {
    return dynamic_cast<Item*>(dialog->searchForAuditorId(id));
  }

  SoMenuPopup* menu(int index)
  {
    return Menus::menuOf(dialog, index);
  }

  void clickTitle(SoMenuPopup* popup)
  {
    scene.click(Menus::lineOf(scene, popup));
  }

  /// Opens the menus and chooses an entry in the scene.
  void chooseInScene(const std::vector<SoMenuPopup*>& menus, SoMenuItem* entry, int line = 0)
  {
    for (SoMenuPopup* popup : menus) {
      clickTitle(popup);
    }
    scene.click(Menus::lineOf(scene, entry, line));
  }

  Menus::Heard heard;
  SoTopLevelDialog* dialog = nullptr;
  Scene scene;
};

#endif // QUILLFORM_TESTS_MENUS_H
