#include "standalone/script/ScriptVariables.h"

#include "ScriptTest.h"
#include "host/script/kuScript.h"
#include "standalone/script/ScriptPolicy.h"

using kuStandalone::ScriptPolicy;
using kuStandalone::ScriptVariables;
using ::testing::IsEmpty;

namespace {

class ScriptVariablesTest : public ScriptTest {
 protected:
  ScriptVariablesTest() { ScriptPolicy::allow(true); }
};

}  // namespace

TEST_F(ScriptVariablesTest, NamesThatCameSinceAreTakenOut) {
  const ScriptVariables variables;
  kuScript::run("ran = 1");
  EXPECT_TRUE(hasRan());
  variables.restore();
  EXPECT_FALSE(hasRan());
}

TEST_F(ScriptVariablesTest, NamesHaveTheirValuesAgain) {
  kuScript::run("kept = 1");
  const ScriptVariables variables;
  kuScript::run("kept = 2");
  variables.restore();
  kuScript::run("assert kept == 1\ndel kept");
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(ScriptVariablesTest, NamesThatWereTakenOutAreBack) {
  const ScriptVariables variables;
  kuScript::run("del true, enableClippingPlane");
  variables.restore();
  kuScript::run("enableClippingPlane(true)\nenableClippingPlane(false)");
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(ScriptVariablesTest, MayBeRestoredMoreThanOnce) {
  const ScriptVariables variables;
  for (int time = 0; time < 2; ++time) {
    kuScript::run("ran = 1");
    variables.restore();
    EXPECT_FALSE(hasRan());
  }
}
