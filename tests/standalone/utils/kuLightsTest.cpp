#include "host/utils/kuLights.h"

#include "standalone/scene/SceneNode.h"
#include "support/SceneTest.h"

using kuStandalone::LightCore;
using kuStandalone::Scene;
using kuStandalone::SceneNode;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class kuLightsTest : public SceneTest {
 protected:
  static std::vector<osg::NodePtr> lights() {
    std::vector<osg::NodePtr> found;
    kuLights::getLights(found);
    return found;
  }
};

}  // namespace

TEST_F(kuLightsTest, NodeOverALightIsALight) {
  EXPECT_TRUE(kuLights::isLight(scene.light("Lamp", false)));
  EXPECT_FALSE(kuLights::isLight(scene.group("Group")));
  EXPECT_FALSE(kuLights::isLight(scene.bare("Bare")));
  EXPECT_FALSE(kuLights::isLight(osg::NullFC));
}

TEST_F(kuLightsTest, SwitchingKeepsTheVisibilityFlag) {
  const auto lamp = scene.light("Lamp", true);
  kuLights::setOn(lamp, false);
  EXPECT_FALSE(kuLights::getOn(lamp));
  EXPECT_TRUE(lamp->getActive());
}

TEST_F(kuLightsTest, ToggleSwitchesToTheOpposite) {
  const auto lamp = scene.light("Lamp", true);
  kuLights::toggle(lamp);
  EXPECT_FALSE(kuLights::getOn(lamp));
  kuLights::toggle(lamp);
  EXPECT_TRUE(kuLights::getOn(lamp));
}

TEST_F(kuLightsTest, ClonesShareOneLight) {
  const auto lamp = scene.light("Lamp", true);
  kuLights::setOn(scene.clone(lamp), false);
  EXPECT_FALSE(kuLights::getOn(lamp));
}

TEST_F(kuLightsTest, OtherNodesAreOffAndCannotBeSwitched) {
  const auto group = scene.group("Group");
  kuLights::setOn(group, true);
  kuLights::toggle(osg::NullFC);
  EXPECT_FALSE(kuLights::getOn(group));
  EXPECT_FALSE(kuLights::getOn(osg::NullFC));
}

TEST_F(kuLightsTest, LightsStandInTheOrderOfTheSceneWhateverTheirFlags) {
  const auto left = scene.group("Left");
  const auto last = scene.light("Last", true);
  const auto first = scene.light("First", false, left);
  const auto below = scene.light("Below", true, first);
  const auto second = scene.light("Second", true, scene.bare("Bare", left));
  SceneBuilder::setActive(left, false);
  EXPECT_THAT(lights(), ElementsAre(first, below, second, last));
}

TEST_F(kuLightsTest, ClonesAreLightsInTheirOwnPlaces) {
  const auto lamp = scene.light("Lamp", true);
  const auto group = scene.group("Group");
  const auto last = scene.light("Last", true);
  const auto clone = scene.clone(lamp, "Clone", group);
  EXPECT_THAT(lights(), ElementsAre(lamp, clone, last));
}

TEST_F(kuLightsTest, LightsAmongTheSceneplatesAndOutsideTheSceneAreLeftOut) {
  scene.light("Plate", true, scene.sceneplateRoot());
  const auto lamp = scene.light("Lamp", true);
  SceneNode::of(scene.root()).removeChild(lamp);
  EXPECT_THAT(lights(), IsEmpty());
}

TEST_F(kuLightsTest, GivenLightsAreKept) {
  const auto lamp = scene.light("Lamp", true);
  std::vector<osg::NodePtr> given{scene.root()};
  kuLights::getLights(given);
  EXPECT_THAT(given, ElementsAre(scene.root(), lamp));
}

TEST_F(kuLightsTest, AnotherSceneHasItsOwnLights) {
  scene.light("Lamp", true);
  EXPECT_EQ(lights().size(), 1u);
  scene = SceneBuilder();
  EXPECT_THAT(lights(), IsEmpty());
}

TEST_F(kuLightsTest, AnotherRootHasItsOwnLights) {
  scene.light("Lamp", true);
  EXPECT_EQ(lights().size(), 1u);
  const auto root = SceneNode::create("Root", LightCore::create(true));
  Scene::the().nodes.setRoot(root);
  EXPECT_THAT(lights(), ElementsAre(root));
  Scene::the().nodes.setRoot(osg::NullFC);
  EXPECT_THAT(lights(), IsEmpty());
}
