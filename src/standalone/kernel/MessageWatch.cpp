#include "standalone/kernel/MessageWatch.h"

#include "standalone/kernel/MessageBus.h"

namespace kuStandalone {

MessageWatch::MessageWatch(Watcher watcher)
    : _handle(MessageBus::the().addWatcher(std::move(watcher))) {}

MessageWatch::~MessageWatch() { MessageBus::the().removeWatcher(_handle); }

}  // namespace kuStandalone
