#include "host/script/kuPythonRegister.h"

#include <boost/python.hpp>
#include <memory>

#include "ScriptTest.h"
#include "host/script/kuScript.h"
#include "standalone/script/ScriptCommands.h"
#include "standalone/script/ScriptPolicy.h"

namespace bp = boost::python;
using namespace kuStandalone;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Level = kuPythonRegisterFactory::Level;

namespace {

/** A level that no library knows. */
constexpr Level otherLevel = Level(7);

std::vector<std::string> calls;
std::unique_ptr<kuPythonRegister> extra;

void first(Level level) {
  if (level == otherLevel) calls.emplace_back("first");
}
void second(Level level) {
  if (level == otherLevel) calls.emplace_back("second");
}
void thatRegistersSecond(Level level) {
  if (level == otherLevel) extra = std::make_unique<kuPythonRegister>(second);
}
void thatUnregistersSecond(Level level) {
  if (level == otherLevel) extra.reset();
}

class PythonRegister : public ScriptTest {
 protected:
  PythonRegister() { calls.clear(); }
  ~PythonRegister() override { extra.reset(); }

  static void call() { kuPythonRegisterFactory::the().call(otherLevel); }
};

TEST_F(PythonRegister, CallsInTheOrderOfRegistration) {
  const kuPythonRegister b(second);
  const kuPythonRegister a(first);
  call();
  EXPECT_THAT(calls, ElementsAre("second", "first"));
}

TEST_F(PythonRegister, FunctionRegisteredTwiceIsCalledOnce) {
  const kuPythonRegister a(first);
  const kuPythonRegister b(first);
  call();
  EXPECT_THAT(calls, ElementsAre("first"));
}

TEST_F(PythonRegister, FunctionRegisteredTwiceIsCalledUntilBothAreGone) {
  auto a = std::make_unique<kuPythonRegister>(first);
  auto b = std::make_unique<kuPythonRegister>(first);
  a.reset();
  call();
  EXPECT_THAT(calls, ElementsAre("first"));
  b.reset();
  call();
  EXPECT_THAT(calls, ElementsAre("first"));
}

TEST_F(PythonRegister, FunctionThatIsGoneIsNotCalled) {
  { const kuPythonRegister a(first); }
  call();
  EXPECT_THAT(calls, IsEmpty());
}

TEST_F(PythonRegister, FunctionThatRegistersDuringTheCallIsCalledToo) {
  const kuPythonRegister a(thatRegistersSecond);
  call();
  EXPECT_THAT(calls, ElementsAre("second"));
}

TEST_F(PythonRegister, FunctionThatIsUnregisteredDuringTheCallIsNotCalled) {
  const kuPythonRegister a(thatUnregistersSecond);
  extra = std::make_unique<kuPythonRegister>(second);
  call();
  EXPECT_THAT(calls, IsEmpty());
}

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
