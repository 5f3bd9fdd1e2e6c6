#include "host/utils/kuNodeUtils.h"

#include "standalone/scene/SceneNode.h"
#include "support/SceneTest.h"

using kuStandalone::SceneNode;
using ::testing::ElementsAre;

namespace {

class kuNodeUtilsTest : public SceneTest {};

}  // namespace

TEST_F(kuNodeUtilsTest, NameOfANullNodeIsEmpty) {
  EXPECT_STREQ(kuNodeUtils::getName(osg::NullFC), "");
  EXPECT_STREQ(kuNodeUtils::getName(scene.group("Roof")), "Roof");
}

TEST_F(kuNodeUtilsTest, SubTreeIsTheNodeAndAllBelowDepthFirst) {
  const auto top = scene.group("Top");
  const auto a = scene.group("A", top);
  const auto b = scene.group("B", top);
  const auto below = scene.group("Below", a);
  std::vector<kuNodePtr> nodes{kuNodePtr(b)};
  kuNodeUtils::getSubTreeNodes(top, nodes);
  ASSERT_EQ(nodes.size(), 5u);
  EXPECT_THAT((std::vector<osg::NodePtr>{nodes[0], nodes[1], nodes[2], nodes[3], nodes[4]}),
              ElementsAre(b, top, a, below, b));
}

TEST_F(kuNodeUtilsTest, SubTreeOfAnInvalidHandleIsEmpty) {
  std::vector<kuNodePtr> nodes;
  kuNodeUtils::getSubTreeNodes(kuNodePtr(), nodes);
  EXPECT_TRUE(nodes.empty());
}

TEST_F(kuNodeUtilsTest, HandleGivesTheIdentifierOfItsNode) {
  const auto node = scene.group("Roof");
  EXPECT_EQ(kuNodePtr(node).getID(), SceneNode::of(node).id());
  EXPECT_EQ(kuNodePtr().getID(), 0u);
}

TEST_F(kuNodeUtilsTest, FreeNameComesBackUnchanged) {
  EXPECT_EQ(kuNodeUtils::getUniqueName("Name", {}), "Name");
  EXPECT_EQ(kuNodeUtils::getUniqueName("Name", {"name", "Name1"}), "Name");
}

TEST_F(kuNodeUtilsTest, UsedNameGetsTheFirstFreeNumber) {
  EXPECT_EQ(kuNodeUtils::getUniqueName("Name", {"Name"}), "Name1");
  EXPECT_EQ(kuNodeUtils::getUniqueName("Name", {"Name2", "Name1", "Name"}), "Name3");
  EXPECT_EQ(kuNodeUtils::getUniqueName("Name1", {"Name1", "Name1"}), "Name11");
  EXPECT_EQ(kuNodeUtils::getUniqueName("", {""}), "1");
}

TEST_F(kuNodeUtilsTest, ClonesShareACoreAndNoNodeIsItsOwnClone) {
  const auto door = scene.group("Door");
  const auto clone = scene.clone(door);
  EXPECT_TRUE(kuNodeUtils::isCloneOf(door, clone));
  EXPECT_TRUE(kuNodeUtils::isCloneOf(clone, door));
  EXPECT_FALSE(kuNodeUtils::isCloneOf(door, door));
  EXPECT_FALSE(kuNodeUtils::isCloneOf(door, scene.group("Door")));
}

TEST_F(kuNodeUtilsTest, NodesWithoutCoreAreNoClones) {
  EXPECT_FALSE(kuNodeUtils::isCloneOf(scene.bare("A"), scene.bare("B")));
  EXPECT_FALSE(kuNodeUtils::isCloneOf(osg::NullFC, osg::NullFC));
}

TEST_F(kuNodeUtilsTest, TransformStatesCountWhenOneHasAName) {
  EXPECT_TRUE(kuNodeUtils::hasTransformVariants(scene.transforms("A", {"", "Open"}, 0, 0)));
  EXPECT_TRUE(kuNodeUtils::hasTransformVariants(scene.transforms("B", {}, 0, 0)));
  EXPECT_FALSE(kuNodeUtils::hasTransformVariants(scene.transforms("C", {"", ""}, 0, 0)));
  EXPECT_FALSE(kuNodeUtils::hasTransformVariants(scene.group("D")));
  EXPECT_FALSE(kuNodeUtils::hasTransformVariants(scene.bare("E")));
  EXPECT_FALSE(kuNodeUtils::hasTransformVariants(osg::NullFC));
}

TEST_F(kuNodeUtilsTest, TransformStatesAnswerByIndexAndName) {
  const auto door = scene.transforms("Door", {"Shut", "Open", "Open"}, 0, 2);
  EXPECT_EQ(kuNodeUtils::getTransformVariantCount(door), 3);
  EXPECT_EQ(kuNodeUtils::getTransformVariantName(door, 1), "Open");
  EXPECT_EQ(kuNodeUtils::getTransformVariantName(door, 3), "");
  EXPECT_EQ(kuNodeUtils::getTransformVariantName(door, -1), "");
  EXPECT_EQ(kuNodeUtils::getTransformVariantIndex(door, "Open"), 1);
  EXPECT_LT(kuNodeUtils::getTransformVariantIndex(door, "open"), 0);
}

TEST_F(kuNodeUtilsTest, SupposedIndexIsNotTheChoice) {
  EXPECT_EQ(kuNodeUtils::getTransformVariantSupposedActiveIndex(
                scene.transforms("Door", {"Shut", "Open"}, 0, 1)),
            1);
  EXPECT_LT(kuNodeUtils::getTransformVariantSupposedActiveIndex(
                scene.transforms("Flap", {"Shut", "Open"}, 1, -1)),
            0);
}

TEST_F(kuNodeUtilsTest, OtherNodesHaveNoTransformStates) {
  for (const auto& node : {scene.group("Group"), scene.bare("Bare"), osg::NodePtr()}) {
    EXPECT_EQ(kuNodeUtils::getTransformVariantCount(node), 0);
    EXPECT_EQ(kuNodeUtils::getTransformVariantName(node, 0), "");
    EXPECT_LT(kuNodeUtils::getTransformVariantIndex(node, "Open"), 0);
    EXPECT_LT(kuNodeUtils::getTransformVariantSupposedActiveIndex(node), 0);
  }
}
