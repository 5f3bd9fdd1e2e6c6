#pragma once

#include <string>
#include <vector>

#include "host/osg/Node.h"

/** The sceneplates: a tree of its own beside the scene. */
class KUHOST_EXPORT kuSceneplateUtils {
 public:
  kuSceneplateUtils() = delete;

  /** The node under which all sceneplates stand; null if the scene has none. */
  static osg::NodePtr getSceneplateRoot();

  /** Appends all nodes of that name (UTF-8) below the sceneplate root, depth first. */
  static void findNodes(const std::string& name, std::vector<osg::NodePtr>& nodes);

  /** The first of them, or null. */
  static osg::NodePtr findNode(const std::string& name);

  /** All nodes that hold sceneplates, switches among them included, depth first. */
  static std::vector<osg::NodePtr> getAllNodes();
};
