#include <cmath>

#include "PictureTest.h"
#include "standalone/scene/Cores.h"

using namespace kuStandalone;

namespace {

QImage pixel(int r, int g, int b) {
  QImage image(1, 1, QImage::Format_RGB32);
  image.setPixel(0, 0, qRgb(r, g, b));
  return image;
}

/** One surface that fills the picture, and a lamp on the right and above that may be off. */
class MaterialPictureTest : public PictureTest {
 protected:
  MaterialPictureTest() {
    lookStraight();
    // It shines along (-1, -1, -sqrt 2), by 45 degrees.
    const int lamp = light(R"("type":"directional","intensity":1.5)");
    node(R"("name":"Lamp","matrix":[0.70710678,-0.70710678,0,0,)"
         R"(-0.5,-0.5,0.70710678,0, 0.5,0.5,0.70710678,0, 0,0,0,1],)"
         R"("extensions":{"KHR_lights_punctual":{"light":)" +
         QByteArray::number(lamp) + "}}");
  }

  QByteArray grey(const QByteArray& pbr = {}) {
    return R"("pbrMetallicRoughness":{"baseColorFactor":[0.25,0.25,0.25,1],)" +
           (pbr.isEmpty() ? QByteArray(R"("metallicFactor":0,"roughnessFactor":1)") : pbr) + "}";
  }
  QByteArray number(int value) { return QByteArray::number(value); }

  QImage of(const QByteArray& members, const QByteArray& place = {}) {
    shown("Quad", mesh(quad(-1, -1, 1, 1), material(members)), place);
    load();
    return picture(2, 2, 16);
  }
  void lampOff() { LightCore::of(find("Lamp")->getCore()).on = false; }
  /** What the lamp adds on a surface whose normal map says that. */
  double lit(const QImage& normal, const QByteArray& place = {}) {
    const QImage on =
        of(grey() + R"(,"normalTexture":{"index":)" + number(texture(normal)) + "}", place);
    lampOff();
    return level(on.pixel(0, 0)) - level(picture(2, 2, 16).pixel(0, 0));
  }
};

// What the surface sends for the lamp at a cosine: its even part, and a little of its facets.
double scattered(double cosine) { return (0.25 * 0.96 + 0.04 / 4) / 3.14159265 * 1.5 * cosine; }

}  // namespace

TEST_F(MaterialPictureTest, EmissiveLightIsAdded) {
  const int plain = material(grey());
  const int bright = material(grey() + R"(,"emissiveFactor":[0.1,0.1,0.1])");
  const int strong = material(
      grey() + R"(,"emissiveFactor":[0.05,0.05,0.05],)"
               R"("extensions":{"KHR_materials_emissive_strength":{"emissiveStrength":3}})");
  const int textured =
      material(grey() + R"(,"emissiveFactor":[0.1,0.1,0.1],)" + R"("emissiveTexture":{"index":)" +
               number(texture(pixel(188, 188, 188))) + "}");
  std::vector<double> levels;
  for (const int look : {plain, bright, strong, textured})
    shown(("Quad" + std::to_string(look)).c_str(), mesh(quad(-1, -1, 1, 1), look),
          R"("extensions":{"KHR_node_visibility":{"visible":false}})");
  load();
  lampOff();
  for (const int look : {plain, bright, strong, textured}) {
    const osg::NodePtr node = find(("Quad" + std::to_string(look)).c_str());
    SceneBuilder::setActive(node, true);
    levels.push_back(level(picture(2, 2, 16).pixel(0, 0)));
    SceneBuilder::setActive(node, false);
  }
  EXPECT_NEAR(levels[1] - levels[0], 0.1, 0.005);
  EXPECT_NEAR(levels[2] - levels[0], 0.15, 0.005);
  // 188 is half of the light.
  EXPECT_NEAR(levels[3] - levels[0], 0.05, 0.005);
}

TEST_F(MaterialPictureTest, AFlatNormalMapChangesNothing) {
  EXPECT_NEAR(lit(pixel(128, 128, 255)), scattered(std::sqrt(0.5)), 0.008);
}

TEST_F(MaterialPictureTest, ANormalMapBendsTheSurfaceToThePicturesRightAndUp) {
  // Half to the right and half up: just at the lamp.
  EXPECT_NEAR(lit(pixel(191, 191, 218)), scattered(1), 0.008);
}

TEST_F(MaterialPictureTest, ANormalMapBendsTheSurfaceAway) {
  EXPECT_NEAR(lit(pixel(64, 64, 218)), 0, 0.01);
}

