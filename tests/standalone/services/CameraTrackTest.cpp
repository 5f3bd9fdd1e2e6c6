#include "host/services/kuCameraService.h"
#include "host/services/kuKernelServiceFactory.h"
#include "standalone/scene/SceneNode.h"
#include "support/SceneTest.h"

using kuStandalone::Scene;
using kuStandalone::SceneNode;
using kuStandalone::Transform;
using kuStandalone::Viewpoint;
using ::testing::ElementsAre;

namespace {

class CameraTrackTest : public SceneTest {
 protected:
  static unsigned addViewpoint(const std::string& name, std::size_t camera) {
    Viewpoint viewpoint;
    viewpoint.name = name;
    viewpoint.camera = camera;
    return Scene::the().addViewpoint(viewpoint).id;
  }

  static std::vector<std::string> viewpoints() {
    std::vector<std::string> names;
    for (const Viewpoint& viewpoint : Scene::the().viewpoints)
      names.push_back(viewpoint.name);
    return names;
  }

  kudCameraTrackNode trackOf(unsigned camera) {
    return service.findSetNamedViewpointTrack(kudCameraBaseNode(camera));
  }

  kuCameraService& service = *kuKernelServiceFactory::the().getService<kuCameraService>();
};

}  // namespace

TEST_F(CameraTrackTest, SceneWithoutCamerasHasNoActiveOne) {
  EXPECT_TRUE(service.getActiveCamera(0).isNull());
}

TEST_F(CameraTrackTest, FirstCameraIsActiveWhereNoViewpointIs) {
  const unsigned front = scene.camera("Front").id;
  scene.camera("");
  EXPECT_EQ(service.getActiveCamera(0).getId(), front);
}

TEST_F(CameraTrackTest, ActiveCameraIsTheActiveViewpoint) {
  scene.camera("Front");
  scene.camera("Back");
  const unsigned detail = addViewpoint("Detail", 1);
  Scene::the().activeViewpoint = "Detail";
  EXPECT_EQ(service.getActiveCamera(0).getId(), detail);
  EXPECT_EQ(service.getActiveCamera(0).getName(), "Detail");
}

TEST_F(CameraTrackTest, FirstOfTwoViewpointsOfTheActiveNameIsTheActiveOne) {
  scene.camera("Front");
  const unsigned first = addViewpoint("Detail", 0);
  addViewpoint("Detail", 0);
  Scene::the().activeViewpoint = "Detail";
  EXPECT_EQ(service.getActiveCamera(0).getId(), first);
}

TEST_F(CameraTrackTest, ViewpointThatLostItsCameraIsNotActive) {
  const unsigned front = scene.camera("Front").id;
  addViewpoint("Lost", 7);
  Scene::the().activeViewpoint = "Lost";
  EXPECT_EQ(service.getActiveCamera(0).getId(), front);
}

TEST_F(CameraTrackTest, CameraThatLostItsNodeOrHasNoViewpointIsNotActive) {
  scene.camera("Front");
  Scene::the().cameras.at(0).node = osg::NullFC;
  EXPECT_TRUE(service.getActiveCamera(0).isNull());
  scene = SceneBuilder();
  scene.camera("Front");
  Scene::the().viewpoints.clear();
  EXPECT_TRUE(service.getActiveCamera(0).isNull());
}

TEST_F(CameraTrackTest, EveryCameraHasATrackOfItsOwnForBothKindsOfViewpoints) {
  const unsigned front = scene.camera("Front").id, back = scene.camera("Back").id;
  const kudCameraTrackNode track = trackOf(front);
  EXPECT_FALSE(track.isNull());
  EXPECT_EQ(track.getName(), "Front");
  EXPECT_TRUE(track.isTypeOf(&kudCameraTrackNode::staticMetaObject));
  EXPECT_TRUE(track.isTypeOf(&kudNode::staticMetaObject));
  EXPECT_FALSE(track.isTypeOf(&kudCameraBaseNode::staticMetaObject));
  EXPECT_EQ(service.findViewSuffixedViewpointTrack(kudCameraBaseNode(front)).getId(),
            track.getId());
  EXPECT_NE(trackOf(back).getId(), track.getId());
  EXPECT_EQ(trackOf(addViewpoint("Detail", 0)).getId(), track.getId());
}

