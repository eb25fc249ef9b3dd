#include <Inventor/SoDB.h>
#include <Inventor/SoInput.h>
#include <Inventor/lists/SoNodeList.h>
#include <Inventor/nodes/SoBaseColor.h>
#include <Inventor/nodes/SoFont.h>
#include <Inventor/nodes/SoGroup.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoTranslation.h>
#include <QDir>
#include <QFileInfo>
#include <Quillform/Quillform.h>
#include <Quillform/core/SoBuiltInSkins.h>
#include <cstring>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <support/Messages.h>
#include <support/TestFiles.h>

namespace {

/// What every skin file has to define.
const std::map<std::string, std::vector<std::string>> parts = {
  {"TextProperties.iv", {"DialogTextProperties"}},
  {"MenuItem.iv", {"MenuItemFrame"}},
  {"MenuCheckBox.iv", {"MenuCheckBoxStateOn", "MenuCheckBoxStateOff"}},
  {"MenuPopup.iv",
   {"MenuPopupPressedFrame", "MenuPopupReleasedFrame", "MenuPopupReleasedShape", "MenuPopupPressedShape"}},
  {"MenuPushButton.iv", {"MenuPushButtonReleased", "MenuPushButtonPressed"}},
  {"MenuRadioButtons.iv", {"MenuRadioButtonsStateOn", "MenuRadioButtonsStateOff"}},
  {"MenuSeparator.iv", {"MenuSeparatorFrame"}},
  {"DialogComponent.iv",
   {"DialogComponentEdgeStyleNone", "DialogComponentEdgeStyleShadowIn", "DialogComponentEdgeStyleShadowOut"}},
  {"DialogCheckBox.iv", {"DialogCheckBoxFrame", "DialogCheckBoxStateOff", "DialogCheckBoxStateOn"}},
  {"DialogComboBox.iv",
   {"DialogComboBoxFrame", "DialogComboBoxItemFrame", "DialogComboBoxButtonReleased", "DialogComboBoxButtonPressed"}},
  {"DialogRadioButtons.iv",
   {"DialogRadioButtonsFrame", "DialogRadioButtonsItemFrame", "DialogRadioButtonsStateOff",
    "DialogRadioButtonsStateOn"}},
  {"DialogEditText.iv",
   {"DialogEditTextFrame", "DialogEditTextEditingFrame", "DialogEditTextDownButtonPressed",
    "DialogEditTextDownButtonReleased", "DialogEditTextUpButtonPressed", "DialogEditTextUpButtonReleased",
    "DialogEditTextScrollFrame", "DialogEditTextCursorFrame", "DialogEditTextCaretFrame"}},
  {"TabDialog.iv",
   {"TabDialogSelectedTabFrame", "TabDialogUnselectedTabFrame", "TabDialogLeftButtonPressed",
    "TabDialogLeftButtonReleased", "TabDialogRightButtonPressed", "TabDialogRightButtonReleased", "TabDialogFrame"}},
  {"DialogPushButton.iv", {"DialogPushButtonReleased", "DialogPushButtonPressed"}},
  {"DialogSeparator.iv", {"DialogSeparatorVertical", "DialogSeparatorHorizontal"}},
  {"DialogSlider.iv", {"DialogSliderFrame", "DialogSliderCursor"}},
  {"MenuBar.iv", {"MenuBarFrame"}},
  {"TopLevelDialog.iv", {"TopLevelDialogFrame", "TopLevelDialogMinReleased", "TopLevelDialogMinPressed"}},
};

std::string readBytes(const std::string& path)
{
  std::stringstream bytes;
  bytes << std::ifstream(path, std::ios::binary).rdbuf();
  return bytes.str();
}

SoSeparator* readSkin(const std::string& text)
{
  SoInput input;
  input.setBuffer(text.data(), text.size());
  SoSeparator* root = SoDB::readAll(&input);
  if (root) {
    root->ref();
  }
  return root;
}

/// The groups of a root with their names.
std::set<std::string> groupNames(const SoSeparator* root)
{
  std::set<std::string> names;
  for (int i = 0; i < root->getNumChildren(); i++) {
    if (root->getChild(i)->isOfType(SoGroup::getClassTypeId())) {
      names.insert(root->getChild(i)->getName().getString());
    }
  }
  return names;
}

} // namespace

