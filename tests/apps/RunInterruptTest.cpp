#include <QElapsedTimer>
#include <csignal>

#include "RunTest.h"

using ::testing::HasSubstr;
using ::testing::Not;

namespace {

/** Each script makes a file "running" once it is where the interrupt is to meet it. */
class RunInterruptTest : public RunTest {
 protected:
  /** Starts the command and sends it the signal once the file is there. */
  CliResult interrupt(const QStringList& arguments, int signal = SIGINT) {
    QProcess process;
    start(process, arguments);
    QElapsedTimer waiting;
    waiting.start();
    while (!exists("running") && process.state() == QProcess::Running && waiting.elapsed() < 60000)
      process.waitForFinished(10);
    EXPECT_TRUE(exists("running"));
    QElapsedTimer sinceThen;
    sinceThen.start();
    kill(static_cast<pid_t>(process.processId()), signal);
    const CliResult result = finish(process);
    EXPECT_LT(sinceThen.elapsed(), 1000 * slowness);
    return result;
  }

  CliResult interruptScript(const QByteArray& script, int signal = SIGINT) {
    write("script.py", script);
    return interrupt({"run", "car.gltf", "car.xml", "script.py"}, signal);
  }

  void writeEndlessSet() {
    write("endless.xml",
          "<Variants><VariantSet name=\"S\"><Script>open('running', 'w').close()\n"
          "while True: pass</Script></VariantSet></Variants>");
  }

 private:
  /** Several tests run at once, and slower than the command at work. */
  static constexpr int slowness = 30;
};

TEST_F(RunInterruptTest, EndsAnEndlessScript) {
  const CliResult result =
      interruptScript("print('begun')\nopen('running', 'w').close()\nwhile True: pass");
  EXPECT_EQ(result.code, 130);
  EXPECT_EQ(result.out, "begun\n");
  EXPECT_THAT(result.err, HasSubstr("\nKeyboardInterrupt\n"));
}

TEST_F(RunInterruptTest, EndsAScriptThatSleeps) {
  EXPECT_EQ(interruptScript("import time\nopen('running', 'w').close()\ntime.sleep(600)").code,
            130);
}

TEST_F(RunInterruptTest, EndsAScriptThatWaitsForInput) {
  EXPECT_EQ(interruptScript("open('running', 'w').close()\ninput()").code, 130);
}

TEST_F(RunInterruptTest, EndsTheWaitForAThread) {
  EXPECT_EQ(interruptScript("import threading, time\n"
                            "def work():\n    open('running', 'w').close()\n    time.sleep(600)\n"
                            "threading.Thread(target=work).start()")
                .code,
            130);
}

TEST_F(RunInterruptTest, CanBeCaughtByTheScript) {
  const CliResult result = interruptScript(
      "import sys\ntry:\n    open('running', 'w').close()\n    while True: pass\nexcept "
      "KeyboardInterrupt:\n    print('caught')\nsys.exit(7)");
  EXPECT_EQ(result.code, 7);
  EXPECT_EQ(result.out, "caught\n");
}

TEST_F(RunInterruptTest, RunsWhatTheScriptDoesFinally) {
  EXPECT_EQ(interruptScript("try:\n    open('running', 'w').close()\n    while True: pass\n"
                            "finally:\n    print('finally')")
                .out,
            "finally\n");
}

TEST_F(RunInterruptTest, EndsTheScriptOfASetAndTheUsersScriptWithIt) {
  writeEndlessSet();
  write("script.py", "print('begun', end='')\nselectVariantSet('S')\nopen('went on', 'w').close()");
  const CliResult result =
      interrupt({"--allow-scripts", "run", "car.gltf", "endless.xml", "script.py"});
  EXPECT_EQ(result.code, 130);
  EXPECT_EQ(result.out, "begun");
  EXPECT_FALSE(exists("went on"));
}

TEST_F(RunInterruptTest, EndsTheCommandsOfASetThatIsHeldBackAndTheUsersScriptWithThem) {
  write("many.xml", "<Variants><VariantSet name=\"S\"><Script>" +
                        QByteArray("selectVariantSet('T')\n").repeated(99999) +
                        "</Script></VariantSet></Variants>");
  write("script.py",
        "print('begun', end='')\ntry:\n    open('running', 'w').close()\n"
        "    selectVariantSet('S')\nexcept KeyboardInterrupt:\n    pass\n"
        "open('went on', 'w').close()");
  const CliResult result = interrupt({"run", "car.gltf", "many.xml", "script.py"});
  EXPECT_EQ(result.code, 130);
  EXPECT_EQ(result.out, "begun");
  EXPECT_EQ(result.err, "");
  EXPECT_FALSE(exists("went on"));
}

TEST_F(RunInterruptTest, EndsTheScriptOfASetInSelectAndRender) {
  writeEndlessSet();
  EXPECT_EQ(interrupt({"--allow-scripts", "select", "car.gltf", "endless.xml", "S"}).code, 130);
  ASSERT_TRUE(QFile::remove(folder.filePath("running")));
  EXPECT_EQ(
      interrupt({"--allow-scripts", "render", "car.gltf", "endless.xml", "-o", "pictures"}).code,
      130);
}

TEST_F(RunInterruptTest, EndsAPictureThatIsBeingRendered) {
  const CliResult result = interruptScript(
      "open('running', 'w').close()\n"
      "variants.render('picture.png', width=4000, height=4000, samples=60000)");
  EXPECT_EQ(result.code, 130);
  EXPECT_FALSE(exists("picture.png"));
}

TEST_F(RunInterruptTest, EndsAPictureAlsoWhereTheScriptHadTheSignalForAWhile) {
  const CliResult result = interruptScript(
      "import signal\nformer = signal.signal(signal.SIGINT, signal.SIG_IGN)\n"
      "signal.signal(signal.SIGINT, former)\nopen('running', 'w').close()\n"
      "variants.render('picture.png', width=4000, height=4000, samples=60000)");
  EXPECT_EQ(result.code, 130);
}

TEST_F(RunInterruptTest, IsIgnoredByAPictureWhereTheScriptIgnoresIt) {
  write("script.py",
        "import os, signal, threading\nsignal.signal(signal.SIGINT, signal.SIG_IGN)\n"
        "threading.Timer(0.1, os.kill, (os.getpid(), signal.SIGINT)).start()\n"
        "variants.render('picture.png', width=200, height=150, samples=64)");
  EXPECT_EQ(run({"run", "car.gltf", "car.xml", "script.py"}).code, 0);
  EXPECT_TRUE(exists("picture.png"));
}

TEST_F(RunInterruptTest, OtherSignalsEndTheScriptAtOnce) {
  EXPECT_EQ(interruptScript("open('running', 'w').close()\nwhile True: pass", SIGTERM).code, 143);
}

TEST_F(RunInterruptTest, SecondOneEndsAScriptThatDoesNotListen) {
  // The first waits for a call into C that does not come back.
  write("script.py",
        "import itertools, os\npid = os.getpid()\n"
        "os.system(f'(sleep 0.5; kill -INT {pid}; sleep 0.5; kill -INT {pid}) >&2 &')\n"
        "sum(itertools.repeat(0))");
  EXPECT_EQ(run({"run", "car.gltf", "car.xml", "script.py"}).code, 130);
}

TEST_F(RunInterruptTest, IsIgnoredWhereItWasIgnoredBefore) {
  write("script.py", "import os, signal\nos.kill(os.getpid(), signal.SIGINT)\nprint('went on')");
  const CliResult result =
      runInShell("trap '' INT", {"run", "car.gltf", "car.xml", "script.py"}, "");
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.out, "went on\n");
}

}  // namespace
