#ifndef QUILLFORM_SODIALOGQFRAME_H
#define QUILLFORM_SODIALOGQFRAME_H

#include <QFrame>
#include <QString>
#include <Quillform/Export.h>

class QLabel;
class SoDialogComponent;

/// Base of the relays between a control's node and its Qt widgets.
///
/// A relay is the frame that stands in the dialog's layout. It holds the control's own widgets and, for most
/// controls, a label beside them, places them itself when it is resized, and reports what the user does to
/// the node. It belongs to Qt, and knows when its node has died before it.
class QUILLFORM_API SoDialogQFrame : public QFrame {
  Q_OBJECT

public:
  /// \a name is the relay's class name in object names, such as "SoDialogQPushButton".
  SoDialogQFrame(QWidget* parent, SoDialogComponent* owner, const QString& name);

  /// Tells the relay that its node is gone.
  void forgetOwner();

  /// The size that the layout model has computed for the component.
  void setComputedSize(const QSize& size);
  QSize sizeHint() const override; ///< what a layout asks for

  /// Shows the label's text and names the control after it, also when the label is hidden.
  void setLabel(const QString& text);
  virtual void setAlignment(Qt::Alignment alignment);      ///< of the label
  void setLabelVisibility(bool visible);                   ///< shows or hides the label
  virtual void labelWidgetPos(int x, int y, int w, int h); ///< places the label
  QLabel* getLabel() const;                                ///< the label; nullptr without one

  /// Tells the relay that it shows everything that it is to show at first. The control gets its name then, once.
  void setComplete();

  static Qt::Alignment toQt(int labelAlignment); ///< of a SoQuillform::LabelAlignment

protected:
  void resizeEvent(QResizeEvent* event) override; ///< places what stands inside
  void paintEvent(QPaintEvent* event) override;   ///< draws

  /// The node; nullptr once it is gone.
  SoDialogComponent* getOwner() const;

  /// Reports a user action to the node, which stays alive until it has been handled.
  void notifyOwner(unsigned int event, unsigned long data);

  /// Makes the label, empty, with its object name and the dialog font. It stands for \a control: its mnemonic letter
  /// brings the keyboard there.
  void createLabel(QWidget* control = nullptr);

  /// Makes \a control the widget that is named after the label.
  void setControl(QWidget* control);

  /// Names the control for screen readers: after the label, a button also after its own text, and one that has neither
  /// after its identifier.
  void nameControl();

  /// Names what stands beside the control; \a name is the control's.
  virtual void nameOthers(const QString& name);

  /// The object name of a child widget of this relay, after its role.
  QString nameOf(const char* role) const;

  /// Resizes, then moves a child widget.
  static void place(QWidget* widget, int x, int y, int w, int h);

  /// Shows or hides a child widget that nobody else shows or hides.
  static void setShown(QWidget* widget, bool shown);

private:
  SoDialogComponent* m_owner;   // nullptr once the node is gone
  QString m_name;               // class name in object names
  QLabel* m_label = nullptr;    // made by createLabel
  QWidget* m_control = nullptr; // see setControl
  QString m_labelText;          // without mnemonic marks
  QSize m_computedSize;         // see setComputedSize
  bool m_isComplete = false;    // see setComplete
};

#endif // QUILLFORM_SODIALOGQFRAME_H
