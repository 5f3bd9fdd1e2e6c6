#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>

#include "CliTest.h"

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::SizeIs;
using ::testing::StartsWith;

namespace {

class InputFailureTest : public CliTest {
 protected:
  /** The command answers 3 with one line that begins so and has the reason. */
  void expectRefused(const CliResult& result, const char* start, const char* reason) {
    EXPECT_EQ(result.code, 3);
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(linesOf(result.err), SizeIs(1));
    EXPECT_THAT(result.err, AllOf(StartsWith(start), HasSubstr(reason)));
  }
};

TEST_F(InputFailureTest, MissingScene) {
  expectRefused(run({"scene", "none.gltf"}),
                "kuvariants: cannot read scene: none.gltf: ", "No such file or directory");
}

TEST_F(InputFailureTest, FolderAsScene) {
  expectRefused(run({"scene", "."}), "kuvariants: cannot read scene: .: ", "");
}

TEST_F(InputFailureTest, SceneBelowAFile) {
  expectRefused(run({"scene", "car.xml/car.gltf"}),
                "kuvariants: cannot read scene: car.xml/car.gltf: ", "Not a directory");
}

TEST_F(InputFailureTest, SceneThatIsNone) {
  expectRefused(run({"scene", "car.xml"}), "kuvariants: cannot read scene: car.xml: ", "");
}

TEST_F(InputFailureTest, MissingDocument) {
  expectRefused(run({"list", "car.gltf", "none.xml"}), "kuvariants: cannot read document: none.xml",
                ": No such file or directory");
}

TEST_F(InputFailureTest, FolderAsDocument) {
  expectRefused(run({"list", "car.gltf", "."}),
                "kuvariants: cannot read document: .: ", "directory");
}

TEST_F(InputFailureTest, DocumentBelowAFile) {
  expectRefused(run({"list", "car.gltf", "car.xml/car.xml"}),
                "kuvariants: cannot read document: car.xml/car.xml: ", "Not a directory");
}

TEST_F(InputFailureTest, DocumentThatCannotBeRead) {
  // Opens, and every read of it fails, whoever reads.
  expectRefused(run({"list", "car.gltf", "/proc/self/mem"}),
                "kuvariants: cannot read document: /proc/self/mem: ", "");
}

TEST_F(InputFailureTest, DocumentThatDoesNotParseIsNamedWithThePlace) {
  write("broken.xml", "<Variants>\n<VariantSet>\n</Variants>");
  expectRefused(run({"list", "car.gltf", "broken.xml"}),
                "kuvariants: cannot read document: broken.xml: ", " at 3 ");
}

TEST_F(InputFailureTest, EmptyDocumentDoesNotParse) {
  write("empty.xml", "");
  expectRefused(run({"select", "car.gltf", "empty.xml", "Summer"}),
                "kuvariants: cannot read document: empty.xml: ", "");
}

TEST_F(InputFailureTest, BrokenInputLeavesNoFiles) {
  write("broken.xml", "<Variants>");
  const QStringList before = files();
  const CliResult result = run({"select", "car.gltf", "broken.xml", "Summer", "--save-scene",
                                "saved.gltf", "--trace", "trace.jsonl"});
  EXPECT_EQ(result.code, 3);
  EXPECT_EQ(files(), before);
}

TEST_F(InputFailureTest, DocumentFromAPipeIsRead) {
  const CliResult result = runInShell("", {"list", "car.gltf", "/dev/stdin"}, "<car.xml");
  EXPECT_EQ(result.code, 0) << result.err;
  EXPECT_THAT(result.out, HasSubstr("Summer"));
}

class InterruptTest : public CliTest, public ::testing::WithParamInterface<int> {};

TEST_P(InterruptTest, EndsWith128PlusTheSignalAndLeavesNoFiles) {
  ASSERT_EQ(mkfifo(folder.filePath("pipe.xml").toUtf8().constData(), 0600), 0);
  const QStringList before = files();
  QProcess process;
  start(process, {"select", "car.gltf", "pipe.xml", "Summer", "--save-scene", "saved.gltf",
                  "--trace", "trace.jsonl"});
  // Opening the other end waits until the executable has come to read.
  const int writer = open(folder.filePath("pipe.xml").toUtf8().constData(), O_WRONLY);
  kill(static_cast<pid_t>(process.processId()), GetParam());
  const CliResult result = finish(process);
  close(writer);
  EXPECT_EQ(result.code, 128 + GetParam());
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(files(), before);
}

TEST_P(InterruptTest, LeavesTheFormerDocument) {
  ASSERT_EQ(mkfifo(folder.filePath("pipe.xml").toUtf8().constData(), 0600), 0);
  const std::string former = read("car.xml");
  const QStringList before = files();
  QProcess process;
  start(process, {"optimize", "car.gltf", "pipe.xml", "-o", "car.xml"});
  const int writer = open(folder.filePath("pipe.xml").toUtf8().constData(), O_WRONLY);
  kill(static_cast<pid_t>(process.processId()), GetParam());
  EXPECT_EQ(finish(process).code, 128 + GetParam());
  close(writer);
  EXPECT_EQ(read("car.xml"), former);
  EXPECT_EQ(files(), before);
}

INSTANTIATE_TEST_SUITE_P(Signals, InterruptTest, ::testing::Values(SIGINT, SIGTERM, SIGHUP));

}  // namespace
