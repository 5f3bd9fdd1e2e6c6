// What it costs to select a set from a script, beside the same call from C++: by a name that no set
// has, which is the way into the library and back alone, and by the name of a small set.

#include <boost/python.hpp>
#include <string>

#include "benchMain.h"
#include "host/kernel/kuController.h"
#include "host/script/kuScript.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"
#include "scene/kuNodeVariant.h"
#include "standalone/scene/Cores.h"
#include "standalone/scene/Scene.h"
#include "standalone/scene/SceneNode.h"
#include "standalone/script/ScriptInterpreter.h"
#include "standalone/script/ScriptPolicy.h"

namespace bp = boost::python;
using namespace kuStandalone;

namespace {

/** How many states the small set has. */
constexpr int statesOfTheSet = 3;
/** Calls of one compiled loop: enough that entering it does not count. */
constexpr int callsOfALoop = 1000;

osg::NodePtr addNode(const osg::NodePtr& parent, const std::string& name,
                     const osg::NodeCorePtr& core) {
  osg::NodePtr node = SceneNode::create(name, core);
  SceneNode::of(parent).addChild(node);
  return node;
}

void makeSmallSet() {
  kuVariantSet* set = kuVariants::createVariantSet("Small", false, nullptr);
  for (int i = 0; i < statesOfTheSet; ++i) {
    const osg::NodePtr node =
        addNode(Scene::the().nodes.root, "Switch " + std::to_string(i), SwitchCore::create(0));
    addNode(node, "Open", GroupCore::create());
    addNode(node, "Shut", GroupCore::create());
    set->add(kuVariants::createNodeVariant(node, false), "Shut");
  }
}

void perCall(benchmark::State& state, int callsOfAnIteration) {
  state.counters["calls_per_second"] = benchmark::Counter(
      static_cast<double>(state.iterations()) * callsOfAnIteration, benchmark::Counter::kIsRate);
}

void fromCpp(benchmark::State& state, const std::string& set) {
  for (auto _ : state)
    kuVariants::selectVariantSet(set.c_str(), false);
  perCall(state, 1);
}

/** A code object that is compiled once and calls in a loop. */
void fromCompiledPython(benchmark::State& state, const std::string& set) {
  const std::string text =
      "for i in range(" + std::to_string(callsOfALoop) + "): selectVariantSet('" + set + "')";
  const bp::object code = ScriptInterpreter::compile(text.c_str(), Py_file_input, 0);
  const bp::object globals = ScriptInterpreter::globals();
  for (auto _ : state)
    bp::handle<>(PyEval_EvalCode(code.ptr(), globals.ptr(), globals.ptr()));
  perCall(state, callsOfALoop);
}

/** A text that is read anew for each call, as a command or, where scripts are allowed, as Python.
 */
void fromText(benchmark::State& state, const std::string& set, bool allowed) {
  ScriptPolicy::allow(allowed);
  const std::string text = "selectVariantSet('" + set + "')";
  for (auto _ : state) {
    if (!kuScript::run(text.c_str())) state.SkipWithError("the text did not run");
  }
  ScriptPolicy::allow(false);
  perCall(state, 1);
}

/** Whether the script selects what it should. */
bool selects() {
  const osg::NodePtr node = SceneNode::of(Scene::the().nodes.root).children().front();
  return kuScript::run("selectVariantSet('Small')") &&
         osg::SwitchPtr::dcast(node->getCore())->getChoice() == 1;
}

bool registerAll() {
  makeSmallSet();
  for (const std::string set : {"Unknown", "Small"}) {
    const auto name = [&](const char* way) { return way + ("/" + set); };
    benchmark::RegisterBenchmark(name("cpp").c_str(), fromCpp, set);
    benchmark::RegisterBenchmark(name("compiled").c_str(), fromCompiledPython, set);
    benchmark::RegisterBenchmark(name("script").c_str(), fromText, set, true);
    benchmark::RegisterBenchmark(name("command").c_str(), fromText, set, false);
  }
  return selects();
}

}  // namespace

int main(int argc, char** argv) { return benchMain(argc, argv, registerAll); }
