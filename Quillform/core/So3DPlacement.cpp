#include <Quillform/core/So3DPlacement.h>

#include <Inventor/nodes/SoGroup.h>
#include <Inventor/nodes/SoTransform.h>
#include <algorithm>

SoTransform* So3DPlacement::insertTransform(SoGroup* group)
{
  auto* transform = new SoTransform;
  group->insertChild(transform, 0);
  return transform;
}

void So3DPlacement::place(SoTransform* transform, const SbVec2f& centre, const SbVec2f& size, float z)
{
  if (!transform) {
    return; // the part is not made yet
  }
  // A scale of nothing cannot be undone, which picking needs.
  constexpr float smallest = 0.001F;
  transform->translation.setValue(centre[0], centre[1], z);
  transform->scaleFactor.setValue(std::max(size[0], smallest), std::max(size[1], smallest), 1.0F);
}

void So3DPlacement::place(SoTransform* transform, const QRect& rect, const SbVec2i32& frameSize, float z)
{
  const SbVec2f size(static_cast<float>(rect.width()), static_cast<float>(rect.height()));
  const SbVec2f corner(static_cast<float>(rect.x()) - static_cast<float>(frameSize[0]) * 0.5F,
                       static_cast<float>(frameSize[1]) * 0.5F - static_cast<float>(rect.y()));
  place(transform, corner + SbVec2f(size[0], -size[1]) * 0.5F, size, z);
}
