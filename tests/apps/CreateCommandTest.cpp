#include "CliTest.h"

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

namespace {

class CreateCommandTest : public CliTest {
 protected:
  /** What "create" answers for a scene with these nodes at its top, the first ones of all. */
  CliResult create(const QByteArray& nodes, const QByteArray& top, const QByteArray& rest = {}) {
    write("scene.gltf", "{\"asset\": {\"version\": \"2.0\"}, \"nodes\": [" + nodes +
                            "], \"scenes\": [{\"nodes\": [" + top + "]}]" + rest + "}");
    return run({"create", "scene.gltf", "-o", "new.xml"});
  }
  /** The text of a document's "list". */
  std::string listed(const QString& scene, const QString& document) {
    return run({"list", scene, document}).out;
  }
};

TEST_F(CreateCommandTest, TextNamesWhatWasMadeByKind) {
  const CliResult result = run({"create", "car.gltf", "-o", "new.xml"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.out,
            "Variants\n"
            "    node            1  Roof\n"
            "    material        1  Paint\n"
            "    transform       1  Doors\n"
            "    light           1  Sun\n"
            "    overlay         1  Title\n");
}

TEST_F(CreateCommandTest, JsonNamesWhatWasMade) {
  const CliResult result = run({"create", "car.gltf", "-o", "new.xml", "--json"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.out, R"({
  "groups": [],
  "sets": [],
  "variants": {
    "node": ["Roof"],
    "material": ["Paint"],
    "transform": ["Doors"],
    "light": ["Sun"],
    "overlay": ["Title"]
  }
}
)");
}

TEST_F(CreateCommandTest, DocumentHasOptionsAndDefaultsOfTheScene) {
  ASSERT_EQ(run({"create", "car.gltf", "-o", "new.xml"}).code, 0);
  EXPECT_EQ(listed("car.gltf", "new.xml"), R"(Variants
  node Roof
    current     Closed
    default     Closed
    options     !All, !None, !Next, !Next (Loop), !Previous, !Previous (Loop),
                Closed, Open
  material Paint
    current     Red
    default     Red
    options     !Next, !Next (Loop), !Previous, !Previous (Loop), Red, Blue
  transform Doors
    current     Shut
    default     !Next
    options     !Next, !Next (Loop), !Previous, !Previous (Loop), Shut, Wide
  light Sun
    current     !Enable
    default     !Enable
    options     !Enable, !Disable, !Toggle
  overlay Title
    current     !None
    default     !None
    options     !All, !None, !Next, !Next (Loop), !Previous, !Previous (Loop),
                English, Deutsch
)");
}

TEST_F(CreateCommandTest, WhatWasMadeCanBeSelected) {
  ASSERT_EQ(run({"create", "car.gltf", "-o", "new.xml"}).code, 0);
  const CliResult result =
      run({"select", "car.gltf", "new.xml", "--json", "--variant", "node:Roof=Open", "--variant",
           "material:Paint=Blue", "--variant", "transform:Doors=Wide", "--variant",
           "light:Sun=!Disable", "--variant", "overlay:Title=Deutsch"});
  EXPECT_EQ(statesOf(result), normalised(R"({
    "node": {"Roof": "Open"}, "material": {"Paint": "Blue"}, "transform": {"Doors": "Wide"},
    "light": {"Sun": "!Disable"}, "overlay": {"Title": "Deutsch"}})"));
}

TEST_F(CreateCommandTest, SwitchBelowASwitchGetsAVariantAndOneWithoutChildrenNone) {
  const CliResult result = create(
      R"({"name": "Outer", "children": [1], "extras": {"switch": 0}},
         {"name": "Inner", "children": [2], "extras": {"switch": 0}}, {"name": "Leaf"},
         {"name": "Bare", "extras": {"switch": 0}})",
      "0, 3");
  EXPECT_EQ(result.out, "Variants\n    node            2  Outer, Inner\n");
}

constexpr const char* image =
    R"(, "images": [{"uri": "data:image/png;base64,iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAQAAAC1HAwCAAAAC0lEQVR42mNk+A8AAQUBAScY42YAAAAASUVORK5CYII="}])";

TEST_F(CreateCommandTest, PlatesOutsideSwitchesGetVariantsAndThoseInsideNone) {
  const CliResult result = create(
      R"({"name": "Plates", "children": [1, 2, 4], "extras": {"sceneplates": true}},
         {"name": "Logo", "extras": {"sceneplate": {"image": 0, "rect": [0, 0, 1, 1]}}},
         {"name": "Corner", "children": [3]},
         {"name": "Price", "extras": {"sceneplate": {"image": 0, "rect": [0, 0, 1, 1]}}},
         {"name": "Season", "children": [5, 6], "extras": {"switch": 0}},
         {"name": "Summer", "extras": {"sceneplate": {"image": 0, "rect": [0, 0, 1, 1]}}},
         {"name": "Winter", "children": [7]},
         {"name": "Snow", "extras": {"sceneplate": {"image": 0, "rect": [0, 0, 1, 1]}}})",
      "0", image);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.out, "Variants\n    overlay         3  Logo, Price, Season\n");
  EXPECT_THAT(listed("scene.gltf", "new.xml"),
              HasSubstr("  overlay Logo\n    current     !Enable\n    default     !Enable\n"
                        "    options     !Enable, !Disable, !Toggle\n"));
}

