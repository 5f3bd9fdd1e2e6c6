#include "host/osg/EditCP.h"
#include "host/utils/kuNodeUtils.h"
#include "host/utils/kuOpenSGUtils.h"
#include "standalone/scene/SceneNode.h"
#include "support/BracketRecorder.h"
#include "support/SceneTest.h"

using kuStandalone::MaterialGroupCore;
using kuStandalone::Scene;
using kuStandalone::SceneNode;
using kuStandalone::SwitchCore;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class kuNodeUtilsSceneTest : public SceneTest {
 protected:
  static std::vector<osg::NodePtr> sceneNodes(bool sceneplates) {
    std::vector<kuNodePtr> nodes;
    kuNodeUtils::getSceneNodes(nodes, sceneplates);
    return std::vector<osg::NodePtr>(nodes.begin(), nodes.end());
  }

  /** Another node over the core of @p node, as a child at the end of @p parent. */
  static osg::NodePtr share(const osg::NodePtr& node, const osg::NodePtr& parent) {
    const osg::NodePtr other = SceneNode::create("Other", node->getCore());
    SceneNode::of(parent).addChild(other);
    return other;
  }
};

}  // namespace

TEST_F(kuNodeUtilsSceneTest, RootIsThatOfTheScene) {
  EXPECT_EQ(kuOpenSGUtils::getRoot(), scene.root());
}

TEST_F(kuNodeUtilsSceneTest, SceneNodesAreTheRootAndAllBelowDepthFirst) {
  const auto a = scene.group("A");
  const auto below = scene.group("Below", a);
  const auto b = scene.bare("B");
  const auto plate = scene.sceneplate("Plate");
  EXPECT_THAT(sceneNodes(false), ElementsAre(scene.root(), a, below, b));
  EXPECT_THAT(sceneNodes(true),
              ElementsAre(scene.root(), a, below, b, scene.sceneplateRoot(), plate));
}

TEST_F(kuNodeUtilsSceneTest, SceneNodesAreAppendedAndNoSceneplatesAddNone) {
  std::vector<kuNodePtr> nodes{kuNodePtr()};
  kuNodeUtils::getSceneNodes(nodes, true);
  EXPECT_THAT(std::vector<osg::NodePtr>(nodes.begin(), nodes.end()),
              ElementsAre(osg::NodePtr(), scene.root()));
}

TEST_F(kuNodeUtilsSceneTest, SceneWithoutARootHasNoNodes) {
  Scene::the().nodes.setRoot(osg::NullFC);
  EXPECT_THAT(sceneNodes(true), IsEmpty());
  EXPECT_EQ(kuOpenSGUtils::getRoot(), osg::NullFC);
}

TEST_F(kuNodeUtilsSceneTest, NullBareAndLoneNodesAreNoClones) {
  EXPECT_FALSE(kuNodeUtils::isClone(osg::NullFC));
  EXPECT_FALSE(kuNodeUtils::isClone(scene.bare("Bare")));
  EXPECT_FALSE(kuNodeUtils::isClone(scene.group("Lone")));
}

TEST_F(kuNodeUtilsSceneTest, LaterNodesOfACoreAreTheClones) {
  const auto original = scene.group("Original");
  const auto inner = scene.group("Inner", original);
  const auto clone = scene.clone(original, "Clone");
  EXPECT_FALSE(kuNodeUtils::isClone(original));
  EXPECT_FALSE(kuNodeUtils::isClone(inner));
  EXPECT_TRUE(kuNodeUtils::isClone(clone));
  EXPECT_TRUE(kuNodeUtils::isClone(clone->getChild(0)));
}

TEST_F(kuNodeUtilsSceneTest, OrderIsThatOfTheSceneAndNotThatOfTheSharing) {
  const auto early = scene.group("Early");
  const auto original = scene.group("Original");
  const auto clone = share(original, early);
  EXPECT_FALSE(kuNodeUtils::isClone(clone));
  EXPECT_TRUE(kuNodeUtils::isClone(original));
}

TEST_F(kuNodeUtilsSceneTest, NodeAboveStandsBeforeThoseBelowIt) {
  const auto above = scene.group("Above");
  const auto below = share(above, scene.group("Between", above));
  EXPECT_FALSE(kuNodeUtils::isClone(above));
  EXPECT_TRUE(kuNodeUtils::isClone(below));
}

