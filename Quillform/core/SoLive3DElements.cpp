#include <Quillform/core/SoLive3DElements.h>

#include <Quillform/core/SoQuillform.h>
#include <unordered_set>

namespace {

/// Never destroyed: the application may release elements later than anything else.
std::unordered_set<SoQuillform*>& elements()
{
  static auto* const live = new std::unordered_set<SoQuillform*>;
  return *live;
}

} // namespace

void SoLive3DElements::add(SoQuillform* element)
{
  elements().insert(element);
}

void SoLive3DElements::remove(SoQuillform* element)
{
  elements().erase(element);
}

void SoLive3DElements::updateAfterSkinChange()
{
  for (SoQuillform* element : elements()) {
    if (element->isBuilt3D() != 0) { // one that is being built reads the new skin anyway
      element->update3DAfterSkinChange();
    }
  }
}
