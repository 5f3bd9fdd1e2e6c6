#include <sys/stat.h>

#include "CliTest.h"

using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::SizeIs;
using ::testing::StartsWith;

namespace {

const QStringList select = {"select", "car.gltf", "car.xml", "Summer"};

const QStringList create = {"create", "car.gltf"};

class OutputFailureTest : public CliTest {
 protected:
  void expectNotWritten(const CliResult& result, const char* where, const char* reason) {
    EXPECT_EQ(result.code, 5);
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(linesOf(result.err), SizeIs(1));
    EXPECT_THAT(result.err,
                AllOf(StartsWith(std::string("kuvariants: cannot write: ") + where + ": "),
                      EndsWith(std::string(reason) + "\n")));
  }
  void expectNoDocument(const char* where, const char* reason) {
    const QStringList before = files();
    expectNotWritten(run(create + QStringList{"-o", where}), where, reason);
    EXPECT_EQ(files(), before);
  }
  void expectNotWritten(const QStringList& option, const char* where, const char* reason) {
    const QStringList before = files();
    expectNotWritten(run(select + option), where, reason);
    EXPECT_EQ(files(), before);
  }
};

TEST_F(OutputFailureTest, FullDeviceAsStandardOutput) {
  for (const QStringList& arguments :
       {QStringList{"--help"}, QStringList{"--version"}, QStringList{"scene", "car.gltf"},
        QStringList{"list", "car.gltf", "car.xml", "--json"}, select}) {
    expectNotWritten(runInShell("", arguments, ">/dev/full"), "standard output",
                     "No space left on device");
  }
}

TEST_F(OutputFailureTest, ClosedStandardOutput) {
  expectNotWritten(runInShell("", select, ">&-"), "standard output", "Bad file descriptor");
}

TEST_F(OutputFailureTest, ClosedPipeAsStandardOutput) {
  QProcess process;
  process.setWorkingDirectory(folder.path());
  process.start(
      "/bin/sh",
      QStringList{"-c", "{ \"$0\" \"$@\"; echo $? >code; } | :", KUVARIANTS_EXECUTABLE} + select);
  CliResult result = finish(process);
  result.code = std::stoi(read("code"));
  expectNotWritten(result, "standard output", "Broken pipe");
}

TEST_F(OutputFailureTest, ClosedStandardErrorDoesNotMixWithFiles) {
  const CliResult result =
      runInShell("", select + QStringList{"--trace", "trace.jsonl"}, "<&- 2>&-");
  EXPECT_EQ(result.code, 0);
  for (const std::string& line : linesOf(read("trace.jsonl"))) {
    EXPECT_THAT(line, StartsWith("{\"message\": \""));
  }
}

TEST_F(OutputFailureTest, TraceIntoAMissingFolder) {
  expectNotWritten(QStringList{"--trace", "none/trace.jsonl"}, "none/trace.jsonl",
                   "No such file or directory");
}

TEST_F(OutputFailureTest, TraceBelowAFile) {
  expectNotWritten(QStringList{"--trace", "car.xml/trace"}, "car.xml/trace", "Not a directory");
}

TEST_F(OutputFailureTest, FolderAsTrace) {
  expectNotWritten(QStringList{"--trace", "."}, ".", "directory");
}

TEST_F(OutputFailureTest, TraceThatDoesNotFitLeavesTheFormerOne) {
  write("trace.jsonl", "former\n");
  const QStringList before = files();
  expectNotWritten(runInShell("ulimit -f 0", select + QStringList{"--trace", "trace.jsonl"}, ""),
                   "trace.jsonl", "File too large");
  EXPECT_EQ(read("trace.jsonl"), "former\n");
  EXPECT_EQ(files(), before);
}

TEST_F(OutputFailureTest, FullDeviceAsTraceStaysADevice) {
  makeFullDevice("full");
  expectNotWritten(run(select + QStringList{"--trace", "full"}), "full", "");
  EXPECT_TRUE(isDevice("full"));
}

TEST_F(OutputFailureTest, SceneIntoAMissingFolder) {
  expectNotWritten(QStringList{"--save-scene", "none/saved.gltf"}, "none/saved.gltf",
                   "No such file or directory");
}

TEST_F(OutputFailureTest, SceneBelowAFile) {
  expectNotWritten(QStringList{"--save-scene", "car.xml/saved.gltf"}, "car.xml/saved.gltf",
                   "Not a directory");
}

TEST_F(OutputFailureTest, FolderAsScene) {
  expectNotWritten(QStringList{"--save-scene", "."}, ".", "directory");
}

TEST_F(OutputFailureTest, PipeAsSceneIsRefusedAndStaysAPipe) {
  const QByteArray pipe = folder.filePath("pipe").toUtf8();
  ASSERT_EQ(mkfifo(pipe.constData(), 0600), 0);
  expectNotWritten(QStringList{"--save-scene", "pipe"}, "pipe", "not a regular file");
  struct stat status {};
  ASSERT_EQ(stat(pipe.constData(), &status), 0);
  EXPECT_TRUE(S_ISFIFO(status.st_mode));
}

TEST_F(OutputFailureTest, SceneThatDoesNotFitLeavesTheFormerOneAndNoTrace) {
  write("saved.gltf", "former\n");
  // Room for the trace, which has some 2 kB, and not for the scene, which keeps this note.
  const std::string note = "\"asset\": {\"extras\": \"" + std::string(20000, 'n') + "\", ";
  std::string scene = read("car.gltf");
  scene.replace(scene.find("\"asset\": {"), 10, note);
  write("car.gltf", QByteArray::fromStdString(scene));
  const QStringList before = files();
  expectNotWritten(
      runInShell("ulimit -f 5",
                 select + QStringList{"--save-scene", "saved.gltf", "--trace", "trace.jsonl"}, ""),
      "saved.gltf", "File too large");
  EXPECT_EQ(read("saved.gltf"), "former\n");
  EXPECT_EQ(files(), before);
}

TEST_F(OutputFailureTest, DocumentThatCannotBePlaced) {
  expectNoDocument("none/new.xml", "No such file or directory");
  expectNoDocument("car.xml/new.xml", "Not a directory");
  expectNoDocument(".", "directory");
}

TEST_F(OutputFailureTest, DocumentThatDoesNotFitLeavesTheFormerOneAndNoTrace) {
  const std::string former = read("car.xml");
  const QStringList before = files();
  // Room for the trace and not for the document.
  expectNotWritten(runInShell("ulimit -f 2",
                              create + QStringList{"-o", "car.xml", "--trace", "trace.jsonl"}, ""),
                   "car.xml", "File too large");
  EXPECT_EQ(read("car.xml"), former);
  EXPECT_EQ(files(), before);
}

TEST_F(OutputFailureTest, TraceThatDoesNotFitLeavesNoDocument) {
  const QStringList before = files();
  expectNotWritten(runInShell("ulimit -f 0",
                              create + QStringList{"-o", "new.xml", "--trace", "trace.jsonl"}, ""),
                   "trace.jsonl", "File too large");
  EXPECT_EQ(files(), before);
}

TEST_F(OutputFailureTest, ResultThatCannotBePrintedLeavesTheDocument) {
  expectNotWritten(runInShell("", create + QStringList{"-o", "new.xml"}, ">/dev/full"),
                   "standard output", "No space left on device");
  EXPECT_EQ(run({"list", "car.gltf", "new.xml"}).code, 0);
}

TEST_F(OutputFailureTest, StandardOutputTakesNoDocumentAndStaysAsItIs) {
  for (const char* path : {"/dev/stdout", "/dev/fd/1", "/proc/self/fd/1"}) {
    const CliResult result = runInShell("", create + QStringList{"-o", path}, ">out");
    expectNotWritten(result, path, "standard output has the result alone");
    EXPECT_EQ(read("out"), "");
  }
}

}  // namespace
