#include <boost/python.hpp>

#include "VariantsScriptTest.h"
#include "host/kernel/kuController.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"
#include "scene/kuNodeVariant.h"
#include "standalone/scene/Scene.h"
#include "standalone/script/ClippingSettings.h"
#include "standalone/script/ScriptInterpreter.h"
#include "standalone/script/ScriptPolicy.h"
#include "support/ManagerDump.h"

namespace bp = boost::python;
using namespace kuStandalone;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

// Scripts of sets where scripts are allowed: whatever they do, the rest of the set acts.

namespace {

void removeSet(const char* name) { kuVariants::removeVariantSet(name); }
void clearAll() { kuController::call("clearAllVariants", 1); }

/** The set "Blue" chooses a child, has a script, clips, and looks from "Top". */
class SetScripts : public VariantsScriptTest {
 protected:
  SetScripts() {
    paint = scene.switchNode("Paint", 0, {"Red", "Blue"});
    scene.camera("Top");
    scene.camera("Side");
    Scene::the().activeViewpoint = "Side";
    kuVariantSet* set = kuVariants::createVariantSet("Blue", false, nullptr);
    set->add(kuVariants::createNodeVariant(paint, false), "Blue");
    set->setClippingState(1);
    set->addViewpoint("Top");
    put("blue", set);
    ScriptInterpreter::globals()["removeSet"] = bp::make_function(removeSet);
    ScriptInterpreter::globals()["clearAll"] = bp::make_function(clearAll);
    messages.clear();
  }

  /** Selects the set with that script. */
  void select(const std::string& script) {
    kuVariantSet* set = kuVariants::findVariantSet("Blue");
    set->setScript(QString::fromStdString(script));
    set->select(true, false, false);
  }

  /** What comes before the script and behind it. */
  void expectTheRestActed() const {
    EXPECT_EQ(scene.choice(paint), 1);
    EXPECT_TRUE(ClippingSettings::the().enabled);
    EXPECT_EQ(Scene::the().activeViewpoint, "Top");
    EXPECT_EQ(messages.lines().back(), "variantSetSelected/1 bare");
  }

