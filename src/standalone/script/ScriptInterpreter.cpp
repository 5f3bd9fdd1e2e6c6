#include "standalone/script/ScriptInterpreter.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <boost/python.hpp>

#include "host/kernel/kuLog.h"
#include "standalone/script/HostFunctions.h"
#include "standalone/script/LibraryModules.h"
#include "standalone/script/ScriptError.h"
#include "standalone/script/SyntaxTree.h"

namespace bp = boost::python;

namespace kuStandalone {

namespace {

#define KU_WIDE_TEXT(text) L##text
#define KU_WIDE(text) KU_WIDE_TEXT(text)

/** Runs before the host's own names are defined, and leaves none behind. */
constexpr const char* kStreams = R"(
import os, sys
try:
    printed = open(2, "w", buffering=1, encoding="utf-8", errors="backslashreplace", closefd=False)
except OSError:
    printed = open(os.devnull, "w", encoding="utf-8")
sys.stdout = sys.stderr = sys.__stdout__ = sys.__stderr__ = printed
sys.stdin = sys.__stdin__ = open(os.devnull, encoding="utf-8")
sys.argv = [""]
)";

// The variables are the only way of Python 3.7; later versions keep them, marked as old.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
void isolate() {
  Py_IsolatedFlag = 1;
  Py_IgnoreEnvironmentFlag = 1;
  Py_NoUserSiteDirectory = 1;
  Py_UTF8Mode = 1;
  // With a full path Python does not look for itself on the path.
  Py_SetProgramName(KU_WIDE(KU_PYTHON_PROGRAM));
}
#pragma GCC diagnostic pop

/** Python does not start where standard input is a directory, though it is not to be read. */
class DirectoryAside {
 public:
  DirectoryAside() {
    struct stat status {};
    if (fstat(STDIN_FILENO, &status) != 0 || !S_ISDIR(status.st_mode)) return;
    const int none = open("/dev/null", O_RDONLY | O_CLOEXEC);
    _directory = fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    dup2(none, STDIN_FILENO);
    close(none);
  }
  ~DirectoryAside() {
    if (_directory < 0) return;
    dup2(_directory, STDIN_FILENO);
    close(_directory);
  }
  DirectoryAside(const DirectoryAside&) = delete;
  DirectoryAside& operator=(const DirectoryAside&) = delete;

 private:
  int _directory = -1;
};

void redirectStreams() {
  bp::dict names;
  names["__builtins__"] = bp::import("builtins");
  bp::exec(kStreams, names);
}

void defineNames() {
  // Python's help tells the arguments, and nothing of C++.
  const bp::docstring_options texts(true, true, false);
  ScriptInterpreter::globals()["true"] = true;
  ScriptInterpreter::globals()["false"] = false;
  defineConverters();
  defineVectorClasses();
  defineNodeClass();
  defineMaterialClass();
  defineClippingFunctions();
  defineSceneFunctions();
}

}  // namespace

void ScriptInterpreter::start() {
  static bool started = false;
  if (started) return;
  started = true;
  if (!Py_IsInitialized()) {
    LibraryModules::offer();
    isolate();
    const DirectoryAside whilePythonStarts;
    Py_InitializeEx(0);
  }
  try {
    SyntaxTree::captureClasses();
    redirectStreams();
    defineNames();
    LibraryModules::import();
  } catch (const bp::error_already_set&) {
    kuLog::error("Python could not be prepared: %s", takeError().c_str());
  }
}

bp::object ScriptInterpreter::globals() {
  // Kept, and never let go: a script may take the main module away or put another in its place.
  static PyObject* const names = bp::incref(PyModule_GetDict(PyImport_AddModule("__main__")));
  return bp::object(bp::handle<>(bp::borrowed(names)));
}

bp::object ScriptInterpreter::compile(const char* text, int startSymbol, int flags) {
  // The text is UTF-8 whatever it says itself: a "coding" line could name a codec that runs code.
  const bp::handle<> valid(bp::allow_null(PyUnicode_FromString(text)));
  if (!valid) return bp::object();
  PyCompilerFlags compilerFlags = PyCompilerFlags();
  compilerFlags.cf_flags = flags | PyCF_SOURCE_IS_UTF8 | PyCF_IGNORE_COOKIE;
#if PY_VERSION_HEX >= 0x03080000
  compilerFlags.cf_feature_version = PY_MINOR_VERSION;
#endif
  const bp::handle<> compiled(bp::allow_null(
      Py_CompileStringExFlags(text, kScriptFileName, startSymbol, &compilerFlags, -1)));
  return compiled ? bp::object(compiled) : bp::object();
}

std::string ScriptInterpreter::takeError() { return takeScriptError(); }

std::string ScriptInterpreter::textOf(const bp::object& value) {
  const bp::handle<> text(bp::allow_null(PyObject_Str(value.ptr())));
  const bp::handle<> bytes(bp::allow_null(
      text ? PyUnicode_AsEncodedString(text.get(), "utf-8", "backslashreplace") : nullptr));
  if (!bytes) {
    PyErr_Clear();
    return std::string();
  }
  return std::string(PyBytes_AsString(bytes.get()),
                     static_cast<std::size_t>(PyBytes_Size(bytes.get())));
}

void ScriptInterpreter::flush() {
  PyObject* out = PySys_GetObject("stdout");
  if (!out) return;
  const bp::handle<> done(bp::allow_null(PyObject_CallMethod(out, "flush", nullptr)));
  if (!done) PyErr_Clear();
}

}  // namespace kuStandalone
