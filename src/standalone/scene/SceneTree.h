#pragma once

#include "host/osg/Node.h"
#include "standalone/scene/NameIndex.h"

namespace kuStandalone {

/** A root and the index of the names below it. */
struct SceneTree {
  NameIndex names;
  osg::NodePtr root;

  SceneTree() = default;
  ~SceneTree() { setRoot(osg::NullFC); }
  SceneTree(const SceneTree&) = delete;
  SceneTree& operator=(const SceneTree&) = delete;

  /** Takes a tree of nodes over, in the place of the former one. */
  KUHOST_EXPORT void setRoot(osg::NodePtr node);
};

}  // namespace kuStandalone
