#pragma once

#include <boost/python.hpp>
#include <functional>

#include "host/utils/kuMaterialPtr.h"
#include "host/utils/kuNodePtr.h"
#include "standalone/script/Refusal.h"

/**
 * @file
 * What the classes of handles have in common for a script: handles that hold the same object are
 * equal and may be keys of a dictionary, and a handle without an object is false.
 */
namespace kuStandalone {

inline const void* objectOf(const kuNodePtr& handle) { return handle.getNode().get(); }
inline const void* objectOf(const kuMaterialPtr& handle) { return handle.getMaterial().get(); }

template <class Handle>
bool holdSame(const Handle& a, const Handle& b) {
  return objectOf(a) == objectOf(b);
}

template <class Handle>
bool holdOthers(const Handle& a, const Handle& b) {
  return objectOf(a) != objectOf(b);
}

template <class Handle>
std::size_t hashOf(const Handle& handle) {
  return std::hash<const void*>()(objectOf(handle));
}

/** What all handles have. @param signature how one is made in Python. */
template <class Handle>
void defineHandle(boost::python::class_<Handle>& handleClass, const char* signature) {
  const Refusal refusal;
  refusal.enter(handleClass, "__init__");
  refusal.setSignature(signature);
  handleClass.def(boost::python::init<>())
      .def("__eq__", holdSame<Handle>)
      .def("__ne__", holdOthers<Handle>)
      .def("__hash__", hashOf<Handle>)
      .def("__bool__", &Handle::isValid);
}

}  // namespace kuStandalone
