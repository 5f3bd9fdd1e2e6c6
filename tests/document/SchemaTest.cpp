// The schema takes what is written and nothing beside: each row spoils a valid document in one
// place.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "SchemaCheck.h"

using ::testing::HasSubstr;

namespace {

const QByteArray valid = R"(<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE variants>
<Variants>
<VariantGroup name="G" comment="" showinvrmenu="true" synccollaboration="true" true="false"/>
<VariantGroup name="H" comment="" showinvrmenu="true" synccollaboration="false" visible="false"/>
<VariantSet name="S" comment="" showinvrmenu="false" synccollaboration="true" default-viewpoint="">
<Hotkey>F2</Hotkey>
<SequentialAnimation>false</SequentialAnimation>
<Script/>
<Preview><![CDATA[R0lGODlh]]></Preview>
<NodeVariantRef ref="N" state="A"/>
<TransformRef ref="T" state="A"/>
<MaterialVariantRef ref="M" state="A"/>
<LightVariantRef ref="L" state="A"/>
<ViewpointRef ref="V"/>
<SceneplateRef ref="O" state="A"/>
<AnimationRef ref="An"/>
<GeometryRef ref="Ge"/>
<TargetName name="Ta"/>
<InclInfo inclNodes="1" inclMats="0" inclLights="0" inclEnv="0" inclView="0" inclSceneplates="0"/>
<MaterialSnapshot nodePath="a/b" materialName="Paint"/>
<Value name="key">value</Value>
<Analyzer clipState="-1" clipPlanePositionX="-0.00012" clipPlanePositionY="1e+20"
 clipPlanePositionZ="1.17549e-38" clipPlaneNormalX="0" clipPlaneNormalY="1" clipPlaneNormalZ="nan"
 clipPlaneInvert="0" clipPlaneHideScene="0" clipPlaneShow="1" clipPlaneColorR="123456"
 clipPlaneColorG="0.3" clipPlaneColorB="-inf" clipGridShow="1" clipGridColorR="0.63"
 clipGridColorG="inf" clipGridColorB="0.89" clipContourShow="1" clipContourColorR="1"
 clipContourColorG="0.7" clipContourColorB="0" clipContourWidth="2"/>
</VariantSet>
<NodeVariant name="N" base="Node"><Default ref=""/><State name="A"><Hotkey>F1</Hotkey></State></NodeVariant>
<MaterialVariant name="M" base="Paint"><Default ref=""/></MaterialVariant>
<LightVariant name="L" base="Lamp"><Default ref=""/></LightVariant>
<SceneplateVariant name="O" base="Plate"><Default ref=""/></SceneplateVariant>
<TransformVariant name="T" base="Door"><Default ref=""/></TransformVariant>
</Variants>
)";

struct Spoiled {
  const char* name;
  const char* what;
  const char* with;
  /** Stands in what the validation says. */
  const char* fault;
};

