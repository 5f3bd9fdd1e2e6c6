#include "host/widgets/QKuDockWindowManager.h"

#include <QMainWindow>
#include <algorithm>

#include "host/widgets/QKuDockWidget.h"
#include "standalone/kernel/HostState.h"

QKuDockWidget* QKuDockWindowManager::getDockWidget(const QString& title) const {
  const QMainWindow* window = kuStandalone::HostState::the().mainWindow;
  if (!window) return nullptr;
  const auto docks = window->findChildren<QKuDockWidget*>();
  const auto found = std::find_if(docks.begin(), docks.end(), [&](const QKuDockWidget* dock) {
    return dock->windowTitle() == title;
  });
  return found == docks.end() ? nullptr : *found;
}
