#include "standalone/script/LibraryModules.h"

#include <boost/python.hpp>

#include "host/script/kuPythonRegister.h"
#include "standalone/script/ScriptCommands.h"
#include "standalone/script/ScriptInterpreter.h"

namespace bp = boost::python;

namespace kuStandalone {

namespace {

bool importing = false;

void nothing() {}

/** No other callable counts: a star import may bring whatever its module imports itself. */
bool isWrappedFunction(const bp::object& value) {
  return Py_TYPE(value.ptr()) == Py_TYPE(bp::make_function(nothing).ptr());
}

bp::dict copyOfGlobals() { return bp::dict(ScriptInterpreter::globals()); }

void registerCommands(const bp::dict& before) {
  const bp::list names = copyOfGlobals().keys();
  for (bp::ssize_t i = 0; i < bp::len(names); ++i) {
    const bp::object value = ScriptInterpreter::globals()[names[i]];
    if (before.get(names[i]).ptr() == value.ptr() || !isWrappedFunction(value)) continue;
    ScriptCommands::add(bp::extract<std::string>(names[i]), value);
  }
}

}  // namespace

void LibraryModules::offer() {
  kuPythonRegisterFactory::the().call(kuPythonRegisterFactory::BeforeStart);
}

void LibraryModules::import() {
  const bp::dict before = copyOfGlobals();
  importing = true;
  kuPythonRegisterFactory::the().call(kuPythonRegisterFactory::AfterStart);
  importing = false;
  registerCommands(before);
}

bool LibraryModules::areBeingImported() { return importing; }

}  // namespace kuStandalone
