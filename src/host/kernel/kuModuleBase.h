#pragma once

#include "host/kernel/kuMessage.h"

/** Base of the host's modules, of which only the broadcast of numbered messages is used. */
class KUHOST_EXPORT kuModuleBase {
 public:
  kuModuleBase() = delete;

  /** Broadcasts a numbered message to the host's modules. */
  static void sendMessage(kuMessage& message, bool deferred);
};
