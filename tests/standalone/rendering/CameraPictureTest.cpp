#include <cmath>

#include "PictureTest.h"
#include "standalone/rendering/View.h"

using namespace kuStandalone;

namespace {

const std::map<char, QVector3D> letters{{'r', {1, 0, 0}}, {'b', {0, 0, 1}}};

class CameraPictureTest : public PictureTest {
 protected:
  /** A camera at a distance from the origin, towards -z. */
  void lookFrom(double distance, const QByteArray& lens) {
    node(R"("name":"Camera","translation":[0,0,)" + QByteArray::number(distance) +
         R"(],"camera":)" + QByteArray::number(camera(lens)));
  }
  /** Half the view's height is 1 at distance 5. */
  static QByteArray perspective(const QByteArray& more = R"("znear":0.01)") {
    return R"("type":"perspective","perspective":{"yfov":)" +
           QByteArray::number(2 * std::atan(0.2), 'g', 12) + "," + more + "}";
  }
  void redSquare(float half, float z = 0) {
    shown("Square", mesh(quad(-half, -half, half, half, z), unlit(1, 0, 0)));
  }
};

}  // namespace

TEST_F(CameraPictureTest, PixelsInsideATriangleAreRedAndPixelsOutsideAreBackdrop) {
  Shape triangle;
  triangle.positions = {{-0.8f, -0.7f, 0}, {0.9f, -0.4f, 0}, {-0.1f, 0.85f, 0}};
  shown("Triangle", mesh(triangle, unlit(1, 0, 0)));
  lookStraight();
  load();
  const QImage seen = picture(24, 24, 4);
  // How many edges a corner of the pixel grid lies within.
  const auto isInside = [&](int x, int y) {
    const float px = float(x) / 12 - 1, py = 1 - float(y) / 12;
    bool inside = true;
    for (std::size_t at = 0; at < 3; ++at) {
      const QVector3D &a = triangle.positions[at], &b = triangle.positions[(at + 1) % 3];
      inside &= (b.x() - a.x()) * (py - a.y()) - (b.y() - a.y()) * (px - a.x()) > 0;
    }
    return inside;
  };
  int red = 0, backdrop = 0;
  for (int y = 0; y < 24; ++y) {
    for (int x = 0; x < 24; ++x) {
      const int corners =
          isInside(x, y) + isInside(x + 1, y) + isInside(x, y + 1) + isInside(x + 1, y + 1);
      if (corners == 4) {
        EXPECT_TRUE(isNear(seen.pixel(x, y), asShown({1, 0, 0}))) << x << ' ' << y;
        ++red;
      } else if (corners == 0 && (x < 2 || y < 1 || x > 22 || y > 21)) {
        EXPECT_TRUE(isBackdrop(seen, x, y)) << x << ' ' << y;
        ++backdrop;
      }
    }
  }
  EXPECT_GT(red, 100);
  EXPECT_GT(backdrop, 80);
}

TEST_F(CameraPictureTest, AnOrthographicCameraShowsTheSameSizeAtEveryDistance) {
  shown("Far", mesh(quad(-0.5f, -0.5f, 0, 0.5f, -3), unlit(1, 0, 0)));
  shown("Near", mesh(quad(0, -0.5f, 0.5f, 0.5f, 3), unlit(0, 0, 1)));
  lookStraight();
  load();
  EXPECT_EQ(text(picture(8), letters),
            "........\n........\n..rrbb..\n..rrbb..\n..rrbb..\n..rrbb..\n........\n........\n");
}

TEST_F(CameraPictureTest, APerspectiveCameraShowsWhatIsTwiceAsNearTwiceAsLarge) {
  shown("Far", mesh(quad(-0.5f, -0.5f, 0, 0.5f, 0), unlit(1, 0, 0)));
  shown("Near", mesh(quad(0, -0.375f, 0.375f, 0.375f, 2.5f), unlit(0, 0, 1)));
  // It keeps the shadow on the ground out of the picture.
  shown("Depth", mesh(quad(0, -60, 1, -59), unlit(0, 0, 1)));
  lookFrom(5, perspective());
  load();
  EXPECT_EQ(text(picture(8), letters),
            "........\n....bbb.\n..rrbbb.\n..rrbbb.\n..rrbbb.\n..rrbbb.\n....bbb.\n........\n");
}

TEST_F(CameraPictureTest, TheCamerasHeightFillsThePictureWhateverItsOwnAspect) {
  redSquare(0.5f);
  lookFrom(5, perspective(R"("znear":0.01,"aspectRatio":3)"));
  load();
  EXPECT_EQ(text(picture(8, 4), letters), "........\n...rr...\n...rr...\n........\n");
  EXPECT_EQ(text(picture(4, 8), letters), "....\n....\nrrrr\nrrrr\nrrrr\nrrrr\n....\n....\n");
}

TEST_F(CameraPictureTest, WhatIsBeforeTheNearPlaneDoesNotShow) {
  shown("Near", mesh(quad(-1, -1, 0, 1, 2), unlit(1, 0, 0)));
  shown("Far", mesh(quad(-1, -1, 1, 1, 0), unlit(0, 0, 1)));
  lookFrom(5, perspective(R"("znear":4)"));
  load();
  EXPECT_EQ(text(picture(2), letters), "bb\nbb\n");
}

