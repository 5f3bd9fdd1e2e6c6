#include "capture/kuVariantCaptureChecker.h"

#include <QSet>
#include <cstdint>

#include "host/osg/Geometry.h"
#include "host/utils/NodeUtils.h"
#include "host/utils/kuNodeUtils.h"
#include "host/utils/kuOpenSGUtils.h"
#include "host/utils/kuSceneplateUtils.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"

namespace {

/** The node that stands for a core, or null. */
osg::NodePtr firstParent(const osg::NodeCorePtr& core) {
  if (!core) return osg::NullFC;
  const std::vector<osg::NodePtr> parents = core->getParents();
  return parents.empty() ? osg::NodePtr() : parents.front();
}

/** By what the variant sets address nodes. Material and transform states are not looked at. */
struct AddressesInSets {
  QSet<QString> names;
  QSet<QString> paths;

  void addStates(const std::list<kuVariantState>& states) {
    for (const kuVariantState& state : states)
      names << state.getVariant() << state.getState();
  }

  void add(const kuVariantSet& set) {
    addStates(set.getOverlayVariants());
    for (const auto& snapshot : set.getMaterialSnapshots())
      paths << snapshot.first;
    addStates(set.getNodeVariants());
    for (const QString& viewpoint : set.getViewpoints())
      names << viewpoint;
    addStates(set.getLightVariants());
  }

  bool reach(const osg::NodePtr& node) const {
    return names.contains(QString::fromUtf8(kuNodeUtils::getName(node))) ||
           paths.contains(kuVariants::getNodePath(node));
  }
};

/** The numbers that stand behind the names, by the name without them. */
template <class Names>
std::map<std::string, std::set<std::uint64_t>> numbersIn(const Names& coresByName) {
  std::map<std::string, std::set<std::uint64_t>> numbers;
  for (const auto& entry : coresByName) {
    const auto stripped = kuNodeUtils::getStrippedName(entry.first.toStdString());
    if (stripped.hasNumber) numbers[stripped.baseName].insert(stripped.number);
  }
  return numbers;
}

void rename(const osg::NodePtr& node, const std::string& base, std::uint64_t number) {
  const std::string name = kuNodeUtils::appendNumberToName(base, number);
  kuNodeUtils::fixBrokenNameAttachment(node);
  NodeUtils::setName(node, name.c_str(), true);
}

/** The first state of a name keeps it. */
void fixTransformStates(const osg::NodePtr& node) {
  std::vector<std::string> names;
  std::set<std::string> seen;
  std::vector<int> duplicates;
  for (int index = 0; index < kuNodeUtils::getTransformVariantCount(node); ++index) {
    const std::string name = kuNodeUtils::getTransformVariantName(node, index);
    if (seen.insert(name).second) {
      names.push_back(name);
    } else {
      duplicates.push_back(index);
    }
  }
  for (const int index : duplicates) {
    names.push_back(
        kuNodeUtils::getUniqueName(kuNodeUtils::getTransformVariantName(node, index), names));
    kuNodeUtils::setTransformVariantName(node, index, names.back());
  }
}

}  // namespace

kuVariantCaptureChecker::kuVariantCaptureChecker() {
  findAmbiguousNodes(kuOpenSGUtils::getRoot());
  findAmbiguousNodes(kuSceneplateUtils::getSceneplateRoot());
}

kuVariantCaptureChecker::~kuVariantCaptureChecker() = default;

bool kuVariantCaptureChecker::hasAmbiguousNodes() const { return !coresByStrippedName.empty(); }

bool kuVariantCaptureChecker::containsAmbiguousVariantSets() const {
  AddressesInSets addresses;
  for (const kuVariantSet* set : kuVariants::getVariantSets())
    addresses.add(*set);
  for (const auto& entry : coresByStrippedName) {
    for (const osg::NodeCorePtr& core : entry.second) {
      const osg::NodePtr node = firstParent(core);
      if (node && addresses.reach(node)) return true;
    }
  }
  return false;
}

void kuVariantCaptureChecker::fixAmbiguousNodes() {
  fixNames();
  fixTransformVariants();
}

void kuVariantCaptureChecker::fixTransformVariants() {
  for (const osg::NodeCorePtr& core : coresWithAmbiguousTransformVariants) {
    if (const osg::NodePtr node = firstParent(core)) fixTransformStates(node);
  }
}

// The first bearer of a name is never entered under the stripped name: it keeps its own.
void kuVariantCaptureChecker::findAmbiguousNodes(const osg::NodePtr& node) {
  if (!node || !node->getCore()) return;
  const osg::NodeCorePtr core = node->getCore();
  if (!visitedCores.insert(core).second) return;
  const std::string name = kuNodeUtils::getName(node);
  const auto entry = coresByName.try_emplace(QString::fromStdString(name));
  entry.first->second.push_back(core);
  if (!entry.second)
    coresByStrippedName[kuNodeUtils::getStrippedName(name).baseName].push_back(core);
  if (areTransformVariantsNamesAmbiguous(node)) coresWithAmbiguousTransformVariants.insert(core);
  if (osg::GeometryPtr::dcast(core)) return;
  for (unsigned child = 0; child < node->getNChildren(); ++child)
    findAmbiguousNodes(node->getChild(child));
}

// With the numbers of one name spent, all renaming ends. A number is spent on a core without a node
// as well.
void kuVariantCaptureChecker::fixNames() {
  auto usedNumbers = numbersIn(coresByName);
  for (const auto& entry : coresByStrippedName) {
    const std::set<std::uint64_t> free =
        kuNodeUtils::getFreeNumbers(usedNumbers[entry.first], entry.second.size());
    auto number = free.begin();
    for (const osg::NodeCorePtr& core : entry.second) {
      if (number == free.end()) return;
      if (const osg::NodePtr node = firstParent(core)) rename(node, entry.first, *number);
      ++number;
    }
  }
}

bool kuVariantCaptureChecker::areTransformVariantsNamesAmbiguous(const osg::NodePtr& node) const {
  if (!kuNodeUtils::hasTransformVariants(node)) return false;
  std::set<std::string> names;
  for (int index = 0; index < kuNodeUtils::getTransformVariantCount(node); ++index) {
    if (!names.insert(kuNodeUtils::getTransformVariantName(node, index)).second) return true;
  }
  return false;
}
