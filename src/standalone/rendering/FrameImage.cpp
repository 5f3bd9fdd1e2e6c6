#include "standalone/rendering/FrameImage.h"

#include "host/rendering/kuImageRenderWidget.h"

namespace kuStandalone {

FrameImage::FrameImage() : osg::Image(osg::Image::_type) {}

osg::ImagePtr FrameImage::create() { return osg::ImagePtr(new FrameImage); }

}  // namespace kuStandalone

namespace osg {

const FieldContainerType ImageBase::_type("ImageBase", &FieldContainer::_type);
const FieldContainerType Image::_type("Image", &ImageBase::_type);

ImageBase::~ImageBase() = default;
Image::~Image() = default;

ImagePtr ImageBase::create() { return kuStandalone::FrameImage::create(); }

}  // namespace osg

void kuImageRenderWidget::convertToQImage(QImage& target, const osg::ImagePtr& image) {
  target = image ? kuStandalone::FrameImage::of(image).picture : QImage();
}
