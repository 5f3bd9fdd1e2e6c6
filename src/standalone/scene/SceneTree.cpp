#include "standalone/scene/SceneTree.h"

#include "standalone/scene/SceneNode.h"

namespace kuStandalone {

void SceneTree::setRoot(osg::NodePtr node) {
  names.clear();  // whole, since node by node it costs the square of those that share a name
  lights.clear();
  if (root) SceneNode::of(root).setTree(nullptr);
  root = std::move(node);
  if (root) SceneNode::of(root).setTree(this);
}

void SceneTree::enter(SceneNode& node) {
  names.add(node);
  lights.note(node.core());
  noteLayer(node);
}

void SceneTree::leave(SceneNode& node) {
  names.remove(node);
  lights.note(node.core());
  layered.erase(node.id());
}

void SceneTree::noteLayer(SceneNode& node) {
  if (node.renderLayer()) {
    layered[node.id()] = &node;
  } else {
    layered.erase(node.id());
  }
}

}  // namespace kuStandalone
