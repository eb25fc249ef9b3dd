#include <QPushButton>
#include <QTest>
#include <Quillform/Quillform.h>
#include <algorithm>
#include <functional>
#include <support/Messages.h>
#include <support/Scene.h>
#include <support/TestFiles.h>
#include <type_traits>

namespace {

/// Writes its name down and then does what the test wants.
struct Doing : SoDialogPushButtonAuditor {
  Doing(std::vector<std::string>* log, const char* name, std::function<void()> action = {})
      : m_log(log), m_name(name), m_action(std::move(action))
  {
  }
  void dialogPushButton(SoDialogPushButton* /*cpt*/) override
  {
    m_log->push_back(m_name);
    const std::function<void()> action = m_action; // this object may be deleted by it
    if (action) {
      action();
    }
  }
  std::vector<std::string>* m_log;
  std::string m_name;
  std::function<void()> m_action;
};

struct DialogDoing : SoDialogAuditor {
  DialogDoing(std::vector<std::string>* log, const char* name, std::function<void()> action = {})
      : m_log(log), m_name(name), m_action(std::move(action))
  {
  }
  void dialogPushButton(SoDialogPushButton* cpt) override
  {
    m_log->push_back(m_name + " " + cpt->auditorID.getValue().getString());
    const std::function<void()> action = m_action;
    if (action) {
      action();
    }
  }
  std::vector<std::string>* m_log;
  std::string m_name;
  std::function<void()> m_action;
};

struct CheckBoxDoing : SoDialogCheckBoxAuditor {
  explicit CheckBoxDoing(std::vector<std::string>* log) : m_log(log) {}
  void dialogCheckBox(SoDialogCheckBox* /*cpt*/) override
  {
    m_log->push_back("check box");
  }
  std::vector<std::string>* m_log;
};

typedef std::vector<std::string> Log;

} // namespace

// The types

TEST(AuditorTypesTest, areRegisteredInTheirOrder)
{
  SoQuillform::init();
  const std::vector<const char*> names = {
    "Auditor",
    "DialogAuditor",
    "DialogPushButtonAuditor",
    "DialogCheckBoxAuditor",
    "DialogChoiceAuditor",
    "DialogEditTextAuditor",
    "DialogIntegerSliderAuditor",
    "DialogRealSliderAuditor",
    "MenuCheckBoxAuditor",
    "MenuFileSelectionAuditor",
    "MenuPushButtonAuditor",
    "MenuRadioButtonsAuditor",
  };
  int last = -1;
  for (const char* name : names) {
    const SoType type = SoType::fromName(name);
    ASSERT_NE(type, SoType::badType()) << name;
    EXPECT_GT(type.getKey(), last) << name;
    EXPECT_FALSE(type.canCreateInstance()) << name;
    last = type.getKey();
  }
  SoQuillform::finish();
  for (const char* name : names) {
    EXPECT_EQ(SoType::fromName(name), SoType::badType()) << name;
  }
}

TEST(AuditorTypesTest, hangBelowAuditor)
{
  SoQuillform::init();
  EXPECT_TRUE(SoAuditor::getClassTypeId().getParent() == SoType::badType());
  for (const SoType& type : {SoDialogAuditor::getClassTypeId(), SoDialogPushButtonAuditor::getClassTypeId(),
                             SoDialogCheckBoxAuditor::getClassTypeId(), SoDialogChoiceAuditor::getClassTypeId(),
                             SoDialogEditTextAuditor::getClassTypeId(), SoDialogIntegerSliderAuditor::getClassTypeId(),
                             SoDialogRealSliderAuditor::getClassTypeId(), SoMenuCheckBoxAuditor::getClassTypeId(),
                             SoMenuFileSelectionAuditor::getClassTypeId(), SoMenuPushButtonAuditor::getClassTypeId(),
                             SoMenuRadioButtonsAuditor::getClassTypeId()}) {
    EXPECT_EQ(type.getParent(), SoAuditor::getClassTypeId()) << type.getName().getString();
  }
  SoQuillform::finish();
}

TEST(AuditorTypesTest, leaveTheTabDialogsOneOut)
{
  SoQuillform::init();
  EXPECT_EQ(SoTabDialogAuditor::getClassTypeId(), SoType::badType());
  EXPECT_EQ(SoType::fromName("TabDialogAuditor"), SoType::badType());
  SoTabDialogAuditor::initClass();
  EXPECT_EQ(SoType::fromName("TabDialogAuditor"), SoTabDialogAuditor::getClassTypeId());
  EXPECT_EQ(SoTabDialogAuditor::getClassTypeId().getParent(), SoAuditor::getClassTypeId());
  SoTabDialogAuditor::exitClass();
  SoQuillform::finish();
}

