#include "host/session/kuSessionClient.h"

#include "standalone/session/SessionClient.h"

bool kuSessionClient::isJoinCompleted() const {
  return static_cast<const kuStandalone::SessionClient*>(this)->isComplete;
}
