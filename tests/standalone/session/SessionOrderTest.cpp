#include <gtest/gtest.h>

#include "standalone/session/SessionOrder.h"

using namespace kuStandalone;

namespace {

bool keep(SessionOrder& order, const QUuid& id, const QByteArray& bytes, bool isSent) {
  return order.keep({id, "s", bytes, nullptr, isSent});
}

/** Whether one of our own runs again; none if it is not among what was kept. */
std::optional<bool> runsAgain(SessionOrder& order, const QUuid& id) {
  const std::optional<SessionOrder::Own> own = order.takeOwn(id);
  return own ? std::make_optional(own->runsAgain) : std::nullopt;
}

}  // namespace

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
  keep(order, one, "1", false);
  keep(order, two, "2", false);
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
  order.hasRun();
  keep(order, one, "1", true);
  keep(order, two, "2", true);
  EXPECT_EQ(runsAgain(order, one), false);
  EXPECT_EQ(runsAgain(order, two), false);
}

TEST(SessionOrderTest, WhatRanAloneRunsAgainOnceWhereAPartnerCameBehindIt) {
  SessionOrder order;
  const QUuid one = QUuid::createUuid();
  keep(order, one, "1", true);
  order.hasRun();
  EXPECT_EQ(runsAgain(order, one), true);
  EXPECT_EQ(runsAgain(order, one), std::nullopt);
}

// The broker's order is partner, one, two. Without this it would be partner, two, one here.
TEST(SessionOrderTest, WhatRunsAgainMakesAllBehindItRunAgain) {
  SessionOrder order;
  const QUuid one = QUuid::createUuid(), two = QUuid::createUuid();
  keep(order, one, "1", true);
  order.hasRun();
  keep(order, two, "2", true);
  EXPECT_EQ(runsAgain(order, one), true);
  EXPECT_EQ(runsAgain(order, two), true);
}

// One ran first here, and two has its place first: without this it would be two, one elsewhere and
// one, two here.
TEST(SessionOrderTest, WhatComesOutOfTurnMakesTheOthersRunAgain) {
  SessionOrder order;
  const QUuid one = QUuid::createUuid(), two = QUuid::createUuid();
  keep(order, one, "1", false);
  keep(order, two, "2", true);
  EXPECT_EQ(runsAgain(order, two), false);
  EXPECT_EQ(runsAgain(order, one), true);
}

TEST(SessionOrderTest, WhatTheBrokerHasIsForgottenWithoutWhatItDoesNotHave) {
  SessionOrder order;
  const QUuid one = QUuid::createUuid(), two = QUuid::createUuid();
  keep(order, one, "1", true);
  keep(order, two, "2", false);
  order.forgetSent();
  EXPECT_EQ(runsAgain(order, one), std::nullopt);
  EXPECT_EQ(runsAgain(order, two), false);
}

TEST(SessionOrderTest, WhatDidNotRunAloneIsNotAmongIt) {
  SessionOrder order;
  EXPECT_EQ(runsAgain(order, QUuid::createUuid()), std::nullopt);
}

TEST(SessionOrderTest, NoMoreIsKeptThanCanBe) {
  SessionOrder order;
  for (int count = 0; count < 10'000; ++count)
    ASSERT_TRUE(keep(order, QUuid::createUuid(), "x", false));
  EXPECT_FALSE(keep(order, QUuid::createUuid(), "x", false));
  EXPECT_EQ(order.unsent(), 10'000u);
}

TEST(SessionOrderTest, NoMoreBytesAreKeptThanCanBe) {
  SessionOrder order;
  const QByteArray megabyte(1 << 20, 'x');
  QUuid id;
  for (int count = 0; count < 64; ++count)
    ASSERT_TRUE(keep(order, id = QUuid::createUuid(), megabyte, false));
  EXPECT_FALSE(keep(order, QUuid::createUuid(), "x", false));
  order.drop(id);
  EXPECT_TRUE(keep(order, QUuid::createUuid(), "x", false));
}
