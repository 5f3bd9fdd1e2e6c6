#include <array>
#include <boost/python.hpp>
#include <charconv>
#include <string>

#include "host/osg/Vector.h"
#include "standalone/script/HostFunctions.h"
#include "standalone/script/Refusal.h"

namespace bp = boost::python;

namespace kuStandalone {

namespace {

/** The shortest text that reads back as the same number, whatever the locale is. */
std::string numberText(float number) {
  std::array<char, 32> buffer;
  const std::to_chars_result end =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
  return std::string(buffer.data(), end.ptr);
}

template <class V>
std::string joined(const V& vector, const char* separator) {
  return numberText(vector[0]) + separator + numberText(vector[1]) + separator +
         numberText(vector[2]);
}

/** Numbers and separators apart by blanks: readers split the text at these. */
template <class V>
std::string textOf(const V& vector) {
  return joined(vector, " , ");
}

/** A derived class shows its own name. */
template <class V>
std::string representation(const bp::object& self) {
  const std::string name = bp::extract<std::string>(self.attr("__class__").attr("__name__"));
  return name + "(" + joined<V>(bp::extract<const V&>(self), ", ") + ")";
}

/** An index as Python counts it, from behind if negative. */
std::size_t checkedIndex(long index) {
  const long fromFront = index < 0 ? index + 3 : index;
  if (fromFront < 0 || fromFront > 2) throwIndexError("a vector has the indices 0 to 2");
  return static_cast<std::size_t>(fromFront);
}

template <class V>
float item(const V& vector, long index) {
  return vector[checkedIndex(index)];
}

template <class V>
void setItem(V& vector, long index, float value) {
  vector[checkedIndex(index)] = value;
}

template <class V, std::size_t I>
float component(const V& vector) {
  return vector[I];
}

template <class V, std::size_t I>
void setComponent(V& vector, const bp::object& value) {
  const bp::extract<float> number(value);
  if (!number.check()) {
    PyErr_Format(PyExc_TypeError, "a component is a float, not %s", Py_TYPE(value.ptr())->tp_name);
    throw bp::error_already_set();
  }
  vector[I] = number;
}

template <class V>
std::size_t length(const V&) {
  return 3;
}

template <class V>
bool isEqual(const V& a, const V& b) {
  return a == b;
}

template <class V>
bool isUnequal(const V& a, const V& b) {
  return a != b;
}

template <class V>
void defineVectorClass(const char* name, const char* text) {
  bp::class_<V> vectorClass(name, text, bp::no_init);
  const Refusal refusal;
  refusal.enter(vectorClass, "__init__");
  refusal.setSignature(std::string(name) + "() or " + name + "(x: float, y: float, z: float)");
  vectorClass.def(bp::init<>())
      .def(bp::init<float, float, float>((bp::arg("x"), bp::arg("y"), bp::arg("z"))))
      .add_property("x", component<V, 0>, setComponent<V, 0>)
      .add_property("y", component<V, 1>, setComponent<V, 1>)
      .add_property("z", component<V, 2>, setComponent<V, 2>)
      .def("__len__", length<V>)
      .def("__eq__", isEqual<V>)
      .def("__ne__", isUnequal<V>)
      .def("__str__", textOf<V>)
      .def("__repr__", representation<V>)
      // They can change and compare by value.
      .setattr("__hash__", bp::object());
  const bp::arg self("self");
  const bp::arg index("index");
  defineMethod(vectorClass, "__getitem__", item<V>, (self, index));
  defineMethod(vectorClass, "__setitem__", setItem<V>, (self, index, bp::arg("value")));
}

}  // namespace

void defineVectorClasses() {
  const bp::scope globals{bp::import("__main__")};
  defineVectorClass<osg::Pnt3f>("Pnt3f", "A place: x, y, z.");
  defineVectorClass<osg::Vec3f>("Vec3f", "A direction x, y, z, or a colour red, green, blue.");
}

}  // namespace kuStandalone
