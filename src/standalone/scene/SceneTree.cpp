#include "standalone/scene/SceneTree.h"

#include "standalone/scene/SceneNode.h"

namespace kuStandalone {

void SceneTree::setRoot(osg::NodePtr node) {
  if (root) SceneNode::of(root).setTree(nullptr);
  root = std::move(node);
  if (root) SceneNode::of(root).setTree(this);
}

}  // namespace kuStandalone
