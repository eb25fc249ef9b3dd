#ifndef QUILLFORM_SODIALOGQSLIDER_H
#define QUILLFORM_SODIALOGQSLIDER_H

#include <Inventor/SbString.h>
#include <Quillform/core/SoDialogQFrame.h>
#include <Quillform/platform/SoQtBasicSlider.h>

class QCheckBox;
class QLineEdit;
class SoDialogCustomSlider;
class SoDialogSlider;

/// The relay of a slider: a label, the toggle of continuous reporting, the bar, and the value as text.
class SoDialogQSlider : public SoDialogQFrame {
  Q_OBJECT

public:
  SoDialogQSlider(QWidget* parent, SoDialogSlider* owner);

  SoDialogCustomSlider* getSlider() const;

  /// Whether the node hears of the end of each motion of the bar. It always hears of the motion itself.
  void setFinishReported(bool reported);

  /// The toggle; showing a state is not reported.
  bool isChecked() const;
  void setChecked(bool checked);

  /// The value as text; showing one is not reported.
  void setText(const QString& text);
  SbString getText() const;

  void setToggleVisibility(bool visible);
  void setEditVisibility(bool visible);

  /// What the positions of the bar stand for.
  SoQtBasicSlider::Scale getScale() const;

  void toggleWidgetPos(int x, int y, int w, int h);
  void sliderWidgetPos(int x, int y, int w, int h);
  void editWidgetPos(int x, int y, int w, int h);

public slots:
  /// The user has changed the toggle.
  void eventNotify(int state);

  /// The user has pressed Return in the value.
  void eventNotifyPressed();

  /// The user has left the value or pressed Return in it.
  void eventNotifyEdited();

protected:
  void nameOthers(const QString& name) override;

private:
  static void valueChangedCallback(void* data, float position);
  static void finishCallback(void* data, float position);
  SoDialogSlider* getSliderNode() const;

  // In the order on screen, which the keyboard follows.
  QCheckBox* m_toggle;
  SoDialogCustomSlider* m_bar;
  QLineEdit* m_edit;
};

#endif // QUILLFORM_SODIALOGQSLIDER_H
