// Starts the interpreter, uses each class and function that scripts find, stops it, and ends. Run
// by CTest: under a leak checker it fails where something of ours is left behind.
#include <QApplication>
#include <boost/python.hpp>
#include <cstdlib>
#include <iostream>

#include "AllScriptUses.h"
#include "host/kernel/kuController.h"
#include "host/script/kuScript.h"
#include "standalone/StandaloneHost.h"
#include "standalone/script/ScriptPolicy.h"
#include "support/SceneBuilder.h"

namespace {

bool useAll() {
  SceneBuilder scene;
  kuStandalone::ScriptPolicy::allow(true);
  prepareScriptUses(scene);
  for (const char* text : allScriptUses) {
    if (kuScript::run(text)) continue;
    std::cerr << "failed: " << text << '\n';
    return false;
  }
  const bool captured = kuScript::run("createAndCaptureVariantSet('Captured', 'Group')");
  kuController::call("clearAllVariants", 1);
  return kuScript::run("del blue") && captured;
}

/** A thread that still waits must not keep the process. */
bool leaveAThread() {
  return kuScript::run(
      "import threading\n"
      "threading.Thread(target=threading.Event().wait, daemon=True).start()");
}

}  // namespace

/** The argument "stop" stops the interpreter at the end, as the host never does; with "leave" the
 * process ends as the host's do. */
int main(int argc, char** argv) {
  if (argc != 2) return EXIT_FAILURE;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  const kuStandalone::StandaloneHost host;
  if (!useAll()) return EXIT_FAILURE;
  if (std::string(argv[1]) == "leave") return leaveAThread() ? EXIT_SUCCESS : EXIT_FAILURE;
  SceneBuilder();
  return Py_FinalizeEx() == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
