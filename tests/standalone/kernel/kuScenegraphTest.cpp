#include "host/kernel/kuScenegraph.h"

#include "standalone/kernel/HostState.h"
#include "standalone/scene/ScenePool.h"
#include "support/SceneTest.h"

using kuStandalone::HostState;
using kuStandalone::SwitchCore;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class kuScenegraphTest : public SceneTest {
 protected:
  static std::vector<osg::NodePtr> found(const char* name) {
    std::vector<osg::NodePtr> nodes;
    for (const kuNodePtr& node : kuScenegraph::findNodes(name))
      nodes.push_back(node.getNode());
    return nodes;
  }
};

}  // namespace

TEST_F(kuScenegraphTest, RootOfAnEmptySceneHasNoChildren) {
  ASSERT_NE(kuScenegraph::getRoot(), osg::NullFC);
  EXPECT_EQ(kuScenegraph::getRoot()->getNChildren(), 0u);
  EXPECT_EQ(kuScenegraph::getRoot()->getParent(), osg::NullFC);
}

TEST_F(kuScenegraphTest, FindNodesOfAnUnknownNameGivesNothing) {
  scene.group("Roof");
  EXPECT_THAT(kuScenegraph::findNodes("Door"), IsEmpty());
  EXPECT_FALSE(kuScenegraph::findNode("Door").isValid());
}

TEST_F(kuScenegraphTest, FindOfANullNameGivesNothing) {
  EXPECT_THAT(kuScenegraph::findNodes(nullptr), IsEmpty());
  EXPECT_FALSE(kuScenegraph::findNode(nullptr).isValid());
}

TEST_F(kuScenegraphTest, FindNodesGivesDuplicatesAndClonesDepthFirst) {
  const auto left = scene.group("Left");
  const auto right = scene.group("Right");
  const auto last = scene.group("Door", right);
  const auto first = scene.group("Door", left);
  const auto clone = scene.clone(last, "", first);
  EXPECT_THAT(found("Door"), ElementsAre(first, clone, last));
  EXPECT_EQ(kuScenegraph::findNode("Door").getNode(), first);
}

TEST_F(kuScenegraphTest, RootIsFoundByItsName) {
  EXPECT_THAT(found("Root"), ElementsAre(scene.root()));
}

TEST_F(kuScenegraphTest, SceneplatesAreNotFoundInTheScene) {
  scene.sceneplate("Logo");
  EXPECT_THAT(kuScenegraph::findNodes("Logo"), IsEmpty());
}

TEST_F(kuScenegraphTest, NamesAreComparedAsUtf8WithCase) {
  const auto node = scene.group("T\xC3\xBCr");
  scene.group("t\xC3\xBCr");
  EXPECT_THAT(found("T\xC3\xBCr"), ElementsAre(node));
}

TEST_F(kuScenegraphTest, FindCacheIsOpenUntilItIsCleared) {
  EXPECT_FALSE(kuScenegraph::hasFindCache());
  kuScenegraph::initFindCache();
  EXPECT_TRUE(kuScenegraph::hasFindCache());
  kuScenegraph::clearFindCache();
  EXPECT_FALSE(kuScenegraph::hasFindCache());
  EXPECT_EQ(HostState::the().findCacheOpenings, 1u);
}

TEST_F(kuScenegraphTest, NodesThatComeWhileTheCacheIsOpenAreFound) {
  kuScenegraph::initFindCache();
  const auto node = scene.group("Late");
  EXPECT_THAT(found("Late"), ElementsAre(node));
  kuScenegraph::clearFindCache();
}

TEST_F(kuScenegraphTest, ShowNodesSetsTheFlagOfTheGivenNodesOnly) {
  const auto parent = scene.group("Parent");
  const auto child = scene.group("Child", parent);
  const auto other = scene.group("Other");
  for (const auto& node : {parent, child, other})
    SceneBuilder::setActive(node, false);
  kuScenegraph::showNodes({kuNodePtr(child), kuNodePtr()});
  EXPECT_TRUE(child->getActive());
  EXPECT_FALSE(parent->getActive());
  EXPECT_FALSE(other->getActive());
}

TEST_F(kuScenegraphTest, ShowNodesOfAnEmptyListChangesNothing) {
  const auto node = scene.group("Roof");
  SceneBuilder::setActive(node, false);
  kuScenegraph::showNodes({});
  EXPECT_FALSE(node->getActive());
  EXPECT_EQ(HostState::the().showNodesCalls, 1u);
}

TEST_F(kuScenegraphTest, PoolIsThatOfThePresentScene) {
  const auto red = scene.material("Red");
  const osg::MaterialPoolPtr pool = kuScenegraph::getMaterialPool();
  EXPECT_THAT(kuStandalone::ScenePool::of(pool).materials(), ElementsAre(red));
}

TEST_F(kuScenegraphTest, RootNodeIsTheRootInTheFormOfSearches) {
  EXPECT_TRUE(kuScenegraph::getRootNode().isValid());
  EXPECT_EQ(kuScenegraph::getRootNode().getNode(), scene.root());
}

TEST_F(kuScenegraphTest, UpdateAsksForAFrame) {
  kuScenegraph::update(false);
  EXPECT_EQ(HostState::the().renderRequests, 1u);
  EXPECT_FALSE(HostState::the().lastRenderRequestNow);
  kuScenegraph::update(true);
  EXPECT_TRUE(HostState::the().lastRenderRequestNow);
}

TEST_F(kuScenegraphTest, EnvironmentSwitchIsTheFirstThatIsMarked) {
  scene.switchNode("Plain", 0, {"A"});
  const auto group = scene.group("Group");
  const auto first = scene.switchNode("First", 0, {"Studio"}, group);
  const auto second = scene.switchNode("Second", 0, {"Street"});
  for (const auto& node : {second, first})
    SwitchCore::of(node->getCore()).environment = true;
  EXPECT_EQ(kuScenegraph::environmentGeometrySwitch(), first);
}

TEST_F(kuScenegraphTest, SceneWithoutAMarkedSwitchHasNoEnvironmentSwitch) {
  scene.switchNode("Plain", 0, {"A"});
  EXPECT_EQ(kuScenegraph::environmentGeometrySwitch(), osg::NullFC);
}
