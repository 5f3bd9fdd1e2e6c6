#pragma once

#include <boost/python/import.hpp>
#include <boost/python/scope.hpp>

#include "standalone/script/Refusal.h"
#include "standalone/script/ScriptCommands.h"

namespace kuStandalone {

/**
 * Makes a C++ function a command. @param options what boost::python::def takes: keywords, text.
 * It is defined under its name before it is registered, so that Python's errors tell the name.
 */
template <class Function, class... Options>
void defineCommand(const char* name, Function function, const Options&... options) {
  const boost::python::object module = boost::python::import("__main__");
  const boost::python::scope inside(module);
  defineFunction(name, function, options...);
  ScriptCommands::add(name, module.attr(name));
}

}  // namespace kuStandalone
