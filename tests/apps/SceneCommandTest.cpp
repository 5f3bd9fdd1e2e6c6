#include "CliTest.h"

using ::testing::HasSubstr;

namespace {

class SceneCommandTest : public CliTest {};

TEST_F(SceneCommandTest, ShowsTheSceneAsATree) {
  const CliResult result = run({"scene", "car.gltf"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.out, R"(Scene
Root  Group
└─ Car  Group
   ├─ Roof  Switch: Closed
   │  ├─ Closed  Group
   │  └─ Open  Group, hidden
   ├─ Doors  SwitchComponentTransform: Shut of Shut, Wide
   ├─ Sun  UberLight: on
   ├─ Body  MaterialGroup, material Paint
   ├─ Front  Group
   └─ Rear  Group

Sceneplates
Plates  Group
└─ Title  Switch: none
   ├─ English  Sceneplate
   └─ Deutsch  Sceneplate

Materials
  Red  PlainMaterial
  Blue  PlainMaterial
  Paint  SwitchMaterial: Red of Red, Blue

Viewpoints
  Front  active
  Rear

Animations
  Wave
)");
}

TEST_F(SceneCommandTest, JsonHoldsTheWholeScene) {
  const CliResult result = run({"scene", "car.gltf", "--json"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(normalised(result.out), normalised(R"({
    "scene": {"name": "Root", "kind": "Group", "active": true, "children": [
      {"name": "Car", "kind": "Group", "active": true, "children": [
        {"name": "Roof", "kind": "Switch", "active": true, "choice": 0, "children": [
          {"name": "Closed", "kind": "Group", "active": true, "children": []},
          {"name": "Open", "kind": "Group", "active": false, "children": []}]},
        {"name": "Doors", "kind": "SwitchComponentTransform", "active": true, "choice": 0,
         "states": ["Shut", "Wide"], "children": []},
        {"name": "Sun", "kind": "UberLight", "active": true, "on": true, "children": []},
        {"name": "Body", "kind": "MaterialGroup", "active": true, "material": "Paint",
         "children": []},
        {"name": "Front", "kind": "Group", "active": true, "children": []},
        {"name": "Rear", "kind": "Group", "active": true, "children": []}]}]},
    "sceneplates": {"name": "Plates", "kind": "Group", "active": true, "children": [
      {"name": "Title", "kind": "Switch", "active": true, "choice": -1, "children": [
        {"name": "English", "kind": "Sceneplate", "active": true, "children": []},
        {"name": "Deutsch", "kind": "Sceneplate", "active": true, "children": []}]}]},
    "materials": [
      {"name": "Red", "kind": "PlainMaterial", "states": [], "state": null},
      {"name": "Blue", "kind": "PlainMaterial", "states": [], "state": null},
      {"name": "Paint", "kind": "SwitchMaterial", "states": ["Red", "Blue"], "state": "Red"}],
    "viewpoints": ["Front", "Rear"],
    "animations": ["Wave"]
  })"));
}

TEST_F(SceneCommandTest, JsonKeepsTheOrderOfItsMembers) {
  write("bare.gltf", R"({"asset": {"version": "2.0"}, "scenes": [{"nodes": []}]})");
  EXPECT_EQ(run({"scene", "bare.gltf", "--json"}).out, R"({
  "scene": {
    "name": "Root",
    "kind": "Group",
    "active": true,
    "children": []
  },
  "sceneplates": null,
  "materials": [],
  "viewpoints": [],
  "animations": []
}
)");
}

TEST_F(SceneCommandTest, ChoiceOutsideTheChildrenIsShownAsANumber) {
  write("odd.gltf", R"({"asset": {"version": "2.0"}, "scenes": [{"nodes": [0, 1]}], "nodes": [
    {"name": "All", "extras": {"switch": -2}}, {"name": "Odd", "extras": {"switch": 7}}]})");
  const CliResult result = run({"scene", "odd.gltf"});
  EXPECT_THAT(result.out, HasSubstr("├─ All  Switch: all\n└─ Odd  Switch: choice 7\n"));
}

constexpr const char* layers = R"({"asset": {"version": "2.0"}, "scenes": [{"nodes": [0, 1, 2, 3]}],
  "nodes": [
    {"name": "Wall", "extras": {"renderLayer": {
      "camera": false, "shadows": false, "states": {"Night": {}, "Day": {}}}}},
    {"name": "Glass", "extras": {"renderLayer": {"reflections": false}},
     "extensions": {"KHR_node_visibility": {"visible": false}}},
    {"name": "Car", "extras": {"renderLayer": {"states": {"": {"camera": false}}}}},
    {"name": "Sun", "extras": {"renderLayer": {}}}]})";

TEST_F(SceneCommandTest, RenderLayersAreShownWhereTheyAreNotDefault) {
  write("layers.gltf", layers);
  EXPECT_THAT(run({"scene", "layers.gltf"}).out,
              HasSubstr("├─ Wall  Group, no camera, no shadows, layer states Day, Night\n"
                        "├─ Glass  Group, no reflections, hidden\n"
                        "├─ Car  Group, layer states (unnamed)\n"
                        "└─ Sun  Group\n"));
}

TEST_F(SceneCommandTest, JsonHoldsTheRenderLayersOfNodesThatHaveOne) {
  write("layers.gltf", layers);
  const std::string out = run({"scene", "layers.gltf", "--json"}).out;
  for (const char* layer :
       {R"({"camera": false, "reflections": true, "shadows": false, "states": ["Day", "Night"]})",
        R"({"camera": true, "reflections": false, "shadows": true, "states": []})",
        R"({"camera": true, "reflections": true, "shadows": true, "states": [""]})",
        R"({"camera": true, "reflections": true, "shadows": true, "states": []})"}) {
    EXPECT_THAT(out, HasSubstr(R"("renderLayer": )" + std::string(layer) + ",\n")) << layer;
  }
}

TEST_F(SceneCommandTest, WarningsOfTheLoaderGoToStandardError) {
  write("skin.gltf", R"({"asset": {"version": "2.0"}, "scenes": [{"nodes": [0]}],
    "extensionsUsed": ["ACME_fog"], "nodes": [{"name": "A", "extensions": {"ACME_fog": {}}}]})");
  const CliResult result = run({"scene", "skin.gltf", "--json"});
  EXPECT_EQ(result.code, 0);
  EXPECT_NE(normalised(result.out).substr(0, 7), "no JSON");
  EXPECT_THAT(result.err, ::testing::StartsWith("kuvariants: warning: skin.gltf: "));
}

TEST_F(SceneCommandTest, HostileNamesAreEscaped) {
  write("odd.gltf",
        "{\"asset\": {\"version\": \"2.0\"}, \"scenes\": [{\"nodes\": [0]}],"
        "\"nodes\": [{\"name\": \"a\\n\\u001b[2J\\u009b\\\"\\u202eb\"}]}");
  EXPECT_THAT(run({"scene", "odd.gltf"}).out,
              HasSubstr("└─ a\\n\\u001b[2J\\u009b\\\"\\u202eb  Group\n"));
  EXPECT_THAT(run({"scene", "odd.gltf", "--json"}).out,
              HasSubstr("\"name\": \"a\\n\\u001b[2J\\u009b\\\"\\u202eb\""));
}

}  // namespace
