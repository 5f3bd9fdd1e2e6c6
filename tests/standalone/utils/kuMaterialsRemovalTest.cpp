#include "host/utils/kuMaterials.h"
#include "host/utils/kuNodeUtils.h"
#include "standalone/scene/MaterialFields.h"
#include "standalone/scene/Materials.h"
#include "standalone/scene/ScenePool.h"
#include "support/BracketRecorder.h"
#include "support/SceneTest.h"

using kuStandalone::Scene;
using kuStandalone::ScenePool;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class kuMaterialsRemovalTest : public SceneTest {
 protected:
  static const osg::MFMaterialPtr& pool() { return ScenePool::of(Scene::the().pool).materials(); }
};

}  // namespace

TEST_F(kuMaterialsRemovalTest, OnlySwitchesHaveAFieldOfSubMaterials) {
  const auto red = scene.material("Red");
  const auto paint = scene.switchMaterial("Paint", {red, red}, 0);
  const auto sky = scene.environmentSwitchMaterial("Sky", {}, 0);
  ASSERT_NE(kuMaterials::getSubMaterials(paint), nullptr);
  EXPECT_THAT(*kuMaterials::getSubMaterials(paint), ElementsAre(red, red));
  ASSERT_NE(kuMaterials::getSubMaterials(sky), nullptr);
  EXPECT_THAT(*kuMaterials::getSubMaterials(sky), IsEmpty());
  EXPECT_EQ(kuMaterials::getSubMaterials(red), nullptr);
  EXPECT_EQ(kuMaterials::getSubMaterials(scene.presetMaterial("P", {"A"}, 0)), nullptr);
  EXPECT_EQ(kuMaterials::getSubMaterials(osg::NullFC), nullptr);
}

TEST_F(kuMaterialsRemovalTest, NewEnvironmentSwitchIsEmptyNamelessAndOutsideThePool) {
  const osg::UEnvironmentSwitchMaterialPtr sky = osg::UEnvironmentSwitchMaterial::create();
  ASSERT_TRUE(sky);
  EXPECT_EQ(&sky->getType(), &osg::UEnvironmentSwitchMaterial::_type);
  EXPECT_STREQ(kuMaterials::getName(sky), "");
  EXPECT_EQ(sky->getChoice(), 0u);
  EXPECT_THAT(sky->getMaterials(), IsEmpty());
  EXPECT_THAT(pool(), IsEmpty());
}

TEST_F(kuMaterialsRemovalTest, RemovedMaterialIsOnNoNodeInNoSwitchAndNotInThePool) {
  const auto red = scene.material("Red"), blue = scene.material("Blue");
  const auto paint = scene.switchMaterial("Paint", {red, blue, red}, 1);
  const auto body = scene.geometry("Body", red);
  const auto group = scene.materialGroup("Group", red, body);
  const auto other = scene.geometry("Other", paint);
  kuMaterials::removeMaterial(red);
  EXPECT_THAT(pool(), ElementsAre(blue, paint));
  EXPECT_FALSE(kuMaterials::findMaterial("Red").isValid());
  EXPECT_THAT(paint->getMaterials(), ElementsAre(blue));
  EXPECT_EQ(paint->getChoice(), 1u);
  EXPECT_EQ(kuNodeUtils::getMaterial(body), osg::NullFC);
  EXPECT_EQ(kuNodeUtils::getMaterial(group), osg::NullFC);
  EXPECT_EQ(kuNodeUtils::getMaterial(other), paint);
  EXPECT_STREQ(kuMaterials::getName(red), "Red");
}

TEST_F(kuMaterialsRemovalTest, SwitchOutsideThePoolLosesTheMaterialToo) {
  const auto red = scene.material("Red");
  const auto outside = kuStandalone::createSwitchMaterial("Outside", {red}, 0);
  scene.geometry("Body", outside);
  kuMaterials::removeMaterial(red);
  EXPECT_THAT(outside->getMaterials(), IsEmpty());
}

TEST_F(kuMaterialsRemovalTest, NestedSwitchIsTakenOutWithWhatItHolds) {
  const auto red = scene.material("Red");
  const auto inner = scene.switchMaterial("Inner", {red}, 0);
  const auto outer = scene.switchMaterial("Outer", {inner, red}, 0);
  kuMaterials::removeMaterial(inner);
  EXPECT_THAT(outer->getMaterials(), ElementsAre(red));
  EXPECT_THAT(inner->getMaterials(), ElementsAre(red));
  EXPECT_THAT(pool(), ElementsAre(red, outer));
}

TEST_F(kuMaterialsRemovalTest, VariantsOfTheFileForgetARemovedSwitch) {
  const auto paint = scene.switchMaterial("Paint", {}, 0), kept = scene.switchMaterial("K", {}, 0);
  Scene::the().fileVariants.push_back({"Summer", {{paint, 0}, {kept, 1}}});
  kuMaterials::removeMaterial(paint);
  EXPECT_THAT(Scene::the().fileVariants.at(0).choices,
              ElementsAre(std::make_pair(osg::SwitchMaterialPtr(kept), 1u)));
}

TEST_F(kuMaterialsRemovalTest, MaterialThatOnlyANodeHoldsIsLetGo) {
  const auto body = scene.geometry("Body", kuStandalone::PlainMaterial::create("Lone"));
  kuMaterials::removeMaterial(kuStandalone::GeometryCore::of(body->getCore()).material);
  EXPECT_EQ(kuNodeUtils::getMaterial(body), osg::NullFC);
}

TEST_F(kuMaterialsRemovalTest, NullIsPassedOver) {
  const auto red = scene.material("Red");
  scene.geometry("Naked");
  BracketRecorder recorder;
  kuMaterials::removeMaterial(osg::NullFC);
  EXPECT_THAT(pool(), ElementsAre(red));
  EXPECT_THAT(recorder.brackets(), IsEmpty());
}

TEST_F(kuMaterialsRemovalTest, RemovedMaterialCanEnterThePoolAgainAndStandsLast) {
  const auto red = scene.material("Red"), blue = scene.material("Blue");
  kuMaterials::removeMaterial(red);
  {
    const osg::EditCP edit(Scene::the().pool);
    Scene::the().pool->add(red);
  }
  EXPECT_THAT(pool(), ElementsAre(blue, red));
  EXPECT_EQ(kuMaterials::findMaterial("Red").getMaterial(), red);
}
