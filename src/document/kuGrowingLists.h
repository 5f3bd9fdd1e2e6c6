#pragma once

#include <QHash>
#include <QSet>
#include <QString>
#include <list>

#include "model/kuVariantState.h"

/**
 * A list of states that is being filled, with an index by variant: however many there are, none
 * costs a walk. Nobody else may change the list meanwhile.
 */
class kuGrowingStates {
 public:
  explicit kuGrowingStates(std::list<kuVariantState>& states) : _states(states) {
    // The first entry of a name is the one that counts.
    for (kuVariantState& entry : _states) {
      if (!_places.contains(entry.getVariant())) _places.insert(entry.getVariant(), &entry);
    }
  }

  /** Gives the entry of that variant another state, or appends one. */
  void add(const QString& variant, const QString& state) {
    kuVariantState*& place = _places[variant];
    if (place) {
      place->setState(state);
    } else {
      _states.emplace_back(variant, state);
      place = &_states.back();
    }
  }

 private:
  std::list<kuVariantState>& _states;
  QHash<QString, kuVariantState*> _places;
};

/** The names that came so far. */
class kuSeenNames {
 public:
  /** Whether the name came for the first time. */
  bool isNew(const QString& name) {
    const int before = _names.size();
    _names.insert(name);
    return _names.size() > before;
  }
  bool contains(const QString& name) const { return _names.contains(name); }

 private:
  QSet<QString> _names;
};