TEST(AuditorTypesTest, theDefaultAuditorsAreDialogAuditorsWithoutATypeOfTheirOwn)
{
  SoQuillform::init();
  const SoDialogGroupAuditor group;
  const SoTopLevelAuditor top;
  EXPECT_EQ(group.getTypeId(), SoDialogAuditor::getClassTypeId());
  EXPECT_EQ(top.getTypeId(), SoDialogAuditor::getClassTypeId());
  EXPECT_EQ(SoType::fromName("DialogGroupAuditor"), SoType::badType());
  EXPECT_EQ(SoType::fromName("TopLevelAuditor"), SoType::badType());
  SoQuillform::finish();
}

TEST(AuditorTypesTest, theOneOperationOfAPerTypeAuditorIsAbstract)
{
  EXPECT_TRUE(std::is_abstract_v<SoDialogPushButtonAuditor>);
  EXPECT_TRUE(std::is_abstract_v<SoDialogCheckBoxAuditor>);
  EXPECT_TRUE(std::is_abstract_v<SoDialogChoiceAuditor>);
  EXPECT_TRUE(std::is_abstract_v<SoDialogEditTextAuditor>);
  EXPECT_TRUE(std::is_abstract_v<SoDialogIntegerSliderAuditor>);
  EXPECT_TRUE(std::is_abstract_v<SoDialogRealSliderAuditor>);
  EXPECT_TRUE(std::is_abstract_v<SoTabDialogAuditor>);
  EXPECT_TRUE(std::is_abstract_v<SoMenuCheckBoxAuditor>);
  EXPECT_TRUE(std::is_abstract_v<SoMenuFileSelectionAuditor>);
  EXPECT_TRUE(std::is_abstract_v<SoMenuPushButtonAuditor>);
  EXPECT_TRUE(std::is_abstract_v<SoMenuRadioButtonsAuditor>);
  EXPECT_FALSE(std::is_abstract_v<SoDialogAuditor>);
}

// Calling them

class AuditorsTest : public QuillformTest {
protected:
  AuditorsTest()
      : dialog(load("TopLevelDialog { DialogPushButton { auditorID \"a\" label \"A\" buttonLabel \"Press\" } "
                    "DialogPushButton { auditorID \"b\" } DialogLabel { auditorID \"l\" } }"))
  {
    a = static_cast<SoDialogPushButton*>(dialog->getChild(0));
    b = static_cast<SoDialogPushButton*>(dialog->getChild(1));
  }

  void press(SoDialogPushButton* element)
  {
    if (!element->getWidget()) {
      dialog->buildDialog(nullptr, FALSE);
      dialog->show();
    }
    QTest::mouseClick(element->getWidget()->findChild<QPushButton*>("ZEPSoDialogQPushButtonButtonWidget"),
                      Qt::LeftButton);
  }

  SoTopLevelDialog* dialog;
  SoDialogPushButton* a = nullptr;
  SoDialogPushButton* b = nullptr;
  Log log;
};

TEST_F(AuditorsTest, ownAuditorsRunInTheOrderInWhichTheyWereAdded)
{
  Doing first(&log, "first");
  Doing second(&log, "second");
  Doing third(&log, "third");
  a->addAuditor(&second);
  a->addAuditor(&first);
  a->addAuditor(&third);
  a->addAuditor(&second);
  press(a);
  EXPECT_EQ(log, (Log{"second", "first", "third"}));
}

TEST_F(AuditorsTest, withAnAuditorOfItsOwnTheDialogHearsNothing)
{
  Doing own(&log, "own");
  DialogDoing above(&log, "dialog");
  a->addAuditor(&own);
  dialog->addAuditor(&above);
  press(a);
  EXPECT_EQ(log, Log{"own"});
}

TEST_F(AuditorsTest, withoutOneTheDialogHearsOnce)
{
  DialogDoing above(&log, "dialog");
  dialog->addAuditor(&above);
  press(a);
  press(b);
  EXPECT_EQ(log, (Log{"dialog a", "dialog b"}));
}

TEST_F(AuditorsTest, dialogAuditorsRunInOrder)
{
  DialogDoing first(&log, "1");
  DialogDoing second(&log, "2");
  dialog->addAuditor(&first);
  dialog->addAuditor(&second);
  press(b);
  EXPECT_EQ(log, (Log{"1 b", "2 b"}));
}

