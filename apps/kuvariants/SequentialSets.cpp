#include "SequentialSets.h"

#include "manager/kuVariants.h"

SequentialSets::SequentialSets() {
  for (const kuVariantSet* set : kuVariants::getVariantSets()) {
    if (set->getSequentialAnimation()) _copies.push_back(*set);
  }
}

SequentialSets::~SequentialSets() {
  // A copy names the group of its original, which may be gone, and would take its leave of it.
  for (kuVariantSet& copy : _copies)
    copy = kuVariantSet(QString());
}

void SequentialSets::restore() const {
  for (const kuVariantSet& copy : _copies) {
    kuVariantSet* set = kuVariants::findVariantSet(copy.getName());
    if (set && set->id() == copy.id() && set->getGroup() == copy.getGroup()) *set = copy;
  }
}
