// The materials that sets remember, put back to the nodes.

#include <ostream>

#include "capture/RestoreTest.h"
#include "support/BracketRecorder.h"
#include "support/ManagerDump.h"
#include "support/SceneDump.h"

using kuStandalone::Scene;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

namespace {

class kuVariantsRestoreTest : public RestoreTest {
 protected:
  /** The classes of what was edited by a restore. */
  static std::vector<std::string> restoreEdits() {
    const BracketRecorder recorder;
    restore();
    std::vector<std::string> classes;
    for (const auto& bracket : recorder.brackets())
      classes.push_back(bracket.first);
    return classes;
  }
};

/** A node "Place" made in some way, and the material that it has after a restore in which a set
 * remembers "Green" for it. */
struct PlaceRow {
  const char* name;
  osg::NodePtr (*make)(SceneBuilder& scene, const osg::MaterialPtr& red);
  const char* material;
};

void PrintTo(const PlaceRow& row, std::ostream* out) { *out << row.name; }

class RestorePlaceTest : public RestoreTest, public ::testing::WithParamInterface<PlaceRow> {};

osg::NodePtr hidden(const osg::NodePtr& node) {
  SceneBuilder::setActive(node, false);
  return node;
}

const PlaceRow placeRows[] = {
    {"Geometry", [](SceneBuilder& s, const osg::MaterialPtr& m) { return s.geometry("Place", m); },
     "Green"},
    {"MaterialGroup",
     [](SceneBuilder& s, const osg::MaterialPtr& m) { return s.materialGroup("Place", m); },
     "Green"},
    {"InactiveGeometry",
     [](SceneBuilder& s, const osg::MaterialPtr& m) { return hidden(s.geometry("Place", m)); },
     "Red"},
    {"InactiveMaterialGroup",
     [](SceneBuilder& s, const osg::MaterialPtr& m) { return hidden(s.materialGroup("Place", m)); },
     "Red"},
    {"GeometryWithoutAMaterial",
     [](SceneBuilder& s, const osg::MaterialPtr&) { return s.geometry("Place"); }, ""},
    {"MaterialGroupWithoutAMaterial",
     [](SceneBuilder& s, const osg::MaterialPtr&) { return s.materialGroup("Place", {}); }, ""},
};

/** The way from the root to a geometry, and whether a restore reaches it. */
struct WayRow {
  const char* name;
  osg::NodePtr (*make)(SceneBuilder& scene, const osg::MaterialPtr& red);
  bool isReached;
};

void PrintTo(const WayRow& row, std::ostream* out) { *out << row.name; }

class RestoreWayTest : public RestoreTest, public ::testing::WithParamInterface<WayRow> {};

const WayRow wayRows[] = {
    {"Group", [](SceneBuilder& s, const osg::MaterialPtr&) { return s.group("Way"); }, true},
    {"InactiveGroup",
     [](SceneBuilder& s, const osg::MaterialPtr&) { return hidden(s.group("Way")); }, false},
    {"SwitchThatShowsNothing",
     [](SceneBuilder& s, const osg::MaterialPtr&) { return s.switchNode("Way", -1, {}); }, true},
    {"InactiveSwitch",
     [](SceneBuilder& s, const osg::MaterialPtr&) { return hidden(s.switchNode("Way", 0, {})); },
     false},
    {"Transforms",
     [](SceneBuilder& s, const osg::MaterialPtr&) { return s.transforms("Way", {"A"}, 0, 0); },
     true},
    {"MaterialGroup",
     [](SceneBuilder& s, const osg::MaterialPtr& m) { return s.materialGroup("Way", m); }, true},
    {"MaterialGroupWithoutAMaterial",
     [](SceneBuilder& s, const osg::MaterialPtr&) { return s.materialGroup("Way", {}); }, true},
    {"InactiveMaterialGroup",
     [](SceneBuilder& s, const osg::MaterialPtr& m) { return hidden(s.materialGroup("Way", m)); },
     false},
    {"Geometry", [](SceneBuilder& s, const osg::MaterialPtr& m) { return s.geometry("Way", m); },
     false},
    {"Light", [](SceneBuilder& s, const osg::MaterialPtr&) { return s.light("Way", true); }, false},
    {"NodeWithoutACore", [](SceneBuilder& s, const osg::MaterialPtr&) { return s.bare("Way"); },
     false},
};

}  // namespace

TEST_P(RestorePlaceTest, TakesTheRememberedMaterialWhereItMay) {
  const osg::NodePtr node = GetParam().make(scene, red);
  remember("Summer", {{"Place", "Green"}});
  restore();
  EXPECT_EQ(materialOf(node), GetParam().material);
}

