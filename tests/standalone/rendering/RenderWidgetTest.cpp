#include "standalone/rendering/RenderWidget.h"

#include <climits>
#include <cstring>
#include <memory>

#include "host/kernel/kuController.h"
#include "host/rendering/kuImageRenderWidget.h"
#include "host/rendering/kuRaytracingManager.h"
#include "standalone/kernel/HostState.h"
#include "support/PictureScene.h"
#include "support/SceneTest.h"

using namespace kuStandalone;

namespace {

class RenderWidgetTest : public SceneTest {
 protected:
  RenderWidgetTest() { HostState::the().renderSetting = 1; }

  /** What kuOSGWidget::captureImage reads, with the size that it gives. */
  struct Captured {
    QImage picture;
    int width = -1, height = -1;
  };

  static Captured captured(kuOSGWidget& widget) {
    Captured result;
    const osg::ImagePtr image = osg::ImageBase::create();
    widget.captureImage(image, result.width, result.height);
    kuImageRenderWidget::convertToQImage(result.picture, image);
    return result;
  }
};

/** Settings that somebody else keeps. */
class OtherUtils final : public kuRaytracingUtilsBase {
 public:
  void setRenderSetting(int setting) override { present = setting; }
  int getRenderSetting() override { return present; }
  int present = 12;
};

#if defined(__GXX_ABI_VERSION)
/** The slot of a virtual operation, told by what a pointer to it holds. */
template <class Operation>
std::ptrdiff_t slotOf(Operation operation) {
  std::ptrdiff_t word;
  std::memcpy(&word, &operation, sizeof word);
  return word;
}
#endif

}  // namespace

TEST_F(RenderWidgetTest, ThereIsNoWidgetUntilOneIsMade) {
  EXPECT_EQ(kuOSGWidget::getMGLW(-1), nullptr);
  EXPECT_EQ(kuOSGWidget::getMGLW(0), nullptr);
}

TEST_F(RenderWidgetTest, WidgetIsThePresentOneWhileItLives) {
  {
    RenderWidget widget(QSize(4, 4));
    EXPECT_EQ(kuOSGWidget::getMGLW(-1), &widget);
    EXPECT_EQ(kuOSGWidget::getMGLW(0), &widget);
    EXPECT_EQ(kuOSGWidget::getMGLW(1), nullptr);
  }
  EXPECT_EQ(kuOSGWidget::getMGLW(-1), nullptr);
}

TEST_F(RenderWidgetTest, NewerWidgetTakesThePlaceAndKeepsItWhenTheFormerGoes) {
  auto former = std::make_unique<RenderWidget>(QSize(4, 4));
  RenderWidget widget(QSize(4, 4));
  former.reset();
  EXPECT_EQ(kuOSGWidget::getMGLW(-1), &widget);
}

TEST_F(RenderWidgetTest, CaptureReadsTheFrameToThePixel) {
  const QImage places = pictureOfPlaces(40, 30);
  installPlate(places);
  RenderWidget widget(places.size());
  const Captured frame = captured(widget);
  EXPECT_EQ(frame.picture, places);
  EXPECT_EQ(frame.width, 40);
  EXPECT_EQ(frame.height, 30);
}

TEST_F(RenderWidgetTest, CaptureWithoutAnImageTellsTheSize) {
  RenderWidget widget(QSize(6, 4));
  int width = 0;
  int height = 0;
  widget.captureImage(osg::NullFC, width, height);
  EXPECT_EQ(QSize(width, height), QSize(6, 4));
}

TEST_F(RenderWidgetTest, SizeThatCannotBeRenderedGivesNoFrame) {
  for (const QSize& size : {QSize(0, 0), QSize(), QSize(16385, 1)}) {
    RenderWidget widget(size);
    const Captured frame = captured(widget);
    EXPECT_TRUE(frame.picture.isNull());
    EXPECT_EQ(QSize(frame.width, frame.height), QSize(0, 0));
  }
}

