#pragma once

#include <boost/unordered_map.hpp>
#include <string>
#include <string_view>

#include "standalone/kernel/CallList.h"
#include "standalone/kernel/MessageWatch.h"
#include "standalone/scene/TextKey.h"

namespace kuStandalone {

/** The message bus behind kuController and kuModuleBase. */
class MessageBus {
 public:
  using Callback = void (*)(kuMessage&);

  static MessageBus& the();

  void add(std::string_view name, Callback callback);
  void remove(std::string_view name, Callback callback);

  /**
   * Shows the message to the watchers and gives it to the receivers of its name. Answers whether
   * there was a receiver. @param record null for a message without one.
   */
  bool deliver(std::string_view name, kuMessage* record, int mode);

  /** Broadcasts a numbered message, which only the watchers hear in this host. */
  void broadcast(const kuMessage& message);

  int addWatcher(MessageWatch::Watcher watcher);
  void removeWatcher(int handle);

 private:
  struct Watching {
    int handle;
    MessageWatch::Watcher watcher;
  };

  MessageBus() = default;
  void show(const PassedMessage& message);

  /** A name once known stays, so that a list never goes while it is walked. */
  boost::unordered_map<std::string, CallList<Callback>, TextHash> _receivers;
  CallList<Watching> _watchers;
  int _lastHandle = 0;
};

}  // namespace kuStandalone
