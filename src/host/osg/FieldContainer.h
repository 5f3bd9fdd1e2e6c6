#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <type_traits>
#include <utility>

#include "host/kuHostExport.h"

namespace osg {

/** Bits that name fields of a field container; an edit bracket says with them what it changes. */
using FieldMask = std::uint64_t;

/** Every field. */
constexpr FieldMask AllFieldsMask = ~FieldMask(0);

/**
 * Run-time class of a field container: a name and the class it derives from.
 * The objects are constants with static storage; they are compared by address.
 */
class KUHOST_EXPORT FieldContainerType {
 public:
  /** @param name the class's name without namespace; @param parent null for the topmost class. */
  constexpr FieldContainerType(const char* name, const FieldContainerType* parent)
      : _name(name), _parent(parent) {}

  const char* getName() const { return _name; }

  /** The class derived from; null for the topmost one. */
  const FieldContainerType* getParent() const { return _parent; }

  /** Whether this class is @p other or derives from it, told by the chain of parents. */
  bool isDerivedFrom(const FieldContainerType& other) const {
    for (const FieldContainerType* type = this; type; type = type->_parent) {
      if (type == &other) return true;
    }
    return false;
  }

 private:
  const char* _name;
  const FieldContainerType* _parent;
};

/**
 * Whatever lives in the scene: nodes, cores, materials, the material pool. Reference counted by
 * the handles to it (FCPtr), and deleted with the last one. Main thread only, so the count is no
 * atomic.
 */
class KUHOST_EXPORT FieldContainer {
 public:
  static const FieldContainerType _type;

  FieldContainer(const FieldContainer&) = delete;
  FieldContainer& operator=(const FieldContainer&) = delete;

  /** The class of this object; a derived class answers its own. */
  const FieldContainerType& getType() const { return *_objectType; }

  void addReference() const { ++_references; }

  /** Gives one reference back; the object is deleted with the last. */
  void subReference() const {
    if (--_references == 0) delete this;
  }

 protected:
  explicit FieldContainer(const FieldContainerType& type) : _objectType(&type) {}
  virtual ~FieldContainer();

 private:
  const FieldContainerType* _objectType;
  mutable std::uint32_t _references = 0;
};

/** The type of NullFC. */
struct NullFieldContainer {};

/** The null handle; assignable to and comparable with every handle. */
constexpr NullFieldContainer NullFC{};

/**
 * Handle of a scene object: shares the ownership, compares and orders by the object's address.
 * A default-made handle is null.
 */
template <class T>
class FCPtr {
 public:
  using StoredObject = T;

  FCPtr() = default;
  FCPtr(NullFieldContainer) {}
  explicit FCPtr(T* object) : _object(object) { addReference(); }
  FCPtr(const FCPtr& other) : _object(other._object) { addReference(); }
  FCPtr(FCPtr&& other) noexcept : _object(std::exchange(other._object, nullptr)) {}
  template <class U, class = std::enable_if_t<std::is_convertible<U*, T*>::value>>
  FCPtr(const FCPtr<U>& other) : _object(other.get()) {
    addReference();
  }
  ~FCPtr() {
    if (_object) _object->subReference();
  }

  FCPtr& operator=(FCPtr other) noexcept {
    std::swap(_object, other._object);
    return *this;
  }

  /** The handle of @p other as a T, or null if its run-time class is neither T nor derived. */
  template <class U>
  static FCPtr dcast(const FCPtr<U>& other) {
    if (!other || !other->getType().isDerivedFrom(T::_type)) return FCPtr();
    return FCPtr(static_cast<T*>(other.get()));
  }

  T* get() const { return _object; }
  T* operator->() const { return _object; }
  T& operator*() const { return *_object; }
  explicit operator bool() const { return _object != nullptr; }

 private:
  void addReference() const {
    if (_object) _object->addReference();
  }

  T* _object = nullptr;
};

template <class T, class U>
bool operator==(const FCPtr<T>& a, const FCPtr<U>& b) {
  return a.get() == b.get();
}
template <class T, class U>
bool operator!=(const FCPtr<T>& a, const FCPtr<U>& b) {
  return a.get() != b.get();
}
template <class T>
bool operator<(const FCPtr<T>& a, const FCPtr<T>& b) {
  return std::less<const T*>()(a.get(), b.get());
}
template <class T>
bool operator==(const FCPtr<T>& a, NullFieldContainer) {
  return !a;
}
template <class T>
bool operator!=(const FCPtr<T>& a, NullFieldContainer) {
  return static_cast<bool>(a);
}
template <class T>
bool operator==(NullFieldContainer, const FCPtr<T>& a) {
  return !a;
}
template <class T>
bool operator!=(NullFieldContainer, const FCPtr<T>& a) {
  return static_cast<bool>(a);
}

using FieldContainerPtr = FCPtr<FieldContainer>;

}  // namespace osg

namespace std {
template <class T>
struct hash<osg::FCPtr<T>> {
  size_t operator()(const osg::FCPtr<T>& handle) const { return hash<T*>()(handle.get()); }
};
}  // namespace std
