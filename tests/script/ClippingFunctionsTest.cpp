#include "standalone/script/ClippingSettings.h"

#include <array>
#include <cstdio>

#include "ScriptTest.h"
#include "host/script/kuScript.h"
#include "standalone/script/ScriptPolicy.h"

using namespace kuStandalone;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

const char* const kAllSettings =
    "setClippingPlane(Pnt3f(1, -2.5, 1.23457e+06),Vec3f(0, 0, 1),true)\n"
    "setClippingPlaneVisualization(false, Vec3f(0.1, 0.2, 0.3))\n"
    "setClippingGridVisualization(false, Vec3f(0.4, 0.5, 0.6))\n"
    "setClippingContourVisualization(false, Vec3f(0.7, 0.8, 0.9), 7)\n"
    "setClippingHideScene(true)\n"
    "enableClippingPlane(true)\n";

/** Both ways of trust: the clipping of a set works with scripts on and off. */
class ClippingFunctions : public ScriptTest, public ::testing::WithParamInterface<bool> {
 protected:
  ClippingFunctions() { ScriptPolicy::allow(GetParam()); }
  ~ClippingFunctions() override { EXPECT_EQ(ScriptPolicy::refusalCount(), 0u); }

  static ClippingSettings& settings() { return ClippingSettings::the(); }
};

/** Reads as the library reads the answers. */
std::array<float, 3> scanned(const char* expression) {
  std::array<float, 3> numbers{-99, -99, -99};
  char separator[10];
  const std::string text = kuScript::executeNUSR(expression);
  EXPECT_EQ(std::sscanf(text.c_str(), "%f %9s %f %9s %f", &numbers[0], separator, &numbers[1],
                        separator, &numbers[2]),
            5)
      << text;
  return numbers;
}

TEST_P(ClippingFunctions, SettingsOfASetTakeEffect) {
  EXPECT_TRUE(kuScript::executeNUS(kAllSettings, false));
  EXPECT_TRUE(settings().enabled);
  EXPECT_EQ(settings().position, osg::Pnt3f(1, -2.5f, 1.23457e+06f));
  EXPECT_EQ(settings().normal, osg::Vec3f(0, 0, 1));
  EXPECT_TRUE(settings().invert);
  EXPECT_TRUE(settings().hideScene);
  EXPECT_FALSE(settings().showPlane);
  EXPECT_EQ(settings().planeColor, osg::Vec3f(0.1f, 0.2f, 0.3f));
  EXPECT_FALSE(settings().showGrid);
  EXPECT_EQ(settings().gridColor, osg::Vec3f(0.4f, 0.5f, 0.6f));
  EXPECT_FALSE(settings().showContour);
  EXPECT_EQ(settings().contourColor, osg::Vec3f(0.7f, 0.8f, 0.9f));
  EXPECT_EQ(settings().contourWidth, 7);
  EXPECT_THAT(log, IsEmpty());
}

TEST_P(ClippingFunctions, SettingsThatNobodyTouchedTakeEffect) {
  ASSERT_TRUE(kuScript::executeNUS(kAllSettings, false));
  EXPECT_TRUE(
      kuScript::executeNUS("setClippingPlane(Pnt3f(0, 0, 0),Vec3f(0, 1, 0),false)\n"
                           "setClippingPlaneVisualization(true, Vec3f(0.2, 0.3, 0.4))\n"
                           "setClippingGridVisualization(true, Vec3f(0.63, 0.82, 0.89))\n"
                           "setClippingContourVisualization(true, Vec3f(1, 0.7, 0), 1)\n"
                           "setClippingHideScene(false)\n"
                           "enableClippingPlane(true)\n",
                           false));
  EXPECT_TRUE(settings().enabled);
  EXPECT_EQ(settings().normal, osg::Vec3f(0, 1, 0));
  EXPECT_FALSE(settings().invert);
  EXPECT_FALSE(settings().hideScene);
  EXPECT_TRUE(settings().showPlane);
  EXPECT_EQ(settings().planeColor, osg::Vec3f(0.2f, 0.3f, 0.4f));
  EXPECT_EQ(settings().gridColor, osg::Vec3f(0.63f, 0.82f, 0.89f));
  EXPECT_EQ(settings().contourColor, osg::Vec3f(1, 0.7f, 0));
  EXPECT_EQ(settings().contourWidth, 1);
}

TEST_P(ClippingFunctions, PlaneAloneLeavesTheRest) {
  EXPECT_TRUE(
      kuScript::executeNUS("setClippingPlane(Pnt3f(1, 2, 3),Vec3f(0, 0, 1),true)\n", false));
  EXPECT_EQ(settings().position, osg::Pnt3f(1, 2, 3));
  EXPECT_FALSE(settings().enabled);
  EXPECT_TRUE(settings().showPlane);
  EXPECT_EQ(settings().planeColor, osg::Vec3f(0.2f, 0.3f, 0.4f));
}

