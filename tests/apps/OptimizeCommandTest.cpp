#include "CliTest.h"

using ::testing::HasSubstr;

namespace {

/** A set that names what car.gltf has and what it has not, of each sort, and a set in a group that
 * has nothing else. */
constexpr const char* stale = R"(<Variants>
  <VariantGroup name="Past">
    <VariantSet name="Gone"><NodeVariantRef ref="Roof" state="Sliding"/></VariantSet>
  </VariantGroup>
  <VariantGroup name="Bare"/>
  <VariantSet name="Mixed" default-viewpoint="Above">
    <NodeVariantRef ref="Roof" state="Sliding"/>
    <NodeVariantRef ref="Unknown" state="Any"/>
    <NodeVariantRef ref="Hood" state="Up"/>
    <TransformRef ref="Doors" state="!Next"/>
    <MaterialVariantRef ref="Paint" state="Green"/>
    <LightVariantRef ref="Moon" state="!Enable"/>
    <LightVariantRef ref="Sun" state="!Enable"/>
    <ViewpointRef ref="Front"/>
    <ViewpointRef ref="Above"/>
    <SceneplateRef ref="Title" state="Italiano"/>
    <AnimationRef ref="Dance"/>
    <AnimationRef ref="Wave"/>
    <GeometryRef ref="Spoiler"/>
  </VariantSet>
  <VariantSet name="Kept"><NodeVariantRef ref="Roof" state="Open"/></VariantSet>
  <NodeVariant name="Roof" base="Roof"/>
  <NodeVariant name="Hood" base="Hood"/>
  <MaterialVariant name="Paint" base="Paint"/>
  <LightVariant name="Sun" base="Sun"/>
  <LightVariant name="Moon" base="Moon"/>
  <SceneplateVariant name="Title" base="Title"/>
  <TransformVariant name="Doors" base="Doors"/>
</Variants>
)";

constexpr const char* removed = R"(
  Gone
    node        Roof = Sliding
  Mixed
    node        Roof = Sliding, Hood = Up
    material    Paint = Green
    transform   Doors = !Next
    light       Moon = !Enable
    overlay     Title = Italiano
    viewpoints  Above, finally Above
    animations  Dance
    geometries  Spoiler
)";

class OptimizeCommandTest : public CliTest {
 protected:
  OptimizeCommandTest() { write("stale.xml", stale); }

  CliResult optimize(const QStringList& options) {
    return run(QStringList{"optimize", "car.gltf", "stale.xml"} + options);
  }
  /** The names of a document's sets and groups. */
  std::string setsAndGroups(const QString& document) {
    std::string names;
    for (const std::string& line : linesOf(read(document))) {
      const std::size_t at = line.find("<Variant");
      if (line.find(" name=\"") == std::string::npos || at == std::string::npos) continue;
      const std::size_t name = line.find(" name=\"") + 7;
      names += line.substr(name, line.find('"', name) - name) + ' ';
    }
    return names;
  }
};