TEST_F(kuNodeUtilsSceneTest, NodeInADeeperEarlierBranchStandsBefore) {
  const auto first = scene.group("Deep", scene.group("Deeper", scene.group("First")));
  const auto second = share(first, scene.root());
  EXPECT_FALSE(kuNodeUtils::isClone(first));
  EXPECT_TRUE(kuNodeUtils::isClone(second));
}

TEST_F(kuNodeUtilsSceneTest, NodeAmongTheSceneplatesMakesNoCloneOfASceneNode) {
  const auto node = scene.group("Node");
  const auto plate = share(node, scene.sceneplateRoot());
  EXPECT_FALSE(kuNodeUtils::isClone(node));
  EXPECT_FALSE(kuNodeUtils::isClone(plate));
}

TEST_F(kuNodeUtilsSceneTest, NodesAmongTheSceneplatesAreClonesOfOneAnother) {
  const auto first = scene.sceneplate("First");
  const auto second = share(first, scene.sceneplateRoot());
  EXPECT_FALSE(kuNodeUtils::isClone(first));
  EXPECT_TRUE(kuNodeUtils::isClone(second));
}

TEST_F(kuNodeUtilsSceneTest, NodesInNoTreeAreNoClonesAndMakeNone) {
  const auto top = SceneNode::create("Top", osg::NullFC);
  const auto other = SceneNode::create("Other top", osg::NullFC);
  const auto node = scene.group("Node");
  share(node, top);
  const auto outside = share(node, other);
  SceneNode::of(other).removeChild(outside);
  SceneNode::of(other).addChild(SceneNode::create("Before", osg::NullFC));
  SceneNode::of(other).addChild(outside);
  EXPECT_FALSE(kuNodeUtils::isClone(node));
  EXPECT_FALSE(kuNodeUtils::isClone(outside));
}

TEST_F(kuNodeUtilsSceneTest, CloneCeasesToBeOneWhenItsOriginalLeaves) {
  const auto original = scene.group("Original");
  const auto clone = scene.clone(original);
  SceneNode::of(scene.root()).removeChild(original);
  EXPECT_FALSE(kuNodeUtils::isClone(clone));
}

TEST_F(kuNodeUtilsSceneTest, EnvironmentGeometrySwitchIsTheOneThatIsMarked) {
  const auto marked = scene.switchNode("Marked", 0, {});
  SwitchCore::of(marked->getCore()).environment = true;
  EXPECT_TRUE(kuNodeUtils::isEnvironmentGeometrySwitch(marked));
  EXPECT_FALSE(kuNodeUtils::isEnvironmentGeometrySwitch(scene.switchNode("Plain", 0, {})));
  EXPECT_FALSE(kuNodeUtils::isEnvironmentGeometrySwitch(scene.group("Group")));
  EXPECT_FALSE(kuNodeUtils::isEnvironmentGeometrySwitch(scene.bare("Bare")));
  EXPECT_FALSE(kuNodeUtils::isEnvironmentGeometrySwitch(osg::NullFC));
}

TEST_F(kuNodeUtilsSceneTest, MaterialIsThatOfTheNodeItself) {
  const auto red = scene.material("Red");
  const auto paint = scene.switchMaterial("Paint", {red}, 0);
  const auto group = scene.materialGroup("Group", red);
  EXPECT_EQ(kuNodeUtils::getMaterial(group), red);
  EXPECT_EQ(kuNodeUtils::getMaterial(scene.geometry("Body", paint, group)), paint);
  EXPECT_EQ(kuNodeUtils::getMaterial(scene.geometry("Naked", {}, group)), osg::NullFC);
  EXPECT_EQ(kuNodeUtils::getMaterial(scene.group("Plain", group)), osg::NullFC);
  EXPECT_EQ(kuNodeUtils::getMaterial(scene.bare("Bare")), osg::NullFC);
  EXPECT_EQ(kuNodeUtils::getMaterial(osg::NullFC), osg::NullFC);
}

