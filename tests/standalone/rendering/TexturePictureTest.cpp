#include "PictureTest.h"

using namespace kuStandalone;

namespace {

const std::map<char, QVector3D> letters{
    {'r', {1, 0, 0}}, {'g', {0, 1, 0}}, {'b', {0, 0, 1}}, {'w', {1, 1, 1}}};

QImage imageOf(int width, int height, const std::vector<QRgb>& pixels) {
  QImage image(width, height, QImage::Format_ARGB32);
  for (std::size_t at = 0; at < pixels.size(); ++at)
    image.setPixel(int(at) % width, int(at) / width, pixels[at]);
  return image;
}

constexpr QRgb red = 0xFFFF0000, green = 0xFF00FF00, blue = 0xFF0000FF, white = 0xFFFFFFFF;

class TexturePictureTest : public PictureTest {
 protected:
  TexturePictureTest() { lookStraight(); }

  /** An unlit material of a texture. */
  int textured(int texture, const QByteArray& info = {}, const QByteArray& more = {}) {
    return material(R"("extensions":{"KHR_materials_unlit":{}},"pbrMetallicRoughness":)"
                    R"({"baseColorTexture":{"index":)" +
                    QByteArray::number(texture) + (info.isEmpty() ? "" : ",") + info + "}}" +
                    (more.isEmpty() ? "" : ",") + more);
  }
  int fourColors() { return texture(imageOf(2, 2, {red, green, blue, white})); }

  /** What a texture of two pixels, red and green, shows from -1 to 2 in a row. */
  std::string row(const QByteArray& wrap) {
    Shape shape = quad(-6, -1, 6, 1);
    for (QVector2D& at : shape.texcoords)
      at.setX(at.x() * 3 - 1);
    const int look = texture(imageOf(2, 1, {red, green}), R"("magFilter":9728,"wrapS":)" + wrap);
    shown("Quad", mesh(shape, textured(look)));
    load();
    return text(picture(6, 1), letters);
  }
  std::string column(const QByteArray& wrap) {
    Shape shape = quad(-1, -1, 1, 1);
    for (QVector2D& at : shape.texcoords)
      at.setY(at.y() * 3 - 1);
    const int look = texture(imageOf(1, 2, {red, green}), R"("magFilter":9728,"wrapT":)" + wrap);
    shown("Quad", mesh(shape, textured(look)));
    load();
    return text(picture(1, 6), letters);
  }
  std::string transformed(const QByteArray& transform) {
    shown("Quad", mesh(quad(-1, -1, 1, 1),
                       textured(fourColors(),
                                R"("extensions":{"KHR_texture_transform":{)" + transform + "}}")));
    load();
    return text(picture(4), letters);
  }
};

}  // namespace

TEST_F(TexturePictureTest, TheNearestPixelOfATextureShowsWithItsOriginAtTheTopLeft) {
  shown("Quad", mesh(quad(-1, -1, 1, 1), textured(fourColors())));
  load();
  EXPECT_EQ(text(picture(4), letters), "rrgg\nrrgg\nbbww\nbbww\n");
}

TEST_F(TexturePictureTest, ATextureRepeatsAcross) { EXPECT_EQ(row("10497"), "rgrgrg\n"); }

TEST_F(TexturePictureTest, ATextureIsMirroredAcross) { EXPECT_EQ(row("33648"), "grrggr\n"); }

TEST_F(TexturePictureTest, ATextureIsClampedAcross) { EXPECT_EQ(row("33071"), "rrrggg\n"); }

TEST_F(TexturePictureTest, AnUnknownWayToWrapRepeats) { EXPECT_EQ(row("7"), "rgrgrg\n"); }

TEST_F(TexturePictureTest, ATextureRepeatsDown) {
  EXPECT_EQ(column("10497"), "r\ng\nr\ng\nr\ng\n");
}

TEST_F(TexturePictureTest, ATextureIsMirroredDown) {
  EXPECT_EQ(column("33648"), "g\nr\nr\ng\ng\nr\n");
}

TEST_F(TexturePictureTest, ATextureIsClampedDown) {
  EXPECT_EQ(column("33071"), "r\nr\nr\ng\ng\ng\n");
}

