#include "host/kernel/kuLog.h"
#include "standalone/session/SessionParts.h"

namespace kuStandalone {

namespace {

/** Sent in one go; the event loop has its turn in between. */
constexpr int kSentAtOnce = 50;

QByteArray messageIdOf(const QUuid& id) { return id.toByteArray(QUuid::WithoutBraces); }

}  // namespace

QByteArray Session::Parts::Outgoing::messageId() const { return messageIdOf(frame.id); }

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
  return _isLinked && !_isDelivering && !_awaited && !isHeld() && _order.unsent() == 0;
}

void Session::Parts::push(const kuSessionCommand& pushed) {
  // Whoever pushes made the command for this call, so that it runs.
  auto& command = const_cast<kuSessionCommand&>(pushed);
  ++_pushed;
  const unsigned type = command.getType();
  const QString name = QString::fromStdString(kuSessionCommandFactory::the().nameOf(type));
  if (CommandRun::isRunning() || name.isEmpty() || _blocked.count(type))
    return CommandRun::run(command);
  Outgoing out = outgoing(SessionFrame::Kind::Command, name, payloadOf(command));
  out.subject = _subject.command(name, keyOf(command));
  if (isTooLong(out)) return runHere(command);
  if (!mayPublish()) return runAlone(command, out, false);
  if (!_stream->send(out.subject, out.bytes, out.messageId())) {
    becomeAlone(QStringLiteral("it takes nothing"));
    return runAlone(command, out, false);
  }
  Awaited awaited{out, command};
  awaitOwn(awaited);
}

Publication Session::Parts::publish(const QByteArray& subject, const QByteArray& bytes,
                                    const QByteArray& id) {
  _denial.clear();
  Publication answer = _stream->publish(subject, bytes, id);
  if (answer == Publication::Stored) _patience = std::chrono::milliseconds(0);
  if (answer == Publication::Unknown) {
    takeNews();
    if (isDenied(subject)) answer = Publication::Refused;
  }
  if (answer == Publication::Unknown) becomeAlone(QStringLiteral("it does not answer"));
  if (answer == Publication::Refused) tellRefused(subject);
  return answer;
}

/** The broker's text names the subject in quotation marks; the client cuts a long one. */
bool Session::Parts::isDenied(const QByteArray& subject) const {
  const int begin = _denial.indexOf('"') + 1;
  if (begin == 0 || !_denial.contains("Publish")) return false;
  const int end = _denial.indexOf('"', begin);
  return end < 0 ? subject.startsWith(_denial.mid(begin))
                 : subject == _denial.mid(begin, end - begin);
}

void Session::Parts::tellRefused(const QByteArray& subject) {
  kuLog::error("Session: the broker refuses %s; the partners will not see this",
               subject.constData());
}

void Session::Parts::awaitOwn(Awaited& awaited) {
  const bool isStored = awaitPlace(awaited);
  if (awaited.isRefused) return runHere(awaited.command);
  if (!awaited.hasRun) runAlone(awaited.command, awaited.out, isStored);
  _again.start();
}

/** That a command comes back says that the stream has it. Where it does not come back in time the
 * stream is asked; answers whether it said that it has it. */
bool Session::Parts::awaitPlace(Awaited& awaited) {
  const Waiting waiting(_awaited, awaited);
  bool isStored = false;
  _denial.clear();
  _lastRun = Clock::now();
  while (_isLinked && !isHeld() && !awaited.hasRun && !awaited.isRefused) {
    if (!waitForMore()) isStored = askForPlace(awaited, isStored);
    takeNews();
    if (isDenied(awaited.out.subject)) {
      awaited.isRefused = true;
      tellRefused(awaited.out.subject);
      break;
    }
    deliver();
    fetchMissing();
  }
  return isStored;
}

bool Session::Parts::askForPlace(Awaited& awaited, bool isStored) {
  if (isStored) {
    becomeAlone(QStringLiteral("it delivers nothing"));
    return true;
  }
  const Outgoing& out = awaited.out;
  const Publication answer = publish(out.subject, out.bytes, out.messageId());
  awaited.isRefused = answer == Publication::Refused;
  _lastRun = Clock::now();
  return answer == Publication::Stored;
}

bool Session::Parts::waitForMore() {
  const auto left = _lastRun + _options.acknowledgeTimeout - Clock::now();
  const auto limit = std::chrono::duration_cast<std::chrono::milliseconds>(left);
  return limit.count() > 0 && _inbox->waitForMore(limit);
}

void Session::Parts::runAlone(kuSessionCommand& command, const Outgoing& out, bool isSent) {
  // Kept before it runs, since that may end with an exception.
  keep(out, isSent, kuSessionCommandFactory::the().copyOf(command));
  runHere(command);
  tellRun(out.frame, 0);
}

void Session::Parts::runHere(kuSessionCommand& command) {
  if (command.runsAtSender()) CommandRun::run(command);
}

void Session::Parts::keep(const Outgoing& out, bool isSent,
                          std::shared_ptr<kuSessionCommand> command) {
  if (!_order.keep({out.frame.id, out.subject, out.bytes, std::move(command), isSent})) {
    kuLog::error("Session: too much is kept for the broker; the partners will not see this");
  }
  if (_isLinked) _again.start();
}

/** It goes the way of a command that ran alone: it has run. */
void Session::Parts::pushScript(const QByteArray& text) {
  Outgoing out = outgoing(SessionFrame::Kind::Script, QString(), text);
  out.subject = _subject.script();
  if (isTooLong(out)) return;
  keep(out, false, nullptr);
  sendKept();
}

void Session::Parts::sendKept() {
  for (int sent = 0; sent < kSentAtOnce; ++sent) {
    KeptFrame* frame = _order.firstUnsent();
    if (!frame || !_isLinked || _isCatchingUp || isHeld()) break;
    if (CommandRun::isRunning() || _isDelivering || _awaited) break;
    sendOneKept(*frame);
  }
  if (_order.unsent() > 0 && _isLinked) _again.start();
}

void Session::Parts::sendOneKept(KeptFrame& frame) {
  // What happens meanwhile may keep more, and take nothing away.
  const Publication answer = publish(frame.subject, frame.bytes, messageIdOf(frame.id));
  if (answer == Publication::Stored) frame.isSent = true;
  if (answer == Publication::Refused) _order.drop(frame.id);
}

}  // namespace kuStandalone
