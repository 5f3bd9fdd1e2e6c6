#pragma once

#include "host/session/kuSessionClient.h"

namespace kuStandalone {

/** This machine's place in a session. Every kuSessionClient of this host is one. */
class SessionClient final : public kuSessionClient {
 public:
  explicit SessionClient(bool joinCompleted = false) : isComplete(joinCompleted) {}

  /** What isJoinCompleted answers. */
  bool isComplete;
};

}  // namespace kuStandalone
