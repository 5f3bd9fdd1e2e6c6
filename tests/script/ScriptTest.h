#pragma once

#include <string>

#include "support/SceneTest.h"

/**
 * Fixture of the tests of scripts: each starts with scripts off, no refusals, the clipping as it
 * is at first, and the command "sentinel", which takes any arguments and counts its calls.
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
};
