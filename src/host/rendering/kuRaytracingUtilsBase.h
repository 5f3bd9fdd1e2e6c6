#pragma once

#include "host/kuHostExport.h"

/** The settings of the host's ray tracer. */
class KUHOST_EXPORT kuRaytracingUtilsBase {
 public:
  virtual ~kuRaytracingUtilsBase();

  // The setter stands before the getter, which is the order of their slots.

  /**
   * Sets how much work the ray tracer spends on a picture. The numbers are the host's own, and all
   * of them are kept as they are given; -1 asks for what a finished picture deserves, whatever the
   * widget's frames are content with.
   */
  virtual void setRenderSetting(int setting) = 0;

  /** The number that was set last. */
  virtual int getRenderSetting() = 0;
};
