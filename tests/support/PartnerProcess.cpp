#include "support/PartnerProcess.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QJsonArray>
#include <QJsonDocument>
#include <algorithm>

namespace {

constexpr int kLimit = 20'000;

}  // namespace

PartnerProcess::PartnerProcess(const QString& url, const QString& session, const QString& name) {
  _process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  _process.start(QCoreApplication::applicationDirPath() + "/sessionPartner", {url, session, name});
  if (!_process.waitForStarted(kLimit)) ADD_FAILURE() << "the partner does not start";
}

PartnerProcess::~PartnerProcess() {
  _process.closeWriteChannel();
  const bool isOver = _process.state() == QProcess::NotRunning || _process.waitForFinished(kLimit);
  EXPECT_TRUE(isOver) << "the partner does not end";
}

void PartnerProcess::read() {
  _rest += _process.readAllStandardOutput();
  while (_rest.contains('\n')) {
    const int end = _rest.indexOf('\n');
    _lines << QString::fromUtf8(_rest.left(end));
    _rest.remove(0, end + 1);
  }
}

int PartnerProcess::countOf(const QString& start) const {
  const auto starts = [&](const QString& line) { return line.startsWith(start); };
  return int(std::count_if(_lines.begin(), _lines.end(), starts));
}

bool PartnerProcess::waitForStart(const QString& start, int count, bool isAlone) {
  QElapsedTimer time;
  for (time.start(); time.elapsed() < kLimit;) {
    // This process's own session goes on in the meantime.
    if (!isAlone) QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    read();
    if (countOf(start) >= count) return true;
    if (_process.state() != QProcess::Running) break;
    _process.waitForReadyRead(2);
  }
  ADD_FAILURE() << "the partner did not print \"" << start.toStdString() << "\" but\n"
                << _lines.join('\n').toStdString();
  return false;
}

bool PartnerProcess::waitFor(const QString& line, int count) { return waitForStart(line, count); }

void PartnerProcess::send(const QString& line) { _process.write(line.toUtf8() + '\n'); }

void PartnerProcess::tell(const QString& line) {
  const QString done = line == "notes" ? "notes" : "done " + line.section(' ', 0, 0);
  read();
  const int before = countOf(done);
  send(line);
  waitForStart(done, before + 1);
}

QStringList PartnerProcess::printed() {
  read();
  return _lines;
}

QStringList PartnerProcess::notes() {
  tell("notes");
  const auto isNotes = [](const QString& line) { return line.startsWith("notes "); };
  const auto last = std::find_if(_lines.rbegin(), _lines.rend(), isNotes);
  if (last == _lines.rend()) return {};
  QStringList notes;
  for (const QJsonValue& note : QJsonDocument::fromJson(last->mid(6).toUtf8()).array())
    notes << note.toString();
  return notes;
}

QStringList PartnerProcess::notes(int count) {
  QElapsedTimer time;
  QStringList present;
  for (time.start(); time.elapsed() < kLimit && present.size() < count;)
    present = notes();
  return present;
}

bool PartnerProcess::waitAlone(const QString& line, int count) {
  return waitForStart(line, count, true);
}

void PartnerProcess::pause() {
  const auto process = id_t(_process.processId());
  ::kill(pid_t(process), SIGSTOP);
  // The signal takes a moment; the process is QProcess's to wait for.
  siginfo_t information = {};
  waitid(P_PID, process, &information, WSTOPPED | WNOWAIT);
  EXPECT_EQ(information.si_code, CLD_STOPPED);
}

void PartnerProcess::resume() { ::kill(pid_t(_process.processId()), SIGCONT); }

void PartnerProcess::kill() {
  _process.kill();
  _process.waitForFinished(kLimit);
}
