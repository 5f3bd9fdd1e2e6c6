#include <limits>

#include "PictureTest.h"
#include "standalone/rendering/CutPlane.h"
#include "standalone/rendering/Environment.h"
#include "standalone/rendering/ToneMapping.h"
#include "standalone/script/ClippingSettings.h"

using namespace kuStandalone;

namespace {

constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();
constexpr float infinite = std::numeric_limits<float>::infinity();

/** A red wall, cut by a plane through the origin of which nothing shows at first. */
class ClippingPictureTest : public PictureTest {
 protected:
  ClippingPictureTest() : clipping(ClippingSettings::the()) {
    clipping.enabled = true;
    clipping.showPlane = clipping.showGrid = clipping.showContour = false;
    clipping.contourColor = {0, 1, 0};
  }

  void wall() {
    lookStraight();
    shown("Wall", mesh(quad(-1, -1, 1, 1), unlit(1, 0, 0)));
    load();
  }
  std::string seen(int side = 4) {
    return text(picture(side), {{'r', {1, 0, 0}}, {'b', {0, 0, 1}}});
  }
  std::string cutBy(const osg::Vec3f& normal) {
    clipping.normal = normal;
    return seen(2);
  }
  /** The picture's rows with '#' where the contour's pure colour stands. */
  std::string contour(int side) {
    const QImage drawn = picture(side);
    std::string text;
    for (int y = 0; y < side; ++y) {
      for (int x = 0; x < side; ++x)
        text += isNear(drawn.pixel(x, y), qRgb(0, 255, 0), 2) ? '#' : '.';
      text += '\n';
    }
    return text;
  }

  ClippingSettings& clipping;
};

}  // namespace

TEST_F(ClippingPictureTest, TheHalfThatTheNormalPointsToIsGone) {
  wall();
  clipping.normal = {1, 0, 0};
  EXPECT_EQ(seen(), "rr..\nrr..\nrr..\nrr..\n");
  clipping.normal = {0, 1, 0};
  EXPECT_EQ(seen(), "....\n....\nrrrr\nrrrr\n");
}

TEST_F(ClippingPictureTest, InvertTakesTheOtherHalf) {
  wall();
  clipping.normal = {1, 0, 0};
  clipping.invert = true;
  EXPECT_EQ(seen(), "..rr\n..rr\n..rr\n..rr\n");
}

TEST_F(ClippingPictureTest, ThePlaneGoesThroughItsPosition) {
  wall();
  clipping.normal = {1, 0, 0};
  clipping.position = {0.5f, 30, -7};
  EXPECT_EQ(seen(), "rrr.\nrrr.\nrrr.\nrrr.\n");
}

TEST_F(ClippingPictureTest, NothingIsCutWhileClippingIsOff) {
  wall();
  clipping.normal = {1, 0, 0};
  clipping.enabled = false;
  clipping.hideScene = clipping.showContour = clipping.showPlane = clipping.showGrid = true;
  EXPECT_EQ(seen(2), "rr\nrr\n");
}

TEST_F(ClippingPictureTest, TheNormalMayHaveAnyLength) {
  wall();
  EXPECT_EQ(cutBy({1e-20f, 0, 0}), "r.\nr.\n");
  EXPECT_EQ(cutBy({-1e30f, 0, 0}), ".r\n.r\n");
  EXPECT_EQ(cutBy({3e38f, 3e38f, 0}).substr(1, 1), ".");
}

TEST_F(ClippingPictureTest, APlaneWithoutDirectionOrPlaceIsIgnored) {
  wall();
  clipping.hideScene = clipping.showContour = clipping.showPlane = clipping.showGrid = true;
  EXPECT_EQ(cutBy({0, 0, 0}), "rr\nrr\n");
  EXPECT_EQ(cutBy({notANumber, 1, 0}), "rr\nrr\n");
  EXPECT_EQ(cutBy({infinite, 0, 0}), "rr\nrr\n");
  for (const float bad : {notANumber, infinite}) {
    clipping.position = {bad, 0, 0};
    EXPECT_EQ(cutBy({1, 0, 0}), "rr\nrr\n");
  }
}

TEST_F(ClippingPictureTest, WhatIsCutOpenShowsItsInside) {
  lookStraight();
  shown("Front", mesh(quad(-1, -1, 1, 1, 0.5f), unlit(1, 0, 0)));
  shown("Back", mesh(quad(-1, -1, 1, 1, 0.5f), unlit(0, 0, 1)), R"("rotation":[0,1,0,0])");
  load();
  clipping.normal = {0, 0, 1};
  EXPECT_EQ(seen(2), "bb\nbb\n");
  clipping.enabled = false;
  EXPECT_EQ(seen(2), "rr\nrr\n");
  SceneBuilder::setActive(find("Front"), false);
  EXPECT_EQ(seen(2), "..\n..\n");
}

TEST_F(ClippingPictureTest, TheContourIsDrawnWhereThePlaneCutsInItsWidth) {
  wall();
  clipping.showContour = true;
  clipping.contourWidth = 2;
  const std::string none(8, '.'), line(8, '#');
  const auto rows = [&](std::initializer_list<int> lines) {
    std::string all;
    for (int row = 0; row < 8; ++row)
      all += (std::find(lines.begin(), lines.end(), row) != lines.end() ? line : none) + '\n';
    return all;
  };
  EXPECT_EQ(contour(8), rows({3, 4}));
  clipping.contourWidth = 4;
  EXPECT_EQ(contour(8), rows({2, 3, 4, 5}));
  clipping.contourWidth = 0;
  EXPECT_EQ(contour(8), rows({}));
  clipping.contourWidth = 2;
  clipping.showContour = false;
  EXPECT_EQ(contour(8), rows({}));
}

