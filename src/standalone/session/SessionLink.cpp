#include <QCoreApplication>

#include "host/kernel/kuLog.h"
#include "standalone/session/SessionParts.h"

namespace kuStandalone {

namespace {

/** While a dialogue is open or a long operation runs, and between sendings. */
constexpr int kAgainMilliseconds = 20;
constexpr std::chrono::milliseconds kLongestPatience{30'000};
/** Many who ask at the same moment are answered by one sign. */
constexpr std::chrono::milliseconds kShortestAnswer{100};

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
  _next.setSingleShot(true);
  QObject::connect(&_next, &QTimer::timeout, [this] { wake(); });
  _answer.setSingleShot(true);
  QObject::connect(&_answer, &QTimer::timeout, [this] { announce(PresenceNote::Kind::Here); });
  QObject::connect(&_ticker, &QTimer::timeout, [this] { tick(); });
}

Session::Parts::~Parts() {
  if (_connection && _isLinked) announce(PresenceNote::Kind::Leaves);
  _inbox->silence();
}

QString Session::Parts::open() {
  const QString error = connectAnew();
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
  _denial.clear();
  _subscription = 0;
  const BrokerStream::State state = _stream->find();
  if (!state.error.isEmpty()) return state.error;
  bool isAnew = state.identity != _identity || state.lastSequence < _lastSequence;
  const BrokerStream::Subscription subscription = subscribe(state, isAnew);
  if (!subscription.exists) return QStringLiteral("the broker does not deliver the session");
  if (isAnew) startAnew(state.identity);
  _leftOfPast = isAnew ? subscription.waiting : 0;
  _subscription = _lastSubscription;
  _linkedSince = Clock::now();
  _catchUpTo = state.lastSequence;
  _isLinked = _isCatchingUp = true;
  if (subscription.waiting == 0) caughtUp();
  return QString();
}

BrokerStream::Subscription Session::Parts::subscribe(const BrokerStream::State& state,
                                                     bool& isAnew) {
  if (isAnew) return _stream->subscribeToLast(++_lastSubscription);
  const BrokerStream::Subscription rest =
      _stream->subscribeFrom(++_lastSubscription, _lastSequence + 1);
  // Where the stream has forgotten some of what was missed, the rest of it gives no true picture.
  const bool hasGaps = rest.waiting < state.lastSequence - _lastSequence;
  if (!rest.exists || !hasGaps) return rest;
  isAnew = true;
  return _stream->subscribeToLast(++_lastSubscription);
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
  if (!_isJoinCompleted) {
    // Of our own only the last of each target came.
    _order.forgetSent();
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
  _subscription = 0;
  _owesBack = true;
  kuLog::warning(
      "Session: the broker at %s is lost (%s); what is done now goes to the partners "
      "when it is back",
      _options.address().toUtf8().constData(), reason.toUtf8().constData());
  SessionEvent event{SessionEvent::Kind::BrokerLost};
  event.reason = reason;
  tell(event);
}

/** The client gives up where it is refused twice, as with a password that does not hold just now.
 */
void Session::Parts::noteClosed() {
  if (_isLinked) return becomeAlone(QStringLiteral("it has closed the connection"));
  kuLog::warning("Session: the broker at %s refuses the connection now; it is asked again",
                 _options.address().toUtf8().constData());
}

void Session::Parts::tryAgain() {
  if (_isLinked || Clock::now() < _nextAttempt) return;
  const bool isOver = !_stream || _connection->isClosed();
  if (!isOver && !(_isEchoed && _connection->isConnected())) return;
  isOver ? connectAnew() : attach();
  // Also where it went well: a link that breaks at once is made more and more seldom.
  _patience = std::min(std::max(2 * _patience, _options.heartbeat), kLongestPatience);
  _nextAttempt = Clock::now() + _patience;
}

QString Session::Parts::connectAnew() {
  _stream.reset();
  _connection.reset();
  _connection = std::make_unique<BrokerConnection>(_options, _inbox);
  const QString error = _connection->open();
  if (!error.isEmpty()) return error;
  _stream = std::make_unique<BrokerStream>(*_connection);
  return attach();
}

/** Subscribes anew where something is missing: where the application was busy for so long that the
 * inbox could not hold all, where a place was left out, where the broker delivers no more. */
void Session::Parts::fetchMissing() {
  if (!_isLinked || isHeld() || _isDelivering || CommandRun::isRunning()) return;
  const bool hasOverflown = _inbox->hasOverflown(_subscription) && !_inbox->firstMessage();
  if (_subscription != 0 && !hasOverflown && !_stream->isSilent()) return;
  const QString error = attach();
  if (!error.isEmpty()) becomeAlone(error);
}

void Session::Parts::tick() {
  if (CommandRun::isRunning() || _isDelivering) return;
  wake();
  const Clock::time_point now = Clock::now();
  if (now >= _nextSign || !_isLinked) announce(PresenceNote::Kind::Here);
  _partners.forgetSilent(now);
  if (_isLinked && now - _linkedSince > kLongestPatience) _patience = std::chrono::milliseconds(0);
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
  _lastSign = Clock::now();
  // A little before the tick at which it is due.
  _nextSign = _lastSign + interval - interval / 4;
}

void Session::Parts::hear(const QByteArray& bytes) {
  if (bytes.size() > kMostSignBytes) {
    return _log.dropped(QString(), QStringLiteral("it is too long"));
  }
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
  if (note.kind == PresenceNote::Kind::Asks) answer();
}

void Session::Parts::answer() {
  if (Clock::now() - _lastSign >= kShortestAnswer) return announce(PresenceNote::Kind::Here);
  if (!_answer.isActive()) _answer.start(kShortestAnswer);
}

}  // namespace kuStandalone
