#include <Quillform/core/SoRebuildScope.h>

namespace {
int s_depth = 0;
}

SoRebuildScope::SoRebuildScope()
{
  ++s_depth;
}

SoRebuildScope::~SoRebuildScope()
{
  --s_depth;
}

bool SoRebuildScope::isActive()
{
  return s_depth > 0;
}
