#include "host/services/kuKernelServiceFactory.h"
#include "host/services/kuTransformService.h"
#include "standalone/scene/SceneNode.h"
#include "support/SceneTest.h"

using kuStandalone::SceneNode;
using QRPC::NodeTrafoId;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class TransformServiceTest : public SceneTest {
 protected:
  static NodeTrafoId to(const osg::NodePtr& node, int index) {
    return NodeTrafoId(SceneNode::of(node).id(), index);
  }
  static void switchTo(const QList<NodeTrafoId>& states) {
    kuKernelServiceFactory::the().getService<kuTransformService>()->switchTransformVariants(states,
                                                                                            0, 0);
  }
};

}  // namespace

TEST_F(TransformServiceTest, ChoiceAndSupposedIndexMoveTogether) {
  const auto door = scene.transforms("Door", {"Shut", "Open"}, 0, -1);
  switchTo({to(door, 1)});
  EXPECT_EQ(SceneBuilder::transformChoice(door), 1u);
  EXPECT_EQ(SceneBuilder::supposedIndex(door), 1);
}

TEST_F(TransformServiceTest, EveryListedNodeIsSwitched) {
  const auto left = scene.transforms("Left", {"Shut", "Open"}, 0, 0);
  const auto right = scene.transforms("Right", {"Shut", "Open"}, 1, 1);
  switchTo({to(left, 1), to(right, 0)});
  EXPECT_EQ(SceneBuilder::supposedIndex(left), 1);
  EXPECT_EQ(SceneBuilder::supposedIndex(right), 0);
}

TEST_F(TransformServiceTest, IndexWithoutAStateIsPassedOverWithAWarning) {
  const auto door = scene.transforms("Door", {"Shut", "Open"}, 1, 0);
  switchTo({to(door, 2), to(door, -1)});
  EXPECT_EQ(SceneBuilder::transformChoice(door), 1u);
  EXPECT_EQ(SceneBuilder::supposedIndex(door), 0);
  EXPECT_THAT(log, ElementsAre("warning: Node 'Door' has no transform state 2",
                               "warning: Node 'Door' has no transform state -1"));
}

TEST_F(TransformServiceTest, UnknownNodesAndOtherNodesArePassedOver) {
  const auto door = scene.transforms("Door", {"Shut", "Open"}, 0, 0);
  switchTo({NodeTrafoId(0, 1), to(scene.group("Group"), 1), to(scene.bare("Bare"), 1),
            NodeTrafoId(SceneNode::newId(), 1), to(door, 1)});
  EXPECT_EQ(SceneBuilder::supposedIndex(door), 1);
  EXPECT_THAT(log, IsEmpty());
}
