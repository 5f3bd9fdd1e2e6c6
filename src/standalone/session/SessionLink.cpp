#include <QCoreApplication>

#include "host/kernel/kuLog.h"
#include "standalone/session/SessionParts.h"

namespace kuStandalone {

namespace {

/** While a dialogue is open or a long operation runs, and between sendings. */
constexpr int kAgainMilliseconds = 20;
constexpr std::chrono::milliseconds kLongestPatience{30'000};

}  // namespace

Session::Parts::Parts(const SessionOptions& options, SessionEvents events)
    : _options(options),
      _subject(options.session),
      _id(QUuid::createUuid()),
      _events(std::move(events)),
      _partners([this](SessionEvent::Kind kind, const SessionPartner& partner) {
        SessionEvent event{kind};
        event.partner = partner.name;
        tell(event);
      }),
      _inbox(std::make_shared<SessionInbox>([this] { wake(); }, options.mostWaiting)) {
  _options.partner = sessionName(options.partner);
  _again.setSingleShot(true);
  _again.setInterval(kAgainMilliseconds);
  QObject::connect(&_again, &QTimer::timeout, [this] { wake(); });
  QObject::connect(&_ticker, &QTimer::timeout, [this] { tick(); });
}

Session::Parts::~Parts() {
  if (_connection && _isLinked) announce(PresenceNote::Kind::Leaves);
  _inbox->silence();
}

QString Session::Parts::open() {
  _connection = std::make_unique<BrokerConnection>(_options, _inbox);
  QString error = _connection->open();
  if (!error.isEmpty()) return error;
  _stream = std::make_unique<BrokerStream>(*_connection);
  error = attach();
  if (!error.isEmpty()) return error;
  _ticker.start(int(_options.heartbeat.count()));
  announce(PresenceNote::Kind::Asks);
  return QString();
}

void Session::Parts::tell(SessionEvent event) const {
  if (_events) _events(event);
}

/** Subscribes to the stream: where it was left, or as one who comes late. */
QString Session::Parts::attach() {
  const BrokerStream::State state = _stream->find();
  if (!state.error.isEmpty()) return state.error;
  bool isAnew = state.identity != _identity || state.lastSequence < _lastSequence;
  const BrokerStream::Subscription subscription = subscribe(state, isAnew);
  if (subscription.number == 0) return QStringLiteral("the broker does not deliver the session");
  if (isAnew) startAnew(state.identity);
  _subscription = subscription.number;
  _catchUpTo = state.lastSequence;
  _isLinked = _isCatchingUp = true;
  if (subscription.waiting == 0) caughtUp();
  return QString();
}

BrokerStream::Subscription Session::Parts::subscribe(const BrokerStream::State& state,
                                                     bool& isAnew) {
  if (isAnew) return _stream->subscribeToLast();
  const BrokerStream::Subscription rest = _stream->subscribeFrom(_lastSequence + 1);
  // Where the stream has forgotten some of what was missed, the rest of it gives no true picture.
  const bool hasGaps = rest.waiting < state.lastSequence - _lastSequence;
  if (rest.number == 0 || !hasGaps) return rest;
  isAnew = true;
  return _stream->subscribeToLast();
}

void Session::Parts::startAnew(const QByteArray& identity) {
  _identity = identity;
  _lastSequence = 0;
  _isJoinCompleted = false;
}

void Session::Parts::noteProgress(const SessionDelivery& delivery) {
  _lastRun = Clock::now();
  const bool isLast = delivery.sequence >= _catchUpTo || delivery.pending == 0;
  if (_isCatchingUp && isLast) caughtUp();
}

void Session::Parts::caughtUp() {
  _isCatchingUp = false;
  _patience = std::chrono::milliseconds(0);
  if (!_isJoinCompleted) {
    _isJoinCompleted = true;
    tell({SessionEvent::Kind::Joined});
    announce(PresenceNote::Kind::Here);
  }
  _again.start();
}

void Session::Parts::tellBack() {
  if (!_owesBack || !_isLinked || _isCatchingUp || _order.unsent() > 0) return;
  _owesBack = false;
  kuLog::info("Session: the broker at %s is back", _options.address().toUtf8().constData());
  tell({SessionEvent::Kind::BrokerBack});
}

void Session::Parts::becomeAlone(const QString& reason) {
  if (!_isLinked) return;
  _isLinked = _isCatchingUp = _isEchoed = false;
  _owesBack = true;
  kuLog::warning(
      "Session: the broker at %s is lost (%s); what is done now goes to the partners "
      "when it is back",
      _options.address().toUtf8().constData(), reason.toUtf8().constData());
  SessionEvent event{SessionEvent::Kind::BrokerLost};
  event.reason = reason;
  tell(event);
}

void Session::Parts::tryAgain() {
  if (_isLinked || !_connection->isConnected() || Clock::now() < _nextAttempt) return;
  if (attach().isEmpty()) return;
  const auto longer = std::max(2 * _patience, _options.heartbeat);
  _patience = std::min(longer, kLongestPatience);
  _nextAttempt = Clock::now() + _patience;
}

/** Subscribes anew where the application was busy for so long that the inbox could not hold all. */
void Session::Parts::fetchDropped() {
  if (!_isLinked || _inbox->firstMessage() || !_inbox->hasOverflown(_subscription)) return;
  const QString error = attach();
  if (!error.isEmpty()) becomeAlone(error);
}

void Session::Parts::tick() {
  if (CommandRun::isRunning() || _isDelivering) return;
  wake();
  const Clock::time_point now = Clock::now();
  if (now >= _nextSign || !_isLinked) announce(PresenceNote::Kind::Here);
  _partners.forgetSilent(now);
}

void Session::Parts::announce(PresenceNote::Kind kind) {
  const auto interval = signInterval(_options.heartbeat, _partners.count());
  SessionFrame frame;
  frame.kind = SessionFrame::Kind::Presence;
  frame.id = QUuid::createUuid();
  frame.sender = _id;
  frame.senderName = _options.partner;
  frame.payload = writeNote({kind, !_isJoinCompleted, std::uint32_t(interval.count())});
  _connection->announce(writeFrame(frame));
  // A little before the tick at which it is due.
  _nextSign = Clock::now() + interval - interval / 4;
}

void Session::Parts::hear(const QByteArray& bytes) {
  const SessionFrameReading reading = readFrame(bytes);
  const SessionFrame& frame = reading.frame;
  if (reading.status == SessionFrameReading::Status::Newer) return refuseNewer(reading);
  if (reading.status == SessionFrameReading::Status::Broken) {
    return _log.dropped(QString(), reading.reason);
  }
  PresenceNote note;
  if (frame.kind != SessionFrame::Kind::Presence || !readNote(frame.payload, note)) {
    return _log.dropped(frame.senderName, QStringLiteral("it is no sign of life"));
  }
  if (frame.sender == _id) {
    _isEchoed = true;
    return;
  }
  _partners.heard({frame.sender, frame.senderName, kSessionVersion, note.isJoining}, note,
                  Clock::now());
  if (note.kind == PresenceNote::Kind::Asks) announce(PresenceNote::Kind::Here);
}

}  // namespace kuStandalone
