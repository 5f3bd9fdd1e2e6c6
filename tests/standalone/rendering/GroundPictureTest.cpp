#include "PictureTest.h"

using namespace kuStandalone;

namespace {

/** A block of a base of 0.5 by 0.5 that stands at y = 0, seen from above. */
class GroundPictureTest : public PictureTest {
 protected:
  void lookDown() {
    const int lens = camera(
        R"("type":"orthographic","orthographic":{"xmag":2,"ymag":2,"znear":0.01,"zfar":100})");
    node(R"("name":"Camera","rotation":[-0.70710678,0,0,0.70710678],"translation":[0,5,0],)"
         R"("camera":)" +
         QByteArray::number(lens));
  }
  int block(float bottom) {
    Shape shape;
    for (int corner = 0; corner < 8; ++corner)
      shape.positions.emplace_back(corner & 1 ? 0.25f : -0.25f, bottom + (corner & 2 ? 1.0f : 0.0f),
                                   corner & 4 ? 0.25f : -0.25f);
    shape.indices = {0, 2, 1, 1, 2, 3, 4, 5, 6, 5, 7, 6, 0, 1, 4, 1, 5, 4,
                     2, 6, 3, 3, 6, 7, 0, 4, 2, 2, 4, 6, 1, 3, 5, 3, 7, 5};
    return shown("Block", mesh(shape, unlit(1, 0, 0)));
  }
  int floor(float half, const QByteArray& more = {}) {
    return shown("Floor", mesh(quad(-half, -half, half, half), unlit(0, 1, 0)),
                 R"("rotation":[-0.70710678,0,0,0.70710678])" +
                     QByteArray(more.isEmpty() ? "" : ",") + more);
  }
  static double brightness(const QImage& picture, int x, int y) {
    return level(picture.pixel(x, y));
  }
};

}  // namespace

TEST_F(GroundPictureTest, AShadowLiesBesideTheThingAndFadesAway) {
  lookDown();
  block(0);
  load();
  const QImage seen = picture(16, 16, 64);
  EXPECT_TRUE(isNear(seen.pixel(8, 8), asShown({1, 0, 0})));
  // Beside the block most of half the sky is blocked, at the rim almost nothing.
  const double beside = brightness(seen, 9, 8), farther = brightness(seen, 11, 8),
               rim = brightness(seen, 15, 8), backdrop = 0.04 + 0.81;
  EXPECT_LT(beside, backdrop - 0.2);
  EXPECT_GT(farther, beside + 0.05);
  EXPECT_GT(rim, backdrop - 0.12);
}

TEST_F(GroundPictureTest, ALampsShadowFallsOnTheGround) {
  lookDown();
  block(0);
  const int sun = light(R"("type":"directional","intensity":9)");
  // By 45 degrees towards +x: the block of height 1 throws its shadow as far.
  node(R"("name":"Sun","matrix":[0,0,1,0, 0.70710678,0.70710678,0,0,)"
       R"(-0.70710678,0.70710678,0,0, 0,0,0,1],)"
       R"("extensions":{"KHR_lights_punctual":{"light":)" +
       QByteArray::number(sun) + "}}");
  load();
  const QImage seen = picture(16, 16, 32);
  EXPECT_LT(brightness(seen, 11, 8), brightness(seen, 4, 8) - 0.2);
  EXPECT_GT(brightness(seen, 15, 8), brightness(seen, 11, 8) + 0.2);
}

TEST_F(GroundPictureTest, NoGroundStandsInWhereTheSceneHasAFloor) {
  lookDown();
  block(0);
  floor(1);
  load();
  const QImage seen = picture(16, 16, 4);
  for (int x = 0; x < 16; ++x) {
    const bool onFloor = x >= 4 && x < 12;
    if (x == 7 || x == 8) continue;
    EXPECT_TRUE(onFloor ? isNear(seen.pixel(x, 8), asShown({0, 1, 0})) : isBackdrop(seen, x, 8))
        << x;
  }
}

TEST_F(GroundPictureTest, AFloorThatIsHiddenIsNone) {
  lookDown();
  block(0);
  floor(1, R"("extensions":{"KHR_node_visibility":{"visible":false}})");
  load();
  EXPECT_LT(brightness(picture(16, 16, 64), 9, 8), 0.65);
}

TEST_F(GroundPictureTest, AFlatThingAloneStandsOnAGround) {
  lookDown();
  floor(0.5f);
  block(1);
  load();
  // The block hovers, so that the plate below it is the floor; alone it is the thing itself.
  SceneBuilder::setActive(find("Block"), false);
  const QImage seen = picture(8, 8, 16);
  EXPECT_TRUE(isNear(seen.pixel(4, 4), asShown({0, 1, 0})));
  EXPECT_TRUE(isBackdrop(seen, 0, 0));
}

TEST_F(GroundPictureTest, TheGroundIsNotSeenFromBelow) {
  const int lens =
      camera(R"("type":"orthographic","orthographic":{"xmag":2,"ymag":2,"znear":0.01,"zfar":100})");
  node(R"("name":"Camera","rotation":[0.70710678,0,0,0.70710678],"translation":[0,-5,0],)"
       R"("camera":)" +
       QByteArray::number(lens));
  block(0);
  load();
  const QImage seen = picture(16);
  for (int at = 0; at < 256; ++at) {
    const int x = at % 16, y = at / 16;
    const bool onBlock = (x == 7 || x == 8) && (y == 7 || y == 8);
    EXPECT_TRUE(onBlock ? isNear(seen.pixel(x, y), asShown({1, 0, 0})) : isBackdrop(seen, x, y))
        << x << ' ' << y;
  }
}
