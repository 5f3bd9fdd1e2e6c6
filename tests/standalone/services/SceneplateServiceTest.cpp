#include "host/services/kuSceneplateService.h"

#include "host/services/kuKernelServiceFactory.h"
#include "standalone/scene/SceneNode.h"
#include "support/SceneTest.h"

using kuStandalone::SceneNode;

namespace {

class SceneplateServiceTest : public SceneTest {
 protected:
  kuSceneplateService& service = *kuKernelServiceFactory::the().getService<kuSceneplateService>();
};

}  // namespace

TEST_F(SceneplateServiceTest, FindsTheNodesThatTheSceneplatesHaveInTheirOrder) {
  const auto group = scene.sceneplateSwitch("Pages", 0, {"Logo"});
  const auto second = scene.sceneplate("Logo");
  scene.group("Logo");
  const QList<kudNode> found = service.findNodes("Logo");
  ASSERT_EQ(found.size(), 2);
  EXPECT_EQ(found[0].getId(), SceneNode::of(group->getChild(0)).id());
  EXPECT_EQ(found[1].getId(), SceneNode::of(second).id());
}

TEST_F(SceneplateServiceTest, UnknownNameAndMissingSceneplatesGiveNothing) {
  EXPECT_TRUE(service.findNodes("Logo").isEmpty());
  scene.sceneplate("Logo");
  EXPECT_TRUE(service.findNodes("Banner").isEmpty());
}