class SkinFilesTest : public ::testing::TestWithParam<const char*> {
protected:
  SkinFilesTest()
  {
    SoDB::init();
  }
  static std::string pathOf(const std::string& file)
  {
    return std::string(QUILLFORM_TEST_SKINS) + "/" + GetParam() + "/" + file;
  }
};

TEST_P(SkinFilesTest, holdsAFileForEveryClassAndNoOther)
{
  std::set<std::string> expected;
  for (const auto& [file, names] : parts) {
    expected.insert(file);
  }
  std::set<std::string> found;
  for (const QString& file : QDir(QString::fromStdString(pathOf(""))).entryList({"*.iv"}, QDir::Files)) {
    found.insert(file.toStdString());
  }
  EXPECT_EQ(found, expected);
}

TEST_P(SkinFilesTest, everyFileDefinesItsPartsAsFilledGroups)
{
  Messages messages;
  for (const auto& [file, names] : parts) {
    SoSeparator* root = readSkin(readBytes(pathOf(file)));
    ASSERT_NE(root, nullptr) << file;
    const std::set<std::string> found = groupNames(root);
    for (const std::string& name : names) {
      EXPECT_EQ(found.count(name), 1U) << file << " lacks " << name;
      auto* group = dynamic_cast<SoGroup*>(SoNode::getByName(name.c_str()));
      ASSERT_NE(group, nullptr) << name;
      EXPECT_GT(group->getNumChildren(), 0) << name;
    }
    root->unref();
  }
  EXPECT_TRUE(messages.all().empty());
}

INSTANTIATE_TEST_SUITE_P(Skin, SkinFilesTest, ::testing::Values("default", "dark"),
                         [](const ::testing::TestParamInfo<const char*>& skin) { return std::string(skin.param); });

TEST(BuiltInSkinsTest, areTheFilesOfTheDefaultSkin)
{
  for (const auto& [file, names] : parts) {
    const char* text = SoBuiltInSkins::text(file.c_str());
    ASSERT_NE(text, nullptr) << file;
    EXPECT_EQ(readBytes(std::string(QUILLFORM_TEST_SKINS) + "/default/" + file), text) << file;
  }
}

TEST(BuiltInSkinsTest, haveNothingElse)
{
  EXPECT_EQ(SoBuiltInSkins::text("NoSuchFile.iv"), nullptr);
  EXPECT_EQ(SoBuiltInSkins::text(""), nullptr);
  EXPECT_EQ(SoBuiltInSkins::text("default/TextProperties.iv"), nullptr);
}

TEST(BuiltInSkinsTest, theTextPropertiesAreBlackLiftedAndElevenPointTahoma)
{
  SoDB::init();
  SoSeparator* root = readSkin(SoBuiltInSkins::text("TextProperties.iv"));
  ASSERT_NE(root, nullptr);
  auto* group = dynamic_cast<SoGroup*>(SoNode::getByName("DialogTextProperties"));
  ASSERT_NE(group, nullptr);
  EXPECT_TRUE(group->getTypeId() == SoGroup::getClassTypeId());
  ASSERT_EQ(group->getNumChildren(), 3);
  auto* colour = dynamic_cast<SoBaseColor*>(group->getChild(0));
  auto* lift = dynamic_cast<SoTranslation*>(group->getChild(1));
  auto* font = dynamic_cast<SoFont*>(group->getChild(2));
  ASSERT_NE(colour, nullptr);
  ASSERT_NE(lift, nullptr);
  ASSERT_NE(font, nullptr);
  EXPECT_EQ(colour->rgb[0], SbColor(0.0F, 0.0F, 0.0F));
  EXPECT_EQ(lift->translation.getValue(), SbVec3f(0.0F, 0.0F, 0.1F));
  EXPECT_FLOAT_EQ(font->size.getValue(), 11.0F);
  EXPECT_EQ(font->name.getValue(), SbName("Tahoma"));
  root->unref();
}
