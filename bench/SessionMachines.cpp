#include "SessionMachines.h"

#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QThread>

#include "standalone/StandaloneHost.h"
#include "standalone/session/Session.h"

using kuStandalone::Session;
using kuStandalone::SessionEvent;

namespace {

constexpr int startLimit = 15'000;

/** Out of the file that a broker writes once it is up. */
QString urlIn(const QString& folder) {
  const QStringList files = QDir(folder).entryList({"nats-server_*.ports"}, QDir::Files);
  if (files.isEmpty()) return QString();
  QFile file(folder + "/" + files.front());
  if (!file.open(QIODevice::ReadOnly)) return QString();
  return QJsonDocument::fromJson(file.readAll()).object()["nats"].toArray()[0].toString();
}

pid_t startSelf(const QString& url, const QString& session, int output) {
  const QByteArray urlBytes = url.toUtf8(), sessionBytes = session.toUtf8();
  const pid_t process = fork();
  if (process != 0) return process;
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  dup2(output, STDOUT_FILENO);
  execl("/proc/self/exe", "sessionBench", "--partner", urlBytes.constData(),
        sessionBytes.constData(), nullptr);
  _exit(127);
}

void sayOneRan() {
  const char mark = '.';
  if (write(STDOUT_FILENO, &mark, 1) != 1) _exit(1);
}

}  // namespace

BenchBroker::BenchBroker() {
  const QString folder = _folder.path();
  _process.start("nats-server", {"-a", "127.0.0.1", "-p", "-1", "-js", "-sd", folder + "/store",
                                 "--ports_file_dir", folder});
  QElapsedTimer time;
  for (time.start(); _url.isEmpty() && time.elapsed() < startLimit; QThread::msleep(5))
    _url = urlIn(folder);
}

BenchBroker::~BenchBroker() {
  _process.kill();
  _process.waitForFinished();
}

BenchPartners::BenchPartners(int count, const QString& url, const QString& session) {
  for (int i = 0; i < count; ++i) {
    int ends[2];
    if (pipe(ends) != 0) return;
    _partners.push_back({startSelf(url, session, ends[1]), ends[0]});
    close(ends[1]);
  }
  // The first sign of each is that it has joined.
  waitForRuns(1);
}

BenchPartners::~BenchPartners() {
  for (const Partner& partner : _partners) {
    kill(partner.process, SIGKILL);
    waitpid(partner.process, nullptr, 0);
    close(partner.output);
  }
}

bool BenchPartners::waitForRuns(int runs) {
  for (const Partner& partner : _partners) {
    char marks[256];
    for (int left = runs; left > 0;) {
      const ssize_t count = read(partner.output, marks, std::min<std::size_t>(sizeof marks, left));
      if (count <= 0) return false;
      left -= int(count);
    }
  }
  return true;
}

int benchPartner(int argc, char** argv) {
  if (argc != 4) return 2;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  const kuStandalone::StandaloneHost host;
  kuStandalone::SessionOptions options;
  options.url = QString::fromLocal8Bit(argv[2]);
  options.session = QString::fromLocal8Bit(argv[3]);
  const Session::Joining joining = Session::join(options, [](const SessionEvent& event) {
    const bool joined = event.kind == SessionEvent::Kind::Joined;
    if (joined || event.kind == SessionEvent::Kind::CommandRan) sayOneRan();
  });
  return joining.session ? QCoreApplication::exec() : 6;
}
