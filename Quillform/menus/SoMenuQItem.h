#ifndef QUILLFORM_SOMENUQITEM_H
#define QUILLFORM_SOMENUQITEM_H

#include <QAction>
#include <QMenu>
#include <QPointer>
#include <QWidget>
#include <Quillform/Export.h>

class QKeySequence;
class SoMenuItem;

/// Base of the relays between a menu entry's node and its Qt action. It owns the action, which stands in a menu, and
/// tells the node when the user triggers it.
class QUILLFORM_API SoMenuQItem : public QWidget {
  Q_OBJECT

public:
  /// Appends an action to \a menu.
  SoMenuQItem(QMenu* menu, int identifier, SoMenuItem* owner, const char* name);

  /// Takes the action out of its menu and appends it to \a menu.
  void moveTo(QMenu* menu);

  /// Takes the action out of its menu; its shortcut is dead until it stands in one again.
  void takeOut();

  /// Ends the relay: its action leaves the menu at once, the relay when the event that it may be in is over. Does
  /// nothing to one that Qt has destroyed.
  static void end(SoMenuQItem* relay);

  QMenu* getMenu() const; ///< nullptr while the action stands in none
  QAction* getAction() const;

  void setText(const char* text);   ///< Latin-1
  void setAccel(const char* accel); ///< Latin-1, such as "Shift+Ctrl+s"
  void setEnable(bool enabled);

public slots:
  /// The user has triggered the action.
  void menuEvent();

protected:
  /// What the node is told of the action that was triggered.
  virtual int getEventId() const;
  int getIdentifier() const;

  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  bool isReachable() const; // no menu around the action is disabled

  SoMenuItem* m_owner;    // nullptr once the relay has ended
  QPointer<QMenu> m_menu; // not owned
  QAction* m_action;      // a child of the relay
  int m_identifier;
};

#endif // QUILLFORM_SOMENUQITEM_H
