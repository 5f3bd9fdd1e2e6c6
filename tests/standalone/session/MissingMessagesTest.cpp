// What does not arrive at first is fetched, so that nobody who is connected misses a command.

#include <QDir>

#include "SessionTest.h"
#include "standalone/kernel/HostState.h"
#include "support/BrokerAdministrator.h"

using kuStandalone::HostState;
using kuStandalone::Session;
using kuStandalone::SessionOptions;

namespace {

int threads() { return QDir("/proc/self/task").entryList(QDir::Dirs).size(); }

class MissingMessagesTest : public SessionTest {
 protected:
  /** Joins with room for a few messages while the application is busy. */
  void joinWithLittleRoom() {
    SessionOptions little = options();
    little.mostWaiting = 20;
    join(little);
  }

  /** Lets Ben push so many notes while this one is busy. */
  static void pushWhileBusy(PartnerProcess& ben, int count) {
    HostState::the().busy = true;
    for (int number = 1; number <= count; ++number)
      ben.send(QStringLiteral("push A %1").arg(number));
    ben.notes(count);
    HostState::the().busy = false;
  }

  static QStringList numbered(int from, int to) {
    QStringList notes;
    for (int number = from; number <= to; ++number)
      notes << QStringLiteral("A=%1").arg(number);
    return notes;
  }

  const QByteArray stream = kuStandalone::SessionSubject("review").stream();
};

}  // namespace

TEST_F(MissingMessagesTest, WhatDoesNotFindRoomIsFetchedAlsoAfterTheBrokerWasAway) {
  joinWithLittleRoom();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  broker.restart();
  waitFor("back");
  ben.waitFor("back");
  pushWhileBusy(ben, 60);
  EXPECT_EQ(notes(60), numbered(1, 60));
}

TEST_F(MissingMessagesTest, APushFetchesWhatDidNotFindRoomAndComesBehindIt) {
  joinWithLittleRoom();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  pushWhileBusy(ben, 60);
  push("A", "61");
  EXPECT_EQ(sessionNotes(), numbered(1, 61));
  EXPECT_EQ(events.count("lost"), 0);
}

TEST_F(MissingMessagesTest, WhoStandsStillForLongerThanTheStreamKeepsJoinsAnew) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  push("A", "first");
  ben.notes(1);
  ben.pause();
  // More than the broker keeps for somebody who does not read.
  const QString big(20'000, 'x');
  for (int number = 0; number < 4000; ++number)
    push("A", big);
  push("A", "last");
  ben.resume();
  ben.waitFor("joined", 2);
  EXPECT_EQ(ben.notes().last(), "A=last (joining)");
}

TEST_F(MissingMessagesTest, WhoOnlyListensJoinsAStreamThatWasMadeAnewAfterAWhile) {
  join();
  push("A", "1");
  BrokerAdministrator(broker.url()).removeStream(stream);
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  ben.tell("push A 2");
  ben.tell("push B 3");
  EXPECT_EQ(notes(3), (QStringList{"A=1", "A=2 (joining)", "B=3 (joining)"}));
  EXPECT_TRUE(waitFor("joined", 2));
}

TEST_F(MissingMessagesTest, NothingIsLeftOfASubscriptionThatAnotherFollowed) {
  join();
  const int before = threads();
  for (int round = 1; round <= 5; ++round) {
    broker.restart();
    waitFor("back", round);
    push("A", QString::number(round));
  }
  waitUntil([&] { return threads() <= before; });
  BrokerAdministrator administrator(broker.url());
  waitUntil([&] { return administrator.consumers(stream) == 1; });
  EXPECT_EQ(sessionNotes(), numbered(1, 5));
}
