#include "AllScriptUses.h"
#include "VariantsScriptTest.h"
#include "host/script/kuScript.h"
#include "standalone/script/ScriptPolicy.h"

using kuStandalone::ScriptPolicy;

// What a text uses is gone when it has run: however often it runs, Python holds no more than
// before.

namespace {

constexpr long kTimes = 40;

void runText(const char* text) { kuScript::run(text); }
void answerText(const char* text) { kuScript::executeNUSR(text); }

class ScriptLeaks : public VariantsScriptTest, public ::testing::WithParamInterface<const char*> {
 protected:
  ScriptLeaks() { prepareScriptUses(scene); }

  /** The blocks of memory that Python's objects take. */
  static long blocks() {
    const bool allowed = ScriptPolicy::allowed();
    ScriptPolicy::allow(true);
    EXPECT_TRUE(run("import gc, sys\ngc.collect()"));
    const long count = std::stol(answer("sys.getallocatedblocks()"));
    ScriptPolicy::allow(allowed);
    return count;
  }

  /**
   * Whether each run of the text takes blocks that it does not give back. Python's caches grow too,
   * but not for ever: some round shows what the text alone does.
   */
  static bool leaks(const char* text, void (*use)(const char*) = runText) {
    for (int round = 0; round < 100; ++round) {
      const long before = blocks();
      for (long i = 0; i < kTimes; ++i)
        use(text);
      if (blocks() - before < kTimes / 2) return false;
    }
    return true;
  }
};

TEST_P(ScriptLeaks, HasNoneHoweverOftenItRuns) {
  EXPECT_TRUE(run(GetParam())) << GetParam();
  EXPECT_FALSE(leaks(GetParam())) << GetParam();
}

INSTANTIATE_TEST_SUITE_P(Uses, ScriptLeaks, ::testing::ValuesIn(allScriptUses));

/** The measure itself. */
TEST_F(ScriptLeaks, AreSeenWhereThereAreSome) {
  ASSERT_TRUE(run("kept = []"));
  EXPECT_TRUE(leaks("kept.append(object())"));
}

TEST_F(ScriptLeaks, AreNoneWhereATextFails) {
  for (const char* text :
       {"selectVariantSet(1)", "selectVariantSet('\\ud800')", "unknown()", "no python", "\xFF",
        "raise SystemExit", "findNode('Paint').setChoice(9)", "blue.setValue('a')"}) {
    EXPECT_FALSE(run(text)) << text;
    EXPECT_FALSE(leaks(text)) << text;
  }
}

TEST_F(ScriptLeaks, AreNoneWhileScriptsAreOff) {
  ScriptPolicy::allow(false);
  for (const char* text :
       {"selectVariantSet('Blue')", "setClippingPlane(Pnt3f(1, 2, 3), Vec3f(0, 0, 1), true)",
        "findNodePath('Paint').setActive(true)", "selectVariantSet(1)", "import os", "no python",
        "\xFF", "selectVariantSet('\\ud800')", "f(lambda: [i for i in f'{1}'])"}) {
    EXPECT_FALSE(leaks(text)) << text;
  }
}

TEST_F(ScriptLeaks, AreNoneWhereAnExpressionIsAnswered) {
  for (const char* text : {"findNodes('Paint')", "blue.getTargetNodeNames()", "1/0", "'\\ud800'"})
    EXPECT_FALSE(leaks(text, answerText)) << text;
}

}  // namespace