TEST_F(RenderWidgetTest, FrameStaysUntilAnotherIsAskedFor) {
  RenderWidget widget(QSize(8, 8));
  const QImage before = widget.frame();
  const QImage places = pictureOfPlaces(8, 8);
  installPlate(places);
  EXPECT_EQ(widget.frame(), before);
  kuController::updateRender(false);
  EXPECT_EQ(widget.frame(), places);
  EXPECT_NE(before, places);
}

TEST_F(RenderWidgetTest, ResizedWidgetDrawsAnewAndTheSameSizeDoesNot) {
  RenderWidget widget(QSize(8, 8));
  const QImage before = widget.frame();
  const QImage places = pictureOfPlaces(9, 8);
  installPlate(places);
  widget.resize(QSize(8, 8));
  EXPECT_EQ(widget.frame(), before);
  widget.resize(QSize(9, 8));
  EXPECT_EQ(widget.frame(), places);
}

TEST_F(RenderWidgetTest, FrameHasTheSamplesOfTheRenderSetting) {
  installTriangle();
  RenderWidget widget(QSize(24, 16));
  const QImage coarse = widget.frame();
  kuRaytracingManager::getRaytracingUtils()->setRenderSetting(-1);
  kuController::updateRender(false);
  EXPECT_NE(widget.frame(), coarse);
}

TEST_F(RenderWidgetTest, ImageIsEmptyAtFirstAndOfItsClass) {
  const osg::ImagePtr image = osg::ImageBase::create();
  QImage picture(2, 2, QImage::Format_RGB32);
  kuImageRenderWidget::convertToQImage(picture, image);
  EXPECT_TRUE(picture.isNull());
  EXPECT_TRUE(image->getType().isDerivedFrom(osg::ImageBase::_type));
  EXPECT_EQ(osg::ImagePtr::dcast(osg::FieldContainerPtr(image)), image);
}

TEST_F(RenderWidgetTest, NullImageConvertsToANullPicture) {
  QImage picture(2, 2, QImage::Format_RGB32);
  kuImageRenderWidget::convertToQImage(picture, osg::NullFC);
  EXPECT_TRUE(picture.isNull());
}

TEST_F(RenderWidgetTest, RaytracingIsOnUntilTheApplicationSaysOtherwise) {
  EXPECT_TRUE(kuOSGWidget::getRaytracing());
  HostState::the().raytracing = false;
  EXPECT_FALSE(kuOSGWidget::getRaytracing());
}

TEST_F(RenderWidgetTest, RenderSettingIsKeptAsItIsGiven) {
  HostState::the() = HostState();
  kuRaytracingUtilsBase* utils = kuRaytracingManager::getRaytracingUtils();
  ASSERT_NE(utils, nullptr);
  EXPECT_EQ(utils->getRenderSetting(), -1);
  for (const int setting : {5, 0, -3, INT_MIN, INT_MAX}) {
    utils->setRenderSetting(setting);
    EXPECT_EQ(utils->getRenderSetting(), setting);
  }
}

TEST_F(RenderWidgetTest, SettingsOfTheApplicationStandInThePlaceOfTheHosts) {
  OtherUtils other;
  HostState::the().raytracingUtils = &other;
  EXPECT_EQ(kuRaytracingManager::getRaytracingUtils(), &other);
  EXPECT_EQ(HostState::the().renderSetting, 1);
  HostState::the().raytracingUtils = nullptr;
  EXPECT_EQ(kuRaytracingManager::getRaytracingUtils()->getRenderSetting(), 1);
}

#if defined(__GXX_ABI_VERSION)
TEST_F(RenderWidgetTest, SetterOfTheRenderSettingHasTheSlotBeforeTheGetter) {
  EXPECT_LT(slotOf(&kuRaytracingUtilsBase::setRenderSetting),
            slotOf(&kuRaytracingUtilsBase::getRenderSetting));
}
#endif