TEST_F(kuNodeUtilsSceneTest, EveryGeometryAtAndBelowTheNodeTakesTheMaterial) {
  const auto red = scene.material("Red"), blue = scene.material("Blue");
  const auto top = scene.geometry("Top", red);
  const auto group = scene.materialGroup("Group", red, top);
  const auto inner = scene.geometry("Inner", {}, group);
  const auto beside = scene.geometry("Beside", red);
  kuNodeUtils::setMaterial(top, blue, false, false);
  EXPECT_EQ(kuNodeUtils::getMaterial(top), blue);
  EXPECT_EQ(kuNodeUtils::getMaterial(group), red);
  EXPECT_EQ(kuNodeUtils::getMaterial(inner), blue);
  EXPECT_EQ(kuNodeUtils::getMaterial(beside), red);
}

TEST_F(kuNodeUtilsSceneTest, NullMaterialIsTakenAndANullNodePassedOver) {
  const auto body = scene.geometry("Body", scene.material("Red"));
  kuNodeUtils::setMaterial(osg::NullFC, osg::NullFC, false, false);
  kuNodeUtils::setMaterial(scene.bare("Bare"), osg::NullFC, false, false);
  kuNodeUtils::setMaterial(body, osg::NullFC, false, false);
  EXPECT_EQ(kuNodeUtils::getMaterial(body), osg::NullFC);
}

TEST_F(kuNodeUtilsSceneTest, TransformStateTakesAName) {
  const auto door = scene.transforms("Door", {"Shut", "Open"}, 0, 0);
  BracketRecorder recorder;
  kuNodeUtils::setTransformVariantName(door, 1, "Wide \xFF");
  EXPECT_EQ(kuNodeUtils::getTransformVariantName(door, 0), "Shut");
  EXPECT_EQ(kuNodeUtils::getTransformVariantName(door, 1), "Wide \xFF");
  EXPECT_EQ(recorder.brackets().size(), 1u);
}

TEST_F(kuNodeUtilsSceneTest, NameForNoTransformStateChangesNothing) {
  const auto door = scene.transforms("Door", {"Shut"}, 0, 0);
  BracketRecorder recorder;
  kuNodeUtils::setTransformVariantName(door, -1, "Open");
  kuNodeUtils::setTransformVariantName(door, 1, "Open");
  kuNodeUtils::setTransformVariantName(scene.group("Group"), 0, "Open");
  kuNodeUtils::setTransformVariantName(scene.bare("Bare"), 0, "Open");
  kuNodeUtils::setTransformVariantName(osg::NullFC, 0, "Open");
  EXPECT_EQ(kuNodeUtils::getTransformVariantName(door, 0), "Shut");
  EXPECT_THAT(recorder.brackets(), IsEmpty());
}

TEST_F(kuNodeUtilsSceneTest, TransformIsInAStateWhileTheChoiceIsOne) {
  EXPECT_TRUE(kuNodeUtils::isTransformVariantInState(scene.transforms("A", {"", "X"}, 1, -1)));
  EXPECT_FALSE(kuNodeUtils::isTransformVariantInState(scene.transforms("B", {"", "X"}, 2, 1)));
  EXPECT_FALSE(
      kuNodeUtils::isTransformVariantInState(scene.transforms("C", {"X"}, 4294967295u, 0)));
  EXPECT_FALSE(kuNodeUtils::isTransformVariantInState(scene.transforms("D", {}, 0, 0)));
  EXPECT_FALSE(kuNodeUtils::isTransformVariantInState(scene.group("E")));
  EXPECT_FALSE(kuNodeUtils::isTransformVariantInState(scene.bare("F")));
  EXPECT_FALSE(kuNodeUtils::isTransformVariantInState(osg::NullFC));
}

TEST_F(kuNodeUtilsSceneTest, ParentsOfACoreAreItsNodesFromTheOriginalOn) {
  const auto original = scene.group("Original");
  const auto clone = scene.clone(original);
  const osg::NodeCorePtr core = original->getCore();
  EXPECT_THAT(core->getParents(), ElementsAre(original, clone));
  EXPECT_THAT(kuStandalone::GroupCore::create()->getParents(), IsEmpty());
}

TEST_F(kuNodeUtilsSceneTest, MaterialGroupTellsWhetherItIsPassedOver) {
  const auto group = scene.materialGroup("Group", {});
  const auto core = osg::MaterialGroupPtr::dcast(group->getCore());
  EXPECT_FALSE(core->getIgnore());
  MaterialGroupCore::of(group->getCore()).ignore = true;
  EXPECT_TRUE(core->getIgnore());
}