TEST_F(CreateCommandTest, PlainMaterialsGetNoVariantAndAreNotWrapped) {
  ASSERT_EQ(run({"create", "car.gltf", "-o", "new.xml", "--trace", "trace.jsonl"}).code, 0);
  EXPECT_THAT(read("new.xml"), Not(HasSubstr("MaterialVariant name=\"Red")));
  // The creators are silent but for these two.
  EXPECT_EQ(read("trace.jsonl"),
            "{\"message\": \"transformVariantChanged\", \"mode\": 0, \"attributes\": {}}\n"
            "{\"message\": \"lightVariantChanged\", \"mode\": 1, \"attributes\": {}}\n");
}

TEST_F(CreateCommandTest, SceneWithoutAnythingGivesAnEmptyDocument) {
  const CliResult result = create(R"({"name": "Box"})", "0");
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.out, "Nothing in the scene can vary: the document is empty.\n");
  EXPECT_EQ(read("new.xml"),
            "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<!DOCTYPE variants>\n<Variants/>\n");
}

TEST_F(CreateCommandTest, LongListsAreShortened) {
  QByteArray nodes, children, top;
  for (int i = 0; i < 22; ++i) {
    const QByteArray number = QByteArray::number(i), child = QByteArray::number(22 + i);
    nodes += R"({"name": "Switch )" + number + R"(", "extras": {"switch": 0}, "children": [)" +
             child + "]}, ";
    children += i ? ", {}" : "{}";
    top += (i ? ", " : "") + number;
  }
  EXPECT_EQ(create(nodes + children, top).out,
            "Variants\n"
            "    node           22  Switch 0, Switch 1, Switch 2, Switch 3, Switch 4,\n"
            "                       Switch 5, Switch 6, Switch 7, Switch 8, Switch 9,\n"
            "                       Switch 10, Switch 11, Switch 12, Switch 13, Switch 14,\n"
            "                       Switch 15, Switch 16, Switch 17, Switch 18, Switch 19,\n"
            "                       and 2 more\n");
}

TEST_F(CreateCommandTest, NamesAreEscapedInEachForm) {
  const CliResult result =
      create(R"({"name": "a<\"&\n\u001b[2J", "children": [1], "extras": {"switch": 0}}, {})", "0");
  EXPECT_EQ(result.out, "Variants\n    node            1  a<\\\"&\\n\\u001b[2J\n");
  EXPECT_THAT(read("new.xml"),
              HasSubstr("<NodeVariant name=\"a&lt;&quot;&amp;&#10;\xEF\xBF\xBD[2J\" "));
  EXPECT_THAT(run({"create", "scene.gltf", "-o", "new.xml", "--json"}).out,
              HasSubstr("\"node\": [\"a<\\\"&\\n\\u001b[2J\"],"));
}

