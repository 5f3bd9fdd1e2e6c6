#pragma once

#include "host/osg/Image.h"

class QImage;

/** What the host does with rendered images, of which only the conversion is used. */
class KUHOST_EXPORT kuImageRenderWidget {
 public:
  kuImageRenderWidget() = delete;

  /**
   * Gives the pixels of an image, the top row first; a null QImage for a null image and for one
   * without pixels.
   */
  static void convertToQImage(QImage& target, const osg::ImagePtr& image);
};
