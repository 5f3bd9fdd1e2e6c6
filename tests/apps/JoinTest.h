#pragma once

#include <memory>

#include "CliTest.h"
#include "support/NatsBroker.h"

/**
 * Somebody who takes part in a session by the real executable. Everything that waits has a limit,
 * and fails the test behind it.
 */
class JoinedProcess {
 public:
  explicit JoinedProcess(QProcess& process) : _process(process) {}

  void type(const QByteArray& line);
  void closeInput() { _process.closeWriteChannel(); }
  void signal(int number);
  /** Waits until that many lines of standard output are this one. */
  bool waitFor(const std::string& line, int count = 1);
  /** The same of standard error, for a part of a line. */
  bool waitForDiagnostic(const std::string& part);
  /** Waits for its end. */
  CliResult finish();
  const std::vector<std::string>& lines() const { return _lines; }

 private:
  void read();
  template <class Holds>
  bool waitUntil(Holds holds);

  QProcess& _process;
  std::string _out, _err;
  std::vector<std::string> _lines;
};

/** Fixture of the tests of "join": the scene and the document of CliTest, and a real broker. */
class JoinTest : public CliTest {
 protected:
  ~JoinTest() override;

  /** "nats://127.0.0.1:port/review" */
  QString session() const { return broker->url() + "/review"; }
  /** The arguments of a partner, and more. */
  QStringList arguments(const QString& name, const QStringList& more = {}) const;
  /** Starts a partner, and waits until it has joined. */
  JoinedProcess& join(const QString& name, const QStringList& more = {});
  /** Lets somebody join, type these lines, and come to the end of the input; Ada, if not named. */
  CliResult talk(const QByteArray& lines, const QStringList& more = {}) {
    return talkAs("Ada", lines, more);
  }
  CliResult talkAs(const QString& name, const QByteArray& lines, const QStringList& more = {});
  /** "Joined review at 127.0.0.1:port as NAME" */
  std::string joined(const char* name) const;

  std::unique_ptr<NatsBroker> broker = std::make_unique<NatsBroker>();

 private:
  std::vector<std::unique_ptr<QProcess>> _processes;
  std::vector<std::unique_ptr<JoinedProcess>> _partners;
};
