#include "standalone/script/ScriptError.h"

#include <boost/python.hpp>

#include "standalone/script/ScriptInterpreter.h"

namespace bp = boost::python;

namespace kuStandalone {

namespace {

/** An attribute of any object, or None; never an error. */
bp::object attribute(const bp::object& object, const char* name) {
  const bp::handle<> value(bp::allow_null(PyObject_GetAttrString(object.ptr(), name)));
  if (!value) PyErr_Clear();
  return value ? bp::object(value) : bp::object();
}

bool isScript(const bp::object& fileName) {
  return PyUnicode_Check(fileName.ptr()) &&
         PyUnicode_CompareWithASCIIString(fileName.ptr(), kScriptFileName) == 0;
}

long numberOf(const bp::object& value) {
  if (!PyLong_Check(value.ptr())) return 0;
  const long number = PyLong_AsLong(value.ptr());
  if (PyErr_Occurred()) PyErr_Clear();
  return number;
}

/** The line of the innermost frame that belongs to the script; 0 if there is none. */
long lineOfTrace(bp::object trace) {
  long line = 0;
  for (; !trace.is_none(); trace = attribute(trace, "tb_next")) {
    const bp::object code = attribute(attribute(trace, "tb_frame"), "f_code");
    if (isScript(attribute(code, "co_filename"))) line = numberOf(attribute(trace, "tb_lineno"));
  }
  return line;
}

long lineOf(const bp::object& value, const bp::object& trace) {
  if (isScript(attribute(value, "filename"))) return numberOf(attribute(value, "lineno"));
  return lineOfTrace(trace);
}

bp::object owned(PyObject* object) {
  return object ? bp::object(bp::handle<>(object)) : bp::object();
}

}  // namespace

std::string takeScriptError() {
  PyObject* errorType = nullptr;
  PyObject* errorValue = nullptr;
  PyObject* errorTrace = nullptr;
  PyErr_Fetch(&errorType, &errorValue, &errorTrace);
  if (!errorType) return std::string();
  PyErr_NormalizeException(&errorType, &errorValue, &errorTrace);
  const bp::object type = owned(errorType);
  const bp::object value = owned(errorValue);
  const bp::object trace = owned(errorTrace);

  const long line = lineOf(value, trace);
  std::string text = line > 0 ? "line " + std::to_string(line) + ": " : std::string();
  text += reinterpret_cast<PyTypeObject*>(type.ptr())->tp_name;
  const std::string message = ScriptInterpreter::textOf(value);
  return message.empty() ? text : text + ": " + message;
}

}  // namespace kuStandalone