const Spoiled spoiled[] = {
    {"NoXml", "</Variants>", "", "parser error"},
    {"RootWithAttribute", "<Variants>", "<Variants a=''>", "'a'"},
    {"TextInTheRoot", "<Variants>", "<Variants>text", "'Variants'"},
    {"UnknownElement", "<Variants>", "<Variants><Other/>", "'Other'"},
    {"TagInAnotherCase", "<GeometryRef", "<geometryRef", "'geometryRef'"},
    {"GroupWithoutName", "Group name=\"G\"", "Group", "'name'"},
    {"GroupWithoutComment", "\"G\" comment=\"\"", "\"G\"", "'comment'"},
    {"GroupsFlagInCapitals", "showinvrmenu=\"true\"", "showinvrmenu=\"True\"", "'showinvrmenu'"},
    {"GroupsFlagAsNumber", "synccollaboration=\"true\"", "synccollaboration=\"1\"",
     "'synccollaboration'"},
    {"VisibleTrue", "visible=\"false\"", "visible=\"true\"", "'visible'"},
    {"TrueTrue", " true=\"false\"", " true=\"true\"", "'true'"},
    {"GroupBehindSet", "<NodeVariant ",
     "<VariantGroup name=\"\" comment=\"\" showinvrmenu=\"true\" synccollaboration=\"true\"/>"
     "<NodeVariant ",
     "'VariantGroup'"},
    {"SetWithoutName", "Set name=\"S\"", "Set", "'name'"},
    {"SetWithoutComment", "\"S\" comment=\"\"", "\"S\"", "'comment'"},
    {"SetsFlagAsNumber", "showinvrmenu=\"false\" ", "showinvrmenu=\"0\" ", "'showinvrmenu'"},
    {"SetWithoutDefaultViewpoint", " default-viewpoint=\"\"", "", "'default-viewpoint'"},
    {"OlderScript", "default-viewpoint", "script=\"\" default-viewpoint", "'script'"},
    {"SetWithoutHotkey", "<Hotkey>F2</Hotkey>", "", "'SequentialAnimation'"},
    {"TwoHotkeys", "<Hotkey>F2</Hotkey>", "<Hotkey/><Hotkey/>", "'Hotkey'"},
    {"SequentialAnimationNoFlag", "Animation>false", "Animation>no", "'SequentialAnimation'"},
    {"SequentialAnimationWithBlanks", "Animation>false", "Animation> false",
     "'SequentialAnimation'"},
    {"SetWithoutScript", "<Script/>", "", "'Preview'"},
    {"PreviewBehindReferences", "<InclInfo", "<Preview>R0lG</Preview><InclInfo", "'Preview'"},
    {"PreviewNoBase64", "[R0lG", "[R0l", "'Preview'"},
    {"PreviewEmpty", "R0lGODlh", "", "'Preview'"},
    {"TransformsBehindMaterials", "<MaterialVariantRef",
     "<MaterialVariantRef ref=\"\" state=\"\"/><TransformRef ref=\"\" state=\"\"/>"
     "<MaterialVariantRef",
     "'TransformRef'"},
    {"ReferenceWithoutState", "ref=\"N\" state=\"A\"", "ref=\"N\"", "'state'"},
    {"ReferenceWithoutRef", "ref=\"L\" state=\"A\"", "state=\"A\"", "'ref'"},
    {"ViewpointWithText", "\"V\"/>", "\"V\">text</ViewpointRef>", "'ViewpointRef'"},
    {"ViewpointWithState", "\"V\"/>", "\"V\" state=\"\"/>", "'state'"},
    {"OlderNameOfReference", "<SceneplateRef", "<OverlayRef", "'OverlayRef'"},
    {"TargetWithRef", "TargetName name", "TargetName ref", "'ref'"},
    {"SetWithoutInclInfo",
     "<InclInfo inclNodes=\"1\" inclMats=\"0\" inclLights=\"0\" "
     "inclEnv=\"0\" inclView=\"0\" inclSceneplates=\"0\"/>",
     "", "'MaterialSnapshot'"},
    {"InclInfoOfAnOlderDocument", " inclSceneplates=\"0\"", "", "'inclSceneplates'"},
    {"InclInfoAsWord", "inclNodes=\"1\"", "inclNodes=\"true\"", "'inclNodes'"},
    {"SnapshotWithoutMaterial", " materialName=\"Paint\"", "", "'materialName'"},
    {"ValueWithoutName", "<Value name=\"key\">", "<Value>", "'name'"},
    {"ValueWithElement", ">value<", "><b/><", "'Value'"},
    {"AnalyzerWithout", " clipContourWidth=\"2\"", "", "'clipContourWidth'"},
    {"AnalyzersNumberWithPoint", "clipState=\"-1\"", "clipState=\"0.5\"", "'clipState'"},
    {"AnalyzersNumberTooLarge", "clipState=\"-1\"", "clipState=\"2147483648\"", "'clipState'"},
    {"AnalyzersFlagAsWord", "clipPlaneShow=\"1\"", "clipPlaneShow=\"true\"", "'clipPlaneShow'"},
    {"AnalyzersFloatInCapitals", "\"nan\"", "\"NaN\"", "'clipPlaneNormalZ'"},
    {"AnalyzersFloatWithComma", "\"0.7\"", "\"0,7\"", "'clipContourColorG'"},
    {"AnalyzersFloatOfSevenDigits", "\"123456\"", "\"1234567\"", "'clipPlaneColorR'"},
    {"UnknownAttributeOfAnalyzer", "<Analyzer", "<Analyzer clipOther=\"0\"", "'clipOther'"},
    {"SomethingBehindAnalyzer", "</VariantSet>", "<Script/></VariantSet>", "'Script'"},
    {"VariantWithoutName", "MaterialVariant name=\"M\"", "MaterialVariant", "'name'"},
    {"VariantWithoutBase", " base=\"Paint\"", "", "'base'"},
    {"VariantWithoutDefault", "<Default ref=\"\"/>", "", "'State'"},
    {"DefaultBehindOptions", "<Default ref=\"\"/><State name=\"A\"><Hotkey>F1</Hotkey></State>",
     "<State name=\"A\"><Hotkey>F1</Hotkey></State><Default ref=\"\"/>", "'State'"},
    {"DefaultWithoutRef", "<Default ref=\"\"/>", "<Default/>", "'ref'"},
    {"OptionWithoutHotkey", "<Hotkey>F1</Hotkey>", "", "'State'"},
    {"OptionWithoutName", "<State name=\"A\">", "<State>", "'name'"},
    {"OlderNameOfVariant",
     "<SceneplateVariant name=\"O\" base=\"Plate\"><Default ref=\"\"/>"
     "</SceneplateVariant>",
     "<OverlayVariant name=\"O\" base=\"Plate\"><Default ref=\"\"/></OverlayVariant>",
     "'OverlayVariant'"},
    {"TransformsBehindNodes",
     "<LightVariant name=\"L\" base=\"Lamp\"><Default ref=\"\"/>"
     "</LightVariant>",
     "<TransformVariant name=\"L\" base=\"Lamp\"><Default ref=\"\"/></TransformVariant>",
     "'SceneplateVariant'"},
};

/** The valid document with the row's fault in it. */
QByteArray documentOf(const Spoiled& row) {
  const int at = valid.indexOf(row.what);
  EXPECT_GE(at, 0) << row.name;
  QByteArray document = valid;
  return document.replace(at, int(qstrlen(row.what)), row.with);
}

TEST(Schema, TakesADocumentWithEverything) { EXPECT_EQ(schemaFault(valid), ""); }

TEST(Schema, RefusesAnotherRoot) {
  EXPECT_THAT(schemaFault("<variants/>"), HasSubstr("Element 'variants'"));
}

TEST(Schema, RefusesWhatIsNotWritten) {
  std::vector<QByteArray> documents;
  for (const Spoiled& row : spoiled)
    documents.push_back(documentOf(row));
  const std::vector<std::string> faults = schemaFaults(documents);
  for (std::size_t i = 0; i < faults.size(); ++i) {
    EXPECT_THAT(faults[i], HasSubstr(spoiled[i].fault)) << spoiled[i].name;
    EXPECT_THAT(faults[i], HasSubstr(" error ")) << spoiled[i].name;
  }
}

}  // namespace