TEST_F(TexturePictureTest, ASmoothTextureMixesItsPixelsByTheirDistance) {
  const int look = texture(imageOf(2, 1, {0xFF000000, white}),
                           R"("magFilter":9729,"wrapS":33071,"wrapT":33071)");
  Shape shape = quad(-1, -1, 1, 1);
  // A quarter of the way from the middle of the black pixel to that of the white one.
  shape.texcoords.assign(4, {0.375f, 0.5f});
  shown("Quad", mesh(shape, textured(look)));
  load();
  EXPECT_TRUE(isNear(picture(1).pixel(0, 0), asShown({0.25f, 0.25f, 0.25f})));
}

TEST_F(TexturePictureTest, AColorTextureIsEncodedForTheScreen) {
  shown("Quad", mesh(quad(-1, -1, 1, 1), textured(texture(imageOf(1, 1, {0xFF808080})))));
  load();
  EXPECT_TRUE(isNear(picture(1).pixel(0, 0), asShown({0.2159f, 0.2159f, 0.2159f})));
}

TEST_F(TexturePictureTest, ATextureTransformMoves) {
  EXPECT_EQ(transformed(R"("offset":[0.5,0])"), "ggrr\nggrr\nwwbb\nwwbb\n");
}

TEST_F(TexturePictureTest, ATextureTransformScales) {
  EXPECT_EQ(transformed(R"("scale":[2,1])"), "rgrg\nrgrg\nbwbw\nbwbw\n");
}

TEST_F(TexturePictureTest, ATextureTransformTurnsThePictureClockwise) {
  EXPECT_EQ(transformed(R"("rotation":1.5707963)"), "bbrr\nbbrr\nwwgg\nwwgg\n");
}

TEST_F(TexturePictureTest, ATextureTransformScalesThenTurnsThenMoves) {
  // (u, v) leads to (v + 0.5, -2 u).
  EXPECT_EQ(transformed(R"("scale":[2,1],"rotation":1.5707963,"offset":[0.5,0])"),
            "wgwg\nwgwg\nbrbr\nbrbr\n");
}

TEST_F(TexturePictureTest, TheSecondTextureCoordinatesLeadWhereTheyAreAskedFor) {
  Shape shape = quad(-1, -1, 1, 1);
  shape.secondTexcoords.assign(4, {0.75f, 0.25f});
  const int look = fourColors();
  shown("Own", mesh(shape, textured(look, R"("texCoord":1)")), R"("translation":[-1,0,0])");
  shown("Moved",
        mesh(shape, textured(look, R"("extensions":{"KHR_texture_transform":{"texCoord":1}})")),
        R"("translation":[1,0,0])");
  load();
  EXPECT_EQ(text(picture(2), letters), "gg\ngg\n");
}

TEST_F(TexturePictureTest, FactorTextureAndVertexColorAreMultiplied) {
  Shape shape = quad(-1, -1, 1, 1);
  shape.colors.assign(4, {0.5f, 1, 1, 1});
  const QByteArray look = QByteArray::number(texture(imageOf(1, 1, {0xFFFFFF00})));
  shown("Quad", mesh(shape, material(R"("extensions":{"KHR_materials_unlit":{}},)"
                                     R"("pbrMetallicRoughness":{"baseColorFactor":)"
                                     R"([0.8,0.25,0.9,1],"baseColorTexture":{"index":)" +
                                     look + "}}")));
  load();
  EXPECT_TRUE(isNear(picture(1).pixel(0, 0), asShown({0.4f, 0.25f, 0})));
}

TEST_F(TexturePictureTest, VertexColorsBlendBetweenTheVertices) {
  Shape shape = quad(-1, -1, 1, 1);
  shape.colors = {{0, 0, 0, 1}, {1, 0, 0, 1}, {1, 0, 0, 1}, {0, 0, 0, 1}};
  shown("Quad", mesh(shape, unlit(1, 1, 1)));
  load();
  // Few enough pixels that a line of them is 0.05 wide.
  const QImage seen = picture(20, 20, 16);
  EXPECT_TRUE(isNear(seen.pixel(5, 10), asShown({0.275f, 0, 0}), 3));
  EXPECT_TRUE(isNear(seen.pixel(12, 3), asShown({0.625f, 0, 0}), 3));
}

