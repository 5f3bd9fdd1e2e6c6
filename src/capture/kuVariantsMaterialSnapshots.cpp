#include "capture/kuSnapshotIndex.h"
#include "host/osg/EditCP.h"
#include "host/utils/kuMaterials.h"
#include "host/utils/kuNodeUtils.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSetKeeper.h"

// Where sets differ in the material of a node: the node gets a switch that holds the materials of
// all of them, and each set the state that shows its own. A restore goes the same way, but only
// assigns.

namespace {

QString nameOf(const osg::MaterialPtr& material) {
  return QString::fromUtf8(kuMaterials::getName(material));
}

}  // namespace

/** One node's material held against what the sets remember for its path. */
class kuVariants::SnapshotComparison {
 public:
  SnapshotComparison(kuVariantSet* captured, const kuNodePtr& at, const QString& nodePath,
                     const osg::MaterialPtr& present, NodePaths& pathsHandled,
                     Switches& switchesCreated, Materials& materialsHandled, bool capturing,
                     bool announce)
      : set(*captured),
        node(at),
        path(nodePath),
        pathBytes(nodePath.toUtf8()),
        material(present),
        ownSwitch(osg::SwitchMaterialPtr::dcast(present)),
        materialName(nameOf(present)),
        handledPaths(pathsHandled),
        createdSwitches(switchesCreated),
        handledMaterials(materialsHandled),
        isCapturing(capturing),
        sendMessage(announce) {}

  void compareWith(kuVariantSet* compared);

 private:
  using KeptSet = kuVariantSet::Keeper;

  bool differsFrom(const KeptSet& other, QString& otherName) const;
  void compareWithSwitch(const KeptSet& other, osg::SwitchMaterialPtr otherSwitch,
                         const QString& otherName);
  bool isSharedOtherwise(const KeptSet& other, const QString& otherName);
  bool isSharedOtherwise(const KeptSet& other, const QString& otherName, kuSnapshotIndex& index);
  void settleSwitch();
  void addToSwitch(const osg::MaterialPtr& otherMaterial);
  void addStates(const KeptSet& other, const osg::MaterialPtr& otherMaterial,
                 const QString& otherName);

  const KeptSet set;
  osg::NodePtr node;
  QString path;
  QByteArray pathBytes;
  osg::MaterialPtr material;
  osg::SwitchMaterialPtr ownSwitch;
  QString materialName;
  NodePaths& handledPaths;
  Switches& createdSwitches;
  Materials& handledMaterials;
  bool isCapturing;
  bool sendMessage;

  // These live over all sets of the comparison.

  /** The switch that the node ends up with, once known. */
  osg::SwitchMaterialPtr switchMaterial;
  bool needsDuplicate = false;
  bool switchDuplicated = false;
};

void kuVariants::handleMaterialSnapshots(kuVariantSet* set, kuNodePtr node, QString path,
                                         osg::MaterialPtr material, std::vector<kuNodePtr>,
                                         NodePaths& handledPaths, Switches& createdSwitches,
                                         Materials& handledMaterials, bool isCapturing,
                                         bool sendMessage) {
  if (kuNodeUtils::isClone(node)) return;
  SnapshotComparison comparison(set, node, path, material, handledPaths, createdSwitches,
                                handledMaterials, isCapturing, sendMessage);
  // A receiver of what is told on the way may remove sets.
  for (std::size_t index = 0; index < _variantSets.entries().size(); ++index)
    comparison.compareWith(_variantSets.entries()[index]);
}

void kuVariants::SnapshotComparison::compareWith(kuVariantSet* compared) {
  if (compared == &*set) return;
  const KeptSet other(*compared);
  QString otherName;
  if (!differsFrom(other, otherName)) return;
  if (!checkIfNodeMatchesNodePath(node, pathBytes.constData(), false)) return;
  const osg::MaterialPtr otherMaterial =
      kuMaterials::findMaterial(otherName.toUtf8().constData()).getMaterial();
  if (!otherMaterial) return;
  if (!isCapturing || handledMaterials.count(otherMaterial) != 0) {
    changeMaterial(node, otherMaterial);
    return;
  }
  if (!switchMaterial) {
    if (const auto otherSwitch = osg::SwitchMaterialPtr::dcast(otherMaterial)) {
      compareWithSwitch(other, otherSwitch, otherName);
      return;
    }
  }
  settleSwitch();
  if (!switchMaterial) return;
  addToSwitch(otherMaterial);
  addStates(other, otherMaterial, otherName);
}

