#include "JoinTest.h"

#include <signal.h>

#include <QElapsedTimer>
#include <algorithm>

namespace {

constexpr int limit = 20000;

}  // namespace

void JoinedProcess::type(const QByteArray& line) {
  _process.write(line + '\n');
  // Otherwise it would go out only when this very process is waited for.
  EXPECT_TRUE(_process.waitForBytesWritten(limit));
}

void JoinedProcess::signal(int number) {
  ASSERT_EQ(::kill(static_cast<pid_t>(_process.processId()), number), 0);
}

void JoinedProcess::read() {
  _out += _process.readAllStandardOutput().toStdString();
  _err += _process.readAllStandardError().toStdString();
  const std::size_t end = _out.rfind('\n');
  _lines = end == std::string::npos ? std::vector<std::string>() : linesOf(_out.substr(0, end));
}

template <class Holds>
bool JoinedProcess::waitUntil(Holds holds) {
  QElapsedTimer time;
  for (time.start(); time.elapsed() < limit;) {
    _process.waitForReadyRead(10);
    read();
    if (holds()) return true;
    if (_process.state() != QProcess::Running) break;
  }
  ADD_FAILURE() << "it never came; standard output:\n" << _out << "standard error:\n" << _err;
  return false;
}

bool JoinedProcess::waitFor(const std::string& line, int count) {
  SCOPED_TRACE("waited for: " + line);
  return waitUntil([&] { return std::count(_lines.begin(), _lines.end(), line) >= count; });
}

bool JoinedProcess::waitForDiagnostic(const std::string& part) {
  SCOPED_TRACE("waited for: " + part);
  return waitUntil([&] { return _err.find(part) != std::string::npos; });
}

CliResult JoinedProcess::finish() {
  if (!_process.waitForFinished(limit)) {
    ADD_FAILURE() << "it did not end";
    _process.kill();
    _process.waitForFinished();
  }
  read();
  const bool exited = _process.exitStatus() == QProcess::NormalExit;
  return {exited ? _process.exitCode() : -1, _out, _err};
}

JoinTest::~JoinTest() {
  for (const auto& process : _processes) {
    if (process->state() == QProcess::NotRunning) continue;
    process->kill();
    process->waitForFinished(limit);
  }
}

QStringList JoinTest::arguments(const QString& name, const QStringList& more) const {
  return QStringList{"join", "car.gltf", "car.xml", "--session", session(), "--name", name} + more;
}

JoinedProcess& JoinTest::join(const QString& name, const QStringList& more) {
  _processes.push_back(std::make_unique<QProcess>());
  start(*_processes.back(), arguments(name, more));
  _partners.push_back(std::make_unique<JoinedProcess>(*_processes.back()));
  JoinedProcess& partner = *_partners.back();
  if (!more.contains("--json")) partner.waitFor(joined(name.toUtf8().constData()));
  return partner;
}

CliResult JoinTest::talkAs(const QString& name, const QByteArray& lines, const QStringList& more) {
  QProcess process;
  start(process, arguments(name, more));
  process.write(lines);
  process.closeWriteChannel();
  return JoinedProcess(process).finish();
}

std::string JoinTest::joined(const char* name) const {
  return "Joined review at " + broker->address().toStdString() + " as " + name;
}
