#include "host/utils/kuUberCameraPool.h"

#include "support/SceneTest.h"

using kuStandalone::Scene;
using kuStandalone::Viewpoint;

namespace {

class kuUberCameraPoolTest : public SceneTest {
 protected:
  static kudCameraBaseNode found(const std::string& name) {
    return kuUberCameraPool::the().findViewpoint(name);
  }
};

}  // namespace

TEST_F(kuUberCameraPoolTest, ViewpointIsFoundByItsExactName) {
  scene.camera("Front");
  const std::uint32_t back = scene
                                 .camera(
                                     "R\xc3\xbc"
                                     "ck")
                                 .id;
  EXPECT_EQ(found("R\xc3\xbc"
                  "ck")
                .getId(),
            back);
  EXPECT_FALSE(found("R\xc3\xbc"
                     "ck")
                   .isNull());
  EXPECT_TRUE(found("front").isNull());
  EXPECT_TRUE(found("Fron").isNull());
  EXPECT_TRUE(found("").isNull());
}

TEST_F(kuUberCameraPoolTest, ViewpointThatIsNoCameraIsFound) {
  scene.camera("Front");
  Viewpoint named;
  named.name = "Detail";
  named.named = true;
  const std::uint32_t id = Scene::the().addViewpoint(named).id;
  EXPECT_EQ(found("Detail").getId(), id);
}

TEST_F(kuUberCameraPoolTest, FirstOfEqualNamesWins) {
  const std::uint32_t first = scene.camera("Front").id;
  scene.camera("Front");
  EXPECT_EQ(found("Front").getId(), first);
}

TEST_F(kuUberCameraPoolTest, NodeIsNoViewpoint) {
  scene.group("Front");
  EXPECT_TRUE(found("Front").isNull());
}

TEST_F(kuUberCameraPoolTest, AnotherSceneHasItsOwnViewpoints) {
  scene.camera("Front");
  scene = SceneBuilder();
  EXPECT_TRUE(found("Front").isNull());
}

TEST_F(kuUberCameraPoolTest, ThereIsOnePool) {
  EXPECT_EQ(&kuUberCameraPool::the(), &kuUberCameraPool::the());
}
