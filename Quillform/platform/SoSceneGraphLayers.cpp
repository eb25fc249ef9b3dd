#include <Quillform/platform/SoSceneGraphLayers.h>

#include <Inventor/SoDB.h>
#include <Inventor/SoInteraction.h>
#include <Inventor/nodekits/SoNodeKit.h>

namespace {
int s_count = 0;
}

void SoSceneGraphLayers::start()
{
  SoDB::init();
  SoNodeKit::init();
  SoInteraction::init();
  ++s_count;
}

void SoSceneGraphLayers::finish()
{
  if (s_count > 0) {
    --s_count;
  }
}

int SoSceneGraphLayers::getCount()
{
  return s_count;
}
