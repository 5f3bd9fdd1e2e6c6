#include "support/SceneTest.h"

#include "standalone/kernel/HostState.h"
#include "standalone/scene/EditBrackets.h"

using namespace kuStandalone;

namespace {

std::string lineOf(LogLevel level, const std::string& text) {
  switch (level) {
    case LogLevel::Error:
      return "error: " + text;
    case LogLevel::Warning:
      return "warning: " + text;
    case LogLevel::Info:
      break;
  }
  return "info: " + text;
}

}  // namespace

SceneTest::SceneTest()
    : _violationsBefore(EditBrackets::violations()),
      _sink(
          [this](LogLevel level, const std::string& text) { log.push_back(lineOf(level, text)); }) {
  HostState::the() = HostState();
}

SceneTest::~SceneTest() = default;

void SceneTest::TearDown() {
  EXPECT_EQ(EditBrackets::violations(), _violationsBefore)
      << "the scene was changed outside a fitting edit bracket";
  EXPECT_EQ(EditBrackets::open(), 0u) << "an edit bracket was left open";
}
