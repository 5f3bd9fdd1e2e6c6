#include "standalone/session/Session.h"

#include "standalone/session/SessionParts.h"

namespace kuStandalone {

namespace {

Session*& presentSession() {
  static Session* present = nullptr;
  return present;
}

}  // namespace

Session::Joining Session::join(const SessionOptions& options, SessionEvents events) {
  if (present()) return {nullptr, QStringLiteral("there is a session already")};
  const QString fault = options.fault();
  if (!fault.isEmpty()) return {nullptr, fault};
  auto parts = std::make_unique<Parts>(options, std::move(events));
  Parts& opened = *parts;
  // What runs at the join asks for the present session.
  std::unique_ptr<Session> session(new Session(std::move(parts)));
  const QString error = opened.open();
  if (!error.isEmpty()) session.reset();
  return {std::move(session), error};
}

Session* Session::present() { return presentSession(); }

Session::Session(std::unique_ptr<Parts> parts) : _parts(std::move(parts)) {
  presentSession() = this;
}

Session::~Session() {
  _parts.reset();
  presentSession() = nullptr;
}

Session::Status Session::status() const {
  if (!_parts->isLinked()) return Status::Alone;
  return _parts->isJoinCompleted() ? Status::Joined : Status::Joining;
}

QUuid Session::id() const { return _parts->id(); }

std::vector<SessionPartner> Session::partners() const { return _parts->partners().list(); }

std::size_t Session::unsent() const { return _parts->order().unsent(); }

bool Session::isJoinCompleted() const { return _parts->isJoinCompleted(); }

bool Session::isReadyToUse() const { return !CommandRun::isRunning(); }

void Session::push(const kuSessionCommand& command) { _parts->push(command); }

void Session::block(unsigned type) { _parts->blocked().insert(type); }

void Session::unblock(unsigned type) { _parts->blocked().erase(type); }

std::uint64_t Session::pushed() const { return _parts->pushed(); }

void Session::pushScript(const QByteArray& text) {
  if (isReadyToUse()) _parts->pushScript(text);
}

}  // namespace kuStandalone
