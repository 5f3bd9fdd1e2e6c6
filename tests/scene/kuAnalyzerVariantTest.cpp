#include "scene/kuAnalyzerVariant.h"

#include <QLocale>
#include <clocale>
#include <locale>

#include "standalone/script/ClippingSettings.h"
#include "support/VariantsTest.h"
#include "support/kuVariantsTestAccess.h"

using Access = kuVariantsTestAccess;
using kuStandalone::ClippingSettings;

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

}  // namespace