TEST_F(AuditorsTest, anElementWithoutParentAndAuditorTellsNobody)
{
  auto* alone = new SoDialogPushButton;
  alone->ref();
  Messages messages;
  alone->applyDlgCptAuditor();
  EXPECT_TRUE(messages.all().empty());
  Doing own(&log, "own");
  alone->addAuditor(&own);
  alone->applyDlgCptAuditor();
  EXPECT_EQ(log, Log{"own"});
  alone->unref();
}

TEST_F(AuditorsTest, settingFieldsCallsNobody)
{
  Doing own(&log, "own");
  DialogDoing above(&log, "dialog");
  a->addAuditor(&own);
  dialog->addAuditor(&above);
  dialog->buildDialog(nullptr, FALSE);
  a->label = "x";
  a->buttonLabel = "y";
  a->enable = FALSE;
  b->buttonLabel = "z";
  dialog->label = "t";
  EXPECT_EQ(log, Log{});
}

TEST_F(AuditorsTest, anAuditorMayRemoveItself)
{
  Doing* self = nullptr;
  Doing once(&log, "once", [&] { a->removeAuditor(self); });
  Doing other(&log, "other");
  self = &once;
  a->addAuditor(&once);
  a->addAuditor(&other);
  press(a);
  press(a);
  EXPECT_EQ(log, (Log{"once", "other", "other"}));
}

TEST_F(AuditorsTest, anAuditorMayDeleteItself)
{
  Doing* self = nullptr;
  self = new Doing(&log, "once", [&self] { delete self; });
  Doing other(&log, "other");
  a->addAuditor(self);
  a->addAuditor(&other);
  press(a);
  press(a);
  EXPECT_EQ(log, (Log{"once", "other", "other"}));
}

TEST_F(AuditorsTest, anAuditorRemovedBeforeItsTurnDoesNotRun)
{
  Doing second(&log, "second");
  Doing first(&log, "first", [&] { a->removeAuditor(&second); });
  Doing third(&log, "third");
  a->addAuditor(&first);
  a->addAuditor(&second);
  a->addAuditor(&third);
  press(a);
  EXPECT_EQ(log, (Log{"first", "third"}));
}

TEST_F(AuditorsTest, anAuditorDeletedBeforeItsTurnDoesNotRun)
{
  auto* second = new Doing(&log, "second");
  Doing first(&log, "first", [&second] {
    delete second;
    second = nullptr;
  });
  Doing third(&log, "third");
  a->addAuditor(&first);
  a->addAuditor(second);
  a->addAuditor(&third);
  press(a);
  EXPECT_EQ(log, (Log{"first", "third"}));
  EXPECT_EQ(a->getAuditorListLength(), 2);
}

TEST_F(AuditorsTest, anAuditorAddedOnTheWayRunsFromTheNextActionOn)
{
  Doing late(&log, "late");
  Doing first(&log, "first", [&] { a->addAuditor(&late); });
  a->addAuditor(&first);
  press(a);
  EXPECT_EQ(log, Log{"first"});
  press(a);
  EXPECT_EQ(log, (Log{"first", "first", "late"}));
}

TEST_F(AuditorsTest, oneThatEmptiesTheListIsTheLastAndTheDialogStillHearsNothing)
{
  Doing second(&log, "second");
  Doing first(&log, "first", [&] {
    a->removeAuditor(&first);
    a->removeAuditor(&second);
  });
  DialogDoing above(&log, "dialog");
  a->addAuditor(&first);
  a->addAuditor(&second);
  dialog->addAuditor(&above);
  press(a);
  EXPECT_EQ(log, Log{"first"});
}

TEST_F(AuditorsTest, dialogAuditorsMayChangeTheListToo)
{
  DialogDoing* self = nullptr;
  DialogDoing second(&log, "2");
  self = new DialogDoing(&log, "1", [&self, this] {
    dialog->removeAuditor(self);
    delete self;
  });
  dialog->addAuditor(self);
  dialog->addAuditor(&second);
  press(a);
  press(a);
  EXPECT_EQ(log, (Log{"1 a", "2 a", "2 a"}));
}

TEST_F(AuditorsTest, anAuditorMayReleaseTheDialog)
{
  Doing own(&log, "own", [this] { dialog->close(); });
  Doing after(&log, "after");
  a->addAuditor(&own);
  a->addAuditor(&after);
  press(a);
  EXPECT_EQ(log, (Log{"own", "after"}));
  settle();
  EXPECT_EQ(SoQuillform::getInstanceCount(), 0);
}

