#include "host/script/kuScript.h"

#include <boost/python.hpp>

#include "ScriptTest.h"
#include "standalone/script/ScriptCommands.h"
#include "standalone/script/ScriptPolicy.h"

namespace bp = boost::python;
using namespace kuStandalone;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

namespace {

class kuScriptTest : public ScriptTest {
 protected:
  kuScriptTest() { ScriptPolicy::allow(true); }
};

TEST_F(kuScriptTest, RunsSeveralLinesInTheGlobalNamespace) {
  EXPECT_TRUE(kuScript::run("def add(a, b):\n  return a + b\n\nran = add(1, 2)\n"));
  EXPECT_EQ(kuScript::executeNUSR("ran"), "3");
  EXPECT_EQ(kuScript::executeNUSR("__name__"), "__main__");
}

TEST_F(kuScriptTest, RunsLinesThatEndInCarriageReturns) {
  EXPECT_TRUE(kuScript::run("if true:\r\n  ran = 1\r\n"));
  EXPECT_TRUE(hasRan());
}

TEST_F(kuScriptTest, ExecuteNusRunsAsRunDoes) {
  EXPECT_TRUE(kuScript::executeNUS("ran = 1", true));
  EXPECT_TRUE(hasRan());
  EXPECT_FALSE(kuScript::executeNUS("raise ValueError", true));
}

TEST_F(kuScriptTest, ExecuteNusrAnswersPythonsTextOfTheResult) {
  EXPECT_EQ(kuScript::executeNUSR("1+1"), "2");
  EXPECT_EQ(kuScript::executeNUSR("  1.5"), "1.5");
  EXPECT_EQ(kuScript::executeNUSR("None"), "None");
  EXPECT_EQ(kuScript::executeNUSR("true, false"), "(True, False)");
  EXPECT_EQ(kuScript::executeNUSR("'a'"), "a");
}

TEST_F(kuScriptTest, ExecuteNusrOfAStatementIsAnErrorAndAnswersNothing) {
  EXPECT_EQ(kuScript::executeNUSR("ran = 1"), "");
  EXPECT_FALSE(hasRan());
  EXPECT_THAT(log, ElementsAre(StartsWith("error: script failed: line 1: SyntaxError: ")));
}

TEST_F(kuScriptTest, ExecuteNusrOfAValueWithoutTextAnswersNothing) {
  ASSERT_TRUE(kuScript::run("class ran:\n  def __str__(self): raise ValueError"));
  EXPECT_EQ(kuScript::executeNUSR("ran()"), "");
  EXPECT_EQ(kuScript::executeNUSR("1+1"), "2");
}

TEST_F(kuScriptTest, TextsAreUtf8BothWays) {
  EXPECT_EQ(kuScript::executeNUSR("'T\xC3\xBCr \xF0\x9F\x98\x80'"), "T\xC3\xBCr \xF0\x9F\x98\x80");
  EXPECT_EQ(kuScript::executeNUSR("len('T\xC3\xBCr \xF0\x9F\x98\x80')"), "5");
  EXPECT_EQ(kuScript::executeNUSR("'\\ud800'"), "\\ud800");
}

TEST_F(kuScriptTest, TextIsUtf8WhateverItsCodingLineSays) {
  EXPECT_TRUE(kuScript::run("# coding: latin-1\nran = '\xC3\xBC'"));
  EXPECT_EQ(kuScript::executeNUSR("len(ran)"), "1");
}

TEST_F(kuScriptTest, TextThatIsNoUtf8IsAnError) {
  EXPECT_FALSE(kuScript::run("ran = '\xFF'"));
  EXPECT_THAT(log, ElementsAre(StartsWith("error: script failed: UnicodeDecodeError: ")));
}

TEST_F(kuScriptTest, ErrorTellsLineTypeTextAndSet) {
  sendSelection("Blue");
  EXPECT_FALSE(kuScript::run("ran = 1\n\nunknown()\n"));
  EXPECT_TRUE(hasRan());
  EXPECT_THAT(log, ElementsAre("error: script of set \"Blue\" failed: line 3: NameError: name "
                               "'unknown' is not defined"));
}

TEST_F(kuScriptTest, ErrorInAFunctionTellsTheInnermostLine) {
  EXPECT_FALSE(kuScript::run("def f():\n  return 1 / 0\nf()"));
  EXPECT_THAT(log,
              ElementsAre("error: script failed: line 2: ZeroDivisionError: division by zero"));
}

TEST_F(kuScriptTest, ErrorInAnotherModuleTellsTheLineOfTheScript) {
  EXPECT_FALSE(kuScript::run("import json\njson.loads('[')"));
  EXPECT_THAT(log, ElementsAre(StartsWith("error: script failed: line 2: JSONDecodeError: ")));
}

TEST_F(kuScriptTest, SyntaxErrorRunsNothing) {
  EXPECT_FALSE(kuScript::run("ran = 1\nran = = 2"));
  EXPECT_FALSE(hasRan());
  EXPECT_THAT(log, ElementsAre(StartsWith("error: script failed: line 2: SyntaxError: ")));
}

TEST_F(kuScriptTest, ExitOfAScriptDoesNotEndTheProcess) {
  EXPECT_FALSE(kuScript::run("import sys\nsys.exit(3)"));
  EXPECT_FALSE(kuScript::run("raise KeyboardInterrupt"));
  EXPECT_THAT(log, ElementsAre("error: script failed: line 2: SystemExit: 3",
                               "error: script failed: line 1: KeyboardInterrupt"));
}

TEST_F(kuScriptTest, ErrorWhoseTextFailsIsTold) {
  EXPECT_FALSE(kuScript::run("class ran(Exception):\n  def __str__(self): raise self\nraise ran"));
  EXPECT_THAT(log, ElementsAre("error: script failed: line 3: ran"));
}

TEST_F(kuScriptTest, EndlessRecursionIsAnError) {
  EXPECT_FALSE(kuScript::run("def ran(): ran()\nran()"));
  EXPECT_THAT(log, ElementsAre(StartsWith("error: script failed: line 1: RecursionError: ")));
}

TEST_F(kuScriptTest, EmptyTextIsDone) {
  EXPECT_TRUE(kuScript::run(""));
  EXPECT_EQ(kuScript::executeNUSR(""), "");
}

TEST_F(kuScriptTest, PrintedTextGoesToTheErrorStream) {
  ::testing::internal::CaptureStdout();
  ::testing::internal::CaptureStderr();
  EXPECT_TRUE(
      kuScript::run("import sys\nprint('T\xC3\xBCr')\nprint('end', end='')\n"
                    "sys.__stdout__.write('.')\nprint('!', file=sys.stderr)"));
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "T\xC3\xBCr\nend.!\n");
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
}

