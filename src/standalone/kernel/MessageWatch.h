#pragma once

#include <functional>
#include <string>

#include "host/kernel/kuMessage.h"

namespace kuStandalone {

/** A message as it passed over the bus. */
struct PassedMessage {
  /** Empty for a numbered message. */
  std::string name;
  int mode = 0;
  /** Whether it was sent with a record of attributes, be it an empty one. */
  bool hasRecord = false;
  /** The record as it was when the message was sent; for a numbered one it bears the number. */
  const kuMessage* record = nullptr;
};

/**
 * Watches the message bus: every message, numbered ones included, reaches the watcher before it
 * reaches its receivers, in the order in which messages are sent. Lasts as long as this object.
 * Watchers that came first hear first.
 */
class KUHOST_EXPORT MessageWatch {
 public:
  using Watcher = std::function<void(const PassedMessage&)>;

  explicit MessageWatch(Watcher watcher);
  ~MessageWatch();
  MessageWatch(const MessageWatch&) = delete;
  MessageWatch& operator=(const MessageWatch&) = delete;

 private:
  int _handle;
};

}  // namespace kuStandalone