TEST_F(CameraPictureTest, TheNearPlaneIsAPlaneAndNoSphere) {
  redSquare(1);
  // In the corners the square is 5.2 away.
  lookFrom(5, perspective(R"("znear":5.01)"));
  load();
  EXPECT_EQ(text(picture(2), letters), "..\n..\n");
}

TEST_F(CameraPictureTest, WhatIsBeyondTheFarPlaneDoesNotShow) {
  shown("Near", mesh(quad(-1, -1, 0, 1, 0), unlit(1, 0, 0)));
  shown("Far", mesh(quad(-1, -1, 1, 1, -1), unlit(0, 0, 1)));
  lookFrom(5, R"("type":"orthographic","orthographic":{"xmag":1,"ymag":1,"znear":0,"zfar":5.5})");
  load();
  EXPECT_EQ(text(picture(2), letters), "r.\nr.\n");
}

TEST_F(CameraPictureTest, TheActiveViewpointsCameraLooksAndElseTheFirst) {
  redSquare(1);
  lookStraight();
  const int lens = camera(R"("type":"orthographic","orthographic":{"xmag":2,"ymag":2,"znear":0.1,)"
                          R"("zfar":9})");
  node(R"("name":"Wide","translation":[0,0,5],"camera":)" + QByteArray::number(lens));
  load();
  EXPECT_EQ(text(picture(4), letters), "rrrr\nrrrr\nrrrr\nrrrr\n");
  Scene::the().activeViewpoint = "Wide";
  EXPECT_EQ(text(picture(4), letters), "....\n.rr.\n.rr.\n....\n");
}

TEST_F(CameraPictureTest, ACameraMovesWithTheNodesAboveIt) {
  redSquare(0.5f);
  const int lens = camera(R"("type":"orthographic","orthographic":{"xmag":1,"ymag":1,"znear":0.1,)"
                          R"("zfar":9})");
  const int inner =
      node(R"("name":"Camera","translation":[0.5,0,5],"camera":)" + QByteArray::number(lens));
  node(R"("name":"Crane","translation":[0,0.5,0])", {inner});
  load();
  EXPECT_EQ(text(picture(4), letters), "....\n....\nrr..\nrr..\n");
}

TEST_F(CameraPictureTest, AScaledOrMirroredCameraSeesAsAPlainOneDoes) {
  redSquare(0.5f);
  const int lens = camera(R"("type":"orthographic","orthographic":{"xmag":1,"ymag":1,"znear":0.1,)"
                          R"("zfar":9})");
  node(R"("name":"Camera","translation":[0.5,0,5],"scale":[-1e-7,1e-7,1e-7],"camera":)" +
       QByteArray::number(lens));
  load();
  EXPECT_EQ(text(picture(4), letters), "....\nrr..\nrr..\n....\n");
}

TEST_F(CameraPictureTest, WithoutACameraTheWholeSceneFillsThePicture) {
  struct Row {
    float x, y, z;
    int width, height;
  };
  for (const Row& row :
       {Row{1, 1, 1, 48, 48}, Row{9, 0.5f, 0.5f, 64, 24}, Row{0.1f, 6, 0.1f, 24, 48},
        Row{1, 1, 1, 24, 48}, Row{1e-4f, 1e-4f, 1e-4f, 48, 48}}) {
    Bounds bounds;
    bounds.least = {3, -2, 1};
    bounds.most = bounds.least + QVector3D(row.x, row.y, row.z);
    const View view = viewOfAll(bounds, float(row.width) / float(row.height));
    float least = 1, most = 0;
    for (int corner = 0; corner < 8; ++corner) {
      float x = -1, y = -1;
      ASSERT_TRUE(view.project(bounds.corner(corner), x, y));
      EXPECT_GT(std::min(x, y), 0) << row.x;
      EXPECT_LT(std::max(x, y), 1) << row.x;
      least = std::min({least, x, y});
      most = std::max({most, x, y});
    }
    EXPECT_GT(most - least, 0.92f) << row.x;
  }
}

TEST_F(CameraPictureTest, TheViewOfTheWholeSceneLeavesOutWhatIsHidden) {
  redSquare(1);
  shown("Off", mesh(quad(50, 50, 60, 60), unlit(0, 0, 1)),
        R"("extensions":{"KHR_node_visibility":{"visible":false}})");
  load();
  int red = 0;
  const QImage seen = picture(24);
  for (int y = 0; y < 24; ++y) {
    for (int x = 0; x < 24; ++x)
      red += isNear(seen.pixel(x, y), asShown({1, 0, 0}));
  }
  EXPECT_GT(red, 24 * 24 / 4);
}

TEST_F(CameraPictureTest, AnEmptySceneGivesTheBackdrop) {
  load();
  const QImage seen = picture(8, 6, 4);
  ASSERT_EQ(seen.size(), QSize(8, 6));
  EXPECT_EQ(text(seen, {}), "........\n........\n........\n........\n........\n........\n");
}