TEST_F(MaterialPictureTest, ANormalMapsGreenPointsUpInThePicture) {
  // Up by 45 degrees: the cosine is 1/2 + 1/(2 sqrt 2).
  EXPECT_NEAR(lit(pixel(128, 218, 218)), scattered(0.8536), 0.008);
}

TEST_F(MaterialPictureTest, AMirrorMirrorsTheNormalMapAcrossAndNotUp) {
  EXPECT_NEAR(lit(pixel(128, 218, 218), R"("scale":[-1,1,1])"), scattered(0.8536), 0.008);
}

TEST_F(MaterialPictureTest, AMirrorTurnsAround) {
  EXPECT_NEAR(lit(pixel(64, 191, 218), R"("scale":[-1,1,1])"), scattered(1), 0.008);
}

TEST_F(MaterialPictureTest, TheNormalScaleMakesABumpFlatter) {
  const QImage on = of(grey() + R"(,"normalTexture":{"scale":0,"index":)" +
                       number(texture(pixel(64, 64, 218))) + "}");
  EXPECT_TRUE(isNear(on.pixel(1, 1), picture(2, 2, 16).pixel(1, 1)));
  lampOff();
  EXPECT_NEAR(level(on.pixel(0, 0)) - level(picture(2, 2, 16).pixel(0, 0)),
              scattered(std::sqrt(0.5)), 0.008);
}

TEST_F(MaterialPictureTest, ATextureOfMetalAndRoughnessIsMultipliedWithTheFactors) {
  const int look = texture(pixel(0, 51, 51));
  const int textured = material(grey(R"("metallicFactor":1,"roughnessFactor":1,)"
                                     R"("metallicRoughnessTexture":{"index":)" +
                                     number(look) + "}"));
  const int plain = material(grey(R"("metallicFactor":0.2,"roughnessFactor":0.2)"));
  const int other = material(grey(R"("metallicFactor":1,"roughnessFactor":1)"));
  const int quadOf = mesh(quad(-1, -1, 1, 1), textured);
  node(R"("name":"Group","extras":{"materialGroup":{"material":)" + number(textured) + "}}",
       {shown("Quad", quadOf)});
  node(R"("name":"Plain","extras":{"materialGroup":{"material":)" + number(plain) + "}}");
  node(R"("name":"Other","extras":{"materialGroup":{"material":)" + number(other) + "}}");
  load();
  const QImage fromTexture = picture(4, 4, 16);
  MaterialGroupCore& group = MaterialGroupCore::of(find("Group")->getCore());
  const osg::MaterialPtr first = group.material;
  group.material = MaterialGroupCore::of(find("Plain")->getCore()).material;
  const QImage fromFactors = picture(4, 4, 16);
  group.material = MaterialGroupCore::of(find("Other")->getCore()).material;
  const QImage fromOther = picture(4, 4, 16);
  group.material = first;
  for (int at = 0; at < 16; ++at) {
    const int x = at % 4, y = at / 4;
    EXPECT_TRUE(isNear(fromTexture.pixel(x, y), fromFactors.pixel(x, y))) << at;
  }
  EXPECT_FALSE(isNear(fromTexture.pixel(1, 1), fromOther.pixel(1, 1), 3));
}

TEST_F(MaterialPictureTest, OcclusionTakesLightFromAllAroundByItsStrength) {
  const int dark = texture(pixel(0, 255, 255));
  std::vector<double> levels;
  for (const char* strength : {"0", "0.5", "1"}) {
    const int look = material(grey() + R"(,"occlusionTexture":{"index":)" + number(dark) +
                              R"(,"strength":)" + strength + "}");
    shown(strength, mesh(quad(-1, -1, 1, 1), look),
          R"("extensions":{"KHR_node_visibility":{"visible":false}})");
  }
  load();
  lampOff();
  for (const char* strength : {"0", "0.5", "1"}) {
    SceneBuilder::setActive(find(strength), true);
    levels.push_back(level(picture(2, 2, 16).pixel(0, 0)));
    SceneBuilder::setActive(find(strength), false);
  }
  EXPECT_NEAR(levels[1], levels[0] / 2, 0.01);
  // Black: the level starts with what the tone mapping takes away.
  EXPECT_EQ(levels[2], 0.04);
}

TEST_F(MaterialPictureTest, OcclusionLeavesTheLampsAlone) {
  const QImage on =
      of(grey() + R"(,"occlusionTexture":{"index":)" + number(texture(pixel(0, 0, 0))) + "}");
  EXPECT_NEAR(level(on.pixel(0, 0)), scattered(std::sqrt(0.5)), 0.008);
}