TEST_F(CameraTrackTest, WhatIsNoViewpointOfACameraHasNoTrack) {
  scene.camera("Front");
  for (const unsigned id : {0u, SceneNode::of(scene.group("Group")).id(), addViewpoint("Lost", 7),
                            trackOf(Scene::the().viewpoints.at(0).id).getId()}) {
    EXPECT_TRUE(trackOf(id).isNull()) << id;
    EXPECT_TRUE(service.findViewSuffixedViewpointTrack(kudCameraBaseNode(id)).isNull()) << id;
  }
}

TEST_F(CameraTrackTest, TrackHasNoPlaceAmongTheNodes) {
  kudCameraTrackNode track = trackOf(scene.camera("Front").id);
  track.setVisibilityFlag(true);
  EXPECT_FALSE(track.getVisibilityFlag());
  EXPECT_EQ(track.getChildCount(), 0u);
  EXPECT_TRUE(track.getChild(0).isNull());
}

TEST_F(CameraTrackTest, TrackIsGoneWithItsScene) {
  const kudCameraTrackNode track = trackOf(scene.camera("Front").id);
  scene = SceneBuilder();
  EXPECT_TRUE(track.isNull());
  EXPECT_EQ(track.getName(), "");
}

TEST_F(CameraTrackTest, NewViewpointLooksFromWhereItsCameraIsNow) {
  scene.camera("Front");
  const unsigned back = scene.camera("Back").id;
  Transform moved;
  moved.translation = {3, 2, 1};
  SceneNode::of(Scene::the().cameras.at(1).node).setTransform(moved);
  const kudCameraBaseNode made = service.createViewpoint("Set", trackOf(back));
  EXPECT_EQ(made.getName(), "Set");
  EXPECT_TRUE(made.isTypeOf(&kudCameraBaseNode::staticMetaObject));
  EXPECT_EQ(service.findCamera("Set").getId(), made.getId());
  const Viewpoint& viewpoint = Scene::the().viewpoints.back();
  EXPECT_EQ(viewpoint.camera, 1u);
  EXPECT_EQ(viewpoint.pose, moved);
  EXPECT_TRUE(viewpoint.named);
  EXPECT_EQ(Scene::the().activeViewpoint, "");
}

TEST_F(CameraTrackTest, UsedNameOfANewViewpointGetsANumber) {
  const unsigned front = scene.camera("Front").id;
  EXPECT_EQ(service.createViewpoint("Front", trackOf(front)).getName(), "Front1");
  EXPECT_EQ(service.createViewpoint("Front", trackOf(front)).getName(), "Front2");
  EXPECT_THAT(viewpoints(), ElementsAre("Front", "Front1", "Front2"));
}

TEST_F(CameraTrackTest, NewViewpointTakesNoNameOfACamera) {
  scene.camera("Back");
  const unsigned front = scene.camera("Front").id;
  auto& all = Scene::the().viewpoints;
  all.erase(all.begin());
  EXPECT_EQ(service.createViewpoint("Back", trackOf(front)).getName(), "Back1");
}

TEST_F(CameraTrackTest, ViewpointIsNotMadeWithoutANameATrackOrACamerasNode) {
  const unsigned front = scene.camera("Front").id;
  const kudCameraTrackNode track = trackOf(front);
  EXPECT_TRUE(service.createViewpoint("", track).isNull());
  EXPECT_TRUE(service.createViewpoint("Set", kudCameraTrackNode()).isNull());
  EXPECT_TRUE(service.createViewpoint("Set", kudCameraTrackNode(front)).isNull());
  Scene::the().cameras.at(0).node = osg::NullFC;
  EXPECT_TRUE(service.createViewpoint("Set", track).isNull());
  EXPECT_THAT(viewpoints(), ElementsAre("Front"));
}

TEST_F(CameraTrackTest, CameraThatTheSceneWasNotGivenProperlyHasNoTrack) {
  scene.camera("Front");
  Scene::the().cameras.at(0).track = 0;
  EXPECT_EQ(Scene::the().findTrack(0), nullptr);
  EXPECT_TRUE(service.createViewpoint("Set", kudCameraTrackNode()).isNull());
}
