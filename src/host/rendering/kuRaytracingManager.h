#pragma once

#include "host/rendering/kuRaytracingUtilsBase.h"

/** Gives the settings of the host's ray tracer. */
class KUHOST_EXPORT kuRaytracingManager {
 public:
  kuRaytracingManager() = delete;

  /** Never null; the host owns the object. */
  static kuRaytracingUtilsBase* getRaytracingUtils();
};