INSTANTIATE_TEST_SUITE_P(All, RestorePlaceTest, ::testing::ValuesIn(placeRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_P(RestoreWayTest, TellsWhetherTheGeometryBelowIsReached) {
  const osg::NodePtr way = GetParam().make(scene, red);
  const osg::NodePtr node = scene.geometry("Place", red, way);
  remember("Summer", {{"Way/Place", "Green"}});
  restore();
  EXPECT_EQ(materialOf(node), GetParam().isReached ? "Green" : "Red");
}

INSTANTIATE_TEST_SUITE_P(All, RestoreWayTest, ::testing::ValuesIn(wayRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(kuVariantsRestoreTest, InactiveRootEndsIt) {
  const osg::NodePtr node = scene.geometry("Place", red);
  SceneBuilder::setActive(scene.root(), false);
  remember("Summer", {{"Place", "Green"}});
  restore();
  EXPECT_EQ(materialOf(node), "Red");
}

TEST_F(kuVariantsRestoreTest, SnapshotPathWithoutANodeChangesNothing) {
  scene.geometry("Place", red);
  remember("Summer", {{"Lost", "Green"}, {"Place/Lost", "Green"}, {"", "Green"}});
  const std::string before = dumpScene(Scene::the());
  EXPECT_THAT(restoreEdits(), IsEmpty());
  EXPECT_EQ(dumpScene(Scene::the()), before);
}

TEST_F(kuVariantsRestoreTest, SnapshotOfALostMaterialChangesNothing) {
  scene.geometry("Place", red);
  remember("Summer", {{"Place", "Lost"}});
  EXPECT_THAT(restoreEdits(), IsEmpty());
}

TEST_F(kuVariantsRestoreTest, EachSetAssignsInTurnAndTheLastInTheListIsLeftOnTheNode) {
  const osg::NodePtr node = scene.geometry("Place", red);
  remember("Winter", {{"Place", "Green"}});
  remember("Autumn", {{"Place", "Blue"}});
  EXPECT_THAT(restoreEdits(), ElementsAre("Geometry", "Geometry"));
  EXPECT_EQ(materialOf(node), "Blue");
}

TEST_F(kuVariantsRestoreTest, LastSetThatDiffersFromTheMaterialBeforeDecides) {
  const osg::NodePtr node = scene.geometry("Place", red);
  remember("Winter", {{"Place", "Green"}});
  remember("Autumn", {{"Place", "Red"}});
  EXPECT_THAT(restoreEdits(), ElementsAre("Geometry"));
  EXPECT_EQ(materialOf(node), "Green");
}

TEST_F(kuVariantsRestoreTest, NodeWhoseMaterialEqualsEverySnapshotIsNotTouched) {
  scene.geometry("Place", red);
  scene.materialGroup("Group", green);
  remember("Winter", {{"Place", "Red"}, {"Group", "Green"}});
  remember("Autumn", {{"Place", "Red"}});
  EXPECT_THAT(restoreEdits(), IsEmpty());
}

TEST_F(kuVariantsRestoreTest, SwitchMaterialsAndEnvironmentSwitchesComeBackUnchanged) {
  const osg::NodePtr plain = scene.geometry("Place", red);
  const osg::NodePtr sky = scene.geometry("Sky", red);
  scene.switchMaterial("Paint", {red, green}, 1);
  scene.environmentSwitchMaterial("Skies", {}, 0);
  remember("Summer", {{"Place", "Paint"}, {"Sky", "Skies"}});
  EXPECT_THAT(restoreEdits(), ElementsAre("Geometry", "Geometry"));
  EXPECT_EQ(materialOf(plain), "Paint");
  EXPECT_EQ(materialOf(sky), "Skies");
}

TEST_F(kuVariantsRestoreTest, EnvironmentSwitchOnANodeGivesWay) {
  const osg::NodePtr sky =
      scene.geometry("Sky", scene.environmentSwitchMaterial("Skies", {red}, 0));
  remember("Summer", {{"Sky", "Green"}});
  restore();
  EXPECT_EQ(materialOf(sky), "Green");
}

TEST_F(kuVariantsRestoreTest, CloneTakesNoPart) {
  const osg::NodePtr original = scene.geometry("Original", red);
  scene.clone(original, "Clone");
  remember("Summer", {{"Clone", "Green"}});
  EXPECT_THAT(restoreEdits(), IsEmpty());
  EXPECT_EQ(materialOf(original), "Red");
}

TEST_F(kuVariantsRestoreTest, PathsBeyondAsciiAreFound) {
  const osg::NodePtr node = scene.geometry("Tür", red, scene.group("車"));
  remember("Summer", {{"車/Tür", "Green"}});
  restore();
  EXPECT_EQ(materialOf(node), "Green");
}

TEST_F(kuVariantsRestoreTest, ItReadsTheIndexAsItStands) {
  const osg::NodePtr before = scene.geometry("Indexed", red);
  kuVariantsTestAccess::rebuildNodePathIndex();
  const osg::NodePtr later = scene.geometry("Not indexed", red);
  remember("Summer", {{"Indexed", "Green"}, {"Not indexed", "Green"}});
  kuVariants::restoreSwitchNodes();
  EXPECT_EQ(materialOf(before), "Green");
  EXPECT_EQ(materialOf(later), "Red");
}

TEST_F(kuVariantsRestoreTest, MaterialGroupsOfOnePathTakeTheFirstOnesMaterial) {
  const osg::NodePtr first = scene.materialGroup("Place", red);
  const osg::NodePtr second = scene.materialGroup("Place", green);
  const osg::NodePtr inactive = hidden(scene.materialGroup("Place", blue));
  restore();
  EXPECT_EQ(materialOf(first), "Red");
  EXPECT_EQ(materialOf(second), "Red");
  EXPECT_EQ(materialOf(inactive), "Red");
}

TEST_F(kuVariantsRestoreTest, MaterialGroupsOfOnePathAreLevelledOnce) {
  // The second one has the last set's material by then, so that only the first set's is left.
  const osg::NodePtr first = scene.materialGroup("Place", red);
  const osg::NodePtr second = scene.materialGroup("Place", red);
  remember("Winter", {{"Place", "Green"}});
  remember("Autumn", {{"Place", "Blue"}});
  restore();
  EXPECT_EQ(materialOf(first), "Blue");
  EXPECT_EQ(materialOf(second), "Green");
}

TEST_F(kuVariantsRestoreTest, LevellingGoesByTheFirstNodeOfThePathBeItInactive) {
  const osg::NodePtr inactive = hidden(scene.materialGroup("Place", red));
  const osg::NodePtr active = scene.materialGroup("Place", green);
  restore();
  EXPECT_EQ(materialOf(inactive), "Red");
  EXPECT_EQ(materialOf(active), "Red");
}

TEST_F(kuVariantsRestoreTest, GeometriesOfOnePathAreNotLevelled) {
  const osg::NodePtr first = scene.geometry("Place", red);
  const osg::NodePtr second = scene.geometry("Place", green);
  const osg::NodePtr inactive = hidden(scene.geometry("Place", blue));
  EXPECT_THAT(restoreEdits(), IsEmpty());
  EXPECT_EQ(materialOf(first), "Red");
  EXPECT_EQ(materialOf(second), "Green");
  EXPECT_EQ(materialOf(inactive), "Blue");
}

TEST_F(kuVariantsRestoreTest, GeometriesOfOnePathEachTakeTheRememberedMaterial) {
  const osg::NodePtr first = scene.geometry("Place", red);
  const osg::NodePtr second = scene.geometry("Place", red);
  remember("Winter", {{"Place", "Green"}});
  remember("Autumn", {{"Place", "Blue"}});
  restore();
  EXPECT_EQ(materialOf(first), "Blue");
  EXPECT_EQ(materialOf(second), "Blue");
}

TEST_F(kuVariantsRestoreTest, GeometryThatHasAPathTakesItFromAMaterialGroup) {
  // The path of the geometry is noted, so the group that comes later levels nothing.
  const osg::NodePtr geometry = scene.geometry("Place", red);
  const osg::NodePtr group = scene.materialGroup("Place", green);
  restore();
  EXPECT_EQ(materialOf(geometry), "Red");
  EXPECT_EQ(materialOf(group), "Green");
}

TEST_F(kuVariantsRestoreTest, MaterialGroupWithoutAMaterialLevelsNothing) {
  scene.materialGroup("Place", {});
  const osg::NodePtr second = hidden(scene.materialGroup("Place", green));
  restore();
  EXPECT_EQ(materialOf(second), "Green");
}

TEST_F(kuVariantsRestoreTest, SetsAndVariantsOfOthersStayAsTheyAre) {
  scene.geometry("Place", red);
  scene.switchNode("Switch", 1, {"A", "B"});
  scene.transforms("Door", {"Open"}, 0, 0);
  scene.light("Light", true);
  scene.sceneplate("Plate");
  scene.materialGroup("Group", scene.switchMaterial("Paint", {red, green}, 0));
  remember("Winter", {{"Place", "Green"}, {"Group", "Blue"}});
  remember("Autumn", {{"Place", "Paint"}});
  const std::string before = managerDump();
  restore();
  EXPECT_EQ(managerDump(), before);
  EXPECT_THAT(log, IsEmpty());
}
