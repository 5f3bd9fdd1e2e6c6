#pragma once

#include "host/osg/Node.h"

/** The scene graph as a whole. */
class KUHOST_EXPORT kuOpenSGUtils {
 public:
  kuOpenSGUtils() = delete;

  /** The root of the scene, the same as kuScenegraph::getRoot. */
  static osg::NodePtr getRoot();
};
