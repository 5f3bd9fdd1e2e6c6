#include <limits>

#include "PictureTest.h"
#include "standalone/gltf/GltfSource.h"
#include "standalone/rendering/Texture.h"
#include "standalone/scene/SceneNode.h"

using namespace kuStandalone;

namespace {

constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();
constexpr float infinite = std::numeric_limits<float>::infinity();

/** A good red square in the left half, and beside it what is bad. */
class HostilePictureTest : public PictureTest {
 protected:
  HostilePictureTest() {
    red = unlit(1, 0, 0);
    blue = unlit(0, 0, 1);
    lookStraight();
    shown("Good", mesh(quad(-1, -1, 0, 1), red));
  }
  std::string seen() {
    load();
    return text(picture(2), {{'r', {1, 0, 0}}, {'b', {0, 0, 1}}, {'w', {1, 1, 1}}});
  }
  /** What shows where a white surface has that texture. */
  std::string withTexture(int look) {
    shown("Bad", mesh(quad(0, -1, 1, 1), material(R"("extensions":{"KHR_materials_unlit":{}},)"
                                                  R"("pbrMetallicRoughness":{"baseColorTexture":)"
                                                  R"({"index":)" +
                                                  QByteArray::number(look) + "}}")));
    return seen();
  }
  /** The header of a PNG file of that size, and nothing more. */
  static QByteArray pngHeader(quint32 width, quint32 height) {
    QByteArray bytes("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16);
    for (const quint32 number : {width, height}) {
      for (const int shift : {24, 16, 8, 0})
        bytes += char(number >> shift & 255);
    }
    return bytes + QByteArray("\x08\x06\0\0\0\0\0\0\0", 9);
  }

  int red, blue;
};

}  // namespace

TEST_F(HostilePictureTest, ABrokenTextureIsAsIfThereWereNone) {
  EXPECT_EQ(withTexture(textureOf(image("this is no picture"))), "rw\nrw\n");
}

TEST_F(HostilePictureTest, ATextureWithoutAPictureIsAsIfThereWereNone) {
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(withTexture(textureOf(image(pngHeader(100000, 100000)))), "rw\nrw\n");
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

TEST_F(HostilePictureTest, DegenerateTrianglesAreLeftOut) {
  Shape shape;
  shape.positions = {{0, 0, 1}, {1, 1, 1}, {0.5f, 0.5f, 1}, {0, 0, 1}};
  shape.indices = {0, 1, 2, 0, 0, 1, 3, 0, 1, 2, 2, 2};
  shown("Bad", mesh(shape, blue));
  EXPECT_EQ(seen(), "r.\nr.\n");
}

TEST_F(HostilePictureTest, TrianglesWithVerticesThatAreNoNumbersAreLeftOut) {
  for (const float bad : {notANumber, infinite, -infinite, 1e30f, -3e38f}) {
    Shape shape = quad(0, -1, 1, 1);
    shape.positions.emplace_back(bad, 0, 0);
    shape.texcoords.clear();
    shape.indices.insert(shape.indices.end(), {0, 1, 4, 4, 2, 3});
    shown("Bad", mesh(shape, blue));
  }
  EXPECT_EQ(seen(), "rb\nrb\n");
  EXPECT_LT(renderer.geometry().bounds().size().length(), 5);
}

TEST_F(HostilePictureTest, NumbersThatAreNoneSpoilNoOtherAttribute) {
  Shape shape = quad(0, -1, 1, 1);
  shape.normals = {{0, 0, 0}, {notANumber, 0, 0}, {infinite, 1, 0}, {0, 0, 1}};
  shape.tangents = {{0, 0, 0, 0}, {notANumber, 0, 0, 1}, {infinite, 1, 0, 1}, {1, 0, 0, 1}};
  shape.texcoords = {{notANumber, 0}, {infinite, 1}, {1e38f, -1e38f}, {0, 0}};
  shape.colors.assign(4, {notANumber, 1, 1, 1});
  QImage pixel(1, 1, QImage::Format_RGB32);
  pixel.fill(0xFF8080FF);
  const QByteArray look = QByteArray::number(texture(pixel));
  shown("Bad", mesh(shape, material(R"("normalTexture":{"index":)" + look +
                                    R"(},"emissiveFactor":[1,1,1],"emissiveTexture":{"index":)" +
                                    look + "}")));
  load();
  const QRgb lit = picture(2, 2, 8).pixel(1, 1);
  EXPECT_GT(qBlue(lit), 100);
}

TEST_F(HostilePictureTest, ASceneThatIsFarTooLargeGivesAPictureOfTheRest) {
  shown("Far", mesh(quad(0, 0, 1, 1), blue), R"("scale":[1e30,1e30,1e30])");
  shown("Out", mesh(quad(0, 0, 1, 1), blue), R"("translation":[1e300,0,0])");
  shown("Flat", mesh(quad(0, 0, 1, 1), blue), R"("scale":[0,1,1])");
  shown("Turned", mesh(quad(0, 0, 1, 1), blue), R"("matrix":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,1])");
  EXPECT_EQ(seen(), "r.\nr.\n");
}

TEST_F(HostilePictureTest, ACameraInsideGeometryShowsWhatItSees) {
  load();
  Scene::the().cameras.front().znear = 0;
  Transform at;
  at.translation = {-0.5, 0, 0};
  SceneNode::of(Scene::the().cameras.front().node).setTransform(at);
  EXPECT_FALSE(picture(4).isNull());
}

TEST_F(HostilePictureTest, ACameraThatCannotSeeGivesTheViewOfTheWholeScene) {
  load();
  Camera& camera = Scene::the().cameras.front();
  SceneNode& node = SceneNode::of(camera.node);
  Scene without;
  const auto redPixels = [&] {
    const QImage taken = picture(8);
    int count = 0;
    for (int at = 0; at < 64; ++at)
      count += isNear(taken.pixel(at % 8, at / 8), asShown({1, 0, 0}));
    return count;
  };
  const double huge = 1e300, none = double(notANumber);
  Transform flat, far, lost;
  flat.scale = {0, 0, 0};
  far.translation = {huge, 0, 0};
  lost.rotation = {none, none, none, none};
  for (const Transform& bad : {flat, far, lost}) {
    node.setTransform(bad);
    EXPECT_GT(redPixels(), 8);
  }
  node.setTransform(Transform());
  for (const double bad : {0.0, -1.0, none, huge}) {
    camera.ymag = bad;
    EXPECT_GT(redPixels(), 8) << bad;
  }
}

TEST_F(HostilePictureTest, PointsAndLinesShowNothing) {
  for (const int mode : {0, 1, 2, 3}) {
    Shape shape = quad(0, -1, 1, 1);
    shape.mode = mode;
    shown("Bad", mesh(shape, blue));
  }
  EXPECT_EQ(seen(), "r.\nr.\n");
}

TEST_F(HostilePictureTest, StripsAndFansShowTheirTriangles) {
  Shape strip = quad(0, 0, 1, 1), fan = quad(0, -1, 1, 0);
  strip.mode = 5;
  strip.indices = {0, 1, 3, 2};
  fan.mode = 6;
  fan.indices = {0, 1, 2, 3};
  shown("Strip", mesh(strip, blue));
  shown("Fan", mesh(fan, red));
  EXPECT_EQ(seen(), "rb\nrr\n");
}

TEST_F(HostilePictureTest, LightsOfAbsurdStrengthAndPlaceSpoilNoPicture) {
  const int grey = material("");
  shown("Wall", mesh(quad(0, -1, 1, 1), grey));
  const auto lamp = [&](const QByteArray& members, const QByteArray& place) {
    node(place + R"(,"extensions":{"KHR_lights_punctual":{"light":)" +
         QByteArray::number(light(members)) + "}}");
  };
  lamp(R"("type":"point","intensity":1e300)", R"("translation":[0,0,1])");
  lamp(R"("type":"point","intensity":-5,"color":[-1,2,1e39])", R"("translation":[0,0,1])");
  lamp(R"("type":"directional","intensity":1)", R"("scale":[0,0,0])");
  lamp(R"("type":"point","intensity":1)", R"("translation":[1e300,0,0])");
  lamp(R"("type":"spot","intensity":1,"range":-1,"spot":{"innerConeAngle":9,"outerConeAngle":-9})",
       R"("translation":[0.5,0,0])");
  load();
  const QImage lit = picture(4, 4, 4);
  EXPECT_TRUE(isNear(lit.pixel(0, 0), asShown({1, 0, 0})));
  EXPECT_GT(qGreen(lit.pixel(3, 0)), 30);
}

TEST_F(HostilePictureTest, PicturesOfAbsurdSizeAreRefusedByTheirHeader) {
  image(pngHeader(16385, 1));
  image(pngHeader(4294967295U, 4294967295U));
  image(pngHeader(0, 0));
  image(QByteArray("\xff\xd8\xff\xe0", 4), "image/jpeg");
  load();
  const auto* source = dynamic_cast<const GltfSource*>(Scene::the().source.get());
  ASSERT_NE(source, nullptr);
  ::testing::internal::CaptureStderr();
  for (const int index : {-1, 0, 1, 2, 3, 4})
    EXPECT_TRUE(readImage(*source, index).isNull()) << index;
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}
