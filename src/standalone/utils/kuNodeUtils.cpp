#include "host/utils/kuNodeUtils.h"

#include <algorithm>
#include <unordered_set>

#include "standalone/scene/Cores.h"
#include "standalone/scene/SceneNode.h"

using kuStandalone::SceneNode;
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

std::string kuNodeUtils::getUniqueName(const std::string& name,
                                       const std::vector<std::string>& used) {
  const std::unordered_set<std::string> taken(used.begin(), used.end());
  std::string result = name;
  for (unsigned number = 1; taken.count(result) != 0; ++number) {
    result = name + std::to_string(number);
  }
  return result;
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
