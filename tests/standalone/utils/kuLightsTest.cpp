#include "host/utils/kuLights.h"

#include "support/SceneTest.h"

namespace {

class kuLightsTest : public SceneTest {};

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
