#include "standalone/session/BrokerConnection.h"

#include <QUrl>
#include <QUuid>
#include <deque>
#include <vector>

#include "standalone/session/BrokerHandles.h"
#include "standalone/session/SessionFrame.h"
#include "standalone/session/SessionPartners.h"

namespace kuStandalone {

namespace {

constexpr std::int64_t kReconnectWait = 250;
constexpr std::int64_t kPingInterval = 2000;
constexpr std::chrono::seconds kCloseLimit{5}, kEndedKept{60};
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

/** That a message was refused is told of here alone. All else that goes wrong in the client's
 * threads shows in what does not arrive; without this handler the client would print it. */
void onTrouble(natsConnection* link, natsSubscription*, natsStatus status, void* closure) {
  if (status != NATS_NOT_PERMITTED) return;
  const char* text = nullptr;
  natsConnection_GetLastError(link, &text);
  SessionDelivery delivery;
  delivery.kind = SessionDelivery::Kind::Denied;
  delivery.bytes = text;
  static_cast<SessionInbox*>(closure)->put(std::move(delivery));
}

void onPresence(natsConnection*, natsSubscription*, natsMsg* given, void* closure) {
  const BrokerMessage message(given);
  SessionDelivery delivery;
  delivery.kind = SessionDelivery::Kind::Presence;
  delivery.bytes = bytesOf(given, kMostSignBytes);
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
  struct Ended {
    BrokerSubscription subscription;
    BrokerReceiver::Clock::time_point since;
  };
  std::deque<Ended> ended;
};

BrokerConnection::BrokerConnection(const SessionOptions& options,
                                   std::shared_ptr<SessionInbox> inbox)
    : _parts(
          new Parts{options, SessionSubject(options.session), std::move(inbox), {}, {}, {}, {}}) {
  _parts->inbox->beginConnection();
}

/** Threads of the client may be at work for a moment after the connection has closed, and read what
 * has been freed by then. So what they were given stays as long as the process: a few kilobytes
 * and the stacks of threads that nobody joined. */
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
  return _parts->link && natsConnection_Status(_parts->link.get()) == NATS_CONN_STATUS_CONNECTED;
}

bool BrokerConnection::isClosed() const {
  return !_parts->link || natsConnection_IsClosed(_parts->link.get());
}

qint64 BrokerConnection::mostBytes() const {
  const std::int64_t most = natsConnection_GetMaxPayload(_parts->link.get());
  return std::min<qint64>(most, kSessionFrameBytes) - kHeaderBytes;
}

const SessionOptions& BrokerConnection::options() const { return _parts->options; }

const SessionSubject& BrokerConnection::subject() const { return _parts->subject; }

natsConnection* BrokerConnection::link() const { return _parts->link.get(); }

BrokerReceiver* BrokerConnection::makeReceiver(unsigned number) {
  return &_parts->receivers.emplace_back(*_parts->inbox, number);
}

/** Frees what ended long ago: by then none of the client's threads has it in hand. */
void BrokerConnection::keepEnded(natsSubscription* subscription) {
  const BrokerReceiver::Clock::time_point now = BrokerReceiver::Clock::now();
  std::deque<Parts::Ended>& ended = _parts->ended;
  while (!ended.empty() && now - ended.front().since > kEndedKept)
    ended.pop_front();
  ended.push_back({BrokerSubscription(subscription), now});
}

void BrokerConnection::announce(const QByteArray& bytes) {
  const QByteArray subject = _parts->subject.presence();
  natsConnection_Publish(_parts->link.get(), subject.constData(), bytes.constData(), bytes.size());
}

}  // namespace kuStandalone
