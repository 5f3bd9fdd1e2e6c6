#pragma once

#include "host/kuHostExport.h"
#include "host/osg/Image.h"

/** The host's widget that shows the scene. The host owns it. */
class KUHOST_EXPORT kuOSGWidget {
 public:
  virtual ~kuOSGWidget();
  kuOSGWidget(const kuOSGWidget&) = delete;
  kuOSGWidget& operator=(const kuOSGWidget&) = delete;

  /** Stops an anti-aliasing pass that is under way. */
  static void cancelAntialiasing();

  /** Whether the renderer is in raytracing mode. */
  static bool getRaytracing();

  /** A render widget by its number, -1 for the present one; null where there is none. */
  static kuOSGWidget* getMGLW(int index);

  /**
   * Reads the frame that the widget shows into an image, and gives its size in pixels: 0 by 0, and
   * an image without pixels, where there is no frame. A null image is left alone.
   */
  virtual void captureImage(osg::ImagePtr image, int& width, int& height) = 0;

 protected:
  kuOSGWidget() = default;
};
