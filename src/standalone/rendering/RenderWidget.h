#pragma once

#include <QImage>
#include <QSize>
#include <cstdint>

#include "host/kernel/kuOSGWidget.h"

namespace kuStandalone {

/**
 * The render widget of this host, without a window: a frame of the present scene, drawn when
 * somebody wants to see it. While it lives it is what kuOSGWidget::getMGLW answers, in the place of
 * a former one.
 */
class KUHOST_EXPORT RenderWidget final : public kuOSGWidget {
 public:
  /** @param size of the frame in pixels; one that the renderer refuses gives no frame. */
  explicit RenderWidget(const QSize& size);
  ~RenderWidget() override;

  /** The frame is drawn anew where the size is another. */
  void resize(const QSize& size);

  /**
   * The frame that was last drawn. It is drawn first where there is none yet, or where
   * kuController::updateRender asked for one since. Null for a size without a frame.
   */
  const QImage& frame();

  void captureImage(osg::ImagePtr image, int& width, int& height) override;

 private:
  void draw();

  QSize _size;
  QImage _frame;
  bool _drawn = false;
  /** Requests for frames when the last one was drawn. */
  std::uint64_t _requests = 0;
};

}  // namespace kuStandalone