TEST_F(CreateCommandTest, SampleCanBeListedAndSelected) {
  const QString car = KUVARIANTS_SAMPLES "/car/car.gltf";
  EXPECT_EQ(run({"create", car, "-o", "new.xml"}).out, R"(Variants
    node            5  Roof, Rack, Wheels, Mirror, Surroundings
    material        3  Paint, Glass, Fabric Switch
    transform       3  Left Door, Right Door, Bonnet
    light           4  Headlight Left, Headlight Right, Interior Light, Sun
    overlay         2  Logo, Season

Groups
  car
    sets            2  Cloth Seats, Leather Seats
)");
  EXPECT_THAT(run({"list", car, "new.xml"}).out, HasSubstr(R"(
  Leather Seats  in car
    material    Fabric Switch = Leather
)"));
  EXPECT_THAT(run({"select", car, "new.xml", "Leather Seats", "--variant", "node:Roof=Softtop",
                   "--variant", "overlay:Logo=!Disable"})
                  .out,
              HasSubstr("Changed\n  node Roof: Hardtop -> Softtop\n"
                        "  material Fabric Switch: Fabric -> Leather\n"
                        "  overlay Logo: !Enable -> !Disable\n"));
}

// What cannot be reached by name is told.

TEST_F(CreateCommandTest, StatesOfOneNameAreTold) {
  const CliResult result = create(
      R"({"name": "Roof", "children": [1, 2], "extras": {"switch": 0}}, {"name": "Open"},
         {"name": "Open"})",
      "0");
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.err,
            "kuvariants: warning: node \"Roof\" has several states \"Open\"; only the first can be "
            "selected\n");
}

TEST_F(CreateCommandTest, ObjectsOfOneNameWithDifferentStatesAreToldOnce) {
  const QByteArray twin = R"({"name": "Roof", "children": [%], "extras": {"switch": 0}})";
  const auto withChild = [&](const char* index) { return QByteArray(twin).replace("%", index); };
  const CliResult result = create(
      withChild("4") + ", " + withChild("5") + ", " + withChild("6") + ", " + withChild("7") +
          R"(, {"name": "Open"}, {"name": "Open"}, {"name": "Shut"}, {"name": "Ajar"})",
      "0, 1, 2, 3");
  EXPECT_EQ(result.err,
            "kuvariants: warning: node \"Roof\" stands for several with different states; the "
            "variant lists those of the first\n");
}

TEST_F(CreateCommandTest, ObjectsWithoutANameAreCounted) {
  const CliResult result = create(
      R"({"children": [1], "extras": {"switch": 0}}, {},
         {"extras": {"transform": 0, "transforms": [{"name": "Shut"}]}})",
      "0, 2", R"(, "materials": [{"name": "Red"},
                  {"extras": {"switch": {"materials": [0], "choice": 0}}}])");
  EXPECT_EQ(result.out, "Nothing in the scene can vary: the document is empty.\n");
  EXPECT_EQ(result.err,
            "kuvariants: warning: 3 objects without a name could vary; no variant was made for "
            "them\n");
}

// Files.

TEST_F(CreateCommandTest, FormerDocumentIsReplaced) {
  ASSERT_EQ(run({"create", "car.gltf", "-o", "car.xml"}).code, 0);
  EXPECT_THAT(read("car.xml"), Not(HasSubstr("Summer")));
}

TEST_F(CreateCommandTest, BrokenSceneLeavesTheFormerDocument) {
  write("broken.gltf", "{");
  write("new.xml", "former\n");
  const CliResult result = run({"create", "broken.gltf", "-o", "new.xml"});
  EXPECT_EQ(result.code, 3);
  EXPECT_THAT(result.err, HasSubstr("kuvariants: cannot read scene: broken.gltf: "));
  EXPECT_EQ(read("new.xml"), "former\n");
}

}  // namespace
