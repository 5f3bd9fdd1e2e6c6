#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <csignal>

#include "CliTest.h"
#include "FaultyDocument.h"

using ::testing::HasSubstr;

namespace {

class VerifyOutputTest : public CliTest {
 protected:
  VerifyOutputTest() { write("doc.xml", faultyDocument); }

  static QStringList verify(const QStringList& more = {}) {
    return QStringList{"verify", "car.gltf", "doc.xml"} + more;
  }

  /** A failure of the output tells of itself alone and leaves the folder as it was. */
  void expectNotWritten(const QStringList& more, const char* message) {
    const QStringList before = files();
    const CliResult result = run(verify(more));
    EXPECT_EQ(result.code, 5);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, std::string("kuvariants: cannot write: ") + message + "\n");
    EXPECT_EQ(files(), before);
  }
};

TEST_F(VerifyOutputTest, ReportFileHasTheBytesOfStandardOutput) {
  const QStringList before = files();
  const CliResult result = run(verify({"-o", "report.csv"}));
  EXPECT_EQ(result.code, 1);
  EXPECT_EQ(result.out, faultyReport);
  EXPECT_EQ(read("report.csv"), faultyReport);
  QStringList after = files();
  EXPECT_TRUE(after.removeOne("report.csv"));
  EXPECT_EQ(after, before);
}

TEST_F(VerifyOutputTest, ReportFileIsTheSameBesideJson) {
  EXPECT_EQ(run(verify({"-o", "report.csv", "--json"})).code, 1);
  EXPECT_EQ(read("report.csv"), faultyReport);
}

TEST_F(VerifyOutputTest, ReportReplacesALongerOne) {
  write("report.csv", QByteArray(10000, 'x'));
  EXPECT_EQ(run(verify({"-o", "report.csv"})).code, 1);
  EXPECT_EQ(read("report.csv"), faultyReport);
}

TEST_F(VerifyOutputTest, ReportOfNothingIsAnEmptyFile) {
  write("doc.xml", "<Variants/>");
  EXPECT_EQ(run(verify({"-o", "report.csv"})).code, 0);
  EXPECT_EQ(read("report.csv"), "");
}

TEST_F(VerifyOutputTest, LongReportIsWhole) {
  QByteArray states;
  std::string expected;
  for (int i = 0; i < 5000; ++i) {
    const QByteArray name = "Unknown" + QByteArray::number(i);
    states += "<State name=\"" + name + "\"/>";
    expected += "Error,NodeVariant,Roof,Roof," + name.toStdString() +
                ",node state not found in switch node\n";
  }
  write("doc.xml", "<Variants><NodeVariant name=\"Roof\" base=\"Roof\">" + states +
                       "</NodeVariant></Variants>");
  const CliResult result = run(verify({"-o", "report.csv"}));
  EXPECT_EQ(result.code, 1);
  EXPECT_EQ(result.out, expected);
  EXPECT_EQ(read("report.csv"), expected);
}

TEST_F(VerifyOutputTest, ReportIntoAMissingFolder) {
  expectNotWritten({"-o", "none/report.csv"}, "none/report.csv: No such file or directory");
}

TEST_F(VerifyOutputTest, ReportBelowAFile) {
  expectNotWritten({"-o", "car.xml/report.csv"}, "car.xml/report.csv: Not a directory");
}

TEST_F(VerifyOutputTest, FolderAsReport) {
  expectNotWritten({"-o", "."}, ".: Filename refers to a directory");
}

TEST_F(VerifyOutputTest, TraceThatCannotBeWrittenLeavesTheFormerReport) {
  write("report.csv", "former\n");
  expectNotWritten({"-o", "report.csv", "--trace", "none/trace"},
                   "none/trace: No such file or directory");
  EXPECT_EQ(read("report.csv"), "former\n");
}

TEST_F(VerifyOutputTest, ReportThatDoesNotFitLeavesTheFormerOne) {
  write("report.csv", "former\n");
  const QStringList before = files();
  const CliResult result = runInShell("ulimit -f 0", verify({"-o", "report.csv"}), "");
  EXPECT_EQ(result.code, 5);
  EXPECT_EQ(result.out, "");
  EXPECT_THAT(result.err, HasSubstr("kuvariants: cannot write: report"));
  EXPECT_EQ(read("report.csv"), "former\n");
  EXPECT_EQ(files(), before);
}

