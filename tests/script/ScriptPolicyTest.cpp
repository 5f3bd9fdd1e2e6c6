#include "standalone/script/ScriptPolicy.h"

#include "ScriptTest.h"
#include "host/script/kuScript.h"
#include "standalone/script/ClippingSettings.h"

using namespace kuStandalone;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

namespace {

struct PassingText {
  const char* name;
  const char* text;
  int calls;
};

void PrintTo(const PassingText& text, std::ostream* out) { *out << text.name; }

class CommandTexts : public ScriptTest, public ::testing::WithParamInterface<PassingText> {};

TEST_P(CommandTexts, RunWhileScriptsAreOff) {
  EXPECT_TRUE(kuScript::run(GetParam().text));
  EXPECT_EQ(sentinelCalls(), GetParam().calls);
  EXPECT_EQ(ScriptPolicy::refusalCount(), 0u);
  EXPECT_THAT(log, IsEmpty());
}

const PassingText kPassing[] = {
    {"NoText", "", 0},
    {"LineFeedsAlone", "\n\r\n\n", 0},
    {"CommentAlone", "# import os", 0},
    {"CallWithoutArguments", "sentinel()", 1},
    {"CallPerLine", "sentinel()\nsentinel()\r\nsentinel()\n", 3},
    {"CallsApartBySemicolons", "sentinel(); sentinel()", 2},
    {"CallOverSeveralLines", "sentinel(1,\n  2 # two\n)", 1},
    {"LineContinuation", "sentinel(1, \\\n 2)", 1},
    {"Comment", "sentinel() # import os", 1},
    {"WholeNumbers", "sentinel(0, 1, -1, 0x10, 9223372036854775807)", 1},
    {"Fractions", "sentinel(0.5, -0.5, 1e+06, 1.23457e+06, .5)", 1},
    {"Flags", "sentinel(true, false, True, False)", 1},
    {"None", "sentinel(None)", 1},
    {"Texts",
     "sentinel('a', \"b\", 'it\\'s', '''c\nd''', r'\\e', 'Stra\xC3\x9F"
     "e')",
     1},
    {"TextsSideBySide", "sentinel('a' 'b')", 1},
    {"TextThatLooksLikeCode", "sentinel('); import os')", 1},
    {"TextWithNul", "sentinel('a\\0b')", 1},
    {"Vectors", "sentinel(Pnt3f(1, -2, 0.5),Vec3f(0, 1e-05, 3))", 1},
    {"ParenthesesAroundArguments", "(sentinel((1), (('a'))))", 1},
    {"ThirtyTwoArguments",
     "sentinel(1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1)", 1},
    // Python folds these letters into the plain ones, and so it is the registered function.
    {"NameInWideLetters",
     "\xEF\xBD\x93"
     "entinel()",
     1},
};

INSTANTIATE_TEST_SUITE_P(Texts, CommandTexts, ::testing::ValuesIn(kPassing),
                         [](const auto& row) { return std::string(row.param.name); });

class ScriptPolicyTest : public ScriptTest {};

TEST_F(ScriptPolicyTest, ScriptsAreOffAtFirst) { EXPECT_FALSE(ScriptPolicy::allowed()); }

TEST_F(ScriptPolicyTest, NothingRunsBehindANul) {
  const std::string text("sentinel()\0ran = 1", 18);
  EXPECT_TRUE(kuScript::run(text.c_str()));
  EXPECT_EQ(sentinelCalls(), 1);
  EXPECT_FALSE(hasRan());
}

TEST_F(ScriptPolicyTest, NoTextAtAllIsAnEmptyOne) {
  EXPECT_TRUE(kuScript::run(nullptr));
  EXPECT_EQ(kuScript::executeNUSR(nullptr), "");
}

TEST_F(ScriptPolicyTest, RefusalNamesSetPlaceAndStartOfText) {
  sendSelection("Blue");
  EXPECT_FALSE(kuScript::run("sentinel()\n\nimport os\n"));
  EXPECT_THAT(log, ElementsAre("warning: script of set \"Blue\" not run, scripts are not allowed: "
                               "line 3 is no command: sentinel() import os"));
  ASSERT_EQ(ScriptPolicy::refusals().size(), 1u);
  EXPECT_EQ(ScriptPolicy::refusals()[0].set, "Blue");
  EXPECT_EQ(ScriptPolicy::refusals()[0].reason, "line 3 is no command");
  EXPECT_EQ(ScriptPolicy::refusals()[0].start, "sentinel() import os");
}

TEST_F(ScriptPolicyTest, LongTextOfCommandsRuns) {
  std::string text;
  for (int i = 0; i < 20000; ++i)
    text += "sentinel(\"Car/Body\", true) # a line\n";
  EXPECT_TRUE(kuScript::run(text.c_str()));
  EXPECT_EQ(sentinelCalls(), 20000);
}

TEST_F(ScriptPolicyTest, RefusalInALongTextTellsTheLine) {
  std::string text;
  for (int i = 0; i < 20000; ++i)
    text += "sentinel()\n";
  EXPECT_FALSE(kuScript::run((text + "ran = 1\n").c_str()));
  EXPECT_FALSE(kuScript::run((text + "ran = = 1\n").c_str()));
  ASSERT_EQ(ScriptPolicy::refusals().size(), 2u);
  EXPECT_EQ(ScriptPolicy::refusals()[0].reason, "line 20001 is no command");
  // Blocks of 65,536 bytes have 5957 of these lines.
  EXPECT_THAT(ScriptPolicy::refusals()[1].reason,
              StartsWith("counted from line 17872, line 2130: SyntaxError: invalid syntax"));
}

TEST_F(ScriptPolicyTest, RefusalOutsideASelectionNamesNoSet) {
  EXPECT_FALSE(kuScript::run("pass"));
  EXPECT_THAT(log, ElementsAre("warning: script not run, scripts are not allowed: "
                               "line 1 is no command: pass"));
  EXPECT_EQ(ScriptPolicy::refusals()[0].set, "");
}

TEST_F(ScriptPolicyTest, RefusalOfALongTextShowsItsStart) {
  EXPECT_FALSE(kuScript::run(("a = '" + std::string(500, 'x') + "'").c_str()));
  EXPECT_EQ(ScriptPolicy::refusals()[0].start, "a = '" + std::string(75, 'x') + "...");
}

TEST_F(ScriptPolicyTest, SetNamedAsCodeDoesNothing) {
  sendSelection("');import os as ran");
  EXPECT_FALSE(kuScript::executeNUS("sentinel('');import os as ran')", false));
  EXPECT_EQ(sentinelCalls(), 0);
  EXPECT_FALSE(hasRan());
  ASSERT_EQ(log.size(), 1u);
  EXPECT_THAT(log[0], HasSubstr("script of set \"');import os as ran\" not run"));
}

TEST_F(ScriptPolicyTest, SetNameForgesNoLogLine) {
  sendSelection(
      "A\nerror: \xE2\x80\xAE"
      "B\x1B[2J");
  EXPECT_FALSE(kuScript::run("pass\nerror: forged"));
  ASSERT_EQ(log.size(), 1u);
  EXPECT_EQ(log[0].find_first_of("\n\x1B"), std::string::npos);
  EXPECT_THAT(log[0], HasSubstr("script of set \"A error: B [2J\" not run"));
}

TEST_F(ScriptPolicyTest, EndOfASelectionInsideAnotherGoesBackToTheOuterSet) {
  sendSelection("Outer");
  sendSelection("Inner");
  EXPECT_EQ(ScriptPolicy::presentSet(), "Inner");
  sendSelection("");
  EXPECT_EQ(ScriptPolicy::presentSet(), "Outer");
  sendSelection("");
  EXPECT_EQ(ScriptPolicy::presentSet(), "");
}

TEST_F(ScriptPolicyTest, EndWithoutSelectionChangesNothing) {
  sendSelection("");
  sendSelection("Blue");
  EXPECT_EQ(ScriptPolicy::presentSet(), "Blue");
}

TEST_F(ScriptPolicyTest, CountsRefusalsAndKeepsTheFirstThousand) {
  for (int i = 0; i < 1001; ++i)
    EXPECT_FALSE(kuScript::run("pass"));
  EXPECT_EQ(ScriptPolicy::refusalCount(), 1001u);
  EXPECT_EQ(ScriptPolicy::refusals().size(), 1000u);
  ScriptPolicy::clearRefusals();
  EXPECT_EQ(ScriptPolicy::refusalCount(), 0u);
  EXPECT_THAT(ScriptPolicy::refusals(), IsEmpty());
}

TEST_F(ScriptPolicyTest, CommandThatFailsEndsTheTextWithALogLine) {
  EXPECT_FALSE(kuScript::run("sentinel()\nenableClippingPlane()\nsentinel()"));
  EXPECT_EQ(sentinelCalls(), 1);
  ASSERT_EQ(log.size(), 1u);
  EXPECT_THAT(log[0], HasSubstr("error: script failed: "));
  EXPECT_THAT(log[0], HasSubstr("enableClippingPlane"));
  EXPECT_EQ(ScriptPolicy::refusalCount(), 0u);
}

TEST_F(ScriptPolicyTest, ExpressionThatIsACommandIsAnsweredWhileScriptsAreOff) {
  EXPECT_EQ(kuScript::executeNUSR(" getClippingContourWidth()"), "1");
  EXPECT_EQ(kuScript::executeNUSR("getClippingContourWidth()\n"), "1");
  EXPECT_EQ(kuScript::executeNUSR("getClippingContourWidth(); sentinel()"), "");
  EXPECT_EQ(kuScript::executeNUSR("1 + 1"), "");
  EXPECT_EQ(sentinelCalls(), 0);
}

TEST_F(ScriptPolicyTest, CommandCallsTheRegisteredFunctionWhateverItsNameIsBoundTo) {
  ScriptPolicy::allow(true);
  ASSERT_TRUE(
      kuScript::run("kept = enableClippingPlane\n"
                    "def enableClippingPlane(flag):\n"
                    "  globals()['ran'] = 1\n"
                    "true = 0\n"));
  ScriptPolicy::allow(false);
  EXPECT_TRUE(kuScript::run("enableClippingPlane(true)"));
  EXPECT_FALSE(hasRan());
  EXPECT_TRUE(ClippingSettings::the().enabled);
  ScriptPolicy::allow(true);
  ASSERT_TRUE(kuScript::run("enableClippingPlane = kept"));
}

TEST_F(ScriptPolicyTest, CommandDoesNotCallAVectorClassThatAScriptChanged) {
  ScriptPolicy::allow(true);
  ASSERT_TRUE(
      kuScript::run("kept = Vec3f, Vec3f.__init__\n"
                    "def changed(*arguments):\n"
                    "  globals()['ran'] = 1\n"
                    "Vec3f.__init__ = changed\n"
                    "Vec3f = changed\n"));
  ScriptPolicy::allow(false);
  EXPECT_TRUE(kuScript::run("setClippingGridVisualization(true, Vec3f(1, 2, 3))"));
  EXPECT_FALSE(hasRan());
  EXPECT_EQ(ClippingSettings::the().gridColor, osg::Vec3f(1, 2, 3));
  ScriptPolicy::allow(true);
  ASSERT_TRUE(
      kuScript::run("Vec3f, Vec3f.__init__ = kept[0], kept[1]\nVec3f = kept[0]\n"
                    "Vec3f.__init__ = kept[1]"));
}

TEST_F(ScriptPolicyTest, TextIsJudgedWithoutWhatAScriptMadeOfTheSyntaxModule) {
  ScriptPolicy::allow(true);
  ASSERT_TRUE(
      kuScript::run("import ast, builtins\n"
                    "kept = ast.parse, builtins.compile\n"
                    "ast.parse = builtins.compile = lambda *a, **k: None\n"));
  ScriptPolicy::allow(false);
  EXPECT_FALSE(kuScript::run("ran = 1"));
  EXPECT_TRUE(kuScript::run("sentinel()"));
  EXPECT_FALSE(hasRan());
  EXPECT_EQ(sentinelCalls(), 1);
  ScriptPolicy::allow(true);
  ASSERT_TRUE(kuScript::run("ast.parse, builtins.compile = kept"));
}

TEST_F(ScriptPolicyTest, TextIsNotMistakenForWhatAScriptMakesOfTheSyntaxClasses) {
  ScriptPolicy::allow(true);
  ASSERT_TRUE(
      kuScript::run("import _ast\n"
                    "_ast.Name.id = property(lambda self: 'sentinel', lambda *a: None)"));
  ScriptPolicy::allow(false);
  EXPECT_FALSE(kuScript::run("exit()"));
  EXPECT_EQ(sentinelCalls(), 0);
  ScriptPolicy::allow(true);
  ASSERT_TRUE(kuScript::run("del _ast.Name.id"));
  ScriptPolicy::allow(false);
  EXPECT_TRUE(kuScript::run("sentinel()"));
}

}  // namespace
