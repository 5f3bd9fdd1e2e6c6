#include "host/kernel/kuController.h"

#include <QMainWindow>

#include "host/widgets/QKuDockWindowManager.h"
#include "standalone/kernel/HostState.h"
#include "standalone/kernel/MessageBus.h"

using kuStandalone::HostState;
using kuStandalone::MessageBus;

bool kuController::call(const char* name, kuMessage& message, int mode) {
  return name && MessageBus::the().deliver(name, &message, mode);
}

bool kuController::call(const char* name, int mode) {
  return name && MessageBus::the().deliver(name, nullptr, mode);
}

void kuController::addCB(const char* name, void (*callback)(kuMessage&)) {
  if (name) MessageBus::the().add(name, callback);
}

void kuController::subCB(const char* name, void (*callback)(kuMessage&)) {
  if (name) MessageBus::the().remove(name, callback);
}

void kuController::updateRender(bool now) {
  HostState& state = HostState::the();
  ++state.renderRequests;
  state.lastRenderRequestNow = now;
}

QMainWindow* kuController::getMainWindow() { return HostState::the().mainWindow; }

QKuDockWindowManager* kuController::getDockWindowManager() {
  static QKuDockWindowManager manager;
  return &manager;
}

void kuController::setBusy(bool busy, bool process) {
  HostState& state = HostState::the();
  state.busy = busy;
  QMainWindow* window = state.mainWindow;
  if (!window) return;
  busy ? window->setCursor(Qt::WaitCursor) : window->unsetCursor();
  // Painted at once, but without the event loop: nothing else may run in the caller's midst.
  if (process) window->repaint();
}
