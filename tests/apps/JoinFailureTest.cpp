#include <QElapsedTimer>

#include "JoinTest.h"
#include "support/Certificates.h"

using ::testing::HasSubstr;
using ::testing::Not;

namespace {

const char* const withPassword = R"(authorization { user: team, password: "s3cret pass" })";

class JoinFailure : public JoinTest {
 protected:
  void brokerWith(const QByteArray& configuration) {
    broker = std::make_unique<NatsBroker>(configuration);
  }
  CliResult joinAt(const QString& url, const QStringList& more = {}) {
    return run(QStringList{"join", "car.gltf", "car.xml", "--session", url} + more);
  }
};

}  // namespace

TEST_F(JoinFailure, SessionThatCannotBeReachedIsCodeSixAndSoonTold) {
  const QString url = session();
  broker->kill();
  QElapsedTimer time;
  time.start();
  const CliResult result = joinAt(url);
  EXPECT_LT(time.elapsed(), 30000);
  EXPECT_EQ(result.code, 6);
  EXPECT_EQ(result.out, "");
  EXPECT_THAT(result.err, HasSubstr("kuvariants: cannot join session: review at " +
                                    broker->address().toStdString() + ": "));
}

TEST_F(JoinFailure, BrokerThatDoesNotEncryptIsRefusedWhereEncryptionIsAskedFor) {
  EXPECT_EQ(joinAt(session(), {"--tls"}).code, 6);
  EXPECT_EQ(joinAt("tls://" + broker->address() + "/review").code, 6);
}

TEST_F(JoinFailure, EncryptedBrokerIsJoinedByTheFileOfItsAuthority) {
  const Certificates certificates("IP:127.0.0.1");
  brokerWith(certificates.configuration());
  const CliResult result =
      talk("select Winter\nquit\n", {"--tls", "--tls-ca", certificates.authority()});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_THAT(result.out, HasSubstr("You selected Winter"));
}

TEST_F(JoinFailure, EncryptedBrokerOfAnAuthorityThatNobodyKnowsIsRefused) {
  const Certificates certificates("IP:127.0.0.1");
  brokerWith(certificates.configuration());
  const CliResult result = joinAt(session(), {"--tls"});
  EXPECT_EQ(result.code, 6);
  EXPECT_EQ(result.out, "");
  EXPECT_THAT(result.err, HasSubstr("cannot join session: review at "));
}

TEST_F(JoinFailure, FileOfAnAuthorityThatCannotBeReadIsCodeThree) {
  const CliResult result = joinAt(session(), {"--tls", "--tls-ca", "absent.pem"});
  EXPECT_EQ(result.code, 3);
  EXPECT_THAT(result.err, HasSubstr("kuvariants: cannot read: absent.pem: "));
}

TEST_F(JoinFailure, FileOfAnAuthorityThatHoldsNoCertificateIsNamed) {
  write("rubbish.pem", "no certificate\n");
  const CliResult result = joinAt(session(), {"--tls", "--tls-ca", "rubbish.pem"});
  EXPECT_EQ(result.code, 6);
  EXPECT_THAT(result.err, HasSubstr("the certificates in rubbish.pem cannot be used"));
}

TEST_F(JoinFailure, PasswordOfTheFileOpensTheBroker) {
  brokerWith(withPassword);
  write("password", "s3cret pass\n");
  const CliResult result = talk("", {"--user", "team", "--password-file", "password"});
  EXPECT_EQ(result.code, 0) << result.err;
}

TEST_F(JoinFailure, WrongPasswordIsCodeSixAndIsNotPrinted) {
  brokerWith(withPassword);
  write("password", "wr0ng pass");
  for (const QStringList& options :
       {QStringList{"--user", "team", "--password-file", "password"}, QStringList{}}) {
    const CliResult result = joinAt(session(), options);
    EXPECT_EQ(result.code, 6);
    EXPECT_THAT(result.err, HasSubstr("cannot join session: review at "));
    EXPECT_THAT(result.err, Not(HasSubstr("wr0ng")));
  }
}

