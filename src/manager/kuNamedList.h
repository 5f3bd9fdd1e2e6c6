#pragma once

#include <QHash>
#include <QString>
#include <algorithm>
#include <boost/container/small_vector.hpp>
#include <cstdint>
#include <vector>

#include "model/kuNameObserver.h"

/**
 * A list in the order of creation with an index by name. A search answers what a walk of the list
 * would: the first entry of that name. It follows the renames of its entries, and does not own
 * them.
 */
template <class Entry>
class kuNamedList final : private kuNameObserver {
 public:
  kuNamedList() = default;
  kuNamedList(const kuNamedList&) = delete;
  kuNamedList& operator=(const kuNamedList&) = delete;

  const std::vector<Entry*>& entries() const { return _entries; }

  /** The first entry of that name, or null; null for the empty name. */
  Entry* find(const QString& name) const { return name.isEmpty() ? nullptr : first(name); }

  /** The same, but the empty name is one like any other: it finds a nameless entry. */
  Entry* first(const QString& name) const {
    const auto found = _names.constFind(name);
    return found == _names.constEnd() ? nullptr : found->front().entry;
  }

  /** How many entries bear that name, be it the empty one. */
  int count(const QString& name) const {
    const auto found = _names.constFind(name);
    return found == _names.constEnd() ? 0 : static_cast<int>(found->size());
  }

  /** Whether the entry stands in the list; quick for one that came lately. */
  bool contains(const Entry* entry) const {
    return std::find(_entries.rbegin(), _entries.rend(), entry) != _entries.rend();
  }

  void append(Entry* entry) {
    _entries.push_back(entry);
    index(entry->getName(), {_nextPlace++, entry});
    entry->name.observe(this, entry);
  }

  /** Takes an entry of the list out; the order of the others stays. */
  void remove(Entry* entry) {
    entry->name.observe(nullptr, nullptr);
    unindex(entry->getName(), entry);
    _entries.erase(std::find(_entries.begin(), _entries.end(), entry));
  }

  /** Empties the list and deletes what stood in it. */
  void clear() {
    _names.clear();
    std::vector<Entry*> former;
    former.swap(_entries);
    for (Entry* entry : former) {
      entry->name.observe(nullptr, nullptr);
      delete entry;
    }
  }

 private:
  struct Place {
    /** Grows with every entry appended, so that it orders as the list does. */
    std::uint64_t number;
    Entry* entry;
  };
  using Places = boost::container::small_vector<Place, 1>;

  void renamed(const void* object, const QString& oldName, const QString& newName) override {
    const auto* entry = static_cast<const Entry*>(object);
    index(newName, unindex(oldName, entry));
  }

  void index(const QString& name, Place place) {
    Places& places = _names[name];
    const auto behind =
        std::upper_bound(places.begin(), places.end(), place,
                         [](const Place& a, const Place& b) { return a.number < b.number; });
    places.insert(behind, place);
  }

  Place unindex(const QString& name, const Entry* entry) {
    const auto bucket = _names.find(name);
    const auto found = std::find_if(bucket->begin(), bucket->end(),
                                    [&](const Place& place) { return place.entry == entry; });
    const Place place = *found;
    bucket->erase(found);
    if (bucket->empty()) _names.erase(bucket);
    return place;
  }

  std::vector<Entry*> _entries;
  QHash<QString, Places> _names;
  std::uint64_t _nextPlace = 0;
};
