#include <limits>

#include "VariantsScriptTest.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"
#include "scene/kuNodeVariant.h"
#include "standalone/script/ClippingSettings.h"
#include "standalone/script/ScriptPolicy.h"

using namespace kuStandalone;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

// What a document can bring into the texts that the library makes itself: names of sets into the
// one that activates a captured set, and numbers into the one that clips.

namespace {

/** Scripts are off. The set of the hostile name and the set "Blue" choose the second child. */
class HostileNames : public VariantsScriptTest {
 protected:
  HostileNames() {
    paint = scene.switchNode("Paint", 0, {"Red", "Blue"});
    variant = kuVariants::createNodeVariant(paint, false);
    ScriptPolicy::allow(false);
  }

  void createSet(const QString& name) {
    kuVariants::createVariantSet(name, false, nullptr)->add(variant, "Blue");
  }

  int activate(const QString& name) {
    kuVariants::activateCapturedVariantSet(name.toUtf8().constData());
    return scene.choice(paint);
  }

  void expectRefused() {
    EXPECT_EQ(scene.choice(paint), 0);
    EXPECT_EQ(ScriptPolicy::refusalCount(), 1u);
    EXPECT_THAT(log, ElementsAre(StartsWith("warning: script not run, scripts are not allowed: ")));
    ScriptPolicy::allow(true);
    EXPECT_EQ(answer("'ran' in globals()"), "False");
  }

