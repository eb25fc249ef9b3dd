#include <Quillform/Quillform.h>
#include <support/Messages.h>
#include <support/TestFiles.h>

namespace {

std::vector<std::string> itemsOf(const SoDialogChoice* choice)
{
  std::vector<std::string> items;
  for (int i = 0; i < choice->items.getNum(); i++) {
    items.emplace_back(choice->items[i].getString());
  }
  return items;
}

using Texts = std::vector<std::string>;

/// Writes down the kinds of what it hears.
struct Heard : SoDialogChoiceAuditor {
  void dialogChoice(SoDialogChoice* cpt) override
  {
    chosen.push_back(cpt->selectedItem.getValue());
  }
  std::vector<int> chosen;
};

struct DialogHeard : SoDialogAuditor {
  void dialogComboBox(SoDialogComboBox* /*cpt*/) override
  {
    kinds.emplace_back("combo box");
  }
  void dialogRadioButtons(SoDialogRadioButtons* /*cpt*/) override
  {
    kinds.emplace_back("radio buttons");
  }
  Texts kinds;
};

} // namespace

class ChoiceTest : public QuillformTest {
protected:
  void SetUp() override
  {
    m_choice = new SoDialogComboBox;
    m_choice->ref();
  }
  void TearDown() override
  {
    m_choice->unref();
  }
  SoDialogChoice* m_choice = nullptr;
};

TEST_F(ChoiceTest, aFreshOneHoldsOnlyThePlaceholder)
{
  EXPECT_EQ(itemsOf(m_choice), Texts{""});
  EXPECT_EQ(m_choice->selectedItem.getValue(), 0);
  EXPECT_EQ(m_choice->getNumItems(), 0);
  m_choice->addItem("a");
  EXPECT_EQ(itemsOf(m_choice), Texts{"a"});
}

TEST_F(ChoiceTest, theClassesStandInOneLineOfDescent)
{
  EXPECT_TRUE(SoDialogChoice::getClassTypeId().isDerivedFrom(SoDialogComponent::getClassTypeId()));
  EXPECT_TRUE(SoDialogComboBox::getClassTypeId().isDerivedFrom(SoDialogChoice::getClassTypeId()));
  EXPECT_TRUE(SoDialogRadioButtons::getClassTypeId().isDerivedFrom(SoDialogChoice::getClassTypeId()));
  EXPECT_EQ(SoDialogChoice::getClassTypeId().getName(), "DialogChoice");
  EXPECT_EQ(SoDialogComboBox::getClassTypeId().getName(), "DialogComboBox");
  EXPECT_EQ(SoDialogRadioButtons::getClassTypeId().getName(), "DialogRadioButtons");
}

TEST_F(ChoiceTest, noItemsGiveOneEmptyEntryThatIsThePlaceholder)
{
  m_choice->addItem("a");
  m_choice->items.setNum(0);
  m_choice->fixItemsNumber();
  EXPECT_EQ(itemsOf(m_choice), Texts{""});
  EXPECT_EQ(m_choice->getNumItems(), 0);
  m_choice->addItem("b");
  EXPECT_EQ(itemsOf(m_choice), Texts{"b"});
}

TEST_F(ChoiceTest, addItemReplacesThePlaceholderAndAppendsToEverythingElse)
{
  m_choice->addItem("a");
  m_choice->addItem("b");
  EXPECT_EQ(itemsOf(m_choice), (Texts{"a", "b"}));
}

TEST_F(ChoiceTest, addItemWorksOnAListThatNobodyHasFixedYet)
{
  m_choice->items.setNum(0);
  m_choice->addItem("a");
  EXPECT_EQ(itemsOf(m_choice), Texts{"a"});
}

TEST_F(ChoiceTest, anEmptyEntryThatWasAddedIsNoPlaceholder)
{
  m_choice->addItem("");
  EXPECT_EQ(m_choice->getNumItems(), 1);
  m_choice->fixItemsNumber();
  EXPECT_EQ(m_choice->getNumItems(), 1);
  m_choice->addItem("b");
  EXPECT_EQ(itemsOf(m_choice), (Texts{"", "b"}));
}

TEST_F(ChoiceTest, theFlagGoesWithTheFirstRealEntryHoweverItCame)
{
  m_choice->items.set1Value(0, "a");
  m_choice->fixItemsNumber();
  m_choice->items.set1Value(0, "");
  EXPECT_EQ(m_choice->getNumItems(), 1);
  m_choice->addItem("b");
  EXPECT_EQ(itemsOf(m_choice), (Texts{"", "b"}));
}

TEST_F(ChoiceTest, insertItemReplacesThePlaceholderWhateverTheIndex)
{
  m_choice->insertItem(7, "a");
  EXPECT_EQ(itemsOf(m_choice), Texts{"a"});
}

TEST_F(ChoiceTest, insertItemClampsTheIndex)
{
  m_choice->addItem("m");
  m_choice->addItem("n");
  m_choice->insertItem(-5, "first");
  EXPECT_EQ(itemsOf(m_choice), (Texts{"first", "m", "n"}));
  m_choice->insertItem(99, "last");
  EXPECT_EQ(itemsOf(m_choice), (Texts{"first", "m", "n", "last"}));
  m_choice->insertItem(2, "between");
  EXPECT_EQ(itemsOf(m_choice), (Texts{"first", "m", "between", "n", "last"}));
}

