// Finding the nodes of a path, and giving all of them one material.

#include "capture/MaterialCaptureTest.h"
#include "standalone/scene/SceneNode.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::ValuesIn;

namespace {

class kuVariantsPathLookupTest : public MaterialCaptureTest {
 protected:
  static bool isFound(const char* path) {
    kuVariantsTestAccess::rebuildNodePathIndex();
    return kuVariantsTestAccess::checkIfNodeMatchesNodePath(osg::NullFC, path, false);
  }
  static bool applyToAll(const char* path) {
    kuVariantsTestAccess::rebuildNodePathIndex();
    return kuVariantsTestAccess::checkIfNodeMatchesNodePath(osg::NullFC, path, true);
  }

  const osg::MaterialPtr red = scene.material("Red");
  const osg::MaterialPtr blue = scene.material("Blue");
  const osg::MaterialPtr green = scene.material("Green");
};

struct PathRow {
  const char* name;
  const char* path;
  bool found;
};
void PrintTo(const PathRow& row, std::ostream* out) { *out << row.name; }

class PathLookupRowTest : public kuVariantsPathLookupTest,
                          public ::testing::WithParamInterface<PathRow> {};

TEST_P(PathLookupRowTest, IsFoundWhereANodeHasIt) {
  scene.geometry("Roof", red, scene.group("Left", scene.group("Body")));
  scene.geometry("T\xC3\xBCr", red, scene.group("K\xC3\xB6rper \xE2\x82\xAC"));
  scene.geometry("Nested/Name");
  scene.geometry("Lamp", red, scene.group("", scene.group("Lamps")));
  EXPECT_EQ(isFound(GetParam().path), GetParam().found);
}

const PathRow paths[] = {
    {"TopmostNode", "Body", true},
    {"GroupInBetween", "Body/Left", true},
    {"NodeBelowGroups", "Body/Left/Roof", true},
    {"BytesAbove127", "K\xC3\xB6rper \xE2\x82\xAC/T\xC3\xBCr", true},
    {"SeparatorInAName", "Nested/Name", true},
    {"UnnamedNode", "Lamps/", true},
    {"NodeBelowAnUnnamedOne", "Lamps//Lamp", true},
    {"NameWithoutItsParents", "Roof", false},
    {"PathWithoutItsTopmostNode", "Left/Roof", false},
    {"PathFromTheRoot", "Root/Body", false},
    {"SeparatorInFront", "/Body", false},
    {"SeparatorBehind", "Body/Left/Roof/", false},
    {"OtherCase", "body", false},
    {"NoPath", "", false},
};
INSTANTIATE_TEST_SUITE_P(Path, PathLookupRowTest, ValuesIn(paths),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace

TEST_F(kuVariantsPathLookupTest, IndexGoesByTheHashOfThePathWithItsBytesAsSignedOnes) {
  scene.geometry("Roof");
  scene.geometry("T\xC3\xBCr", red, scene.group("K\xC3\xB6rper"));
  kuVariantsTestAccess::rebuildNodePathIndex();
  EXPECT_THAT(kuVariantsTestAccess::indexedNodes(0xde5c89c3), ElementsAre("Roof"));
  EXPECT_THAT(kuVariantsTestAccess::indexedNodes(0x1a15c788), ElementsAre("K\xC3\xB6rper"));
  EXPECT_THAT(kuVariantsTestAccess::indexedNodes(0xd1ef9b16), ElementsAre("T\xC3\xBCr"));
}

// The two names have one hash.

TEST_F(kuVariantsPathLookupTest, NodesOfOneHashAreToldApartByTheirPaths) {
  scene.geometry("creamwove", red);
  EXPECT_FALSE(isFound("quists"));
  EXPECT_TRUE(isFound("creamwove"));
}

TEST_F(kuVariantsPathLookupTest, NodesOfOneHashDoNotShareMaterials) {
  scene.geometry("creamwove", red);
  scene.geometry("quists", blue);
  scene.geometry("creamwove", green);
  scene.geometry("quists", green);
  EXPECT_TRUE(applyToAll("quists"));
  EXPECT_THAT(nodes(),
              ElementsAre("creamwove: Red", "quists: Blue", "creamwove: Green", "quists: Blue"));
}

TEST_F(kuVariantsPathLookupTest, AllNodesOfThePathGetTheFirstOnesMaterial) {
  scene.geometry("Door", red);
  scene.materialGroup("Door", blue);
  scene.geometry("Handle", blue);
  scene.geometry("Door", green);
  EXPECT_TRUE(applyToAll("Door"));
  EXPECT_THAT(nodes(), ElementsAre("Door: Red", "Door: Red", "Handle: Blue", "Door: Red"));
}

TEST_F(kuVariantsPathLookupTest, NoMaterialOfTheFirstNodeIsGivenToAllToo) {
  scene.geometry("Door");
  scene.geometry("Door", red);
  scene.materialGroup("Door", blue);
  EXPECT_TRUE(applyToAll("Door"));
  EXPECT_THAT(nodes(), IsEmpty());
}

TEST_F(kuVariantsPathLookupTest, QuestionAloneChangesNoMaterial) {
  scene.geometry("Door", red);
  scene.geometry("Door", blue);
  EXPECT_TRUE(isFound("Door"));
  EXPECT_THAT(nodes(), ElementsAre("Door: Red", "Door: Blue"));
}

TEST_F(kuVariantsPathLookupTest, PathWithoutANodeChangesNoMaterial) {
  scene.geometry("Door", red);
  EXPECT_FALSE(applyToAll("Window"));
  EXPECT_FALSE(kuVariantsTestAccess::checkIfNodeMatchesNodePath(osg::NullFC, "Window", true));
  EXPECT_THAT(nodes(), ElementsAre("Door: Red"));
}

TEST_F(kuVariantsPathLookupTest, NodeThatWasRenamedSinceIsNotFound) {
  const osg::NodePtr door = scene.geometry("Door", red);
  EXPECT_TRUE(isFound("Door"));
  kuStandalone::SceneNode::of(door).setName("Gate");
  EXPECT_FALSE(kuVariantsTestAccess::checkIfNodeMatchesNodePath(osg::NullFC, "Door", false));
  EXPECT_FALSE(kuVariantsTestAccess::checkIfNodeMatchesNodePath(osg::NullFC, "Gate", false));
  EXPECT_TRUE(isFound("Gate"));
}

TEST_F(kuVariantsPathLookupTest, NodesThatAreKeptKeepTheirOrder) {
  const osg::NodePtr first = scene.geometry("Door");
  const osg::NodePtr other = scene.geometry("Window");
  const osg::NodePtr second = scene.geometry("Door");
  const osg::NodePtr third = scene.geometry("Door");
  std::vector<kuNodePtr> list{other, third, first, other, second, other};
  kuVariantsTestAccess::keepNodesWithPath(list, "Door");
  std::vector<osg::NodePtr> kept(list.begin(), list.end());
  EXPECT_THAT(kept, ElementsAre(third, first, second));
}