TEST_F(kuScriptTest, UnfinishedLineIsOutWhenTheScriptEnds) {
  ::testing::internal::CaptureStderr();
  EXPECT_TRUE(kuScript::run("print('end', end='')"));
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "end");
}

TEST_F(kuScriptTest, ReadsNothingFromStandardInput) {
  EXPECT_FALSE(kuScript::run("input()"));
  EXPECT_THAT(log, ElementsAre(StartsWith("error: script failed: line 1: EOFError: ")));
}

TEST_F(kuScriptTest, ScriptThatRunsItselfWithoutEndIsStopped) {
  ScriptCommands::add("again", bp::make_function(+[] {
                        ScriptCommands::find("sentinel")();
                        return kuScript::run("again()");
                      }));
  for (const bool allowed : {true, false}) {
    log.clear();
    ScriptPolicy::allow(allowed);
    const int before = sentinelCalls();
    EXPECT_TRUE(kuScript::run("again()"));
    EXPECT_EQ(sentinelCalls() - before, 16);
    EXPECT_THAT(log, ElementsAre("error: script failed: scripts run inside one another too deep"));
  }
}

/** Each of them may select the set five times: without the stop that makes five to the sixteenth.
 */
TEST_F(kuScriptTest, NothingInsideTheOutermostScriptRunsOnceItLayTooDeep) {
  static const std::string bomb = "again()\nagain()\nagain()\nagain()\nagain()";
  ScriptCommands::add("again", bp::make_function(+[] {
                        ScriptCommands::find("sentinel")();
                        return sentinelCalls() < 1000 && kuScript::run(bomb.c_str());
                      }));
  for (const bool allowed : {true, false}) {
    log.clear();
    ScriptPolicy::allow(allowed);
    const int before = sentinelCalls();
    EXPECT_TRUE(kuScript::run(bomb.c_str()));
    EXPECT_EQ(sentinelCalls() - before, 16 * 5);
    EXPECT_THAT(log, ElementsAre("error: script failed: scripts run inside one another too deep"));
    EXPECT_TRUE(kuScript::run("sentinel()"));
  }
}

TEST_F(kuScriptTest, ScriptsInsideOneThatAreTooManyRunOnlyWhereScriptsAreAllowed) {
  ScriptCommands::add("inner", bp::make_function(+[] { return kuScript::run("sentinel()"); }));
  std::string text;
  for (int i = 0; i < 10003; ++i)
    text += "inner()\n";
  EXPECT_TRUE(kuScript::run(text.c_str()));
  EXPECT_EQ(sentinelCalls(), 10003);
  EXPECT_THAT(log, IsEmpty());
  ScriptPolicy::allow(false);
  for (const int calls : {20003, 30003}) {
    log.clear();
    EXPECT_TRUE(kuScript::run(text.c_str()));
    EXPECT_EQ(sentinelCalls(), calls);
    EXPECT_THAT(log, ElementsAre("error: script failed: scripts run inside one another too often"));
  }
}

TEST_F(kuScriptTest, CommandThatThrowsIsAnError) {
  ScriptCommands::add("throwing",
                      bp::make_function(+[]() -> int { throw std::runtime_error("thrown"); }));
  for (const bool allowed : {true, false}) {
    log.clear();
    ScriptPolicy::allow(allowed);
    EXPECT_FALSE(kuScript::run("throwing()"));
    ASSERT_EQ(log.size(), 1u);
    EXPECT_THAT(log[0], HasSubstr("RuntimeError: thrown"));
  }
}

TEST_F(kuScriptTest, RegisteredFunctionStandsInTheGlobalNamespace) {
  EXPECT_TRUE(kuScript::run("ran = sentinel"));
  EXPECT_TRUE(kuScript::run("sentinel(1, a=2)"));
  EXPECT_EQ(sentinelCalls(), 1);
  EXPECT_THAT(log, IsEmpty());
}

}  // namespace
