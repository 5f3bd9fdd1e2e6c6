#include "host/session/kuSession.h"

#include "host/session/kuSessionCommand.h"
#include "standalone/session/Session.h"
#include "standalone/session/SessionCommand.h"

using kuStandalone::CommandRun;
using kuStandalone::Session;

kuSession& kuSession::the() {
  static kuSession session;
  return session;
}

bool kuSession::isReadyToUse() const {
  const Session* session = Session::present();
  return session && session->isReadyToUse();
}

void kuSession::pushCommand(const kuSessionCommand& command) {
  if (Session* session = Session::present()) return session->push(command);
  // Whoever pushes made the command for this call; that it runs here is what the call is for.
  CommandRun::run(const_cast<kuSessionCommand&>(command));
}

void kuSession::block(unsigned type) {
  if (Session* session = Session::present()) session->block(type);
}

void kuSession::unblock(unsigned type) {
  if (Session* session = Session::present()) session->unblock(type);
}
