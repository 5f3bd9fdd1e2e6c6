#pragma once

#include <QSet>
#include <QString>
#include <QVarLengthArray>
#include <algorithm>

#include "model/kuVariantStates.h"

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
