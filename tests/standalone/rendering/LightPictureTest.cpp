#include <cmath>

#include "PictureTest.h"
#include "standalone/scene/Cores.h"
#include "standalone/scene/SceneNode.h"

using namespace kuStandalone;

namespace {

constexpr double pi = 3.14159265358979;
/** So dark that no sample of the environment is bright enough to be compressed. */
constexpr double base = 0.25;

/** A grey wall without gloss that fills the picture, and one lamp. */
class LightPictureTest : public PictureTest {
 protected:
  LightPictureTest() {
    lookStraight();
    const int grey = material(R"("pbrMetallicRoughness":{"baseColorFactor":[0.25,0.25,0.25,1],)"
                              R"("metallicFactor":0,"roughnessFactor":1})");
    shown("Wall", mesh(quad(-1, -1, 1, 1), grey));
  }

  void lamp(const QByteArray& members, const QByteArray& place) {
    node(R"("name":"Lamp",)" + place + R"(,"extensions":{"KHR_lights_punctual":{"light":)" +
         QByteArray::number(light(members)) + "}}");
  }
  /** What the lamp adds at each pixel. */
  std::vector<std::vector<double>> added(int side, int samples = 8) {
    load();
    LightCore& core = LightCore::of(find("Lamp")->getCore());
    const QImage bright = picture(side, side, samples);
    core.on = false;
    const QImage dark = picture(side, side, samples);
    std::vector<std::vector<double>> all(static_cast<std::size_t>(side));
    for (int y = 0; y < side; ++y) {
      for (int x = 0; x < side; ++x)
        all[std::size_t(y)].push_back(level(bright.pixel(x, y)) - level(dark.pixel(x, y)));
    }
    return all;
  }
  /** What the wall sends for light of that strength: its even part, and a little of its facets. */
  static double scattered(double strength) { return (base * 0.96 + 0.04 / 4) / pi * strength; }
};

/** The rotation by which a lamp shines aside by an angle, so that its light comes from +x. */
QByteArray fromTheSide(double angle) {
  return R"("rotation":[0,)" + QByteArray::number(std::sin(angle / 2), 'g', 12) + ",0," +
         QByteArray::number(std::cos(angle / 2), 'g', 12) + "]";
}

}  // namespace

TEST_F(LightPictureTest, ALampThatIsOffAddsNothing) {
  lamp(R"("type":"directional","intensity":1)", R"("extras":{"on":false})");
  load();
  const QImage off = picture(4);
  LightCore::of(find("Lamp")->getCore()).on = true;
  const QImage on = picture(4);
  EXPECT_GT(level(on.pixel(2, 2)), level(off.pixel(2, 2)) + 0.05);
  SceneNode::of(find("Lamp")).setActiveFlag(false);
  EXPECT_EQ(picture(4), off);
}

TEST_F(LightPictureTest, ADirectionalLightAddsByTheCosineToTheNormal) {
  lamp(R"("type":"directional","intensity":2)", fromTheSide(pi / 3));
  EXPECT_NEAR(added(3)[1][1], scattered(2) * 0.5, 0.006);
}

TEST_F(LightPictureTest, ADirectionalLightFromTheFrontAddsItsWholeStrength) {
  lamp(R"("type":"directional","intensity":2)", R"("translation":[7,8,-9])");
  EXPECT_NEAR(added(3)[1][1], scattered(2), 0.006);
}

TEST_F(LightPictureTest, ADirectionalLightFromBehindAddsNothing) {
  lamp(R"("type":"directional","intensity":9)", fromTheSide(pi * 0.75));
  EXPECT_EQ(added(3)[1][1], 0);
}

TEST_F(LightPictureTest, ALightsColorIsMultipliedWithTheSurfaces) {
  lamp(R"("type":"directional","intensity":2,"color":[0,1,0])", R"("translation":[0,0,1])");
  load();
  const QRgb lit = picture(1, 1, 8).pixel(0, 0);
  EXPECT_GT(qGreen(lit), qRed(lit) + 25);
  EXPECT_EQ(qRed(lit), qBlue(lit));
}

TEST_F(LightPictureTest, APointLightFallsOffWithTheSquareOfTheDistance) {
  lamp(R"("type":"point","intensity":8)", R"("translation":[0,0,2])");
  EXPECT_NEAR(added(9)[4][4], scattered(8) / 4, 0.006);
}

TEST_F(LightPictureTest, APointLightThatIsHalfAsFarAgainAddsLessThanHalf) {
  lamp(R"("type":"point","intensity":8)", R"("translation":[0,0,3])");
  EXPECT_NEAR(added(9)[4][4], scattered(8) / 9, 0.006);
}

