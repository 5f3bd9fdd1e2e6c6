#include "host/kernel/kuScenegraph.h"

#include "host/kernel/kuController.h"
#include "host/osg/EditCP.h"
#include "standalone/kernel/HostState.h"
#include "standalone/scene/Cores.h"
#include "standalone/scene/Scene.h"
#include "standalone/scene/SceneNode.h"

using kuStandalone::HostState;
using kuStandalone::NameIndex;
using kuStandalone::Scene;
using kuStandalone::SceneNode;
using kuStandalone::SwitchCore;

namespace {

/** The first node, depth first, whose core is marked as the switch of environment geometry. */
osg::NodePtr firstEnvironmentSwitch(const osg::NodePtr& node) {
  const osg::SwitchPtr core = osg::SwitchPtr::dcast(node->getCore());
  if (core && SwitchCore::of(core).environment) return node;
  for (const osg::NodePtr& child : SceneNode::of(node).children()) {
    if (osg::NodePtr found = firstEnvironmentSwitch(child)) return found;
  }
  return osg::NullFC;
}

}  // namespace

osg::NodePtr kuScenegraph::getRoot() { return Scene::the().nodes.root; }

kuNodePtr kuScenegraph::getRootNode() { return getRoot(); }

kuNodePtr kuScenegraph::findNode(const char* name) {
  const NameIndex::Nodes* nodes = name ? Scene::the().nodes.names.find(name) : nullptr;
  return nodes ? kuNodePtr(osg::NodePtr(nodes->front())) : kuNodePtr();
}

std::vector<kuNodePtr> kuScenegraph::findNodes(const char* name) {
  std::vector<kuNodePtr> result;
  const NameIndex::Nodes* nodes = name ? Scene::the().nodes.names.find(name) : nullptr;
  if (!nodes) return result;
  result.reserve(nodes->size());
  for (SceneNode* node : *nodes)
    result.emplace_back(osg::NodePtr(node));
  return result;
}

// The index of names is always up to date, so an open cache is no more than a flag.
bool kuScenegraph::hasFindCache() { return HostState::the().findCacheOpen; }

void kuScenegraph::initFindCache() {
  HostState::the().findCacheOpen = true;
  ++HostState::the().findCacheOpenings;
}

void kuScenegraph::clearFindCache() { HostState::the().findCacheOpen = false; }

void kuScenegraph::showNodes(const std::vector<kuNodePtr>& nodes) {
  ++HostState::the().showNodesCalls;
  for (const kuNodePtr& node : nodes) {
    if (!node.isValid()) continue;
    const osg::EditCP edit(node.getNode(), osg::Node::TravMaskFieldMask);
    node.getNode()->setActive(true);
  }
}

osg::MaterialPoolPtr kuScenegraph::getMaterialPool() { return Scene::the().pool; }

// Names, materials and places are always up to date here; what is left to follow is the picture.
void kuScenegraph::update(bool now) { kuController::updateRender(now); }

osg::NodePtr kuScenegraph::environmentGeometrySwitch() { return firstEnvironmentSwitch(getRoot()); }
