// The broker is lost and comes back, or a partner is away for a while.

#include <QDir>
#include <QElapsedTimer>
#include <QThread>

#include "SessionTest.h"

using kuStandalone::Session;

namespace {

class BrokerLossTest : public SessionTest {
 protected:
  /** The partner stands still and loses the broker, which is back for all others. */
  void part(PartnerProcess& partner) {
    partner.pause();
    broker.restart();
    waitFor("back");
  }
};

}  // namespace

TEST_F(BrokerLossTest, WhoLosesTheBrokerIsToldAndWorksOn) {
  join();
  broker.kill();
  waitFor("lost");
  EXPECT_EQ(session->status(), Session::Status::Alone);
  EXPECT_TRUE(kuSession::the().isReadyToUse());
  push("A", "1");
  EXPECT_EQ(sessionNotes(), QStringList{"A=1"});
  EXPECT_EQ(events, (QStringList{"joined", "lost", "ran Note own alone"}));
  EXPECT_EQ(session->unsent(), 1u);
  ASSERT_EQ(log.size(), 1);
  EXPECT_TRUE(log.front().contains("is lost (the connection broke)")) << log.front().toStdString();
}

TEST_F(BrokerLossTest, APushThatFindsTheBrokerLostTellsSoAndRunsAtOnce) {
  join();
  broker.kill();
  QThread::msleep(300);
  push("A", "1");
  EXPECT_EQ(session->status(), Session::Status::Alone);
  EXPECT_EQ(events, (QStringList{"joined", "lost", "ran Note own alone"}));
  ASSERT_EQ(log.size(), 1);
  EXPECT_TRUE(log.front().contains("is lost (it takes nothing)")) << log.front().toStdString();
}

TEST_F(BrokerLossTest, WhatWasDoneAloneGoesToThePartnersWhenTheBrokerIsBack) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  push("A", "1");
  broker.kill();
  waitFor("lost");
  push("A", "2");
  push("A", "3");
  broker.restart();
  waitFor("back");
  EXPECT_EQ(session->unsent(), 0u);
  push("A", "4");
  EXPECT_EQ(ben.notes(4), (QStringList{"A=1", "A=2", "A=3", "A=4"}));
  // Nothing came between: what ran here alone stands.
  EXPECT_EQ(sessionNotes(), (QStringList{"A=1", "A=2", "A=3", "A=4"}));
}

TEST_F(BrokerLossTest, TheBrokerIsBackWhenAllThatWasKeptHasGoneOut) {
  join();
  broker.kill();
  waitFor("lost");
  for (int number = 1; number <= 120; ++number)
    push("A", QString::number(number));
  EXPECT_EQ(session->unsent(), 120u);
  broker.restart();
  waitFor("back");
  EXPECT_EQ(session->unsent(), 0u);
}

TEST_F(BrokerLossTest, WhatWasMissedRunsFirstAndWhatWasDoneAloneRunsAgainBehindIt) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  broker.kill();
  waitFor("lost");
  ben.waitFor("lost");
  push("A", "mine");
  ben.tell("push A bens");
  broker.restart();
  ben.waitAlone("back");
  EXPECT_EQ(sessionNotes(), QStringList{"A=mine"});
  waitFor("back");
  EXPECT_EQ(notes(3), (QStringList{"A=mine", "A=bens", "A=mine"}));
  EXPECT_EQ(ben.notes(2), (QStringList{"A=bens", "A=mine"}));
}

TEST_F(BrokerLossTest, AllEndAlikeWhoeverComesBackFirst) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben"), cleo(broker.url(), "review", "Cleo");
  ben.waitFor("joined");
  cleo.waitFor("joined");
  for (int round = 1; round <= 3; ++round) {
    broker.kill();
    waitFor("lost", round);
    ben.waitFor("lost", round);
    cleo.waitFor("lost", round);
    push("A", QStringLiteral("ada%1").arg(round));
    ben.tell(QStringLiteral("push A ben%1").arg(round));
    cleo.tell(QStringLiteral("push A cleo%1").arg(round));
    broker.restart();
    waitFor("back", round);
    ben.waitFor("back", round);
    cleo.waitFor("back", round);
    push("B", QString::number(round));
    const QString end = QStringLiteral("B=%1").arg(round);
    QStringList bens, cleos;
    waitUntil([&] { return (bens = ben.notes()).contains(end); });
    waitUntil([&] { return (cleos = cleo.notes()).contains(end); });
    ASSERT_GE(bens.size(), 2);
    EXPECT_EQ(bens[bens.size() - 2], sessionNotes()[sessionNotes().size() - 2]);
    EXPECT_EQ(cleos[cleos.size() - 2], sessionNotes()[sessionNotes().size() - 2]);
  }
}

TEST_F(BrokerLossTest, AStoreThatWasWipedIsJoinedAnew) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  push("A", "1");
  ben.notes(1);
  broker.kill();
  waitFor("lost");
  push("A", "2");
  broker.wipe();
  broker.restart();
  waitFor("back");
  ben.waitFor("back");
  push("A", "3");
  EXPECT_EQ(events.count("joined"), 2);
  EXPECT_EQ(ben.printed().count("joined"), 2);
  EXPECT_EQ(sessionNotes(), (QStringList{"A=1", "A=2", "A=3"}));
  const QStringList bens = ben.notes(3);
  EXPECT_EQ(bens.size(), 3);
  EXPECT_EQ(bens.last(), "A=3");
  EXPECT_EQ(bens.filter("A=2").size(), 1);
}

