#include "host/rendering/kuImageWriter.h"

#include <QImage>
#include <algorithm>
#include <climits>

#include "host/rendering/kuRaytracingManager.h"
#include "standalone/kernel/HostState.h"
#include "standalone/rendering/ScenePictures.h"
#include "support/PictureScene.h"
#include "support/SceneTest.h"

using namespace kuStandalone;

namespace {

class KuImageWriterTest : public SceneTest {
 protected:
  KuImageWriterTest() { installTriangle(); }

  /** The picture that an export of this size gives; null for an empty file. */
  QImage exported(int width, int height, int quality = 0) {
    writer.exportImageFastInit(width, height, quality);
    const std::string file = writer.exportImageFast();
    writer.exportImageFastTerminate();
    return decoded(file);
  }

  static QImage decoded(const std::string& file) {
    return QImage::fromData(reinterpret_cast<const uchar*>(file.data()), int(file.size()));
  }

  /** What a renderer of its own makes of the scene. */
  static QImage rendered(int width, int height, int samples) {
    PictureSettings settings;
    settings.width = width;
    settings.height = height;
    settings.samples = samples;
    return Renderer().render(Scene::the(), settings);
  }

  static std::uint64_t meshBuilds() {
    return ScenePictures::the().renderer()->geometry().meshBuilds();
  }

  kuImageWriter writer;
};

}  // namespace

TEST_F(KuImageWriterTest, ExportIsAPngFileOfThePresentScene) {
  writer.exportImageFastInit(24, 16, 0);
  const std::string file = writer.exportImageFast();
  EXPECT_EQ(file.substr(0, 8), "\x89PNG\r\n\x1a\n");
  EXPECT_EQ(decoded(file).convertToFormat(QImage::Format_RGB32),
            rendered(24, 16, PictureSettings().samples));
}

TEST_F(KuImageWriterTest, RenderSettingIsTheNumberOfSamples) {
  struct Row {
    const char* name;
    int setting;
    int samples;
  };
  const int usual = PictureSettings().samples;
  for (const Row& row : {Row{"one", 1, 1}, Row{"three", 3, 3}, Row{"best", -1, usual},
                         Row{"none", 0, usual}, Row{"other negative number", -7, usual}}) {
    kuRaytracingManager::getRaytracingUtils()->setRenderSetting(row.setting);
    EXPECT_EQ(exported(24, 16), rendered(24, 16, row.samples)) << row.name;
  }
  EXPECT_NE(rendered(24, 16, 3), rendered(24, 16, 1));
  EXPECT_NE(rendered(24, 16, 3), rendered(24, 16, usual));
}

TEST_F(KuImageWriterTest, AbsurdRenderSettingStillGivesAPicture) {
  kuRaytracingManager::getRaytracingUtils()->setRenderSetting(INT_MAX);
  EXPECT_EQ(exported(1, 1).size(), QSize(1, 1));
}

TEST_F(KuImageWriterTest, QualityOverridesTheRenderSetting) {
  kuRaytracingManager::getRaytracingUtils()->setRenderSetting(1);
  EXPECT_EQ(exported(24, 16, 5), rendered(24, 16, 5));
}

TEST_F(KuImageWriterTest, SizesThatCannotBeRenderedGiveAnEmptyFile) {
  for (const QSize& size : {QSize(0, 16), QSize(24, 0), QSize(-1, -1), QSize(16385, 1)}) {
    writer.exportImageFastInit(size.width(), size.height(), 1);
    EXPECT_EQ(writer.exportImageFast(), "") << size.width();
  }
}

TEST_F(KuImageWriterTest, NothingIsRenderedOutsideAnExport) {
  EXPECT_EQ(writer.exportImageFast(), "");
  writer.exportImageFastInit(8, 8, 1);
  writer.exportImageFastTerminate();
  EXPECT_EQ(writer.exportImageFast(), "");
}

TEST_F(KuImageWriterTest, EndOfAnExportLeavesTheWriterToItsOwner) {
  EXPECT_EQ(exported(8, 8, 1).size(), QSize(8, 8));
  EXPECT_EQ(HostState::the().exports.writers, 1);
  EXPECT_EQ(exported(9, 7, 1).size(), QSize(9, 7));
}

TEST_F(KuImageWriterTest, EndWithoutAnExportDoesNothing) {
  writer.exportImageFastTerminate();
  EXPECT_EQ(HostState::the().exports.ended, 0u);
}

TEST_F(KuImageWriterTest, ProgressRunsFromBeginToEnd) {
  std::vector<double> shares;
  HostState::the().exportProgress = [&](double share) {
    shares.push_back(share);
    return true;
  };
  exported(24, 16, 1);
  ASSERT_GE(shares.size(), 2u);
  EXPECT_EQ(shares.front(), 0);
  EXPECT_EQ(shares.back(), 1);
  EXPECT_TRUE(std::is_sorted(shares.begin(), shares.end()));
}

TEST_F(KuImageWriterTest, NoProgressIsToldWhereNoneIsWanted) {
  int calls = 0;
  HostState::the().exportProgress = [&](double) { return ++calls > 0; };
  writer.setNoProgress(true);
  exported(24, 16, 1);
  EXPECT_EQ(calls, 0);
  writer.setNoProgress(false);
  exported(24, 16, 1);
  EXPECT_GE(calls, 2);
}

TEST_F(KuImageWriterTest, ProgressThatStopsGivesAnEmptyFile) {
  for (const double last : {0.0, 1e-9}) {
    HostState::the().exportProgress = [&](double share) { return share < last; };
    EXPECT_TRUE(exported(400, 400, 8).isNull()) << last;
  }
  EXPECT_EQ(HostState::the().exports.done, 0u);
}

TEST_F(KuImageWriterTest, SecondPictureBuildsNoGeometryAgain) {
  exported(8, 8, 1);
  const std::uint64_t builds = meshBuilds();
  EXPECT_GT(builds, 0u);
  SceneBuilder::setActive(kuScenegraph::findNode("Roof"), false);
  EXPECT_EQ(exported(24, 16, 2), rendered(24, 16, 2));
  EXPECT_EQ(meshBuilds(), builds);
}

TEST_F(KuImageWriterTest, PictureTakenWithinAPictureLeavesTheOuterOneRight) {
  PictureSettings settings;
  settings.width = settings.height = 200;
  settings.samples = 4;
  QImage inner;
  const osg::NodePtr roof = kuScenegraph::findNode("Roof");
  const QImage outer = ScenePictures::the().take(settings, [&](double) {
    if (!inner.isNull()) return true;
    SceneBuilder::setActive(roof, false);
    inner = exported(8, 8, 2);
    SceneBuilder::setActive(roof, true);
    return true;
  });
  EXPECT_FALSE(inner.isNull());
  EXPECT_NE(inner, rendered(8, 8, 2));
  EXPECT_EQ(outer, rendered(200, 200, 4));
}

TEST_F(KuImageWriterTest, PicturesAreTakenAfterAllWasForgotten) {
  exported(8, 8, 1);
  ScenePictures::the().forget();
  EXPECT_EQ(ScenePictures::the().renderer(), nullptr);
  EXPECT_EQ(exported(24, 16, 2), rendered(24, 16, 2));
}