TEST_F(OptimizeCommandTest, TextTellsWhatWentFromWhichSet) {
  const CliResult result = optimize({"-o", "new.xml"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.out, std::string("Removed from 2 of 3 sets") + removed +
                            "\nEmpty, --drop-empty drops them\n"
                            "    sets        Gone\n"
                            "    groups      Bare\n");
}

TEST_F(OptimizeCommandTest, DocumentKeepsWhatTheSceneHasAndWhatCannotBeJudged) {
  ASSERT_EQ(optimize({"-o", "new.xml"}).code, 0);
  EXPECT_THAT(run({"list", "car.gltf", "new.xml"}).out, HasSubstr(R"(Sets
  Gone  in Past
  Mixed
    node        Unknown = Any
    light       Sun = !Enable
    viewpoints  Front
    animations  Wave
  Kept
    node        Roof = Open
)"));
}

TEST_F(OptimizeCommandTest, DropEmptyDropsSetsAndThenTheGroupsThatThisEmptied) {
  const CliResult result = optimize({"-o", "new.xml", "--drop-empty"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.out, std::string("Removed from 2 of 3 sets") + removed +
                            "\nDropped\n"
                            "    sets        Gone\n"
                            "    groups      Past, Bare\n");
  EXPECT_EQ(setsAndGroups("new.xml"), "Mixed Kept ");
}

TEST_F(OptimizeCommandTest, EmptySetsAndGroupsStayWithoutDropEmpty) {
  ASSERT_EQ(optimize({"-o", "new.xml"}).code, 0);
  EXPECT_EQ(setsAndGroups("new.xml"), "Past Gone Bare Mixed Kept ");
}

TEST_F(OptimizeCommandTest, DryRunWritesNothing) {
  const QStringList before = files();
  const CliResult result = optimize({"--dry-run", "--drop-empty"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.out, std::string("To be removed from 2 of 3 sets") + removed +
                            "\nTo be dropped\n"
                            "    sets        Gone\n"
                            "    groups      Past, Bare\n");
  EXPECT_EQ(optimize({"--dry-run", "-o", "new.xml"}).code, 0);
  EXPECT_EQ(files(), before);
  EXPECT_EQ(read("stale.xml"), stale);
}

TEST_F(OptimizeCommandTest, JsonTellsTheSame) {
  const CliResult result = optimize({"-o", "new.xml", "--json"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(normalised(result.out), normalised(R"({
    "removed": [
      {"set": "Gone",
       "states": {"node": [["Roof", "Sliding"]], "material": [], "transform": [], "light": [],
                  "overlay": []},
       "viewpoints": [], "defaultViewpoint": "", "animations": [], "geometries": []},
      {"set": "Mixed",
       "states": {"node": [["Roof", "Sliding"], ["Hood", "Up"]], "material": [["Paint", "Green"]],
                  "transform": [["Doors", "!Next"]], "light": [["Moon", "!Enable"]],
                  "overlay": [["Title", "Italiano"]]},
       "viewpoints": ["Above"], "defaultViewpoint": "Above", "animations": ["Dance"],
       "geometries": ["Spoiler"]}],
    "droppedSets": [], "droppedGroups": [],
    "emptySets": ["Gone"], "emptyGroups": ["Bare"]})"));
}

TEST_F(OptimizeCommandTest, JsonNamesWhatWasDropped) {
  write("small.xml",
        "<Variants><VariantGroup name=\"G\"><VariantSet name=\"S\"/></VariantGroup></Variants>");
  EXPECT_EQ(
      run({"optimize", "car.gltf", "small.xml", "-o", "new.xml", "--drop-empty", "--json"}).out,
      R"({
  "removed": [],
  "droppedSets": ["S"],
  "droppedGroups": ["G"],
  "emptySets": [],
  "emptyGroups": []
}
)");
}

TEST_F(OptimizeCommandTest, NothingToRemoveIsSaid) {
  const CliResult result = run({"optimize", "car.gltf", "car.xml", "-o", "new.xml"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.out, "Nothing to remove from 3 sets\n");
}

TEST_F(OptimizeCommandTest, EmptyDocumentIsWrittenAgain) {
  write("empty.xml", "<Variants/>");
  EXPECT_EQ(run({"optimize", "car.gltf", "empty.xml", "-o", "empty.xml"}).out,
            "Nothing to remove from 0 sets\n");
  EXPECT_EQ(read("empty.xml"),
            "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<!DOCTYPE variants>\n<Variants/>\n");
}

TEST_F(OptimizeCommandTest, DocumentMayBeWrittenInThePlaceOfTheInput) {
  ASSERT_EQ(optimize({"-o", "stale.xml"}).code, 0);
  EXPECT_EQ(optimize({"--dry-run"}).out,
            "Nothing to remove from 3 sets\n"
            "\nEmpty, --drop-empty drops them\n"
            "    sets        Gone\n"
            "    groups      Bare\n");
}

TEST_F(OptimizeCommandTest, OptimizedDocumentSelectsAsBefore) {
  const QStringList select = {"Mixed", "Kept", "--json"};
  const std::string before = statesOf(run(QStringList{"select", "car.gltf", "stale.xml"} + select));
  ASSERT_EQ(optimize({"-o", "new.xml"}).code, 0);
  const std::string after = statesOf(run(QStringList{"select", "car.gltf", "new.xml"} + select));
  // But for the step, which optimizing sheds.
  EXPECT_THAT(before, HasSubstr("\"Doors\":\"Wide\""));
  EXPECT_EQ(QString::fromStdString(before).replace("Wide", "Shut").toStdString(), after);
}

TEST_F(OptimizeCommandTest, DroppingIsAnnouncedAndSheddingIsNot) {
  ASSERT_EQ(optimize({"-o", "new.xml", "--drop-empty", "--trace", "trace.jsonl"}).code, 0);
  const std::vector<std::string> lines = linesOf(read("trace.jsonl"));
  // What reading the document sends stands before.
  ASSERT_GT(lines.size(), 3u);
  EXPECT_EQ(
      std::vector<std::string>(lines.end() - 4, lines.end()),
      (std::vector<std::string>{
          R"({"message": "variantGroupChanged", "mode": 1, "attributes": {}})",
          R"({"message": "variantSetRemoved", "mode": 1, "attributes": {"variant": "Gone"}})",
          R"({"message": "variantGroupRemoved", "mode": 1, "attributes": {"variant": "Bare"}})",
          R"({"message": "variantGroupRemoved", "mode": 1, "attributes": {"variant": "Past"}})"}));
}

TEST_F(OptimizeCommandTest, NamesAreEscaped) {
  write("odd.xml",
        "<Variants><VariantSet name=\"a&#10;&quot;\"><LightVariantRef ref=\"l&#9;\" "
        "state=\"&#x9b;2J\"/></VariantSet><LightVariant name=\"l&#9;\" base=\"Moon\"/>"
        "</Variants>");
  EXPECT_EQ(run({"optimize", "car.gltf", "odd.xml", "--dry-run"}).out,
            "To be removed from 1 of 1 set\n"
            "  a\\n\\\"\n"
            "    light       l\\t = \\u009b2J\n"
            "\nEmpty, --drop-empty drops them\n"
            "    sets        a\\n\\\"\n");
}

TEST_F(OptimizeCommandTest, BrokenInputLeavesTheFormerDocument) {
  write("broken.xml", "<Variants>");
  write("new.xml", "former\n");
  EXPECT_EQ(run({"optimize", "car.gltf", "broken.xml", "-o", "new.xml"}).code, 3);
  EXPECT_EQ(run({"optimize", "none.gltf", "stale.xml", "-o", "new.xml"}).code, 3);
  EXPECT_EQ(run({"optimize", "car.gltf", "none.xml", "-o", "new.xml"}).code, 3);
  EXPECT_EQ(read("new.xml"), "former\n");
}

}  // namespace
