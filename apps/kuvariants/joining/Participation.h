#pragma once

#include <QEventLoop>
#include <QTimer>
#include <memory>
#include <vector>

#include "CommandLine.h"
#include "Interrupt.h"
#include "SceneChanges.h"
#include "joining/JoinPrinter.h"
#include "joining/LineInput.h"
#include "standalone/session/Session.h"

/** Takes part in a session, from joining it to leaving it, and obeys what is typed. */
class Participation {
 public:
  Participation(const kuStandalone::SessionOptions& options, const Invocation& invocation);
  Participation(const Participation&) = delete;
  Participation& operator=(const Participation&) = delete;

  /** Joins, and comes back when it has left. Throws a Failure if the session cannot be joined or
   * nothing can be printed. */
  Outcome run();

 private:
  enum class End { None, Quit, Input, Signal, Output };
  struct Verb;

  // Participation.cpp
  void join();
  void onEvent(const kuStandalone::SessionEvent& event);
  void tellEvent(const kuStandalone::SessionEvent& event);
  void tellSelected(const kuStandalone::SessionEvent& event);
  void tellWhatIsNotShared();
  void tell(Happening happening);
  void takeInput();
  void end(End how);
  Outcome leave();
  QString reasonOfEnd() const;

  // TypedLines.cpp
  static const std::vector<Verb>& verbs();
  void obey(const QByteArray& bytes);
  void obeyText(const QString& text);
  void obeyVerb(const Verb& verb, const QString& text, const QString& rest);
  void fault(const QString& line, const QString& reason);
  void select(const QString& name);
  void selectVariant(const QString& request);
  void tellState(const QString& rest);
  void tellPartners(const QString& rest);
  void wait(const QString& seconds);
  void quit(const QString& rest);
  void help(const QString& rest);

  kuStandalone::SessionOptions _options;
  JoinPrinter _printer;
  SceneChanges _changes;
  Interrupt::Told _signals;
  QSocketNotifier _signalled;
  LineInput _input;
  QTimer _waiting;
  QEventLoop _loop;
  End _end = End::None;
  /** What happened before the session was at hand. */
  std::vector<kuStandalone::SessionEvent> _early;
  bool _isInputTaken = false;
  std::unique_ptr<kuStandalone::Session> _session;
};
