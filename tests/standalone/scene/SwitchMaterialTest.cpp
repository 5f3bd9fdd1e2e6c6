#include "host/osg/SwitchMaterial.h"

#include "support/SceneTest.h"

using ::testing::ElementsAre;

namespace {

class SwitchMaterialTest : public SceneTest {
 protected:
  static void add(const osg::SwitchMaterialPtr& to, const osg::MaterialPtr& material) {
    const osg::EditCP edit(to, osg::MultiMaterialBase::MaterialsFieldMask);
    to->addMaterial(material);
  }

  osg::MaterialPtr red = scene.material("Red");
  osg::MaterialPtr blue = scene.material("Blue");
};

}  // namespace

TEST_F(SwitchMaterialTest, StatesAreTheNamesOfTheSubMaterials) {
  std::vector<std::string> names;
  scene.switchMaterial("Paint", {red, blue}, 0)->getStateNames(names);
  EXPECT_THAT(names, ElementsAre("Red", "Blue"));
}

TEST_F(SwitchMaterialTest, StateWithinTheCountIsSetAndReadBack) {
  const auto paint = scene.switchMaterial("Paint", {red, blue}, 0);
  EXPECT_TRUE(paint->setCurrentState(1));
  std::string name;
  EXPECT_TRUE(paint->getCurrentStateName(name));
  EXPECT_EQ(name, "Blue");
  EXPECT_EQ(paint->getChoice(), 1u);
}

TEST_F(SwitchMaterialTest, StateBeyondTheCountIsRefused) {
  const auto paint = scene.switchMaterial("Paint", {red, blue}, 0);
  EXPECT_FALSE(paint->setCurrentState(2));
  EXPECT_EQ(paint->getChoice(), 0u);
}

TEST_F(SwitchMaterialTest, ChoiceBeyondTheCountIsKeptAndShowsNone) {
  const auto paint = scene.switchMaterial("Paint", {red}, 5);
  int index = 0;
  std::string name = "before";
  EXPECT_FALSE(paint->getCurrentState(index));
  EXPECT_FALSE(paint->getCurrentStateName(name));
  EXPECT_EQ(name, "before");
  EXPECT_EQ(paint->getChoice(), 5u);
  EXPECT_EQ(paint->getMaterial(5), osg::NullFC);
}

TEST_F(SwitchMaterialTest, SubMaterialOfASubMaterialIsFoundOnlyRecursively) {
  const auto inner = scene.switchMaterial("Inner", {red}, 0);
  const auto outer = scene.switchMaterial("Outer", {inner}, 0);
  EXPECT_FALSE(outer->hasSubMaterial(red, false));
  EXPECT_TRUE(outer->hasSubMaterial(red, true));
  EXPECT_FALSE(outer->hasSubMaterial(blue, true));
}

TEST_F(SwitchMaterialTest, MaterialInsideItselfIsRefused) {
  const auto inner = scene.switchMaterial("Inner", {}, 0);
  const auto outer = scene.switchMaterial("Outer", {inner}, 0);
  add(inner, outer);
  add(outer, outer);
  EXPECT_TRUE(inner->getMaterials().empty());
  EXPECT_EQ(outer->getMaterials().size(), 1u);
  EXPECT_THAT(log, ElementsAre("error: Material 'Inner' cannot be a part of itself",
                               "error: Material 'Outer' cannot be a part of itself"));
}

TEST_F(SwitchMaterialTest, PresetMaterialHasStatesOfItsOwn) {
  const auto material = scene.presetMaterial("Leather", {"Matte", "Gloss"}, -1);
  std::string name;
  EXPECT_FALSE(material->getCurrentStateName(name));
  EXPECT_TRUE(material->setCurrentState(1));
  EXPECT_TRUE(material->getCurrentStateName(name));
  EXPECT_EQ(name, "Gloss");
  EXPECT_FALSE(material->setCurrentState(2));
}
