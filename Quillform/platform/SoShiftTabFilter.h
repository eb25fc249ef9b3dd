#ifndef QUILLFORM_SOSHIFTTABFILTER_H
#define QUILLFORM_SOSHIFTTABFILTER_H

#include <QObject>

/// Lets Shift+Tab reach the scene. Windows get it as a key of its own, which the viewers do not know and drop; they
/// get it as Tab with Shift instead.
class SoShiftTabFilter : public QObject {
public:
  /// Watches the viewers from now on; calls after the first one do nothing.
  static void install();

  bool eventFilter(QObject* watched, QEvent* event) override; ///< hands Shift+Tab on

private:
  using QObject::QObject;
};

#endif // QUILLFORM_SOSHIFTTABFILTER_H
