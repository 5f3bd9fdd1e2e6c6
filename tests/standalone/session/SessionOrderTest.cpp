#include <gtest/gtest.h>

#include "standalone/session/SessionOrder.h"

using namespace kuStandalone;

TEST(SessionOrderTest, AnIdIsTheFirstOnce) {
  SessionOrder order;
  const QUuid id = QUuid::createUuid();
  EXPECT_TRUE(order.isFirst(id));
  EXPECT_FALSE(order.isFirst(id));
  EXPECT_TRUE(order.isFirst(QUuid::createUuid()));
}

TEST(SessionOrderTest, TheLastHundredThousandIdsAreRemembered) {
  SessionOrder order;
  const QUuid first = QUuid::createUuid();
  order.isFirst(first);
  for (int count = 1; count < 100'000; ++count)
    order.isFirst(QUuid::createUuid());
  EXPECT_FALSE(order.isFirst(first));
  order.isFirst(QUuid::createUuid());
  EXPECT_TRUE(order.isFirst(first));
}

TEST(SessionOrderTest, WhatWasKeptIsSentInItsOrder) {
  SessionOrder order;
  const QUuid one = QUuid::createUuid(), two = QUuid::createUuid();
  order.keep(one, "s", "1", false);
  order.keep(two, "s", "2", false);
  EXPECT_EQ(order.unsent(), 2u);
  ASSERT_TRUE(order.firstUnsent());
  EXPECT_EQ(order.firstUnsent()->bytes, "1");
  order.firstUnsent()->isSent = true;
  EXPECT_EQ(order.firstUnsent()->bytes, "2");
  order.drop(two);
  EXPECT_EQ(order.firstUnsent(), nullptr);
  EXPECT_EQ(order.unsent(), 0u);
}

TEST(SessionOrderTest, WithNothingInBetweenWhatRanAloneDoesNotRunAgain) {
  SessionOrder order;
  const QUuid one = QUuid::createUuid(), two = QUuid::createUuid();
  order.partnerRan();
  order.keep(one, "s", "1", true);
  order.keep(two, "s", "2", true);
  EXPECT_EQ(order.runsAgain(one), false);
  EXPECT_EQ(order.runsAgain(two), false);
}

TEST(SessionOrderTest, WhatRanAloneRunsAgainOnceWhereAPartnerCameBehindIt) {
  SessionOrder order;
  const QUuid one = QUuid::createUuid();
  order.keep(one, "s", "1", true);
  order.partnerRan();
  EXPECT_EQ(order.runsAgain(one), true);
  EXPECT_EQ(order.runsAgain(one), std::nullopt);
}

// The broker's order is partner, one, two. Without this it would be partner, two, one here.
TEST(SessionOrderTest, WhatRunsAgainMakesAllBehindItRunAgain) {
  SessionOrder order;
  const QUuid one = QUuid::createUuid(), two = QUuid::createUuid();
  order.keep(one, "s", "1", true);
  order.partnerRan();
  order.keep(two, "s", "2", true);
  EXPECT_EQ(order.runsAgain(one), true);
  EXPECT_EQ(order.runsAgain(two), true);
}

TEST(SessionOrderTest, WhatDidNotRunAloneIsNotAmongIt) {
  SessionOrder order;
  EXPECT_EQ(order.runsAgain(QUuid::createUuid()), std::nullopt);
}

TEST(SessionOrderTest, NoMoreIsKeptThanCanBe) {
  SessionOrder order;
  for (int count = 0; count < 10'000; ++count)
    ASSERT_TRUE(order.keep(QUuid::createUuid(), "s", "x", false));
  EXPECT_FALSE(order.keep(QUuid::createUuid(), "s", "x", false));
  EXPECT_EQ(order.unsent(), 10'000u);
}

TEST(SessionOrderTest, NoMoreBytesAreKeptThanCanBe) {
  SessionOrder order;
  const QByteArray megabyte(1 << 20, 'x');
  QUuid id;
  for (int count = 0; count < 64; ++count)
    ASSERT_TRUE(order.keep(id = QUuid::createUuid(), "s", megabyte, false));
  EXPECT_FALSE(order.keep(QUuid::createUuid(), "s", "x", false));
  order.drop(id);
  EXPECT_TRUE(order.keep(QUuid::createUuid(), "s", "x", false));
}
