#include <algorithm>

#include "manager/kuVariants.h"
#include "model/kuVariantGroup.h"
#include "model/kuVariantSet.h"

bool kuVariants::hasEmptyVariantSets() {
  return std::any_of(getVariantSets().begin(), getVariantSets().end(),
                     [](const kuVariantSet* set) { return set->isEmpty(); });
}

bool kuVariants::hasEmptyGroups() {
  return std::any_of(getVariantGroups().begin(), getVariantGroups().end(),
                     [](const kuVariantGroup* group) { return group->getVariantSets().empty(); });
}

// Forwards and in place, each set by itself and not by its name. A receiver may change the list:
// each turn looks at it anew. What receivers add is cleared in one round more; a receiver that
// answers every removal with another empty set would otherwise keep this going for ever.
void kuVariants::clearEmptyVariantSets() {
  std::size_t index = 0;
  for (int round = 0; round < 2; ++round)
    index = clearEmptyVariantSets(index, kuVariantSet::_nextId);
}

std::size_t kuVariants::clearEmptyVariantSets(std::size_t index, std::uint32_t lastId) {
  while (index < getVariantSets().size() && getVariantSets()[index]->id() <= lastId) {
    kuVariantSet* set = getVariantSets()[index];
    if (set->isEmpty()) {
      discard(set);
    } else {
      ++index;
    }
  }
  return index;
}

// Backwards and by name, so of several groups of one name the first goes.
void kuVariants::clearEmptyGroups() {
  for (std::size_t left = getVariantGroups().size(); left > 0; --left) {
    if (left > getVariantGroups().size()) continue;  // a receiver removed some
    const kuVariantGroup* group = getVariantGroups()[left - 1];
    if (!group->getVariantSets().empty()) continue;
    const QString name = group->getName();
    removeVariantGroup(name);
  }
}
