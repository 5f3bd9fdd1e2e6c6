#include "RunTest.h"

namespace {

/** What becomes of what a script has written but not flushed. */
class RunOutputTest : public RunTest {};

TEST_F(RunOutputTest, WritesFilesThatAScriptLeftOpen) {
  EXPECT_EQ(printed("import csv\n"
                    "text = open('text', 'w')\ntext.write('a')\n"
                    "table = csv.writer(open('table', 'w', newline=''))\ntable.writerow([1, 2])\n"
                    "raw = open('bytes', 'wb')\nraw.write(b'b')\n"
                    "both = open('both', 'w+b')\nboth.write(b'c')"),
            "");
  EXPECT_EQ(read("text") + read("table") + read("bytes") + read("both"), "a1,2\r\nbc");
}

TEST_F(RunOutputTest, WritesThemAlsoAfterAnError) {
  EXPECT_EQ(runScript("text = open('text', 'w')\ntext.write('a')\n1 / 0").code, 1);
  EXPECT_EQ(read("text"), "a");
}

TEST_F(RunOutputTest, WritesThemAlsoBesideOneThatCannotBeFlushed) {
  EXPECT_EQ(printed("import io\n"
                    "class Own(io.TextIOWrapper):\n    def flush(self): raise RuntimeError\n"
                    "own = Own(io.BytesIO())\nown.write('a')\n"
                    "text = open('text', 'w')\ntext.write('b')"),
            "");
  EXPECT_EQ(read("text"), "b");
}

TEST_F(RunOutputTest, WritesThemAlsoBesideOneToWhichADaemonWrites) {
  EXPECT_EQ(printed("import os, threading, time\n"
                    "reading, writing = os.pipe()\npipe = os.fdopen(writing, 'wb')\n"
                    "text = open('text', 'w')\ntext.write('b')\n"
                    "def work(): pipe.write(b'x' * 10**6)\n"
                    "threading.Thread(target=work, daemon=True).start()\ntime.sleep(0.3)"),
            "");
  EXPECT_EQ(read("text"), "b");
}

struct FaultyStreamRow {
  const char* name;
  /** What becomes of standard error or of the text for it. */
  const char* script;
  const char* err;
};

void PrintTo(const FaultyStreamRow& row, std::ostream* out) { *out << row.name; }

class FaultyErrorStreamTest : public RunTest,
                              public ::testing::WithParamInterface<FaultyStreamRow> {};

TEST_P(FaultyErrorStreamTest, DoesNotKeepTheScriptFromItsEnd) {
  makeFullDevice("full");
  const CliResult result =
      runScript(std::string("import atexit, builtins, sys, threading, time\n"
                            "atexit.register(sys.stdout.write, 'at exit')\n"
                            "text = open('text', 'w')\ntext.write('a')\n"
                            "def work():\n    time.sleep(0.2)\n    sys.stdout.write('thread ')\n"
                            "threading.Thread(target=work).start()\n"
                            "class Mute:\n    def __str__(self): raise ValueError\n")
                    .append(GetParam().script)
                    .c_str());
  EXPECT_EQ(result.code, 1);
  EXPECT_EQ(result.out, "thread at exit");
  EXPECT_EQ(result.err, GetParam().err);
  EXPECT_EQ(read("text"), "a");
}

const FaultyStreamRow faultyStreams[] = {
    {"TextThatHasNone", "sys.exit(Mute())", ""},
    {"FullStream", "sys.stderr = open('full', 'w', buffering=1)\nsys.exit('end')", "end\n"},
    {"ClosedStream", "sys.stderr.close()\nsys.exit('end')", ""},
    {"NoStream", "sys.stderr = 5\nsys.exit('end')", "end\n"},
    {"MissingStream", "del sys.stderr\nsys.exit('end')", "end\n"},
    {"None", "sys.stderr = None\nsys.exit('end')", "end\n"},
    {"PythonWithoutItsOwnFunctions", "del builtins.print, builtins.isinstance\nsys.exit('end')",
     "end\n"},
    {"ErrorWithAClosedStream", "sys.stderr.close()\nsys.excepthook = None\n1 / 0", ""},
};

INSTANTIATE_TEST_SUITE_P(Streams, FaultyErrorStreamTest, ::testing::ValuesIn(faultyStreams),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(RunOutputTest, StreamOfTheScriptsOwnThatCannotBeFlushedIsTold) {
  const CliResult result = runScript(
      "import sys\nclass Own:\n    def flush(self): raise RuntimeError('no room')\n"
      "print('printed', end='')\nsys.stdout = Own()");
  EXPECT_EQ(result.code, 5);
  EXPECT_EQ(result.out, "printed");
  EXPECT_EQ(result.err, "kuvariants: cannot write: standard output: no room\n");
}

TEST_F(RunOutputTest, StreamOfTheScriptsOwnThatCannotEvenTellWhyIsTold) {
  const CliResult result = runScript(
      "import sys\nclass Mute(BaseException):\n    def __str__(self): raise self\n"
      "class Own:\n    def flush(self): raise Mute\nsys.stdout = Own()");
  EXPECT_EQ(result.code, 5);
  EXPECT_EQ(result.err, "kuvariants: cannot write: standard output: Mute\n");
}

const char* const standardOutputs[] = {"/dev/stdout", "/dev/fd/1", "/proc/self/fd/1"};

TEST_F(RunOutputTest, TakesADocumentAndAPictureInTheirOrder) {
  for (const QByteArray path : standardOutputs) {
    write("script.py", "print('before', end='|')\nvariants.write_document('" + path +
                           "')\nprint('behind')\nvariants.write_document('file.xml')");
    const QStringList arguments{"run", "car.gltf", "car.xml", "script.py"};
    const std::string piped = run(arguments).out;
    EXPECT_EQ(piped, "before|" + read("file.xml") + "behind\n");
    EXPECT_EQ(runInShell("", arguments, ">out").code, 0);
    EXPECT_EQ(read("out"), piped);
  }
  EXPECT_EQ(printed("variants.render('/dev/stdout', 1, 1, 1)").substr(1, 3), "PNG");
}

TEST_F(RunOutputTest, ThatLeadsToAFileIsNotReplacedByAScene) {
  for (const QByteArray path : standardOutputs) {
    write("script.py", "print('before')\ntry:\n    variants.save_scene('" + path +
                           "')\nexcept OSError as error:\n    print(error)");
    EXPECT_EQ(runInShell("", {"run", "car.gltf", "car.xml", "script.py"}, ">out").code, 0);
    EXPECT_EQ(read("out"), "before\n[Errno 5] not a regular file: '" + path.toStdString() + "'\n");
  }
}

TEST_F(RunOutputTest, ThatTakesNoDocumentIsToldWithTheReason) {
  makeFullDevice("full");
  write("script.py",
        "try:\n    variants.write_document('/dev/stdout')\nexcept OSError as error:\n"
        "    open('error', 'w').write(f'{error.errno} {error.filename} {error.strerror}')");
  const QStringList arguments{"run", "car.gltf", "car.xml", "script.py"};
  EXPECT_EQ(runInShell("", arguments, ">full").code, 0);
  EXPECT_EQ(read("error"), "28 /dev/stdout No space left on device");
  EXPECT_TRUE(isDevice("full"));
  EXPECT_EQ(runInShell("", arguments, ">&-").code, 0);
  EXPECT_EQ(read("error"), "9 /dev/stdout Bad file descriptor");
}

struct StreamRow {
  const char* name;
  const char* script;
  const char* printed;
};

void PrintTo(const StreamRow& row, std::ostream* out) { *out << row.name; }

class ReplacedOutputTest : public RunTest, public ::testing::WithParamInterface<StreamRow> {};

TEST_P(ReplacedOutputTest, EndsAsWithPython) {
  EXPECT_EQ(printed(std::string("import io, sys\n").append(GetParam().script).c_str()),
            GetParam().printed);
}

const StreamRow streams[] = {
    {"Closed", "print(1)\nsys.stdout.close()", "1\n"},
    {"None", "print(1)\nsys.stdout = None\nprint(2)", "1\n"},
    {"Missing", "print(1)\ndel sys.stdout", "1\n"},
    {"Wrapped", "sys.stdout = io.TextIOWrapper(sys.stdout.buffer, 'latin-1')\nprint('\\xe4')",
     "\xE4\n"},
    {"Detached", "sys.stdout = io.TextIOWrapper(sys.stdout.detach(), 'latin-1')\nprint('\\xe4')",
     "\xE4\n"},
    {"LeftDetached", "print(1)\nsys.stdout.detach()", "1\n"},
    {"OfAClassOfItsOwn",
     "class Loud:\n    def write(self, text): sys.__stdout__.write(text.upper())\n"
     "sys.stdout = Loud()\nprint('a')",
     "A\n"},
    {"File", "sys.stdout = open('log', 'w')\nprint(1)\nsys.__stdout__.write('2')", "2"},
};

INSTANTIATE_TEST_SUITE_P(Streams, ReplacedOutputTest, ::testing::ValuesIn(streams),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
