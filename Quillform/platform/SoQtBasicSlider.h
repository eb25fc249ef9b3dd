#ifndef QUILLFORM_SOQTBASICSLIDER_H
#define QUILLFORM_SOQTBASICSLIDER_H

#include <QWidget>
#include <Quillform/Export.h>
#include <vector>

/// A horizontal slider without a scale: a bar with a piece that the user moves along it, from 0 at its left end to
/// 1 at its right end.
///
/// It follows the mouse, the wheel, and the keys Left, Right, Up, Down, Page Up, Page Down, Home and End. A press
/// beside the piece brings it there. While the user moves it the value-changed callbacks run; when he has done,
/// at the end of a drag, of a turn of the wheel or of a key press, the finish callbacks run.
class QUILLFORM_API SoQtBasicSlider : public QWidget {
  Q_OBJECT

public:
  /// What is called with the data it was added with, and the new position.
  typedef void Callback(void* data, float value);

  static constexpr int thumbWidth = 11; ///< of the piece that moves, in pixels

  explicit SoQtBasicSlider(QWidget* parent = nullptr); ///< makes a bar with the piece at 0

  /// Moves the piece. Runs no callback. What lies outside of 0 to 1 becomes the nearest end, no number becomes 0.
  void setValue(float value);
  float getValue() const; ///< the position of the piece

  /// How far an arrow key or a notch of the wheel moves the piece, and how far a page key does.
  void setSteps(float single, float page);
  float getSingleStep() const; ///< see setSteps()

  /// A pair that is registered already is not registered again; removing one that is not does nothing. Callbacks
  /// may change the lists and delete the slider.
  void addValueChangedCallback(Callback* callback, void* data = nullptr);
  void removeValueChangedCallback(Callback* callback, void* data = nullptr); ///< see addValueChangedCallback()
  void addFinishCallback(Callback* callback, void* data = nullptr);          ///< likewise, for the end of a motion
  void removeFinishCallback(Callback* callback, void* data = nullptr);       ///< see addFinishCallback()

  /// What the positions stand for, to programs that operate the slider in the user's place, such as screen readers.
  struct Scale {
    double value;   ///< of the present position
    double minimum; ///< at the left end
    double maximum; ///< at the right end
    double step;    ///< of an arrow key
  };

  /// In this class the positions stand for themselves.
  virtual Scale getScale() const;

  /// Moves the piece as the user does, to the end of the motion.
  void moveByUser(float value);

  QSize sizeHint() const override; ///< what a layout asks for

protected:
  /// Draws the bar below the piece, inside \a rect.
  virtual void drawBar(QPainter& painter, const QRect& rect);

  void paintEvent(QPaintEvent* event) override;        ///< draws
  void mousePressEvent(QMouseEvent* event) override;   ///< follows the mouse
  void mouseMoveEvent(QMouseEvent* event) override;    ///< follows the mouse
  void mouseReleaseEvent(QMouseEvent* event) override; ///< follows the mouse
  void wheelEvent(QWheelEvent* event) override;        ///< follows the wheel
  void keyPressEvent(QKeyEvent* event) override;       ///< follows the keys
  void changeEvent(QEvent* event) override;            ///< ends a drag when the slider is disabled
  void hideEvent(QHideEvent* event) override;          ///< ends a drag

private:
  struct Entry {
    Callback* callback;
    void* data;
    bool operator==(const Entry& other) const
    {
      return callback == other.callback && data == other.data;
    }
  };
  typedef std::vector<Entry> Callbacks;

  static void add(Callbacks& callbacks, const Entry& entry);
  static void remove(Callbacks& callbacks, const Entry& entry);

  bool move(float value);
  void announce();
  bool run(Callbacks SoQtBasicSlider::*callbacks);
  bool follow(float value);
  void followPointer(int x);
  void moveBySteps(float steps);
  QRect getThumbRect() const;

  Callbacks m_valueChanged;
  Callbacks m_finished;
  float m_value = 0.0F;     // from 0 to 1
  double m_announced = 0.0; // the value on the scale that screen readers know
  float m_singleStep = 0.01F;
  float m_pageStep = 0.1F;
  bool m_dragging = false;
  int m_grabOffset = 0; // from the middle of the piece to where the pointer holds it, in pixels
  int m_wheelRest = 0;  // turned so far towards the next notch, in eighths of a degree
};

#endif // QUILLFORM_SOQTBASICSLIDER_H
