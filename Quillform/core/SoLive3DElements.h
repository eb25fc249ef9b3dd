#ifndef QUILLFORM_SOLIVE3DELEMENTS_H
#define QUILLFORM_SOLIVE3DELEMENTS_H

class SoQuillform;

/// The elements that have a 3D form, which must be laid out again when the skin changes.
class SoLive3DElements {
public:
  static void add(SoQuillform* element);    ///< adds an element that has a 3D form
  static void remove(SoQuillform* element); ///< takes an element out

  /// Calls update3DAfterSkinChange of every element.
  static void updateAfterSkinChange();
};

#endif // QUILLFORM_SOLIVE3DELEMENTS_H
