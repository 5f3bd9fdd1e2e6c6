#include "standalone/scene/SceneNode.h"

#include "standalone/scene/NodeCoreFields.h"
#include "support/SceneTest.h"

using kuStandalone::SceneNode;
using ::testing::ElementsAre;

namespace {

class SceneNodeTest : public SceneTest {};

}  // namespace

TEST_F(SceneNodeTest, IdentifierLeadsToTheNodeWhileItLives) {
  osg::NodePtr node = SceneNode::create("Roof", osg::NullFC);
  const std::uint32_t id = SceneNode::of(node).id();
  EXPECT_EQ(SceneNode::byId(id), node.get());
  node = osg::NullFC;
  EXPECT_EQ(SceneNode::byId(id), nullptr);
}

TEST_F(SceneNodeTest, IdentifiersAreNeverUsedTwice) {
  const std::uint32_t first = SceneNode::of(SceneNode::create("a", osg::NullFC)).id();
  const std::uint32_t second = SceneNode::of(SceneNode::create("a", osg::NullFC)).id();
  EXPECT_LT(first, second);
  EXPECT_LT(second, SceneNode::newId());
}

TEST_F(SceneNodeTest, OriginalIsTheFirstParentOfItsCoreAndClonesFollow) {
  const auto original = scene.group("Door");
  const auto clone = scene.clone(original, "Copy");
  EXPECT_THAT(original->getCore()->hostFields().parents,
              ElementsAre(&SceneNode::of(original), &SceneNode::of(clone)));
}

TEST_F(SceneNodeTest, ChildrenAndParentAnswerByIndex) {
  const auto group = scene.group("Group");
  const auto a = scene.group("A", group);
  const auto b = scene.group("B", group);
  EXPECT_EQ(group->getNChildren(), 2u);
  EXPECT_EQ(group->getChild(1), b);
  EXPECT_EQ(group->getChild(2), osg::NullFC);
  EXPECT_EQ(a->getParent(), group);
}

TEST_F(SceneNodeTest, RemovedChildHasNoParentAndTheOthersMoveUp) {
  const auto group = scene.group("Group");
  const auto a = scene.group("A", group);
  const auto b = scene.group("B", group);
  SceneNode::of(group).removeChild(a);
  SceneNode::of(group).removeChild(scene.root());
  EXPECT_EQ(a->getParent(), osg::NullFC);
  EXPECT_EQ(group->getChild(0), b);
  EXPECT_EQ(SceneNode::of(b).indexInParent(), 0u);
}

TEST_F(SceneNodeTest, ChildHeldByAHandleOutlivesItsParent) {
  osg::NodePtr parent = SceneNode::create("Parent", osg::NullFC);
  const osg::NodePtr child = SceneNode::create("Child", osg::NullFC);
  SceneNode::of(parent).addChild(child);
  parent = osg::NullFC;
  EXPECT_EQ(child->getParent(), osg::NullFC);
}

TEST_F(SceneNodeTest, HandleIsCastByTheClassOfTheCore) {
  const auto core = scene.switchNode("Roof", 0, {})->getCore();
  EXPECT_NE(osg::SwitchPtr::dcast(core), osg::NullFC);
  EXPECT_NE(osg::GroupPtr::dcast(core), osg::NullFC);
  EXPECT_EQ(osg::GeometryPtr::dcast(core), osg::NullFC);
  EXPECT_EQ(osg::SwitchPtr::dcast(osg::NodeCorePtr()), osg::NullFC);
}
