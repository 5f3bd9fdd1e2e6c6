#include "RunTest.h"

using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

namespace {

class RunCommandTest : public RunTest {
 protected:
  /** Runs a script that comes on standard input. */
  CliResult runFromInput(const QByteArray& script, const QStringList& arguments = {}) {
    write("input", script);
    return runInShell("", QStringList{"run", "car.gltf", "car.xml", "-"} + arguments, "<input");
  }
};

struct EndRow {
  const char* name;
  const char* script;
  int code;
  const char* err;
};

void PrintTo(const EndRow& row, std::ostream* out) { *out << row.name; }

class RunEndTest : public RunTest, public ::testing::WithParamInterface<EndRow> {};

TEST_P(RunEndTest, HasTheExitCodeThatPythonWouldHave) {
  const CliResult result = runScript(GetParam().script);
  EXPECT_EQ(result.code, GetParam().code);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err, GetParam().err);
}

const EndRow ends[] = {
    {"LastLine", "pass", 0, ""},
    {"Nothing", "", 0, ""},
    {"ExitWithoutCode", "import sys; sys.exit()", 0, ""},
    {"ExitWithNone", "import sys; sys.exit(None)", 0, ""},
    {"ExitWithNumber", "import sys; sys.exit(42)", 42, ""},
    {"ExitWithTrue", "import sys; sys.exit(True)", 1, ""},
    {"ExitWithNegative", "import sys; sys.exit(-1)", 255, ""},
    {"ExitAbove255", "import sys; sys.exit(258)", 2, ""},
    {"ExitWithHugeNumber", "import sys; sys.exit(10**40)", 255, ""},
    {"ExitWithText", "import sys; sys.exit('no \\u00e4')", 1, "no \xc3\xa4\n"},
    {"ExitWithTuple", "import sys; sys.exit((1, 2))", 1, "(1, 2)\n"},
    {"Quit", "quit(3)", 3, ""},
    {"SystemExitAsClass", "raise SystemExit", 0, ""},
    {"Exception", "def f():\n    raise ValueError('why')\nf()", 1,
     "Traceback (most recent call last):\n"
     "  File \"script.py\", line 3, in <module>\n    f()\n"
     "  File \"script.py\", line 2, in f\n    raise ValueError('why')\n"
     "ValueError: why\n"},
    {"SyntaxError", "print('never')\n)", 1,
     "  File \"script.py\", line 2\n    )\n    ^\nSyntaxError: unmatched ')'\n"},
    {"KeyboardInterrupt", "raise KeyboardInterrupt", 130,
     "Traceback (most recent call last):\n"
     "  File \"script.py\", line 1, in <module>\n    raise KeyboardInterrupt\n"
     "KeyboardInterrupt\n"},
    {"OwnHook", "import sys\nsys.excepthook = lambda *e: print('hooked', file=sys.stderr)\n1 / 0",
     1, "hooked\n"},
    {"CaughtInterrupt", "try:\n    raise KeyboardInterrupt\nexcept KeyboardInterrupt:\n    pass", 0,
     ""},
};

