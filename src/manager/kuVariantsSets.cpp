#include <algorithm>
#include <iterator>
#include <memory>

#include "host/kernel/kuController.h"
#include "host/kernel/kuLog.h"
#include "manager/kuUniqueName.h"
#include "manager/kuVariants.h"
#include "model/kuVariantGroup.h"
#include "model/kuVariantSet.h"

namespace {

void send(const char* name, kuVariantSet* set) {
  kuMessage message;
  message.set("variant", static_cast<void*>(set), true);
  kuController::call(name, message, 1);
}

}  // namespace

kuVariantSet* kuVariants::createVariantSet(const QString& name, bool sendMessage,
                                           kuVariantGroup* group) {
  if (name.isEmpty()) return nullptr;
  if (findVariantSet(name)) {
    kuLog::warning("A variant set with that name already exists.");
    return nullptr;
  }
  auto* set = new kuVariantSet(name);
  _variantSets.append(set);
  if (group) group->add(set);
  if (!sendMessage) return set;
  send("variantSetAdded", set);
  return _variantSets.contains(set) ? set : nullptr;
}

kuVariantSet* kuVariants::findVariantSet(const QString& name) { return _variantSets.find(name); }

kuVariantSet* kuVariants::getVariantSet(unsigned id) {
  const std::vector<kuVariantSet*>& sets = getVariantSets();
  const auto found = std::find_if(sets.begin(), sets.end(),
                                  [&](const kuVariantSet* set) { return set && set->id() == id; });
  return found == sets.end() ? nullptr : *found;
}

// Silent where nothing was found, and a nameless set goes by its empty name: in both unlike the
// removal of a variant.
bool kuVariants::removeVariantSet(const QString& name) {
  if (kuVariantSet* found = _variantSets.first(name)) discard(found);
  return true;
}

void kuVariants::discard(kuVariantSet* set) {
  _variantSets.remove(set);
  const std::unique_ptr<kuVariantSet> removed(set);  // alive while the message is delivered
  send("variantSetRemoved", set);
}

void kuVariants::clearVariantSets() {
  _variantSets.clear();
  kuController::call("variantSetChanged", 1);
}

QString kuVariants::getUniqueVariantSetName(QString base) {
  return kuUniqueName(base, getVariantSets());
}

std::vector<kuVariantSet*> kuVariants::getUngroupedVariantSets() {
  std::vector<kuVariantSet*> ungrouped;
  std::copy_if(getVariantSets().begin(), getVariantSets().end(), std::back_inserter(ungrouped),
               [](const kuVariantSet* set) { return !set->getGroup(); });
  return ungrouped;
}
