#ifndef QUILLFORM_SOSKINSPATH_H
#define QUILLFORM_SOSKINSPATH_H

/// The choice of the skin in force.
class SoSkinsPath {
public:
  /// Selects the skin named by the preference `QUILLFORM_SKIN`, "default" unless set, if none is in force yet.
  static void selectPreferred();
};

#endif // QUILLFORM_SOSKINSPATH_H