TEST_F(ClippingPictureTest, AContourOfAnAbsurdWidthIsDrawn) {
  wall();
  clipping.showContour = true;
  clipping.contourWidth = std::numeric_limits<int>::max();
  EXPECT_EQ(contour(2), "##\n##\n");
  clipping.contourWidth = std::numeric_limits<int>::min();
  EXPECT_EQ(contour(2), "..\n..\n");
}

TEST_F(ClippingPictureTest, ThePartOfTheContourBehindSomethingIsNotDrawn) {
  // Seen along +x: the wall is turned by 45 degrees about the line in which it is cut.
  const int lens =
      camera(R"("type":"orthographic","orthographic":{"xmag":1,"ymag":1,"znear":0.01,"zfar":100})");
  node(R"("name":"Camera","rotation":[0,-0.70710678,0,0.70710678],"translation":[-5,0,0],)"
       R"("camera":)" +
       QByteArray::number(lens));
  shown("Wall", mesh(quad(-1, -1, 1, 1), unlit({1, 0, 0, 1}, R"("doubleSided":true)")),
        R"("rotation":[0,0.38268343,0,0.92387953])");
  shown("Before", mesh(quad(-1, 0, 1, 1), unlit({0, 0, 1, 1}, R"("doubleSided":true)")),
        R"("rotation":[0,0.70710678,0,0.70710678],"translation":[-2,0,0])");
  load();
  clipping.normal = {1, 0, 0};
  clipping.showContour = true;
  clipping.contourWidth = 2;
  const std::string drawn = contour(8);
  EXPECT_EQ(drawn.substr(0, 3 * 9), "........\n........\n........\n");
  EXPECT_EQ(drawn.substr(5 * 9), "...##...\n...##...\n...##...\n");
  // Without what is before it the whole line shows.
  SceneBuilder::setActive(find("Before"), false);
  EXPECT_EQ(contour(8).substr(0, 3 * 9), "...##...\n...##...\n...##...\n");
}

TEST_F(ClippingPictureTest, AHiddenSceneLeavesTheCutAlone) {
  wall();
  clipping.hideScene = true;
  EXPECT_EQ(seen(2), "..\n..\n");
  clipping.showContour = true;
  clipping.contourWidth = 2;
  EXPECT_EQ(contour(4), "....\n####\n####\n....\n");
}

TEST_F(ClippingPictureTest, ThePlaneLiesOverWhatIsBehindInItsColor) {
  wall();
  clipping.normal = {0, 0, 1};
  clipping.position = {0, 0, 1};
  clipping.showPlane = true;
  clipping.planeColor = {0, 0, 1};
  const QRgb seenThrough = picture(1).pixel(0, 0);
  const QVector3D red = toneMapped({1, 0, 0});
  const QVector3D mixed = red * 0.78f + QVector3D(0, 0, 1) * 0.22f;
  EXPECT_TRUE(
      isNear(seenThrough, qRgb(srgbByte(mixed.x()), srgbByte(mixed.y()), srgbByte(mixed.z()))));
  clipping.showPlane = false;
  EXPECT_EQ(seen(1), "r\n");
}

TEST_F(ClippingPictureTest, ThePlaneIsHiddenByWhatIsBeforeIt) {
  wall();
  clipping.normal = {0, 0, -1};
  clipping.position = {0, 0, -1};
  clipping.showPlane = clipping.showGrid = true;
  EXPECT_EQ(seen(2), "rr\nrr\n");
}

TEST_F(ClippingPictureTest, ThePlaneReachesALittleBeyondTheScene) {
  lookStraight();
  // With the room around it the pane ends just within the two pixels in the middle.
  shown("Small", mesh(quad(-0.44f, -0.44f, 0.44f, 0.44f), unlit(1, 0, 0)));
  load();
  clipping.normal = {0, 0, 1};
  clipping.position = {0, 0, 1};
  clipping.hideScene = clipping.showPlane = true;
  EXPECT_EQ(text(picture(4), {}), "....\n.??.\n.??.\n....\n");
}

TEST(CutPlane, GridLinesHaveTheirColorAndThePaneItsOwn) {
  ClippingSettings settings;
  settings.enabled = true;
  settings.normal = {0, 0, 1};
  settings.planeColor = {1, 0, 0};
  settings.gridColor = {0, 1, 0};
  Bounds bounds;
  bounds.least = {-6, -6, -6};
  bounds.most = {6, 6, 6};
  const QVector3D onLine(2, 0.5f, 0), between(0.5f, 0.5f, 0);
  const auto plane = [&] { return CutPlane(settings, *cutAway(settings), bounds); };
  EXPECT_EQ(plane().colorAt(onLine), QVector4D(0, 1, 0, 0.85f));
  EXPECT_EQ(plane().colorAt(between), QVector4D(1, 0, 0, 0.22f));
  settings.showPlane = false;
  EXPECT_EQ(plane().colorAt(onLine).w(), 0.85f);
  EXPECT_EQ(plane().colorAt(between).w(), 0);
  settings.showPlane = true;
  settings.showGrid = false;
  EXPECT_EQ(plane().colorAt(onLine), QVector4D(1, 0, 0, 0.22f));
}
