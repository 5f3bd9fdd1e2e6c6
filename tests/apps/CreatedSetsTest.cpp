#include "CliTest.h"

using ::testing::HasSubstr;

namespace {

/** A shoe: an upper that follows two variants, a sole that follows the second alone, a lace that
 * follows none. The variants are those of the test. */
constexpr const char* shoe = R"({
  "asset": {"version": "2.0"}, "extensionsUsed": ["KHR_materials_variants"],
  "extensions": {"KHR_materials_variants": {"variants": [%]}},
  "scenes": [{"nodes": [0]}], "nodes": [{"name": "Shoe", "mesh": 0}],
  "meshes": [{"primitives": [
    {"attributes": {"POSITION": 0}, "material": 0, "extensions": {"KHR_materials_variants":
      {"mappings": [{"material": 1, "variants": [0]}, {"material": 2, "variants": [1]}]}}},
    {"attributes": {"POSITION": 0}, "material": 3, "extensions": {"KHR_materials_variants":
      {"mappings": [{"material": 4, "variants": [1]}]}}},
    {"attributes": {"POSITION": 0}, "material": 5}]}],
  "materials": [{"name": "Upper"}, {"name": "Blue"}, {"name": "Grey"},
                {"name": "Sole"}, {"name": "Rubber"}, {"name": "Lace"}],
  "accessors": [{"bufferView": 0, "componentType": 5126, "count": 3, "type": "VEC3",
                 "min": [0, 0, 0], "max": [1, 1, 0]}],
  "bufferViews": [{"buffer": 0, "byteLength": 36}],
  "buffers": [{"byteLength": 36,
    "uri": "data:application/octet-stream;base64,AAAAAAAAAAAAAAAAAACAPwAAAAAAAAAAAAAAAAAAgD8AAAAA"}]
})";

class CreatedSetsTest : public CliTest {
 protected:
  CreatedSetsTest() { writeShoe(R"({"name": "Beach"}, {"name": "Street"}, {"name": "Night"})"); }

  void writeShoe(const QByteArray& variants) {
    write("shoe.gltf", QByteArray(shoe).replace("%", variants));
  }
  CliResult create(const QString& scene) { return run({"create", scene, "-o", "shoe.xml"}); }
  /** The materials of a scene with states, as "scene" shows them. */
  std::vector<std::string> switchesOf(const QString& scene) {
    std::vector<std::string> lines;
    for (const std::string& line : linesOf(run({"scene", scene}).out)) {
      if (line.find("  SwitchMaterial: ") != std::string::npos) lines.push_back(line);
    }
    return lines;
  }
  /** The switches after a set is selected in a scene, which is saved as another. */
  std::vector<std::string> afterSelecting(const QString& set, const QString& scene,
                                          const QString& saved) {
    EXPECT_EQ(run({"select", scene, "shoe.xml", set, "--save-scene", saved}).code, 0);
    return switchesOf(saved);
  }
};

TEST_F(CreatedSetsTest, TextNamesTheGroupAfterTheFileAndItsSets) {
  const CliResult result = create("shoe.gltf");
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.out,
            "Variants\n"
            "    material        2  Upper Switch, Sole Switch\n"
            "\n"
            "Groups\n"
            "  shoe\n"
            "    sets            3  Beach, Street, Night\n");
}

TEST_F(CreatedSetsTest, JsonNamesGroupAndSets) {
  EXPECT_THAT(run({"create", "shoe.gltf", "-o", "shoe.xml", "--json"}).out,
              HasSubstr("{\n  \"groups\": [\"shoe\"],\n  \"sets\": [\"Beach\", \"Street\", "
                        "\"Night\"],\n  \"variants\": {\n"));
}

