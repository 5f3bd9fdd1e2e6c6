#include "model/kuVariantGroup.h"

#include <algorithm>

#include "host/kernel/kuController.h"
#include "model/kuVariantSet.h"

std::uint32_t kuVariantGroup::_nextId = 1;

// The number is taken before it is counted on; sets do it the other way round.
kuVariantGroup::kuVariantGroup() : _id(_nextId++) {}

kuVariantGroup::kuVariantGroup(const QString& groupName) : name(groupName), _id(_nextId++) {}

kuVariantGroup::~kuVariantGroup() { clear(); }

void kuVariantGroup::setName(const QString& newName) {
  kuMessage message;
  message.set("oldName", getName().toStdString(), true);
  message.set("newName", newName.toStdString(), true);
  name.set(newName);
  kuController::call("variantGroupRenamed", message, 0);
}

void kuVariantGroup::add(kuVariantSet* set) { insert(variantSets.end(), set); }

void kuVariantGroup::insert(iterator position, kuVariantSet* set) {
  if (set->group || contains(set)) return;
  variantSets.insert(position, set);
  set->group = this;
}

void kuVariantGroup::remove(kuVariantSet* set) {
  if (set->group != this) return;
  const iterator found = find(set);
  if (found == variantSets.end()) return;
  set->group = nullptr;
  variantSets.erase(found);
}

kuVariantGroup::iterator kuVariantGroup::find(kuVariantSet* set) {
  return std::find(variantSets.begin(), variantSets.end(), set);
}

kuVariantGroup::const_iterator kuVariantGroup::find(kuVariantSet* set) const {
  return std::find(variantSets.begin(), variantSets.end(), set);
}

bool kuVariantGroup::contains(kuVariantSet* set) const { return find(set) != variantSets.end(); }

void kuVariantGroup::clear() {
  for (kuVariantSet* set : variantSets)
    set->group = nullptr;
  variantSets.clear();
}
