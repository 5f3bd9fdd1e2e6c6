#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "CaptureTest.h"

using ::testing::HasSubstr;
using ::testing::Not;

namespace {

// What a capture tells.

TEST_F(CaptureTest, TellsWhatTheSetTookInAndWhatTheDocumentLacks) {
  const CliResult result = capture({"red.gltf", "--set", "Red", "-o", "paints.xml"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.out, R"(Captured Red in group New Group 1
    node        Roof = Closed, Jack = !Disable
    viewpoint   Red
    remembers   the materials of 1 node
    script      activateRenderLayerState("Red")

Lost, as --save-scene does not write the scene
    viewpoints  Red
)");
}

TEST_F(CaptureTest, TellsTheSwitchMaterialTheVariantAndTheStatesInBothSets) {
  capture({"red.gltf", "--set", "Red", "-o", "paints.xml"});
  const CliResult result =
      capture({"blue.gltf", "paints.xml", "--set", "Blue", "-o", "paints.xml"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.err, "kuvariants: Created new material 'Switch'.\n");
  EXPECT_EQ(result.out, R"(Captured Blue in group New Group 1
    node        Roof = Closed, Jack = !Disable
    material    Switch = Blue
    viewpoint   Blue
    remembers   the materials of 1 node
    script      activateRenderLayerState("Blue")
  Switch material Switch, new, with a variant
    materials   Blue, Red
    nodes       Car/Body
    sets        Red = Red, Blue = Blue

Made anew when the document is read
    materials   Switch

Lost, as --save-scene does not write the scene
    viewpoints  Blue
)");
}

TEST_F(CaptureTest, JsonHoldsTheWholeResult) {
  capture({"red.gltf", "--set", "Red", "-o", "paints.xml"});
  const CliResult result =
      capture({"blue.gltf", "paints.xml", "--after", "Red", "--variant", "node:Roof=Open", "--set",
               "Blue", "-o", "out.xml", "--no-restore", "--json"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(normalised(result.out), normalised(R"json({
    "captures": [{
      "set": "Blue", "wished": "Blue", "group": "New Group 1",
      "after": ["Red"], "afterStates": [["node", "Roof", "Open"]],
      "states": {"node": [["Roof", "Open"], ["Jack", "!Disable"]],
        "material": [["Switch", "Blue"]], "transform": [], "light": [], "overlay": []},
      "viewpoint": "Blue", "materials": 1,
      "script": ["activateRenderLayerState(\"Blue\")"],
      "switchMaterials": [{"name": "Switch", "new": true, "newVariant": true,
        "materials": ["Blue", "Red"], "added": ["Blue", "Red"], "nodes": ["Car/Body"],
        "states": [["Red", "Red"], ["Blue", "Blue"]]}],
      "renamed": [], "renderLayers": false
    }],
    "documentAlone": {"madeAnew": ["Switch"], "madeAnewAsPlain": [],
      "lost": {"materials": [], "viewpoints": ["Blue"], "names": 0, "renderLayers": []}}
  })json"));
}

TEST_F(CaptureTest, NothingIsLostWhereTheSceneIsSaved) {
  const QStringList arguments{"red.gltf", "--set", "Red", "-o", "red.xml", "--save-scene", "a.glb"};
  const std::string text = capture(arguments).out;
  EXPECT_THAT(text, HasSubstr("viewpoint   Red"));
  EXPECT_THAT(text, Not(HasSubstr("Lost")));
  EXPECT_THAT(capture(arguments + QStringList{"--json"}).out, HasSubstr("\"documentAlone\": null"));
  EXPECT_THAT(run({"scene", "a.glb"}).out, HasSubstr("Red"));
}

TEST_F(CaptureTest, SwitchMaterialsAreToldInTheOrderInWhichTheCaptureCameToThem) {
  const auto roofOf = [](const char* index, int body) {
    return scene(body).replace("{\"name\": \"Closed\"}", QByteArray("{\"name\": \"Closed\", ") +
                                                             "\"extras\": {\"geometry\": "
                                                             "{\"material\": " +
                                                             index + "}}}");
  };
  write("first.gltf", roofOf("0", 0));
  // The body bears the file's own switch, which holds all that is wanted, and is not edited.
  write("second.gltf", roofOf("1", 3));
  capture({"first.gltf", "--set", "First", "-o", "paints.xml"});
  const CliResult result =
      capture({"second.gltf", "paints.xml", "--set", "Second", "-o", "paints.xml", "--json"});
  const QJsonArray switches = QJsonDocument::fromJson(QByteArray::fromStdString(result.out))
                                  .object()["captures"]
                                  .toArray()[0]
                                  .toObject()["switchMaterials"]
                                  .toArray();
  QStringList names;
  for (const QJsonValue& one : switches)
    names += one.toObject()["name"].toString();
  EXPECT_EQ(names, (QStringList{"Paint", "Switch"}));
}

TEST_F(CaptureTest, WhatASwitchOfTheSceneFileTookInIsLostWithoutTheScene) {
  write("paint.gltf", scene(3));
  write("green.gltf", scene(2));
  capture({"paint.gltf", "--set", "Any", "-o", "paints.xml"});
  const CliResult result =
      capture({"green.gltf", "paints.xml", "--set", "Green", "-o", "paints.xml"});
  EXPECT_THAT(result.out, HasSubstr("  Switch material Paint, grown\n"
                                    "    materials   Red, Blue, Green\n"
                                    "    added       Green\n"
                                    "    nodes       Car/Body\n"
                                    "    sets        Green = Green\n"));
  EXPECT_THAT(result.out, HasSubstr("Lost, as --save-scene does not write the scene\n"
                                    "    viewpoints  Green\n"
                                    "    materials   Paint = Green\n"));
  EXPECT_THAT(result.out, Not(HasSubstr("Made anew")));
  EXPECT_THAT(read("paints.xml"), HasSubstr("<State name=\"Green\">"));
}

TEST_F(CaptureTest, ASwitchThatADocumentMadeIsMadeAnewWithAllThatItTookIn) {
  capturePaints();
  write("green.gltf", scene(2));
  const CliResult result =
      capture({"green.gltf", "paints.xml", "--set", "Green", "-o", "paints.xml"});
  EXPECT_THAT(result.out, HasSubstr("  Switch material Switch, grown\n"));
  EXPECT_THAT(result.out, HasSubstr("Made anew when the document is read\n"
                                    "    materials   Switch\n"));
  run({"select", "red.gltf", "paints.xml", "Green", "--save-scene", "out.gltf"});
  EXPECT_EQ(bodyOf("out.gltf"), "Switch = Green");
}

TEST_F(CaptureTest, AnEnvironmentSwitchThatTheDocumentMakesAsAPlainOneIsTold) {
  const auto surroundings = [](const char* sky) {
    return scene(0)
        .replace("{\"name\": \"Red\"}", R"({"name": "Day", "extras": {"environment": true}})")
        .replace("{\"name\": \"Blue\"}", R"({"name": "Night", "extras": {"environment": true}})")
        .replace("\"material\": 0", sky);
  };
  write("day.gltf", surroundings("\"material\": 0"));
  write("night.gltf", surroundings("\"material\": 1"));
  capture({"day.gltf", "--set", "Day", "-o", "sky.xml"});
  const QStringList second{"night.gltf", "sky.xml", "--set", "Night", "-o", "out.xml"};
  const CliResult result = capture(second);
  EXPECT_EQ(result.code, 0) << result.err;
  EXPECT_THAT(result.out, HasSubstr("Made anew when the document is read\n"
                                    "    as plain    Switch\n"));
  const std::string json = normalised(capture(second + QStringList{"--json"}).out);
  EXPECT_THAT(json, HasSubstr("\"madeAnew\":[],\"madeAnewAsPlain\":[\"Switch\"]"));
}

TEST_F(CaptureTest, EachLineOfTheScriptStandsOnOneOfItsOwnWithItsQuotes) {
  write("hidden.gltf",
        scene(0).replace("\"Closed\"}", "\"Closed\", \"extras\": {\"materialGroup\": {}}}"));
  const CliResult result = capture({"hidden.gltf", "--set", "A", "-o", "out.xml"});
  EXPECT_EQ(result.code, 0) << result.err;
  EXPECT_THAT(result.out,
              HasSubstr("    script      setIgnoreMaterialGroup(\"Car/Roof/Closed\",false)\n"
                        "                activateRenderLayerState(\"A\")\n"));
}

TEST_F(CaptureTest, RenamedNodesAreTold) {
  const CliResult result =
      capture({"twins.gltf", "--set", "A", "-o", "a.xml", "--rename-duplicates", "yes"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_THAT(result.out, HasSubstr("  Renamed Car/Roof/Closed -> Closed1\n"));
  EXPECT_THAT(result.out, HasSubstr("    names       1 new name\n"));
}

TEST_F(CaptureTest, ARenamedNodeWithoutAPathIsToldInWords) {
  write("nameless.gltf",
        scene(0).replace("{\"name\": \"Closed\"}", "{}").replace("\"name\": \"Jack\", ", ""));
  const CliResult result =
      capture({"nameless.gltf", "--set", "A", "-o", "a.xml", "--rename-duplicates", "yes"});
  EXPECT_EQ(result.code, 0) << result.err;
  EXPECT_THAT(result.out, HasSubstr("  Renamed a node without a name -> 1\n"));
}

TEST_F(CaptureTest, NodesWithoutContentAreNotCountedAmongThoseThatShareAName) {
  write("bare.gltf",
        scene(0)
            .replace("{\"name\": \"Closed\"}", "{\"name\": \"Jack\", \"extras\": {\"bare\": true}}")
            .replace("\"Open\"", "\"Roof\""));
  const CliResult result = capture({"bare.gltf", "--set", "A", "-o", "a.xml"});
  EXPECT_EQ(result.code, 1);
  EXPECT_THAT(result.err, HasSubstr(": nodes share a name: \"Roof\" (2 nodes); "));
}

TEST_F(CaptureTest, AWishedNameInUseIsPartOfTheJson) {
  capture({"red.gltf", "--set", "Red", "-o", "paints.xml"});
  EXPECT_THAT(capture({"red.gltf", "paints.xml", "--set", "Red", "-o", "out.xml", "--json"}).out,
              HasSubstr("\"set\": \"Red1\",\n      \"wished\": \"Red\",\n"));
}

TEST_F(CaptureTest, RenamingWhatSetsNameIsWarnedOf) {
  capture({"red.gltf", "--set", "Red", "-o", "paints.xml"});
  const CliResult result = capture(
      {"twins.gltf", "paints.xml", "--set", "A", "-o", "a.xml", "--rename-duplicates", "yes"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.err, "kuvariants: warning: Renaming might break existing variant sets!\n");
}

TEST_F(CaptureTest, AMaterialThatTheSceneLacksIsWarnedOf) {
  capture({"red.gltf", "--set", "Red", "-o", "paints.xml"});
  write("blue.gltf", scene(1).replace("{\"name\": \"Red\"}", "{\"name\": \"Scarlet\"}"));
  const CliResult result =
      capture({"blue.gltf", "paints.xml", "--set", "Blue", "-o", "paints.xml"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.err,
            "kuvariants: warning: the set \"Red\" remembers the material \"Red\" for 1 node, and "
            "the scene has none of that name: no switch material was made there\n");
}

TEST_F(CaptureTest, AMaterialOfADocumentsSwitchThatTheSceneLacksIsWarnedOf) {
  capturePaints();
  write("green.gltf", scene(2).replace("{\"name\": \"Blue\"}", "{\"name\": \"Navy\"}"));
  const CliResult result =
      capture({"green.gltf", "paints.xml", "--set", "Green", "-o", "paints.xml"});
  EXPECT_EQ(result.code, 0);
  EXPECT_THAT(result.err, HasSubstr("kuvariants: warning: the set \"Blue\" shows the material "
                                    "\"Blue\" by the switch material \"Switch\", and the scene "
                                    "has none of that name\n"));
  EXPECT_THAT(result.err, Not(HasSubstr("\"Red\"")));
}

TEST_F(CaptureTest, AStateThatIsNoneOfItsSwitchIsWarnedOf) {
  write("paint.gltf", scene(3));
  capture({"red.gltf", "--set", "Red", "-o", "paints.xml"});
  const CliResult result =
      capture({"paint.gltf", "paints.xml", "--set", "Any", "-o", "paints.xml"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.err,
            "kuvariants: warning: the set \"Any\" has \"Paint\" for its state of the switch "
            "material \"Paint\", which has none of that name: it may not bring its own look "
            "back\n");
}

TEST_F(CaptureTest, ANameThatBreaksTheScriptIsWarnedOf) {
  for (const char* name : {"a\"b", "a\\b", "a\nb", "a\rb"}) {
    const CliResult result = capture({"red.gltf", "--set", name, "-o", "out.xml"});
    EXPECT_EQ(result.code, 0);
    EXPECT_THAT(result.err, HasSubstr("\" does not work: a name in it has a quotation mark, a "
                                      "back-slash or a line break\n"))
        << name;
  }
  EXPECT_EQ(capture({"red.gltf", "--set", "a'b (c), [d]", "-o", "out.xml"}).err, "");
}

TEST_F(CaptureTest, APathThatBreaksTheScriptIsWarnedOf) {
  const QByteArray group = "{\"name\": \"Clo\\\"sed\", \"extras\": {\"materialGroup\": {}}}";
  write("quoted.gltf", scene(0).replace("{\"name\": \"Closed\"}", group));
  const CliResult result = capture({"quoted.gltf", "--set", "A", "-o", "out.xml"});
  EXPECT_EQ(result.err,
            "kuvariants: warning: the script of the set \"A\" does not work: a name in it has a "
            "quotation mark, a back-slash or a line break\n");
}

}  // namespace
