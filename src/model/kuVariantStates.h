#pragma once

#include <algorithm>
#include <list>

#include "model/kuVariantState.h"

/** The shape that a set's lists of states share, whatever the kind. */
namespace kuVariantStates {

/** The first entry of that variant, or null. */
inline kuVariantState* find(std::list<kuVariantState>& states, const QString& variant) {
  const auto found = std::find_if(states.begin(), states.end(), [&](const kuVariantState& entry) {
    return entry.getVariant() == variant;
  });
  return found == states.end() ? nullptr : &*found;
}

/** Gives the entry of that variant another state, or appends one. */
inline void add(std::list<kuVariantState>& states, const QString& variant, const QString& state) {
  if (kuVariantState* entry = find(states, variant)) {
    entry->setState(state);
  } else {
    states.emplace_back(variant, state);
  }
}

/** Erases the first entry of that variant, if there is one. */
inline void remove(std::list<kuVariantState>& states, const QString& variant) {
  const auto found = std::find_if(states.begin(), states.end(), [&](const kuVariantState& entry) {
    return entry.getVariant() == variant;
  });
  if (found != states.end()) states.erase(found);
}

}  // namespace kuVariantStates
