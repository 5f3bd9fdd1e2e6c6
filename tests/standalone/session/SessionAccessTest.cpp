// Who is let in, and how it is told where somebody is not.

#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QElapsedTimer>

#include "standalone/session/Session.h"
#include "support/Certificates.h"
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
