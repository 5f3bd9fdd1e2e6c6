#include <memory>
#include <vector>

#include "document/kuGrowingLists.h"
#include "document/kuVariantReader.h"
#include "host/osg/Sceneplate.h"
#include "host/utils/kuNodeUtils.h"
#include "host/utils/kuSceneplateUtils.h"
#include "manager/kuVariants.h"
#include "model/kuKeyword.h"
#include "model/kuVariantSet.h"
#include "scene/kuOverlayVariant.h"

namespace {

std::vector<QString> sceneplateNames() {
  std::vector<QString> names;
  for (const osg::NodePtr& node : kuSceneplateUtils::getAllNodes()) {
    if (osg::SceneplatePtr::dcast(node->getCore())) {
      names.push_back(QString::fromUtf8(kuNodeUtils::getName(node)));
    }
  }
  return names;
}

/** A variant with more options than a single sceneplate has is a switch among several. */
bool hasRealStates(const QString& variant) {
  const kuOverlayVariant* found = kuVariants::findOverlayVariant(variant);
  return found && found->getOptions().size() > 3;
}

}  // namespace

/**
 * One set whose overlay states are brought up to date. The variants that this makes are announced,
 * and whoever hears of it may remove the set or change it: the set is looked up again.
 */
class kuVariantReader::OverlayFix {
 public:
  explicit OverlayFix(const kuVariantSet& set) : _id(set.id()), _name(set.getName()) {}

  void run(const std::vector<QString>& sceneplates);

 private:
  kuVariantSet* set() const;
  bool enableEmptyStates(const std::vector<kuVariantState>& states);
  void disableOthers(const std::vector<QString>& sceneplates);
  void put(const QString& variant, kuKeyword state);

  unsigned _id;
  QString _name;
  kuSeenNames _seen;
  std::unique_ptr<kuGrowingStates> _states;
};

void kuVariantReader::OverlayFix::run(const std::vector<QString>& sceneplates) {
  const kuVariantSet* found = set();
  if (!found || found->overlayVariants.empty()) return;
  const bool hasCurrentStates =
      enableEmptyStates({found->overlayVariants.begin(), found->overlayVariants.end()});
  if (!hasCurrentStates) disableOthers(sceneplates);
}

/** By name first, which costs no walk over all sets. */
kuVariantSet* kuVariantReader::OverlayFix::set() const {
  kuVariantSet* found = kuVariants::findVariantSet(_name);
  return found && found->id() == _id ? found : kuVariants::getVariantSet(_id);
}

/** Whether the set has an entry that is no mere "this one shows". */
bool kuVariantReader::OverlayFix::enableEmptyStates(const std::vector<kuVariantState>& states) {
  bool hasCurrentStates = false;
  for (const kuVariantState& entry : states) {
    if (entry.getState().isEmpty() && !hasRealStates(entry.getVariant())) {
      put(entry.getVariant(), kuKeyword::Enable);
    } else {
      hasCurrentStates = true;
    }
    _seen.isNew(entry.getVariant());
  }
  return hasCurrentStates;
}

void kuVariantReader::OverlayFix::disableOthers(const std::vector<QString>& sceneplates) {
  for (const QString& name : sceneplates) {
    if (!_seen.contains(name)) put(name, kuKeyword::Disable);
  }
}

void kuVariantReader::OverlayFix::put(const QString& variant, kuKeyword state) {
  if (!kuVariants::findOverlayVariant(variant)) {
    kuVariants::createOverlayVariant(variant, true);
    _states.reset();
  }
  if (!_states) {
    kuVariantSet* found = set();
    if (!found) return;
    _states = std::make_unique<kuGrowingStates>(found->overlayVariants);
  }
  _states->add(variant, kuKeywordText(state));
}

void kuVariantReader::fixOverlayVariants() {
  const std::vector<QString> sceneplates = sceneplateNames();
  std::vector<OverlayFix> fixes;
  for (const kuVariantSet* set : kuVariants::getVariantSets()) {
    if (!set->overlayVariants.empty()) fixes.emplace_back(*set);
  }
  for (OverlayFix& fix : fixes)
    fix.run(sceneplates);
}
