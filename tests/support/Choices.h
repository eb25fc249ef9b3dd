#ifndef QUILLFORM_TESTS_CHOICES_H
#define QUILLFORM_TESTS_CHOICES_H

#include <Inventor/SoPath.h>
#include <Inventor/actions/SoSearchAction.h>
#include <Inventor/nodekits/SoBaseKit.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoText3.h>
#include <Quillform/Quillform.h>
#include <forms/Plan.h>
#include <functional>
#include <string>
#include <support/Scene.h>
#include <support/TestFiles.h>
#include <vector>

/// What the tests of the combo box and of the radio buttons share.
namespace Choices {

/// Auditor of one control; runs \a then in its callback.
struct Heard : SoDialogChoiceAuditor {
  explicit Heard(std::function<void(SoDialogChoice*)> then_ = nullptr) : then(std::move(then_)) {}
  void dialogChoice(SoDialogChoice* cpt) override
  {
    chosen.push_back(cpt->selectedItem.getValue());
    if (then) {
      then(cpt);
    }
  }
  std::vector<int> chosen;
  std::function<void(SoDialogChoice*)> then;
};

/// The middle of a catalog part, of an element that stands in the scene below \a top.
inline SbVec2s middleOf(const Scene& scene, SoNode* top, SoQuillform* element, const char* part)
{
  const SbBox3f box = Plan::boxOf(top, Plan::partOf(element, part));
  const SbVec3f middle = box.getCenter();
  return scene.pixel(middle[0], middle[1]);
}

inline int shownChild(SoQuillform* element, const char* part)
{
  const auto* node = static_cast<SoSwitch*>(Plan::partOf(element, part));
  return node ? node->whichChild.getValue() : SO_SWITCH_NONE;
}

/// The 3D texts that are drawn below \a root, which is no kit, in the order of drawing.
inline std::vector<std::string> textsIn(SoNode* root)
{
  const SbBool wasSearching = SoBaseKit::isSearchingChildren();
  SoBaseKit::setSearchingChildren(TRUE);
  SoSearchAction search;
  search.setType(SoText3::getClassTypeId());
  search.setInterest(SoSearchAction::ALL);
  search.apply(root);
  SoBaseKit::setSearchingChildren(wasSearching);
  std::vector<std::string> texts;
  for (int i = 0; i < search.getPaths().getLength(); i++) {
    const auto* text = static_cast<const SoText3*>(search.getPaths()[i]->getTail());
    texts.emplace_back(text->string.getNum() > 0 ? text->string[0].getString() : "");
  }
  return texts;
}

inline bool hasDialogFont(const QWidget* widget)
{
  const QFont font = SoQuillform::getQuillformFont();
  return widget->font().family() == font.family() && widget->font().pointSize() == font.pointSize();
}

/// `"e0", "e1", ...`, for dialog files.
inline std::string manyItems(int count)
{
  std::string items;
  for (int i = 0; i < count; i++) {
    items += "\"e" + std::to_string(i) + "\", ";
  }
  return items;
}

/// Tests with a dialog that holds one choice of three entries.
template <class Choice>
class Test : public QuillformTest {
protected:
  /// Opens it in a window; \a more is added to its fields.
  Choice* open(const std::string& more = "selectedItem 1")
  {
    loadOne(more);
    m_dialog->buildDialog(nullptr, FALSE);
    m_dialog->show();
    return m_choice;
  }

  /// Opens it in the scene.
  Choice* open3D(const std::string& more = "selectedItem 1")
  {
    loadOne(more);
    m_scene.open(m_dialog);
    return m_choice;
  }

  void loadOne(const std::string& more)
  {
    const std::string name = Choice::getClassTypeId().getName().getString();
    m_dialog = load("TopLevelDialog { " + name + " { items [ \"a\", \"b\", \"c\" ] " + more + " } }");
    ASSERT_NE(m_dialog, nullptr);
    m_choice = static_cast<Choice*>(m_dialog->getChild(0));
  }

  SoTopLevelDialog* m_dialog = nullptr;
  Choice* m_choice = nullptr;
  Scene m_scene;
};

} // namespace Choices

#endif // QUILLFORM_TESTS_CHOICES_H
