// What somebody may do at the broker, and a broker that refuses somebody for a while.

#include "SessionTest.h"

using kuStandalone::Session;
using kuStandalone::SessionOptions;

namespace {

const char* const readers =
    R"(authorization { users: [ { user: team, password: "p" },
      { user: reader, password: "p", permissions: { publish: { deny: "ku.*.stream.>" } } } ] })";

class RightsTest : public SessionTest {
 protected:
  void joinAs(const QString& user) {
    SessionOptions given = options();
    given.user = user;
    given.password = "p";
    join(given);
  }
};

}  // namespace

TEST_F(RightsTest, WhoMayNotSendIsToldAndWorksOnHere) {
  broker.restart(readers);
  joinAs("reader");
  push("A", "1");
  push("A", "2");
  let(500);
  EXPECT_EQ(sessionNotes(), (QStringList{"A=1", "A=2"}));
  EXPECT_EQ(log.filter("the broker refuses ku.review.stream.command.Note").size(), 2);
  EXPECT_EQ(events.count("lost"), 0);
  EXPECT_EQ(session->status(), Session::Status::Joined);
  EXPECT_EQ(session->unsent(), 0u);
}

TEST_F(RightsTest, ABrokerThatRefusesThePasswordForAWhileIsAskedAgain) {
  broker.restart("authorization { user: team, password: p }");
  joinAs("team");
  broker.restart("authorization { user: team, password: other }");
  waitUntil(
      [this] { return !log.filter("refuses the connection now; it is asked again").empty(); });
  push("A", "1");
  broker.restart("authorization { user: team, password: p }");
  waitFor("back");
  EXPECT_EQ(session->status(), Session::Status::Joined);
  EXPECT_EQ(session->unsent(), 0u);
}

TEST_F(RightsTest, ABrokerWithLittleRoomHasSeveralSessions) {
  broker.kill();
  const NatsBroker small("jetstream { max_file_store: 300MB }\n", false);
  PartnerProcess ben(small.url(), "review", "Ben");
  PartnerProcess cleo(small.url(), "other", "Cleo");
  EXPECT_TRUE(ben.waitFor("joined"));
  EXPECT_TRUE(cleo.waitFor("joined"));
}
