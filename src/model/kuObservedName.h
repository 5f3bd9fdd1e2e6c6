#pragma once

#include "model/kuNameObserver.h"

/**
 * A name that tells one observer when it changes. Copying copies the text alone: the observer
 * belongs to the object, not to the value.
 */
class kuObservedName {
 public:
  kuObservedName() = default;
  kuObservedName(const QString& text) : _text(text) {}
  kuObservedName(const kuObservedName& other) : _text(other._text) {}
  ~kuObservedName() = default;

  /** As set(): the observer stays. */
  kuObservedName& operator=(const kuObservedName& other) {
    if (this != &other) set(other._text);
    return *this;
  }

  const QString& text() const { return _text; }

  void set(const QString& text) {
    const QString former = _text;
    _text = text;
    if (_observer) _observer->renamed(_object, former, text);
  }

  /** From now on @p observer, which may be null, hears of changes of @p object's name. */
  void observe(kuNameObserver* observer, const void* object) {
    _observer = observer;
    _object = object;
  }

 private:
  QString _text;
  kuNameObserver* _observer = nullptr;
  const void* _object = nullptr;
};
