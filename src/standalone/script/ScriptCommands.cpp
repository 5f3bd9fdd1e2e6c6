#include "standalone/script/ScriptCommands.h"

#include <map>

#include "standalone/script/ScriptInterpreter.h"

namespace bp = boost::python;

namespace kuStandalone {

namespace {

/** Never destroyed: its objects belong to an interpreter that outlives everything. */
std::map<std::string, bp::object>& registered() {
  static auto* commands = new std::map<std::string, bp::object>;
  return *commands;
}

}  // namespace

void ScriptCommands::add(const std::string& name, const bp::object& callable) {
  ScriptInterpreter::start();
  registered()[name] = callable;
  ScriptInterpreter::globals()[name] = callable;
}

bp::object ScriptCommands::find(const std::string& name) {
  const auto found = registered().find(name);
  return found == registered().end() ? bp::object() : found->second;
}

}  // namespace kuStandalone