TEST_F(TexturePictureTest, AMaskCutsOutWhatIsBelowItsCutoff) {
  const int look = texture(imageOf(2, 1, {0x64FF0000, 0xC8FF0000}));
  shown("Mask", mesh(quad(-1, 0, 1, 1, 1), textured(look, {}, R"("alphaMode":"MASK")")));
  shown("Low",
        mesh(quad(-1, -1, 1, 0, 1), textured(look, {}, R"("alphaMode":"MASK","alphaCutoff":0.3)")));
  shown("Behind", mesh(quad(-1, -1, 1, 1), unlit(0, 0, 1)));
  load();
  EXPECT_EQ(text(picture(2), letters), "br\nrr\n");
}

TEST_F(TexturePictureTest, AnOpaqueMaterialHasNoOpacity) {
  shown("Quad", mesh(quad(-1, -1, 1, 1), unlit({1, 0, 0, 0})));
  load();
  EXPECT_EQ(text(picture(2), letters), "rr\nrr\n");
}

TEST_F(TexturePictureTest, BlendedLayersMixFromTheFront) {
  const QByteArray blend = R"("alphaMode":"BLEND")";
  // In the file's order the farthest comes first.
  shown("Back", mesh(quad(-1, -1, 1, 1, 0), unlit(0, 1, 0)));
  shown("Front", mesh(quad(-1, -1, 1, 1, 2), unlit({0, 0, 1, 0.25f}, blend)));
  shown("Middle", mesh(quad(-1, -1, 1, 1, 1), unlit({1, 0, 0, 0.5f}, blend)));
  load();
  const auto part = [](int shown) { return double(level(qRgb(0, shown, 0))) - 0.04; };
  const QRgb seen = picture(1).pixel(0, 0);
  const double full = part(qRed(asShown({1, 0, 0})));
  EXPECT_NEAR(part(qBlue(seen)), 0.25 * full + 0.75 * part(qBlue(asShown({1, 0, 0}))), 0.01);
  EXPECT_NEAR(part(qRed(seen)), 0.75 * 0.5 * full + 0.625 * part(qRed(asShown({0, 1, 0}))), 0.01);
  EXPECT_NEAR(part(qGreen(seen)), 0.375 * full + 0.625 * part(qGreen(asShown({1, 0, 0}))), 0.01);
}

TEST_F(TexturePictureTest, ABlendedLayerLetsTheBackdropThrough) {
  shown("Pane", mesh(quad(-1, -1, 1, 1), unlit({0, 0, 0, 0.5f}, R"("alphaMode":"BLEND")")));
  shown("Clear", mesh(quad(-1, -1, 1, 1, 1), unlit({1, 0, 0, 0}, R"("alphaMode":"BLEND")")));
  load();
  // The backdrop's mean over the picture is 0.8, 0.8125 and 0.83; half of it shows.
  EXPECT_NEAR(level(picture(1, 1, 64).pixel(0, 0)) - 0.04, 0.40625, 0.01);
}

TEST_F(TexturePictureTest, ABackShowsOfWhatHasTwoSidesAlone) {
  const QByteArray turned = R"("rotation":[0,1,0,0])";
  shown("Single", mesh(quad(0, -1, 1, 1), unlit(1, 0, 0)), turned);
  shown("Double", mesh(quad(-1, -1, 0, 1), unlit({0, 1, 0, 1}, R"("doubleSided":true)")), turned);
  load();
  EXPECT_EQ(text(picture(2), letters), ".g\n.g\n");
}

TEST_F(TexturePictureTest, TheBackOfASingleSideShowsWhatLiesBehind) {
  shown("Single", mesh(quad(-1, -1, 1, 1), unlit(1, 0, 0)),
        R"("rotation":[0,1,0,0],"translation":[0,0,1])");
  shown("Behind", mesh(quad(-1, -1, 1, 1), unlit(0, 0, 1)));
  load();
  EXPECT_EQ(text(picture(2), letters), "bb\nbb\n");
}
