// Opens a dialog file, waits until one of its buttons is pressed, and prints which one.
#include <Inventor/Qt/SoQt.h>
#include <QCoreApplication>
#include <Quillform/Quillform.h>
#include <iostream>

class Answer : public SoDialogAuditor {
  void dialogPushButton(SoDialogPushButton* button) override
  {
    std::cout << "pressed " << button->buttonLabel.getValue().getString() << std::endl;
    SoQt::exitMainLoop();
  }
};

int main(int argc, char** argv)
{
  SoQt::init(argv[0]);
  SoQuillform::init();
  const QString file = argc > 1 ? QString(argv[1]) : QCoreApplication::applicationDirPath() + "/first.iv";
  auto* dialog = dynamic_cast<SoTopLevelDialog*>(SoQuillform::loadFromFile(qPrintable(file), ""));
  if (!dialog) {
    return 1;
  }
  Answer answer;
  dialog->addAuditor(&answer);
  dialog->buildDialog(nullptr, FALSE);
  dialog->show();
  SoQt::mainLoop();
  SoQuillform::finish();
}
