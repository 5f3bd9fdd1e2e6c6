// The broker forgets to whom it delivers, or what; the connection stands.

#include "SessionTest.h"
#include "standalone/session/SessionSubject.h"
#include "support/BrokerAdministrator.h"

namespace {

class LostConsumerTest : public SessionTest {
 protected:
  int removeConsumers() {
    return BrokerAdministrator(broker.url())
        .removeConsumers(kuStandalone::SessionSubject("review").stream());
  }
};

}  // namespace

TEST_F(LostConsumerTest, WhoOnlyListensHearsOfAllAgainAfterAWhile) {
  join();
  push("A", "1");
  ASSERT_EQ(removeConsumers(), 1);
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  ben.tell("push A 2");
  ben.tell("push A 3");
  EXPECT_EQ(notes(3), (QStringList{"A=1", "A=2", "A=3"}));
}

TEST_F(LostConsumerTest, WhoJoinsDoesNotWaitForALastMessageThatWasRemoved) {
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  ben.tell("push A 1");
  ben.tell("push B 1");
  BrokerAdministrator(broker.url())
      .removeMessage(kuStandalone::SessionSubject("review").stream(), 2);
  join();
  EXPECT_EQ(sessionNotes(), QStringList{"A=1 (joining)"});
  EXPECT_TRUE(session->isJoinCompleted());
}

TEST_F(LostConsumerTest, WhatIsPushedRunsOnceEverywhere) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  ASSERT_EQ(removeConsumers(), 2);
  push("A", "1");
  push("A", "2");
  EXPECT_EQ(ben.notes(2), (QStringList{"A=1", "A=2"}));
  EXPECT_EQ(sessionNotes(), (QStringList{"A=1", "A=2"}));
}