/** By names, not by identity. */
bool kuVariants::SnapshotComparison::differsFrom(const KeptSet& other, QString& otherName) const {
  const auto snapshot = other->materialSnapshots.find(path);
  if (snapshot == other->materialSnapshots.end()) return false;
  otherName = snapshot->second;
  return otherName != materialName;
}

void kuVariants::SnapshotComparison::compareWithSwitch(const KeptSet& other,
                                                       osg::SwitchMaterialPtr otherSwitch,
                                                       const QString& otherName) {
  if (isSharedOtherwise(other, otherName)) needsDuplicate = true;
  if (ownSwitch && compareSwitches(otherSwitch, ownSwitch)) return;
  if (needsDuplicate) {
    duplicateSwitchAndAddMaterial(node, otherSwitch, material, switchMaterial, &*set, &*other,
                                  handledMaterials, createdSwitches, path, switchDuplicated,
                                  sendMessage);
  } else {
    addMaterialToExistingSwitch(node, otherSwitch, material, switchMaterial, &*set, &*other,
                                handledMaterials, path, sendMessage);
  }
}

/** Whether a node of another path shares the other set's switch and now bears another material than
 * this node. The paths of those that bear the same are noted. */
bool kuVariants::SnapshotComparison::isSharedOtherwise(const KeptSet& other,
                                                       const QString& otherName) {
  if (kuSnapshotIndex* index = kuSnapshotIndex::present()) {
    return isSharedOtherwise(other, otherName, *index);
  }
  kuSnapshotIndex once;
  return isSharedOtherwise(other, otherName, once);
}

bool kuVariants::SnapshotComparison::isSharedOtherwise(const KeptSet& other,
                                                       const QString& otherName,
                                                       kuSnapshotIndex& index) {
  kuSnapshotIndex::Paths& paths = index.pathsOf(*other, otherName);
  for (auto otherPath = paths.begin(); otherPath != paths.end();) {
    if (*otherPath == path) {
      ++otherPath;
      continue;
    }
    if (other->getMaterialSnapshot(*otherPath) == otherName &&
        handledPaths.count(*otherPath) == 0) {
      const osg::NodePtr sharing = firstNodeOfPath(otherPath->toUtf8().constData());
      if (sharing && kuNodeUtils::getMaterial(sharing) != material) return true;
      handledPaths.insert(*otherPath);
    }
    otherPath = paths.erase(otherPath);  // done with for all nodes of the capture
  }
  return false;
}

void kuVariants::SnapshotComparison::settleSwitch() {
  if (switchMaterial) return;
  if (ownSwitch) {
    switchMaterial = ownSwitch;
  } else {
    createSwitchAndAddMaterial(node, material, switchMaterial, createdSwitches);
  }
}

void kuVariants::SnapshotComparison::addToSwitch(const osg::MaterialPtr& otherMaterial) {
  const bool already = checkIfMaterialAlreadyAdded(otherMaterial, switchMaterial);
  const bool recursion = checkForMaterialRecursion(otherMaterial, switchMaterial);
  if (already || recursion || switchDuplicated || otherMaterial == switchMaterial) return;
  const osg::EditCP edit(switchMaterial, osg::MultiMaterial::MaterialsFieldMask);
  switchMaterial->addMaterial(otherMaterial);
}

/** The switch shows by the states of its variant, which hold material names; its choice stays. */
void kuVariants::SnapshotComparison::addStates(const KeptSet& other,
                                               const osg::MaterialPtr& otherMaterial,
                                               const QString& otherName) {
  if (kuMaterialVariant* variant = createMaterialVariant(switchMaterial, sendMessage)) {
    set->add(variant, materialName);
    if (needsDuplicate) {
      const kuVariantState* former = other->findMaterialVariant(otherName);
      other->add(variant, former ? former->getState() : QString());
    } else if (otherMaterial != switchMaterial) {
      other->add(variant, nameOf(otherMaterial));
    }
  }
  kuSnapshotIndex::replace(*other, path, nameOf(switchMaterial));
  handledMaterials.insert(switchMaterial);
}
