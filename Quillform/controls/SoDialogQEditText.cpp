#include <Quillform/controls/SoDialogQEditText.h>

#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QTextEdit>
#include <Quillform/controls/SoDialogEditText.h>
#include <limits>

SoDialogQEditText::SoDialogQEditText(QWidget* parent, SoDialogEditText* owner, bool multiLine)
    : SoDialogQFrame(parent, owner, "SoDialogQEditText"), m_multiLine(multiLine), m_parent(parent)
{
  if (m_multiLine) {
    m_textEdit = new QTextEdit(this);
    m_textEdit->setObjectName(nameOf("MultiEditWidget"));
    m_textEdit->setAcceptRichText(false); // what is pasted is text like any other
    m_textEdit->setTabChangesFocus(true); // or the keyboard never leaves the editor
    connect(m_textEdit, &QTextEdit::textChanged, this, &SoDialogQEditText::eventNotifyMultiLine);
    m_textEdit->installEventFilter(this);
  }
  else {
    m_lineEdit = new QLineEdit(this);
    m_lineEdit->setObjectName(nameOf("LineEditWidget"));
    m_lineEdit->setMaxLength(std::numeric_limits<int>::max()); // no text of a field is cut
    connect(m_lineEdit, &QLineEdit::textChanged, this, &SoDialogQEditText::eventNotifyLine);
    connect(m_lineEdit, &QLineEdit::returnPressed, this, &SoDialogQEditText::eventEnterPressed);
  }
  SoQuillform::setWidgetFont(getEditor());
  createLabel(getEditor());
}

QWidget* SoDialogQEditText::getEditor() const
{
  return m_multiLine ? static_cast<QWidget*>(m_textEdit) : m_lineEdit;
}

QWidget* SoDialogQEditText::getParentWidget() const
{
  return m_parent;
}

QString SoDialogQEditText::getText() const
{
  return QString::fromLatin1((m_multiLine ? m_textEdit->toPlainText() : m_lineEdit->text()).toLatin1());
}

void SoDialogQEditText::setText(const QString& text)
{
  if (text == getText()) {
    return; // the user's cursor stays where it is
  }
  const QScopedValueRollback<bool> showing(m_showing, true);
  if (m_multiLine) {
    m_textEdit->setPlainText(text);
  }
  else {
    m_lineEdit->setText(text);
  }
}

void SoDialogQEditText::setReadOnly(bool readOnly)
{
  if (m_multiLine) {
    m_textEdit->setReadOnly(readOnly);
  }
  else {
    m_lineEdit->setReadOnly(readOnly);
  }
}

void SoDialogQEditText::setWrapLine(bool wrap)
{
  if (m_multiLine) {
    m_textEdit->setWordWrapMode(wrap ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::NoWrap);
  }
}

void SoDialogQEditText::setEditorFocus()
{
  getEditor()->setFocus();
}

bool SoDialogQEditText::hasEditorFocus() const
{
  return getEditor()->hasFocus();
}

void SoDialogQEditText::editTextWidgetPos(int x, int y, int w, int h)
{
  place(getEditor(), x, y, w, h);
}

bool SoDialogQEditText::eventFilter(QObject* watched, QEvent* event)
{
  if (watched != m_textEdit) {
    return SoDialogQFrame::eventFilter(watched, event);
  }
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
      eventEnterPressed();
    }
  }
  return false; // the line break is still inserted
}

void SoDialogQEditText::eventNotifyLine(const QString& /*text*/)
{
  reportChange();
}

void SoDialogQEditText::eventNotifyMultiLine()
{
  reportChange();
}

void SoDialogQEditText::reportChange()
{
  if (!m_showing) {
    notifyOwner(TEXT_CHANGED, 0);
  }
}

void SoDialogQEditText::eventEnterPressed()
{
  notifyOwner(ENTER_PRESSED, 0);
}
