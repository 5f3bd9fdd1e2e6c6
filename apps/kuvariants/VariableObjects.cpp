#include "VariableObjects.h"

#include <map>
#include <set>
#include <string>
#include <vector>

#include "Diagnostics.h"
#include "Page.h"
#include "SceneState.h"
#include "host/osg/Sceneplate.h"
#include "standalone/scene/Scene.h"
#include "standalone/scene/ScenePool.h"

using namespace kuStandalone;

namespace {

/** Something of the scene that can vary. */
struct VariableObject {
  /** The kind of its variant. */
  std::string kind;
  std::string name;
  std::vector<std::string> states;
};

using Objects = std::vector<VariableObject>;

std::vector<std::string> childNames(const osg::NodePtr& node) {
  std::vector<std::string> names;
  for (unsigned i = 0; i < node->getNChildren(); ++i)
    names.emplace_back(kuNodeUtils::getName(node->getChild(i)));
  return names;
}

std::vector<std::string> transformNames(const osg::NodePtr& node) {
  std::vector<std::string> names;
  for (int i = 0; i < kuNodeUtils::getTransformVariantCount(node); ++i)
    names.push_back(kuNodeUtils::getTransformVariantName(node, i));
  return names;
}

void appendNode(Objects& objects, const osg::NodePtr& node) {
  const std::string name = kuNodeUtils::getName(node);
  const osg::NodeCorePtr core = node->getCore();
  if (osg::SwitchPtr::dcast(core) && node->getNChildren() > 0) {
    objects.push_back({"node", name, childNames(node)});
  }
  if (kuNodeUtils::hasTransformVariants(node)) {
    objects.push_back({"transform", name, transformNames(node)});
  }
  if (osg::UberLightPtr::dcast(core)) objects.push_back({"light", name, {}});
}

/** As the variants are made: not those plates that stand in a switch. */
void appendPlates(Objects& objects, const osg::NodePtr& node, bool inSwitch) {
  const bool isSwitch = static_cast<bool>(osg::SwitchPtr::dcast(node->getCore()));
  const std::string name = kuNodeUtils::getName(node);
  if (isSwitch && node->getNChildren() > 0) objects.push_back({"overlay", name, childNames(node)});
  if (osg::SceneplatePtr::dcast(node->getCore()) && !inSwitch) {
    objects.push_back({"overlay", name, {}});
  }
  for (unsigned i = 0; i < node->getNChildren(); ++i)
    appendPlates(objects, node->getChild(i), inSwitch || isSwitch);
}

Objects variableObjects() {
  Objects objects;
  std::vector<kuNodePtr> nodes;
  kuNodeUtils::getSubTreeNodes(kuScenegraph::getRootNode(), nodes);
  for (const kuNodePtr& node : nodes)
    appendNode(objects, node);
  for (const osg::MaterialPtr& material : ScenePool::of(Scene::the().pool).materials()) {
    if (!material->isMultiState()) continue;
    objects.push_back({"material", kuMaterials::getName(material), stateNames(*material)});
  }
  if (const osg::NodePtr root = kuSceneplateUtils::getSceneplateRoot()) {
    appendPlates(objects, root, false);
  }
  return objects;
}

/** The first name that stands twice in the list, or null. */
const std::string* doubledName(const std::vector<std::string>& names) {
  std::set<std::string> seen;
  for (const std::string& name : names) {
    if (!seen.insert(name).second) return &name;
  }
  return nullptr;
}

void warn(const VariableObject& object, const std::string& what) {
  printDiagnostic("warning: " + object.kind + " \"" + object.name + "\" " + what);
}

void warnOfDoubledState(const VariableObject& object) {
  const std::string* doubled = doubledName(object.states);
  if (!doubled) return;
  warn(object, "has several states \"" + *doubled + "\"; only the first can be selected");
}

void warnOfUnnamed(std::size_t count) {
  if (count == 0) return;
  printDiagnostic("warning: " + counted(count, "object") +
                  " without a name could vary; no variant was made for " +
                  (count == 1 ? "it" : "them"));
}

/** The objects that share one variant, as they share kind and name. */
struct Sharers {
  std::vector<std::string> states;
  bool differ = false;
};

}  // namespace

void warnOfVariableObjects() {
  std::map<std::pair<std::string, std::string>, Sharers> variants;
  std::size_t unnamed = 0;
  for (const VariableObject& object : variableObjects()) {
    if (object.name.empty()) {
      ++unnamed;
      continue;
    }
    const auto [variant, isFirst] = variants.insert({{object.kind, object.name}, {object.states}});
    Sharers& sharers = variant->second;
    if (isFirst) warnOfDoubledState(object);
    if (sharers.differ || sharers.states == object.states) continue;
    sharers.differ = true;
    warn(object, "stands for several with different states; the variant lists those of the first");
  }
  warnOfUnnamed(unnamed);
}
