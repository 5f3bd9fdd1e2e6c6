#include <cmath>
#include <limits>

#include "WriterTest.h"

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

namespace {

TEST_F(WriterTest, BareSetHasAllSingleElementsButThePreview) {
  addSet("S");
  EXPECT_EQ(written(), documentOf(bareSet("S")));
}

TEST_F(WriterTest, SetStandsInFullInItsOrder) {
  kuVariantSet& set = addSet("S");
  set.addValue("k", "v");
  set.addMaterialSnapshot("p", "m");
  set.addTargetNodeName("t");
  set.addGeometry("g");
  set.addAnimation("a");
  set.addOverlayVariant("o", "1");
  set.addViewpoint("w");
  set.addLightVariant("l", "2");
  set.addMaterialVariant("m", "3");
  set.addTransformVariant("x", "4");
  set.addNodeVariant("n", "5");
  set.setPreview("abc");
  set.setScript("s");
  set.setHotkey("h");
  set.setDefaultViewpoint("w");
  std::string expected = bareSet("S");
  const auto replace = [&](const std::string& line, const std::string& by) {
    expected.replace(expected.find(line), line.size(), by);
  };
  replace("viewpoint=\"\"", "viewpoint=\"w\"");
  replace("<Hotkey/>", "<Hotkey>h</Hotkey>");
  replace("    <Script/>\n",
          "    <Script>s</Script>\n"
          "    <Preview><![CDATA[YWJj]]></Preview>\n"
          "    <NodeVariantRef ref=\"n\" state=\"5\"/>\n"
          "    <TransformRef ref=\"x\" state=\"4\"/>\n"
          "    <MaterialVariantRef ref=\"m\" state=\"3\"/>\n"
          "    <LightVariantRef ref=\"l\" state=\"2\"/>\n"
          "    <ViewpointRef ref=\"w\"/>\n"
          "    <SceneplateRef ref=\"o\" state=\"1\"/>\n"
          "    <AnimationRef ref=\"a\"/>\n"
          "    <GeometryRef ref=\"g\"/>\n"
          "    <TargetName name=\"t\"/>\n");
  replace("    <Analyzer",
          "    <MaterialSnapshot nodePath=\"p\" materialName=\"m\"/>\n"
          "    <Value name=\"k\">v</Value>\n"
          "    <Analyzer");
  EXPECT_EQ(written(), documentOf(expected));
}

const char* const bareTag =
    "-  <VariantSet name=\"S\" comment=\"\" showinvrmenu=\"true\" synccollaboration=\"true\" "
    "default-viewpoint=\"\">";
const char* const bareInclInfo =
    "-    <InclInfo inclNodes=\"0\" inclMats=\"0\" inclLights=\"0\" inclEnv=\"0\" inclView=\"0\" "
    "inclSceneplates=\"0\"/>";

using Lines = std::vector<std::string>;

struct SetRow {
  const char* name;
  void (*change)(kuVariantSet&);
  Lines difference;
};

void PrintTo(const SetRow& row, std::ostream* out) { *out << row.name; }

const SetRow setRows[] = {
    {"Comment",
     [](kuVariantSet& set) { set.setComment("c"); },
     {bareTag,
      "+  <VariantSet name=\"S\" comment=\"c\" showinvrmenu=\"true\" synccollaboration=\"true\" "
      "default-viewpoint=\"\">"}},
    {"NotShownInVRMenu",
     [](kuVariantSet& set) { set.setShowInVRMenu(false); },
     {bareTag,
      "+  <VariantSet name=\"S\" comment=\"\" showinvrmenu=\"false\" synccollaboration=\"true\" "
      "default-viewpoint=\"\">"}},
    {"NotSyncedInCollaboration",
     [](kuVariantSet& set) { set.setSyncInCollaboration(false); },
     {bareTag,
      "+  <VariantSet name=\"S\" comment=\"\" showinvrmenu=\"true\" synccollaboration=\"false\" "
      "default-viewpoint=\"\">"}},
    {"DefaultViewpointNeedNotBeInTheList",
     [](kuVariantSet& set) { set.setDefaultViewpoint("v"); },
     {bareTag,
      "+  <VariantSet name=\"S\" comment=\"\" showinvrmenu=\"true\" synccollaboration=\"true\" "
      "default-viewpoint=\"v\">"}},
    {"HotkeyAsItIsHeld",
     [](kuVariantSet& set) { set.setHotkey(" Shift-Ctrl K "); },
     {"-    <Hotkey/>", "+    <Hotkey> Shift-Ctrl K </Hotkey>"}},
    {"SequentialAnimation",
     [](kuVariantSet& set) { set.setSequentialAnimation(true); },
     {"-    <SequentialAnimation>false</SequentialAnimation>",
      "+    <SequentialAnimation>true</SequentialAnimation>"}},
    {"ScriptAsAnElement",
     [](kuVariantSet& set) { set.setScript("if a < b:\n  c()"); },
     {"-    <Script/>", "+    <Script>if a &lt; b:", "+  c()</Script>"}},
    {"PreviewInBase64",
     [](kuVariantSet& set) { set.setPreview(QByteArray("\0\xFF\x01\x80\n", 5)); },
     {"+    <Preview><![CDATA[AP8BgAo=]]></Preview>"}},
    {"NodesInTheOrderOfTheList",
     [](kuVariantSet& set) {
       set.addNodeVariant("b", "1");
       set.addNodeVariant("a", "");
     },
     {"+    <NodeVariantRef ref=\"b\" state=\"1\"/>",
      "+    <NodeVariantRef ref=\"a\" state=\"\"/>"}},
    {"TransformsInTheOrderOfTheList",
     [](kuVariantSet& set) {
       set.addTransformVariant("b", "1");
       set.addTransformVariant("a", "");
     },
     {"+    <TransformRef ref=\"b\" state=\"1\"/>", "+    <TransformRef ref=\"a\" state=\"\"/>"}},
    {"MaterialsInTheOrderOfTheList",
     [](kuVariantSet& set) {
       set.addMaterialVariant("b", "1");
       set.addMaterialVariant("a", "");
     },
     {"+    <MaterialVariantRef ref=\"b\" state=\"1\"/>",
      "+    <MaterialVariantRef ref=\"a\" state=\"\"/>"}},
    {"LightsInTheOrderOfTheList",
     [](kuVariantSet& set) {
       set.addLightVariant("b", "1");
       set.addLightVariant("a", "");
     },
     {"+    <LightVariantRef ref=\"b\" state=\"1\"/>",
      "+    <LightVariantRef ref=\"a\" state=\"\"/>"}},
    {"OverlaysInTheOrderOfTheListByTheNewerTag",
     [](kuVariantSet& set) {
       set.addOverlayVariant("b", "1");
       set.addOverlayVariant("a", "");
     },
     {"+    <SceneplateRef ref=\"b\" state=\"1\"/>", "+    <SceneplateRef ref=\"a\" state=\"\"/>"}},
    {"ViewpointsInTheOrderOfTheList",
     [](kuVariantSet& set) {
       set.addViewpoint("b");
       set.addViewpoint("a");
     },
     {"+    <ViewpointRef ref=\"b\"/>", "+    <ViewpointRef ref=\"a\"/>"}},
    {"AnimationsInTheOrderOfTheList",
     [](kuVariantSet& set) {
       set.addAnimation("b");
       set.addAnimation("a");
     },
     {"+    <AnimationRef ref=\"b\"/>", "+    <AnimationRef ref=\"a\"/>"}},
    {"GeometriesInTheOrderOfTheList",
     [](kuVariantSet& set) {
       set.addGeometry("b");
       set.addGeometry("a");
     },
     {"+    <GeometryRef ref=\"b\"/>", "+    <GeometryRef ref=\"a\"/>"}},
    {"TargetNamesInTheOrderOfTheList",
     [](kuVariantSet& set) {
       set.addTargetNodeName("b");
       set.addTargetNodeName("a");
     },
     {"+    <TargetName name=\"b\"/>", "+    <TargetName name=\"a\"/>"}},
    // By code unit: capitals before small letters, a pair of surrogates before U+FF5E.
    {"SnapshotsSortedByNodePath",
     [](kuVariantSet& set) {
       for (const char* path : {"\xEF\xBD\x9E", "b", "\xF0\x9F\x98\x80", "a10", "B", "a9", "", "Z"})
         set.addMaterialSnapshot(path, "m");
     },
     {"+    <MaterialSnapshot nodePath=\"\" materialName=\"m\"/>",
      "+    <MaterialSnapshot nodePath=\"B\" materialName=\"m\"/>",
      "+    <MaterialSnapshot nodePath=\"Z\" materialName=\"m\"/>",
      "+    <MaterialSnapshot nodePath=\"a10\" materialName=\"m\"/>",
      "+    <MaterialSnapshot nodePath=\"a9\" materialName=\"m\"/>",
      "+    <MaterialSnapshot nodePath=\"b\" materialName=\"m\"/>",
      "+    <MaterialSnapshot nodePath=\"\xF0\x9F\x98\x80\" materialName=\"m\"/>",
      "+    <MaterialSnapshot nodePath=\"\xEF\xBD\x9E\" materialName=\"m\"/>"}},
    {"ValuesSortedByKey",
     [](kuVariantSet& set) {
       for (const char* key : {"\xEF\xBD\x9E", "b", "\xF0\x9F\x98\x80", "a10", "B", "a9", "Z"})
         set.addValue(key, "v");
       set.addValue("", "");
     },
     {"+    <Value name=\"\"/>", "+    <Value name=\"B\">v</Value>",
      "+    <Value name=\"Z\">v</Value>", "+    <Value name=\"a10\">v</Value>",
      "+    <Value name=\"a9\">v</Value>", "+    <Value name=\"b\">v</Value>",
      "+    <Value name=\"\xF0\x9F\x98\x80\">v</Value>",
      "+    <Value name=\"\xEF\xBD\x9E\">v</Value>"}},
    {"InclNodes",
     [](kuVariantSet& set) { set.setInclInfo(true, false, false, false, false, false); },
     {bareInclInfo,
      "+    <InclInfo inclNodes=\"1\" inclMats=\"0\" inclLights=\"0\" inclEnv=\"0\" "
      "inclView=\"0\" inclSceneplates=\"0\"/>"}},
    {"InclMats",
     [](kuVariantSet& set) { set.setInclInfo(false, true, false, false, false, false); },
     {bareInclInfo,
      "+    <InclInfo inclNodes=\"0\" inclMats=\"1\" inclLights=\"0\" inclEnv=\"0\" "
      "inclView=\"0\" inclSceneplates=\"0\"/>"}},
    {"InclLights",
     [](kuVariantSet& set) { set.setInclInfo(false, false, true, false, false, false); },
     {bareInclInfo,
      "+    <InclInfo inclNodes=\"0\" inclMats=\"0\" inclLights=\"1\" inclEnv=\"0\" "
      "inclView=\"0\" inclSceneplates=\"0\"/>"}},
    {"InclEnv",
     [](kuVariantSet& set) { set.setInclInfo(false, false, false, true, false, false); },
     {bareInclInfo,
      "+    <InclInfo inclNodes=\"0\" inclMats=\"0\" inclLights=\"0\" inclEnv=\"1\" "
      "inclView=\"0\" inclSceneplates=\"0\"/>"}},
    {"InclView",
     [](kuVariantSet& set) { set.setInclInfo(false, false, false, false, true, false); },
     {bareInclInfo,
      "+    <InclInfo inclNodes=\"0\" inclMats=\"0\" inclLights=\"0\" inclEnv=\"0\" "
      "inclView=\"1\" inclSceneplates=\"0\"/>"}},
    {"InclSceneplates",
     [](kuVariantSet& set) { set.setInclInfo(false, false, false, false, false, true); },
     {bareInclInfo,
      "+    <InclInfo inclNodes=\"0\" inclMats=\"0\" inclLights=\"0\" inclEnv=\"0\" "
      "inclView=\"0\" inclSceneplates=\"1\"/>"}},
};

class WriterSets : public WriterTest, public ::testing::WithParamInterface<SetRow> {};

TEST_P(WriterSets, DifferFromABareOneInThis) {
  kuVariantSet& set = addSet("S");
  const std::string bare = written();
  GetParam().change(set);
  EXPECT_THAT(difference(bare, written()), ElementsAreArray(GetParam().difference));
}

INSTANTIATE_TEST_SUITE_P(Rows, WriterSets, ::testing::ValuesIn(setRows),
                         [](const auto& row) { return std::string(row.param.name); });

// Clipping settings

TEST_F(WriterTest, AnalyzerTakesEachSettingFromItsOwnField) {
  kuVariantSet& set = addSet("S");
  set.setClippingState(-3);
  set.setClippingPlanePositionX(1.5);
  set.setClippingPlanePositionY(2);
  set.setClippingPlanePositionZ(-3);
  set.setClippingPlaneNormalX(4);
  set.setClippingPlaneNormalY(5);
  set.setClippingPlaneNormalZ(6);
  set.setClippingInvert(true);
  set.setClippingHideScene(false);
  set.setClippingShowPlane(false);
  set.setClippingPlaneColorR(7);
  set.setClippingPlaneColorG(8);
  set.setClippingPlaneColorB(9);
  set.setClippingShowGrid(true);
  set.setClippingGridColorR(10);
  set.setClippingGridColorG(11);
  set.setClippingGridColorB(12);
  set.setClippingShowContour(false);
  set.setClippingContourColorR(13);
  set.setClippingContourColorG(14);
  set.setClippingContourColorB(15);
  set.setClippingContourWidth(-16);
  const std::vector<std::string> lines = linesOf(written());
  EXPECT_EQ(lines[lines.size() - 3],
            "    <Analyzer clipState=\"-3\" clipPlanePositionX=\"1.5\" clipPlanePositionY=\"2\" "
            "clipPlanePositionZ=\"-3\" clipPlaneNormalX=\"4\" clipPlaneNormalY=\"5\" "
            "clipPlaneNormalZ=\"6\" clipPlaneInvert=\"1\" clipPlaneHideScene=\"0\" "
            "clipPlaneShow=\"0\" clipPlaneColorR=\"7\" clipPlaneColorG=\"8\" "
            "clipPlaneColorB=\"9\" clipGridShow=\"1\" clipGridColorR=\"10\" "
            "clipGridColorG=\"11\" clipGridColorB=\"12\" clipContourShow=\"0\" "
            "clipContourColorR=\"13\" clipContourColorG=\"14\" clipContourColorB=\"15\" "
            "clipContourWidth=\"-16\"/>");
}

struct FlagRow {
  const char* attribute;
  void (kuVariantSet::*set)(bool);
};

void PrintTo(const FlagRow& row, std::ostream* out) { *out << row.attribute; }

class WriterFlags : public WriterTest, public ::testing::WithParamInterface<FlagRow> {};

TEST_P(WriterFlags, AreOneOrZero) {
  kuVariantSet& set = addSet("S");
  const std::string attribute = std::string(" ") + GetParam().attribute + "=\"";
  for (const bool flag : {true, false}) {
    (set.*GetParam().set)(flag);
    EXPECT_THAT(written(), ::testing::HasSubstr(attribute + (flag ? "1\"" : "0\"")));
  }
}

INSTANTIATE_TEST_SUITE_P(
    Analyzer, WriterFlags,
    ::testing::Values(FlagRow{"clipPlaneInvert", &kuVariantSet::setClippingInvert},
                      FlagRow{"clipPlaneHideScene", &kuVariantSet::setClippingHideScene},
                      FlagRow{"clipPlaneShow", &kuVariantSet::setClippingShowPlane},
                      FlagRow{"clipGridShow", &kuVariantSet::setClippingShowGrid},
                      FlagRow{"clipContourShow", &kuVariantSet::setClippingShowContour}),
    [](const auto& row) { return std::string(row.param.attribute); });

struct FloatRow {
  const char* name;
  double value;
  const char* text;
};

void PrintTo(const FloatRow& row, std::ostream* out) { *out << row.name; }

constexpr FloatRow floatRows[] = {
    {"AThird", 1.0 / 3, "0.333333"},
    {"TwoThirdsAreRounded", 2.0 / 3, "0.666667"},
    {"ATenthHasNoTail", 0.1, "0.1"},
    {"SmallestWithoutExponent", 0.0001, "0.0001"},
    {"SmallOne", 1e-7, "1e-07"},
    {"LargestWithoutExponent", 999999, "999999"},
    {"RoundedUpToAnExponent", 999999.5, "1e+06"},
    {"MoreDigitsThanAFloatHas", 123456789, "1.23457e+08"},
    {"TwoToThe24", 16777216, "1.67772e+07"},
    {"MinusOneAndAHalf", -1.5, "-1.5"},
    {"Zero", 0, "0"},
    {"MinusZeroLosesItsSign", -0.0, "0"},
    {"LargestFloat", std::numeric_limits<float>::max(), "3.40282e+38"},
    {"SmallestFloat", std::numeric_limits<float>::denorm_min(), "1.4013e-45"},
    {"NotANumber", std::numeric_limits<double>::quiet_NaN(), "nan"},
    {"Infinity", std::numeric_limits<double>::infinity(), "inf"},
    {"MinusInfinity", -std::numeric_limits<double>::infinity(), "-inf"},
};

class WriterFloats : public WriterTest, public ::testing::WithParamInterface<FloatRow> {};

TEST_P(WriterFloats, HaveSixSignificantDigits) {
  using Set = kuVariantSet;
  const std::pair<const char*, void (Set::*)(double)> attributes[] = {
      {"clipPlanePositionX", &Set::setClippingPlanePositionX},
      {"clipPlaneNormalZ", &Set::setClippingPlaneNormalZ},
      {"clipPlaneColorG", &Set::setClippingPlaneColorG},
      {"clipGridColorB", &Set::setClippingGridColorB},
      {"clipContourColorR", &Set::setClippingContourColorR}};
  kuVariantSet& set = addSet("S");
  for (const auto& [name, setter] : attributes) {
    (set.*setter)(GetParam().value);
    EXPECT_THAT(written(),
                ::testing::HasSubstr(std::string(" ") + name + "=\"" + GetParam().text + "\""));
  }
}

INSTANTIATE_TEST_SUITE_P(Values, WriterFloats, ::testing::ValuesIn(floatRows),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
