// The broker forgets to whom it delivers, or what; the connection stands.

#include <QThread>
#include <thread>

#include "SessionTest.h"
#include "standalone/session/SessionSubject.h"
#include "support/BrokerAdministrator.h"
#include "support/Stranger.h"

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

// Otherwise who comes late would see the older one as the last.
TEST_F(LostConsumerTest, WhatIsSentOnceMoreStandsInTheStreamInItsFirstPlaceOnly) {
  // The client notices within a second or two that nothing is delivered.
  kuStandalone::SessionOptions impatient = options();
  impatient.acknowledgeTimeout = std::chrono::milliseconds(400);
  join(impatient);
  ASSERT_EQ(removeConsumers(), 1);
  const QByteArray subject =
      kuStandalone::SessionSubject("review").command("Note", streamOf(QString("A")));
  std::thread other([&] {
    QThread::msleep(150);
    Stranger(broker.url()).send(subject, note("A", "2"));
  });
  push("A", "1");
  other.join();
  EXPECT_EQ(notes(2), (QStringList{"A=1", "A=2"}));
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  EXPECT_EQ(ben.notes(1), QStringList{"A=2 (joining)"});
}
