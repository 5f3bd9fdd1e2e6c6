#include "CliTest.h"

using ::testing::Each;
using ::testing::HasSubstr;
using ::testing::Not;

namespace {

class ListCommandTest : public CliTest {};

TEST_F(ListCommandTest, ListsGroupsSetsAndVariants) {
  const CliResult result = run({"list", "car.gltf", "car.xml"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.out, R"(Groups
  Looks
    comment     How it looks
    sets        Summer, Winter

Sets
  Summer  in Looks
    comment     Open and sunny
    hotkey      Ctrl+1
    node        Roof = Open
    transform   Doors = Wide
    light       Sun = !Disable
    overlay     Title = Deutsch
    viewpoints  Front, finally Rear
    animations  Wave
    values      Price = 100
  Winter  in Looks
    node        Roof = Closed
    material    Paint = Blue
  Scripted
    node        Roof = Open
    script      1 line

Variants
  node Roof
    current     Closed
    default     Closed
    options     Closed [F1], Open
  node Leaves  on Doors
    current     !Enable
    default     Transform 0
    options     Transform 0
  material Paint
    current     Red
    default     Red
    options     Red, Blue
  transform Doors
    current     Shut
    default     Shut
    options     Shut, Wide
  light Sun
    current     !Enable
    default     !Enable
    options     !Enable, !Disable
  overlay Title
    current     !None
    default     English
    options     !None, English, Deutsch
)");
}

TEST_F(ListCommandTest, JsonHoldsTheWholeDocument) {
  write("small.xml", R"(<Variants>
    <VariantGroup name="G" comment="c" visible="false" showinvrmenu="false"
        synccollaboration="false">
      <VariantSet name="S" comment="d" showinvrmenu="false" synccollaboration="false"
          default-viewpoint="Rear">
        <Hotkey>Ctrl K</Hotkey>
        <SequentialAnimation>true</SequentialAnimation>
        <Script>x = 1</Script>
        <NodeVariantRef ref="Roof" state="Open"/><NodeVariantRef ref="Gone" state=""/>
        <TransformRef ref="Doors" state="Wide"/>
        <MaterialVariantRef ref="Paint" state="Blue"/>
        <LightVariantRef ref="Sun" state="!Disable"/>
        <SceneplateRef ref="Title" state="English"/>
        <ViewpointRef ref="Front"/><ViewpointRef ref="Rear"/>
        <AnimationRef ref="Wave"/><GeometryRef ref="Body"/><TargetName name="Car"/>
        <InclInfo inclNodes="1" inclView="1"/>
        <MaterialSnapshot nodePath="Car/Body" materialName="Red"/>
        <Value name="k">v</Value>
        <Preview><![CDATA[aGVsbG8=]]></Preview>
        <Analyzer clipState="1" clipPlanePositionX="0.5" clipPlaneNormalZ="-1"
            clipPlaneInvert="1" clipContourColorG="0.7" clipContourWidth="3"/>
      </VariantSet>
    </VariantGroup>
    <VariantSet name="T"/>
    <LightVariant name="L" base="Sun"><Default ref="!Enable"/>
      <State name="!Enable"><Hotkey>F2</Hotkey></State></LightVariant>
  </Variants>)");
  const CliResult result = run({"list", "car.gltf", "small.xml", "--json"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(normalised(result.out), normalised(R"({
    "groups": [{"name": "G", "comment": "c", "visible": false, "showInVRMenu": false,
      "syncInCollaboration": false, "sets": ["S"]}],
    "sets": [
      {"name": "S", "group": "G", "comment": "d", "hotkey": "Ctrl+K",
       "viewpoints": ["Front", "Rear"], "defaultViewpoint": "Rear", "animations": ["Wave"],
       "sequentialAnimation": true, "script": "x = 1",
       "states": {"node": [["Roof", "Open"], ["Gone", ""]], "material": [["Paint", "Blue"]],
         "transform": [["Doors", "Wide"]], "light": [["Sun", "!Disable"]],
         "overlay": [["Title", "English"]]},
       "showInVRMenu": false, "syncInCollaboration": false, "geometries": ["Body"],
       "targetNodeNames": ["Car"], "values": {"k": "v"},
       "materialSnapshots": {"Car/Body": "Red"},
       "captured": {"nodes": true, "materials": false, "lights": false, "environments": false,
         "viewpoints": true, "sceneplates": false},
       "clipping": {"state": 1, "planePosition": [0.5, 0, 0], "planeNormal": [0, 0, -1],
         "invert": true, "hideScene": false, "showPlane": false, "planeColor": [0, 0, 0],
         "showGrid": false, "gridColor": [0, 0, 0], "showContour": false,
         "contourColor": [0, 0.7, 0], "contourWidth": 3},
       "previewBytes": 5},
      {"name": "T", "group": null, "comment": "", "hotkey": "", "viewpoints": [],
       "defaultViewpoint": "", "animations": [], "sequentialAnimation": false, "script": "",
       "states": {"node": [], "material": [], "transform": [], "light": [], "overlay": []},
       "showInVRMenu": true, "syncInCollaboration": true, "geometries": [],
       "targetNodeNames": [], "values": {}, "materialSnapshots": {},
       "captured": {"nodes": false, "materials": false, "lights": false, "environments": false,
         "viewpoints": false, "sceneplates": false},
       "clipping": {"state": 0, "planePosition": [0, 0, 0], "planeNormal": [0, 1, 0],
         "invert": false, "hideScene": false, "showPlane": true, "planeColor": [0.2, 0.3, 0.4],
         "showGrid": true, "gridColor": [0.63, 0.82, 0.89], "showContour": true,
         "contourColor": [1, 0.7, 0], "contourWidth": 1},
       "previewBytes": 0}],
    "variants": {"node": [], "material": [], "transform": [],
      "light": [{"name": "L", "base": "Sun", "default": "!Enable", "current": "!Enable",
        "options": [{"name": "!Enable", "hotkey": "F2", "action": false}]}],
      "overlay": []}
  })"));
}

TEST_F(ListCommandTest, ShortPreviewPrintsOnStandardError) {
  write("preview.xml",
        "<Variants><VariantSet name=\"S\"><Preview><![CDATA[aGVsbG8=]]></Preview></VariantSet>"
        "</Variants>");
  const CliResult result = run({"list", "car.gltf", "preview.xml", "--json"});
  EXPECT_EQ(result.code, 0);
  EXPECT_NE(normalised(result.out).substr(0, 7), "no JSON");
  EXPECT_THAT(result.out, Not(HasSubstr("aGVsbG8=")));
  EXPECT_THAT(result.err, HasSubstr("\taGVsbG8=\n"));
}

TEST_F(ListCommandTest, EmptyDocumentHoldsNothing) {
  write("empty.xml", "<Variants/>");
  const CliResult result = run({"list", "car.gltf", "empty.xml"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.out, "The document holds nothing.\n");
}

TEST_F(ListCommandTest, LongListsAreWrappedAt80Columns) {
  QString options;
  for (int i = 0; i < 40; ++i)
    options += QString("<State name=\"Option %1\"/>").arg(i);
  write("long.xml", ("<Variants><NodeVariant name=\"Roof\" base=\"Roof\">" + options +
                     "</NodeVariant></Variants>")
                        .toUtf8());
  const std::vector<std::string> lines = linesOf(run({"list", "car.gltf", "long.xml"}).out);
  EXPECT_GT(lines.size(), 5u);
  for (const std::string& line : lines)
    EXPECT_LE(line.size(), 80u) << line;
}

TEST_F(ListCommandTest, HostileNamesAreEscaped) {
  write(
      "odd.xml",
      "<Variants><VariantSet name=\"a&#10;b&quot;&#9;&#x9b;31m\" comment=\"x&#10;y\"/></Variants>");
  const std::string text = run({"list", "car.gltf", "odd.xml"}).out;
  EXPECT_THAT(text, HasSubstr("  a\\nb\\\"\\t\\u009b31m\n"));
  EXPECT_THAT(text, HasSubstr("comment     x\\ny\n"));
  const CliResult json = run({"list", "car.gltf", "odd.xml", "--json"});
  EXPECT_THAT(json.out, HasSubstr("\"name\": \"a\\nb\\\"\\t\\u009b31m\""));
}

}  // namespace
