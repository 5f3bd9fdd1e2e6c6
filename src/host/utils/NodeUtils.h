#pragma once

#include "host/osg/Node.h"

/** Changes of nodes. */
class KUHOST_EXPORT NodeUtils {
 public:
  NodeUtils() = delete;

  /**
   * Names a node (UTF-8), edit bracket included. Nothing happens for a null node or name.
   * @param notify true to tell the host's views.
   */
  static void setName(const osg::NodePtr& node, const char* name, bool notify);
};
