#include "LivePartner.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QJsonDocument>
#include <QThread>
#include <algorithm>

namespace {

constexpr int endLimit = 30'000;

bool isShared(const QJsonObject& event) {
  return event["event"] == "selected" && event["shared"].toBool();
}

ToldCommand commandOf(const QJsonObject& event) {
  ToldCommand command;
  command.sequence = qint64(event["sequence"].toDouble(-1));
  command.id = event["id"].toString();
  command.by = event["by"].toString();
  command.isOwn = event["own"].toBool();
  command.changed = event["changed"].toArray();
  for (const QJsonValue& set : event["sets"].toArray())
    command.sets += set.toString();
  return command;
}

}  // namespace

bool waitUntil(const std::function<bool()>& holds, int limit) {
  QElapsedTimer time;
  for (time.start(); time.elapsed() < limit; QThread::msleep(1)) {
    QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    if (holds()) return true;
  }
  return false;
}

QStringList orderOf(const std::vector<ToldCommand>& commands) {
  QStringList order;
  for (const ToldCommand& command : commands) {
    if (command.sequence > 0) order += QString("%1 %2").arg(command.sequence).arg(command.id);
  }
  return order;
}

LivePartner::LivePartner(const QString& name, const QStringList& arguments) : _name(name) {
  QObject::connect(&_process, &QProcess::readyReadStandardOutput, [this] { read(); });
  QObject::connect(&_process, &QProcess::readyReadStandardError,
                   [this] { _diagnostics += _process.readAllStandardError(); });
  _process.start(KUVARIANTS_EXECUTABLE, QStringList{"join"} + arguments);
  if (!_process.waitForStarted(endLimit)) fail("its start");
}

LivePartner::~LivePartner() {
  _process.disconnect();
  if (_process.state() == QProcess::NotRunning) return;
  _process.kill();
  _process.waitForFinished(endLimit);
}

void LivePartner::read() {
  _rest += _process.readAllStandardOutput();
  for (int end = _rest.indexOf('\n'); end >= 0; end = _rest.indexOf('\n')) {
    const QJsonDocument line = QJsonDocument::fromJson(_rest.left(end));
    EXPECT_TRUE(line.isObject()) << _rest.left(end).toStdString();
    _events.push_back(line.object());
    _rest.remove(0, end + 1);
  }
}

void LivePartner::fail(const QString& missing) const {
  QString told;
  for (const QJsonObject& event : _events)
    told += QJsonDocument(event).toJson(QJsonDocument::Compact) + '\n';
  ADD_FAILURE() << _name.toStdString() << ": waited in vain for " << missing.toStdString()
                << "; it told\n"
                << told.right(6000).toStdString() << _diagnostics.right(6000).toStdString();
}

void LivePartner::type(const QString& line) { _process.write(line.toUtf8() + '\n'); }

void LivePartner::type(const QStringList& lines) { type(lines.join('\n')); }

std::vector<QJsonObject> LivePartner::events(const QString& name) const {
  std::vector<QJsonObject> found;
  std::copy_if(_events.begin(), _events.end(), std::back_inserter(found),
               [&](const QJsonObject& event) { return event["event"] == name; });
  return found;
}

void LivePartner::waitFor(const QString& event, int count) {
  if (!waitUntil([&] { return int(events(event).size()) >= count; })) fail(event);
}

QSet<QString> LivePartner::ids() const {
  QSet<QString> all;
  for (const QJsonObject& event : _events) {
    if (isShared(event)) all += event["id"].toString();
  }
  return all;
}

void LivePartner::waitForCommands(int count) {
  if (!waitUntil([&] { return ids().size() >= count; })) fail(QString("%1 commands").arg(count));
}

void LivePartner::waitForCommands(const QSet<QString>& wanted) {
  if (waitUntil([&] { return ids().contains(wanted); })) return;
  fail(QStringList((wanted - ids()).values()).join(", "));
}

std::vector<ToldCommand> LivePartner::commands() const {
  std::vector<ToldCommand> told;
  for (const QJsonObject& event : _events) {
    if (isShared(event)) told.push_back(commandOf(event));
  }
  return told;
}

QJsonObject LivePartner::state() {
  const int before = int(events("state").size());
  type("state");
  waitFor("state", before + 1);
  const std::vector<QJsonObject> states = events("state");
  return states.empty() ? QJsonObject() : states.back();
}

void LivePartner::kill() {
  _process.kill();
  if (!_process.waitForFinished(endLimit)) fail("its end");
}

int LivePartner::waitForEnd() {
  const bool isOver = waitUntil([this] { return _process.state() == QProcess::NotRunning; });
  if (!isOver) fail("its end");
  return isOver && _process.exitStatus() == QProcess::NormalExit ? _process.exitCode() : -1;
}
