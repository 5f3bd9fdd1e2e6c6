#include "host/session/kuSession.h"

#include "host/session/kuSessionCommand.h"

kuSession& kuSession::the() {
  static kuSession session;
  return session;
}

bool kuSession::isReadyToUse() const { return false; }

void kuSession::pushCommand(const kuSessionCommand&) {}

void kuSession::block(unsigned) {}

void kuSession::unblock(unsigned) {}