  osg::NodePtr paint;
  kuNodeVariant* variant;
};

struct Name {
  const char* name;
  const char* text;
};

void PrintTo(const Name& name, std::ostream* out) { *out << name.name; }

class NamesLikeCode : public HostileNames, public ::testing::WithParamInterface<Name> {};

TEST_P(NamesLikeCode, OfASetRunNothingWhenItIsActivated) {
  createSet(QString::fromUtf8(GetParam().text));
  activate(QString::fromUtf8(GetParam().text));
  expectRefused();
}

const Name kCode[] = {
    {"StatementBehind", "');import os as ran#"},
    {"StatementBehindWithoutEnd", "');import os"},
    {"Apostrophe", "It's"},
    {"QuoteAlone", "'"},
    {"TwoQuotes", "''"},
    {"ThreeQuotes", "'''"},
    {"Backslash", "\\"},
    {"BackslashAtTheEnd", "Blue\\"},
    {"LineFeed", "a\nb"},
    {"CarriageReturn", "a\rran=1"},
    {"StatementOnItsOwnLine", "')\nran=1\n('"},
    {"Sum", "'+str(ran)+'"},
    {"Product", "'*9+'"},
    {"Formatting", "%s'%1+'"},
    {"SecondCall", "')or(selectVariantSet('Blue"},
    {"Conditional", "'if(ran:=1)else'"},
    {"Item", "'[0:1]+'"},
    {"Attribute", "'.upper()+'"},
    {"StarredArguments", "',*['Blue"},
    {"KeywordArgument", "',skipViewpoint='a"},
    {"ListComprehension", "',[i for i in 'a'],'"},
    {"Lambda", "',lambda:'"},
    {"FormattedTextBeside", "'f'{globals().update(ran=1)}"},
    {"BytesBeside", "'b'"},
    {"BadEscape", "\\x4"},
    {"BadName", "\\N{no such character}"},
    {"LoneSurrogateAsAnEscape", "\\ud800"},
    {"NumberWithoutEnd", "',999999999999999999999999999999,'"},
};

INSTANTIATE_TEST_SUITE_P(Names, NamesLikeCode, ::testing::ValuesIn(kCode),
                         [](const auto& row) { return std::string(row.param.name); });

class NamesLikeText : public HostileNames, public ::testing::WithParamInterface<Name> {};

TEST_P(NamesLikeText, OfASetAreActivated) {
  createSet(QString::fromUtf8(GetParam().text));
  EXPECT_EQ(activate(QString::fromUtf8(GetParam().text)), 1);
  EXPECT_EQ(ScriptPolicy::refusalCount(), 0u);
  EXPECT_THAT(log, IsEmpty());
}

const Name kText[] = {
    {"DoubleQuotes", "\");import os#"},
    {"Hash", "# coding: unicode_escape"},
    {"Braces", "{globals()}"},
    {"Percent", "%s%n%x"},
    {"WideApostrophe", "\xEF\xBC\x87);import os#"},
    {"CurvedApostrophe", "It\xE2\x80\x99s"},
    {"LineSeparator", "a\xE2\x80\xA8ran=1"},
    {"FormFeed", "a\fran=1"},
    {"Tab", "a\tb"},
    {"RightToLeft", "a\xE2\x80\xAE b"},
    {"ByteOrderMark",
     "\xEF\xBB\xBF"
     "Blue"},
};

INSTANTIATE_TEST_SUITE_P(Names, NamesLikeText, ::testing::ValuesIn(kText),
                         [](const auto& row) { return std::string(row.param.name); });

/** As a text in quotes, in which Python knows escapes. */
TEST_F(HostileNames, EscapesAreReadAsPythonReadsThem) {
  createSet("\\x42lue");
  EXPECT_EQ(activate("\\x42lue"), 0);
  createSet("Blue");
  EXPECT_EQ(activate("\\x42lue"), 1);
  kuVariants::findVariantSet("Blue")->setName("');ran=1#");
  createSet("\\');ran=1#");
  variant->select("Red");
  EXPECT_EQ(activate("\\');ran=1#"), 1);
  EXPECT_EQ(ScriptPolicy::refusalCount(), 0u);
}

/** The manager finds a set by the bytes before the NUL only where they are its whole name. */
TEST_F(HostileNames, OfASetWithANulAreNotFound) {
  const QString name = QString("Blue") + QChar(0) + "');import os as ran#";
  createSet(name);
  EXPECT_EQ(activate(name), 0);
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(HostileNames, OfTenMegabytesAreRefused) {
  const QString name(10 << 20, 'a');
  createSet(name);
  activate(name);
  EXPECT_EQ(ScriptPolicy::refusals().front().reason, "the text is too long");
  expectRefused();
}

TEST_F(HostileNames, OfALineThatIsTooLongAreRefused) {
  const QString name(100000, 'a');
  createSet(name);
  activate(name);
  EXPECT_EQ(ScriptPolicy::refusals().front().reason, "line 1 is too long");
  expectRefused();
}

/** A number of the clipping, in every place that it can stand in. */
struct Number {
  const char* name;
  float value;
  bool runs;
};

void PrintTo(const Number& number, std::ostream* out) { *out << number.name; }

class ClippingNumbers : public HostileNames, public ::testing::WithParamInterface<Number> {};

TEST_P(ClippingNumbers, ClipOrAreRefused) {
  createSet("Clip");
  kuVariantSet* set = kuVariants::findVariantSet("Clip");
  set->setClippingState(3);
  set->setClippingPlanePositionY(GetParam().value);
  set->executeAnalyzer();
  EXPECT_EQ(ClippingSettings::the().position[1], GetParam().runs ? GetParam().value : 0);
  EXPECT_EQ(ScriptPolicy::refusalCount(), GetParam().runs ? 0u : 1u);
  EXPECT_EQ(log.size(), GetParam().runs ? 0u : 1u);
}

constexpr float kInfinite = std::numeric_limits<float>::infinity();

const Number kNumbers[] = {
    {"Zero", 0, true},
    {"Negative", -2.5f, true},
    {"Large", 1e30f, true},
    {"Small", 1e-30f, true},
    {"Infinite", kInfinite, false},
    {"NegativeInfinite", -kInfinite, false},
    {"NoNumber", std::numeric_limits<float>::quiet_NaN(), false},
};

INSTANTIATE_TEST_SUITE_P(Numbers, ClippingNumbers, ::testing::ValuesIn(kNumbers),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(HostileNames, ExtremeWidthsOfTheContourAreNumbersToo) {
  createSet("Clip");
  kuVariantSet* set = kuVariants::findVariantSet("Clip");
  set->setClippingState(1);
  for (const int width : {std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
    set->setClippingContourWidth(width);
    set->executeAnalyzer();
    EXPECT_EQ(ClippingSettings::the().contourWidth, width);
  }
  EXPECT_THAT(log, IsEmpty());
}

}  // namespace
