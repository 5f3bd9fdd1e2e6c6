#pragma once

#include "host/kuHostExport.h"

/** This machine's place in a session, handed to the commands that run. A host derives its own. */
class KUHOST_EXPORT kuSessionClient {
 public:
  /**
   * Whether everything that the session held when this machine joined has run here. False while it
   * is still catching up; what runs then has happened before at the others.
   */
  bool isJoinCompleted() const;

  kuSessionClient(const kuSessionClient&) = delete;
  kuSessionClient& operator=(const kuSessionClient&) = delete;

 protected:
  kuSessionClient() = default;
  ~kuSessionClient() = default;
};
