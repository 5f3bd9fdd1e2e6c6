#include "host/services/kuCameraService.h"
#include "host/services/kuKernelServiceFactory.h"
#include "standalone/kernel/HostState.h"
#include "standalone/scene/SceneNode.h"
#include "support/SceneTest.h"

using kuStandalone::HostState;
using kuStandalone::Scene;
using kuStandalone::SceneNode;
using kuStandalone::Transform;
using kuStandalone::Viewpoint;

namespace {

Transform movedTo(double x) {
  Transform transform;
  transform.translation = {x, 0, 0};
  return transform;
}

class CameraServiceTest : public SceneTest {
 protected:
  /** A further viewpoint of the first camera. */
  static unsigned addViewpoint(const std::string& name, double x) {
    Viewpoint viewpoint;
    viewpoint.name = name;
    viewpoint.pose = movedTo(x);
    return Scene::the().addViewpoint(viewpoint).id;
  }

  static const Transform& placeOfCamera() {
    return SceneNode::of(Scene::the().cameras.at(0).node).transform();
  }

  kuCameraService& service = *kuKernelServiceFactory::the().getService<kuCameraService>();
};

}  // namespace

TEST_F(CameraServiceTest, CameraIsFoundByTheNameOfItsViewpoint) {
  const unsigned id = scene.camera("Front").id;
  EXPECT_EQ(service.findCamera("Front").getId(), id);
  EXPECT_EQ(service.findCamera("Front").getName(), "Front");
}

TEST_F(CameraServiceTest, UnknownAndEmptyNamesGiveANullCamera) {
  scene.camera("Front");
  EXPECT_TRUE(service.findCamera("Back").isNull());
  EXPECT_TRUE(service.findCamera("").isNull());
}

TEST_F(CameraServiceTest, FirstOfTwoViewpointsOfOneNameWins) {
  scene.camera("Front");
  const unsigned first = addViewpoint("Detail", 1);
  addViewpoint("Detail", 2);
  EXPECT_EQ(service.findCamera("Detail").getId(), first);
}

TEST_F(CameraServiceTest, ActivationPutsTheCameraIntoThePoseOfTheViewpoint) {
  scene.camera("Front");
  const unsigned id = addViewpoint("Detail", 3);
  service.activateCamera(id, false, false, true);
  EXPECT_EQ(Scene::the().activeViewpoint, "Detail");
  EXPECT_EQ(placeOfCamera(), movedTo(3));
}

TEST_F(CameraServiceTest, ActivationOfAnUnknownIdentifierChangesNothing) {
  scene.camera("Front");
  addViewpoint("Detail", 3);
  const unsigned node = SceneNode::of(scene.group("Group")).id();
  service.activateCamera(0, false, false, true);
  service.activateCamera(node, false, true, true);
  EXPECT_EQ(Scene::the().activeViewpoint, "");
  EXPECT_EQ(placeOfCamera(), Transform());
}

TEST_F(CameraServiceTest, ViewpointWithoutCameraIsOnlyLookedThrough) {
  service.activateCamera(addViewpoint("Lost", 3), false, false, true);
  EXPECT_EQ(Scene::the().activeViewpoint, "Lost");
}

TEST_F(CameraServiceTest, RefreshAsksForAFrameOfAKnownCameraOnly) {
  const unsigned id = scene.camera("Front").id;
  service.refreshCamera(0, true);
  EXPECT_EQ(HostState::the().renderRequests, 0u);
  service.refreshCamera(id, true);
  EXPECT_EQ(HostState::the().renderRequests, 1u);
}
