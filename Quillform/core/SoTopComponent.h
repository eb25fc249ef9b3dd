#ifndef QUILLFORM_SOTOPCOMPONENT_H
#define QUILLFORM_SOTOPCOMPONENT_H

#include <Quillform/core/SoQuillform.h>

/// Base of everything that takes a place in a top-level dialog. It adds no fields and no catalog parts.
class QUILLFORM_API SoTopComponent : public SoQuillform {
  typedef SoQuillform inherited;
  SO_QUILLFORM_HEADER(SoTopComponent);

public:
  SoTopComponent();

  void buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget) override;
  void destroyWidget() override;
  void updateFromSensor(SoSensor* sensor) override;

  /// The preferred size and its bounds, in pixels. Leaves its arguments alone in this class.
  virtual void getSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max);

  /// Puts what the author set back into the sizing fields, where the last layout has left its results.
  virtual void restoreAuthoredSizes();

  /// Makes the next layout start from what the author set. The same as restoreAuthoredSizes(), but the fields keep the
  /// results of the last layout until there are new ones. Containers call it before they measure their children.
  virtual void startFromAuthoredSizes();

  /// Gives the first translation below `geomSwitch`, if it is named "parentPositionTranslation", the value of
  /// \a translation, and inserts \a translation there otherwise.
  void addTranslation(SoTranslation* translation);

protected:
  explicit SoTopComponent(const PartsLater& later); ///< see PartsLater
  ~SoTopComponent() override;
};

#endif // QUILLFORM_SOTOPCOMPONENT_H
