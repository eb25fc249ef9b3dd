#include <Quillform/menus/SoMenuQItem.h>

#include <QEvent>
#include <QKeySequence>
#include <Quillform/menus/SoMenuItem.h>

SoMenuQItem::SoMenuQItem(QMenu* menu, int identifier, SoMenuItem* owner, const char* name)
    : m_owner(owner), m_action(new QAction(this)), m_identifier(identifier)
{
  setObjectName(QString("ZEP") + name);
  moveTo(menu);
  m_action->installEventFilter(this);
  connect(m_action, &QAction::triggered, this, &SoMenuQItem::menuEvent);
}

void SoMenuQItem::moveTo(QMenu* menu)
{
  takeOut();
  m_menu = menu;
  if (m_menu) {
    m_menu->addAction(m_action);
  }
}

void SoMenuQItem::takeOut()
{
  if (m_menu) {
    m_menu->removeAction(m_action);
  }
  m_menu = nullptr;
}

void SoMenuQItem::end(SoMenuQItem* relay)
{
  if (relay) {
    relay->takeOut();
    relay->m_owner = nullptr;
    relay->deleteLater();
  }
}

QMenu* SoMenuQItem::getMenu() const
{
  return m_menu;
}

QAction* SoMenuQItem::getAction() const
{
  return m_action;
}

int SoMenuQItem::getIdentifier() const
{
  return m_identifier;
}

void SoMenuQItem::setText(const char* text)
{
  m_action->setText(QString::fromLatin1(text));
}

void SoMenuQItem::setAccel(const char* accel)
{
  m_action->setShortcut(SoMenuItem::toKeySequence(accel));
}

void SoMenuQItem::setEnable(bool enabled)
{
  m_action->setEnabled(enabled);
}

bool SoMenuQItem::isReachable() const
{
  for (const QMenu* around = m_menu; around; around = qobject_cast<const QMenu*>(around->parentWidget())) {
    if (!around->isEnabled()) {
      return false;
    }
  }
  return true;
}

bool SoMenuQItem::eventFilter(QObject* watched, QEvent* event)
{
  // Qt lets shortcuts of disabled menus work.
  return event->type() == QEvent::Shortcut && !isReachable() ? true : QWidget::eventFilter(watched, event);
}

int SoMenuQItem::getEventId() const
{
  return 0;
}

void SoMenuQItem::menuEvent()
{
  if (SoMenuItem* owner = m_owner) {
    owner->ref(); // whatever its auditors do, it must come back here
    owner->menuEvent(nullptr, getEventId());
    owner->unref();
  }
}
