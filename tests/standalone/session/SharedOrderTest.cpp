// Everyone runs every command, in one order.

#include <QMessageBox>
#include <QRegularExpression>
#include <QSet>

#include "SessionTest.h"

#include "host/session/kuSessionClient.h"
#include "standalone/kernel/HostState.h"

using kuStandalone::HostState;
using kuStandalone::Session;

namespace {

QStringList numbered(const QString& target, int from, int to) {
  QStringList notes;
  for (int number = from; number <= to; ++number)
    notes << QStringLiteral("%1=%2").arg(target).arg(number);
  return notes;
}

}  // namespace

TEST_F(SessionTest, WithoutASessionACommandRunsHere) {
  EXPECT_FALSE(kuSession::the().isReadyToUse());
  push("A", "1");
  EXPECT_EQ(sessionNotes(), QStringList{"A=1"});
}

TEST_F(SessionTest, ACommandHasRunHereWhenThePushReturns) {
  join();
  EXPECT_TRUE(kuSession::the().isReadyToUse());
  push("A", "1");
  EXPECT_EQ(sessionNotes(), QStringList{"A=1"});
  EXPECT_EQ(events, (QStringList{"joined", "ran Note own"}));
}

TEST_F(SessionTest, TheObjectThatWasPushedIsTheOneThatRunsHere) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  NoteCommand command("A", "1");
  command.mark = "!";
  kuSession::the().pushCommand(command);
  EXPECT_EQ(sessionNotes(), QStringList{"A=1!"});
  EXPECT_EQ(ben.notes(1), QStringList{"A=1"});
}

TEST_F(SessionTest, PartnersRunACommandToo) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  push("A", "1");
  EXPECT_EQ(ben.notes(1), QStringList{"A=1"});
  EXPECT_EQ(ben.printed().filter("ran"), QStringList{"ran Note of Ada"});
  ben.tell("push A 2");
  EXPECT_EQ(notes(2), (QStringList{"A=1", "A=2"}));
}

TEST_F(SessionTest, AllRunAllCommandsInOneOrder) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben"), cleo(broker.url(), "review", "Cleo");
  ben.waitFor("joined");
  cleo.waitFor("joined");
  for (int number = 0; number < 30; ++number) {
    ben.send(QStringLiteral("push A b%1").arg(number));
    cleo.send(QStringLiteral("push A c%1").arg(number));
    push("A", QStringLiteral("a%1").arg(number));
  }
  const QStringList order = notes(90);
  EXPECT_EQ(QSet<QString>(order.begin(), order.end()).size(), 90);
  EXPECT_EQ(order.filter("=a"), [] {
    QStringList own;
    for (int number = 0; number < 30; ++number)
      own << QStringLiteral("A=a%1").arg(number);
    return own;
  }());
  EXPECT_EQ(ben.notes(90), order);
  EXPECT_EQ(cleo.notes(90), order);
}

TEST_F(SessionTest, ThoseWhoAreConnectedRunSupersededCommandsToo) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  ben.tell("busy on");
  for (int number = 1; number <= 100; ++number)
    push("A", QString::number(number));
  ben.tell("busy off");
  EXPECT_EQ(ben.notes(100), numbered("A", 1, 100));
}

TEST_F(SessionTest, WhatACommandPushesInTurnIsNotPushedAgain) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  kuSession::the().pushCommand(NestingNoteCommand("A", "1"));
  push("B", "1");
  const QStringList expected{"A=1", "Inner=1", "B=1"};
  EXPECT_EQ(sessionNotes(), expected);
  EXPECT_EQ(ben.notes(3), expected);
}

TEST_F(SessionTest, ABlockedTypeRunsHereOnly) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  kuSession::the().block(NestingNoteCommand().getType());
  kuSession::the().pushCommand(NestingNoteCommand("A", "1"));
  push("B", "1");
  kuSession::the().unblock(NestingNoteCommand().getType());
  kuSession::the().pushCommand(NestingNoteCommand("A", "2"));
  EXPECT_EQ(sessionNotes(), (QStringList{"A=1", "Inner=1", "B=1", "A=2", "Inner=1"}));
  EXPECT_EQ(ben.notes(3), (QStringList{"B=1", "A=2", "Inner=1"}));
}

TEST_F(SessionTest, BlockingIsNotCounted) {
  join();
  const unsigned type = NoteCommand().getType();
  kuSession::the().block(type);
  kuSession::the().block(type);
  push("A", "1");
  kuSession::the().unblock(type);
  push("A", "2");
  EXPECT_EQ(events, (QStringList{"joined", "ran Note own"}));
}

