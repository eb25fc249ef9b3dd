#ifndef QUILLFORM_TESTS_SESSION_H
#define QUILLFORM_TESTS_SESSION_H

#include <Inventor/events/SoButtonEvent.h>
#include <QPointer>
#include <QTimer>
#include <Quillform/Quillform.h>
#include <memory>
#include <property/Agreement.h>
#include <property/Random.h>
#include <string>
#include <support/Messages.h>
#include <support/Scene.h>
#include <vector>

class SoEvent;

/// A random dialog whose fields, contents and window are changed at random, from code and by a user, while what it
/// shows is compared with what its fields say.
class Session : public SoDialogAuditor {
public:
  enum Form { WINDOW, SCENE, BOTH };

  Session(unsigned seed, Form form);
  ~Session() override;
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  /// Makes so many steps, or fewer when one of them fails; the failure tells how to come to it again.
  void run(int steps);

  /// What happened last, for a failure or a crash.
  std::string report() const;

  void dialogPushButton(SoDialogPushButton* cpt) override;
  void dialogCheckBox(SoDialogCheckBox* cpt) override;
  void dialogComboBox(SoDialogComboBox* cpt) override;
  void dialogEditText(SoDialogEditText* cpt) override;
  void dialogIntegerSlider(SoDialogIntegerSlider* cpt) override;
  void dialogRadioButtons(SoDialogRadioButtons* cpt) override;
  void dialogRealSlider(SoDialogRealSlider* cpt) override;
  void menuPushButton(SoMenuPushButton* cpt) override;
  void menuCheckBox(SoMenuCheckBox* cpt) override;
  void menuFileSelection(SoMenuFileSelection* cpt) override;
  void menuRadioButtons(SoMenuRadioButtons* cpt) override;

private:
  void begin(const std::string& operation);
  void hear();
  void build();
  void step();
  void check();

  // From code
  void changeSomething();
  void changeField();
  void changeContents();
  void switchSkin();
  void hideAndShow();
  void rebuild();
  void compareWithFresh();
  void rememberSizes(SoQuillform* element);

  // By the user
  void useWindow();
  void resizeWindow();
  void clickButton();
  void press(QWidget* widget, const QPoint& at);
  void type(QWidget* widget);
  void closePopups();
  void useScene();
  SbVec2s placeInScene();
  void sendToScene(SoEvent& event, const SbVec2s& at);
  void typeInScene();

  bool hasWindow() const;
  bool hasScene() const;
  SoQuillform* anyElement();
  void fail(const Agreement::Faults& faults);

  unsigned m_seed;
  Form m_form;
  Random m_random;
  Messages m_messages; // of refused elements and odd formats, which are no faults
  Scene m_scene;
  SoTopLevelDialog* m_dialog;
  Agreement::AuthoredSizes m_authored;
  QTimer m_watchdog; // closes what waits for the user
  int m_step = 0;
  int m_heard = 0;
  bool m_isUserActing = false;
  bool m_isAuditorActing = false; // changes something from within a callback
  bool m_spacingFollows = false;  // the layout's spacing follows rowSpacing only when that changes after the build
  std::string m_before;           // the dialog before the step
  std::vector<std::string> m_operations;
};

#endif // QUILLFORM_TESTS_SESSION_H
