#pragma once

#include <vector>

#include "standalone/scene/Scene.h"
#include "standalone/scene/SceneNode.h"

/** A node and all below it, in the order of a depth-first walk. */
inline void walkNodes(kuStandalone::SceneNode& node, std::vector<kuStandalone::SceneNode*>& nodes) {
  nodes.push_back(&node);
  for (const osg::NodePtr& child : node.children())
    walkNodes(kuStandalone::SceneNode::of(child), nodes);
}

/** All nodes of the present scene, by a plain walk: what its indices are held against. */
inline std::vector<kuStandalone::SceneNode*> allNodes() {
  std::vector<kuStandalone::SceneNode*> nodes;
  walkNodes(kuStandalone::SceneNode::of(kuStandalone::Scene::the().nodes.root), nodes);
  return nodes;
}
