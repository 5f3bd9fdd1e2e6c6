#pragma once

#include <cstddef>
#include <list>
#include <utility>

namespace kuStandalone {

/**
 * A list of receivers that may change while it is walked: who is added hears from the next walk
 * on, who is removed hears no more. Entries keep their address while they are called.
 */
template <class Receiver>
class CallList {
 public:
  bool empty() const { return _living == 0; }

  void add(Receiver receiver) {
    _entries.push_back({std::move(receiver), true});
    ++_living;
  }

  /** Whether a receiver for which @p test holds is in the list. */
  template <class Test>
  bool has(Test test) const {
    for (const Entry& entry : _entries) {
      if (entry.living && test(entry.receiver)) return true;
    }
    return false;
  }

  /** Removes every receiver for which @p test holds. */
  template <class Test>
  void remove(Test test) {
    for (Entry& entry : _entries) {
      if (!entry.living || !test(entry.receiver)) continue;
      entry.living = false;
      --_living;
    }
    if (_walks == 0) sweep();
  }

  /** Hands every receiver to @p use, in the order in which they came. */
  template <class Use>
  void each(Use use) {
    const Walk walk(*this);
    auto entry = _entries.begin();
    for (std::size_t left = _entries.size(); left > 0; --left, ++entry) {
      if (entry->living) use(entry->receiver);
    }
  }

 private:
  struct Entry {
    Receiver receiver;
    bool living;
  };

  /** Holds the sweep back until the outermost walk has ended, be it by an exception. */
  class Walk {
   public:
    explicit Walk(CallList& list) : _list(list) { ++_list._walks; }
    ~Walk() {
      if (--_list._walks == 0) _list.sweep();
    }
    Walk(const Walk&) = delete;
    Walk& operator=(const Walk&) = delete;

   private:
    CallList& _list;
  };

  void sweep() {
    if (_entries.size() == _living) return;
    _entries.remove_if([](const Entry& entry) { return !entry.living; });
  }

  std::list<Entry> _entries;
  std::size_t _living = 0;
  int _walks = 0;
};

}  // namespace kuStandalone
