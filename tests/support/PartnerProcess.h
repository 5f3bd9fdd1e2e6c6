#pragma once

#include <QProcess>
#include <QStringList>

/** Somebody else in a session, in a process of their own. Everything that waits has a limit, and
 * fails the test behind it. */
class PartnerProcess {
 public:
  PartnerProcess(const QString& url, const QString& session, const QString& name);
  ~PartnerProcess();
  PartnerProcess(const PartnerProcess&) = delete;
  PartnerProcess& operator=(const PartnerProcess&) = delete;

  /** Tells the partner to do something, and waits until it is done. */
  void tell(const QString& line);
  /** The same without waiting. */
  void send(const QString& line);
  /** It stands still: it is connected and answers nothing. */
  void pause();
  void resume();
  /** As waitFor, and this process's own session stands still meanwhile. */
  bool waitAlone(const QString& line, int count = 1);
  /** Waits until the partner has printed so many such lines, since its start. */
  bool waitFor(const QString& line, int count = 1);
  /** What it has printed so far. */
  QStringList printed();
  /** What its commands did. */
  QStringList notes();
  /** Waits until it has that many notes, and answers them. */
  QStringList notes(int count);
  /** Ends it without a word. */
  void kill();

 private:
  QProcess _process;
  QStringList _lines;
  QByteArray _rest;

  void read();
  int countOf(const QString& start) const;
  bool waitForStart(const QString& start, int count, bool isAlone = false);
};
