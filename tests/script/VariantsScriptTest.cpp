#include "VariantsScriptTest.h"

#include <boost/python.hpp>

#include "host/script/kuScript.h"
#include "script/kuVariantSetPtr.h"
#include "standalone/script/ClippingSettings.h"
#include "standalone/script/ScriptInterpreter.h"
#include "standalone/script/ScriptPolicy.h"

namespace bp = boost::python;
using namespace kuStandalone;

VariantsScriptTest::VariantsScriptTest() {
  ScriptPolicy::allow(true);
  ScriptPolicy::clearRefusals();
  ClippingSettings::the() = ClippingSettings();
}

VariantsScriptTest::~VariantsScriptTest() {
  _names.restore();
  ScriptPolicy::allow(false);
}

std::string VariantsScriptTest::answer(const std::string& expression) {
  return kuScript::executeNUSR(expression.c_str());
}

bool VariantsScriptTest::run(const std::string& text) { return kuScript::run(text.c_str()); }

void VariantsScriptTest::put(const char* name, kuVariantSet* set) {
  ScriptInterpreter::globals()[name] = bp::object(kuVariantSetPtr(set));
}

std::string VariantsScriptTest::lastError() const {
  const std::string start = "error: script failed: line 1: ";
  if (log.empty() || log.back().compare(0, start.size(), start) != 0) return std::string();
  return log.back().substr(start.size());
}
