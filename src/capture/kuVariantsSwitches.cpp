#include <algorithm>
#include <string>

#include "capture/kuSnapshotIndex.h"
#include "host/kernel/kuController.h"
#include "host/kernel/kuLog.h"
#include "host/osg/EditCP.h"
#include "host/osg/UEnvironmentMaterial.h"
#include "host/utils/kuMaterials.h"
#include "host/utils/kuNodeUtils.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSetKeeper.h"
#include "scene/kuSwitchMaterials.h"

// The switch materials of a capture: made, grown, split and merged.

namespace {

QString nameOf(const osg::MaterialPtr& material) {
  return QString::fromUtf8(kuMaterials::getName(material));
}

void addMaterial(const osg::SwitchMaterialPtr& target, const osg::MaterialPtr& material) {
  const osg::EditCP edit(target, osg::MultiMaterial::MaterialsFieldMask);
  target->addMaterial(material);
}

/** Lets the switch show the first entry that is the very material; otherwise it stays. */
void show(const osg::SwitchMaterialPtr& target, const osg::MaterialPtr& material) {
  const osg::MFMaterialPtr& entries = target->getMaterials();
  const auto found = std::find(entries.begin(), entries.end(), material);
  if (found == entries.end()) return;
  const osg::EditCP edit(target, osg::SwitchMaterialBase::ChoiceFieldMask);
  target->setChoice(static_cast<unsigned>(found - entries.begin()));
}

/** Enters a new switch into the scene under a name that the host gives it. */
void introduce(const osg::SwitchMaterialPtr& material) {
  kuSwitchMaterials::enterIntoPool(material);
  kuMessage message;
  message.set("name", std::string("Switch"), true);
  kuController::call("MaterialGetUniqueName", message, 1);
  std::string name;
  message.get("newname", name);
  kuMaterials::setName(material, name.c_str(), true);
  kuLog::info("Created new material '%s'.", name.c_str());
}

/** The set's state for a material variant by name; empty where it has none. */
QString stateOf(kuVariantSet& set, const QString& variant) {
  const kuVariantState* state = set.findMaterialVariant(variant);
  return state ? state->getState() : QString();
}

}  // namespace

void kuVariants::changeMaterial(osg::NodePtr node, osg::MaterialPtr material) {
  if (const auto group = osg::MaterialGroupPtr::dcast(node->getCore())) {
    const osg::EditCP edit(group, osg::MaterialGroup::MaterialFieldMask);
    group->setMaterial(material);
  } else {
    kuNodeUtils::setMaterial(node, material, false, false);
  }
}

bool kuVariants::compareSwitches(osg::SwitchMaterialPtr a, osg::SwitchMaterialPtr b) {
  return !a->getMaterials().empty() && a->getMaterials() == b->getMaterials();
}

// A switch counts as an entry by what it holds, anything else by its identity.
bool kuVariants::checkIfMaterialAlreadyAdded(osg::MaterialPtr material,
                                             osg::SwitchMaterialPtr target) {
  const osg::MFMaterialPtr& entries = target->getMaterials();
  const auto sought = osg::SwitchMaterialPtr::dcast(material);
  return std::any_of(entries.begin(), entries.end(), [&](const osg::MaterialPtr& entry) {
    if (!sought) return entry == material;
    const auto other = osg::SwitchMaterialPtr::dcast(entry);
    return other && compareSwitches(other, sought);
  });
}

// One level only.
bool kuVariants::checkForMaterialRecursion(osg::MaterialPtr material,
                                           osg::SwitchMaterialPtr target) {
  const auto outer = osg::SwitchMaterialPtr::dcast(material);
  return outer && outer->hasSubMaterial(target, false);
}

void kuVariants::createSwitchAndAddMaterial(osg::NodePtr node, osg::MaterialPtr material,
                                            osg::SwitchMaterialPtr& switchMaterial,
                                            Switches& createdSwitches) {
  if (osg::UEnvironmentMaterialPtr::dcast(material)) {
    switchMaterial = osg::UEnvironmentSwitchMaterial::create();
  } else {
    switchMaterial = osg::SwitchMaterial::create();
    createdSwitches.insert(switchMaterial);
  }
  if (material != switchMaterial) addMaterial(switchMaterial, material);
  introduce(switchMaterial);
  changeMaterial(node, switchMaterial);
}