TEST_F(LightPictureTest, ALightHasNoEffectBeyondItsRange) {
  lamp(R"("type":"point","intensity":80,"range":1.9)", R"("translation":[0,0,2])");
  for (const std::vector<double>& row : added(4)) {
    for (const double amount : row)
      EXPECT_EQ(amount, 0);
  }
}

TEST_F(LightPictureTest, ALightFadesTowardsItsRange) {
  lamp(R"("type":"point","intensity":8,"range":2.5)", R"("translation":[0,0,2])");
  EXPECT_NEAR(added(9)[4][4], scattered(8) / 4 * (1 - std::pow(0.8, 4)), 0.006);
}

TEST_F(LightPictureTest, ASpotLightsItsConeAlone) {
  // At the wall the full light is a disc of radius 0.5, the cone one of 0.6.
  lamp(R"("type":"spot","intensity":8,"spot":{"innerConeAngle":0.244979,)"
       R"("outerConeAngle":0.291457})",
       R"("translation":[0,0,2])");
  const auto amounts = added(16);
  EXPECT_NEAR(amounts[8][8], scattered(8) / 4, 0.006);
  for (int y = 0; y < 16; ++y) {
    for (int x = 0; x < 16; ++x) {
      const double across = std::abs(x - 7.5) / 8, down = std::abs(y - 7.5) / 8;
      const double radius = std::hypot(across, down), half = 0.0884;
      const double amount = amounts[std::size_t(y)][std::size_t(x)];
      if (radius + half < 0.5) {
        EXPECT_GT(amount, 0.1) << x << ' ' << y;
      } else if (radius - half > 0.6) {
        EXPECT_EQ(amount, 0) << x << ' ' << y;
      }
    }
  }
}

TEST_F(LightPictureTest, TheShadowFallsWhereTheLightsWayIsBlocked) {
  // Light from 45 degrees aside: what stands 1 before the wall throws its shadow 1 to the left.
  shown("Blocker", mesh(quad(-0.25f, -0.5f, 0.25f, 0.5f, 1), unlit(0, 0, 0)));
  lamp(R"("type":"directional","intensity":2)", fromTheSide(pi / 4));
  const auto amounts = added(8);
  for (const std::size_t row : {3U, 4U}) {
    EXPECT_EQ(amounts[row][0], 0) << row;
    EXPECT_NEAR(amounts[row][1], scattered(2) * std::sqrt(0.5), 0.006) << row;
    EXPECT_GT(amounts[row][7], 0.07) << row;
  }
  EXPECT_GT(amounts[0][0], 0.07);
  EXPECT_GT(amounts[7][0], 0.07);
}

TEST_F(LightPictureTest, WhatIsHiddenThrowsNoShadow) {
  shown("Blocker", mesh(quad(-0.25f, -0.5f, 0.25f, 0.5f, 1), unlit(0, 0, 0)),
        R"("extensions":{"KHR_node_visibility":{"visible":false}})");
  lamp(R"("type":"directional","intensity":2)", fromTheSide(pi / 4));
  EXPECT_GT(added(8)[3][0], 0.07);
}

TEST_F(LightPictureTest, WhatIsHalfTransparentThrowsHalfAShadow) {
  shown("Blocker", mesh(quad(-0.25f, -0.5f, 0.25f, 0.5f, 1),
                        unlit({0, 0, 0, 0.5f}, R"("alphaMode":"BLEND")")));
  lamp(R"("type":"directional","intensity":2)", fromTheSide(pi / 4));
  EXPECT_NEAR(added(8)[3][0], scattered(2) * std::sqrt(0.5) / 2, 0.006);
}

TEST_F(LightPictureTest, WhatIsBehindAPointLightThrowsNoShadow) {
  shown("Shade", mesh(quad(-1, -1, -0.5f, 1, 3), unlit(0, 0, 0)), R"("translation":[2.5,0,0])");
  lamp(R"("type":"point","intensity":8)", R"("translation":[0,0,2])");
  EXPECT_NEAR(added(9)[4][4], scattered(8) / 4, 0.006);
}

TEST_F(LightPictureTest, ASpotFadesBetweenItsCones) {
  lamp(R"("type":"spot","intensity":8,"spot":{"innerConeAngle":0,"outerConeAngle":0.463648})",
       R"("translation":[0,0,2])");
  // The middle of the pixel, and the cosine there.
  const double squared = 0.625 * 0.625 + 0.125 * 0.125 + 4, cosine = 2 / std::sqrt(squared);
  const double edge = std::cos(0.463648), share = (cosine - edge) / (1 - edge);
  EXPECT_NEAR(added(8, 32)[4][6], scattered(8) / squared * cosine * share * share, 0.01);
}
