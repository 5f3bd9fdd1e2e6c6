#include <sys/stat.h>

#include "RunTest.h"

using ::testing::HasSubstr;
using ::testing::StartsWith;

namespace {

class RunFailureTest : public RunTest {};

TEST_F(RunFailureTest, WithoutScriptAndTerminalTheCommandLineIsWrong) {
  const CliResult result = run({"run", "car.gltf", "car.xml"});
  EXPECT_EQ(result.code, 2);
  EXPECT_EQ(result.err,
            "kuvariants: wrong command line: run: SCRIPT is required where there is no terminal "
            "(see --help)\n");
}

TEST_F(RunFailureTest, EmptyNameOfAScriptIsAWrongCommandLine) {
  EXPECT_EQ(run({"run", "car.gltf", "car.xml", ""}).code, 2);
}

TEST_F(RunFailureTest, WithoutDocumentTheCommandLineIsWrong) {
  EXPECT_EQ(run({"run", "car.gltf"}).code, 2);
}

TEST_F(RunFailureTest, JsonIsRefused) {
  const CliResult result = runScript("print('never')", {}, {"--json"});
  EXPECT_EQ(result.code, 2);
  EXPECT_EQ(result.out, "");
  EXPECT_THAT(result.err, HasSubstr("--json: a script prints what it likes"));
}

TEST_F(RunFailureTest, OptionThatIsUnknownIsRefusedBeforeTheScript) {
  write("script.py", "print('never')");
  EXPECT_EQ(run({"run", "--unknown", "car.gltf", "car.xml", "script.py"}).code, 2);
}

TEST_F(RunFailureTest, ScriptIsNotReplacedByTheScene) {
  write("script.gltf", "print('never')");
  const CliResult result =
      run({"run", "--save-scene", "script.gltf", "car.gltf", "car.xml", "script.gltf"});
  EXPECT_EQ(result.code, 2);
  EXPECT_THAT(result.err, HasSubstr("is named for both SCRIPT and --save-scene"));
  EXPECT_EQ(read("script.gltf"), "print('never')");
}

struct UnreadableRow {
  const char* name;
  /** The script's bytes. */
  std::string content;
  const char* reason;
};

void PrintTo(const UnreadableRow& row, std::ostream* out) { *out << row.name; }

class RunUnreadableTest : public RunTest, public ::testing::WithParamInterface<UnreadableRow> {};

TEST_P(RunUnreadableTest, DoesNotBegin) {
  const CliResult result = runScript(QByteArray::fromStdString(GetParam().content));
  EXPECT_EQ(result.code, 3);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err,
            "kuvariants: cannot read script: script.py: " + std::string(GetParam().reason) + "\n");
}

const UnreadableRow unreadable[] = {
    {"Nul", std::string("print('never')\nx = '\0'", 21), "there is a NUL character in line 2"},
    {"InvalidUtf8", "print('never')\n\n\nx = '\xff'",
     "'utf-8' codec can't decode byte 0xff in position 22: invalid start byte"},
    {"HalfASurrogatePair", "print('never')\n\n\nx = '\xed\xa0\x80'",
     "'utf-8' codec can't decode byte 0xed in position 22: invalid continuation byte"},
    {"UnknownCoding", "# coding: nothing-known\nprint('never')", "unknown encoding: nothing-known"},
    {"CodingThatIsNoText", "# coding: rot13\ncevag('arire')",
     "'rot13' is not a text encoding; use codecs.decode() to handle arbitrary codecs"},
};

INSTANTIATE_TEST_SUITE_P(Texts, RunUnreadableTest, ::testing::ValuesIn(unreadable),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(RunFailureTest, OtherCodingsAndAByteOrderMarkAreRead) {
  EXPECT_EQ(printed("# coding: latin-1\nprint('\xe4')"), "\xc3\xa4\n");
  EXPECT_EQ(printed("\xef\xbb\xbfprint('\xc3\xa4')\r\nprint(2)\r\n"), "\xc3\xa4\n2\n");
}

TEST_F(RunFailureTest, ScriptThatIsNotThereOrIsAFolderIsTold) {
  const CliResult missing = run({"run", "car.gltf", "car.xml", "no.py"});
  EXPECT_EQ(missing.code, 3);
  EXPECT_EQ(missing.err, "kuvariants: cannot read script: no.py: No such file or directory\n");
  const CliResult directory = run({"run", "car.gltf", "car.xml", "."});
  EXPECT_EQ(directory.code, 3);
  EXPECT_EQ(directory.err, "kuvariants: cannot read script: .: Is a directory\n");
}

TEST_F(RunFailureTest, SceneOrDocumentThatCannotBeReadKeepsTheScriptFromRunning) {
  write("broken.xml", "<Variants>");
  write("script.py", "print('never')");
  for (const QStringList& inputs :
       {QStringList{"no.gltf", "car.xml"}, QStringList{"car.gltf", "no.xml"},
        QStringList{"car.gltf", "broken.xml"}}) {
    const CliResult result = run(QStringList{"run"} + inputs + QStringList{"script.py"});
    EXPECT_EQ(result.code, 3);
    EXPECT_EQ(result.out, "");
  }
}

TEST_F(RunFailureTest, OutputThatDoesNotFitIsTold) {
  makeFullDevice("full");
  write("script.py", "import sys; sys.stdout.write('x')");
  const CliResult result = runInShell("", {"run", "car.gltf", "car.xml", "script.py"}, ">full");
  EXPECT_EQ(result.code, 5);
  EXPECT_EQ(result.err, "kuvariants: cannot write: standard output: No space left on device\n");
}

TEST_F(RunFailureTest, OutputThatTheScriptItselfCannotWriteIsItsException) {
  makeFullDevice("full");
  write("script.py", "print('x')");
  const CliResult result = runInShell("", {"run", "car.gltf", "car.xml", "script.py"}, ">full");
  EXPECT_EQ(result.code, 1);
  EXPECT_THAT(result.err, HasSubstr("OSError: [Errno 28] No space left on device"));
}

TEST_F(RunFailureTest, SceneThatCannotBeSavedIsToldBehindTheScript) {
  write("script.py", "print('ran')");
  const CliResult result =
      run({"run", "--save-scene", "no/saved.gltf", "car.gltf", "car.xml", "script.py"});
  EXPECT_EQ(result.code, 5);
  EXPECT_EQ(result.out, "ran\n");
  EXPECT_EQ(result.err, "kuvariants: cannot write: no/saved.gltf: No such file or directory\n");
}

}  // namespace