TEST_F(SessionTest, ALateJoinerRunsTheLastCommandOfEachTargetAndThenAllNewOnes) {
  join();
  push("A", "1");
  push("B", "1");
  push("A", "2");
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  push("A", "3");
  push("A", "4");
  EXPECT_EQ(ben.notes(4), (QStringList{"B=1 (joining)", "A=2 (joining)", "A=3", "A=4"}));
}

TEST_F(SessionTest, ALateJoinerHasJoinedWhenAllThatWasThereHasRun) {
  join();
  push("A", "1");
  push("B", "1");
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  // Ada's sign of life comes at any moment.
  const QStringList told = ben.printed().filter(QRegularExpression("^(?!came)"));
  EXPECT_EQ(told.mid(0, 3), (QStringList{"ran Note of Ada", "ran Note of Ada", "joined"}));
}

TEST_F(SessionTest, WhoJoinsAnEmptySessionHasJoinedAtOnce) {
  join();
  EXPECT_EQ(events, QStringList{"joined"});
  EXPECT_TRUE(session->isJoinCompleted());
}

TEST_F(SessionTest, WhatIsNotForLateJoinersIsNotRunByThem) {
  join();
  kuSession::the().pushCommand(PassingNoteCommand("A", "1"));
  push("B", "1");
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  kuSession::the().pushCommand(PassingNoteCommand("A", "2"));
  EXPECT_EQ(ben.notes(2), (QStringList{"B=1 (joining)", "A=2"}));
}

TEST_F(SessionTest, APushWhileJoiningComesBehindWhatTheSessionHolds) {
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  ben.tell("push A 1");
  ben.tell("push B 1");
  Session::Joining joining = Session::join(options(), {});
  ASSERT_TRUE(joining.session);
  EXPECT_EQ(joining.session->status(), Session::Status::Joining);
  push("A", "2");
  EXPECT_EQ(sessionNotes(), (QStringList{"A=1 (joining)", "B=1 (joining)", "A=2"}));
  EXPECT_EQ(ben.notes(3), (QStringList{"A=1", "B=1", "A=2"}));
}

TEST_F(SessionTest, SessionsOfOtherNamesKeepToThemselves) {
  join();
  PartnerProcess ben(broker.url(), "review2", "Ben"), cleo(broker.url(), "review.>", "Cleo");
  ben.waitFor("joined");
  cleo.waitFor("joined");
  ben.tell("push A ben");
  cleo.tell("push A cleo");
  push("A", "ada");
  EXPECT_EQ(ben.notes(), QStringList{"A=ben"});
  EXPECT_EQ(cleo.notes(), QStringList{"A=cleo"});
  EXPECT_EQ(sessionNotes(), QStringList{"A=ada"});
  EXPECT_EQ(session->partners().size(), 0u);
}

TEST_F(SessionTest, AnyTargetFindsItsWay) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  const QStringList targets{"", "a.b", "*", ">", " ", QString(5000, 'x'), QString::fromUtf8("ö\n")};
  for (const QString& target : targets)
    push(target, "1");
  EXPECT_EQ(ben.notes(targets.size()), sessionNotes());
  EXPECT_EQ(sessionNotes().size(), targets.size());
}

TEST_F(SessionTest, ACommandThatIsTooLongRunsHereOnly) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  push("A", QString(1 << 20, 'x'));
  push("A", "2");
  EXPECT_EQ(sessionNotes().size(), 2);
  EXPECT_EQ(ben.notes(1), QStringList{"A=2"});
  EXPECT_EQ(session->status(), Session::Status::Joined);
}

// The broker counts as well what the client writes before a message.
TEST_F(SessionTest, ACommandThatIsNearlyTooLongIsNotTakenForALossOfTheBroker) {
  join();
  for (int less = 300; less > 0; less -= 4)
    push("A", QString((1 << 19) - less, 'x'));
  EXPECT_EQ(sessionNotes().size(), 75);
  EXPECT_EQ(events.count("lost"), 0);
  EXPECT_GT(events.count("ran Note own"), 0);
  EXPECT_GT(log.filter("is too long for the partners").size(), 0);
  EXPECT_EQ(events.count("ran Note own") + log.size(), 75);
}

// While something else is at work, nothing from partners changes the scene.

