#include "scripting/ScriptErrors.h"

#include <sys/stat.h>

#include <cerrno>

#include "Failure.h"

namespace bp = boost::python;

namespace {

bp::object takeOver(PyObject* made) { return bp::object(bp::handle<>(made)); }

/** Python's text of bytes that may be anything, as it has file names. */
bp::object fileName(const std::string& name) {
  return takeOver(
      PyUnicode_DecodeFSDefaultAndSize(name.data(), static_cast<Py_ssize_t>(name.size())));
}

bool isDirectory(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

int errorNumber(const Failure& failure) {
  if (failure.systemError != 0) return failure.systemError;
  return isDirectory(failure.where) ? EISDIR : EIO;
}

void raiseFileError(const Failure& failure) {
  const bp::object error(bp::handle<>(bp::borrowed(PyExc_OSError)));
  const bp::object arguments =
      bp::make_tuple(errorNumber(failure), failure.reason, fileName(failure.where));
  PyErr_SetObject(error.ptr(), arguments.ptr());
}

void translate(const Failure& failure) {
  switch (failure.code) {
    case ExitCode::NameUnknown:
      PyErr_SetString(unknownNameClass().ptr(), lineOf(failure).c_str());
      return;
    case ExitCode::OutputNotWritten:
      raiseFileError(failure);
      return;
    default:
      PyErr_SetObject(PyExc_ValueError, fileName(lineOf(failure)).ptr());
  }
}

}  // namespace

bp::object unknownNameClass() {
  // Kept for ever, as the module is.
  static PyObject* const made = PyErr_NewExceptionWithDoc(
      "variants.UnknownName", "There is no set, group, variant or state of that name.",
      PyExc_LookupError, nullptr);
  return bp::object(bp::handle<>(bp::borrowed(made)));
}

void raiseWrong(const std::string& text) {
  PyErr_SetString(PyExc_ValueError, text.c_str());
  throw bp::error_already_set();
}

void translateFailures() { bp::register_exception_translator<Failure>(translate); }
