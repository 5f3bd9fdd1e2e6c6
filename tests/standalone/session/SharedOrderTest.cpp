#include "SessionTest.h"

using ::testing::ElementsAre;

TEST_F(SessionTest, ACommandHasRunHereWhenThePushReturns) {
  join();
  push("A", "1");
  EXPECT_EQ(sessionNotes(), QStringList{"A=1"});
  EXPECT_EQ(events, (QStringList{"joined", "ran Note own"}));
}

TEST_F(SessionTest, PartnersRunACommandToo) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  push("A", "1");
  EXPECT_EQ(ben.notes(1), QStringList{"A=1"});
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
