#pragma once

#include <random>
#include <vector>

#include "standalone/scene/SceneWalk.h"

/** What random edits of the present scene have in common; the same seed makes the same ones. */
class SceneEdits {
 protected:
  explicit SceneEdits(unsigned seed) : _random(seed) {}

  unsigned below(std::size_t count) { return static_cast<unsigned>(_random() % count); }

  osg::NodePtr anyNode() {
    const std::vector<kuStandalone::SceneNode*> nodes = allNodes();
    return osg::NodePtr(nodes[below(nodes.size())]);
  }

  /** Takes a subtree out; null where the root came up, which stays. */
  osg::NodePtr takeOut() {
    const osg::NodePtr node = anyNode();
    const osg::NodePtr parent = node->getParent();
    if (!parent) return osg::NullFC;
    kuStandalone::SceneNode::of(parent).removeChild(node);
    return node;
  }

  void move() {
    const osg::NodePtr node = takeOut();
    if (node) kuStandalone::SceneNode::of(anyNode()).addChild(node);
  }

 private:
  std::mt19937 _random;
};
