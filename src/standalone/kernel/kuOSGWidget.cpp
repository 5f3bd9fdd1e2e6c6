#include "host/kernel/kuOSGWidget.h"

#include "standalone/kernel/HostState.h"

using kuStandalone::HostState;

kuOSGWidget::~kuOSGWidget() = default;

void kuOSGWidget::cancelAntialiasing() { ++HostState::the().antialiasingCancels; }

bool kuOSGWidget::getRaytracing() { return HostState::the().raytracing; }

kuOSGWidget* kuOSGWidget::getMGLW(int index) {
  const bool isPresent = index == -1 || index == 0;
  return isPresent ? HostState::the().renderWidget : nullptr;
}
