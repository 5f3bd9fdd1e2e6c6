#include "host/utils/kuSceneplateUtils.h"

#include "support/SceneTest.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class kuSceneplateUtilsTest : public SceneTest {
 protected:
  static std::vector<osg::NodePtr> found(const std::string& name) {
    std::vector<osg::NodePtr> nodes;
    kuSceneplateUtils::findNodes(name, nodes);
    return nodes;
  }
};

}  // namespace

TEST_F(kuSceneplateUtilsTest, SceneWithoutSceneplatesHasNoRootAndNoNodes) {
  EXPECT_EQ(kuSceneplateUtils::getSceneplateRoot(), osg::NullFC);
  EXPECT_THAT(kuSceneplateUtils::getAllNodes(), IsEmpty());
  EXPECT_THAT(found("Logo"), IsEmpty());
  EXPECT_EQ(kuSceneplateUtils::findNode("Logo"), osg::NullFC);
}

TEST_F(kuSceneplateUtilsTest, NodesOfANameStandDepthFirst) {
  const auto pages = scene.sceneplateSwitch("Pages", 0, {"Front", "Back"});
  const auto last = scene.sceneplate("Logo");
  const auto first = scene.sceneplate("Logo", pages);
  EXPECT_THAT(found("Logo"), ElementsAre(first, last));
  EXPECT_EQ(kuSceneplateUtils::findNode("Logo"), first);
}

TEST_F(kuSceneplateUtilsTest, RootItselfIsNotFound) {
  scene.sceneplate("Logo");
  EXPECT_THAT(found("Sceneplates"), IsEmpty());
}

TEST_F(kuSceneplateUtilsTest, NodesOfTheSceneAreNotFound) {
  scene.sceneplate("Logo");
  scene.group("Roof");
  EXPECT_EQ(kuSceneplateUtils::findNode("Roof"), osg::NullFC);
}

TEST_F(kuSceneplateUtilsTest, AllNodesAreSceneplatesAndSwitchesDepthFirst) {
  const auto pages = scene.sceneplateSwitch("Pages", 0, {"Front"});
  const auto group = scene.group("Group", scene.sceneplateRoot());
  const auto logo = scene.sceneplate("Logo", group);
  EXPECT_THAT(kuSceneplateUtils::getAllNodes(), ElementsAre(pages, pages->getChild(0), logo));
}
