#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QProcess>
#include <QSet>
#include <QStringList>
#include <functional>
#include <vector>

/** Lets the event loop run until something holds; false if it did not within the milliseconds. */
bool waitUntil(const std::function<bool()>& holds, int limit = 40'000);

/** A selection as somebody was told of it. */
struct ToldCommand {
  /** Its place in the order of all; 0 where it ran alone. */
  qint64 sequence = 0;
  QString id, by;
  bool isOwn = false;
  QStringList sets;
  QJsonArray changed;
};

/** Sequences and ids, as far as a place in the order was told. */
QStringList orderOf(const std::vector<ToldCommand>& commands);

/**
 * Somebody who takes part in a session by the real executable. Everything that waits has a limit,
 * and fails the test behind it.
 */
class LivePartner {
 public:
  /** Starts "kuvariants join" with these arguments and does not wait. */
  LivePartner(const QString& name, const QStringList& arguments);
  /** Ends it without a word, if it still runs. */
  ~LivePartner();
  LivePartner(const LivePartner&) = delete;
  LivePartner& operator=(const LivePartner&) = delete;

  const QString& name() const { return _name; }
  void type(const QString& line);
  void type(const QStringList& lines);
  /** Waits until so many of these events were told, in all. */
  void waitFor(const QString& event, int count = 1);
  /** Waits until commands of so many ids were told. */
  void waitForCommands(int count);
  /** Waits until commands of these ids were told. */
  void waitForCommands(const QSet<QString>& ids);
  /** What was told so far, in its order. */
  const std::vector<QJsonObject>& events() const { return _events; }
  std::vector<QJsonObject> events(const QString& name) const;
  /** All shared commands, in the order in which they ran. */
  std::vector<ToldCommand> commands() const;
  /** Asks for the present states of all variants and the viewpoint. */
  QJsonObject state();
  const QString& diagnostics() const { return _diagnostics; }

  /** Ends it without a word. */
  void kill();
  /** Waits for its end, and answers its exit code. */
  int waitForEnd();
  bool isRunning() const { return _process.state() == QProcess::Running; }

 private:
  /** The ids of all shared commands. */
  QSet<QString> ids() const;
  void read();
  void fail(const QString& missing) const;

  QString _name;
  QProcess _process;
  QByteArray _rest;
  std::vector<QJsonObject> _events;
  QString _diagnostics;
};
