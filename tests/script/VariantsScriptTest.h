#pragma once

#include <string>

#include "standalone/script/ScriptVariables.h"
#include "support/VariantsTest.h"

class kuVariantSet;

/**
 * Fixture of the tests of the library's script modules: an empty scene and manager, scripts
 * allowed, the clipping as it is at first, and global names that are put back after the test.
 */
class VariantsScriptTest : public VariantsTest {
 protected:
  VariantsScriptTest();
  ~VariantsScriptTest() override;

  /** Python's str of an expression; what failed stands in the log. */
  static std::string answer(const std::string& expression);
  static bool run(const std::string& text);

  /** Puts a set into the global namespace, as an application does. */
  static void put(const char* name, kuVariantSet* set);

  /** Python's error of the last text of one line; empty if there is none. */
  std::string lastError() const;

 private:
  kuStandalone::ScriptVariables _names;
};
