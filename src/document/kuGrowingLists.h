#pragma once

#include <QHash>
#include <QSet>
#include <QString>
#include <QVarLengthArray>
#include <algorithm>
#include <list>

#include "model/kuVariantState.h"
#include "model/kuVariantStates.h"

/** Up to this many entries a walk costs less than an index. */
constexpr int kuEntriesWithoutIndex = 16;

/**
 * A list of states that is being filled, with an index by variant once it is long: however many
 * there are, none costs a long walk. Nobody else may change the list meanwhile.
 */
class kuGrowingStates {
 public:
  explicit kuGrowingStates(std::list<kuVariantState>& states) : _states(states) { indexIfLong(); }

  /** Gives the entry of that variant another state, or appends one. */
  void add(const QString& variant, const QString& state) {
    if (_places.isEmpty()) {
      kuVariantStates::add(_states, variant, state);
      indexIfLong();
      return;
    }
    kuVariantState*& place = _places[variant];
    if (place) {
      place->setState(state);
    } else {
      _states.emplace_back(variant, state);
      place = &_states.back();
    }
  }

 private:
  void indexIfLong() {
    if (_states.size() <= kuEntriesWithoutIndex) return;
    // The first entry of a name is the one that counts.
    for (kuVariantState& entry : _states) {
      if (!_places.contains(entry.getVariant())) _places.insert(entry.getVariant(), &entry);
    }
  }

  std::list<kuVariantState>& _states;
  QHash<QString, kuVariantState*> _places;
};

/** The names that came so far. */
class kuSeenNames {
 public:
  /** Whether the name comes for the first time; from then on it has come. */
  bool isNew(const QString& name) {
    if (contains(name)) return false;
    if (_first.size() < kuEntriesWithoutIndex) {
      _first.append(name);
    } else {
      _others.insert(name);
    }
    return true;
  }
  bool contains(const QString& name) const {
    return std::find(_first.begin(), _first.end(), name) != _first.end() ||
           (!_others.isEmpty() && _others.contains(name));
  }

 private:
  QVarLengthArray<QString, kuEntriesWithoutIndex> _first;
  QSet<QString> _others;
};
