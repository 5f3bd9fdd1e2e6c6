#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <csignal>

#include "ScriptTest.h"
#include "host/script/kuScript.h"
#include "standalone/script/ScriptPolicy.h"

using namespace kuStandalone;

namespace {

/** Set before the interpreter starts: whoever started the tests may have had signals ignored. */
const bool signalsReset =
    std::signal(SIGINT, SIG_DFL) != SIG_ERR && std::signal(SIGPIPE, SIG_DFL) != SIG_ERR;

class ScriptIsolation : public ScriptTest {
 protected:
  ScriptIsolation() { ScriptPolicy::allow(true); }
};

void write(const QString& path, const QByteArray& text) {
  QDir().mkpath(QFileInfo(path).path());
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(text);
  file.setPermissions(file.permissions() | QFile::ExeOwner);
}

TEST_F(ScriptIsolation, AnotherPythonInTheEnvironmentChangesNothing) {
  const QTemporaryDir strange;
  const QString version = QString::fromStdString(
      kuScript::executeNUSR("'python%d.%d' % __import__('sys').version_info[:2]"));
  write(strange.filePath("bin/python3"), "#!/bin/sh\n");
  write(strange.filePath("bin/python"), "#!/bin/sh\n");
  write(strange.filePath("lib/" + version + "/os.py"), "import strange\n");
  write(strange.filePath("lib/" + version + "/lib-dynload/keep"), "");
  write(strange.filePath("json.py"), "import strange\n");
  write(strange.filePath("strange.py"), "");
  write(strange.filePath("startup.py"), "ran = 1\n");

  QProcess child;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("PATH", strange.filePath("bin") + ":/usr/bin:/bin");
  environment.insert("PYTHONHOME", strange.path());
  environment.insert("PYTHONPATH", strange.path());
  environment.insert("PYTHONSTARTUP", strange.filePath("startup.py"));
  child.setProcessEnvironment(environment);
  child.setWorkingDirectory(strange.path());
  child.setProcessChannelMode(QProcess::MergedChannels);
  child.start(KU_ISOLATION_CHILD, {strange.path()});
  ASSERT_TRUE(child.waitForFinished(60000));
  EXPECT_EQ(child.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(child.exitCode(), 0) << child.readAll().toStdString();
}

TEST_F(ScriptIsolation, SignalsStayWithTheApplication) {
  ASSERT_TRUE(signalsReset);
  for (const int number : {SIGINT, SIGPIPE}) {
    struct sigaction present = {};
    ASSERT_EQ(sigaction(number, nullptr, &present), 0);
    EXPECT_EQ(present.sa_handler, SIG_DFL) << number;
  }
}

TEST_F(ScriptIsolation, FoldersOfTheUserAndOfTheWorkAreNotSearched) {
  EXPECT_EQ(kuScript::executeNUSR("__import__('sys').flags.no_user_site"), "1");
  EXPECT_EQ(kuScript::executeNUSR("'' in __import__('sys').path"), "False");
}

}  // namespace
