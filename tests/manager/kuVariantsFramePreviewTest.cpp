// Previews from the frame on screen.

#include <QBuffer>

#include "PreviewTest.h"
#include "standalone/rendering/RenderWidget.h"
#include "support/kuVariantsTestAccess.h"

using namespace kuStandalone;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/** A frame, and the square that is cut out of it. */
struct Row {
  const char* name;
  int width, height;
  int left, top, side;
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.name; }

/** Where the middle of a preview's pixel falls in a square. */
int sourceOf(int pixel, int pixels, int side) { return (2 * pixel + 1) * side / (2 * pixels); }

/** The square of the frame at 264 by 256, each pixel the one that its middle falls on. */
QImage stretched(const QImage& frame, const Row& row) {
  QImage picture(264, 256, QImage::Format_RGB32);
  for (int y = 0; y < 256; ++y) {
    for (int x = 0; x < 264; ++x) {
      picture.setPixel(
          x, y,
          frame.pixel(row.left + sourceOf(x, 264, row.side), row.top + sourceOf(y, 256, row.side)));
    }
  }
  return picture;
}

class KuVariantsFramePreviewTest : public PreviewTest {
 protected:
  static QByteArray framePreview(kuVariantSet* of) {
    return kuVariantsTestAccess::previewFromFrameBuffer(of);
  }
};

class KuVariantsFrameSizesTest : public PreviewTest, public ::testing::WithParamInterface<Row> {};

}  // namespace

TEST_P(KuVariantsFrameSizesTest, PreviewIsTheLargestCentredSquareAt264By256) {
  const Row& row = GetParam();
  const QImage places = pictureOfPlaces(row.width, row.height);
  installPlate(places);
  RenderWidget widget(places.size());
  kuVariants::renderVariantSetPreview(&set, true, false, false);
  ASSERT_EQ(widget.frame(), places);
  EXPECT_EQ(decoded(set.getPreview()), stretched(widget.frame(), row));
}

INSTANTIATE_TEST_SUITE_P(
    Frames, KuVariantsFrameSizesTest,
    ::testing::Values(Row{"LyingFrameFrom420To1499", 1920, 1080, 420, 0, 1080},
                      Row{"StandingFrameFrom420To1499", 1080, 1920, 0, 420, 1080},
                      Row{"SquareFrameIsNotCut", 1000, 1000, 0, 0, 1000},
                      Row{"OneColumnMoreHasOffset0", 101, 100, 0, 0, 100},
                      Row{"OneRowMoreHasOffset0", 100, 101, 0, 0, 100},
                      Row{"FiveColumnsMoreHaveOffset2", 105, 100, 2, 0, 100},
                      Row{"FiveRowsMoreHaveOffset2", 100, 105, 0, 2, 100},
                      Row{"OnePixel", 1, 1, 0, 0, 1}, Row{"LineLyingDown", 9, 1, 4, 0, 1},
                      Row{"LineStanding", 1, 9, 0, 4, 1}),
    [](const ::testing::TestParamInfo<Row>& test) { return std::string(test.param.name); });

TEST_F(KuVariantsFramePreviewTest, FileIsAPngOfQtsUsualCompression) {
  const QImage places = pictureOfPlaces(100, 100);
  installPlate(places);
  RenderWidget widget(places.size());
  QByteArray expected;
  QBuffer buffer(&expected);
  buffer.open(QIODevice::WriteOnly);
  stretched(places, {"", 100, 100, 0, 0, 100}).save(&buffer, "PNG", -1);
  EXPECT_EQ(framePreview(&set), expected);
  EXPECT_EQ(expected.left(8), "\x89PNG\r\n\x1a\n");
}

TEST_F(KuVariantsFramePreviewTest, SetPlaysNoPart) {
  RenderWidget widget(QSize(20, 10));
  const QByteArray file = framePreview(nullptr);
  EXPECT_EQ(decoded(file).size(), QSize(264, 256));
  EXPECT_EQ(framePreview(&set), file);
  EXPECT_EQ(set.getPreview(), "former");
}

TEST_F(KuVariantsFramePreviewTest, WithoutAWidgetThePreviewBecomesEmpty) {
  RecordedCameras cameras;
  kuVariants::renderVariantSetPreview(&set, true, false, false);
  EXPECT_EQ(set.getPreview(), QByteArray());
  EXPECT_THAT(cameras.calls, ElementsAre("find ''", "refresh 17 true"));
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(KuVariantsFramePreviewTest, WidgetWithoutAFrameGivesAnEmptyPreviewWithoutAWord) {
  RenderWidget widget(QSize(0, 0));
  ::testing::internal::CaptureStderr();
  kuVariants::renderVariantSetPreview(&set, true, false, false);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(set.getPreview(), QByteArray());
}

TEST_F(KuVariantsFramePreviewTest, NothingIsExportedAndTheRenderSettingIsLeftAlone) {
  RecordedSettings settings(1);
  RenderWidget widget(QSize(8, 8));
  kuVariants::renderVariantSetPreview(&set, true, true, true);
  EXPECT_EQ(HostState::the().exports.begun, 0u);
  EXPECT_THAT(settings.calls, ElementsAre("get 1 before"));
}
