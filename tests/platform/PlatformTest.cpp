#include <Inventor/SoDB.h>
#include <Inventor/nodekits/SoBaseKit.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Quillform/platform/SoInSceneMode.h>
#include <Quillform/platform/SoSceneGraphLayers.h>
#include <Quillform/platform/SoTypedObject.h>
#include <gtest/gtest.h>

namespace {

class Fruit : public SoTypedObject {
  SO_TYPED_OBJECT_HEADER(Fruit);
};

class Apple : public Fruit {
  SO_TYPED_OBJECT_HEADER(Apple);
};

SO_TYPED_OBJECT_SOURCE(Fruit, "Fruit", SoType::badType())
SO_TYPED_OBJECT_SOURCE(Apple, "Apple", Fruit::getClassTypeId())

} // namespace

TEST(PlatformTest, theInSceneModeIsOffAtStart)
{
  EXPECT_FALSE(SoInSceneMode::isEnabled());
  SoInSceneMode::setEnabled(TRUE);
  EXPECT_TRUE(SoInSceneMode::isEnabled());
  SoInSceneMode::setEnabled(FALSE);
  EXPECT_FALSE(SoInSceneMode::isEnabled());
}

TEST(PlatformTest, startsAndFinishesAreCounted)
{
  EXPECT_EQ(SoSceneGraphLayers::getCount(), 0);
  SoSceneGraphLayers::start();
  SoSceneGraphLayers::start();
  EXPECT_EQ(SoSceneGraphLayers::getCount(), 2);
  SoSceneGraphLayers::finish();
  EXPECT_EQ(SoSceneGraphLayers::getCount(), 1);
  SoSceneGraphLayers::finish();
  SoSceneGraphLayers::finish();
  EXPECT_EQ(SoSceneGraphLayers::getCount(), 0);
}

TEST(PlatformTest, theFirstStartReadiesDatabaseAndNodeKits)
{
  SoSceneGraphLayers::start();
  EXPECT_TRUE(SoDB::isInitialized());
  EXPECT_NE(SoBaseKit::getClassTypeId(), SoType::badType());
  SoSceneGraphLayers::finish();
}

TEST(PlatformTest, sceneGraphOfTheApplicationOutlivesTheLastFinish)
{
  SoSceneGraphLayers::start();
  auto* root = new SoSeparator;
  root->ref();
  SoSceneGraphLayers::finish();
  EXPECT_TRUE(SoDB::isInitialized());
  root->addChild(new SoSeparator);
  EXPECT_EQ(root->getNumChildren(), 1);
  root->unref();
}

TEST(PlatformTest, typesOfPlainObjectsAreRegisteredAndRemoved)
{
  SoSceneGraphLayers::start();
  EXPECT_EQ(Apple::getClassTypeId(), SoType::badType());
  Fruit::initClass();
  Apple::initClass();
  const Apple apple;
  EXPECT_EQ(apple.getTypeId(), Apple::getClassTypeId());
  EXPECT_EQ(SoType::fromName("Apple"), Apple::getClassTypeId());
  EXPECT_EQ(Apple::getClassTypeId().getParent(), Fruit::getClassTypeId());
  EXPECT_FALSE(Apple::getClassTypeId().canCreateInstance());
  EXPECT_TRUE(apple.isOfType(Fruit::getClassTypeId()));
  EXPECT_FALSE(Fruit().isOfType(Apple::getClassTypeId()));
  Apple::exitClass();
  Fruit::exitClass();
  EXPECT_EQ(Apple::getClassTypeId(), SoType::badType());
  EXPECT_EQ(SoType::fromName("Apple"), SoType::badType());
  SoSceneGraphLayers::finish();
}
