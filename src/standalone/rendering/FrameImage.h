#pragma once

#include <QImage>

#include "host/osg/Image.h"

namespace kuStandalone {

/** The image of this host: a picture as Qt holds it. */
class KUHOST_EXPORT FrameImage final : public osg::Image {
 public:
  static osg::ImagePtr create();

  /** The image behind a handle, which must not be null. */
  static FrameImage& of(const osg::ImagePtr& image) { return static_cast<FrameImage&>(*image); }

  /** Null at first. */
  QImage picture;

 private:
  FrameImage();
};

}  // namespace kuStandalone
