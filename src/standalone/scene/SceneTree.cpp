#include "standalone/scene/SceneTree.h"

#include "standalone/scene/SceneNode.h"

namespace kuStandalone {

void SceneTree::setRoot(osg::NodePtr node) {
  names.clear();  // whole, since node by node it costs the square of those that share a name
  if (root) SceneNode::of(root).setTree(nullptr);
  root = std::move(node);
  if (root) SceneNode::of(root).setTree(this);
}

}  // namespace kuStandalone
