#include <boost/python.hpp>
#include <vector>

#include "ScriptTest.h"
#include "host/script/kuPythonRegister.h"
#include "host/script/kuScript.h"
#include "standalone/script/ScriptPolicy.h"

// What a library sees of the interpreter's start. It registers while the program loads, and so is
// in a program of its own.

namespace bp = boost::python;
using namespace kuStandalone;
using ::testing::ElementsAre;
using Level = kuPythonRegisterFactory::Level;

namespace {

/** What was seen while the interpreter of this process started. */
struct {
  std::vector<int> levels;
  bool pythonRanBeforeStart = true;
  bool textRanBeforeStart = true;
  bool hostNamesWereThere = false;
  bool statementsRan = false;
} seen;

int brought() { return 7; }

class Brought {};

void bringNames() {
  bp::scope globals{bp::import("__main__")};
  bp::def("broughtFunction", brought);
  bp::class_<Brought>("broughtClass", bp::no_init);
}

void watchStart(Level level) {
  if (seen.levels.size() == 2) return;  // other tests call for levels of their own
  seen.levels.push_back(level);
  if (level == kuPythonRegisterFactory::BeforeStart) {
    seen.pythonRanBeforeStart = Py_IsInitialized() != 0;
    seen.textRanBeforeStart = kuScript::run("enableClippingPlane(false)");
    return;
  }
  seen.hostNamesWereThere = kuScript::run("findNodePath, Pnt3f, true");
  seen.statementsRan = kuScript::run("import math\nfrom math import floor as broughtBuiltin");
  kuScript::run("def broughtScript(): pass");
  bringNames();
}

const kuPythonRegister watching(watchStart);

using PythonStart = ScriptTest;

TEST_F(PythonStart, RunsLevelZeroAndThenLevelOneOnce) {
  EXPECT_THAT(seen.levels, ElementsAre(0, 1));
}

TEST_F(PythonStart, RunsLevelZeroBeforePython) { EXPECT_FALSE(seen.pythonRanBeforeStart); }

TEST_F(PythonStart, FailsATextThatComesBeforePython) { EXPECT_FALSE(seen.textRanBeforeStart); }

TEST_F(PythonStart, RunsLevelOneAfterTheHostsNames) { EXPECT_TRUE(seen.hostNamesWereThere); }

TEST_F(PythonStart, RunsStatementsOfLevelOneThoughScriptsAreOffAndRefusesThemAfterwards) {
  EXPECT_TRUE(seen.statementsRan);
  EXPECT_FALSE(kuScript::run("import math"));
  EXPECT_EQ(ScriptPolicy::refusalCount(), 1u);
}

TEST_F(PythonStart, MakesACommandOfAFunctionThatLevelOneBrought) {
  EXPECT_EQ(kuScript::executeNUSR("broughtFunction()"), "7");
}

TEST_F(PythonStart, MakesNoCommandOfAnythingElse) {
  for (const char* text : {"broughtClass()", "broughtScript()", "broughtBuiltin(1)", "print(1)"}) {
    EXPECT_FALSE(kuScript::run(text)) << text;
  }
  EXPECT_EQ(ScriptPolicy::refusalCount(), 4u);
  ScriptPolicy::allow(true);
  EXPECT_TRUE(kuScript::run("broughtClass, broughtScript, broughtBuiltin"));
}

}  // namespace
