#include "host/kernel/kuConnector.h"

#include "standalone/kernel/HostState.h"

kuConnector* kuConnector::the() {
  static kuConnector connector;
  return &connector;
}

bool kuConnector::syncVariants() const { return kuStandalone::HostState::the().syncVariants; }
