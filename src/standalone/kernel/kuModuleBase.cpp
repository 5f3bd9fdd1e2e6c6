#include "host/kernel/kuModuleBase.h"

#include "standalone/kernel/MessageBus.h"

void kuModuleBase::sendMessage(kuMessage& message, bool) {
  kuStandalone::MessageBus::the().broadcast(message);
}
