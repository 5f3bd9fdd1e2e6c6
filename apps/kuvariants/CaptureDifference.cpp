#include "CaptureDifference.h"

#include <algorithm>

#include "capture/kuVariantCaptureChecker.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"
#include "scene/kuMaterialVariant.h"
#include "standalone/scene/MaterialFields.h"
#include "standalone/scene/Scene.h"
#include "standalone/scene/ScenePool.h"

using namespace kuStandalone;

namespace {

const osg::MFMaterialPtr& sceneMaterials() { return ScenePool::of(Scene::the().pool).materials(); }

QString nameOf(const osg::MaterialPtr& material) {
  return QString::fromUtf8(kuMaterials::getName(material));
}

/** Of several states of one variant the first one counts. */
QHash<QString, QString> materialStates(const kuVariantSet& set) {
  QHash<QString, QString> states;
  for (const kuVariantState& state : set.getMaterialVariants()) {
    if (!states.contains(state.getVariant())) states.insert(state.getVariant(), state.getState());
  }
  return states;
}

/** The places of the variants among the set's states. */
QHash<QString, std::size_t> placesIn(const kuVariantSet& set) {
  QHash<QString, std::size_t> places;
  for (const kuVariantState& state : set.getMaterialVariants()) {
    const auto next = static_cast<std::size_t>(places.size());
    if (!places.contains(state.getVariant())) places.insert(state.getVariant(), next);
  }
  return places;
}

std::vector<std::string> transformStates(const osg::NodePtr& node) {
  std::vector<std::string> names;
  for (int index = 0; index < kuNodeUtils::getTransformVariantCount(node); ++index)
    names.push_back(kuNodeUtils::getTransformVariantName(node, index));
  return names;
}

std::set<osg::MaterialPtr> fileSwitches() {
  std::set<osg::MaterialPtr> switches;
  for (const FileVariant& variant : Scene::the().fileVariants) {
    for (const auto& choice : variant.choices)
      switches.insert(choice.first);
  }
  return switches;
}

QSet<QString> variantNames() {
  QSet<QString> names;
  for (const kuMaterialVariant* variant : kuVariants::getMaterialVariants())
    names.insert(variant->getName());
  return names;
}

}  // namespace

CaptureDifference::CaptureDifference() : _fileSwitches(fileSwitches()), _variants(variantNames()) {
  for (const osg::MaterialPtr& material : sceneMaterials()) {
    if (const auto known = osg::SwitchMaterialPtr::dcast(material))
      _materials[known] = known->getMaterials();
  }
  for (const kuVariantSet* set : kuVariants::getVariantSets())
    _states.insert(set->getName(), materialStates(*set));
  if (kuVariantCaptureChecker().hasAmbiguousNodes()) noteNames();
}

void CaptureDifference::noteNames() {
  std::vector<kuNodePtr> nodes;
  kuNodeUtils::getSceneNodes(nodes, true);
  for (const kuNodePtr& node : nodes)
    _nodes.push_back(
        {node, kuNodeUtils::getName(node), kuVariants::getNodePath(node), transformStates(node)});
}

std::vector<osg::MaterialPtr> CaptureDifference::addedTo(
    const osg::SwitchMaterialPtr& material) const {
  std::set<osg::MaterialPtr> known;
  const auto former = _materials.find(material);
  if (former != _materials.end()) known.insert(former->second.begin(), former->second.end());
  std::vector<osg::MaterialPtr> added;
  for (const osg::MaterialPtr& entry : material->getMaterials()) {
    if (known.count(entry) == 0) added.push_back(entry);
  }
  return added;
}

QHash<QString, CaptureDifference::StateList> CaptureDifference::newStates() const {
  QHash<QString, StateList> all;
  for (const kuVariantSet* set : kuVariants::getVariantSets()) {
    const States former = _states.value(set->getName());
    const States present = materialStates(*set);
    for (auto state = present.begin(); state != present.end(); ++state) {
      const auto old = former.find(state.key());
      const bool isOld = old != former.end() && old.value() == state.value();
      if (!isOld) all[state.key()].emplace_back(set->getName(), state.value());
    }
  }
  return all;
}

/** A switch that the scene had, and that one set more selects, is no change of the scene's. */
bool CaptureDifference::isChanged(const osg::SwitchMaterialPtr& material,
                                  const StateList& states) const {
  const auto isOfAnotherSet = [&](const auto& state) { return _states.contains(state.first); };
  return _materials.count(material) == 0 || !addedTo(material).empty() ||
         std::any_of(states.begin(), states.end(), isOfAnotherSet);
}

SwitchChange CaptureDifference::changeOf(const osg::SwitchMaterialPtr& material,
                                         const StateList& states) const {
  SwitchChange change;
  change.name = nameOf(material);
  change.isNew = _materials.count(material) == 0;
  change.isOfFile = material->hostFields().source >= 0 || _fileSwitches.count(material) != 0;
  change.isOfEnvironments = osg::UEnvironmentSwitchMaterialPtr::dcast(material) != osg::NullFC;
  change.isVariantNew =
      kuVariants::findMaterialVariant(change.name) && !_variants.contains(change.name);
  for (const osg::MaterialPtr& entry : addedTo(material))
    change.added += nameOf(entry);
  for (const osg::MaterialPtr& entry : material->getMaterials())
    change.materials += nameOf(entry);
  std::vector<kuNodePtr> nodes;
  kuMaterials::getNodesWithMaterial(nodes, material);
  for (const kuNodePtr& node : nodes)
    change.nodes += kuVariants::getNodePath(node);
  change.states = states;
  return change;
}

std::vector<SwitchChange> CaptureDifference::switches(const kuVariantSet& captured) const {
  const QHash<QString, StateList> states = newStates();
  std::vector<SwitchChange> changes;
  for (const osg::MaterialPtr& material : sceneMaterials()) {
    const auto known = osg::SwitchMaterialPtr::dcast(material);
    if (!known) continue;
    const StateList ofSwitch = states.value(nameOf(known));
    if (isChanged(known, ofSwitch)) changes.push_back(changeOf(known, ofSwitch));
  }
  // The set got its states as the walk came to the materials; what it has none of comes last.
  const QHash<QString, std::size_t> places = placesIn(captured);
  const auto none = static_cast<std::size_t>(places.size());
  std::stable_sort(changes.begin(), changes.end(), [&](const auto& a, const auto& b) {
    return places.value(a.name, none) < places.value(b.name, none);
  });
  return changes;
}

std::vector<Renaming> CaptureDifference::renamings() const {
  std::vector<Renaming> renamings;
  for (const NamedNode& former : _nodes) {
    const std::string name = kuNodeUtils::getName(former.node);
    if (name != former.name) renamings.push_back({former.path, {}, QString::fromStdString(name)});
    const std::vector<std::string> states = transformStates(former.node);
    for (std::size_t index = 0; index < states.size(); ++index) {
      if (states[index] == former.transformStates[index]) continue;
      renamings.push_back({former.path, QString::fromStdString(former.transformStates[index]),
                           QString::fromStdString(states[index])});
    }
  }
  return renamings;
}