  osg::NodePtr paint;
};

struct Failing {
  const char* name;
  const char* script;
  const char* reason;
};

void PrintTo(const Failing& failing, std::ostream* out) { *out << failing.name; }

class FailingSetScripts : public SetScripts, public ::testing::WithParamInterface<Failing> {};

TEST_P(FailingSetScripts, AreToldWithSetLineAndTextAndTheSelectionGoesOn) {
  select(GetParam().script);
  EXPECT_THAT(log, ElementsAre(StartsWith(std::string("error: script of set \"Blue\" failed: ") +
                                          GetParam().reason)));
  expectTheRestActed();
  EXPECT_TRUE(run("ran = 1"));
}

const Failing kFailing[] = {
    {"UnknownName", "ran = 1\n\nunknown()", "line 3: NameError: name 'unknown' is not defined"},
    {"NoPython", "ran = 1\nthis is no python", "line 2: SyntaxError: "},
    {"BadIndentation", "if True:\nran = 1", "line 2: IndentationError: "},
    {"FailedImport", "import no_such_module", "line 1: ModuleNotFoundError: "},
    {"ExceptionOfItsOwn", "class Own(Exception): pass\nraise Own('why')", "line 2: Own: why"},
    {"SystemExit", "raise SystemExit", "line 1: SystemExit"},
    {"SystemExitWithACode", "import sys\nsys.exit(3)", "line 2: SystemExit: 3"},
    {"KeyboardInterrupt", "raise KeyboardInterrupt", "line 1: KeyboardInterrupt"},
    {"GeneratorExit", "raise GeneratorExit", "line 1: GeneratorExit"},
    {"FailedAssertion", "assert False, 'said'", "line 1: AssertionError: said"},
    {"Recursion", "def again(): again()\nagain()", "line 1: RecursionError: "},
    {"NoMemory", "raise MemoryError", "line 1: MemoryError"},
    {"TextInAnotherScript", "raise ValueError('T\xC3\xBCr \xF0\x9F\x98\x80')",
     "line 1: ValueError: T\xC3\xBCr \xF0\x9F\x98\x80"},
    {"TextWithALoneSurrogate", "raise ValueError('a\\ud800b')", "line 1: ValueError: a\\ud800b"},
    {"TextOfSeveralLines", "raise ValueError('a\\nerror: forged')",
     "line 1: ValueError: a error: forged"},
    {"ErrorWithoutText", "class ran(Exception):\n  def __str__(self): return 1\nraise ran",
     "line 3: ran"},
    {"NameOfASetWithoutUtf8", "selectVariantSet('\\ud800')", "line 1: UnicodeEncodeError: "},
    {"WrongArguments", "selectVariantSet(1)", "line 1: ArgumentError: "},
    {"IndexOfASwitch", "findNode('Paint').setChoice(9)", "line 1: IndexError: "},
    {"RemovedSet", "removeSet('Blue')\nraise ValueError('gone')", "line 2: ValueError: gone"},
    {"EverythingCleared", "clearAll()\nraise ValueError('gone')", "line 2: ValueError: gone"},
};

INSTANTIATE_TEST_SUITE_P(Scripts, FailingSetScripts, ::testing::ValuesIn(kFailing),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(SetScripts, RemoveTheirSetAndTheRestOfItActs) {
  select("removeSet('Blue')");
  EXPECT_THAT(log, IsEmpty());
  EXPECT_EQ(kuVariants::findVariantSet("Blue"), nullptr);
  expectTheRestActed();
}

TEST_F(SetScripts, ClearEverythingAndTheRestOfTheSetActs) {
  select("clearAll()\nselectVariantSet('Blue')");
  EXPECT_THAT(log, IsEmpty());
  EXPECT_EQ(managerDump(), "");
  expectTheRestActed();
}

/** The set's name stands in the log, also where the set is selected within another. */
TEST_F(SetScripts, ErrorsOfASetWithinAnotherNameTheInnerOne) {
  kuVariantSet* inner = kuVariants::createVariantSet("Inn\xC3\xA9r", false, nullptr);
  inner->setName(QString::fromUtf8("T\xC3\xBCr \"A\"\n"));
  inner->setScript("unknown()");
  select("selectVariantSet('T\xC3\xBCr \"A\"\\n')\nunknown()");
  const std::string reason = "NameError: name 'unknown' is not defined";
  EXPECT_THAT(log,
              ElementsAre("error: script of set \"T\xC3\xBCr \"A\"\" failed: line 1: " + reason,
                          "error: script of set \"Blue\" failed: line 2: " + reason));
  expectTheRestActed();
}

TEST_F(SetScripts, TextsAreUtf8BothWays) {
  select(
      "blue.setName('T\xC3\xBCr \xF0\x9F\x98\x80')\nran = blue.getName() == 'T\xC3\xBCr "
      "\xF0\x9F\x98\x80'");
  EXPECT_EQ(answer("ran"), "True");
  EXPECT_TRUE(kuVariants::findVariantSet(QString::fromUtf8("T\xC3\xBCr \xF0\x9F\x98\x80")));
  expectTheRestActed();
}

TEST_F(SetScripts, LoneSurrogateOfTheScriptsTextIsAQuestionMark) {
  kuVariantSet* set = kuVariants::findVariantSet("Blue");
  set->setScript(QString("ran = '") + QChar(0xD800) + "'");
  set->select(true, false, false);
  EXPECT_EQ(answer("ran"), "?");
  expectTheRestActed();
}

TEST_F(SetScripts, PrintToTheErrorStreamInTheirOrder) {
  ::testing::internal::CaptureStdout();
  ::testing::internal::CaptureStderr();
  select(
      "import sys\nprint('one')\nprint('tw\xC3\xB6', file=sys.stderr)\nprint('a\\ud800')\n"
      "sys.stdout.write('end')");
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "one\ntw\xC3\xB6\na\\ud800\nend");
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
  EXPECT_THAT(log, IsEmpty());
  expectTheRestActed();
}

/** The streams that a script puts in the place of the interpreter's. */
struct Streams {
  const char* name;
  const char* script;
};

void PrintTo(const Streams& streams, std::ostream* out) { *out << streams.name; }

class SetScriptStreams : public SetScripts, public ::testing::WithParamInterface<Streams> {
 protected:
  SetScriptStreams() { EXPECT_TRUE(run("import sys\nkept = sys.stdout, sys.stderr")); }
  ~SetScriptStreams() override { EXPECT_TRUE(run("sys.stdout, sys.stderr = kept")); }
};

TEST_P(SetScriptStreams, ThatAreNoneAreNoHarm) {
  select(GetParam().script);
  EXPECT_THAT(log, IsEmpty());
  expectTheRestActed();
  EXPECT_FALSE(run("unknown()"));
  EXPECT_THAT(log, ElementsAre(HasSubstr("NameError")));
}

const Streams kStreams[] = {
    {"None", "sys.stdout = sys.stderr = None"},
    {"Deleted", "del sys.stdout, sys.stderr"},
    {"ANumber", "sys.stdout = sys.stderr = 1"},
    {"WhoseFlushFails", "class Own:\n  def flush(self): raise SystemExit\nsys.stdout = Own()"},
    {"Closed", "import io\nsys.stdout = io.StringIO()\nsys.stdout.close()"},
};

INSTANTIATE_TEST_SUITE_P(Streams, SetScriptStreams, ::testing::ValuesIn(kStreams),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(SetScripts, StartThreadsWhoseErrorsAreToldOnTheErrorStream) {
  ::testing::internal::CaptureStderr();
  select(
      "import threading\ndef work(): raise ValueError('in a thread')\n"
      "t = threading.Thread(target=work)\nt.start()\nt.join()");
  EXPECT_THAT(::testing::internal::GetCapturedStderr(), HasSubstr("ValueError: in a thread"));
  EXPECT_THAT(log, IsEmpty());
  expectTheRestActed();
}

TEST_F(SetScripts, StartThreadsThatGoOnWhileLaterScriptsRun) {
  select(
      "import threading\ngo = threading.Event()\nran = []\n"
      "def work():\n  go.wait(30)\n  ran.append(1)\n"
      "t = threading.Thread(target=work, daemon=True)\nt.start()");
  expectTheRestActed();
  EXPECT_EQ(answer("ran"), "[]");
  EXPECT_TRUE(run("go.set()\nt.join(30)"));
  EXPECT_EQ(answer("ran"), "[1]");
}

/** The script waits for it, so only one of the two threads moves the scene. */
TEST_F(SetScripts, StartAThreadThatSelectsAnotherSet) {
  kuVariantSet* other = kuVariants::createVariantSet("Other", false, nullptr);
  other->setScript("ran = 1");
  select(
      "import threading\nt = threading.Thread(target=selectVariantSet, args=('Other',))\n"
      "t.start()\nt.join(30)");
  EXPECT_EQ(answer("ran"), "1");
  EXPECT_THAT(log, IsEmpty());
  expectTheRestActed();
}

/** The clipping's own text is the next that finds nothing. */
TEST_F(SetScripts, WreckTheGlobalNamesAndTheSelectionGoesOn) {
  select("ran = globals()\nimport sys\nsys.modules.pop('__main__')\nran.clear()");
  EXPECT_THAT(log, ElementsAre("error: script of set \"Blue\" failed: line 1: NameError: name "
                               "'setClippingPlane' is not defined"));
  EXPECT_EQ(scene.choice(paint), 1);
  EXPECT_EQ(Scene::the().activeViewpoint, "Top");
  EXPECT_EQ(messages.lines().back(), "variantSetSelected/1 bare");
  ScriptPolicy::allow(false);
  kuVariants::findVariantSet("Blue")->executeAnalyzer();
  EXPECT_TRUE(ClippingSettings::the().enabled);
}

}  // namespace
