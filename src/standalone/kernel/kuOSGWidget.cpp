#include "host/kernel/kuOSGWidget.h"

#include "standalone/kernel/HostState.h"

void kuOSGWidget::cancelAntialiasing() { ++kuStandalone::HostState::the().antialiasingCancels; }
