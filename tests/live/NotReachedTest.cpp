// Nobody waits for ever for a session that cannot be had.

#include <QElapsedTimer>

#include "LiveTest.h"

using ::testing::HasSubstr;
using ::testing::Not;

namespace {

/** Connecting may take three seconds, and the rest is the executable's start on a busy machine. */
constexpr int limit = 15'000;

class NotReached : public LiveTest {
 protected:
  /** Tries to join, and answers what it said; it has to end with the code soon. */
  std::string refusal(const QStringList& more = {}) {
    QElapsedTimer time;
    time.start();
    LivePartner& ada = start("Ada", more);
    EXPECT_EQ(ada.waitForEnd(), 6);
    EXPECT_LT(time.elapsed(), limit);
    EXPECT_TRUE(ada.events().empty());
    const std::string said = ada.diagnostics().toStdString();
    forget(ada);
    return said;
  }
};

}  // namespace

TEST_F(NotReached, WrongPasswordIsToldSoonAndIsNotPrinted) {
  broker = std::make_unique<NatsBroker>(R"(authorization { user: team, password: "s3cret" })");
  const QString right = write("right", "s3cret\n"), wrong = write("wrong", "wr0ng\n");
  LivePartner& ben = join("Ben", {"--user", "team", "--password-file", right});
  const std::string said = refusal({"--user", "team", "--password-file", wrong});
  EXPECT_THAT(said, HasSubstr("cannot join session: review at " + broker->address().toStdString()));
  EXPECT_THAT(said, HasSubstr("password"));
  EXPECT_THAT(said, Not(HasSubstr("wr0ng")));
  EXPECT_THAT(refusal(), HasSubstr("cannot join session"));
  // Whoever is in does not notice.
  LivePartner& cleo = join("Cleo", {"--user", "team", "--password-file", right});
  ben.type(QString("select Sport"));
  cleo.waitForCommands(1);
  expectSameStates({&ben, &cleo});
}

TEST_F(NotReached, BrokerThatIsNotThereIsToldSoon) {
  const std::string address = broker->address().toStdString();
  broker->kill();
  EXPECT_THAT(refusal(), HasSubstr("cannot join session: review at " + address + ": "));
}

TEST_F(NotReached, BrokerThatStandsStillIsToldSoon) {
  broker->pause();
  EXPECT_THAT(refusal(), HasSubstr("cannot join session: review at "));
  broker->resume();
}

TEST_F(NotReached, BrokerWithoutAStoreIsToldSoon) {
  broker = std::make_unique<NatsBroker>(QByteArray(), false);
  EXPECT_THAT(refusal(), HasSubstr("cannot join session: review at "));
}
