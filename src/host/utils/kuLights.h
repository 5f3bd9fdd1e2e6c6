#pragma once

#include <vector>

#include "host/osg/Node.h"

/** The lights of the scene. */
class KUHOST_EXPORT kuLights {
 public:
  kuLights() = delete;

  /** Whether the node is a light; false for a null node. */
  static bool isLight(const osg::NodePtr& node);

  /** Whether the light is on; false for a node that is no light. */
  static bool getOn(const osg::NodePtr& node);

  /** Switches the light, edit bracket included; nothing for a node that is no light. */
  static void setOn(const osg::NodePtr& node, bool on);

  /** Switches the light to the opposite. */
  static void toggle(const osg::NodePtr& node);

  /** Appends all light nodes of the scene, clones included, in the order of the scene. */
  static void getLights(std::vector<osg::NodePtr>& lights);
};
