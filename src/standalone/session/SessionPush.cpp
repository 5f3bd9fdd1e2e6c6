#include "host/kernel/kuLog.h"
#include "standalone/session/SessionParts.h"

namespace kuStandalone {

namespace {

/** Sent in one go; the event loop has its turn in between. */
constexpr int kSentAtOnce = 50;

}  // namespace

QByteArray Session::Parts::Outgoing::messageId() const {
  return frame.id.toByteArray(QUuid::WithoutBraces);
}

Session::Parts::Outgoing Session::Parts::outgoing(SessionFrame::Kind kind, const QString& type,
                                                  const QByteArray& payload) const {
  Outgoing out;
  out.frame.kind = kind;
  out.frame.id = QUuid::createUuid();
  out.frame.sender = _id;
  out.frame.senderName = _options.partner;
  out.frame.type = type;
  out.frame.payload = payload;
  out.bytes = writeFrame(out.frame);
  return out;
}

bool Session::Parts::isTooLong(const Outgoing& out) const {
  if (out.bytes.size() <= _connection->mostBytes()) return false;
  const QString type = out.frame.type.isEmpty() ? QStringLiteral("Script") : out.frame.type;
  kuLog::error("Session: %s of %d bytes is too long for the partners", type.toUtf8().constData(),
               out.bytes.size());
  return true;
}

bool Session::Parts::mayPublish() const {
  return _isLinked && !_isDelivering && !isHeld() && _order.unsent() == 0;
}

void Session::Parts::push(const kuSessionCommand& pushed) {
  // Whoever pushes made the command for this call, so that it runs.
  auto& command = const_cast<kuSessionCommand&>(pushed);
  const unsigned type = command.getType();
  const QString name = QString::fromStdString(kuSessionCommandFactory::the().nameOf(type));
  if (CommandRun::isRunning() || name.isEmpty() || _blocked.count(type))
    return CommandRun::run(command);
  Outgoing out = outgoing(SessionFrame::Kind::Command, name, payloadOf(command));
  out.subject = _subject.command(name, keyOf(command));
  if (isTooLong(out)) return CommandRun::run(command);
  if (!mayPublish()) return runAlone(command, out, false);
  if (!_stream->send(out.subject, out.bytes, out.messageId())) {
    becomeAlone(QStringLiteral("it takes nothing"));
    return runAlone(command, out, false);
  }
  awaitOwn(command, out);
}

Publication Session::Parts::publish(const Outgoing& out) {
  const Publication answer = _stream->publish(out.subject, out.bytes, out.messageId());
  if (answer == Publication::Unknown) becomeAlone(QStringLiteral("it does not answer"));
  if (answer == Publication::Refused) {
    kuLog::error("Session: the broker refuses %s", out.subject.constData());
  }
  return answer;
}

/** That a command comes back says that the stream has it. Where it does not come back in time the
 * stream is asked. */
void Session::Parts::awaitOwn(kuSessionCommand& command, const Outgoing& out) {
  Awaited awaited{out.frame.id, &command};
  _awaited = &awaited;
  _lastRun = Clock::now();
  Publication answer = Publication::Unknown;
  while (_isLinked && !awaited.hasRun && answer != Publication::Refused) {
    if (!waitForMore()) {
      const bool wasStored = answer == Publication::Stored;
      if (!wasStored) answer = publish(out);
      if (wasStored) becomeAlone(QStringLiteral("it delivers nothing"));
      _lastRun = Clock::now();
    }
    takeNews();
    deliver();
  }
  _awaited = nullptr;
  if (!awaited.hasRun && answer == Publication::Refused) return CommandRun::run(command);
  if (!awaited.hasRun) runAlone(command, out, answer == Publication::Stored);
  _again.start();
}

bool Session::Parts::waitForMore() {
  const auto left = _lastRun + _options.acknowledgeTimeout - Clock::now();
  const auto limit = std::chrono::duration_cast<std::chrono::milliseconds>(left);
  return limit.count() > 0 && _inbox->waitForMore(limit);
}

void Session::Parts::runAlone(kuSessionCommand& command, const Outgoing& out, bool isSent) {
  if (command.runsAtSender()) CommandRun::run(command);
  keep(out, isSent);
  tellRun(out.frame, 0);
}

void Session::Parts::keep(const Outgoing& out, bool isSent) {
  if (!_order.keep(out.frame.id, out.subject, out.bytes, isSent)) {
    kuLog::error("Session: too much is kept for the broker; the partners will not see this");
  }
  if (_isLinked) _again.start();
}

void Session::Parts::pushScript(const QByteArray& text) {
  Outgoing out = outgoing(SessionFrame::Kind::Script, QString(), text);
  out.subject = _subject.script();
  if (isTooLong(out)) return;
  if (!mayPublish()) return keep(out, false);
  if (publish(out) == Publication::Unknown) keep(out, false);
}

void Session::Parts::sendKept() {
  for (int sent = 0; sent < kSentAtOnce; ++sent) {
    KeptFrame* frame = _order.firstUnsent();
    if (!frame || !_isLinked || _isCatchingUp || isHeld() || CommandRun::isRunning()) break;
    sendOneKept(*frame);
  }
  if (_order.unsent() > 0 && _isLinked) _again.start();
}

void Session::Parts::sendOneKept(KeptFrame& frame) {
  const QByteArray id = frame.id.toByteArray(QUuid::WithoutBraces);
  switch (_stream->publish(frame.subject, frame.bytes, id)) {
    case Publication::Stored:
      frame.isSent = true;
      break;
    case Publication::Unknown:
      becomeAlone(QStringLiteral("it does not answer"));
      break;
    case Publication::Refused:
      _order.drop(frame.id);
      break;
  }
}

}  // namespace kuStandalone
