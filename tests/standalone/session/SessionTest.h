#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QStringList>
#include <functional>
#include <memory>

#include "host/session/kuSession.h"
#include "standalone/kernel/LogSink.h"
#include "standalone/session/Session.h"
#include "support/NatsBroker.h"
#include "support/PartnerProcess.h"
#include "support/SessionEvents.h"
#include "support/SessionNotes.h"

/** How texts show where a comparison fails. */
inline void PrintTo(const QString& text, std::ostream* out) { *out << text.toStdString(); }

/** Fixture of the tests of a live session: a real broker, and this process as Ada. */
class SessionTest : public ::testing::Test {
 protected:
  SessionTest();
  ~SessionTest() override;

  kuStandalone::SessionOptions options(const QString& partner = "Ada") const;
  /** Joins and waits until all has run that the session holds. */
  void join() { join(options()); }
  void join(const kuStandalone::SessionOptions& given);
  void leave() { session.reset(); }

  /** Lets the event loop run until something holds; false, and a failure, if it did not in time. */
  bool waitUntil(const std::function<bool()>& holds, int limit = 20'000);
  /** Lets the event loop run for so long. */
  void let(int milliseconds);
  /** Waits until so many notes are there, and answers them. */
  QStringList notes(int count);
  /** Waits until an event has happened so often. */
  bool waitFor(const QString& event, int count = 1);

  static void push(const QString& target, const QString& text) {
    kuSession::the().pushCommand(NoteCommand(target, text));
  }

  NatsBroker broker;
  /** Lines of the log. */
  QStringList log;
  kuStandalone::LogSink sink{[this](kuStandalone::LogLevel, const std::string& text) {
    log << QString::fromStdString(text);
  }};
  std::unique_ptr<kuStandalone::Session> session;
  /** What happened, each as eventText. */
  QStringList events;
};
