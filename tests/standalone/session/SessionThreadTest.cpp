// A session under way, for ThreadSanitizer: the threads of the broker's client bring messages,
// signs of life, losses and returns while the main thread pushes, runs and leaves. It is built of
// the session's own sources, so that the instrumented build is a matter of a minute.

#include <gtest/gtest.h>
#include <nats/nats.h>

#include <QCoreApplication>
#include <QDataStream>
#include <QElapsedTimer>
#include <atomic>
#include <thread>

#include "host/script/kuScript.h"
#include "host/session/kuSession.h"
#include "standalone/script/PartnerCommands.h"
#include "standalone/script/ScriptPolicy.h"
#include "standalone/session/Session.h"
#include "standalone/session/SessionFrame.h"
#include "standalone/session/SessionStream.h"
#include "standalone/session/SessionSubject.h"
#include "support/NatsBroker.h"
#include "support/SessionEvents.h"
#include "support/SessionNotes.h"

using namespace kuStandalone;

/** No set is selected here. */
std::string kuStandalone::ScriptPolicy::presentSet() { return ""; }

/** The interpreter is not part of this program, and no script is sent here. */
std::string kuStandalone::runPartnerCommands(const QByteArray&) {
  ADD_FAILURE() << "a script has come";
  return "";
}

bool kuScript::run(const char*) {
  ADD_FAILURE() << "a script has come";
  return false;
}

namespace {

QByteArray noteFrame(const QString& text) {
  SessionFrame frame;
  frame.id = QUuid::createUuid();
  frame.sender = QUuid::createUuid();
  frame.senderName = "Ben";
  frame.type = "Note";
  QDataStream stream(&frame.payload, QIODevice::WriteOnly);
  prepareSessionStream(stream);
  stream << QString("A") << text;
  return writeFrame(frame);
}

/** A partner in a thread of its own, over a connection of its own. */
class BusyPartner {
 public:
  explicit BusyPartner(const QString& url) : _url(url.toUtf8()), _thread([this] { work(); }) {}
  ~BusyPartner() {
    _isOver = true;
    _thread.join();
  }
  BusyPartner(const BusyPartner&) = delete;
  BusyPartner& operator=(const BusyPartner&) = delete;

 private:
  void work() {
    natsConnection* connection = nullptr;
    if (natsConnection_ConnectTo(&connection, _url.constData()) != NATS_OK) return;
    const SessionSubject subject("review");
    for (int number = 0; !_isOver; ++number) {
      const QByteArray bytes = noteFrame(QString::number(number));
      const QByteArray command = subject.command("Note", "A");
      natsConnection_Publish(connection, command.constData(), bytes.constData(), bytes.size());
      natsConnection_Publish(connection, subject.presence().constData(), "rubbish", 7);
      std::this_thread::sleep_for(std::chrono::microseconds(300));
    }
    natsConnection_Destroy(connection);
  }

  const QByteArray _url;
  std::atomic<bool> _isOver{false};
  std::thread _thread;
};

class SessionThreadTest : public ::testing::Test {
 protected:
  SessionThreadTest() { sessionNotes().clear(); }

  std::unique_ptr<Session> join() {
    Session::Joining joining =
        Session::join(testOptions(broker.url(), "review", "Ada"),
                      [this](const SessionEvent& event) { events << eventText(event); });
    EXPECT_EQ(joining.error, QString());
    return std::move(joining.session);
  }

  bool waitUntil(const std::function<bool()>& holds) {
    QElapsedTimer time;
    for (time.start(); time.elapsed() < 30'000;) {
      if (holds()) return true;
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
    }
    ADD_FAILURE() << "not in time; events: " << events.join(", ").toStdString();
    return false;
  }

  NatsBroker broker;
  QStringList events;
};

}  // namespace

TEST_F(SessionThreadTest, PushingWhileAPartnerSends) {
  const std::unique_ptr<Session> session = join();
  const BusyPartner partner(broker.url());
  for (int number = 0; number < 200; ++number) {
    kuSession::the().pushCommand(NoteCommand("mine", QString::number(number)));
    QCoreApplication::processEvents();
  }
  EXPECT_EQ(sessionNotes().filter("mine").size(), 200);
  waitUntil([] { return sessionNotes().filter("A=").size() >= 200; });
}

TEST_F(SessionThreadTest, TheBrokerIsLostAndBack) {
  const std::unique_ptr<Session> session = join();
  for (int round = 1; round <= 3; ++round) {
    broker.restart();
    waitUntil([&] { return events.count("lost") >= round; });
    kuSession::the().pushCommand(NoteCommand("mine", QString::number(round)));
    waitUntil([&] { return events.count("back") >= round; });
  }
  EXPECT_EQ(sessionNotes(), (QStringList{"mine=1", "mine=2", "mine=3"}));
}

TEST_F(SessionThreadTest, ComingAndLeavingWhileAPartnerSends) {
  const BusyPartner partner(broker.url());
  for (int round = 0; round < 10; ++round) {
    const std::unique_ptr<Session> session = join();
    kuSession::the().pushCommand(NoteCommand("mine", QString::number(round)));
  }
  EXPECT_EQ(sessionNotes().filter("mine=9").size(), 1);
}

TEST_F(SessionThreadTest, TheBrokerIsLostWhileLeaving) {
  for (int round = 0; round < 5; ++round) {
    std::unique_ptr<Session> session = join();
    std::thread other([this] { broker.kill(); });
    session.reset();
    other.join();
    broker.restart();
  }
  EXPECT_EQ(Session::present(), nullptr);
}

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  const QCoreApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
