#include "SessionTest.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>

#include "standalone/kernel/HostState.h"

using kuStandalone::Session;

SessionTest::SessionTest() { sessionNotes().clear(); }

SessionTest::~SessionTest() {
  kuStandalone::HostState::the().busy = false;
  session.reset();
}

kuStandalone::SessionOptions SessionTest::options(const QString& partner) const {
  return testOptions(broker.url(), "review", partner);
}

void SessionTest::join(const kuStandalone::SessionOptions& given) {
  Session::Joining joining =
      Session::join(given, [this](const auto& event) { events << eventText(event); });
  ASSERT_TRUE(joining.session) << joining.error.toStdString();
  session = std::move(joining.session);
  waitUntil([this] { return session->status() == Session::Status::Joined; });
}

bool SessionTest::waitUntil(const std::function<bool()>& holds, int limit) {
  QElapsedTimer time;
  for (time.start(); time.elapsed() < limit;) {
    if (holds()) return true;
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
  }
  ADD_FAILURE() << "not in time; notes: " << sessionNotes().join(", ").toStdString()
                << "; events: " << events.join(", ").toStdString();
  return false;
}

void SessionTest::let(int milliseconds) {
  QElapsedTimer time;
  for (time.start(); time.elapsed() < milliseconds;)
    QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
}

QStringList SessionTest::notes(int count) {
  waitUntil([count] { return sessionNotes().size() >= count; });
  return sessionNotes();
}

bool SessionTest::waitFor(const QString& event, int count) {
  return waitUntil([&] { return events.count(event) >= count; });
}
