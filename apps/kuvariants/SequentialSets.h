#pragma once

#include <list>

#include "model/kuVariantSet.h"

/**
 * The sets that start one animation at each selection, as they stood when this was made: put back,
 * they begin with the same animation again.
 */
class SequentialSets {
 public:
  SequentialSets();
  ~SequentialSets();
  SequentialSets(const SequentialSets&) = delete;
  SequentialSets& operator=(const SequentialSets&) = delete;

  /** Passes over those that were removed or put into another group since. */
  void restore() const;

 private:
  std::list<kuVariantSet> _copies;
};
