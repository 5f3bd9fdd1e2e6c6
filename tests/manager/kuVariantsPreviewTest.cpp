#include <QPixmap>
#include <cstring>
#include <stdexcept>

#include "PreviewTest.h"
#include "host/rendering/kuImageWriter.h"
#include "standalone/rendering/RenderWidget.h"
#include "standalone/rendering/Renderer.h"

using namespace kuStandalone;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/** Previews that are rendered. */
class KuVariantsPreviewTest : public PreviewTest {
 protected:
  /** The pixels that a renderer of its own gives. */
  static QImage rendered(int width, int height, int samples) {
    PictureSettings settings;
    settings.width = width;
    settings.height = height;
    settings.samples = samples;
    return Renderer().render(Scene::the(), settings);
  }
};

}  // namespace

TEST_F(KuVariantsPreviewTest, ImageOfAPreviewIs264By256) {
  installPlate(pictureOfPlaces(264, 256));
  EXPECT_EQ(decoded(kuVariants::createPreviewImage(false, false)), pictureOfPlaces(264, 256));
  const PictureExports& exports = HostState::the().exports;
  EXPECT_EQ(exports.width, 264);
  EXPECT_EQ(exports.height, 256);
}

TEST_F(KuVariantsPreviewTest, ImageHasTheSizeThatIsAskedFor) {
  installPlate(pictureOfPlaces(30, 20));
  EXPECT_EQ(decoded(kuVariants::createPreviewImage(30, 20, false, false)), pictureOfPlaces(30, 20));
}

TEST_F(KuVariantsPreviewTest, ExportIsBegunWithoutOverwriteMessageAndEnded) {
  kuVariants::createPreviewImage(8, 6, false, false);
  const PictureExports& exports = HostState::the().exports;
  EXPECT_TRUE(exports.noOverwriteMessage);
  EXPECT_EQ(exports.quality, 0);
  EXPECT_EQ(exports.begun, 1u);
  EXPECT_EQ(exports.done, 1u);
  EXPECT_EQ(exports.ended, 1u);
}

TEST_F(KuVariantsPreviewTest, WriterIsDeletedByItsCaller) {
  kuVariants::createPreviewImage(8, 6, false, false);
  EXPECT_EQ(HostState::the().exports.writers, 0);
}

TEST_F(KuVariantsPreviewTest, ProgressShowsOnlyWhereItIsWanted) {
  int calls = 0;
  HostState::the().exportProgress = [&](double) { return ++calls > 0; };
  kuVariants::createPreviewImage(false, false);
  kuVariants::renderVariantSetPreview(&set, false, false, false);
  EXPECT_EQ(calls, 0);
  kuVariants::createPreviewImage(true, false);
  EXPECT_GT(calls, 0);
  calls = 0;
  kuVariants::renderVariantSetPreview(&set, false, true, false);
  EXPECT_GT(calls, 0);
}

TEST_F(KuVariantsPreviewTest, BytesOfTheFileAreAllThereZeroBytesIncluded) {
  kuImageWriter writer;
  writer.exportImageFastInit(8, 6, 0);
  const std::string file = writer.exportImageFast();
  const QByteArray image = kuVariants::createPreviewImage(8, 6, false, false);
  EXPECT_EQ(image.toStdString(), file);
  EXPECT_LT(std::strlen(file.c_str()), file.size());
}

TEST_F(KuVariantsPreviewTest, RenderSettingIsForcedOnlyWhileRaytracingAndAlwaysPutBack) {
  struct Row {
    const char* name;
    bool raytracing, force;
    std::vector<std::string> calls;
  };
  const std::vector<std::string> left{"get 7 before", "get 7 during", "set 7 after"};
  const std::vector<std::string> forced{"get 7 before", "set -1 before", "get -1 during",
                                        "set 7 after"};
  for (const Row& row :
       {Row{"raytracing and forced", true, true, forced}, Row{"raytracing", true, false, left},
        Row{"forced without raytracing", false, true, left}, Row{"neither", false, false, left}}) {
    HostState::the() = HostState();
    HostState::the().raytracing = row.raytracing;
    RecordedSettings settings(7);
    kuVariants::createPreviewImage(4, 4, false, row.force);
    EXPECT_EQ(settings.calls, row.calls) << row.name;
  }
}

TEST_F(KuVariantsPreviewTest, PreviewOfASetHandsOnWhetherTheSettingIsForced) {
  for (const bool force : {true, false}) {
    HostState::the() = HostState();
    // The calls are the same where the picture is given up at once.
    HostState::the().exportProgress = [](double) { return false; };
    RecordedSettings settings(1);
    kuVariants::renderVariantSetPreview(&set, false, true, force);
    EXPECT_EQ(settings.calls[1], force ? "set -1 before" : "get 1 during");
    EXPECT_EQ(settings.calls.back(), "set 1 after");
  }
}

TEST_F(KuVariantsPreviewTest, ForcedSettingGivesThePictureOfTheBestOne) {
  installTriangle();
  const QImage best = rendered(24, 16, PictureSettings().samples);
  EXPECT_EQ(decoded(kuVariants::createPreviewImage(24, 16, false, true)), best);
  EXPECT_EQ(decoded(kuVariants::createPreviewImage(24, 16, false, false)), rendered(24, 16, 1));
  EXPECT_NE(rendered(24, 16, 1), best);
}

