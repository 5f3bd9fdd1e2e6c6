#pragma once

#include "host/osg/FieldContainer.h"

namespace osg {

class Image;
using ImagePtr = FCPtr<Image>;

/** Where images come from. */
class KUHOST_EXPORT ImageBase : public FieldContainer {
 public:
  static const FieldContainerType _type;

  /** A new image without pixels; never null. */
  static ImagePtr create();

 protected:
  using FieldContainer::FieldContainer;
  ~ImageBase() override;
};

/**
 * A picture that the host fills (kuOSGWidget::captureImage) and reads
 * (kuImageRenderWidget::convertToQImage). Its pixels are the host's alone.
 */
class KUHOST_EXPORT Image : public ImageBase {
 public:
  static const FieldContainerType _type;

 protected:
  using ImageBase::ImageBase;
  ~Image() override;
};

}  // namespace osg
