#include "PictureTest.h"
#include "host/osg/EditCP.h"
#include "standalone/scene/RenderLayer.h"
#include "standalone/scene/SceneNode.h"
#include "standalone/script/ClippingSettings.h"

using namespace kuStandalone;

namespace {

constexpr RayVisibility everything;
constexpr RayVisibility noCamera{false, true, true};
constexpr RayVisibility noReflections{true, false, true};
constexpr RayVisibility noShadow{true, true, false};
constexpr RayVisibility nothing{false, false, false};

class RenderLayerPictureTest : public PictureTest {
 protected:
  /** Gives a node of the present scene its first layer, or changes the one that it has. */
  static void set(const char* name, const RayVisibility& visibility) {
    SceneNode& node = SceneNode::of(find(name));
    if (!node.renderLayer()) node.setRenderLayer(RenderLayer::create());
    const osg::EditCP edit(node.renderLayer(), RenderLayer::PresentFieldMask);
    node.renderLayer()->setPresent(visibility);
  }

  /**
   * To the left a mirror that looks to the right, to the right a green plate that the camera sees
   * and the mirror too. The plate, "Plate", lies in a group, "Group".
   */
  void mirrorAndPlate() {
    lookStraight();
    const Shape square = quad(-0.4f, -0.4f, 0.4f, 0.4f);
    const int mirror =
        material(R"("pbrMetallicRoughness":{"metallicFactor":1,"roughnessFactor":0})");
    shown("Mirror", mesh(square, mirror),
          R"("translation":[-0.5,0,0],"rotation":[0,0.38268343,0,0.92387953])");
    const int plate = shown("Plate", mesh(square, unlit(0, 1, 0)),
                            R"("translation":[0.5,0,0],"rotation":[0,-0.38268343,0,0.92387953])");
    node(R"("name":"Group")", {plate});
    load();
  }
  /** Whether the plate is green in the mirror, and whether it is so itself: "mirror", "plate". */
  std::string green() {
    const QImage seen = picture(16);
    const auto isGreen = [&](int x) {
      const QRgb pixel = seen.pixel(x, 8);
      return qGreen(pixel) > 150 && qRed(pixel) < 60 && qBlue(pixel) < 60;
    };
    return std::string(isGreen(4) ? "mirror " : "") + (isGreen(12) ? "plate" : "");
  }

  /**
   * From above, in 16 by 16 pixels: a grey floor, and a black plate, "Plate", that hangs over its
   * middle. A lamp throws the plate's shadow to the right. Without a floor a ground stands in.
   */
  void plateAbove(bool withFloor = true) {
    const int lens = camera(
        R"("type":"orthographic","orthographic":{"xmag":2,"ymag":2,"znear":0.01,"zfar":100})");
    node(R"("name":"Camera","translation":[0,5,0],)" + flat + R"(,"camera":)" +
         QByteArray::number(lens));
    const int grey = material(R"("pbrMetallicRoughness":{"baseColorFactor":[0.25,0.25,0.25,1],)"
                              R"("metallicFactor":0,"roughnessFactor":1})");
    const float half = withFloor ? 2 : 0.1f;
    shown("Floor", mesh(quad(-half, -half, half, half), grey), flat);
    const int black = unlit({0, 0, 0, 1}, R"("doubleSided":true)");
    shown("Plate", mesh(quad(-0.5f, -0.5f, 0.5f, 0.5f, 0.4f), black), flat);
    const int sun = light(R"("type":"directional","intensity":9)");
    node(R"("name":"Sun","matrix":[0,0,1,0, 0.70710678,0.70710678,0,0,)"
         R"(-0.70710678,0.70710678,0,0, 0,0,0,1],)"
         R"("extensions":{"KHR_lights_punctual":{"light":)" +
         QByteArray::number(sun) + "}}");
  }
  QImage fromAbove() { return picture(16, 16, 32); }
  /** How bright the shadow is beside the plate. */
  double inShadow() { return level(fromAbove().pixel(10, 8)); }
  /** How bright it is below the plate. */
  double below() { return level(fromAbove().pixel(8, 8)); }

  const QByteArray flat = R"("rotation":[-0.70710678,0,0,0.70710678])";
};

}  // namespace

TEST_F(RenderLayerPictureTest, WhatTheCameraDoesNotSeeShowsInAMirror) {
  mirrorAndPlate();
  EXPECT_EQ(green(), "mirror plate");
  set("Plate", noCamera);
  EXPECT_EQ(green(), "mirror ");
}

TEST_F(RenderLayerPictureTest, WhatReflectionsDoNotSeeShowsDirectly) {
  mirrorAndPlate();
  set("Plate", noReflections);
  EXPECT_EQ(green(), "plate");
}

TEST_F(RenderLayerPictureTest, WhatCastsNoShadowShowsDirectlyAndInAMirror) {
  mirrorAndPlate();
  set("Plate", noShadow);
  EXPECT_EQ(green(), "mirror plate");
}