TEST_F(KuVariantsPreviewTest, RenderSettingIsPutBackWhereTheExportFails) {
  RecordedSettings settings(7);
  EXPECT_EQ(kuVariants::createPreviewImage(0, 0, false, true), QByteArray());
  EXPECT_THAT(settings.calls,
              ElementsAre("get 7 before", "set -1 before", "get -1 during", "set 7 after"));
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(KuVariantsPreviewTest, RenderSettingIsPutBackWhereTheExportThrows) {
  RecordedSettings settings(7);
  HostState::the().exportProgress = [](double) -> bool { throw std::runtime_error("stop"); };
  EXPECT_THROW(kuVariants::renderVariantSetPreview(&set, false, true, true), std::runtime_error);
  EXPECT_EQ(settings.present(), 7);
  EXPECT_EQ(settings.calls.back(), "set 7 after");
  EXPECT_EQ(HostState::the().exports.writers, 0);
  EXPECT_EQ(set.getPreview(), "former");
}

TEST_F(KuVariantsPreviewTest, RenderedPreviewIsKeptByTheSet) {
  installPlate(pictureOfPlaces(264, 256));
  kuVariants::renderVariantSetPreview(&set, false, false, false);
  EXPECT_EQ(decoded(set.getPreview()), pictureOfPlaces(264, 256));
  QPixmap pixmap;
  EXPECT_TRUE(pixmap.loadFromData(set.getPreview()));
  EXPECT_EQ(pixmap.size(), QSize(264, 256));
}

TEST_F(KuVariantsPreviewTest, StoppedExportLeavesAnEmptyPreviewWithoutAWord) {
  HostState::the().exportProgress = [](double) { return false; };
  kuVariants::renderVariantSetPreview(&set, false, true, false);
  EXPECT_EQ(set.getPreview(), QByteArray());
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(KuVariantsPreviewTest, NullSetDoesNothing) {
  RecordedCameras cameras;
  RecordedSettings settings(7);
  RenderWidget widget(QSize(8, 8));
  kuVariants::renderVariantSetPreview(nullptr, false, true, true);
  kuVariants::renderVariantSetPreview(nullptr, true, true, true);
  EXPECT_THAT(cameras.calls, IsEmpty());
  EXPECT_THAT(settings.calls, IsEmpty());
  EXPECT_EQ(HostState::the().exports.begun, 0u);
  EXPECT_THAT(messages.lines(), IsEmpty());
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(KuVariantsPreviewTest, NoMessageGoesOut) {
  RenderWidget widget(QSize(8, 8));
  for (const bool useFrameBuffer : {false, true})
    kuVariants::renderVariantSetPreview(&set, useFrameBuffer, true, false);
  EXPECT_NE(set.getPreview(), "former");
  EXPECT_THAT(messages.lines(), IsEmpty());
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(KuVariantsPreviewTest, CameraOfTheDefaultViewpointIsRefreshedByItsId) {
  set.addViewpoint("Back");
  set.setDefaultViewpoint("Front");
  RecordedCameras cameras;
  kuVariants::renderVariantSetPreview(&set, false, false, false);
  EXPECT_THAT(cameras.calls, ElementsAre("find 'Front'", "refresh 17 true"));
}

TEST_F(KuVariantsPreviewTest, CameraIsRefreshedAlsoWithAnEmptyDefaultViewpoint) {
  RecordedCameras cameras;
  cameras.answer = 0;
  for (const bool useFrameBuffer : {false, true})
    kuVariants::renderVariantSetPreview(&set, useFrameBuffer, false, false);
  EXPECT_THAT(cameras.calls, ElementsAre("find ''", "refresh 0 true", "find ''", "refresh 0 true"));
}

TEST_F(KuVariantsPreviewTest, RefreshReachesTheHostsOwnCameras) {
  scene.camera("Front");
  kuVariants::renderVariantSetPreview(&set, false, false, false);
  EXPECT_EQ(HostState::the().renderRequests, 0u);
  set.setDefaultViewpoint("Front");
  kuVariants::renderVariantSetPreview(&set, false, false, false);
  EXPECT_EQ(HostState::the().renderRequests, 1u);
}

TEST_F(KuVariantsPreviewTest, WithoutACameraServiceThePreviewIsMadeAllTheSame) {
  RecordedCameras cameras;
  kuKernelServiceFactory::the().unregisterService<kuCameraService>();
  kuVariants::renderVariantSetPreview(&set, false, false, false);
  EXPECT_EQ(decoded(set.getPreview()).size(), QSize(264, 256));
  EXPECT_THAT(cameras.calls, IsEmpty());
}

TEST_F(KuVariantsPreviewTest, SetThatIsRemovedWhileItsPictureIsRenderedDoesNoHarm) {
  set.setDefaultViewpoint("Front");
  RecordedCameras cameras;
  HostState::the().exportProgress = [](double) { return kuVariants::removeVariantSet("Summer"); };
  kuVariants::renderVariantSetPreview(&set, false, true, false);
  EXPECT_EQ(kuVariants::findVariantSet("Summer"), nullptr);
  EXPECT_THAT(cameras.calls, ElementsAre("find 'Front'", "refresh 17 true"));
}
