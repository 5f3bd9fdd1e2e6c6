#include "standalone/animation/AnimationPlayer.h"

#include "host/kernel/kuController.h"
#include "standalone/scene/SceneNode.h"
#include "support/SceneTest.h"

using namespace kuStandalone;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/** With the player of the running host. */
class AnimationPlayerTest : public SceneTest {
 protected:
  AnimationPlayerTest() { AnimationPlayer::clearStarted(); }

  /** A node, and a clip of its name that moves it from x = 0 to @p end. */
  osg::NodePtr animated(const std::string& name, float end) {
    AnimationChannel channel;
    channel.node = scene.group(name);
    channel.times = {0, 2};
    channel.values = {0, 0, 0, end, 0, 0};
    AnimationClip clip;
    clip.name = name;
    clip.channels.push_back(channel);
    Scene::the().animations.push_back(clip);
    return channel.node;
  }

  static void start(const std::string& name, bool instantaneous = false) {
    kuMessage message;
    message.set("animation-name", name, true);
    message.set("instantaneous", instantaneous, true);
    kuController::call("animationStart", message, 1);
  }

  static double x(const osg::NodePtr& node) {
    return SceneNode::of(node).transform().translation[0];
  }
};

}  // namespace

TEST_F(AnimationPlayerTest, StartedClipStandsAtItsEnd) {
  const auto door = animated("Door", 4);
  const auto flap = animated("Flap", 5);
  start("Door");
  EXPECT_EQ(x(door), 4);
  EXPECT_EQ(x(flap), 0);
  start("Flap", true);
  EXPECT_EQ(x(flap), 5);
}

TEST_F(AnimationPlayerTest, BlockStartsEachOfItsClips) {
  const auto left = animated("Left", 4);
  const auto right = animated("Right", 5);
  Scene::the().animationBlocks["Doors"] = {"Left", "Right"};
  start("Doors");
  EXPECT_EQ(x(left), 4);
  EXPECT_EQ(x(right), 5);
}

TEST_F(AnimationPlayerTest, ClipWinsOverABlockOfItsName) {
  const auto left = animated("Left", 4);
  const auto right = animated("Right", 5);
  Scene::the().animationBlocks["Left"] = {"Right"};
  start("Left");
  EXPECT_EQ(x(left), 4);
  EXPECT_EQ(x(right), 0);
}

TEST_F(AnimationPlayerTest, UnknownNameIsAWarning) {
  start("Nothing");
  EXPECT_THAT(log, ElementsAre("warning: There is no animation 'Nothing'"));
  EXPECT_THAT(AnimationPlayer::started(), IsEmpty());
}

TEST_F(AnimationPlayerTest, UnknownClipOfABlockIsAWarningAndTheOthersStart) {
  const auto left = animated("Left", 4);
  Scene::the().animationBlocks["Doors"] = {"Lost", "Left"};
  start("Doors");
  EXPECT_EQ(x(left), 4);
  EXPECT_THAT(log,
              ElementsAre("warning: Animation block 'Doors' names an unknown animation 'Lost'"));
}

TEST_F(AnimationPlayerTest, StartedNamesAreListedAsTheyCame) {
  animated("Left", 4);
  Scene::the().animationBlocks["Doors"] = {"Left"};
  start("Left");
  start("Doors");
  start("Left");
  EXPECT_THAT(AnimationPlayer::started(), ElementsAre("Left", "Doors", "Left"));
  AnimationPlayer::clearStarted();
  EXPECT_THAT(AnimationPlayer::started(), IsEmpty());
}

TEST_F(AnimationPlayerTest, MessageWithoutNameStartsNothing) {
  kuController::call("animationStart", 1);
  EXPECT_THAT(AnimationPlayer::started(), IsEmpty());
  EXPECT_THAT(log, IsEmpty());
}
