#ifndef QUILLFORM_BENCH_BARESCENE_H
#define QUILLFORM_BENCH_BARESCENE_H

class SoNode;
class SoSeparator;

/// Draws what \a scene draws with nothing but what drawing needs: below one separator, each shape as a box with
/// its material at its place, and each text in its font and colour. Hidden shapes are left out. The result is
/// not referenced.
SoSeparator* makeBareScene(SoNode* scene);

#endif // QUILLFORM_BENCH_BARESCENE_H
