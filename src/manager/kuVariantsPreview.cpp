#include <QBuffer>
#include <QImage>
#include <QPixmap>
#include <memory>
#include <string>

#include "host/kernel/kuOSGWidget.h"
#include "host/rendering/kuImageRenderWidget.h"
#include "host/rendering/kuImageWriter.h"
#include "host/rendering/kuRaytracingManager.h"
#include "host/services/kuCameraService.h"
#include "host/services/kuKernelServiceFactory.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"
#include "model/kuVariantSetKeeper.h"

namespace {

// Previews are very slightly wider than high, also those that are cut out of a frame as a square.
constexpr int previewWidth = 264;
constexpr int previewHeight = 256;

/** Puts the ray tracer's setting back at its end to what it was, whatever happens meanwhile. */
class KeptRenderSetting {
 public:
  KeptRenderSetting() : _setting(kuRaytracingManager::getRaytracingUtils()->getRenderSetting()) {}
  // Asked for again: rendering lets the host do other things.
  ~KeptRenderSetting() { kuRaytracingManager::getRaytracingUtils()->setRenderSetting(_setting); }
  KeptRenderSetting(const KeptRenderSetting&) = delete;
  KeptRenderSetting& operator=(const KeptRenderSetting&) = delete;

 private:
  int _setting;
};

std::string exportedImage(int width, int height, bool showProgress) {
  const auto writer = std::make_unique<kuImageWriter>();
  writer->setNoProgress(!showProgress);
  writer->setNoOverwriteMessage(true);
  writer->exportImageFastInit(width, height, 0);
  std::string file = writer->exportImageFast();
  writer->exportImageFastTerminate();
  return file;
}

/** The largest square in the middle of a frame; an odd rest goes to the right or the bottom. */
QRect centredSquare(int w, int h) {
  if (h >= w) {
    const int offset = (h - w) / 2;
    return QRect(QPoint(0, offset), QPoint(w - 1, w + offset - 1));
  }
  const int offset = (w - h) / 2;
  return QRect(QPoint(offset, 0), QPoint(h + offset - 1, h - 1));
}

/** The middle of what the widget shows; null where there is no frame, and where the program has no
 * windows: Qt makes no pixmaps there. */
QPixmap centreOfFrame(kuOSGWidget& widget) {
  const osg::ImagePtr image = osg::ImageBase::create();
  int w = 0;
  int h = 0;
  widget.captureImage(image, w, h);
  QImage frame;
  kuImageRenderWidget::convertToQImage(frame, image);
  return QPixmap::fromImage(frame).copy(centredSquare(w, h));
}

}  // namespace

QByteArray kuVariants::createPreviewImage(bool showProgress, bool forceRaytracingSetting) {
  return createPreviewImage(previewWidth, previewHeight, showProgress, forceRaytracingSetting);
}

QByteArray kuVariants::createPreviewImage(int width, int height, bool showProgress,
                                          bool forceRaytracingSetting) {
  const bool raytracing = kuOSGWidget::getRaytracing();
  std::string file;
  {
    const KeptRenderSetting kept;
    if (raytracing && forceRaytracingSetting) {
      kuRaytracingManager::getRaytracingUtils()->setRenderSetting(-1);
    }
    file = exportedImage(width, height, showProgress);
  }
  return QByteArray(file.data(), static_cast<int>(file.size()));
}

QByteArray kuVariants::getPreviewImageFromFrameBuffer(kuVariantSet*) {
  QByteArray file;
  kuOSGWidget* widget = kuOSGWidget::getMGLW(-1);
  if (!widget) return file;
  const QPixmap square = centreOfFrame(*widget);
  if (square.isNull()) return file;
  QBuffer buffer(&file);
  buffer.open(QIODevice::WriteOnly);
  square.scaled(previewWidth, previewHeight, Qt::IgnoreAspectRatio, Qt::FastTransformation)
      .save(&buffer, "PNG", -1);
  return file;
}

void kuVariants::renderVariantSetPreview(kuVariantSet* set, bool useFrameBuffer, bool showProgress,
                                         bool forceRaytracingSetting) {
  if (!set) return;
  // While a picture is rendered the user may remove the set: only then is it known where it is.
  const kuVariantSet::Keeper kept(*set);
  const QByteArray file = useFrameBuffer ? getPreviewImageFromFrameBuffer(set)
                                         : createPreviewImage(previewWidth, previewHeight,
                                                              showProgress, forceRaytracingSetting);
  kept->setPreview(file);
  kuCameraService* cameras = kuKernelServiceFactory::the().getService<kuCameraService>();
  if (!cameras) return;
  // Also with an empty name: the camera is then a null one.
  const kudCameraBaseNode camera = cameras->findCamera(kept->getDefaultViewpoint());
  cameras->refreshCamera(camera.getId(), true);
}
