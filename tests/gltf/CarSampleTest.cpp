#include <gtest/gtest.h>

#include "standalone/gltf/GltfSource.h"
#include "standalone/gltf/SceneFile.h"
#include "standalone/scene/Cores.h"
#include "standalone/scene/MaterialFields.h"
#include "standalone/scene/NodeCoreFields.h"
#include "standalone/scene/SceneNode.h"
#include "standalone/scene/ScenePool.h"

using namespace kuStandalone;

namespace {

class CarSample : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { _loaded = loadScene(KU_SAMPLES_DIR "/car/car.gltf"); }
  static void TearDownTestSuite() { _loaded = {}; }

  void SetUp() override { ASSERT_EQ(_loaded.error, ""); }

  static Scene& scene() { return *_loaded.scene; }

  /** The first node of that name below @p node, or null. */
  static osg::NodePtr find(const osg::NodePtr& node, const std::string& name) {
    if (SceneNode::of(node).name() == name) return node;
    for (const osg::NodePtr& child : SceneNode::of(node).children()) {
      const osg::NodePtr found = find(child, name);
      if (found) return found;
    }
    return osg::NullFC;
  }
  static osg::NodePtr node(const std::string& name) { return find(scene().nodes.root, name); }

  static SceneLoadResult _loaded;
};
SceneLoadResult CarSample::_loaded;

TEST_F(CarSample, LoadsWithoutAWarning) { EXPECT_EQ(_loaded.warnings, std::vector<std::string>{}); }

TEST_F(CarSample, HasSwitchesInsideSwitches) {
  ASSERT_STREQ(node("Roof")->getCore()->getType().getName(), "Switch");
  EXPECT_EQ(SwitchCore::of(node("Roof")->getCore()).choice, 0);
  ASSERT_STREQ(node("Rack")->getCore()->getType().getName(), "Switch");
  EXPECT_EQ(node("Rack")->getParent(), node("Hardtop"));
  EXPECT_EQ(node("Hardtop")->getParent(), node("Roof"));
  EXPECT_TRUE(SwitchCore::of(node("Surroundings")->getCore()).environment);
}

TEST_F(CarSample, ItsWheelsAreClonesOfTheFirstWithAllBelowIt) {
  const osg::NodePtr first = node("Steel Wheel 1");
  const auto& parents = first->getCore()->hostFields().parents;
  ASSERT_EQ(parents.size(), 4u);
  EXPECT_EQ(parents.front(), &SceneNode::of(first));
  for (const char* name : {"Steel Wheel 2", "Steel Wheel 3", "Steel Wheel 4"}) {
    const osg::NodePtr clone = node(name);
    EXPECT_EQ(clone->getCore(), first->getCore());
    ASSERT_EQ(clone->getNChildren(), 2u);
    EXPECT_EQ(clone->getChild(1)->getCore(), first->getChild(1)->getCore());
    EXPECT_NE(SceneNode::of(clone).transform(), SceneNode::of(first).transform());
  }
}

TEST_F(CarSample, ItsSecondMirrorIsACloneOfTheFirstOfThatName) {
  const osg::NodePtr car = node("Car");
  const osg::NodePtr first = car->getChild(4), second = car->getChild(5);
  EXPECT_EQ(SceneNode::of(second).name(), "Mirror");
  EXPECT_EQ(second->getCore(), first->getCore());
  ASSERT_EQ(second->getNChildren(), 2u);
  EXPECT_EQ(SceneNode::of(second->getChild(0)).name(), "Painted");
  EXPECT_EQ(SceneNode::of(second).transform().translation, (std::array<double, 3>{0.5, 1, 0.92}));
}

TEST_F(CarSample, ItsDoorsHaveNamedTransforms) {
  const auto& door = TransformSwitchCore::of(node("Left Door")->getCore());
  ASSERT_EQ(door.states.size(), 3u);
  EXPECT_EQ(door.states[0].name, "Closed");
  EXPECT_EQ(door.states[1].name, "Ajar");
  EXPECT_EQ(door.states[2].name, "Open");
  EXPECT_EQ(door.choice, 0u);
  EXPECT_EQ(door.supposed, 0);
}