TEST_P(ClippingFunctions, DisablingLeavesTheRest) {
  ASSERT_TRUE(kuScript::executeNUS(kAllSettings, false));
  EXPECT_TRUE(kuScript::executeNUS("enableClippingPlane(false)\n", false));
  EXPECT_FALSE(settings().enabled);
  EXPECT_TRUE(settings().hideScene);
  EXPECT_EQ(settings().contourWidth, 7);
}

TEST_P(ClippingFunctions, VectorsAreAnsweredAsNumbersWithWordsBetween) {
  ASSERT_TRUE(kuScript::executeNUS(kAllSettings, false));
  EXPECT_THAT(scanned("getClippingPlanePosition()"), ElementsAre(1, -2.5f, 1.23457e+06f));
  EXPECT_THAT(scanned("getClippingPlaneNormal()"), ElementsAre(0, 0, 1));
  EXPECT_THAT(scanned("getClippingPlaneColor()"), ElementsAre(0.1f, 0.2f, 0.3f));
  EXPECT_THAT(scanned("getClippingGridColor()"), ElementsAre(0.4f, 0.5f, 0.6f));
  EXPECT_THAT(scanned("getClippingContourColor()"), ElementsAre(0.7f, 0.8f, 0.9f));
  EXPECT_EQ(kuScript::executeNUSR("getClippingPlaneColor()"), "0.1 , 0.2 , 0.3");
}

TEST_P(ClippingFunctions, WidthIsAnsweredAsAWholeNumber) {
  ASSERT_TRUE(kuScript::executeNUS(kAllSettings, false));
  EXPECT_EQ(kuScript::executeNUSR("getClippingContourWidth()"), "7");
}

TEST_P(ClippingFunctions, ExtremeNumbersAreAnsweredInFull) {
  ASSERT_TRUE(kuScript::executeNUS(
      "setClippingPlane(Pnt3f(3.40282e+38, -1e-38, 16777217),Vec3f(0, 0, 1),false)", false));
  EXPECT_THAT(scanned("getClippingPlanePosition()"), ElementsAre(3.40282e+38f, -1e-38f, 16777216));
}

TEST_P(ClippingFunctions, WrongArgumentsAreAnErrorThatChangesNothing) {
  const char* const texts[] = {
      "setClippingPlane(Vec3f(1, 2, 3),Vec3f(0, 0, 1),true)",
      "setClippingPlane(1, 2, 3)",
      "setClippingPlane()",
      "setClippingHideScene('true')",
      "setClippingHideScene(0.5)",
      "setClippingContourVisualization(false, Vec3f(1, 1, 1), 1.5)",
      "setClippingContourVisualization(false, Vec3f(1, 1, 1), 3000000000)",
      "setClippingGridVisualization(false, Vec3f(1, 1, 1), 1)",
      "enableClippingPlane('')",
  };
  for (const char* text : texts) {
    log.clear();
    EXPECT_FALSE(kuScript::executeNUS(text, false)) << text;
    ASSERT_EQ(log.size(), 1u) << text;
    EXPECT_THAT(log[0], HasSubstr("error: script failed: "));
  }
  EXPECT_EQ(settings().position, osg::Pnt3f(0, 0, 0));
  EXPECT_FALSE(settings().hideScene);
  EXPECT_EQ(settings().contourWidth, 1);
  EXPECT_TRUE(settings().showGrid);
}

INSTANTIATE_TEST_SUITE_P(Trust, ClippingFunctions, ::testing::Bool(), [](const auto& row) {
  return row.param ? std::string("ScriptsOn") : std::string("ScriptsOff");
});

struct Flag {
  const char* name;
  bool ClippingSettings::*field;
  const char* expression;
};

void PrintTo(const Flag& flag, std::ostream* out) { *out << flag.name; }

class ClippingFlags : public ScriptTest, public ::testing::WithParamInterface<Flag> {};

TEST_P(ClippingFlags, AreAnsweredAsTrueAndFalse) {
  ClippingSettings::the().*GetParam().field = true;
  EXPECT_EQ(kuScript::executeNUSR(GetParam().expression), "True");
  ClippingSettings::the().*GetParam().field = false;
  EXPECT_EQ(kuScript::executeNUSR(GetParam().expression), "False");
}

const Flag kFlags[] = {
    {"Invert", &ClippingSettings::invert, "getClippingPlaneInvertDirection()"},
    {"HideScene", &ClippingSettings::hideScene, "getClippingHideScene()"},
    {"ShowPlane", &ClippingSettings::showPlane, "getClippingShowPlane()"},
    {"ShowGrid", &ClippingSettings::showGrid, "getClippingShowGrid()"},
    {"ShowContour", &ClippingSettings::showContour, "getClippingShowContour()"},
};

INSTANTIATE_TEST_SUITE_P(Flags, ClippingFlags, ::testing::ValuesIn(kFlags),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
