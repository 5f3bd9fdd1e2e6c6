#include "standalone/session/BrokerConnection.h"

#include <QUrl>
#include <QUuid>
#include <deque>
#include <vector>

#include "standalone/session/BrokerHandles.h"
#include "standalone/session/SessionFrame.h"

namespace kuStandalone {

namespace {

constexpr std::int64_t kReconnectWait = 250;
constexpr std::int64_t kPingInterval = 2000;
constexpr std::chrono::seconds kCloseLimit{5};
/** No header of a message is longer; the broker counts it to the message. */
constexpr qint64 kHeaderBytes = 256;

void tell(void* closure, SessionDelivery::Kind kind) {
  SessionDelivery delivery;
  delivery.kind = kind;
  static_cast<SessionInbox*>(closure)->put(std::move(delivery));
}

void onLost(natsConnection*, void* closure) { tell(closure, SessionDelivery::Kind::Lost); }
void onBack(natsConnection*, void* closure) { tell(closure, SessionDelivery::Kind::Back); }
void onClosed(natsConnection*, void* closure) { tell(closure, SessionDelivery::Kind::Closed); }

/** What goes wrong in the client's threads shows in what does not arrive; without this handler the
 * client would print it. */
void onTrouble(natsConnection*, natsSubscription*, natsStatus, void*) {}

void onPresence(natsConnection*, natsSubscription*, natsMsg* given, void* closure) {
  const BrokerMessage message(given);
  SessionDelivery delivery;
  delivery.kind = SessionDelivery::Kind::Presence;
  delivery.bytes = bytesOf(given);
  static_cast<SessionInbox*>(closure)->put(std::move(delivery));
}

/** Applies options one after the other as long as all goes well. */
class OptionSetter {
 public:
  template <class... Given, class... Arguments>
  void operator()(natsStatus (*set)(natsOptions*, Given...), Arguments... arguments) {
    if (status == NATS_OK) status = set(options, arguments...);
  }

