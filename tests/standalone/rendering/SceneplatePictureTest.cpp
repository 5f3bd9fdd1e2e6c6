#include "PictureTest.h"
#include "standalone/scene/Cores.h"

using namespace kuStandalone;

namespace {

constexpr const char* whole = "[0,0,1,1]";

/** Pictures of four by four pixels over an empty scene. */
class SceneplatePictureTest : public PictureTest {
 protected:
  int filled(QRgb color) {
    QImage made(4, 4, QImage::Format_ARGB32);
    made.fill(color);
    return pictured(made);
  }
  int pictured(const QImage& made) {
    texture(made);
    return _pictures++;
  }
  int plate(const char* name, int image, const QByteArray& rect, const QByteArray& more = {}) {
    return node(QByteArray(R"("name":")") + name + R"(","extras":{"sceneplate":{"image":)" +
                QByteArray::number(image) + R"(,"rect":)" + rect + "}}" +
                (more.isEmpty() ? "" : ",") + more);
  }
  void root(const std::vector<int>& children, const QByteArray& more = {}) {
    node(R"("name":"Plates","extras":{"sceneplates":true})" + (more.isEmpty() ? more : "," + more),
         children);
  }
  std::string seen(int side = 4) {
    const QImage shown = picture(side);
    std::string text;
    for (int y = 0; y < side; ++y) {
      for (int x = 0; x < side; ++x) {
        const QRgb pixel = shown.pixel(x, y);
        text += pixel == qRgb(255, 0, 0)   ? 'r'
                : pixel == qRgb(0, 255, 0) ? 'g'
                : isBackdrop(shown, x, y)  ? '.'
                                           : '?';
      }
      text += '\n';
    }
    return text;
  }

 private:
  int _pictures = 0;
};

constexpr const char* hidden = R"("extensions":{"KHR_node_visibility":{"visible":false}})";

}  // namespace

TEST_F(SceneplatePictureTest, APlateLiesInItsRectangle) {
  root({plate("Red", filled(0xFFFF0000), "[0.25,0.5,0.75,0.25]")});
  load();
  EXPECT_EQ(seen(), "....\n....\n.rrr\n....\n");
}

TEST_F(SceneplatePictureTest, ALaterPlateCoversAnEarlierOne) {
  root({plate("Red", filled(0xFFFF0000), "[0,0,0.75,0.75]"),
        plate("Green", filled(0xFF00FF00), "[0.25,0.25,0.75,0.75]")});
  load();
  EXPECT_EQ(seen(), "rrr.\nrggg\nrggg\n.ggg\n");
}

TEST_F(SceneplatePictureTest, PlatesLieOverTheScene) {
  lookStraight();
  shown("Wall", mesh(quad(-1, -1, 1, 1), unlit(0, 0, 1)));
  root({plate("Red", filled(0xFFFF0000), whole)});
  load();
  EXPECT_EQ(seen(2), "rr\nrr\n");
}

TEST_F(SceneplatePictureTest, AHiddenPlateIsGoneAndSoIsWhatLiesBelowAHiddenNode) {
  const int red = filled(0xFFFF0000), green = filled(0xFF00FF00);
  root({plate("Off", red, whole, hidden),
        node(QByteArray(R"("name":"Group",)") + hidden, {plate("Inner", red, whole)}),
        plate("On", green, "[0,0,0.5,0.5]")});
  load();
  EXPECT_EQ(seen(), "gg..\ngg..\n....\n....\n");
}

TEST_F(SceneplatePictureTest, HiddenSceneplatesAreAllGone) {
  root({plate("Red", filled(0xFFFF0000), whole)}, hidden);
  load();
  EXPECT_EQ(seen(2), "..\n..\n");
}

TEST_F(SceneplatePictureTest, ASwitchAmongThePlatesShowsItsChoice) {
  const int red = filled(0xFFFF0000), green = filled(0xFF00FF00);
  root({node(R"("name":"Choice","extras":{"switch":1})",
             {plate("A", red, "[0,0,0.5,1]"), plate("B", green, "[0.5,0,0.5,1]")})});
  load();
  int& choice = SwitchCore::of(find("Choice")->getCore()).choice;
  EXPECT_EQ(seen(2), ".g\n.g\n");
  choice = 0;
  EXPECT_EQ(seen(2), "r.\nr.\n");
  choice = -2;
  EXPECT_EQ(seen(2), "rg\nrg\n");
  choice = -1;
  EXPECT_EQ(seen(2), "..\n..\n");
  choice = 2;
  EXPECT_EQ(seen(2), "..\n..\n");
}

TEST_F(SceneplatePictureTest, APlatePartlyOutsideShowsItsOtherPart) {
  QImage halves(8, 8, QImage::Format_ARGB32);
  for (int at = 0; at < 64; ++at)
    halves.setPixel(at % 8, at / 8, at % 8 < 4 ? 0xFFFF0000 : 0xFF00FF00);
  root({plate("Left", pictured(halves), "[-0.5,-0.5,1,1]")});
  load();
  EXPECT_EQ(seen(8).substr(0, 9), "gggg....\n");
  SceneplateCore::of(find("Left")->getCore()).rect = {0.5, 0, 1, 1};
  EXPECT_EQ(seen(8).substr(0, 9), "....rrrr\n");
}

TEST_F(SceneplatePictureTest, APlateFarLargerThanThePictureFillsIt) {
  root({plate("Large", filled(0xFFFF0000), "[-5000,-5000,10000,10000]")});
  load();
  EXPECT_EQ(seen(2), "rr\nrr\n");
}

TEST_F(SceneplatePictureTest, APlateWithoutAPlaceOrAPictureIsPassedOver) {
  const int red = filled(0xFFFF0000);
  const int broken = image("no picture");
  root({plate("None", red, "[0,0,0,1]"), plate("Negative", red, "[1,1,-1,-1]"),
        plate("Outside", red, "[2,0,1,1]"), plate("Absurd", red, "[-1e300,0,1e301,1]"),
        plate("Broken", broken, whole), node(R"("name":"No","extras":{"sceneplate":{}})")});
  load();
  EXPECT_EQ(seen(2), "..\n..\n");
}

TEST_F(SceneplatePictureTest, APlateMayBeTransparent) {
  root({plate("Under", filled(0xFFFF0000), whole), plate("Over", filled(0x8000FF00), whole)});
  load();
  EXPECT_TRUE(isNear(picture(1).pixel(0, 0), qRgb(127, 128, 0), 2));
}
