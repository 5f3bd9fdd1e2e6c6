#include "standalone/script/ScriptVariables.h"

#include <boost/python/dict.hpp>
#include <boost/python/extract.hpp>

#include "standalone/script/ScriptInterpreter.h"

namespace kuStandalone {

namespace {

boost::python::dict globals() {
  return boost::python::extract<boost::python::dict>(ScriptInterpreter::globals());
}

}  // namespace

struct ScriptVariables::Names {
  boost::python::dict values;
};

ScriptVariables::ScriptVariables() {
  ScriptInterpreter::start();
  _names = std::make_unique<Names>(Names{globals().copy()});
}

ScriptVariables::~ScriptVariables() = default;

void ScriptVariables::restore() const {
  boost::python::dict names = globals();
  names.clear();
  names.update(_names->values);
}

}  // namespace kuStandalone
