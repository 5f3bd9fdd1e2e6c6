#include "SceneCaptureTest.h"
#include "standalone/scene/SceneNode.h"
#include "support/CamerasInBetween.h"

using namespace kuStandalone;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Viewpoints and render layers in a capture.

namespace {

/** Keeps what was asked, and can answer that there are no tracks. */
class WatchedCameras final : public CamerasInBetween {
 public:
  kudCameraBaseNode getActiveCamera(int index) override {
    asked.push_back("getActiveCamera " + std::to_string(index));
    return own.getActiveCamera(index);
  }
  kudCameraBaseNode createViewpoint(const QString& name, const kudCameraTrackNode& track) override {
    asked.push_back("createViewpoint " + name.toStdString());
    return own.createViewpoint(name, track);
  }
  kudCameraTrackNode findSetNamedViewpointTrack(const kudCameraBaseNode& camera) override {
    asked.push_back("findSetNamedViewpointTrack " + camera.getName().toStdString());
    return hasTracks ? own.findSetNamedViewpointTrack(camera) : kudCameraTrackNode();
  }
  kudCameraTrackNode findViewSuffixedViewpointTrack(const kudCameraBaseNode& camera) override {
    asked.push_back("findViewSuffixedViewpointTrack " + camera.getName().toStdString());
    return hasTracks ? own.findViewSuffixedViewpointTrack(camera) : kudCameraTrackNode();
  }

  std::vector<std::string> asked;
  bool hasTracks = true;
};

class KuVariantsCaptureViewTest : public SceneCaptureTest {
 protected:
  void captureView(bool useSetNameForView) {
    CaptureFlags flags = only(&CaptureFlags::view);
    flags.useSetNameForView = useSetNameForView;
    capture(flags);
  }
  static Texts viewpoints() {
    Texts names;
    for (const Viewpoint& viewpoint : Scene::the().viewpoints)
      names.push_back(viewpoint.name);
    return names;
  }
};

}  // namespace

TEST_F(KuVariantsCaptureViewTest, ViewpointTakesTheSetsName) {
  scene.camera("Front");
  WatchedCameras cameras;
  captureView(true);
  EXPECT_THAT(content(), ElementsAre("viewpoint Set", "target Root"));
  EXPECT_EQ(set.getDefaultViewpoint(), "Set");
  EXPECT_THAT(viewpoints(), ElementsAre("Front", "Set"));
  EXPECT_THAT(cameras.asked, ElementsAre("getActiveCamera 0", "findSetNamedViewpointTrack Front",
                                         "createViewpoint Set"));
}

TEST_F(KuVariantsCaptureViewTest, ViewpointTakesTheSetsNameAndView) {
  scene.camera("Front");
  WatchedCameras cameras;
  captureView(false);
  EXPECT_THAT(content(), ElementsAre("viewpoint Set View", "target Root"));
  EXPECT_EQ(set.getDefaultViewpoint(), "Set View");
  EXPECT_THAT(viewpoints(), ElementsAre("Front", "Set View"));
  EXPECT_THAT(cameras.asked,
              ElementsAre("getActiveCamera 0", "findViewSuffixedViewpointTrack Front",
                          "createViewpoint Set View"));
}

TEST_F(KuVariantsCaptureViewTest, NameInUseGivesTheNameThatTheServiceReturns) {
  scene.camera("Set");
  captureView(true);
  ASSERT_EQ(viewpoints().size(), 2u);
  const std::string given = viewpoints().back();
  EXPECT_NE(given, "Set");
  EXPECT_THAT(content(), ElementsAre("viewpoint " + given, "target Root"));
  EXPECT_EQ(set.getDefaultViewpoint().toStdString(), given);
}

TEST_F(KuVariantsCaptureViewTest, ViewpointLooksThroughTheActiveCamera) {
  scene.camera("Front");
  scene.camera("Rear");
  Scene::the().activeViewpoint = "Rear";
  captureView(true);
  EXPECT_EQ(Scene::the().viewpoints.back().camera, 1u);
}

