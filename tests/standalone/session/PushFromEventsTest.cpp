// Pushes that come in the middle of another push, and commands that end with an exception.

#include <QElapsedTimer>
#include <QThread>
#include <QTimer>
#include <stdexcept>

#include "SessionTest.h"
#include "host/session/kuSessionCommandFactory.h"
#include "standalone/kernel/HostState.h"
#include "standalone/session/SessionSubject.h"
#include "support/Stranger.h"

using kuStandalone::HostState;
using kuStandalone::Session;
using kuStandalone::SessionEvent;

namespace {

/** Notes that it ran, and then does what all of its class do. */
template <void (*act)()>
class ActingCommand final : public NoteBase {
 public:
  explicit ActingCommand(const QString& text = {}) : NoteBase("A", text, true, false) {}
  static kuSessionCommand* create() { return new ActingCommand; }
  void execute(kuSessionClient* client) override {
    NoteBase::execute(client);
    act();
  }
};

void fail() { throw std::runtime_error("no paint"); }
void becomeBusy() { HostState::the().busy = true; }
void takeTime() { QThread::msleep(5); }

using FailingCommand = ActingCommand<fail>;
using BusyCommand = ActingCommand<becomeBusy>;
using SlowCommand = ActingCommand<takeTime>;

const kuSessionCommandFactory::Register<FailingCommand> failing("Failing");
const kuSessionCommandFactory::Register<BusyCommand> busy("Busy");
const kuSessionCommandFactory::Register<SlowCommand> slow("Slow");

class PushFromEventsTest : public SessionTest {
 protected:
  ~PushFromEventsTest() override { HostState::the().busy = false; }

  /** Joins, and pushes a note of the event's text when such an event happens. */
  void joinAnswering(const QString& what) {
    Session::Joining joining = Session::join(options(), [=](const SessionEvent& event) {
      events << eventText(event);
      if (events.last() == what) push("A", "answer");
    });
    ASSERT_TRUE(joining.session) << joining.error.toStdString();
    session = std::move(joining.session);
    waitFor("joined");
  }

  void waitUntilSent() {
    waitUntil([this] { return session->unsent() == 0; });
  }

  /** A command of a stranger, for this process alone: Ben does not know its class. */
  void sendFromAfar(const QString& type, const QString& text) {
    Stranger stranger(broker.url());
    stranger.send(subject.command(type, text.toUtf8()),
                  writeFrame(frameOf(type, streamOf(QString("A"), text))));
  }

  const kuStandalone::SessionSubject subject{"review"};
};

}  // namespace

TEST_F(PushFromEventsTest, APushWhileAnotherWaitsRunsAtOnceAndOnceMoreInItsPlace) {
  joinAnswering("came Ben");
  PartnerProcess cleo(broker.url(), "review", "Cleo");
  cleo.waitFor("joined");
  waitFor("came Cleo");
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitAlone("joined");
  QThread::msleep(300);
  push("A", "mine");
  waitUntilSent();
  EXPECT_EQ(notes(3), (QStringList{"A=answer", "A=mine", "A=answer"}));
  EXPECT_EQ(ben.notes(2), (QStringList{"A=mine", "A=answer"}));
  EXPECT_EQ(cleo.notes(2), (QStringList{"A=mine", "A=answer"}));
  EXPECT_EQ(events.count("lost"), 0);
}

TEST_F(PushFromEventsTest, APushFromWhatRanInFrontOfAnotherHasItsPlaceBehindThat) {
  joinAnswering("ran Note of Ben");
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  ben.send("push A bens");
  ben.waitAlone("ran Note own");
  QThread::msleep(300);
  push("A", "mine");
  waitUntilSent();
  EXPECT_EQ(notes(4), (QStringList{"A=bens", "A=answer", "A=mine", "A=answer"}));
  EXPECT_EQ(ben.notes(3), (QStringList{"A=bens", "A=mine", "A=answer"}));
}

TEST_F(PushFromEventsTest, WhatACommandThrowsReachesWhoPushedItAndTheSessionGoesOn) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  EXPECT_THROW(kuSession::the().pushCommand(FailingCommand("1")), std::runtime_error);
  ben.tell("push A 2");
  EXPECT_EQ(notes(2), (QStringList{"A=1", "A=2"}));
  push("A", "3");
  EXPECT_EQ(sessionNotes(), (QStringList{"A=1", "A=2", "A=3"}));
}

TEST_F(PushFromEventsTest, WhatACommandThrowsThatRunsAloneReachesWhoPushedItAndItIsSent) {
  join();
  HostState::the().busy = true;
  EXPECT_THROW(kuSession::the().pushCommand(FailingCommand("1")), std::runtime_error);
  EXPECT_EQ(session->unsent(), 1u);
  HostState::the().busy = false;
  waitUntilSent();
}

TEST_F(PushFromEventsTest, WhatAPartnersCommandThrowsIsLoggedAndTheSessionGoesOn) {
  join();
  sendFromAfar("Failing", "1");
  notes(1);
  push("A", "2");
  EXPECT_EQ(sessionNotes(), (QStringList{"A=1", "A=2"}));
  EXPECT_EQ(log, QStringList{"Session: Failing of Zoe failed: no paint"});
}

TEST_F(PushFromEventsTest, APushDoesNotWaitWhereACommandInFrontOfItMakesTheApplicationBusy) {
  join();
  sendFromAfar("Busy", "1");
  QThread::msleep(300);
  push("A", "2");
  EXPECT_EQ(sessionNotes(), (QStringList{"A=1", "A=2"}));
  EXPECT_EQ(events.count("lost"), 0);
  EXPECT_EQ(session->unsent(), 1u);
  HostState::the().busy = false;
  waitUntilSent();
  let(200);
  EXPECT_EQ(sessionNotes(), (QStringList{"A=1", "A=2"}));
}

TEST_F(PushFromEventsTest, ALongRowOfCommandsLeavesTurnsToOthers) {
  join();
  {
    Stranger stranger(broker.url());
    for (int number = 0; number < 100; ++number)
      stranger.send(subject.command("Slow", QByteArray::number(number)),
                    writeFrame(frameOf("Slow", streamOf(QString("A"), QString::number(number)))));
  }
  QThread::msleep(300);
  int turns = 0;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [&] { ++turns; });
  timer.start(0);
  notes(100);
  EXPECT_GT(turns, 10);
}

TEST_F(PushFromEventsTest, WhatRunsAgainIsTheCommandThatWasPushed) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  HostState::the().busy = true;
  NoteCommand command("A", "mine");
  command.mark = "!";
  kuSession::the().pushCommand(command);
  ben.tell("push A bens");
  let(200);
  HostState::the().busy = false;
  EXPECT_EQ(notes(3), (QStringList{"A=mine!", "A=bens", "A=mine!"}));
}

TEST_F(PushFromEventsTest, WhatIsNearlyTooLongForTheBrokerIsToldOfAtOnce) {
  join();
  push("A", QString((1 << 19) - 80, 'x'));
  EXPECT_EQ(events.count("lost"), 0);
  EXPECT_EQ(session->unsent(), 0u);
  EXPECT_EQ(log.filter("is too long for the partners").size(), 1);
}
