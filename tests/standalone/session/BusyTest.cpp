// The end of a busy time. Nobody here gives signs of life, so that nothing else wakes the session.

#include "SessionTest.h"
#include "standalone/kernel/HostState.h"
#include "standalone/session/SessionSubject.h"
#include "support/Stranger.h"

using kuStandalone::HostState;

namespace {

constexpr int kSoon = 5000;

class BusyTest : public SessionTest {
 protected:
  void SetUp() override {
    kuStandalone::SessionOptions silent = options();
    silent.heartbeat = std::chrono::milliseconds(60'000);
    join(silent);
    let(100);
    HostState::the().busy = true;
  }

  const kuStandalone::SessionSubject subject{"review"};
};

}  // namespace

TEST_F(BusyTest, WhatWaitedRunsSoonAfterwards) {
  Stranger stranger(broker.url());
  stranger.send(subject.command("Note", "A"), note("A", "1"));
  let(200);
  EXPECT_EQ(sessionNotes(), QStringList());
  HostState::the().busy = false;
  waitUntil([] { return sessionNotes() == QStringList{"A=1"}; }, kSoon);
}

TEST_F(BusyTest, WhatWasPushedIsSentSoonAfterwards) {
  push("A", "1");
  HostState::the().busy = false;
  waitUntil([this] { return session->unsent() == 0; }, kSoon);
}

TEST_F(BusyTest, AllThatWasPushedIsSentSoonAfterwardsHoweverLongItTook) {
  for (int number = 1; number <= 120; ++number)
    push("A", QString::number(number));
  let(200);
  EXPECT_EQ(session->unsent(), 120u);
  HostState::the().busy = false;
  waitUntil([this] { return session->unsent() == 0; }, kSoon);
}

TEST_F(BusyTest, WhatIsPushedRightAfterwardsComesBehindWhatWasPushedMeanwhile) {
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  push("A", "1");
  HostState::the().busy = false;
  push("A", "2");
  EXPECT_EQ(ben.notes(2), (QStringList{"A=1", "A=2"}));
  EXPECT_EQ(sessionNotes(), (QStringList{"A=1", "A=2"}));
}
