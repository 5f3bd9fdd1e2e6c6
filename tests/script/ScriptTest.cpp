#include "ScriptTest.h"

#include <boost/python.hpp>
#include <boost/python/raw_function.hpp>

#include "host/kernel/kuController.h"
#include "standalone/script/ClippingSettings.h"
#include "standalone/script/ScriptCommands.h"
#include "standalone/script/ScriptInterpreter.h"
#include "standalone/script/ScriptPolicy.h"

namespace bp = boost::python;
using namespace kuStandalone;

namespace {

int calls = 0;

bp::object sentinel(const bp::tuple&, const bp::dict&) {
  ++calls;
  return bp::object();
}

bp::object globals() { return ScriptInterpreter::globals(); }

}  // namespace

ScriptTest::ScriptTest() {
  ScriptCommands::add("sentinel", bp::raw_function(sentinel));
  globals()["true"] = true;
  globals()["false"] = false;
  calls = 0;
  ScriptPolicy::allow(false);
  ScriptPolicy::clearRefusals();
  ClippingSettings::the() = ClippingSettings();
}

ScriptTest::~ScriptTest() {
  while (!ScriptPolicy::presentSet().empty())
    sendSelection("");
  ScriptPolicy::allow(false);
  // New ones may hold objects of the scene, and the interpreter outlives the test.
  _names.restore();
}

int ScriptTest::sentinelCalls() { return calls; }

bool ScriptTest::hasRan() { return globals().contains("ran"); }

void ScriptTest::sendSelection(const std::string& set) {
  kuMessage message;
  message.set("variantSetName", set, true);
  kuController::call("variantsSetSelected", message, 1);
}