INSTANTIATE_TEST_SUITE_P(Ends, RunEndTest, ::testing::ValuesIn(ends),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(RunCommandTest, GivesTheScriptWhatPythonGivesIt) {
  EXPECT_EQ(printed("import sys, os\nprint(sys.argv, __name__, __file__)\n"
                    "print(os.path.samefile(sys.path[0], '.'))",
                    {"a", "b c", "\xc3\xbc"}),
            "['script.py', 'a', 'b c', '\xc3\xbc'] __main__ script.py\nTrue\n");
}

TEST_F(RunCommandTest, ImportsFirstFromTheFolderOfTheScriptAlsoBehindALink) {
  ASSERT_TRUE(QDir(folder.path()).mkdir("own"));
  write("own/json.py", "text = 'the neighbour'");
  write("own/script.py", "import json; print(json.text, __file__)");
  ASSERT_TRUE(QFile::link("own/script.py", folder.filePath("link.py")));
  EXPECT_EQ(run({"run", "car.gltf", "car.xml", "link.py"}).out, "the neighbour link.py\n");
}

TEST_F(RunCommandTest, TakesNothingBehindTheScriptForItsOwnOption) {
  const QStringList arguments{"--json",    "-h", "--", "--trace", "x",
                              "--unknown", "",   "-",  "[a,b]",   "--save-scene=x.gltf"};
  EXPECT_EQ(printed("import sys; print(sys.argv[1:])", arguments),
            "['--json', '-h', '--', '--trace', 'x', '--unknown', '', '-', '[a,b]', "
            "'--save-scene=x.gltf']\n");
  EXPECT_EQ(files(), (QStringList{"car.gltf", "car.xml", "script.py"}));
}

TEST_F(RunCommandTest, TakesOptionsBeforeTheScriptWhereverTheyStand) {
  write("script.py", "import sys; print(sys.argv)");
  for (const QStringList& arguments :
       {QStringList{"--trace", "t", "run", "car.gltf", "car.xml", "script.py", "--x"},
        QStringList{"run", "--trace", "t", "car.gltf", "car.xml", "script.py", "--x"},
        QStringList{"run", "car.gltf", "--trace=t", "car.xml", "script.py", "--x"},
        QStringList{"run", "--trace=t", "--", "car.gltf", "car.xml", "script.py", "--x"}}) {
    const CliResult result = run(arguments);
    EXPECT_EQ(result.out, "['script.py', '--x']\n") << result.err;
    EXPECT_TRUE(QFile::remove(folder.filePath("t")));
  }
}

TEST_F(RunCommandTest, ReadsTheScriptFromStandardInput) {
  const CliResult result = runFromInput(
      "import sys\nprint(sys.argv, __name__, '__file__' in globals(), repr(sys.path[0]))\n"
      "print(repr(sys.stdin.read()))\n1 / 0",
      {"-x"});
  EXPECT_EQ(result.code, 1);
  EXPECT_EQ(result.out, "['-', '-x'] __main__ False ''\n''\n");
  EXPECT_THAT(result.err, HasSubstr("  File \"<stdin>\", line 4, in <module>\n"));
}

TEST_F(RunCommandTest, LeavesStandardInputToAScriptFromAFile) {
  write("script.py", "print(input(), end='|')\nimport sys\nprint(sys.stdin.read(), end='')");
  write("input", "first \xc3\xa4\nsecond\nthird");
  const CliResult result = runInShell("", {"run", "car.gltf", "car.xml", "script.py"}, "<input");
  EXPECT_EQ(result.out, "first \xc3\xa4|second\nthird");
  EXPECT_EQ(result.code, 0);
}

TEST_F(RunCommandTest, KeepsTheOrderOfWhatTheScriptAndItsChildrenPrint) {
  EXPECT_EQ(printed("import os, sys\nprint('one')\nos.system('echo two')\nprint('three')\n"
                    "os.write(1, b'four\\n')\nsys.stdout.write('five')"),
            "one\ntwo\nthree\nfour\nfive");
}

TEST_F(RunCommandTest, BringsBytesThroughThatAreNoText) {
  write("input", "\xff\xfe\n");
  write("script.py", "print(input())");
  EXPECT_EQ(runInShell("", {"run", "car.gltf", "car.xml", "script.py"}, "<input").out,
            "\xff\xfe\n");
}

TEST_F(RunCommandTest, FindsTheModuleTheFunctionsAndTheScene) {
  EXPECT_EQ(printed("selectVariantSet('Winter')\n"
                    "print(variants.state('material', 'Paint'), findNode('Doors').getName())\n"
                    "import variants as again, kuVariants\nprint(again is variants)"),
            "Blue Doors\nTrue\n");
}

TEST_F(RunCommandTest, HoldsTheDocumentsScriptsBackAlsoWhereTheUsersScriptSelects) {
  const CliResult result = runScript("variants.select_set('Scripted'); print('done')");
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.out, "done\n");
  EXPECT_THAT(result.err, AllOf(HasSubstr("script of set \"Scripted\" not run"),
                                EndsWith("kuvariants: 1 script was held back; --allow-scripts lets "
                                         "scripts run\n")));
}