TEST_F(CarSample, ItsLightsHaveFlagsOfTheirOwn) {
  EXPECT_FALSE(LightCore::of(node("Headlight Left")->getCore()).on);
  EXPECT_TRUE(LightCore::of(node("Sun")->getCore()).on);
  EXPECT_EQ(LightCore::of(node("Sun")->getCore()).light, 3);
  EXPECT_FALSE(node("Jack")->getActive());
}

TEST_F(CarSample, ItsSceneplatesStandApartFromTheTree) {
  EXPECT_EQ(node("Sceneplates"), osg::NullFC);
  const osg::NodePtr root = scene().sceneplates.root;
  ASSERT_NE(root, osg::NullFC);
  const auto& logo = SceneplateCore::of(find(root, "Logo")->getCore());
  EXPECT_EQ(logo.image, 0);
  EXPECT_EQ(logo.rect, (std::array<double, 4>{0.04, 0.05, 0.24, 0.09}));
  EXPECT_EQ(SwitchCore::of(find(root, "Season")->getCore()).choice, -1);
}

TEST_F(CarSample, HasAViewpointForEachCameraAndOneOfItsOwn) {
  std::vector<std::string> names;
  for (const Viewpoint& viewpoint : scene().viewpoints)
    names.push_back(viewpoint.name);
  EXPECT_EQ(names, (std::vector<std::string>{"Front View", "Side View", "Rear View", "Cockpit",
                                             "Low Front"}));
  EXPECT_EQ(scene().activeViewpoint, "Front View");
  EXPECT_EQ(scene().viewpoints[4].camera, 0u);
  EXPECT_TRUE(scene().viewpoints[4].named);
  EXPECT_EQ(scene().viewpoints[4].pose.translation, (std::array<double, 3>{5.4, 0.6, 3.6}));
}

TEST_F(CarSample, HasClipsAndABlockOfThem) {
  ASSERT_EQ(scene().animations.size(), 3u);
  const AnimationClip& clip = scene().animations[2];
  EXPECT_EQ(clip.name, "Drive Up");
  ASSERT_EQ(clip.channels.size(), 1u);
  EXPECT_EQ(clip.channels[0].node, node("Car"));
  EXPECT_EQ(clip.channels[0].property, AnimationChannel::Property::Translation);
  EXPECT_EQ(clip.channels[0].values.size(), 3 * clip.channels[0].times.size());
  EXPECT_EQ(scene().animationBlocks.at("Drive"),
            (std::vector<std::string>{"Rear Wheels Turn", "Front Wheels Turn", "Drive Up"}));
}

TEST_F(CarSample, ItsSeatsFollowTheVariantsOfTheFile) {
  ASSERT_EQ(scene().fileVariants.size(), 2u);
  EXPECT_EQ(scene().fileVariants[1].name, "Leather Seats");
  const auto& found = ScenePool::of(scene().pool).find("Fabric Switch");
  ASSERT_EQ(found.size(), 1u);
  ASSERT_EQ(scene().fileVariants[1].choices.size(), 1u);
  EXPECT_EQ(osg::MaterialPtr(scene().fileVariants[1].choices[0].first), found[0]);
  EXPECT_EQ(scene().fileVariants[0].choices[0].second, 0u);
  EXPECT_EQ(scene().fileVariants[1].choices[0].second, 1u);
  EXPECT_EQ(GeometryCore::of(node("Seat Left")->getCore()).material, found[0]);
}

TEST_F(CarSample, HasPaintToSwitchAndGlassWithPresets) {
  const ScenePool& pool = ScenePool::of(scene().pool);
  std::vector<std::string> names;
  pool.find("Paint").at(0)->getStateNames(names);
  pool.find("Glass").at(0)->getStateNames(names);
  EXPECT_EQ(names, (std::vector<std::string>{"Red", "Blue", "Silver", "Clear", "Tinted"}));
  const auto& interior = MaterialGroupCore::of(node("Interior")->getCore());
  EXPECT_EQ(interior.material, pool.find("Trim").at(0));
  EXPECT_TRUE(interior.ignore);
}

TEST_F(CarSample, KeepsTheBytesOfItsBuffers) {
  const auto& source = dynamic_cast<const GltfSource&>(*scene().source);
  ASSERT_EQ(source.buffers.size(), 1u);
  EXPECT_EQ(source.buffers[0].size(), 115344);
  EXPECT_EQ(source.images, std::vector<QByteArray>(3));
}

}  // namespace