TEST_F(AuditorsTest, anAuditorMayFinishTheLibrary)
{
  Doing own(&log, "own", [] { SoQuillform::finish(); });
  a->addAuditor(&own);
  press(a);
  EXPECT_EQ(log, Log{"own"});
  settle();
  EXPECT_EQ(SoQuillform::getInstanceCount(), 0);
}

TEST_F(AuditorsTest, anAuditorMayRemoveTheElementThatCalledIt)
{
  DialogDoing above(&log, "dialog", [this] { dialog->removeChild(0); });
  dialog->addAuditor(&above);
  press(a);
  EXPECT_EQ(log, Log{"dialog a"});
  EXPECT_EQ(dialog->getNumChildren(), 2);
  EXPECT_EQ(dialog->getChild(0), b);
  press(b);
  EXPECT_EQ(log, (Log{"dialog a", "dialog b"}));
}

TEST_F(AuditorsTest, inTheSceneAnAuditorMayRemoveEverything)
{
  Scene scene;
  scene.open(dialog);
  Doing own(&log, "own", [this] { dialog->removeAllChildren(); });
  Doing after(&log, "after");
  a->addAuditor(&own);
  a->addAuditor(&after);
  scene.click(a);
  EXPECT_EQ(log, (Log{"own", "after"}));
  EXPECT_EQ(dialog->getNumChildren(), 0);
}

TEST_F(AuditorsTest, anAuditorOfTheWrongKindIsPassedOverWithAMessage)
{
  CheckBoxDoing wrong(&log);
  Doing right(&log, "right");
  DialogDoing above(&log, "dialog");
  static_cast<SoQuillform*>(a)->addAuditor(static_cast<SoAuditor*>(&wrong));
  a->addAuditor(&right);
  dialog->addAuditor(&above);
  Messages messages;
  press(a);
  EXPECT_EQ(log, Log{"right"});
  EXPECT_EQ(messages.count("wrong kind"), 1);
  EXPECT_EQ(messages.count("DialogPushButton (auditorID \"a\")"), 1);
}

TEST_F(AuditorsTest, aDialogPassesOverAnAuditorOfTheWrongKind)
{
  CheckBoxDoing wrong(&log);
  DialogDoing above(&log, "dialog");
  static_cast<SoQuillform*>(dialog)->addAuditor(static_cast<SoAuditor*>(&wrong));
  dialog->addAuditor(&above);
  Messages messages;
  press(a);
  EXPECT_EQ(log, Log{"dialog a"});
  EXPECT_EQ(messages.count("wrong kind"), 1);
}

TEST_F(AuditorsTest, theDefaultAuditorIsNotInTheList)
{
  EXPECT_EQ(dialog->getAuditorListLength(), 0);
  press(a);
  EXPECT_EQ(dialog->getAuditorListLength(), 0);
}

TEST_F(AuditorsTest, elementsThatAreNotReportedReachNobody)
{
  DialogDoing above(&log, "dialog");
  dialog->addAuditor(&above);
  dialog->applyAuditor(dialog->getChild(2));
  EXPECT_EQ(log, Log{});
}

TEST_F(AuditorsTest, applyAuditorsReportsEveryControlOnceInOrder)
{
  Doing own(&log, "own");
  a->addAuditor(&own);
  DialogDoing above(&log, "dialog");
  dialog->addAuditor(&above);
  dialog->applyAuditors();
  EXPECT_EQ(log, (Log{"dialog a", "dialog b"}));
}

TEST_F(AuditorsTest, applyAuditorsReachesControlsBehindOneThatWasRemoved)
{
  bool removed = false;
  DialogDoing above(&log, "dialog", [&] {
    if (!removed) {
      removed = true;
      dialog->removeChild(0);
    }
  });
  dialog->addAuditor(&above);
  dialog->applyAuditors();
  EXPECT_EQ(log, (Log{"dialog a", "dialog b"}));
}

TEST_F(AuditorsTest, searchingFindsTheFirstOfTwo)
{
  auto* twin = new SoDialogPushButton;
  twin->auditorID = "b";
  dialog->addChild(twin);
  EXPECT_EQ(dialog->searchForAuditorId("b"), b);
  dialog->removeChild(1);
  EXPECT_EQ(dialog->searchForAuditorId("b"), twin);
}

TEST_F(AuditorsTest, searchingFindsNothingUnknownAndNotTheDialog)
{
  dialog->auditorID = "dialog";
  EXPECT_EQ(dialog->searchForAuditorId("dialog"), nullptr);
  EXPECT_EQ(dialog->searchForAuditorId("zzz"), nullptr);
  EXPECT_EQ(dialog->searchForAuditorId("A"), nullptr);
}

