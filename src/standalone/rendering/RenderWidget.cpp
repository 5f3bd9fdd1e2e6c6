#include "standalone/rendering/RenderWidget.h"

#include "standalone/kernel/HostState.h"
#include "standalone/rendering/FrameImage.h"
#include "standalone/rendering/ScenePictures.h"

namespace kuStandalone {

RenderWidget::RenderWidget(const QSize& size) : _size(size) {
  HostState::the().renderWidget = this;
}

RenderWidget::~RenderWidget() {
  HostState& state = HostState::the();
  if (state.renderWidget == this) state.renderWidget = nullptr;
}

void RenderWidget::resize(const QSize& size) {
  if (size == _size) return;
  _size = size;
  _drawn = false;
}

const QImage& RenderWidget::frame() {
  if (!_drawn || _requests != HostState::the().renderRequests) draw();
  return _frame;
}

void RenderWidget::draw() {
  _requests = HostState::the().renderRequests;
  PictureSettings settings;
  settings.width = _size.width();
  settings.height = _size.height();
  settings.samples = ScenePictures::samples();
  _frame = ScenePictures::the().take(settings);
  _drawn = true;
}

void RenderWidget::captureImage(osg::ImagePtr image, int& width, int& height) {
  const QImage& shown = frame();
  width = shown.width();
  height = shown.height();
  if (image) FrameImage::of(image).picture = shown;
}

}  // namespace kuStandalone