TEST_F(JoinFailure, TokenOfTheFileOpensTheBroker) {
  brokerWith(R"(authorization { token: "t0ken" })");
  write("token", "t0ken\n");
  EXPECT_EQ(talk("", {"--token-file", "token"}).code, 0);
  EXPECT_EQ(joinAt(session()).code, 6);
}

TEST_F(JoinFailure, PasswordFileThatCannotBeReadIsCodeThree) {
  write("empty", "\n");
  for (const char* file : {"missing", "empty"}) {
    const CliResult result = joinAt(session(), {"--user", "team", "--password-file", file});
    EXPECT_EQ(result.code, 3);
    EXPECT_THAT(result.err, HasSubstr(std::string("kuvariants: cannot read: ") + file + ": "));
  }
}

TEST_F(JoinFailure, CommandLineThatCannotDoIsCodeTwo) {
  const QString url = session();
  struct Row {
    QStringList options;
    const char* reason;
  };
  for (const Row& row :
       {Row{{}, "--session is required"}, Row{{"--session", ""}, "names no host"},
        Row{{"--session", "http://localhost/review"}, "neither nats:// nor tls://"},
        Row{{"--session", "nats://team:pw@localhost/review"}, "do not belong into the address"},
        Row{{"--session", url, "--password-file", "car.xml"}, "--user"},
        Row{{"--session", url, "--tls-ca", "car.xml"},
            "nothing is encrypted without --tls or tls://"},
        Row{{"--session", url, "--user", "u", "--token-file", "car.xml"}, "excludes"}}) {
    SCOPED_TRACE(row.reason);
    const CliResult result = run(QStringList{"join", "car.gltf", "car.xml"} + row.options);
    EXPECT_EQ(result.code, 2);
    EXPECT_THAT(result.err, HasSubstr(row.reason));
  }
}

TEST_F(JoinFailure, InputsThatCannotBeReadEndItBeforeItJoins) {
  EXPECT_EQ(run({"join", "absent.gltf", "car.xml", "--session", session()}).code, 3);
  EXPECT_EQ(run({"join", "car.gltf", "absent.xml", "--session", session()}).code, 3);
}

TEST_F(JoinFailure, OutputThatCannotBeWrittenLeavesTheSessionWithCodeFive) {
  makeFullDevice("full");
  const CliResult result = runInShell("", arguments("Ada"), ">full </dev/null");
  EXPECT_EQ(result.code, 5);
  EXPECT_THAT(result.err, HasSubstr("kuvariants: cannot write: standard output: "));
}

TEST_F(JoinFailure, BrokerThatIsAwayIsToldAndWhatWasDoneThenGoesOutWhenItIsBack) {
  JoinedProcess& ada = join("Ada");
  JoinedProcess& ben = join("Ben");
  ASSERT_TRUE(ada.waitFor("Ben is here"));
  broker->kill();
  ASSERT_TRUE(ada.waitFor("The broker is away: the connection broke; you go on alone"));
  ada.type("select Winter");
  EXPECT_TRUE(ada.waitFor("You selected Winter, not sent yet"));
  broker->restart();
  EXPECT_TRUE(ada.waitFor("The broker is back"));
  EXPECT_TRUE(ben.waitFor("Ada selected Winter"));
  ada.closeInput();
  const CliResult result = ada.finish();
  EXPECT_EQ(result.code, 0) << result.out << result.err;
}

TEST_F(JoinFailure, LeavingWithSelectionsThatHaveNotGoneOutIsCodeSix) {
  JoinedProcess& ada = join("Ada");
  broker->kill();
  ASSERT_TRUE(ada.waitFor("The broker is away: the connection broke; you go on alone"));
  ada.type("select Winter");
  ada.type("quit");
  const CliResult result = ada.finish();
  EXPECT_EQ(result.code, 6);
  EXPECT_THAT(result.err,
              HasSubstr("kuvariants: left with the broker away: " +
                        broker->address().toStdString() + ": 1 not sent to the partners\n"));
}
