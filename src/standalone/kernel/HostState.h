#pragma once

#include <cstdint>
#include <functional>

#include "host/kuHostExport.h"

class QMainWindow;
class kuOSGWidget;
class kuRaytracingUtilsBase;

namespace kuStandalone {

/** The exports of pictures so far, and what the last one asked for. */
struct PictureExports {
  /** Exports that were begun, those of their pictures that were done, and exports that were ended
   * by their own operation. */
  std::uint64_t begun = 0, done = 0, ended = 0;
  int width = 0, height = 0, quality = 0;
  bool noProgress = false, noOverwriteMessage = false;
  /** Writers that live. */
  int writers = 0;
};

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
  /** The answer of kuConnector::syncVariants: whether the script commands of a selection go to the
   * partners of a session. The application's to set. */
  bool syncVariants = false;
  /** Calls of kuScript::executeNUS, and the flag of the last one. */
  std::uint64_t scriptCommands = 0;
  bool lastScriptCommandSync = false;
  /** The application's main window; null while it has none. */
  QMainWindow* mainWindow = nullptr;
  /** The answer of kuOSGWidget::getMGLW; null while the application has none. */
  kuOSGWidget* renderWidget = nullptr;
  /** The answer of kuOSGWidget::getRaytracing. This host's own frames are all ray traced; an
   * application that shows others says so. */
  bool raytracing = true;
  /** The setting of the host's own ray tracer: samples per pixel of the widget's frames and of
   * exported pictures. -1, like every number below 1, takes the renderer's own default. */
  int renderSetting = -1;
  /** What kuRaytracingManager answers in the place of the host's own; null for that. */
  kuRaytracingUtilsBase* raytracingUtils = nullptr;
  /** Told how far an export is, from 0 to 1, unless the export wants no progress; false stops it.
   * It is called in the midst of rendering and must not change the scene. */
  std::function<bool(double)> exportProgress;
  PictureExports exports;
};

}  // namespace kuStandalone
