#pragma once

#include <string>

#include "host/services/kudCameraBaseNode.h"

/** The cameras of the scene and their viewpoints. */
class KUHOST_EXPORT kuUberCameraPool {
 public:
  static kuUberCameraPool& the();

  kuUberCameraPool(const kuUberCameraPool&) = delete;
  kuUberCameraPool& operator=(const kuUberCameraPool&) = delete;

  /** The viewpoint of that name (UTF-8), or a null object. */
  kudCameraBaseNode findViewpoint(const std::string& name) const;

 private:
  kuUberCameraPool() = default;
};
