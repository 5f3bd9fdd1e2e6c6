// Who is let in, and how it is told where somebody is not.

#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>

#include "standalone/session/Session.h"
#include "support/NatsBroker.h"
#include "support/SessionEvents.h"

using kuStandalone::Session;
using kuStandalone::SessionOptions;

namespace {

/** Why joining fails; empty if it does not. The broker's address stands as AT. */
std::string errorOf(const SessionOptions& options) {
  QElapsedTimer time;
  time.start();
  const Session::Joining joining = Session::join(options, {});
  EXPECT_LT(time.elapsed(), 6000);
  EXPECT_EQ(joining.session == nullptr, !joining.error.isEmpty());
  QString error = joining.error;
  return error.replace(options.address(), "AT").toStdString();
}

SessionOptions at(const NatsBroker& broker) { return testOptions(broker.url(), "review", "Ada"); }

/** A port that takes connections, or none, and never says a word. */
class SilentPort {
 public:
  SilentPort() : _socket(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    EXPECT_EQ(bind(_socket, reinterpret_cast<sockaddr*>(&address), length), 0);
    EXPECT_EQ(getsockname(_socket, reinterpret_cast<sockaddr*>(&address), &length), 0);
    _port = ntohs(address.sin_port);
  }
  ~SilentPort() { close(_socket); }
  SilentPort(const SilentPort&) = delete;
  SilentPort& operator=(const SilentPort&) = delete;

  void listenOnly() { EXPECT_EQ(listen(_socket, 5), 0); }
  QString url() const { return QStringLiteral("nats://127.0.0.1:%1").arg(_port); }

 private:
  int _socket, _port = 0;
};

/** Certificates made for the test: an authority, and one for the address of the broker. */
class Certificates {
 public:
  explicit Certificates(const QByteArray& subject) {
    write("authority.cnf",
          "[req]\ndistinguished_name=dn\nx509_extensions=v3\nprompt=no\n"
          "[dn]\nCN=Test authority\n[v3]\nbasicConstraints=critical,CA:TRUE\n");
    write("broker.cnf", "subjectAltName=" + subject + "\n");
    openssl(
        "req -x509 -newkey rsa:2048 -nodes -days 2 -config authority.cnf -keyout ca.key "
        "-out ca.pem");
    openssl("req -newkey rsa:2048 -nodes -subj /CN=broker -keyout broker.key -out broker.csr");
    openssl(
        "x509 -req -in broker.csr -CA ca.pem -CAkey ca.key -CAcreateserial -days 2 "
        "-extfile broker.cnf -out broker.pem");
  }
  QString authority() const { return _folder.filePath("ca.pem"); }
  /** The broker's configuration. */
  QByteArray configuration() const {
    return "tls { cert_file: \"" + _folder.filePath("broker.pem").toUtf8() + "\", key_file: \"" +
           _folder.filePath("broker.key").toUtf8() + "\" }\n";
  }

 private:
  void write(const char* name, const QByteArray& text) {
    QFile file(_folder.filePath(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
  }
  void openssl(const QString& arguments) {
    QProcess process;
    process.setWorkingDirectory(_folder.path());
    process.start("openssl", arguments.split(' '));
    ASSERT_TRUE(process.waitForFinished(30'000));
    ASSERT_EQ(process.exitCode(), 0) << process.readAllStandardError().constData();
  }

  QTemporaryDir _folder;
};

}  // namespace

TEST(SessionAccessTest, AWrongPasswordIsToldAtOnce) {
  const NatsBroker broker("authorization { user: team, password: \"right\" }\n");
  SessionOptions options = at(broker);
  const std::string refused = "the broker at AT refuses user, password or token";
  EXPECT_EQ(errorOf(options), refused);
  options.user = "team";
  EXPECT_EQ(errorOf(options), refused);
  options.password = "wrong";
  EXPECT_EQ(errorOf(options), refused);
  options.password = "right";
  EXPECT_EQ(errorOf(options), "");
}

TEST(SessionAccessTest, ATokenOpensToo) {
  const NatsBroker broker("authorization { token: \"right\" }\n");
  SessionOptions options = at(broker);
  options.token = "wrong";
  EXPECT_EQ(errorOf(options), "the broker at AT refuses user, password or token");
  options.token = "right";
  EXPECT_EQ(errorOf(options), "");
}

TEST(SessionAccessTest, WhereNobodyListensTheSessionCannotBeReached) {
  const SilentPort port;
  EXPECT_EQ(errorOf(testOptions(port.url(), "review", "Ada")),
            "the broker at AT cannot be reached");
}

TEST(SessionAccessTest, WhoTakesTheConnectionAndSaysNothingIsNotWaitedForLong) {
  SilentPort port;
  port.listenOnly();
  const std::string error = errorOf(testOptions(port.url(), "review", "Ada"));
  EXPECT_EQ(error, "the broker at AT does not answer");
}

TEST(SessionAccessTest, ABrokerWithoutAStoreIsToldOf) {
  const NatsBroker broker({}, false);
  EXPECT_EQ(errorOf(at(broker)), "the broker has no JetStream");
}

TEST(SessionAccessTest, OptionsThatCannotDoAreToldOf) {
  EXPECT_EQ(errorOf(testOptions("nats://", "review", "Ada")), "the address names no host");
}

TEST(SessionAccessTest, AnEncryptedBrokerIsKnownByItsCertificate) {
  const Certificates certificates("IP:127.0.0.1");
  const NatsBroker broker(certificates.configuration());
  SessionOptions options = at(broker);
  options.tls = true;
  options.caFile = certificates.authority();
  EXPECT_EQ(errorOf(options), "");
  options.tls = false;
  options.url = "tls://" + broker.address();
  EXPECT_EQ(errorOf(options), "");
}

TEST(SessionAccessTest, ACertificateOfAnUnknownAuthorityIsRefused) {
  const Certificates certificates("IP:127.0.0.1");
  const NatsBroker broker(certificates.configuration());
  SessionOptions options = at(broker);
  options.tls = true;
  EXPECT_EQ(errorOf(options).find("the broker at AT cannot be used: "), 0u);
}

TEST(SessionAccessTest, ACertificateOfAnotherHostIsRefused) {
  const Certificates certificates("DNS:elsewhere.example");
  const NatsBroker broker(certificates.configuration());
  SessionOptions options = at(broker);
  options.tls = true;
  options.caFile = certificates.authority();
  EXPECT_EQ(errorOf(options).find("the broker at AT cannot be used: "), 0u);
}

TEST(SessionAccessTest, WhoAsksForEncryptionGetsNothingElse) {
  const NatsBroker broker;
  SessionOptions options = at(broker);
  options.tls = true;
  EXPECT_EQ(errorOf(options).find("the broker at AT cannot be used: "), 0u);
}

TEST(SessionAccessTest, AFileOfCertificatesThatIsNoneIsToldOf) {
  const NatsBroker broker;
  SessionOptions options = at(broker);
  options.tls = true;
  options.caFile = "/nowhere/ca.pem";
  EXPECT_EQ(errorOf(options), "the certificates in /nowhere/ca.pem cannot be used");
}
