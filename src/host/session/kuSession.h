#pragma once

#include "host/kuHostExport.h"

/** The collaboration session of the host. */
class KUHOST_EXPORT kuSession {
 public:
  static kuSession& the();

  /** True while a session is running and commands can be pushed. */
  bool isReadyToUse() const;

  kuSession(const kuSession&) = delete;
  kuSession& operator=(const kuSession&) = delete;

 private:
  kuSession() = default;
};
