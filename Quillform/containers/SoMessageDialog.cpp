#include <Quillform/containers/SoMessageDialog.h>

#include <Inventor/Qt/SoQt.h>
#include <Inventor/errors/SoDebugError.h>
#include <QApplication>
#include <QMessageBox>
#include <QTextDocument>
#include <Quillform/core/SoText.h>
#include <Quillform/platform/SoThreadName.h>

SO_QUILLFORM_SOURCE(SoMessageDialog, "MessageDialog")

namespace {

/// A message box guesses whether its text is markup; a message that looks like it is still shown as it is written.
QString asPlainText(const QString& text)
{
  return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal) : text;
}

} // namespace

SoMessageDialog::SoMessageDialog() : inherited(PartsLater())
{
  SO_QUILLFORM_CONSTRUCTOR(SoMessageDialog);

  SO_QUILLFORM_ADD_FIELD(title, (""));
  SO_QUILLFORM_ADD_FIELD(type, (MD_MESSAGE));
  if (SO_KIT_IS_FIRST_INSTANCE()) {
    SO_NODE_DEFINE_ENUM_VALUE(Type, MD_ERROR);
    SO_NODE_DEFINE_ENUM_VALUE(Type, MD_INFORMATION);
    SO_NODE_DEFINE_ENUM_VALUE(Type, MD_MESSAGE);
    SO_NODE_DEFINE_ENUM_VALUE(Type, MD_QUESTION);
    SO_NODE_DEFINE_ENUM_VALUE(Type, MD_WARNING);
    SO_NODE_DEFINE_ENUM_VALUE(Type, MD_WORKING);
  }
  SO_NODE_SET_SF_ENUM_TYPE(type, Type);
  SO_KIT_INIT_INSTANCE();
}

SoMessageDialog::SoMessageDialog(SbString label_, SbString title_, Type type_) : SoMessageDialog()
{
  label = label_;
  title = title_;
  type = type_;
  SoMessageDialog::show();
}

SoMessageDialog::~SoMessageDialog() = default;

void SoMessageDialog::destroy()
{
  close();
  inherited::destroy();
}

void SoMessageDialog::show()
{
  if (type.getValue() == MD_WORKING) {
    return;
  }
  if (!qobject_cast<QApplication*>(QCoreApplication::instance())) {
    SoDebugError::post("SoMessageDialog::show", "%s",
                       "No message can be shown without an application object. Create a QApplication, or call "
                       "SoQt::init, first.");
    return;
  }
  const QString text = asPlainText(SoText::toQt(convertToCString(label.getValue(), this)));
  const QString caption = SoText::toQt(convertToCString(title.getValue(), this));
  QWidget* parent = SoQt::getTopLevelWidget();
  // What runs while the box is open may release this node, so it is not touched any more.
  switch (type.getValue()) {
  case MD_ERROR:
    QMessageBox::critical(parent, caption, text, QMessageBox::Ok, QMessageBox::NoButton);
    break;
  case MD_INFORMATION:
    QMessageBox::information(parent, caption, text, QMessageBox::Ok, QMessageBox::NoButton);
    break;
  case MD_QUESTION:
    QMessageBox::question(parent, caption, text, QMessageBox::Ok, QMessageBox::NoButton);
    break;
  case MD_WARNING:
    QMessageBox::warning(parent, caption, text, QMessageBox::Ok, QMessageBox::NoButton);
    break;
  default:
    QMessageBox::about(parent, caption, text);
    break;
  }
}

void SoMessageDialog::close() {}

void* SoMessageDialog::runWorkingMessageDialog(void* dialog)
{
  SoThreadName::setCurrent("SoMessageDialog");
  static_cast<SoMessageDialog*>(dialog)->createWorkingMessageDialog();
  return nullptr;
}

void SoMessageDialog::createWorkingMessageDialog() {}
