#include "host/services/kudObject.h"

#include "host/services/kudCameraBaseNode.h"
#include "host/services/kudSwitchNode.h"
#include "standalone/scene/SceneNode.h"
#include "support/SceneTest.h"

using kuStandalone::SceneNode;

namespace {

class kudObjectTest : public SceneTest {
 protected:
  static std::uint32_t idOf(const osg::NodePtr& node) { return SceneNode::of(node).id(); }
};

}  // namespace

TEST_F(kudObjectTest, NumberZeroIsNull) {
  const kudSwitchNode object(0);
  EXPECT_TRUE(object.isNull());
  EXPECT_FALSE(object.isTypeOf(&kudObject::staticMetaObject));
  EXPECT_EQ(object.getName(), "");
  EXPECT_FALSE(object.getVisibilityFlag());
  EXPECT_EQ(object.getChildCount(), 0u);
  EXPECT_TRUE(object.getChild(0).isNull());
  EXPECT_EQ(object.getChoice(), -1);
}

TEST_F(kudObjectTest, ObjectOfADeadNodeBehavesAsNull) {
  osg::NodePtr node = SceneNode::create("Gone", kuStandalone::SwitchCore::create(1));
  kudSwitchNode object(idOf(node));
  EXPECT_FALSE(object.isNull());
  node = osg::NullFC;
  object.setVisibilityFlag(false);
  object.setChoice(0);
  EXPECT_TRUE(object.isNull());
  EXPECT_FALSE(object.isTypeOf(&kudNode::staticMetaObject));
  EXPECT_EQ(object.getChoice(), -1);
}

TEST_F(kudObjectTest, NodeOverASwitchCoreIsASwitchNode) {
  const kudNode object(idOf(scene.switchNode("Roof", 1, {"Open"})));
  EXPECT_TRUE(object.isTypeOf(&kudSwitchNode::staticMetaObject));
  EXPECT_TRUE(object.isTypeOf(&kudNode::staticMetaObject));
  EXPECT_TRUE(object.isTypeOf(&kudObject::staticMetaObject));
  EXPECT_FALSE(object.isTypeOf(&kudCameraBaseNode::staticMetaObject));
  EXPECT_FALSE(object.isTypeOf(nullptr));
}

TEST_F(kudObjectTest, NodeOverAnotherCoreIsAPlainNode) {
  const kudSwitchNode object(idOf(scene.group("Roof")));
  EXPECT_TRUE(object.isTypeOf(&kudNode::staticMetaObject));
  EXPECT_FALSE(object.isTypeOf(&kudSwitchNode::staticMetaObject));
  EXPECT_EQ(object.getChoice(), -1);
}

TEST_F(kudObjectTest, ViewpointIsACameraUnderItsName) {
  const kudNode object(scene.camera("Front").id);
  EXPECT_TRUE(object.isTypeOf(&kudCameraBaseNode::staticMetaObject));
  EXPECT_FALSE(object.isTypeOf(&kudSwitchNode::staticMetaObject));
  EXPECT_EQ(object.getName(), "Front");
}

TEST_F(kudObjectTest, AssignedObjectAddressesTheSameNode) {
  kudSwitchNode object(0);
  object.assign(kudNode(idOf(scene.switchNode("Roof", -2, {}))));
  EXPECT_FALSE(object.isNull());
  EXPECT_EQ(object.getName(), "Roof");
  EXPECT_EQ(object.getChoice(), -2);
}

TEST_F(kudObjectTest, VisibilityFlagIsTheOneOfTheNode) {
  const auto node = scene.sceneplate("Logo");
  kudNode object(idOf(node));
  object.setVisibilityFlag(false);
  EXPECT_FALSE(node->getActive());
  EXPECT_FALSE(object.getVisibilityFlag());
  SceneBuilder::setActive(node, true);
  EXPECT_TRUE(object.getVisibilityFlag());
}

TEST_F(kudObjectTest, ChoiceIsTheOneOfTheSwitch) {
  const auto node = scene.switchNode("Roof", 0, {"Open", "Shut"});
  kudSwitchNode object(idOf(node));
  object.setChoice(7);
  EXPECT_EQ(SceneBuilder::choice(node), 7);
  EXPECT_EQ(object.getChoice(), 7);
}

TEST_F(kudObjectTest, ChildrenAnswerByIndexAndBeyondItNull) {
  const kudNode object(idOf(scene.switchNode("Roof", 0, {"Open", "T\xC3\xBCr"})));
  ASSERT_EQ(object.getChildCount(), 2u);
  EXPECT_EQ(object.getChild(1).getName(), QString::fromUtf8("T\xC3\xBCr"));
  EXPECT_TRUE(object.getChild(2).isNull());
}
