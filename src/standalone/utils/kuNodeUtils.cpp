#include "host/utils/kuNodeUtils.h"

#include <algorithm>

#include "host/osg/EditCP.h"
#include "standalone/scene/Cores.h"
#include "standalone/scene/NameIndex.h"
#include "standalone/scene/NodeCoreFields.h"
#include "standalone/scene/Scene.h"
#include "standalone/scene/SceneNode.h"

using kuStandalone::Scene;
using kuStandalone::SceneNode;
using kuStandalone::SwitchCore;
using kuStandalone::TransformState;
using kuStandalone::TransformSwitchCore;

namespace {

/** The core of a node that can stand in several transform states, otherwise null. */
const TransformSwitchCore* transformsOf(const osg::NodePtr& node) {
  if (!node || !osg::SwitchComponentTransformPtr::dcast(node->getCore())) return nullptr;
  return &TransformSwitchCore::of(node->getCore());
}

void appendSubTree(const osg::NodePtr& node, std::vector<kuNodePtr>& nodes) {
  nodes.emplace_back(node);
  for (const osg::NodePtr& child : SceneNode::of(node).children())
    appendSubTree(child, nodes);
}

}  // namespace

const char* kuNodeUtils::getName(const osg::NodePtr& node) {
  return node ? SceneNode::of(node).name().c_str() : "";
}

void kuNodeUtils::getSubTreeNodes(const kuNodePtr& node, std::vector<kuNodePtr>& nodes) {
  if (node.isValid()) appendSubTree(node.getNode(), nodes);
}

void kuNodeUtils::getSceneNodes(std::vector<kuNodePtr>& nodes, bool sceneplates) {
  const Scene& scene = Scene::the();
  if (scene.nodes.root) appendSubTree(scene.nodes.root, nodes);
  if (sceneplates && scene.sceneplates.root) appendSubTree(scene.sceneplates.root, nodes);
}

bool kuNodeUtils::isClone(const osg::NodePtr& node) {
  if (!node || !node->getCore()) return false;
  const SceneNode& own = SceneNode::of(node);
  if (!own.tree()) return false;
  const std::vector<SceneNode*>& parents = node->getCore()->hostFields().parents;
  return std::any_of(parents.begin(), parents.end(), [&](const SceneNode* other) {
    return other != &own && other->tree() == own.tree() && kuStandalone::standsBefore(*other, own);
  });
}

bool kuNodeUtils::isEnvironmentGeometrySwitch(const osg::NodePtr& node) {
  const auto core = node ? osg::SwitchPtr::dcast(node->getCore()) : osg::SwitchPtr();
  return core && SwitchCore::of(core).environment;
}

osg::MaterialPtr kuNodeUtils::getMaterial(const osg::NodePtr& node) {
  if (!node) return osg::NullFC;
  if (const auto group = osg::MaterialGroupPtr::dcast(node->getCore())) return group->getMaterial();
  const auto geometry = osg::GeometryPtr::dcast(node->getCore());
  return geometry ? geometry->getMaterial() : osg::MaterialPtr();
}

void kuNodeUtils::setMaterial(const osg::NodePtr& node, const osg::MaterialPtr& material, bool,
                              bool) {
  if (!node) return;
  if (const auto geometry = osg::GeometryPtr::dcast(node->getCore())) {
    const osg::EditCP edit(geometry, osg::Geometry::MaterialFieldMask);
    geometry->setMaterial(material);
  }
  for (const osg::NodePtr& child : SceneNode::of(node).children())
    setMaterial(child, material, false, false);
}

bool kuNodeUtils::isCloneOf(const osg::NodePtr& a, const osg::NodePtr& b) {
  return a && b && a != b && a->getCore() && a->getCore() == b->getCore();
}

bool kuNodeUtils::hasTransformVariants(const osg::NodePtr& node) {
  const TransformSwitchCore* core = transformsOf(node);
  if (!core) return false;
  // A list of states that is still empty is one that shall have names.
  return core->states.empty() ||
         std::any_of(core->states.begin(), core->states.end(),
                     [](const TransformState& state) { return !state.name.empty(); });
}

int kuNodeUtils::getTransformVariantCount(const osg::NodePtr& node) {
  const TransformSwitchCore* core = transformsOf(node);
  return core ? static_cast<int>(core->states.size()) : 0;
}

std::string kuNodeUtils::getTransformVariantName(const osg::NodePtr& node, int index) {
  if (index < 0 || index >= getTransformVariantCount(node)) return {};
  return transformsOf(node)->states[static_cast<std::size_t>(index)].name;
}

void kuNodeUtils::setTransformVariantName(const osg::NodePtr& node, int index,
                                          const std::string& name) {
  if (index < 0 || index >= getTransformVariantCount(node)) return;
  const osg::NodeCorePtr core = node->getCore();
  const osg::EditCP edit(core, TransformSwitchCore::StatesFieldMask);
  TransformSwitchCore::of(core).setStateName(static_cast<std::size_t>(index), name);
}

// The transform of such a node is that of its choice.
bool kuNodeUtils::isTransformVariantInState(const osg::NodePtr& node) {
  const TransformSwitchCore* core = transformsOf(node);
  return core && core->choice < core->states.size();
}

int kuNodeUtils::getTransformVariantIndex(const osg::NodePtr& node, const std::string& name) {
  const TransformSwitchCore* core = transformsOf(node);
  if (!core) return -1;
  const auto found = std::find_if(core->states.begin(), core->states.end(),
                                  [&](const TransformState& state) { return state.name == name; });
  return found == core->states.end() ? -1 : static_cast<int>(found - core->states.begin());
}

int kuNodeUtils::getTransformVariantSupposedActiveIndex(const osg::NodePtr& node) {
  const TransformSwitchCore* core = transformsOf(node);
  return core ? core->supposed : -1;
}
