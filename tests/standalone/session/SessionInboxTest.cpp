#include "standalone/session/SessionInbox.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <thread>
#include <vector>

using namespace kuStandalone;
using std::chrono::milliseconds;

namespace {

SessionDelivery message(unsigned subscription, std::uint64_t sequence, int bytes = 1) {
  SessionDelivery delivery;
  delivery.subscription = subscription;
  delivery.sequence = sequence;
  delivery.bytes = QByteArray(bytes, 'x');
  return delivery;
}

SessionDelivery news(SessionDelivery::Kind kind) {
  SessionDelivery delivery;
  delivery.kind = kind;
  return delivery;
}

std::vector<std::uint64_t> sequencesIn(SessionInbox& inbox) {
  std::vector<std::uint64_t> sequences;
  while (const std::optional<SessionDelivery> first = inbox.firstMessage()) {
    sequences.push_back(first->sequence);
    inbox.dropFirstMessage();
  }
  return sequences;
}

}  // namespace

TEST(SessionInboxTest, MessagesKeepTheirOrderAndNewsGoBeforeThem) {
  SessionInbox inbox({});
  inbox.put(message(1, 1));
  inbox.put(news(SessionDelivery::Kind::Lost));
  inbox.put(message(1, 2));
  ASSERT_EQ(inbox.takeNews().size(), 1u);
  EXPECT_EQ(inbox.takeNews().size(), 0u);
  EXPECT_EQ(sequencesIn(inbox), (std::vector<std::uint64_t>{1, 2}));
}

TEST(SessionInboxTest, AFullOneDropsAllThatIsLeftOfTheSubscription) {
  SessionInbox inbox({}, 2);
  for (std::uint64_t sequence = 1; sequence <= 3; ++sequence)
    inbox.put(message(1, sequence));
  EXPECT_TRUE(inbox.hasOverflown(1));
  inbox.dropFirstMessage();
  inbox.put(message(1, 4));
  inbox.put(message(2, 3));
  EXPECT_FALSE(inbox.hasOverflown(2));
  EXPECT_EQ(sequencesIn(inbox), (std::vector<std::uint64_t>{2, 3}));
}

TEST(SessionInboxTest, WhatStillComesOfAnEarlierSubscriptionHidesNotThatALaterOneHasOverflown) {
  SessionInbox inbox({}, 2);
  for (std::uint64_t sequence = 1; sequence <= 3; ++sequence)
    inbox.put(message(1, sequence));
  EXPECT_EQ(sequencesIn(inbox), (std::vector<std::uint64_t>{1, 2}));
  for (std::uint64_t sequence = 3; sequence <= 5; ++sequence)
    inbox.put(message(2, sequence));
  inbox.put(message(1, 6));
  EXPECT_TRUE(inbox.hasOverflown(2));
  EXPECT_EQ(sequencesIn(inbox), (std::vector<std::uint64_t>{3, 4}));
  inbox.put(message(2, 6));
  EXPECT_EQ(sequencesIn(inbox), std::vector<std::uint64_t>());
}

TEST(SessionInboxTest, BytesCountToo) {
  SessionInbox inbox({});
  const int megabytes = 64 << 20;
  for (std::uint64_t sequence = 1; sequence <= 5; ++sequence)
    inbox.put(message(1, sequence, megabytes));
  EXPECT_EQ(sequencesIn(inbox), (std::vector<std::uint64_t>{1, 2, 3, 4}));
  inbox.put(message(2, 6, megabytes));
  EXPECT_EQ(sequencesIn(inbox), std::vector<std::uint64_t>{6});
}

TEST(SessionInboxTest, SignsOfLifeAreBoundedAndNothingElseIsLost) {
  SessionInbox inbox({});
  for (int count = 0; count < 30'000; ++count)
    inbox.put(news(SessionDelivery::Kind::Presence));
  inbox.put(news(SessionDelivery::Kind::Lost));
  EXPECT_EQ(inbox.takeNews(30'000).size(), 20'001u);
}

TEST(SessionInboxTest, NoMoreNewsAreTakenInOneGoThanAreAskedFor) {
  SessionInbox inbox({});
  inbox.put(news(SessionDelivery::Kind::Lost));
  inbox.put(news(SessionDelivery::Kind::Back));
  ASSERT_EQ(inbox.takeNews(1).size(), 1u);
  EXPECT_TRUE(inbox.hasNews());
  EXPECT_EQ(inbox.takeNews(1).front().kind, SessionDelivery::Kind::Back);
  EXPECT_FALSE(inbox.hasNews());
}

TEST(SessionInboxTest, WakesOnceForAllThatHasCome) {
  int woken = 0;
  SessionInbox inbox([&] { ++woken; });
  inbox.put(message(1, 1));
  inbox.put(message(1, 2));
  QCoreApplication::processEvents();
  EXPECT_EQ(woken, 1);
  inbox.put(message(1, 3));
  QCoreApplication::processEvents();
  EXPECT_EQ(woken, 2);
  inbox.put(message(1, 4));
  inbox.silence();
  QCoreApplication::processEvents();
  EXPECT_EQ(woken, 2);
}

TEST(SessionInboxTest, ASilentOneTakesNothingButTheEnd) {
  SessionInbox inbox({});
  inbox.put(message(1, 1));
  inbox.silence();
  inbox.put(message(1, 2));
  inbox.put(news(SessionDelivery::Kind::Lost));
  EXPECT_FALSE(inbox.firstMessage());
  EXPECT_TRUE(inbox.takeNews().empty());
  EXPECT_FALSE(inbox.waitForClosed(milliseconds(1)));
  inbox.put(news(SessionDelivery::Kind::Closed));
  EXPECT_TRUE(inbox.waitForClosed(milliseconds(1)));
}

TEST(SessionInboxTest, WaitsForWhatAnotherThreadPuts) {
  SessionInbox inbox({});
  EXPECT_FALSE(inbox.waitForMore(milliseconds(1)));
  std::thread other([&] {
    inbox.put(message(1, 1));
    inbox.put(news(SessionDelivery::Kind::Closed));
  });
  EXPECT_TRUE(inbox.waitForMore(milliseconds(10'000)));
  EXPECT_TRUE(inbox.waitForClosed(milliseconds(10'000)));
  other.join();
}

TEST(SessionInboxTest, ManyThreadsPutAndNothingIsLost) {
  constexpr std::uint64_t kEach = 2000;
  SessionInbox inbox({});
  std::vector<std::thread> threads;
  for (unsigned subscription = 1; subscription <= 4; ++subscription) {
    threads.emplace_back([&inbox, subscription] {
      for (std::uint64_t sequence = 1; sequence <= kEach; ++sequence)
        inbox.put(message(subscription, sequence));
    });
  }
  std::vector<std::uint64_t> last(5, 0);
  for (std::uint64_t taken = 0; taken < 4 * kEach && inbox.waitForMore(milliseconds(10'000));) {
    const std::optional<SessionDelivery> first = inbox.firstMessage();
    if (!first) continue;
    inbox.dropFirstMessage();
    EXPECT_EQ(first->sequence, ++last[first->subscription]);
    ++taken;
  }
  for (std::thread& thread : threads)
    thread.join();
  EXPECT_EQ(last, (std::vector<std::uint64_t>{0, kEach, kEach, kEach, kEach}));
}