TEST_F(ChoiceTest, removeItemIgnoresIndicesWithoutAnEntry)
{
  m_choice->removeItem(0); // the placeholder is no entry
  EXPECT_EQ(itemsOf(m_choice), Texts{""});
  m_choice->addItem("a");
  m_choice->addItem("b");
  m_choice->removeItem(-1);
  m_choice->removeItem(2);
  EXPECT_EQ(itemsOf(m_choice), (Texts{"a", "b"}));
  m_choice->removeItem(0);
  EXPECT_EQ(itemsOf(m_choice), Texts{"b"});
}

TEST_F(ChoiceTest, removingTheLastEntryBringsThePlaceholderOnlyWithFixItemsNumber)
{
  m_choice->addItem("a");
  m_choice->removeItem(0);
  EXPECT_EQ(m_choice->items.getNum(), 0);
  m_choice->fixItemsNumber();
  EXPECT_EQ(itemsOf(m_choice), Texts{""});
}

TEST_F(ChoiceTest, aCopyKnowsItsPlaceholder)
{
  m_choice->addItem("");
  auto* copy = static_cast<SoDialogChoice*>(m_choice->copy());
  copy->ref();
  copy->addItem("b");
  EXPECT_EQ(itemsOf(copy), (Texts{"", "b"}));
  EXPECT_EQ(itemsOf(m_choice), Texts{""});
  copy->unref();
}

TEST_F(ChoiceTest, writingAndReadingKeepsTheFieldsAndTheirOrder)
{
  EXPECT_EQ(toText(m_choice).find("items"), std::string::npos);
  m_choice->addItem("one\\n");
  m_choice->addItem("\"two\"");
  m_choice->selectedItem = 1;
  const std::string text = toText(m_choice);
  EXPECT_LT(text.find("items"), text.find("selectedItem"));
  auto* read = static_cast<SoDialogChoice*>(readText(text));
  ASSERT_NE(read, nullptr);
  EXPECT_EQ(itemsOf(read), itemsOf(m_choice));
  EXPECT_EQ(toText(read), text);
  auto* binary = static_cast<SoDialogChoice*>(throughBinary(m_choice));
  ASSERT_NE(binary, nullptr);
  EXPECT_EQ(toText(binary), text);
  binary->unref();
  read->unref();
}

TEST_F(ChoiceTest, itsOwnAuditorsHearOfItAndTheContainerDoesNot)
{
  Heard own;
  DialogHeard dialogHeard;
  auto* dialog = new SoTopLevelDialog;
  dialog->ref();
  dialog->addChild(m_choice);
  dialog->addAuditor(&dialogHeard);
  m_choice->addAuditor(&own);
  m_choice->selectedItem = 3;
  m_choice->applyDlgCptAuditor();
  EXPECT_EQ(own.chosen, std::vector<int>{3});
  EXPECT_TRUE(dialogHeard.kinds.empty());
  m_choice->removeAuditor(&own);
  m_choice->applyDlgCptAuditor();
  EXPECT_EQ(own.chosen.size(), 1U);
  EXPECT_EQ(dialogHeard.kinds, Texts{"combo box"});
  dialog->unref();
}

TEST_F(ChoiceTest, aDialogReportsEachKindToItsOwnOperation)
{
  DialogHeard heard;
  SoTopLevelDialog* dialog = load("TopLevelDialog { RowDialog { DialogRadioButtons { } DialogComboBox { } } }");
  ASSERT_NE(dialog, nullptr);
  dialog->addAuditor(&heard);
  dialog->applyAuditors();
  EXPECT_EQ(heard.kinds, (Texts{"radio buttons", "combo box"}));
}

TEST_F(ChoiceTest, anUnhandledChoiceIsTracedOnDemand)
{
  SoTopLevelDialog* dialog = load("TopLevelDialog {"
                                  " DialogComboBox { label \"Unit\" items [ \"mm\", \"cm\" ] selectedItem 1 }"
                                  " DialogRadioButtons { label \"Side\" items [ \"left\" ] selectedItem 5 } }");
  ASSERT_NE(dialog, nullptr);
  Messages messages;
  dialog->applyAuditors();
  EXPECT_TRUE(messages.all().empty());
  SoPreferences::setString("DEBUG_QUILLFORM_AUDITORS", "1");
  dialog->applyAuditors();
  SoPreferences::unset("DEBUG_QUILLFORM_AUDITORS");
  EXPECT_EQ(messages.count("WARNING ! The DialogAuditor does not define the SoDialogComboBox component :"
                           "\n\t\t -> label = \"Unit\"\n\t\t -> selectedItem 1 : cm"),
            1);
  EXPECT_EQ(messages.count("SoDialogAuditor::dialogComboBox"), 1);
  EXPECT_EQ(messages.count("WARNING ! The DialogAuditor does not define the SoDialogRadioButtons component :"
                           "\n\t\t -> label = \"Side\"\n\t\t -> selectedItem 5 : "),
            1);
}
