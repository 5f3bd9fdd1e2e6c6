#pragma once

#include <memory>

#include "model/kuVariantSet.h"

/**
 * Holds on to a set's content for as long as this object lives. Receivers of messages and scripts
 * may remove the very set that is being worked on; what is left to do then goes on with a copy
 * that was taken in its destructor. While the set lives no copy is made.
 */
class kuVariantSet::Keeper {
 public:
  explicit Keeper(kuVariantSet& set) : _set(&set), _outer(set.keepers.innermost) {
    set.keepers.innermost = this;
  }
  ~Keeper() {
    if (!_copy) _set->keepers.innermost = _outer;
  }
  Keeper(const Keeper&) = delete;
  Keeper& operator=(const Keeper&) = delete;

  /** The set while it lives, afterwards its copy, which is in no group. */
  kuVariantSet& operator*() const { return *_set; }
  kuVariantSet* operator->() const { return _set; }

  /** Whether the set was destroyed since. */
  bool isGone() const { return _copy != nullptr; }

  /** The keeper of an enclosing piece of work on the same set, or null. */
  Keeper* outer() const { return _outer; }

  /** Called in the set's destructor. */
  void keepCopy() {
    _copy = std::make_unique<kuVariantSet>(*_set);
    _copy->group = nullptr;
    _set = _copy.get();
  }

 private:
  kuVariantSet* _set;
  Keeper* _outer;
  std::unique_ptr<kuVariantSet> _copy;
};
