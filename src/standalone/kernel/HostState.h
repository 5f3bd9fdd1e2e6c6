#pragma once

#include <cstdint>

#include "host/kuHostExport.h"

class QMainWindow;

namespace kuStandalone {

/** What the library asked of the application so far, and what the application told it. */
struct KUHOST_EXPORT HostState {
  static HostState& the();

  /** Frames asked for by kuController::updateRender, and the flag of the last request. */
  std::uint64_t renderRequests = 0;
  bool lastRenderRequestNow = false;
  /** Calls of kuOSGWidget::cancelAntialiasing. */
  std::uint64_t antialiasingCancels = 0;
  bool busy = false;
  /** Whether the name cache is open, and how often one was opened. */
  bool findCacheOpen = false;
  std::uint64_t findCacheOpenings = 0;
  /** Calls of kuScenegraph::showNodes, those without nodes included. */
  std::uint64_t showNodesCalls = 0;
  /** The answer of kuConnector::syncVariants. */
  bool syncVariants = false;
  /** Calls of kuScript::executeNUS, and the flag of the last one. There are no partners here, so
   * the flag has no effect. */
  std::uint64_t scriptCommands = 0;
  bool lastScriptCommandSync = false;
  /** The application's main window; null while it has none. */
  QMainWindow* mainWindow = nullptr;
};

}  // namespace kuStandalone