TEST_F(RenderLayerPictureTest, ALayerOfTheFileCounts) {
  lookStraight();
  shown("Wall", mesh(quad(-1, -1, 1, 1), unlit(1, 0, 0)),
        R"("extras":{"renderLayer":{"camera":false}})");
  load();
  EXPECT_EQ(text(picture(2), {{'r', {1, 0, 0}}}), "..\n..\n");
}

TEST_F(RenderLayerPictureTest, WhatANodeHidesNoNodeBelowItShows) {
  mirrorAndPlate();
  set("Group", noCamera);
  EXPECT_EQ(green(), "mirror ");
  set("Plate", everything);
  EXPECT_EQ(green(), "mirror ");
  set("Plate", noReflections);
  EXPECT_EQ(green(), "");
  set("Group", everything);
  EXPECT_EQ(green(), "plate");
}

TEST_F(RenderLayerPictureTest, WhatCastsNoShadowIsSeenAndLeavesTheFloorLit) {
  plateAbove();
  load();
  const double dark = inShadow();
  set("Plate", noShadow);
  EXPECT_GT(inShadow(), dark + 0.2);
  EXPECT_TRUE(isNear(fromAbove().pixel(8, 8), asShown({0, 0, 0})));
}

TEST_F(RenderLayerPictureTest, WhatTheCameraDoesNotSeeCastsItsShadow) {
  plateAbove();
  load();
  const double dark = inShadow();
  set("Plate", noCamera);
  EXPECT_NEAR(inShadow(), dark, 0.01);
  EXPECT_FALSE(isNear(fromAbove().pixel(8, 8), asShown({0, 0, 0}), 20));
}

TEST_F(RenderLayerPictureTest, WhatCastsNoShadowTakesNoLightOfTheSkyAway) {
  plateAbove();
  load();
  SceneBuilder::setActive(find("Sun"), false);
  SceneBuilder::setActive(find("Plate"), false);
  const double open = below();
  SceneBuilder::setActive(find("Plate"), true);
  set("Plate", {false, false, true});
  EXPECT_LT(below(), open - 0.05);
  set("Plate", {false, true, false});
  EXPECT_NEAR(below(), open, 0.02);
}

TEST_F(RenderLayerPictureTest, ShadowsAreLeftOutAlsoWhereLightPassesThroughSomething) {
  plateAbove();
  const int glass = unlit({0, 0, 1, 0.5f}, R"("alphaMode":"BLEND")");
  shown("Glass", mesh(quad(-2, -2, -1.8f, -1.8f, 0.5f), glass), flat);
  load();
  const double dark = inShadow();
  ASSERT_TRUE(renderer.geometry().hasOpenings());
  set("Plate", noShadow);
  EXPECT_GT(inShadow(), dark + 0.2);
}

TEST_F(RenderLayerPictureTest, TheGroundThatStandsInShowsNoShadowOfWhatCastsNone) {
  plateAbove(false);
  load();
  EXPECT_FALSE(isBackdrop(fromAbove(), 10, 8));
  set("Plate", noShadow);
  EXPECT_TRUE(isBackdrop(fromAbove(), 10, 8));
}

TEST_F(RenderLayerPictureTest, WhatNoRaySeesIsAsIfHidden) {
  plateAbove(false);
  load();
  SceneBuilder::setActive(find("Plate"), false);
  const QImage hidden = fromAbove();
  const QVector3D highest = renderer.geometry().bounds().most;
  SceneBuilder::setActive(find("Plate"), true);
  set("Plate", nothing);
  EXPECT_EQ(fromAbove(), hidden);
  EXPECT_EQ(renderer.geometry().bounds().most, highest);
}

TEST_F(RenderLayerPictureTest, WhatTheCameraDoesNotSeeHasNoContour) {
  lookStraight();
  shown("Wall", mesh(quad(-1, -1, 1, 1), unlit(1, 0, 0)));
  load();
  ClippingSettings& clipping = ClippingSettings::the();
  clipping.enabled = clipping.showContour = true;
  clipping.normal = {0, 1, 0};
  clipping.contourColor = {0, 1, 0};
  clipping.contourWidth = 2;
  EXPECT_TRUE(isNear(picture(8).pixel(4, 4), qRgb(0, 255, 0), 2));
  set("Wall", noCamera);
  EXPECT_EQ(text(picture(8), {}).find('?'), std::string::npos);
}

TEST_F(RenderLayerPictureTest, AChangeCostsOneBuildOfTheTopmostLevel) {
  mirrorAndPlate();
  picture(2);
  const std::uint64_t meshes = renderer.geometry().meshBuilds();
  const std::uint64_t tops = renderer.geometry().topBuilds();
  set("Plate", noCamera);
  picture(2);
  picture(2);
  EXPECT_EQ(renderer.geometry().meshBuilds(), meshes);
  EXPECT_EQ(renderer.geometry().topBuilds(), tops + 1);
  set("Plate", everything);
  EXPECT_EQ(green(), "mirror plate");
  EXPECT_EQ(renderer.geometry().topBuilds(), tops + 2);
}
