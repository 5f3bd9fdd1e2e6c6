#include "standalone/session/SessionPartners.h"

#include <gtest/gtest.h>

#include <QStringList>

using namespace kuStandalone;
using Kind = PresenceNote::Kind;
using std::chrono::milliseconds;

namespace {

class SessionPartnersTest : public ::testing::Test {
 protected:
  void hear(const SessionPartner& partner, Kind kind, unsigned interval = 1000) {
    partners.heard(partner, {kind, false, interval}, now);
  }
  QStringList names() const {
    QStringList result;
    for (const SessionPartner& partner : partners.list())
      result << partner.name;
    return result;
  }

  const SessionPartner ben{QUuid::createUuid(), "Ben", 1, false};
  const SessionPartner cleo{QUuid::createUuid(), "Cleo", 1, false};
  SessionPartners::Clock::time_point now = SessionPartners::Clock::now();
  QStringList told;
  SessionPartners partners{[this](SessionEvent::Kind kind, const SessionPartner& partner) {
    told << (kind == SessionEvent::Kind::PartnerCame ? "came " : "left ") + partner.name;
  }};
};

}  // namespace

TEST_F(SessionPartnersTest, APartnerComesOnceAndLeaves) {
  hear(cleo, Kind::Asks);
  hear(ben, Kind::Here);
  hear(ben, Kind::Here);
  EXPECT_EQ(names(), (QStringList{"Ben", "Cleo"}));
  hear(ben, Kind::Leaves);
  EXPECT_EQ(names(), QStringList{"Cleo"});
  EXPECT_EQ(told, (QStringList{"came Cleo", "came Ben", "left Ben"}));
}

TEST_F(SessionPartnersTest, WhoIsNotHeardForFiveOfItsOwnIntervalsHasLeft) {
  hear(ben, Kind::Here, 1000);
  hear(cleo, Kind::Here, 10'000);
  now += milliseconds(5000);
  partners.forgetSilent(now);
  EXPECT_EQ(told, (QStringList{"came Ben", "came Cleo"}));
  now += milliseconds(1);
  partners.forgetSilent(now);
  EXPECT_EQ(told, (QStringList{"came Ben", "came Cleo", "left Ben"}));
}

TEST_F(SessionPartnersTest, WhoLeavesUnknownIsNotTold) {
  hear(ben, Kind::Leaves);
  EXPECT_EQ(told, QStringList());
}

TEST_F(SessionPartnersTest, NoMorePartnersThanCanBe) {
  for (int count = 0; count < 6000; ++count)
    hear({QUuid::createUuid(), "x", 1, false}, Kind::Here);
  EXPECT_EQ(partners.count(), 5000u);
}

TEST_F(SessionPartnersTest, WhoIsKnownIsHeardAlsoWhereNoMoreCanBe) {
  hear(ben, Kind::Here);
  for (int count = 1; count < 5000; ++count)
    hear({QUuid::createUuid(), "x", 1, false}, Kind::Here, 60'000);
  now += milliseconds(4000);
  hear(ben, Kind::Here);
  now += milliseconds(4000);
  partners.forgetSilent(now);
  EXPECT_EQ(partners.count(), 5000u);
}

TEST_F(SessionPartnersTest, TwoOfOneNameAreTwo) {
  hear(ben, Kind::Here);
  hear({QUuid::createUuid(), "Ben", 1, false}, Kind::Here);
  EXPECT_EQ(names(), (QStringList{"Ben", "Ben"}));
}

TEST(PresenceNoteTest, IsReadAsItWasWritten) {
  PresenceNote note;
  ASSERT_TRUE(readNote(writeNote({Kind::Asks, true, 2500}), note));
  EXPECT_EQ(note.kind, Kind::Asks);
  EXPECT_TRUE(note.isJoining);
  EXPECT_EQ(note.interval, 2500u);
}

TEST(PresenceNoteTest, RubbishIsNone) {
  PresenceNote note;
  const QByteArray whole = writeNote({Kind::Here, false, 1000});
  for (int length = 0; length < whole.size(); ++length)
    EXPECT_FALSE(readNote(whole.left(length), note)) << length;
  EXPECT_FALSE(readNote(whole + 'x', note));
  EXPECT_FALSE(readNote('\0' + whole.mid(1), note));
  EXPECT_FALSE(readNote('\4' + whole.mid(1), note));
  EXPECT_FALSE(readNote(whole.left(1) + '\2' + whole.mid(2), note));
}

TEST(PresenceNoteTest, AnIntervalStaysWithinBounds) {
  PresenceNote note;
  ASSERT_TRUE(readNote(writeNote({Kind::Here, false, 0xffffffff}), note));
  EXPECT_EQ(note.interval, 60'000u);
  ASSERT_TRUE(readNote(writeNote({Kind::Here, false, 0}), note));
  EXPECT_EQ(note.interval, 50u);
}

TEST(PresenceNoteTest, SignsComeMoreSeldomAmongMany) {
  EXPECT_EQ(signInterval(milliseconds(1000), 0), milliseconds(1000));
  EXPECT_EQ(signInterval(milliseconds(1000), 99), milliseconds(1000));
  EXPECT_EQ(signInterval(milliseconds(1000), 1000), milliseconds(20'000));
  EXPECT_EQ(signInterval(milliseconds(1000), 5000), milliseconds(60'000));
}