TEST_F(CreatedSetsTest, EachSetHasAStateForEverySwitchThatFollowsTheFile) {
  ASSERT_EQ(create("shoe.gltf").code, 0);
  EXPECT_THAT(run({"list", "shoe.gltf", "shoe.xml"}).out, HasSubstr(R"(Groups
  shoe
    sets        Beach, Street, Night

Sets
  Beach  in shoe
    material    Upper Switch = Blue, Sole Switch = Sole
  Street  in shoe
    material    Upper Switch = Grey, Sole Switch = Rubber
  Night  in shoe
    material    Upper Switch = Upper, Sole Switch = Sole
)"));
}

TEST_F(CreatedSetsTest, NoSetLeavesARestOfAnother) {
  ASSERT_EQ(create("shoe.gltf").code, 0);
  EXPECT_EQ(afterSelecting("Street", "shoe.gltf", "street.gltf"),
            (std::vector<std::string>{"  Upper Switch  SwitchMaterial: Grey of Upper, Blue, Grey",
                                      "  Sole Switch  SwitchMaterial: Rubber of Sole, Rubber"}));
  EXPECT_EQ(afterSelecting("Beach", "street.gltf", "beach.gltf"),
            (std::vector<std::string>{"  Upper Switch  SwitchMaterial: Blue of Upper, Blue, Grey",
                                      "  Sole Switch  SwitchMaterial: Sole of Sole, Rubber"}));
  EXPECT_EQ(afterSelecting("Night", "beach.gltf", "night.gltf"),
            (std::vector<std::string>{"  Upper Switch  SwitchMaterial: Upper of Upper, Blue, Grey",
                                      "  Sole Switch  SwitchMaterial: Sole of Sole, Rubber"}));
}

TEST_F(CreatedSetsTest, SetsOfASavedSceneAreThoseOfTheFirst) {
  ASSERT_EQ(create("shoe.gltf").code, 0);
  afterSelecting("Street", "shoe.gltf", "street.gltf");
  ASSERT_EQ(create("street.gltf").code, 0);
  EXPECT_THAT(run({"list", "street.gltf", "shoe.xml"}).out,
              HasSubstr("  Night  in street\n"
                        "    material    Upper Switch = Upper, Sole Switch = Sole\n"));
}

TEST_F(CreatedSetsTest, DoubledNameIsMadeUniqueAndTold) {
  writeShoe(R"({"name": "Beach"}, {"name": "Beach"})");
  const CliResult result = create("shoe.gltf");
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.err,
            "kuvariants: warning: the scene file has several variants \"Beach\"; number 2 becomes "
            "the set \"Beach1\"\n");
  EXPECT_THAT(result.out, HasSubstr("2  Beach, Beach1\n"));
}

TEST_F(CreatedSetsTest, VariantWithoutANameIsNumbered) {
  writeShoe(R"({"name": "Beach"}, {"name": ""}, {})");
  const CliResult result = create("shoe.gltf");
  EXPECT_EQ(result.err, "");
  EXPECT_THAT(result.out, HasSubstr("3  Beach, Variant 2, Variant 3\n"));
}

TEST_F(CreatedSetsTest, NamesOfSetsAreEscaped) {
  writeShoe(R"({"name": "<\"&\n>"}, {"name": "Street"})");
  EXPECT_THAT(create("shoe.gltf").out, HasSubstr("2  <\\\"&\\n>, Street\n"));
  EXPECT_EQ(run({"select", "shoe.gltf", "shoe.xml", "<\"&\n>"}).code, 0);
}

TEST_F(CreatedSetsTest, StatesOfOneNameAreTold) {
  const QByteArray twins = QByteArray(shoe)
                               .replace("%", R"({"name": "Beach"}, {"name": "Street"})")
                               .replace("\"Grey\"", "\"Blue\"");
  write("shoe.gltf", twins);
  const CliResult result = create("shoe.gltf");
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.err,
            "kuvariants: warning: material \"Upper Switch\" has several states \"Blue\"; only the "
            "first can be selected\n");
}

TEST_F(CreatedSetsTest, GroupIsNamedAfterTheFileWithoutFolderAndExtension) {
  ASSERT_EQ(runInShell("mkdir d && cp shoe.gltf 'd/my.old shoe.gltf' && cp shoe.gltf d/.gltf",
                       {"create", "d/my.old shoe.gltf", "-o", "shoe.xml"}, ">out")
                .code,
            0);
  EXPECT_THAT(read("out"), HasSubstr("Groups\n  my.old shoe\n"));
  EXPECT_THAT(create("d/.gltf").out, HasSubstr("Groups\n  Scene\n"));
}

}  // namespace