  natsOptions* options;
  natsStatus status = NATS_OK;
};

QByteArray addressOf(const SessionOptions& options) {
  const QByteArray scheme = options.isEncrypted() ? "tls://" : "nats://";
  return scheme + options.address().toUtf8();
}

void setCredentials(OptionSetter& set, const SessionOptions& options) {
  const QByteArray user = options.user.toUtf8(), password = options.password.toUtf8();
  if (!user.isEmpty()) set(natsOptions_SetUserInfo, user.constData(), password.constData());
  if (!options.token.isEmpty()) set(natsOptions_SetToken, options.token.toUtf8().constData());
}

void setEncryption(OptionSetter& set, const SessionOptions& options) {
  if (!options.isEncrypted()) return;
  const QByteArray host = QUrl("nats://" + options.address()).host().toUtf8();
  set(natsOptions_SetSecure, true);
  set(natsOptions_SetExpectedHostname, host.constData());
  if (options.caFile.isEmpty()) return;
  set(natsOptions_LoadCATrustedCertificates, options.caFile.toLocal8Bit().constData());
}

void setTimes(OptionSetter& set, const SessionOptions& options) {
  set(natsOptions_SetTimeout, std::int64_t(options.connectTimeout.count()));
  set(natsOptions_SetPingInterval, kPingInterval);
  set(natsOptions_SetMaxPingsOut, 2);
  set(natsOptions_SetMaxReconnect, -1);
  set(natsOptions_SetReconnectWait, kReconnectWait);
  set(natsOptions_SetReconnectJitter, std::int64_t(100), std::int64_t(100));
  // What cannot be sent now is kept here, by the session, and nowhere else.
  set(natsOptions_SetReconnectBufSize, 0);
  // A command is one small message, and somebody waits for it.
  set(natsOptions_SetSendAsap, true);
}

void setCallbacks(OptionSetter& set, SessionInbox* inbox) {
  set(natsOptions_SetDisconnectedCB, onLost, inbox);
  set(natsOptions_SetReconnectedCB, onBack, inbox);
  set(natsOptions_SetClosedCB, onClosed, inbox);
  set(natsOptions_SetErrorHandler, onTrouble, inbox);
}

QString textOf(natsStatus status) { return QString::fromUtf8(natsStatus_GetText(status)); }

QString whyNotConnected(natsStatus status, const SessionOptions& options) {
  const QString at = QStringLiteral("the broker at %1 ").arg(options.address());
  if (status == NATS_CONNECTION_AUTH_FAILED)
    return at + QStringLiteral("refuses user, password or token");
  if (status == NATS_NO_SERVER) return at + QStringLiteral("cannot be reached");
  if (status == NATS_TIMEOUT) return at + QStringLiteral("does not answer");
  return at + QStringLiteral("cannot be used: %1").arg(textOf(status));
}

QString whyNotSet(natsStatus status, const SessionOptions& options) {
  if (status != NATS_SSL_ERROR) return whyNotConnected(status, options);
  return QStringLiteral("the certificates in %1 cannot be used").arg(options.caFile);
}

}  // namespace

struct BrokerConnection::Parts {
  SessionOptions options;
  SessionSubject subject;
  std::shared_ptr<SessionInbox> inbox;
  /** One for each subscription so far; their addresses hold. */
  std::deque<BrokerReceiver> receivers;
  BrokerLink link;
  BrokerSubscription presence;
  std::vector<BrokerSubscription> ended;
  std::vector<BrokerJetStream> endedContexts;
};

BrokerConnection::BrokerConnection(const SessionOptions& options,
                                   std::shared_ptr<SessionInbox> inbox)
    : _parts(new Parts{
          options, SessionSubject(options.session), std::move(inbox), {}, {}, {}, {}, {}}) {}

/** Threads of the client may be at work for a moment after the connection has closed, and read what
 * has been freed by then. So what they were given stays as long as the process: a few kilobytes a
 * session, and the stacks of the two threads that served its subscriptions. */
void BrokerConnection::keepForEver(std::unique_ptr<Parts> parts) {
  static auto* const kept = new std::vector<std::unique_ptr<Parts>>;
  kept->push_back(std::move(parts));
}

BrokerConnection::~BrokerConnection() {
  if (_parts->link) {
    natsConnection_FlushTimeout(_parts->link.get(), 500);
    natsConnection_Close(_parts->link.get());
    _parts->inbox->waitForClosed(kCloseLimit);
  }
  keepForEver(std::move(_parts));
}

void BrokerConnection::keepEnded(natsSubscription* subscription) {
  _parts->ended.emplace_back(subscription);
}

void BrokerConnection::keepEnded(jsCtx* context) { _parts->endedContexts.emplace_back(context); }

QString BrokerConnection::open() {
  natsOptions* made = nullptr;
  if (natsOptions_Create(&made) != NATS_OK) return QStringLiteral("no memory");
  const BrokerOptions owned(made);
  OptionSetter set{made};
  set(natsOptions_SetURL, addressOf(_parts->options).constData());
  setTimes(set, _parts->options);
  setCredentials(set, _parts->options);
  setEncryption(set, _parts->options);
  setCallbacks(set, _parts->inbox.get());
  if (set.status != NATS_OK) return whyNotSet(set.status, _parts->options);

  natsConnection* link = nullptr;
  const natsStatus status = natsConnection_Connect(&link, made);
  if (status != NATS_OK) return whyNotConnected(status, _parts->options);
  _parts->link.reset(link);
  return subscribePresence();
}

QString BrokerConnection::subscribePresence() {
  natsSubscription* presence = nullptr;
  const QByteArray subject = _parts->subject.presence();
  const natsStatus status = natsConnection_Subscribe(
      &presence, _parts->link.get(), subject.constData(), onPresence, _parts->inbox.get());
  _parts->presence.reset(presence);
  return status == NATS_OK ? QString() : whyNotConnected(status, _parts->options);
}

bool BrokerConnection::isConnected() const {
  return natsConnection_Status(_parts->link.get()) == NATS_CONN_STATUS_CONNECTED;
}

qint64 BrokerConnection::mostBytes() const {
  const std::int64_t most = natsConnection_GetMaxPayload(_parts->link.get());
  return std::min<qint64>(most, kSessionFrameBytes) - kHeaderBytes;
}

const SessionOptions& BrokerConnection::options() const { return _parts->options; }

const SessionSubject& BrokerConnection::subject() const { return _parts->subject; }

natsConnection* BrokerConnection::link() const { return _parts->link.get(); }

BrokerReceiver* BrokerConnection::makeReceiver() {
  const auto number = unsigned(_parts->receivers.size()) + 1;
  _parts->receivers.push_back({_parts->inbox.get(), number});
  return &_parts->receivers.back();
}

void BrokerConnection::announce(const QByteArray& bytes) {
  const QByteArray subject = _parts->subject.presence();
  natsConnection_Publish(_parts->link.get(), subject.constData(), bytes.constData(), bytes.size());
}

}  // namespace kuStandalone
