#pragma once

#include <map>

#include "host/osg/Node.h"
#include "standalone/scene/LightIndex.h"
#include "standalone/scene/NameIndex.h"

namespace kuStandalone {

/** A root and the indices of what stands below it. */
struct SceneTree {
  NameIndex names;
  LightIndex lights;
  /** The nodes that have a render layer, by identifier. */
  std::map<std::uint32_t, SceneNode*> layered;
  osg::NodePtr root;

  SceneTree() = default;
  ~SceneTree() { setRoot(osg::NullFC); }
  SceneTree(const SceneTree&) = delete;
  SceneTree& operator=(const SceneTree&) = delete;

  /** Takes a tree of nodes over, in the place of the former one. */
  KUHOST_EXPORT void setRoot(osg::NodePtr node);

  // A node comes into the tree or leaves it; only the node itself calls these.
  void enter(SceneNode& node);
  void leave(SceneNode& node);
  /** Tells that a node of the tree was given a render layer, or none. */
  void noteLayer(SceneNode& node);
};

}  // namespace kuStandalone