TEST_F(BrokerLossTest, AStoreThatWasWipedIsJoinedAnewAlsoWhereItHoldsMoreThanTheOneBefore) {
  join();
  push("A", "1");
  broker.kill();
  waitFor("lost");
  broker.wipe();
  broker.restart();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitAlone("joined");
  for (const char* line : {"push B 1", "push C 1", "push C 2"})
    ben.send(line);
  ben.waitAlone("ran Note own", 3);
  waitFor("back");
  EXPECT_EQ(notes(3), (QStringList{"A=1", "B=1 (joining)", "C=2 (joining)"}));
  EXPECT_EQ(events.count("joined"), 2);
}

TEST_F(BrokerLossTest, AStoreThatWasPutBackToAnEarlierTimeIsJoinedAnew) {
  join();
  push("A", "1");
  broker.kill();
  waitFor("lost");
  broker.keepStore();
  broker.restart();
  waitFor("back");
  push("A", "2");
  push("A", "3");
  broker.kill();
  waitFor("lost", 2);
  broker.putStoreBack();
  broker.restart();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitAlone("joined");
  ben.send("push B 1");
  ben.waitAlone("ran Note own");
  waitFor("back", 2);
  push("A", "4");
  EXPECT_EQ(sessionNotes(), (QStringList{"A=1", "A=2", "A=3", "B=1 (joining)", "A=4"}));
  EXPECT_EQ(ben.notes(3), (QStringList{"A=1 (joining)", "B=1", "A=4"}));
}

TEST_F(BrokerLossTest, WhoWasAwayRunsAllThatWasMissedInItsOrder) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  push("A", "0");
  ben.notes(1);
  part(ben);
  QStringList expected{"A=0"};
  for (int number = 1; number <= 50; ++number) {
    push("A", QString::number(number));
    expected << QStringLiteral("A=%1").arg(number);
  }
  ben.resume();
  ben.waitFor("back");
  EXPECT_EQ(ben.notes(51), expected);
}

TEST_F(BrokerLossTest, WhoWasAwayLongerThanTheStreamKeepsJoinsAnew) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  push("A", "0");
  push("B", "0");
  ben.notes(2);
  part(ben);
  for (int number = 1; number <= 1100; ++number)
    push("A", QString::number(number));
  ben.resume();
  ben.waitFor("back");
  push("A", "last");
  // B's last has run before; of A the last one is enough.
  EXPECT_EQ(ben.notes(4), (QStringList{"A=0", "B=0", "A=1100 (joining)", "A=last"}));
  EXPECT_EQ(ben.printed().count("joined"), 2);
}

TEST_F(BrokerLossTest, ACommandWhoseAcknowledgementIsLostRunsOnce) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  broker.pause();
  push("A", "1");
  EXPECT_EQ(sessionNotes(), QStringList{"A=1"});
  EXPECT_EQ(events.filter("Note"), QStringList{"ran Note own alone"});
  broker.resume();
  waitFor("back");
  push("A", "2");
  EXPECT_EQ(ben.notes(2), (QStringList{"A=1", "A=2"}));
  let(300);
  EXPECT_EQ(ben.notes(), (QStringList{"A=1", "A=2"}));
  EXPECT_EQ(sessionNotes(), (QStringList{"A=1", "A=2"}));
}

TEST_F(BrokerLossTest, WhoOnlyListensIsToldOfABrokerThatStandsStill) {
  join();
  broker.pause();
  waitFor("lost");
  broker.resume();
  waitFor("back");
}

TEST_F(BrokerLossTest, APushWaitsNoLongerThanTheOptionsSay) {
  join();
  broker.pause();
  QElapsedTimer time;
  time.start();
  push("A", "1");
  push("A", "2");
  EXPECT_LT(time.elapsed(), 4000);
  EXPECT_EQ(sessionNotes(), (QStringList{"A=1", "A=2"}));
  broker.resume();
  waitFor("back");
  EXPECT_EQ(session->unsent(), 0u);
}

TEST_F(BrokerLossTest, TheApplicationDoesNotStandStillWithTheBroker) {
  join();
  broker.pause();
  push("A", "1");
  ASSERT_EQ(session->status(), Session::Status::Alone);
  qint64 longest = 0;
  QElapsedTimer time, turn;
  for (time.start(); time.elapsed() < 1500;) {
    turn.start();
    let(5);
    longest = std::max(longest, turn.elapsed());
  }
  EXPECT_LT(longest, 700);
  broker.resume();
  waitFor("back");
}

TEST_F(BrokerLossTest, ASessionWithoutABrokerEndsInTime) {
  join();
  broker.kill();
  QElapsedTimer time;
  time.start();
  leave();
  EXPECT_LT(time.elapsed(), 4000);
}

TEST_F(BrokerLossTest, ASessionWhoseBrokerStandsStillEndsInTime) {
  join();
  broker.pause();
  QElapsedTimer time;
  time.start();
  leave();
  EXPECT_LT(time.elapsed(), 6000);
}

TEST_F(BrokerLossTest, NoThreadIsLeftBehind) {
  join();
  leave();
  const auto threads = [] { return QDir("/proc/self/task").entryList(QDir::Dirs).size(); };
  const int before = threads();
  for (int round = 0; round < 5; ++round) {
    join();
    push("A", "1");
    leave();
  }
  waitUntil([&] { return threads() <= before; });
}