TEST_F(SessionTest, WhatPartnersDoWaitsWhileTheApplicationIsBusy) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  HostState::the().busy = true;
  ben.tell("push A 1");
  let(200);
  EXPECT_EQ(sessionNotes(), QStringList());
  HostState::the().busy = false;
  EXPECT_EQ(notes(1), QStringList{"A=1"});
}

TEST_F(SessionTest, WhatDoesNotFindRoomWhileBusyIsFetchedAfterwards) {
  kuStandalone::SessionOptions few = options();
  few.mostWaiting = 10;
  Session::Joining joining = Session::join(few, {});
  ASSERT_TRUE(joining.session);
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  HostState::the().busy = true;
  for (int number = 1; number <= 50; ++number)
    ben.send(QStringLiteral("push A %1").arg(number));
  ben.notes(50);
  HostState::the().busy = false;
  ben.tell("push A 51");
  EXPECT_EQ(notes(51), numbered("A", 1, 51));
}

TEST_F(SessionTest, WhatPartnersDoWaitsForAModalDialogue) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  QMessageBox box;
  box.setModal(true);
  box.show();
  ben.tell("push A 1");
  let(200);
  EXPECT_EQ(sessionNotes(), QStringList());
  box.close();
  EXPECT_EQ(notes(1), QStringList{"A=1"});
}

TEST_F(SessionTest, WhatIsPushedWhileBusyRunsAtOnceAndIsSentAfterwards) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  HostState::the().busy = true;
  push("A", "1");
  push("A", "2");
  EXPECT_EQ(sessionNotes(), (QStringList{"A=1", "A=2"}));
  EXPECT_EQ(session->unsent(), 2u);
  let(100);
  EXPECT_EQ(ben.notes(), QStringList());
  HostState::the().busy = false;
  waitUntil([this] { return session->unsent() == 0; });
  EXPECT_EQ(ben.notes(2), (QStringList{"A=1", "A=2"}));
  let(100);
  EXPECT_EQ(sessionNotes(), (QStringList{"A=1", "A=2"}));
}

TEST_F(SessionTest, WhatIsPushedWhileBusyRunsAgainBehindWhatAPartnerDidMeanwhile) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  HostState::the().busy = true;
  push("A", "mine");
  ben.tell("push A bens");
  let(100);
  HostState::the().busy = false;
  EXPECT_EQ(notes(3), (QStringList{"A=mine", "A=bens", "A=mine"}));
  EXPECT_EQ(ben.notes(2), (QStringList{"A=bens", "A=mine"}));
}

TEST_F(SessionTest, WhatMayRunWhileBusyDoes) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  HostState::the().busy = true;
  ben.tell("pushUrgent A 1");
  EXPECT_EQ(notes(1), QStringList{"A=1"});
}

TEST_F(SessionTest, WhatMayRunWhileBusyKeepsItsPlaceInTheOrder) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  HostState::the().busy = true;
  ben.tell("push A 1");
  ben.tell("pushUrgent A 2");
  let(200);
  EXPECT_EQ(sessionNotes(), QStringList());
  HostState::the().busy = false;
  EXPECT_EQ(notes(2), (QStringList{"A=1", "A=2"}));
}

// Who is there.

TEST_F(SessionTest, PartnersSeeEachOtherComeAndLeave) {
  join();
  {
    PartnerProcess ben(broker.url(), "review", "Ben");
    waitFor("came Ben");
    ben.waitFor("came Ada");
    ASSERT_EQ(session->partners().size(), 1u);
    EXPECT_EQ(session->partners()[0].name, "Ben");
    EXPECT_EQ(session->partners()[0].version, 1);
    waitUntil([this] { return !session->partners()[0].isJoining; });
  }
  waitFor("left Ben");
  EXPECT_EQ(session->partners().size(), 0u);
}

TEST_F(SessionTest, WhoEndsWithoutAWordIsMissedAfterAWhile) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  waitFor("came Ben");
  ben.kill();
  waitFor("left Ben");
  EXPECT_EQ(session->partners().size(), 0u);
}

TEST_F(SessionTest, WhoStaysIsNotMissed) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  waitFor("came Ben");
  let(2500);
  EXPECT_EQ(events.filter("Ben"), QStringList{"came Ben"});
}

TEST_F(SessionTest, ThereIsOneSessionAtATime) {
  join();
  EXPECT_EQ(Session::present(), session.get());
  EXPECT_EQ(Session::join(options(), {}).error, "there is a session already");
  leave();
  EXPECT_EQ(Session::present(), nullptr);
  join();
  EXPECT_EQ(Session::present(), session.get());
}