TEST_F(RunCommandTest, LetsTheDocumentsScriptsRunWhereThatIsAllowed) {
  const CliResult result =
      runScript("selectVariantSet('Scripted'); print('done')", {}, {"--allow-scripts"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.out, "printed by a script\ndone\n");
  EXPECT_EQ(result.err, "");
}

TEST_F(RunCommandTest, WritesSceneAndTraceAtTheEnd) {
  write("script.py", "import sys; variants.select_set('Winter'); sys.exit(9)");
  EXPECT_EQ(run({"--trace", "trace", "run", "--save-scene", "saved.gltf", "car.gltf", "car.xml",
                 "script.py"})
                .code,
            9);
  EXPECT_THAT(read("trace"), HasSubstr("\"variantSetName\": \"Winter\""));
  EXPECT_THAT(run({"scene", "saved.gltf"}).out, HasSubstr("Blue"));
}

TEST_F(RunCommandTest, WritesNothingWhereTheScriptFails) {
  write("script.py", "1 / 0");
  EXPECT_EQ(run({"run", "--trace", "trace", "--save-scene", "saved.gltf", "car.gltf", "car.xml",
                 "script.py"})
                .code,
            1);
  EXPECT_EQ(files(), (QStringList{"car.gltf", "car.xml", "script.py"}));
}

TEST_F(RunCommandTest, WaitsForThreadsAndThenCallsTheFunctionsForTheExit) {
  EXPECT_EQ(printed("import atexit, sys, threading, time\n"
                    "atexit.register(print, 'at exit')\n"
                    "def work():\n    time.sleep(0.2)\n    print('thread')\n"
                    "threading.Thread(target=work).start()\nprint('script')\nsys.exit(0)"),
            "script\nthread\nat exit\n");
}

TEST_F(RunCommandTest, EndsWhileDaemonThreadsAreAtWork) {
  EXPECT_EQ(printed("import threading, time\n"
                    "def busy():\n    while True: sum(range(100))\n"
                    "def idle():\n    while True: time.sleep(0.001)\n"
                    "for work in (busy, busy, idle, idle):\n"
                    "    threading.Thread(target=work, daemon=True).start()\n"
                    "time.sleep(0.1)\nprint('end')"),
            "end\n");
}

TEST_F(RunCommandTest, TellsWhatAThreadDidNotCatchAndEndsWell) {
  const CliResult result = runScript(
      "import threading\nthread = threading.Thread(target=lambda: 1 / 0)\nthread.start()\n"
      "thread.join()");
  EXPECT_EQ(result.code, 0);
  EXPECT_THAT(result.err, HasSubstr("ZeroDivisionError"));
}

TEST_F(RunCommandTest, GoesOnWithoutStandardStreams) {
  write("script.py",
        "import sys\nprint('x')\nopen('made', 'w').write(repr((sys.stdout, sys.stdin.read())))");
  const CliResult result =
      runInShell("", {"run", "car.gltf", "car.xml", "script.py"}, "<&- >&- 2>&-");
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(read("made"), "(None, '')");
}

TEST_F(RunCommandTest, GoesOnWhereStandardInputIsADirectoryAsOtherCommandsDo) {
  write("script.py",
        "import os, stat, sys\n"
        "print(repr(sys.stdin.read()), stat.S_ISDIR(os.fstat(0).st_mode))");
  const CliResult ran = runInShell("", {"run", "car.gltf", "car.xml", "script.py"}, "<.");
  EXPECT_EQ(ran.code, 0) << ran.err;
  EXPECT_EQ(ran.out, "'' True\n");
  const CliResult selected =
      runInShell("", {"--allow-scripts", "select", "car.gltf", "car.xml", "Scripted"}, "<.");
  EXPECT_EQ(selected.code, 0);
  EXPECT_EQ(selected.err, "printed by a script\n");
}

TEST_F(RunCommandTest, StarImportLeavesTheModuleAtItsName) {
  EXPECT_EQ(printed("from variants import *\nprint(variants.sets() == sets(), "
                    "variants.variants('node'))\nhelp(variants)")
                .substr(0, 25),
            "True ['Roof', 'Leaves']\nH");
}

TEST_F(RunCommandTest, TellsWhereASelectionCannotPutMaterialsBack) {
  write("car.xml",
        "<Variants><VariantSet name=\"Temp\"/><VariantSet name=\"Plain\"/><VariantSet name=\"S\">"
        "<MaterialSnapshot nodePath=\"Car/Body\" materialName=\"Paint\"/></VariantSet></Variants>");
  const CliResult result =
      runScript("variants.select_set('Plain')\nvariants.select_set('S')\nprint('done')");
  EXPECT_EQ(result.out, "done\n");
  EXPECT_EQ(result.err,
            "kuvariants: warning: materials are not put back to the nodes for \"S\": the document "
            "has a set named \"Temp\", and the name is needed for that; give that set another\n");
}

TEST_F(RunCommandTest, TellsHelpOfItself) {
  const CliResult result = run({"run", "--help"});
  EXPECT_EQ(result.code, 0);
  EXPECT_THAT(result.out, AllOf(HasSubstr("SCENE"), HasSubstr("DOCUMENT"), HasSubstr("SCRIPT"),
                                HasSubstr("ARGS"), HasSubstr("--save-scene FILE"),
                                HasSubstr("kuvariants run car.gltf car.xml")));
}

}  // namespace
