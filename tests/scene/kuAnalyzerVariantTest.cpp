#include "scene/kuAnalyzerVariant.h"

#include <QLocale>
#include <clocale>
#include <locale>

#include "model/kuVariantSet.h"
#include "standalone/kernel/HostState.h"
#include "standalone/script/ClippingSettings.h"
#include "support/VariantsTest.h"
#include "support/kuVariantsTestAccess.h"

using Access = kuVariantsTestAccess;
using kuStandalone::ClippingSettings;
using kuStandalone::HostState;

namespace {

/** Writes numbers as much of the world does. */
class DecimalComma : public std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

class kuAnalyzerVariantTest : public VariantsTest {
 protected:
  kuAnalyzerVariantTest() { ClippingSettings::the() = ClippingSettings(); }
  ~kuAnalyzerVariantTest() override { ClippingSettings::the() = ClippingSettings(); }

  static std::string scriptOf(int clipState) {
    return Access::clippingScript(Access::clipping(clipState));
  }
};

const char* const AllSettings =
    "setClippingPlane(Pnt3f(0, 0, 0),Vec3f(0, 1, 0),false)\n"
    "setClippingPlaneVisualization(true, Vec3f(0.2, 0.3, 0.4))\n"
    "setClippingGridVisualization(true, Vec3f(0.63, 0.82, 0.89))\n"
    "setClippingContourVisualization(true, Vec3f(1, 0.7, 0), 1)\n"
    "setClippingHideScene(false)\n"
    "enableClippingPlane(true)\n";

TEST_F(kuAnalyzerVariantTest, EnablingSendsSixLines) { EXPECT_EQ(scriptOf(1), AllSettings); }

TEST_F(kuAnalyzerVariantTest, DisablingSendsItsOneLine) {
  EXPECT_EQ(scriptOf(2), "enableClippingPlane(false)\n");
}

TEST_F(kuAnalyzerVariantTest, MovingSendsThePlaneAlone) {
  EXPECT_EQ(scriptOf(3), "setClippingPlane(Pnt3f(0, 0, 0),Vec3f(0, 1, 0),false)\n");
}

TEST_F(kuAnalyzerVariantTest, OtherStatesSendNothing) {
  for (const int state : {0, -1, 4})
    EXPECT_EQ(scriptOf(state), "") << state;
}

TEST_F(kuAnalyzerVariantTest, NumbersHaveSixDigitsAndAnExponent) {
  kuAnalyzerVariant settings = Access::clipping(3);
  Access::setClipPosition(settings, 1234567, 0.2F, 1);
  EXPECT_EQ(Access::clippingScript(settings),
            "setClippingPlane(Pnt3f(1.23457e+06, 0.2, 1),Vec3f(0, 1, 0),false)\n");
}

TEST_F(kuAnalyzerVariantTest, NumbersIgnoreTheLocaleOfTheApplication) {
  const QLocale formerQt;
  const std::string formerC = std::setlocale(LC_ALL, nullptr);
  const std::locale former =
      std::locale::global(std::locale(std::locale::classic(), new DecimalComma));
  QLocale::setDefault(QLocale(QLocale::German));
  std::setlocale(LC_ALL, "de_DE.UTF-8");  // where it is installed
  kuAnalyzerVariant settings = Access::clipping(3);
  Access::setClipPosition(settings, 0.5F, 12345, 1234567);
  const std::string script = Access::clippingScript(settings);
  std::locale::global(former);
  std::setlocale(LC_ALL, formerC.c_str());
  QLocale::setDefault(formerQt);
  EXPECT_EQ(script, "setClippingPlane(Pnt3f(0.5, 12345, 1.23457e+06),Vec3f(0, 1, 0),false)\n");
}

TEST_F(kuAnalyzerVariantTest, ExecuteReachesTheHostsClippingPlane) {
  Access::clipping(1).execute();
  EXPECT_TRUE(ClippingSettings::the().enabled);
  kuAnalyzerVariant move = Access::clipping(3);
  Access::setClipPosition(move, 1, 2, 3);
  move.execute();
  EXPECT_EQ(ClippingSettings::the().position, osg::Pnt3f(1, 2, 3));
  EXPECT_TRUE(ClippingSettings::the().enabled);
  Access::clipping(2).execute();
  EXPECT_FALSE(ClippingSettings::the().enabled);
}

TEST_F(kuAnalyzerVariantTest, ADefaultOneDoesNothing) {
  ClippingSettings::the().enabled = true;
  ClippingSettings::the().position = osg::Pnt3f(7, 8, 9);
  kuAnalyzerVariant().execute();
  EXPECT_TRUE(ClippingSettings::the().enabled);
  EXPECT_EQ(ClippingSettings::the().position, osg::Pnt3f(7, 8, 9));
}

/** Every setting differs from its default and from the others. */
kuVariantSet setOfManySettings(int clipState) {
  kuVariantSet set("Cut");
  set.setClippingState(clipState);
  set.setClippingPlanePositionX(1.5);
  set.setClippingPlanePositionY(-2.25);
  set.setClippingPlanePositionZ(3);
  set.setClippingPlaneNormalX(0.125);
  set.setClippingPlaneNormalY(0.25);
  set.setClippingPlaneNormalZ(-0.5);
  set.setClippingInvert(true);
  set.setClippingShowPlane(false);
  set.setClippingPlaneColorR(0.01);
  set.setClippingPlaneColorG(0.02);
  set.setClippingPlaneColorB(0.03);
  set.setClippingShowGrid(false);
  set.setClippingGridColorR(0.04);
  set.setClippingGridColorG(0.05);
  set.setClippingGridColorB(0.06);
  set.setClippingShowContour(false);
  set.setClippingContourColorR(0.07);
  set.setClippingContourColorG(0.08);
  set.setClippingContourColorB(0.09);
  set.setClippingContourWidth(-12);
  set.setClippingHideScene(true);
  return set;
}

std::string scriptOfManySettings(int clipState) {
  return Access::clippingScript(setOfManySettings(clipState).getAnalyzerVariant());
}

TEST_F(kuAnalyzerVariantTest, EachSettingStandsInItsPlace) {
  EXPECT_EQ(scriptOfManySettings(1),
            "setClippingPlane(Pnt3f(1.5, -2.25, 3),Vec3f(0.125, 0.25, -0.5),true)\n"
            "setClippingPlaneVisualization(false, Vec3f(0.01, 0.02, 0.03))\n"
            "setClippingGridVisualization(false, Vec3f(0.04, 0.05, 0.06))\n"
            "setClippingContourVisualization(false, Vec3f(0.07, 0.08, 0.09), -12)\n"
            "setClippingHideScene(true)\n"
            "enableClippingPlane(true)\n");
}

TEST_F(kuAnalyzerVariantTest, OneFlagAtATimeReachesItsOwnLine) {
  struct Row {
    void (kuVariantSet::*set)(bool);
    bool value;
    const char* line;
  };
  const Row rows[] = {
      {&kuVariantSet::setClippingInvert, true, "Vec3f(0, 1, 0),true)\n"},
      {&kuVariantSet::setClippingShowPlane, false, "PlaneVisualization(false, "},
      {&kuVariantSet::setClippingShowGrid, false, "GridVisualization(false, "},
      {&kuVariantSet::setClippingShowContour, false, "ContourVisualization(false, "},
      {&kuVariantSet::setClippingHideScene, true, "setClippingHideScene(true)\n"},
  };
  for (const Row& row : rows) {
    kuVariantSet set("Cut");
    set.setClippingState(1);
    (set.*row.set)(row.value);
    const std::string script = Access::clippingScript(set.getAnalyzerVariant());
    for (const Row& other : rows)
      EXPECT_EQ(script.find(other.line) != std::string::npos, &other == &row) << other.line;
  }
}

TEST_F(kuAnalyzerVariantTest, MovingSendsThePlaneAloneWhateverTheOtherFieldsHold) {
  EXPECT_EQ(scriptOfManySettings(3),
            "setClippingPlane(Pnt3f(1.5, -2.25, 3),Vec3f(0.125, 0.25, -0.5),true)\n");
}

TEST_F(kuAnalyzerVariantTest, DisablingSendsItsOneLineWhateverTheOtherFieldsHold) {
  EXPECT_EQ(scriptOfManySettings(2), "enableClippingPlane(false)\n");
}

TEST_F(kuAnalyzerVariantTest, OtherStatesSendNothingWhateverTheOtherFieldsHold) {
  for (const int state : {0, -1, 4})
    EXPECT_EQ(scriptOfManySettings(state), "") << state;
}

TEST_F(kuAnalyzerVariantTest, TheConnectorSaysWhetherPartnersRunTheScript) {
  for (const bool sync : {true, false, true}) {
    for (const int state : {1, 2, 3}) {
      HostState::the().syncVariants = sync;
      HostState::the().lastScriptCommandSync = !sync;
      Access::clipping(state).execute();
      EXPECT_EQ(HostState::the().lastScriptCommandSync, sync) << state;
    }
  }
}

TEST_F(kuAnalyzerVariantTest, OneScriptIsRunForEachExecuteAndNoneWithoutAState) {
  const struct {
    int state;
    unsigned scripts;
  } rows[] = {{-1, 0}, {0, 0}, {1, 2}, {2, 2}, {3, 2}, {4, 0}};
  for (const auto& row : rows) {
    HostState::the().scriptCommands = 0;
    kuAnalyzerVariant settings = Access::clipping(row.state);
    settings.execute();
    settings.execute();
    EXPECT_EQ(HostState::the().scriptCommands, row.scripts) << row.state;
  }
  EXPECT_TRUE(log.empty());
}

TEST_F(kuAnalyzerVariantTest, SelectDoesNothingAndThereIsNoCurrentState) {
  kuAnalyzerVariant settings = Access::clipping(1);
  settings.select(QString("!Enable"));
  settings.select();
  EXPECT_EQ(HostState::the().scriptCommands, 0u);
  EXPECT_EQ(settings.getCurrent(), "");
  EXPECT_TRUE(messages.lines().empty());
}

TEST_F(kuAnalyzerVariantTest, CopiesHaveEverySettingAndTheBase) {
  kuAnalyzerVariant settings = setOfManySettings(1).getAnalyzerVariant();
  settings.setName("Cut");
  const kuAnalyzerVariant copy(settings);
  kuAnalyzerVariant assigned;
  assigned = settings;
  for (const kuAnalyzerVariant* other :
       std::initializer_list<const kuAnalyzerVariant*>{&copy, &assigned}) {
    EXPECT_EQ(Access::clippingScript(*other), scriptOfManySettings(1));
    EXPECT_EQ(other->getName(), "Cut");
  }
}

}  // namespace