TEST_F(VerifyOutputTest, DocumentThatCannotBeReadLeavesTheFormerReport) {
  write("report.csv", "former\n");
  write("doc.xml", "<Variants>");
  EXPECT_EQ(run(verify({"-o", "report.csv"})).code, 3);
  EXPECT_EQ(read("report.csv"), "former\n");
}

TEST_F(VerifyOutputTest, ReportInThePlaceOfAnInputIsRefused) {
  for (const char* input : {"doc.xml", "car.gltf"}) {
    const std::string former = read(input);
    const CliResult result = run(verify({"-o", QString("./") + input}));
    EXPECT_EQ(result.code, 2);
    EXPECT_THAT(result.err, HasSubstr(std::string("./") + input + ": is named for both"));
    EXPECT_EQ(read(input), former);
  }
}

TEST_F(VerifyOutputTest, FullStandardOutput) {
  for (const QStringList& more : {QStringList(), QStringList("--json")}) {
    const CliResult result = runInShell("", verify(more), ">/dev/full");
    EXPECT_EQ(result.code, 5);
    EXPECT_THAT(result.err, HasSubstr("kuvariants: cannot write: standard output: "
                                      "No space left on device\n"));
  }
}

TEST_F(VerifyOutputTest, ClosedStandardOutput) {
  const CliResult result = runInShell("", verify(), ">&-");
  EXPECT_EQ(result.code, 5);
  EXPECT_EQ(result.err, "kuvariants: cannot write: standard output: Bad file descriptor\n");
}

TEST_F(VerifyOutputTest, FullDeviceAsReportStaysADevice) {
  makeFullDevice("full");
  expectNotWritten({"-o", "full"}, "full: No space left on device");
  EXPECT_TRUE(isDevice("full"));
}

TEST_F(VerifyOutputTest, PipeAsReportIsWrittenToAndStaysAPipe) {
  const QByteArray pipe = folder.filePath("pipe").toUtf8();
  ASSERT_EQ(mkfifo(pipe.constData(), 0600), 0);
  // Open for both, so that neither side waits; the report is far smaller than a pipe holds.
  const int reader = open(pipe.constData(), O_RDWR | O_NONBLOCK);
  EXPECT_EQ(run(verify({"-o", "pipe"})).code, 1);
  char bytes[4096];
  const ssize_t count = ::read(reader, bytes, sizeof bytes);
  close(reader);
  EXPECT_EQ(std::string(bytes, count > 0 ? static_cast<std::size_t>(count) : 0), faultyReport);
  struct stat status {};
  ASSERT_EQ(stat(pipe.constData(), &status), 0);
  EXPECT_TRUE(S_ISFIFO(status.st_mode));
}

TEST_F(VerifyOutputTest, InterruptedWhileItWaitsForAReaderLeavesNothing) {
  const QByteArray pipe = folder.filePath("pipe").toUtf8();
  ASSERT_EQ(mkfifo(pipe.constData(), 0600), 0);
  const QStringList before = files();
  QProcess process;
  // The trace, whose pipe nobody reads, holds it up after the check and before the report.
  start(process, verify({"-o", "report.csv", "--trace", "pipe"}));
  EXPECT_FALSE(process.waitForFinished(3000));
  kill(static_cast<pid_t>(process.processId()), SIGINT);
  EXPECT_EQ(finish(process).code, 130);
  EXPECT_EQ(files(), before);
}

TEST_F(VerifyOutputTest, LeavesNothingInTheTemporaryFolder) {
  ASSERT_TRUE(QDir(folder.path()).mkdir("tmp"));
  // Qt would make a folder of its own for want of the second.
  const QString setUp = "export TMPDIR=\"$PWD/tmp\" XDG_RUNTIME_DIR=\"$PWD\"";
  for (const QStringList& more : {QStringList(), QStringList{"-o", "report.csv"}}) {
    runInShell(setUp, verify(more), "");
    runInShell(setUp + "; ulimit -f 0", verify(more), "");
  }
  EXPECT_TRUE(QDir(folder.filePath("tmp")).isEmpty());
}

}  // namespace
