#include <vector>

#include "document/kuSeenNames.h"
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
 * and whoever hears of it may remove the set or change it: the set is looked up again, and with a
 * set that is gone the work ends.
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
  /** Null from the first announcement on: the set may be gone then. */
  kuVariantStates* _states = nullptr;
};

void kuVariantReader::OverlayFix::run(const std::vector<QString>& sceneplates) {
  kuVariantSet* found = set();
  if (!found || found->overlayVariants.empty()) return;
  _states = &found->overlayVariants;
  const bool hasCurrentStates =
      enableEmptyStates({_states->entries().begin(), _states->entries().end()});
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
    if (!_states && !set()) return true;
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
    if (!_states && !set()) return;
    if (!_seen.contains(name)) put(name, kuKeyword::Disable);
  }
}

void kuVariantReader::OverlayFix::put(const QString& variant, kuKeyword state) {
  if (!kuVariants::findOverlayVariant(variant)) {
    _states = nullptr;
    kuVariants::createOverlayVariant(variant, true);
  }
  if (_states) {
    _states->add(variant, kuKeywordText(state));
  } else if (kuVariantSet* found = set()) {
    found->addOverlayVariant(variant, kuKeywordText(state));
  }
}

void kuVariantReader::fixOverlayVariants() {
  const std::vector<QString> sceneplates = sceneplateNames();
  std::vector<OverlayFix> fixes;
  for (const kuVariantSet* set : kuVariants::getVariantSets())
    fixes.emplace_back(*set);
  for (OverlayFix& fix : fixes)
    fix.run(sceneplates);
}
