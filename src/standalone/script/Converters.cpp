#include <boost/python.hpp>
#include <vector>

#include "standalone/script/HostFunctions.h"

namespace bp = boost::python;

namespace kuStandalone {

namespace {

/** Texts are UTF-8; what is not comes out with its bytes told, and is no error. */
bp::object text(const std::string& bytes) {
  return bp::object(bp::handle<>(PyUnicode_DecodeUTF8(
      bytes.data(), static_cast<Py_ssize_t>(bytes.size()), "backslashreplace")));
}

struct TextsToList {
  static PyObject* convert(const std::vector<std::string>& texts) {
    bp::list list;
    for (const std::string& entry : texts)
      list.append(text(entry));
    return bp::incref(list.ptr());
  }
};

}  // namespace

void defineConverters() { bp::to_python_converter<std::vector<std::string>, TextsToList>(); }

std::string handleText(const char* className, bool valid, const std::string& name) {
  if (!valid) return std::string("<") + className + " without an object>";
  const bp::object quoted(bp::handle<>(PyObject_Repr(text(name).ptr())));
  return std::string("<") + className + " " + bp::extract<std::string>(quoted)() + ">";
}

}  // namespace kuStandalone
