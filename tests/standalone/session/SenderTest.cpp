// What the sender of a command does itself, and what happens around it meanwhile.

#include <QThread>

#include "SessionTest.h"
#include "host/script/kuScript.h"
#include "host/session/kuSessionCommandFactory.h"
#include "standalone/kernel/HostState.h"
#include "standalone/script/ClippingSettings.h"

using kuStandalone::HostState;
using kuStandalone::Session;

namespace {

/** Does what the test says, here; elsewhere nothing. */
class CallingBase : public kuSessionCommand {
 public:
  void execute(kuSessionClient*) override { _call(); }
  void writeKey(QDataStream&) const override {}
  void write(QDataStream&) const override {}
  void read(QDataStream&) override {}

 protected:
  explicit CallingBase(std::function<void()> call)
      : kuSessionCommand(true, false, false), _call(std::move(call)) {}
  ~CallingBase() = default;

 private:
  std::function<void()> _call;
};

class CallingCommand final : public CallingBase {
 public:
  explicit CallingCommand(std::function<void()> call) : CallingBase(std::move(call)) {}
  static kuSessionCommand* create() {
    return new CallingCommand([] {});
  }
};

const kuSessionCommandFactory::Register<CallingCommand> calling("Calling");

class UnknownCommand final : public CallingBase {
 public:
  explicit UnknownCommand(std::function<void()> call) : CallingBase(std::move(call)) {}
};

class SenderTest : public SessionTest {
 protected:
  void pushDistant(const QString& target, const QString& text) {
    kuSession::the().pushCommand(DistantNoteCommand(target, text));
  }
  void waitUntilSent() {
    waitUntil([this] { return session->unsent() == 0; });
  }
};

}  // namespace

TEST_F(SenderTest, WhatIsForThePartnersDoesNotRunAtItsSender) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  pushDistant("A", "1");
  push("B", "1");
  EXPECT_EQ(sessionNotes(), QStringList{"B=1"});
  EXPECT_EQ(ben.notes(2), (QStringList{"A=1", "B=1"}));
}

TEST_F(SenderTest, WhatIsForThePartnersDoesNotRunAtItsSenderWhereItWasPushedWhileBusyEither) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  HostState::the().busy = true;
  pushDistant("A", "1");
  HostState::the().busy = false;
  waitUntilSent();
  EXPECT_EQ(ben.notes(1), QStringList{"A=1"});
  let(100);
  EXPECT_EQ(sessionNotes(), QStringList());
}

TEST_F(SenderTest, WhatIsForThePartnersDoesNotRunAtItsSenderBehindAPartnersEither) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  HostState::the().busy = true;
  pushDistant("A", "mine");
  ben.tell("push A bens");
  let(100);
  HostState::the().busy = false;
  waitUntilSent();
  EXPECT_EQ(ben.notes(2), (QStringList{"A=bens", "A=mine"}));
  push("B", "1");
  EXPECT_EQ(sessionNotes(), (QStringList{"A=bens", "B=1"}));
}

TEST_F(SenderTest, WhatIsForThePartnersDoesNotRunAtItsSenderWhereItIsTooLongForThemEither) {
  join();
  pushDistant("A", QString(1 << 20, 'x'));
  EXPECT_EQ(sessionNotes(), QStringList());
  EXPECT_EQ(log.filter("is too long for the partners").size(), 1);
}

TEST_F(SenderTest, ACommandOfAClassThatIsNotRegisteredRunsHereOnly) {
  join();
  int runs = 0;
  kuSession::the().pushCommand(UnknownCommand([&] { ++runs; }));
  push("A", "1");
  EXPECT_EQ(runs, 1);
  EXPECT_EQ(events, (QStringList{"joined", "ran Note own"}));
}

TEST_F(SenderTest, APushRunsNothingThatStandsBehindItsCommand) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  kuSession::the().pushCommand(CallingCommand([&] {
    ben.tell("push A bens");
    QThread::msleep(200);
  }));
  EXPECT_EQ(sessionNotes(), QStringList());
  EXPECT_EQ(notes(1), QStringList{"A=bens"});
}

TEST_F(SenderTest, WhatComesWaitsForACommandThatHasAnEventLoopOfItsOwn) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  QStringList meanwhile;
  kuSession::the().pushCommand(UnknownCommand([&] {
    ben.tell("push A bens");
    let(200);
    meanwhile = sessionNotes();
  }));
  EXPECT_EQ(meanwhile, QStringList());
  EXPECT_EQ(notes(1), QStringList{"A=bens"});
}

TEST_F(SenderTest, NobodyIsMissedForACommandThatHasAnEventLoopOfItsOwn) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  waitFor("came Ben");
  kuSession::the().pushCommand(UnknownCommand([&] { let(2000); }));
  let(300);
  EXPECT_EQ(events, (QStringList{"joined", "came Ben"}));
}

TEST_F(SenderTest, WhatIsPushedFromAnEventRunsAtOnceAndIsSentAfterwards) {
  Session::Joining joining = Session::join(options(), [this](const auto& event) {
    events << eventText(event);
    if (events.last() == "ran Note of Ben") push("A", "answer");
  });
  ASSERT_TRUE(joining.session) << joining.error.toStdString();
  session = std::move(joining.session);
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  ben.tell("push A bens");
  EXPECT_EQ(notes(2), (QStringList{"A=bens", "A=answer"}));
  waitUntilSent();
  EXPECT_EQ(ben.notes(2), (QStringList{"A=bens", "A=answer"}));
  EXPECT_EQ(events.count("lost"), 0);
}

TEST_F(SenderTest, AScriptThatACommandRunsIsNotSent) {
  kuStandalone::ClippingSettings::the() = {};
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  kuSession::the().pushCommand(
      UnknownCommand([] { kuScript::executeNUS("enableClippingPlane(True)", true); }));
  EXPECT_TRUE(kuStandalone::ClippingSettings::the().enabled);
  push("A", "1");
  ben.notes(1);
  EXPECT_EQ(ben.printed().filter("Script"), QStringList());
  kuStandalone::ClippingSettings::the() = {};
}
