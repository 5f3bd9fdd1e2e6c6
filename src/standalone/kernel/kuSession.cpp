#include "host/session/kuSession.h"

kuSession& kuSession::the() {
  static kuSession session;
  return session;
}

bool kuSession::isReadyToUse() const { return false; }
