// The broker stores a session in a stream that takes less than the session would send.

#include "SessionTest.h"
#include "standalone/kernel/HostState.h"
#include "support/BrokerAdministrator.h"

using kuStandalone::HostState;
using kuStandalone::Session;

namespace {

class RefusalTest : public SessionTest {
 protected:
  void SetUp() override {
    BrokerAdministrator(broker.url()).makeStream(kuStandalone::SessionSubject("review"), 2000);
    join();
  }
  const QString tooLong = QString(3000, 'x');
};

}  // namespace

TEST_F(RefusalTest, WhatTheBrokerRefusesRunsHereOnly) {
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  push("A", tooLong);
  EXPECT_EQ(sessionNotes(), QStringList{"A=" + tooLong});
  EXPECT_EQ(log.filter("the broker refuses").size(), 1);
  push("A", "2");
  EXPECT_EQ(ben.notes(1), QStringList{"A=2"});
  EXPECT_EQ(session->unsent(), 0u);
  EXPECT_EQ(session->status(), Session::Status::Joined);
}

TEST_F(RefusalTest, WhatTheBrokerRefusesAfterABusyTimeHoldsNothingUp) {
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  HostState::the().busy = true;
  push("A", tooLong);
  push("A", "2");
  HostState::the().busy = false;
  waitUntil([this] { return session->unsent() == 0; });
  EXPECT_EQ(ben.notes(1), QStringList{"A=2"});
  EXPECT_EQ(session->status(), Session::Status::Joined);
}
