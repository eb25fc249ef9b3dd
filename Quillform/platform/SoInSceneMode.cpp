#include <Quillform/platform/SoInSceneMode.h>

namespace {
SbBool s_enabled = FALSE;
}

void SoInSceneMode::setEnabled(SbBool enabled)
{
  s_enabled = enabled;
}

SbBool SoInSceneMode::isEnabled()
{
  return s_enabled;
}
