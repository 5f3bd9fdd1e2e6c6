#include "CaptureDifference.h"

#include <algorithm>

#include "capture/kuVariantCaptureChecker.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"
#include "scene/kuMaterialVariant.h"
#include "standalone/scene/EditBrackets.h"
#include "standalone/scene/MaterialFields.h"
#include "standalone/scene/Scene.h"
#include "standalone/scene/ScenePool.h"

using namespace kuStandalone;

namespace {

const osg::MFMaterialPtr& sceneMaterials() { return ScenePool::of(Scene::the().pool).materials(); }

QString nameOf(const osg::MaterialPtr& material) {
  return QString::fromUtf8(kuMaterials::getName(material));
}

std::map<QString, QString> materialStates(const kuVariantSet& set) {
  std::map<QString, QString> states;
  for (const kuVariantState& state : set.getMaterialVariants())
    states.emplace(state.getVariant(), state.getState());
  return states;
}

std::vector<std::string> transformStates(const osg::NodePtr& node) {
  std::vector<std::string> names;
  for (int index = 0; index < kuNodeUtils::getTransformVariantCount(node); ++index)
    names.push_back(kuNodeUtils::getTransformVariantName(node, index));
  return names;
}

bool isOfFile(const osg::SwitchMaterialPtr& material) {
  if (material->hostFields().source >= 0) return true;
  for (const FileVariant& variant : Scene::the().fileVariants) {
    for (const auto& choice : variant.choices) {
      if (choice.first == material) return true;
    }
  }
  return false;
}

QStringList variantNames() {
  QStringList names;
  for (const kuMaterialVariant* variant : kuVariants::getMaterialVariants())
    names += variant->getName();
  return names;
}

}  // namespace

CaptureDifference::CaptureDifference() : _variants(variantNames()) {
  for (const osg::MaterialPtr& material : sceneMaterials()) {
    if (const auto known = osg::SwitchMaterialPtr::dcast(material))
      _materials[known] = known->getMaterials();
  }
  for (const kuVariantSet* set : kuVariants::getVariantSets())
    _states.emplace(set->getName(), materialStates(*set));
  if (kuVariantCaptureChecker().hasAmbiguousNodes()) noteNames();
  EditBrackets::watch([this](const osg::FieldContainer& edited, osg::FieldMask) { note(edited); });
}

CaptureDifference::~CaptureDifference() { EditBrackets::watch({}); }

void CaptureDifference::noteNames() {
  std::vector<kuNodePtr> nodes;
  kuNodeUtils::getSceneNodes(nodes, true);
  for (const kuNodePtr& node : nodes)
    _nodes.push_back(
        {node, kuNodeUtils::getName(node), kuVariants::getNodePath(node), transformStates(node)});
}

void CaptureDifference::note(const osg::FieldContainer& edited) {
  if (!edited.getType().isDerivedFrom(osg::SwitchMaterial::_type)) return;
  const auto found = std::find_if(_edited.begin(), _edited.end(),
                                  [&](const auto& one) { return one.get() == &edited; });
  if (found != _edited.end()) return;
  _edited.emplace_back(
      static_cast<osg::SwitchMaterial*>(const_cast<osg::FieldContainer*>(&edited)));
}

QStringList CaptureDifference::addedTo(const osg::SwitchMaterialPtr& material) const {
  const auto former = _materials.find(material);
  QStringList added;
  for (const osg::MaterialPtr& entry : material->getMaterials()) {
    const bool isOld =
        former != _materials.end() &&
        std::find(former->second.begin(), former->second.end(), entry) != former->second.end();
    if (!isOld) added += nameOf(entry);
  }
  return added;
}

CaptureDifference::StateList CaptureDifference::newStatesFor(const QString& variant) const {
  StateList states;
  for (const kuVariantSet* set : kuVariants::getVariantSets()) {
    const States now = materialStates(*set);
    const auto state = now.find(variant);
    if (state == now.end()) continue;
    const auto formerSet = _states.find(set->getName());
    const bool isOld = formerSet != _states.end() && formerSet->second.count(variant) != 0 &&
                       formerSet->second.at(variant) == state->second;
    if (!isOld) states.emplace_back(set->getName(), state->second);
  }
  return states;
}

SwitchChange CaptureDifference::changeOf(const osg::SwitchMaterialPtr& material) const {
  SwitchChange change;
  change.name = nameOf(material);
  change.isNew = _materials.count(material) == 0;
  change.isOfFile = isOfFile(material);
  change.isVariantNew =
      kuVariants::findMaterialVariant(change.name) && !_variants.contains(change.name);
  change.added = addedTo(material);
  for (const osg::MaterialPtr& entry : material->getMaterials())
    change.materials += nameOf(entry);
  std::vector<kuNodePtr> nodes;
  kuMaterials::getNodesWithMaterial(nodes, material);
  for (const kuNodePtr& node : nodes)
    change.nodes += kuVariants::getNodePath(node);
  change.states = newStatesFor(change.name);
  return change;
}

/** A switch that the scene had, and that one set more selects, is no change of the scene's. */
bool CaptureDifference::isChanged(const SwitchChange& change) const {
  const auto isOfAnotherSet = [&](const auto& state) { return _states.count(state.first) != 0; };
  return change.isNew || !change.added.isEmpty() ||
         std::any_of(change.states.begin(), change.states.end(), isOfAnotherSet);
}

std::vector<SwitchChange> CaptureDifference::switches() const {
  std::vector<osg::SwitchMaterialPtr> order = _edited;
  for (const osg::MaterialPtr& material : sceneMaterials()) {
    const auto known = osg::SwitchMaterialPtr::dcast(material);
    if (known && std::find(order.begin(), order.end(), known) == order.end())
      order.push_back(known);
  }
  std::vector<SwitchChange> changes;
  for (const osg::SwitchMaterialPtr& material : order) {
    const SwitchChange change = changeOf(material);
    if (isChanged(change)) changes.push_back(change);
  }
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
