#pragma once

#include <string>

#include "standalone/script/ScriptVariables.h"
#include "support/SceneTest.h"

/**
 * Fixture of the tests of scripts: each starts with scripts off, no refusals, the clipping as it
 * is at first, and the command "sentinel", which takes any arguments and counts its calls. The
 * global names are put back after the test.
 */
class ScriptTest : public SceneTest {
 protected:
  ScriptTest();
  ~ScriptTest() override;

  /** How often "sentinel" ran. */
  static int sentinelCalls();
  /** Whether the global namespace has the name "ran". */
  static bool hasRan();

  /** Sends what a selection sends at its start, and with an empty name at its end. */
  static void sendSelection(const std::string& set);

 private:
  kuStandalone::ScriptVariables _names;
};