TEST_F(AuditorsTest, anEmptyIdentifierFindsTheFirstElementWithoutOne)
{
  EXPECT_EQ(dialog->searchForAuditorId(""), nullptr);
  b->auditorID = "";
  EXPECT_EQ(dialog->searchForAuditorId(""), b);
}

TEST_F(AuditorsTest, searchingGoesDepthFirstIntoGroups)
{
  if (SoType::fromName("RowDialog") == SoType::badType()) {
    GTEST_SKIP() << "no group class is registered";
  }
  SoTopLevelDialog* nested =
    load("TopLevelDialog { RowDialog { auditorID \"g\" DialogPushButton { auditorID \"x\" label \"inner\" } } "
         "DialogPushButton { auditorID \"x\" label \"outer\" } DialogPushButton { auditorID \"g\" } }");
  ASSERT_NE(nested, nullptr);
  EXPECT_EQ(nested->searchForAuditorId("x")->label.getValue(), SbString("inner"));
  EXPECT_EQ(nested->searchForAuditorId("g"), nested->getChild(0));
}

// The trace of what nobody handles

class AuditorTraceTest : public AuditorsTest {
protected:
  ~AuditorTraceTest() override
  {
    SoPreferences::unset("DEBUG_QUILLFORM_AUDITORS");
  }
};

TEST_F(AuditorTraceTest, isSilentUnlessWanted)
{
  Messages messages;
  press(a);
  EXPECT_TRUE(messages.all().empty());
}

TEST_F(AuditorTraceTest, printsTheHeaderAndTwoFieldsOfAPushButton)
{
  SoPreferences::setString("DEBUG_QUILLFORM_AUDITORS", "1");
  Messages messages;
  press(a);
  ASSERT_EQ(messages.all().size(), 1U);
  EXPECT_EQ(messages.count("SoDialogAuditor::dialogPushButton(): "
                           "WARNING ! The DialogAuditor does not define the SoDialogPushButton component :"
                           "\n\t\t -> label = \"A\"\n\t\t -> buttonLabel = \"Press\""),
            1);
}

TEST_F(AuditorTraceTest, endsWithItsLastField)
{
  SoPreferences::setString("DEBUG_QUILLFORM_AUDITORS", "1");
  Messages messages;
  press(a);
  ASSERT_EQ(messages.all().size(), 1U);
  const std::string& text = messages.all()[0];
  EXPECT_EQ(text.substr(text.size() - 7), "\"Press\"");
}

TEST_F(AuditorTraceTest, isWantedThroughTheEnvironmentToo)
{
  setenv("DEBUG_QUILLFORM_AUDITORS", "", 1);
  Messages messages;
  press(a);
  unsetenv("DEBUG_QUILLFORM_AUDITORS");
  EXPECT_EQ(messages.count("does not define the SoDialogPushButton"), 1);
}

TEST_F(AuditorTraceTest, isNoErrorButInformation)
{
  SoPreferences::setString("DEBUG_QUILLFORM_AUDITORS", "1");
  Messages messages;
  press(a);
  EXPECT_EQ(messages.count("info in SoDialogAuditor::dialogPushButton"), 1);
}

TEST_F(AuditorTraceTest, printsPercentSignsAsTheyAre)
{
  SoPreferences::setString("DEBUG_QUILLFORM_AUDITORS", "1");
  a->buttonLabel = "100 %s%n";
  Messages messages;
  press(a);
  EXPECT_EQ(messages.count("buttonLabel = \"100 %s%n\""), 1);
}

TEST_F(AuditorTraceTest, isSilentForAnAuditorThatHandlesTheControl)
{
  SoPreferences::setString("DEBUG_QUILLFORM_AUDITORS", "1");
  DialogDoing above(&log, "dialog");
  dialog->addAuditor(&above);
  Messages messages;
  press(a);
  EXPECT_TRUE(messages.all().empty());
}

TEST_F(AuditorTraceTest, comesFromAnApplicationsAuditorThatDoesNotOverrideTheOperation)
{
  SoPreferences::setString("DEBUG_QUILLFORM_AUDITORS", "1");
  SoDialogAuditor deaf;
  dialog->addAuditor(&deaf);
  Messages messages;
  press(a);
  EXPECT_EQ(messages.count("does not define the SoDialogPushButton"), 1);
}

TEST_F(AuditorTraceTest, tabDialogsAreNeverTraced)
{
  SoPreferences::setString("DEBUG_QUILLFORM_AUDITORS", "1");
  SoDialogAuditor auditor;
  Messages messages;
  auditor.tabDialog(nullptr);
  EXPECT_TRUE(messages.all().empty());
}
