#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "standalone/kernel/LogSink.h"
#include "support/SceneBuilder.h"

/**
 * Fixture of every test that has a scene: each test starts with an empty one, and fails if a field
 * of the scene was changed outside a fitting edit bracket or a bracket was left open.
 */
class SceneTest : public ::testing::Test {
 protected:
  SceneTest();
  ~SceneTest() override;
  void TearDown() override;

  /** Log lines so far: "error: ...", "warning: ...", "info: ...". */
  std::vector<std::string> log;
  SceneBuilder scene;

 private:
  std::uint64_t _violationsBefore;
  kuStandalone::LogSink _sink;
};
