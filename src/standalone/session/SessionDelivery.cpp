#include <QApplication>

#include "host/kernel/kuLog.h"
#include "host/script/kuScript.h"
#include "standalone/kernel/HostState.h"
#include "standalone/script/PartnerCommands.h"
#include "standalone/session/SessionParts.h"

namespace kuStandalone {

namespace {

constexpr std::size_t kMostRefused = 100;
/** Of the event loop; then others have their turn. */
constexpr std::chrono::milliseconds kLongestTurn{20};

/** Something is true as long as this lives. */
class Flag {
 public:
  explicit Flag(bool& flag) : _flag(flag) { _flag = true; }
  ~Flag() { _flag = false; }
  Flag(const Flag&) = delete;
  Flag& operator=(const Flag&) = delete;

 private:
  bool& _flag;
};

}  // namespace

bool Session::Parts::isHeld() {
  if (HostState::the().busy) return true;
  return qobject_cast<QApplication*>(QCoreApplication::instance()) &&
         QApplication::activeModalWidget();
}

void Session::Parts::wake() {
  // A command that runs may have an event loop of its own.
  if (_isDelivering || CommandRun::isRunning()) return _again.start();
  takeNews();
  if (!_isLinked) tryAgain();
  deliver();
  fetchMissing();
  sendKept();
  tellBack();
}

void Session::Parts::takeNews() {
  for (const SessionDelivery& news : _inbox->takeNews())
    receive(news);
  if (_inbox->hasNews()) _next.start();
}

void Session::Parts::receive(const SessionDelivery& news) {
  using Kind = SessionDelivery::Kind;
  switch (news.kind) {
    case Kind::Presence:
      return hear(news.bytes);
    case Kind::Lost:
      return becomeAlone(QStringLiteral("the connection broke"));
    case Kind::Closed:
      return noteClosed();
    case Kind::Denied:
      _denial = news.bytes;
      return;
    case Kind::Back:
      _isEchoed = true;
      return _again.start();
    case Kind::Message:
      return;
  }
}

void Session::Parts::deliver() {
  if (_isDelivering) return;
  const Flag delivering(_isDelivering);
  const Clock::time_point end = Clock::now() + kLongestTurn;
  while (!(_awaited && _awaited->hasRun)) {
    if (!_awaited && Clock::now() >= end) return _next.start();
    const std::optional<SessionDelivery> delivery = _inbox->firstMessage();
    if (!delivery || !deliverFirst(*delivery)) return;
  }
}

/** What came by a subscription of before comes again by the present one, and what comes while the
 * broker counts as lost by the next one: until then the stream may be another one. */
bool Session::Parts::isPassed(const SessionDelivery& delivery) const {
  return delivery.subscription != _subscription || delivery.sequence <= _lastSequence;
}

bool Session::Parts::deliverFirst(const SessionDelivery& delivery) {
  const SessionFrameReading reading = readFrame(delivery.bytes);
  if (isHeld() && !mayRunWhileBusy(reading)) {
    _again.start();
    return false;
  }
  _inbox->dropFirstMessage();
  if (isPassed(delivery)) return true;
  if (isBehindGap(delivery)) {
    // What follows comes again, behind what is missing.
    _subscription = 0;
    _next.start();
    return true;
  }
  _lastSequence = delivery.sequence;
  try {
    deliverReading(reading, delivery.sequence);
  } catch (...) {
    noteProgress(delivery);
    throw;
  }
  noteProgress(delivery);
  return true;
}

/** Among the last messages of each subject there are gaps, behind them there is none. */
bool Session::Parts::isBehindGap(const SessionDelivery& delivery) {
  if (_leftOfPast > 0) {
    _leftOfPast = delivery.pending == 0 ? 0 : _leftOfPast - 1;
    return false;
  }
  return _lastSequence != 0 && delivery.sequence != _lastSequence + 1;
}

void Session::Parts::deliverReading(const SessionFrameReading& reading, std::uint64_t sequence) {
  switch (reading.status) {
    case SessionFrameReading::Status::Whole:
      return deliverFrame(reading.frame, sequence);
    case SessionFrameReading::Status::Newer:
      return refuseNewer(reading);
    case SessionFrameReading::Status::Broken:
      return _log.dropped(QString(), reading.reason);
  }
}

bool Session::Parts::mayRunWhileBusy(const SessionFrameReading& reading) const {
  if (reading.status != SessionFrameReading::Status::Whole) return true;
  if (reading.frame.kind != SessionFrame::Kind::Command) return false;
  const auto command = kuSessionCommandFactory::the().create(reading.frame.type.toStdString());
  return !command || command->runsWhileBusy();
}

void Session::Parts::deliverFrame(const SessionFrame& frame, std::uint64_t sequence) {
  switch (frame.kind) {
    case SessionFrame::Kind::Command:
      if (frame.sender != _id || !deliverOwn(frame, sequence)) deliverCommand(frame, sequence);
      break;
    case SessionFrame::Kind::Script:
      deliverScript(frame, sequence);
      break;
    case SessionFrame::Kind::Presence:
      _log.dropped(frame.senderName, "it is no command");
      break;
  }
}

bool Session::Parts::deliverOwn(const SessionFrame& frame, std::uint64_t sequence) {
  if (_awaited && _awaited->out.frame.id == frame.id) {
    _awaited->hasRun = true;
    _patience = std::chrono::milliseconds(0);
    _order.isFirst(frame.id);
    _order.hasRun();
    // Whoever pushed it gets what it throws.
    runHere(_awaited->command);
    tellRun(frame, sequence);
    return true;
  }
  const std::optional<SessionOrder::Own> own = _order.takeOwn(frame.id);
  if (!own) return false;
  _order.isFirst(frame.id);
  const MadeCommand made = makeCommand(frame);
  if (!own->runsAgain || !made.command || !made.command->runsAtSender()) return true;
  runGuarded(own->command ? *own->command : *made.command, frame);
  tellRun(frame, sequence);
  return true;
}

/** Nobody is there who could take what it throws. */
void Session::Parts::runGuarded(kuSessionCommand& command, const SessionFrame& frame) {
  const QByteArray what = (frame.type + " of " + frame.senderName).toUtf8();
  try {
    CommandRun::run(command);
  } catch (const std::exception& exception) {
    kuLog::error("Session: %s failed: %s", what.constData(), exception.what());
  } catch (...) {
    kuLog::error("Session: %s failed", what.constData());
  }
}

void Session::Parts::deliverCommand(const SessionFrame& frame, std::uint64_t sequence) {
  const MadeCommand made = makeCommand(frame);
  if (!made.command) return _log.dropped(frame.senderName, made.reason);
  if (!_isJoinCompleted && !made.command->isForLateJoiners()) return;
  if (!_order.isFirst(frame.id)) return;
  runGuarded(*made.command, frame);
  _order.hasRun();
  tellRun(frame, sequence);
}

void Session::Parts::deliverScript(const SessionFrame& frame, std::uint64_t sequence) {
  if (!_order.isFirst(frame.id)) return;
  if (frame.sender == _id) return deliverOwnScript(frame);
  if (!_isJoinCompleted) return;
  std::string failure;
  {
    const CommandRun::Mark running;
    failure = runPartnerCommands(frame.payload);
  }
  if (!failure.empty()) return _log.dropped(frame.senderName, QString::fromStdString(failure));
  _order.hasRun();
  tellRun(frame, sequence);
}

void Session::Parts::deliverOwnScript(const SessionFrame& frame) {
  const std::optional<SessionOrder::Own> own = _order.takeOwn(frame.id);
  if (!own || !own->runsAgain) return;
  const CommandRun::Mark running;
  kuScript::run(frame.payload.constData());
}

void Session::Parts::refuseNewer(const SessionFrameReading& reading) {
  _log.dropped(reading.frame.senderName, reading.reason);
  if (_refused.size() >= kMostRefused || !_refused.insert(reading.frame.sender).second) return;
  SessionEvent event{SessionEvent::Kind::Refused};
  event.partner = reading.frame.senderName;
  event.reason = reading.reason;
  tell(event);
}

void Session::Parts::tellRun(const SessionFrame& frame, std::uint64_t sequence) {
  _lastRun = Clock::now();
  SessionEvent event{SessionEvent::Kind::CommandRan};
  event.partner = frame.senderName;
  event.command = frame.kind == SessionFrame::Kind::Script ? QStringLiteral("Script") : frame.type;
  event.id = frame.id;
  event.own = frame.sender == _id;
  event.sequence = sequence;
  tell(event);
}

}  // namespace kuStandalone
