#include "host/utils/kuSceneplateUtils.h"

#include "host/osg/Sceneplate.h"
#include "host/osg/Switch.h"
#include "standalone/scene/Scene.h"
#include "standalone/scene/SceneNode.h"

using kuStandalone::NameIndex;
using kuStandalone::Scene;
using kuStandalone::SceneNode;

namespace {

bool holdsSceneplates(const SceneNode& node) {
  return osg::SceneplatePtr::dcast(node.core()) || osg::SwitchPtr::dcast(node.core());
}

void appendBelow(const osg::NodePtr& node, std::vector<osg::NodePtr>& nodes) {
  for (const osg::NodePtr& child : SceneNode::of(node).children()) {
    if (holdsSceneplates(SceneNode::of(child))) nodes.push_back(child);
    appendBelow(child, nodes);
  }
}

}  // namespace

osg::NodePtr kuSceneplateUtils::getSceneplateRoot() { return Scene::the().sceneplates.root; }

void kuSceneplateUtils::findNodes(const std::string& name, std::vector<osg::NodePtr>& nodes) {
  const NameIndex::Nodes* found = Scene::the().sceneplates.names.find(name);
  if (!found) return;
  for (SceneNode* node : *found) {
    if (node->parent()) nodes.emplace_back(node);  // below the root, which is no sceneplate
  }
}

osg::NodePtr kuSceneplateUtils::findNode(const std::string& name) {
  std::vector<osg::NodePtr> nodes;
  findNodes(name, nodes);
  return nodes.empty() ? osg::NodePtr() : nodes.front();
}

std::vector<osg::NodePtr> kuSceneplateUtils::getAllNodes() {
  std::vector<osg::NodePtr> nodes;
  if (const osg::NodePtr root = getSceneplateRoot()) appendBelow(root, nodes);
  return nodes;
}
