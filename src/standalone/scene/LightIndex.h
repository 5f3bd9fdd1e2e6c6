#pragma once

#include <optional>
#include <vector>

#include "host/osg/Node.h"

namespace kuStandalone {

class SceneNode;

/**
 * The light nodes of one tree. They are found by a walk when they are asked for, and then kept
 * until a light comes or goes.
 */
class KUHOST_EXPORT LightIndex {
 public:
  using Nodes = std::vector<SceneNode*>;

  /** Tells that a node over that core, which may be null, came into the tree or leaves it. */
  void note(const osg::NodeCorePtr& core);
  /** Forgets all nodes at once. */
  void clear() { _nodes.reset(); }

  /** The light nodes from @p root down, in the order of a depth-first walk. Good until the next
   * change of the tree. */
  const Nodes& find(const osg::NodePtr& root);

 private:
  std::optional<Nodes> _nodes;
};

}  // namespace kuStandalone