TEST_F(KuVariantsCaptureViewTest, SceneWithoutCameraGetsNoViewpoint) {
  WatchedCameras cameras;
  captureView(true);
  EXPECT_THAT(content(), ElementsAre("target Root"));
  EXPECT_EQ(set.getDefaultViewpoint(), "");
  EXPECT_EQ(inclInfo(set), "000010");
  EXPECT_THAT(cameras.asked, ElementsAre("getActiveCamera 0"));
}

TEST_F(KuVariantsCaptureViewTest, CameraWithoutTrackGetsNoViewpoint) {
  scene.camera("Front");
  WatchedCameras cameras;
  cameras.hasTracks = false;
  captureView(true);
  captureView(false);
  EXPECT_THAT(content(), ElementsAre("target Root"));
  EXPECT_THAT(cameras.asked,
              ElementsAre("getActiveCamera 0", "findSetNamedViewpointTrack Front",
                          "getActiveCamera 0", "findViewSuffixedViewpointTrack Front"));
}

TEST_F(KuVariantsCaptureViewTest, RefusedViewpointIsNotStored) {
  scene.camera("Front");
  kuVariantSet nameless;
  CaptureFlags flags = only(&CaptureFlags::view);
  flags.useSetNameForView = true;
  capture(nameless, flags, {scene.root()});
  EXPECT_THAT(content(nameless), ElementsAre("target Root"));
  EXPECT_EQ(nameless.getDefaultViewpoint(), "");
}

TEST_F(KuVariantsCaptureViewTest, HostWithoutCameraServiceGetsNoViewpoint) {
  scene.camera("Front");
  auto& services = kuKernelServiceFactory::the();
  auto* cameras = services.getService<kuCameraService>();
  services.registerService<kuCameraService>(nullptr);
  captureView(true);
  services.registerService<kuCameraService>(cameras);
  EXPECT_THAT(content(), ElementsAre("target Root"));
  EXPECT_EQ(inclInfo(set), "000010");
}

TEST_F(KuVariantsCaptureViewTest, RenderLayersAreStoredUnderTheSetsNameWhereTheyDeviate) {
  kuVariantSet& named = makeSet("Türen");
  const auto hidden = SceneBuilder::renderLayer(scene.geometry("Hood"));
  const auto usual = RenderLayer::create();
  SceneNode::of(scene.group("Car")).setRenderLayer(usual);
  capture(named, only(&CaptureFlags::renderLayers), {scene.root()});
  EXPECT_EQ(hidden->states(), (RayVisibilities{{"Türen", hidden->present()}}));
  EXPECT_THAT(usual->states(), IsEmpty());
  EXPECT_EQ(named.getScript(), "activateRenderLayerState(\"Türen\")");
}

TEST_F(KuVariantsCaptureViewTest, RenderLayersOfInactiveNodesAndClonesAreStored) {
  const osg::NodePtr car = scene.group("Car");
  const auto below = SceneBuilder::renderLayer(scene.group("Door", car));
  const auto inactive = SceneBuilder::renderLayer(car);
  SceneBuilder::setActive(car, false);
  const osg::NodePtr hood = scene.geometry("Hood");
  const auto clone = SceneBuilder::renderLayer(scene.clone(hood, "Copy"));
  capture(only(&CaptureFlags::renderLayers));
  EXPECT_EQ(inactive->states().count("Set"), 1u);
  EXPECT_EQ(clone->states().count("Set"), 1u);
  EXPECT_THAT(below->states(), IsEmpty());
}

TEST_F(KuVariantsCaptureViewTest, RenderLayerLineStandsWithoutAnyLayer) {
  capture(only(&CaptureFlags::renderLayers));
  EXPECT_EQ(set.getScript(), "activateRenderLayerState(\"Set\")");
}

TEST_F(KuVariantsCaptureViewTest, RenderLayerLineStandsLastAndTakesTheNameAsItIs) {
  kuVariantSet& named = makeSet("50 %1 \"x\"");
  scene.materialGroup("Trim", {});
  CaptureFlags flags = only(&CaptureFlags::renderLayers);
  flags.mats = true;
  capture(named, flags, {scene.root()});
  EXPECT_EQ(named.getScript(),
            "setIgnoreMaterialGroup(\"Trim\",false)\nactivateRenderLayerState(\"50 %1 \"x\"\")");
}
