#include "HostileTexts.h"
#include "ScriptTest.h"
#include "host/script/kuScript.h"
#include "standalone/script/ScriptPolicy.h"

using namespace kuStandalone;
using ::testing::ElementsAre;
using ::testing::StartsWith;

namespace {

/** The three ways by which a text reaches the interpreter; the answer is whether it ran. */
struct Way {
  const char* name;
  bool (*run)(const char* code);
};

const Way kWays[] = {
    {"run", kuScript::run},
    {"executeNUS", [](const char* code) { return kuScript::executeNUS(code, true); }},
    {"executeNUSR", [](const char* code) { return !kuScript::executeNUSR(code).empty(); }},
};

class HostileTexts : public ScriptTest, public ::testing::WithParamInterface<HostileText> {};

TEST_P(HostileTexts, RunNothingAndAreToldWithTheSet) {
  sendSelection("Blue");
  for (const Way& way : kWays) {
    SCOPED_TRACE(way.name);
    log.clear();
    ScriptPolicy::clearRefusals();
    EXPECT_FALSE(way.run(GetParam().text.c_str()));
    EXPECT_EQ(sentinelCalls(), 0);
    EXPECT_FALSE(hasRan());
    EXPECT_THAT(log, ElementsAre(StartsWith(
                         "warning: script of set \"Blue\" not run, scripts are not allowed: ")));
    ASSERT_EQ(ScriptPolicy::refusalCount(), 1u);
    EXPECT_EQ(ScriptPolicy::refusals().front().set, "Blue");
  }
}

TEST_P(HostileTexts, BiteWhereScriptsAreAllowed) {
  ScriptPolicy::allow(true);
  kuScript::run(GetParam().text.c_str());
  EXPECT_EQ(sentinelCalls() > 0 || hasRan(), GetParam().bites);
}

INSTANTIATE_TEST_SUITE_P(Texts, HostileTexts, ::testing::ValuesIn(hostileTexts()),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
