#include "ReaderTest.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"

using ::testing::ElementsAre;

namespace {

struct SetRow {
  const char* name;
  const char* attributes;
  const char* content;
  const char* expected;
};

void PrintTo(const SetRow& row, std::ostream* out) { *out << row.name; }

constexpr SetRow rows[] = {
    {"Bare", "", "", "set S\n"},
    {"Comment", "comment='c'", "", "set S comment=c\n"},
    {"ShowInVRMenuTrue", "showinvrmenu='true'", "", "set S\n"},
    {"ShowInVRMenuOneIsFalse", "showinvrmenu='1'", "", "set S vr=0\n"},
    {"SyncFalse", "synccollaboration='false'", "", "set S sync=0\n"},
    {"SyncInCapitalsIsFalse", "synccollaboration='TRUE'", "", "set S sync=0\n"},
    {"DefaultViewpoint", "default-viewpoint='v'", "", "set S viewpoint=v\n"},
    {"ScriptAttribute", "script='s'", "", "set S script=s\n"},
    {"ScriptElementOverridesTheAttribute", "script='s'", "<Script>t</Script>", "set S script=t\n"},
    {"LastOfTwoScripts", "", "<Script>s</Script><Script>t</Script>", "set S script=t\n"},
    {"EmptyScriptElementOverrides", "script='s'", "<Script/>", "set S\n"},
    {"ScriptInCData", "", "<Script><![CDATA[<a>]]></Script>", "set S script=<a>\n"},
    {"Hotkey", "", "<Hotkey> Shift-Ctrl K </Hotkey>",
     "set S hotkey=Shift+Ctrl+K key=75 modifier=100663296\n"},
    {"EmptyHotkeyGivesKeyZero", "", "<Hotkey/>", "set S key=0\n"},
    {"LastHotkey", "", "<Hotkey>A</Hotkey><Hotkey>B</Hotkey>", "set S hotkey=B key=66\n"},
    {"SequentialTrue", "", "<SequentialAnimation>true</SequentialAnimation>",
     "set S sequential=1\n"},
    {"SequentialOneIsFalse", "", "<SequentialAnimation>1</SequentialAnimation>", "set S\n"},
    {"NodeRef", "", "<NodeVariantRef ref='r' state='s'/>", "set S\n  node r=s\n"},
    {"TransformRef", "", "<TransformRef ref='r' state='s'/>", "set S\n  transform r=s\n"},
    {"MaterialRef", "", "<MaterialVariantRef ref='r' state='s'/>", "set S\n  material r=s\n"},
    {"LightRef", "", "<LightVariantRef ref='r' state='s'/>", "set S\n  light r=s\n"},
    {"ViewpointRef", "", "<ViewpointRef ref='b'/><ViewpointRef ref='a'/><ViewpointRef ref='b'/>",
     "set S\n  viewpoint b\n  viewpoint a\n"},
    {"SceneplateRef", "", "<SceneplateRef ref='r' state='s'/>", "set S\n  overlay r=s\n"},
    {"OverlayRef", "", "<OverlayRef ref='r' state='s'/>", "set S\n  overlay r=s\n"},
    {"AnimationRef", "", "<AnimationRef ref='b'/><AnimationRef ref='a'/><AnimationRef ref='b'/>",
     "set S\n  animation b\n  animation a\n"},
    {"GeometryRef", "", "<GeometryRef ref='b'/><GeometryRef ref='a'/><GeometryRef ref='b'/>",
     "set S\n  geometry b\n  geometry a\n"},
    {"TargetName", "", "<TargetName name='b'/><TargetName name='a'/><TargetName name='b'/>",
     "set S\n  target b\n  target a\n"},
    {"RefAndStateMissing", "", "<NodeVariantRef/><ViewpointRef/>",
     "set S\n  node =\n  viewpoint \n"},
    {"SecondRefReplacesInPlace", "",
     "<NodeVariantRef ref='a' state='1'/><NodeVariantRef ref='b' state='2'/>"
     "<NodeVariantRef ref='a' state='3'/>",
     "set S\n  node a=3\n  node b=2\n"},
    {"MaterialSnapshot", "", "<MaterialSnapshot nodePath='p' materialName='m'/>",
     "set S\n  snapshot p=m\n"},
    {"Value", "", "<Value name='b'>2</Value><Value name='a'>1</Value><Value name='b'>3</Value>",
     "set S\n  value a=1\n  value b=3\n"},
    {"ValueWithoutNameIsIgnored", "", "<Value>v</Value>", "set S\n"},
    {"InclInfo", "",
     "<InclInfo inclNodes='1' inclMats='0' inclLights='2' inclEnv='x' inclView='-1' "
     "inclSceneplates='1'/>",
     "set S incl=101011\n"},
    {"InclInfoAbsentIsFalse", "", "<InclInfo inclMats='1'/>", "set S incl=010000\n"},
    {"PreviewInPlainTextIsNotStored", "", "<Preview>YWJj</Preview>", "set S\n"},
    {"PreviewBehindAnotherChildIsNotStored", "", "<Preview><x/><![CDATA[YWJj]]></Preview>",
     "set S\n"},
    {"PreviewInCData", "", "<Preview><![CDATA[YWJj]]></Preview>", "set S preview=abc\n"},
    {"PreviewWithBadBase64IsWhatDecodes", "", "<Preview><![CDATA[Y*W!Jj]]></Preview>",
     "set S preview=abc\n"},
    {"PreviewInPlainTextKeepsTheOneBefore", "",
     "<Preview><![CDATA[YWJj]]></Preview><Preview>eHl6</Preview>", "set S preview=abc\n"},
    {"EmptyPreview", "", "<Preview/>", "set S\n"},
    {"LastSequential", "",
     "<SequentialAnimation>true</SequentialAnimation>"
     "<SequentialAnimation>True</SequentialAnimation>",
     "set S\n"},
    {"LastSnapshotOfAPath", "",
     "<MaterialSnapshot nodePath='q' materialName='1'/>"
     "<MaterialSnapshot nodePath='p' materialName='2'/>"
     "<MaterialSnapshot nodePath='q' materialName='3'/><MaterialSnapshot/>",
     "set S\n  snapshot =\n  snapshot p=2\n  snapshot q=3\n"},
    {"LastInclInfo", "", "<InclInfo inclNodes='1'/><InclInfo inclEnv='1'/>", "set S incl=000100\n"},
    {"StatesOfOverlaysByBothNames", "",
     "<OverlayRef ref='r' state='s'/><SceneplateRef ref='r' state='t'/>", "set S\n  overlay r=t\n"},
    {"AnalyzerFlagsAreTrueForAnyNumberButZero", "",
     "<Analyzer clipPlaneNormalZ='1' clipPlaneShow='1' clipGridShow='-1' clipContourShow='2' "
     "clipPlaneInvert='true' clipPlaneHideScene='0'/>",
     "set S\n  getClippingPlaneNormal 0 0 1\n  getClippingPlaneColor 0 0 0\n"
     "  getClippingGridColor 0 0 0\n  getClippingContourColor 0 0 0\n"
     "  getClippingContourWidth 0\n"},
    {"AnalyzerWithoutAttributesIsAllZero", "", "<Analyzer/>",
     "set S\n  getClippingPlaneNormal 0 0 0\n  getClippingShowPlane 0\n"
     "  getClippingPlaneColor 0 0 0\n  getClippingShowGrid 0\n  getClippingGridColor 0 0 0\n"
     "  getClippingShowContour 0\n  getClippingContourColor 0 0 0\n"
     "  getClippingContourWidth 0\n"},
    {"AnalyzerInFull", "",
     "<Analyzer clipState='3' clipPlanePositionX='1.5' clipPlanePositionY='2' "
     "clipPlanePositionZ='-3' clipPlaneNormalX='4' clipPlaneNormalY='5' clipPlaneNormalZ='6' "
     "clipPlaneInvert='1' clipPlaneHideScene='2' clipPlaneShow='0' clipPlaneColorR='7' "
     "clipPlaneColorG='8' clipPlaneColorB='9' clipGridShow='x' clipGridColorR='10' "
     "clipGridColorG='11' clipGridColorB='12' clipContourShow='0' clipContourColorR='13' "
     "clipContourColorG='14' clipContourColorB='x' clipContourWidth='16'/>",
     "set S\n  getClippingState 3\n  getClippingPlanePosition 1.5 2 -3\n"
     "  getClippingPlaneNormal 4 5 6\n  getClippingInvert 1\n  getClippingHideScene 1\n"
     "  getClippingShowPlane 0\n  getClippingPlaneColor 7 8 9\n  getClippingShowGrid 0\n"
     "  getClippingGridColor 10 11 12\n  getClippingShowContour 0\n"
     "  getClippingContourColor 13 14 0\n  getClippingContourWidth 16\n"},
};

class ReaderSets : public ReaderTest, public ::testing::WithParamInterface<SetRow> {};

TEST_P(ReaderSets, AreReadFromTheirElement) {
  const SetRow& row = GetParam();
  EXPECT_EQ(after(std::string("<VariantSet name='S' ") + row.attributes + ">" + row.content +
                  "</VariantSet>"),
            // An overlay state with a text stays as it is; none here is empty.
            row.expected);
}

INSTANTIATE_TEST_SUITE_P(Rows, ReaderSets, ::testing::ValuesIn(rows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(ReaderTest, NamesThatComeAgainBehindManyOthersStandOnce) {
  std::string set, states, expectedSet, expectedStates;
  for (int i = 0; i < 100; ++i) {
    const std::string name = std::to_string(i % 50);
    set += "<NodeVariantRef ref='" + name + "' state='" + std::to_string(i) + "'/>";
    set += "<TargetName name='" + name + "'/>";
    states += "<State name='" + name + "'/>";
    if (i < 50) continue;
    expectedSet += "  node " + name + "=" + std::to_string(i) + "\n";
    expectedStates += "  option " + name + "\n";
  }
  for (int i = 0; i < 50; ++i)
    expectedSet += "  target " + std::to_string(i) + "\n";
  EXPECT_EQ(after("<VariantSet name='S'>" + set + "</VariantSet><NodeVariant name='N'>" + states +
                  "</NodeVariant>"),
            "set S\n" + expectedSet + "nodeVariant N base=\n" + expectedStates);
}

TEST_F(ReaderTest, SetWithoutNameIsSkippedAndNothingIsRemoved) {
  read("<VariantSet name='A'/>");
  messages.clear();
  EXPECT_EQ(after("<VariantSet comment='c'/><VariantSet name=''/>"), "set A\n");
  EXPECT_THAT(messages.linesOf("variantSetRemoved"), ElementsAre());
}

TEST_F(ReaderTest, SetOfTheSameNameIsReplacedWholeAndLeavesItsGroup) {
  read(
      "<VariantGroup name='G'><VariantSet name='A' comment='old'><NodeVariantRef ref='n'/>"
      "</VariantSet></VariantGroup>");
  EXPECT_EQ(after("<VariantSet name='A' script='s'/>"), "group G\nset A script=s\n");
  EXPECT_THAT(messages.linesOf("variantSetRemoved"),
              ElementsAre("variantSetRemoved/1 variant:void*=unlisted"));
}

TEST_F(ReaderTest, SetThatMayNotReplaceGetsTheUniqueName) {
  read("<VariantSet name='A' comment='old'/>");
  const QString unique = kuVariants::getUniqueVariantSetName("A");
  ParsedElement parsed("<VariantSet name='A' comment='new'/>");
  const kuVariantSet* set = kuVariantReader::readVariantSet(parsed.element, false);
  ASSERT_TRUE(set);
  EXPECT_NE(unique, "A");
  EXPECT_EQ(set->getName(), unique);
  EXPECT_EQ(managerDump(), "set A comment=old\nset " + unique.toStdString() + " comment=new\n");
}

std::string printedFor(kuVariantReader& reader, int length) {
  const std::string text = "<Variants><VariantSet name='A'><Preview><![CDATA[" +
                           std::string(std::size_t(length), 'A') +
                           "]]></Preview></VariantSet></Variants>";
  ::testing::internal::CaptureStdout();
  reader.read(text.c_str());
  return ::testing::internal::GetCapturedStdout();
}

TEST_F(ReaderTest, PreviewOf79CharactersIsPrintedAndDecoded) {
  EXPECT_EQ(printedFor(reader, 79), "\t" + std::string(79, 'A') + "\n");
  EXPECT_EQ(kuVariants::findVariantSet("A")->getPreview(), QByteArray(59, '\0'));
}

TEST_F(ReaderTest, PreviewOf80CharactersIsDecodedWithoutAWord) {
  EXPECT_EQ(printedFor(reader, 80), "");
  EXPECT_EQ(kuVariants::findVariantSet("A")->getPreview(), QByteArray(60, '\0'));
}

}  // namespace
