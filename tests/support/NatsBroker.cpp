#include "support/NatsBroker.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QThread>

namespace {

constexpr int kStartLimit = 15'000;

void writeFile(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  ASSERT_EQ(file.write(bytes), bytes.size());
}

/** The port out of the file that a broker writes once it is up; 0 while there is none. */
int portIn(const QString& folder) {
  const QStringList files = QDir(folder).entryList({"nats-server_*.ports"}, QDir::Files);
  if (files.isEmpty()) return 0;
  QFile file(folder + "/" + files.front());
  if (!file.open(QIODevice::ReadOnly)) return 0;
  const QJsonArray urls = QJsonDocument::fromJson(file.readAll()).object()["nats"].toArray();
  return urls.isEmpty() ? 0 : urls[0].toString().section(':', -1).toInt();
}

}  // namespace

NatsBroker::NatsBroker(const QByteArray& configuration, bool hasJetStream)
    : _configuration(configuration), _hasJetStream(hasJetStream) {
  start(-1);
}

NatsBroker::~NatsBroker() { kill(); }

QString NatsBroker::address() const { return QStringLiteral("127.0.0.1:%1").arg(_port); }

void NatsBroker::start(int port) {
  const QString folder = _folder.path();
  const QByteArray quoted = folder.toUtf8();
  const QByteArray jetStream =
      _hasJetStream ? "jetstream { store_dir: \"" + quoted + "/store\" }\n" : QByteArray();
  for (const QString& old : QDir(folder).entryList({"nats-server_*.ports"}, QDir::Files))
    QFile::remove(folder + "/" + old);
  writeFile(folder + "/broker.conf", "listen: \"127.0.0.1:" + QByteArray::number(port) +
                                         "\"\nports_file_dir: \"" + quoted + "\"\n" + jetStream +
                                         _configuration);
  const QByteArray file = (folder + "/broker.conf").toUtf8(), log = quoted + "/log";
  const pid_t parent = getpid();
  _process = fork();
  ASSERT_GE(_process, 0);
  if (_process == 0) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent) _exit(1);
    const int output = open(log.constData(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    dup2(output, STDOUT_FILENO);
    dup2(output, STDERR_FILENO);
    execlp("nats-server", "nats-server", "-c", file.constData(), nullptr);
    _exit(127);
  }
  ASSERT_TRUE(waitForPort()) << "the broker does not start; see " << log.constData();
}

bool NatsBroker::waitForPort() {
  QElapsedTimer time;
  for (time.start(); time.elapsed() < kStartLimit; QThread::msleep(5)) {
    _port = portIn(_folder.path());
    if (_port > 0) return true;
    if (waitpid(_process, nullptr, WNOHANG) == _process) _process = 0;
    if (_process == 0) return false;
  }
  return false;
}

void NatsBroker::kill() {
  if (_process <= 0) return;
  ::kill(_process, SIGKILL);
  waitpid(_process, nullptr, 0);
  _process = 0;
}

void NatsBroker::restart() {
  kill();
  start(_port);
}

void NatsBroker::restart(const QByteArray& configuration) {
  _configuration = configuration;
  restart();
}

void NatsBroker::wipe() {
  ASSERT_EQ(_process, 0);
  ASSERT_TRUE(QDir(_folder.path() + "/store").removeRecursively());
}

void NatsBroker::copyStore(const QString& from, const QString& to) {
  ASSERT_EQ(_process, 0);
  const QString target = _folder.filePath(to);
  ASSERT_TRUE(QDir(target).removeRecursively());
  ASSERT_EQ(QProcess::execute("cp", {"-a", _folder.filePath(from), target}), 0);
}

void NatsBroker::keepStore() { copyStore("store", "kept"); }

void NatsBroker::putStoreBack() { copyStore("kept", "store"); }

void NatsBroker::pause() {
  ::kill(_process, SIGSTOP);
  // The signal takes a moment.
  int status = 0;
  waitpid(_process, &status, WUNTRACED);
  ASSERT_TRUE(WIFSTOPPED(status));
}

void NatsBroker::resume() { ::kill(_process, SIGCONT); }
