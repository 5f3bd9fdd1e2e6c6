#include <cstdint>
#include <string>

#include "host/kernel/kuConnector.h"
#include "host/kernel/kuScenegraph.h"
#include "host/script/kuScript.h"
#include "host/utils/kuMaterials.h"
#include "host/utils/kuOpenSGUtils.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"

// The materials that the sets remember, put back to the nodes, and the activation of a captured
// set.

namespace {

/** The set that a restore needs beside those of the user, for as long as it takes. */
class TemporarySet {
 public:
  /** @param id the one that the next set gets. */
  explicit TemporarySet(std::uint32_t id) : _id(id) {}
  /** The removal is told, and on the way out of an error a receiver's own is one too many. */
  ~TemporarySet() {
    try {
      remove();
    } catch (...) {
    }
  }
  TemporarySet(const TemporarySet&) = delete;
  TemporarySet& operator=(const TemporarySet&) = delete;

  /** Null where a set of that name was there before: that one is the user's, and stays. */
  static kuVariantSet* create() { return kuVariants::createVariantSet(name(), true, nullptr); }

  /** Another one that bears the name by now, a receiver's, stays. */
  void remove() const {
    const kuVariantSet* present = kuVariants::findVariantSet(name());
    if (present && present->id() == _id) kuVariants::removeVariantSet(name());
  }

 private:
  static QString name() { return QStringLiteral("Temp"); }

  const std::uint32_t _id;
};

QString nameOf(const osg::MaterialPtr& material) {
  return QString::fromUtf8(kuMaterials::getName(material));
}

}  // namespace

void kuVariants::activateCapturedVariantSet(const char* name) {
  rebuildNodePathIndex();
  restoreSwitchNodes();
  const kuVariantSet* set = findVariantSet(QString::fromUtf8(name));
  if (!set) return;
  const std::string command = "selectVariantSet('" + set->getName().toStdString() + "')";
  kuScript::executeNUS(command.c_str(), kuConnector::the()->syncVariants());
  kuScenegraph::update(false);
}

void kuVariants::restoreSwitchNodes() {
  const kuNodePtr root = kuOpenSGUtils::getRoot();
  const TemporarySet temporary(kuVariantSet::_nextId + 1);
  kuVariantSet* set = TemporarySet::create();
  if (!set) return;
  MaterialSnapshots snapshots;
  NodePaths handledPaths;
  Switches createdSwitches;
  Materials handledMaterials;
  restoreSwitchNodesHlp(set, root, snapshots, {root}, handledPaths, createdSwitches,
                        handledMaterials, true);
  temporary.remove();
}

// Unlike a capture it levels the nodes of one path only where they are material groups. A receiver
// of what is told on the way may remove the temporary set, which ends it.
void kuVariants::restoreSwitchNodesHlp(kuVariantSet* set, kuNodePtr handle,
                                       MaterialSnapshots& snapshots, std::vector<kuNodePtr> roots,
                                       NodePaths& handledPaths, Switches& createdSwitches,
                                       Materials& handledMaterials, bool sendMessage) {
  if (!handle.isValid() || !_variantSets.contains(set)) return;
  const osg::NodePtr node = handle;
  const osg::NodeCorePtr core = node->getCore();
  bool inclNodes = true;
  const auto restore = [&](const QString& path, const osg::MaterialPtr& material) {
    handleMaterialSnapshots(set, node, path, material, roots, handledPaths, createdSwitches,
                            handledMaterials, false, sendMessage);
  };
  if (const auto geometry = osg::GeometryPtr::dcast(core)) {
    if (!checkAndSetNodeActive(node, set, inclNodes, sendMessage)) return;
    const osg::MaterialPtr material = geometry->getMaterial();
    if (!material) return;
    const QString path = getNodePath(node);
    restore(path, material);
    if (const osg::MaterialPtr present = geometry->getMaterial()) {
      snapshots.emplace(path, nameOf(present));
    }
    return;
  }
  if (const auto group = osg::MaterialGroupPtr::dcast(core)) {
    if (!checkAndSetNodeActive(node, set, inclNodes, sendMessage)) return;
    addMaterialGroupIgnoreToVSet(node, group, set);
    if (const osg::MaterialPtr material = group->getMaterial()) {
      const QString path = getNodePath(node);
      restore(path, material);
      const osg::MaterialPtr present = group->getMaterial();
      if (present && snapshots.emplace(path, nameOf(present)).second) {
        checkIfNodeMatchesNodePath(node, path.toUtf8().constData(), true);
      }
    }
  } else if (!osg::GroupPtr::dcast(core) || !node->getActive()) {
    return;
  }
  for (unsigned child = 0; child < node->getNChildren(); ++child)
    restoreSwitchNodesHlp(set, node->getChild(child), snapshots, roots, handledPaths,
                          createdSwitches, handledMaterials, sendMessage);
}
