#include <QApplication>

#include "standalone/kernel/HostState.h"
#include "standalone/script/PartnerCommands.h"
#include "standalone/session/SessionParts.h"

namespace kuStandalone {

namespace {

constexpr std::size_t kMostRefused = 100;

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
  if (!_isLinked && _isEchoed) tryAgain();
  deliver();
  fetchDropped();
  sendKept();
  tellBack();
}

void Session::Parts::takeNews() {
  for (const SessionDelivery& news : _inbox->takeNews())
    receive(news);
}

void Session::Parts::receive(const SessionDelivery& news) {
  using Kind = SessionDelivery::Kind;
  switch (news.kind) {
    case Kind::Presence:
      return hear(news.bytes);
    case Kind::Lost:
      return becomeAlone(QStringLiteral("the connection broke"));
    case Kind::Closed:
      return becomeAlone(QStringLiteral("it has closed the connection for good"));
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
  while (!(_awaited && _awaited->hasRun)) {
    const std::optional<SessionDelivery> delivery = _inbox->firstMessage();
    if (!delivery || !deliverFirst(*delivery)) return;
  }
}

/** What came by a subscription of before comes again by the present one, and what comes while the
 * broker counts as lost by the next one: until then the stream may be another one. */
bool Session::Parts::isPassed(const SessionDelivery& delivery) const {
  return !_isLinked || delivery.subscription != _subscription || delivery.sequence <= _lastSequence;
}

bool Session::Parts::deliverFirst(const SessionDelivery& delivery) {
  const SessionFrameReading reading = readFrame(delivery.bytes);
  if (isHeld() && !mayRunWhileBusy(reading)) {
    _again.start();
    return false;
  }
  _inbox->dropFirstMessage();
  if (isPassed(delivery)) return true;
  _lastSequence = delivery.sequence;
  switch (reading.status) {
    case SessionFrameReading::Status::Whole:
      deliverFrame(reading.frame, delivery.sequence);
      break;
    case SessionFrameReading::Status::Newer:
      refuseNewer(reading);
      break;
    case SessionFrameReading::Status::Broken:
      _log.dropped(QString(), reading.reason);
      break;
  }
  noteProgress(delivery);
  return true;
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
  if (_awaited && _awaited->id == frame.id) {
    _awaited->hasRun = true;
    _order.isFirst(frame.id);
    if (_awaited->command->runsAtSender()) CommandRun::run(*_awaited->command);
    tellRun(frame, sequence);
    return true;
  }
  const std::optional<bool> runsAgain = _order.runsAgain(frame.id);
  if (!runsAgain) return false;
  _order.isFirst(frame.id);
  const MadeCommand made = makeCommand(frame);
  if (!*runsAgain || !made.command || !made.command->runsAtSender()) return true;
  CommandRun::run(*made.command);
  tellRun(frame, sequence);
  return true;
}

void Session::Parts::deliverCommand(const SessionFrame& frame, std::uint64_t sequence) {
  const MadeCommand made = makeCommand(frame);
  if (!made.command) return _log.dropped(frame.senderName, made.reason);
  if (!_isJoinCompleted && !made.command->isForLateJoiners()) return;
  if (!_order.isFirst(frame.id)) return;
  CommandRun::run(*made.command);
  _order.partnerRan();
  tellRun(frame, sequence);
}

void Session::Parts::deliverScript(const SessionFrame& frame, std::uint64_t sequence) {
  if (!_order.isFirst(frame.id)) return;
  if (frame.sender == _id) return static_cast<void>(_order.runsAgain(frame.id));
  if (!_isJoinCompleted) return;
  std::string failure;
  {
    const CommandRun::Mark running;
    failure = runPartnerCommands(frame.payload);
  }
  if (!failure.empty()) return _log.dropped(frame.senderName, QString::fromStdString(failure));
  _order.partnerRan();
  tellRun(frame, sequence);
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
