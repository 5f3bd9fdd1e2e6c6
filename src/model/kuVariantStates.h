#pragma once

#include <QHash>
#include <algorithm>
#include <list>

#include "model/kuVariantState.h"

/** Up to this many entries a walk costs less than an index. */
constexpr int kuEntriesWithoutIndex = 16;

/**
 * A set's states of one kind, in the order in which they came, with an index by variant once they
 * are many: a capture enters thousands. Of several entries of a name, which only a document brings,
 * the first one counts.
 */
class kuVariantStates {
 public:
  using Entries = std::list<kuVariantState>;

  kuVariantStates() = default;
  kuVariantStates(const kuVariantStates& other) : _entries(other._entries) {}
  kuVariantStates& operator=(const kuVariantStates& other) {
    editable() = other._entries;
    return *this;
  }

  const Entries& entries() const { return _entries; }
  operator const Entries&() const { return _entries; }
  bool empty() const { return _entries.empty(); }
  std::size_t size() const { return _entries.size(); }
  void clear() { editable().clear(); }

  /** The list for changes of any kind. */
  Entries& editable() {
    _index.clear();
    return _entries;
  }

  /** The first entry of that variant, or null. */
  kuVariantState* find(const QString& variant) {
    const auto found = place(variant);
    return found == _entries.end() ? nullptr : &*found;
  }

  /** Gives the entry of that variant another state, or appends one. */
  void add(const QString& variant, const QString& state) {
    if (kuVariantState* entry = find(variant)) {
      entry->setState(state);
      return;
    }
    _entries.emplace_back(variant, state);
    if (!_index.isEmpty()) _index.insert(variant, std::prev(_entries.end()));
  }

  /** Erases the first entry of that variant, if there is one. */
  void remove(const QString& variant) {
    const auto found = place(variant);
    if (found == _entries.end()) return;
    // With a second entry of some name the index is short of one.
    if (static_cast<std::size_t>(_index.size()) == _entries.size()) {
      _index.remove(variant);
      _entries.erase(found);
    } else {
      editable().erase(found);
    }
  }

 private:
  Entries::iterator place(const QString& variant) {
    if (_entries.size() <= kuEntriesWithoutIndex) {
      return std::find_if(_entries.begin(), _entries.end(), [&](const kuVariantState& entry) {
        return entry.getVariant() == variant;
      });
    }
    if (_index.isEmpty()) makeIndex();
    return _index.value(variant, _entries.end());
  }

  void makeIndex() {
    for (auto entry = _entries.begin(); entry != _entries.end(); ++entry) {
      if (!_index.contains(entry->getVariant())) _index.insert(entry->getVariant(), entry);
    }
  }

  Entries _entries;
  /** Empty until it is needed. */
  QHash<QString, Entries::iterator> _index;
};