// The other set needs no new state: it selects this switch already.
void kuVariants::addMaterialToExistingSwitch(osg::NodePtr node, osg::SwitchMaterialPtr& otherSwitch,
                                             osg::MaterialPtr& material,
                                             osg::SwitchMaterialPtr& switchMaterial,
                                             kuVariantSet* set, kuVariantSet* otherSet,
                                             Materials& handledMaterials, QString path,
                                             bool& sendMessage) {
  const bool already = checkIfMaterialAlreadyAdded(material, otherSwitch);
  const bool recursion = checkForMaterialRecursion(material, otherSwitch);
  if (osg::SwitchMaterialPtr::dcast(material)) return;
  const kuVariantSet::Keeper kept(*set);
  const kuVariantSet::Keeper other(*otherSet);
  if (!already && !recursion && material != otherSwitch) addMaterial(otherSwitch, material);
  show(otherSwitch, material);
  changeMaterial(node, otherSwitch);
  if (kuMaterialVariant* variant = createMaterialVariant(otherSwitch, sendMessage)) {
    kept->add(variant, nameOf(material));
  }
  switchMaterial = otherSwitch;
  kuSnapshotIndex::replace(*other, path, nameOf(switchMaterial));
  handledMaterials.insert(switchMaterial);
}

void kuVariants::duplicateSwitchAndAddMaterial(
    osg::NodePtr node, osg::SwitchMaterialPtr& otherSwitch, osg::MaterialPtr& material,
    osg::SwitchMaterialPtr& switchMaterial, kuVariantSet* set, kuVariantSet* otherSet,
    Materials& handledMaterials, Switches& createdSwitches, QString path, bool& switchDuplicated,
    bool& sendMessage) {
  const kuVariantSet::Keeper kept(*set);
  const kuVariantSet::Keeper other(*otherSet);
  switchMaterial = osg::SwitchMaterial::create();
  createdSwitches.insert(switchMaterial);
  const osg::MFMaterialPtr entries = otherSwitch->getMaterials();
  for (const osg::MaterialPtr& entry : entries) {
    if (entry != switchMaterial) addMaterial(switchMaterial, entry);
  }
  const bool already = checkIfMaterialAlreadyAdded(material, switchMaterial);
  const bool recursion = checkForMaterialRecursion(material, switchMaterial);
  if (!already && !recursion) addMaterial(switchMaterial, material);
  switchDuplicated = true;
  show(switchMaterial, material);
  introduce(switchMaterial);
  changeMaterial(node, switchMaterial);
  if (kuMaterialVariant* variant = createMaterialVariant(switchMaterial, sendMessage)) {
    kept->add(variant, nameOf(material));
    other->add(variant, stateOf(*other, other->getMaterialSnapshot(path)));
  }
  kuSnapshotIndex::replace(*other, path, nameOf(switchMaterial));
  handledMaterials.insert(switchMaterial);
}

void kuVariants::optimizeMaterialSwitches(kuNodePtr node, QString path,
                                          osg::MaterialPtr oldMaterial,
                                          osg::SwitchMaterialPtr target,
                                          Switches& createdSwitches) {
  const osg::MaterialPtr material = kuNodeUtils::getMaterial(node);
  if (!material || material == oldMaterial) return;
  const auto own = osg::SwitchMaterialPtr::dcast(material);
  if (!own) return;
  const auto earlier = std::find_if(createdSwitches.begin(), createdSwitches.end(),
                                    [&](const osg::SwitchMaterialPtr& other) {
                                      return other && other != own && compareSwitches(own, other);
                                    });
  if (earlier == createdSwitches.end()) return;
  target = *earlier;
  changeMaterial(node, target);
  const QString merged = nameOf(own);
  createdSwitches.erase(own);
  kuMaterials::removeMaterial(own);
  removeMaterialVariant(merged);
  for (kuVariantSet* set : _variantSets.entries()) {
    set->removeMaterialVariant(merged);
    if (set->containsMaterialSnapshot(path)) kuSnapshotIndex::replace(*set, path, nameOf(target));
  }
}
