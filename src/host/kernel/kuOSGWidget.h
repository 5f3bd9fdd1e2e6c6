#pragma once

#include "host/kuHostExport.h"

/** The host's widget that shows the scene. */
class KUHOST_EXPORT kuOSGWidget {
 public:
  kuOSGWidget() = delete;

  /** Stops an anti-aliasing pass that is under way. */
  static void cancelAntialiasing();
};
