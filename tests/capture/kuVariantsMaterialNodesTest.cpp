// The kinds of nodes and materials that a capture treats in their own way.

#include "capture/MaterialCaptureTest.h"
#include "support/BracketRecorder.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class kuVariantsMaterialNodesTest : public MaterialCaptureTest {
 protected:
  static bool isEnvironmentSwitch(const char* name) {
    return osg::UEnvironmentSwitchMaterialPtr::dcast(findSwitch(name)) != osg::NullFC;
  }

  const osg::MaterialPtr red = scene.material("Red");
  const osg::MaterialPtr blue = scene.material("Blue");
  kuVariantsTestAccess::CaptureContainers met;
};

}  // namespace

// Clones.

TEST_F(kuVariantsMaterialNodesTest, CloneOfAMaterialGroupChangesNothing) {
  scene.clone(scene.materialGroup("Body", red), "Copy");
  setWith("A", {{"Copy", "Blue"}});
  capture("B");
  EXPECT_THAT(sets(), ElementsAre("A: Copy=Blue", "B: Body=Red Copy=Red"));
  EXPECT_THAT(switches(), IsEmpty());
  EXPECT_THAT(nodes(), ElementsAre("Body: Red", "Copy: Red"));
}

TEST_F(kuVariantsMaterialNodesTest, CloneOfAGeometryCapturedAloneChangesNothing) {
  const osg::NodePtr copy = scene.clone(scene.geometry("Roof", red), "Copy");
  setWith("A", {{"Copy", "Blue"}});
  captureInto(*kuVariants::createVariantSet("B", false, nullptr), copy);
  EXPECT_THAT(sets(), ElementsAre("A: Copy=Blue", "B: Copy=Red"));
  EXPECT_THAT(switches(), IsEmpty());
}

TEST_F(kuVariantsMaterialNodesTest, CloneIsLeftAloneAlsoInARestore) {
  const osg::NodePtr copy = scene.clone(scene.materialGroup("Body", red), "Copy");
  setWith("A", {{"Copy", "Blue"}});
  kuVariantsTestAccess::rebuildNodePathIndex();
  kuVariantsTestAccess::handleMaterialSnapshots(&setWith("Temp", {}), copy, "Copy", red, met,
                                                false);
  EXPECT_THAT(nodes(), ElementsAre("Body: Red", "Copy: Red"));
}

TEST_F(kuVariantsMaterialNodesTest, OriginalOfAClonedGroupTakesPart) {
  scene.clone(scene.materialGroup("Body", red), "Copy");
  setWith("A", {{"Body", "Blue"}});
  capture("B");
  EXPECT_THAT(sets(), ElementsAre("A: Body=Switch | Switch=Blue",
                                  "B: Body=Switch Copy=Switch | Switch=Red"));
  EXPECT_THAT(nodes(), ElementsAre("Body: Switch", "Copy: Switch"));
}

// Material groups.

TEST_F(kuVariantsMaterialNodesTest, MaterialGroupGetsASwitchAndItsGeometriesKeepTheirOwn) {
  const osg::NodePtr body = scene.materialGroup("Body", red);
  scene.geometry("Roof", red, body);
  capture("A");
  bear(body, blue);
  capture("B");
  EXPECT_THAT(sets(), ElementsAre("A: Body=Switch Body/Roof=Red | Switch=Red",
                                  "B: Body=Switch Body/Roof=Red | Switch=Blue"));
  EXPECT_THAT(nodes(), ElementsAre("Body: Switch", "Roof: Red"));
}

TEST_F(kuVariantsMaterialNodesTest, MaterialOfAGroupChangesInABracket) {
  scene.materialGroup("Body", red);
  setWith("A", {{"Body", "Blue"}});
  const BracketRecorder recorder;
  capture("B");
  EXPECT_THAT(recorder.brackets(), ::testing::Contains(BracketRecorder::Bracket(
                                       "MaterialGroup", osg::MaterialGroup::MaterialFieldMask)));
}

TEST_F(kuVariantsMaterialNodesTest, ChangeOfAPlainGroupReachesTheGeometriesBelow) {
  const osg::NodePtr group = scene.group("Group");
  scene.geometry("Roof", red, group);
  scene.materialGroup("Body", red, group);
  bear(group, blue);
  EXPECT_THAT(nodes(), ElementsAre("Roof: Blue", "Body: Red"));
}

// Nodes of one path.

TEST_F(kuVariantsMaterialNodesTest, NodesOfOnePathGetTheFirstOnesSwitch) {
  const osg::NodePtr door = scene.geometry("Door", red);
  scene.geometry("Door", red);
  scene.geometry("Door", red);
  capture("A");
  bear(door, blue);
  capture("B");
  EXPECT_THAT(sets(), ElementsAre("A: Door=Switch | Switch=Red", "B: Door=Switch | Switch=Blue"));
  EXPECT_THAT(nodes(), ElementsAre("Door: Switch", "Door: Switch", "Door: Switch"));
  EXPECT_THAT(switches(), ElementsAre("Switch: *Blue Red"));
}

TEST_F(kuVariantsMaterialNodesTest, FirstCaptureLevelsTheNodesOfOnePath) {
  scene.geometry("Door", red);
  scene.geometry("Door", blue);
  capture("A");
  EXPECT_THAT(sets(), ElementsAre("A: Door=Red"));
  EXPECT_THAT(nodes(), ElementsAre("Door: Red", "Door: Red"));
}

TEST_F(kuVariantsMaterialNodesTest, FirstNodeOfThePathDecidesAlsoWhereItIsNotTheOneCaptured) {
  scene.geometry("Door", blue);
  const osg::NodePtr second = scene.geometry("Door", red);
  captureInto(*kuVariants::createVariantSet("A", false, nullptr), second);
  EXPECT_THAT(sets(), ElementsAre("A: Door=Red"));
  EXPECT_THAT(nodes(), ElementsAre("Door: Blue", "Door: Blue"));
}

TEST_F(kuVariantsMaterialNodesTest, SecondNodeOfAPathThatWasLevelledFollows) {
  const osg::NodePtr first = scene.geometry("Door", red);
  const osg::NodePtr second = scene.geometry("Door", red);
  capture("A");
  bear(first, blue);
  bear(second, scene.material("Green"));
  capture("B");
  // The second one took the first one's switch before its turn came.
  EXPECT_THAT(sets(), ElementsAre("A: Door=Switch | Switch=Red", "B: Door=Switch | Switch=Blue"));
  EXPECT_THAT(switches(), ElementsAre("Switch: *Blue Red"));
}

// Environment materials.

TEST_F(kuVariantsMaterialNodesTest, EnvironmentMaterialGetsAnEnvironmentSwitch) {
  const osg::NodePtr dome = scene.geometry("Dome", environmentMaterial("Day"));
  capture("A");
  bear(dome, environmentMaterial("Night"));
  capture("B");
  EXPECT_THAT(sets(), ElementsAre("A: Dome=Switch | Switch=Day", "B: Dome=Switch | Switch=Night"));
  EXPECT_THAT(switches(), ElementsAre("Switch: *Night Day"));
  EXPECT_TRUE(isEnvironmentSwitch("Switch"));
  EXPECT_THAT(log, ElementsAre("info: Created new material 'Switch'."));
}

TEST_F(kuVariantsMaterialNodesTest, EnvironmentSwitchIsNotAmongTheCreatedOnes) {
  const osg::MaterialPtr night = environmentMaterial("Night");
  const osg::NodePtr dome = scene.geometry("Dome", night);
  setWith("A", {{"Dome", "Red"}});
  kuVariantsTestAccess::rebuildNodePathIndex();
  kuVariantsTestAccess::handleMaterialSnapshots(&setWith("B", {}), dome, "Dome", night, met, true);
  EXPECT_THAT(met.createdSwitches, IsEmpty());
  EXPECT_THAT(met.handledMaterials, ElementsAre(osg::MaterialPtr(findSwitch("Switch"))));
  EXPECT_THAT(switches(), ElementsAre("Switch: *Night Red"));
}

TEST_F(kuVariantsMaterialNodesTest, PresentMaterialDecidesTheKindOfTheSwitch) {
  scene.geometry("Dome", red);
  environmentMaterial("Day");
  setWith("A", {{"Dome", "Day"}});
  capture("B");
  EXPECT_THAT(switches(), ElementsAre("Switch: *Red Day"));
  EXPECT_FALSE(isEnvironmentSwitch("Switch"));
}

TEST_F(kuVariantsMaterialNodesTest, PresentEnvironmentSwitchGetsNoSnapshot) {
  scene.geometry("Dome", scene.environmentSwitchMaterial("Sky", {red, blue}, 1));
  setWith("A", {{"Dome", "Red"}});
  capture("B");
  EXPECT_THAT(sets(), ElementsAre("A: Dome=Red", "B: | Sky=Blue"));
  EXPECT_THAT(switches(), ElementsAre("Sky: Red *Blue"));
}

TEST_F(kuVariantsMaterialNodesTest, EnvironmentSwitchOfAnotherSetTakesThePresentMaterial) {
  scene.geometry("Dome", environmentMaterial("Night"));
  scene.environmentSwitchMaterial("Sky", {environmentMaterial("Day")}, 0);
  setWith("A", {{"Dome", "Sky"}});
  capture("B");
  EXPECT_THAT(sets(), ElementsAre("A: Dome=Sky", "B: Dome=Sky | Sky=Night"));
  EXPECT_THAT(switches(), ElementsAre("Sky: Day *Night"));
}

// Materials with presets: they have states, but are no switches.

TEST_F(kuVariantsMaterialNodesTest, MaterialWithPresetsGoesIntoASwitchLikeAPlainOne) {
  scene.geometry("Roof", scene.presetMaterial("Preset", {"Dull", "Bright"}, 1));
  setWith("A", {{"Roof", "Red"}});
  capture("B");
  EXPECT_THAT(sets(), ElementsAre("A: Roof=Switch | Switch=Red",
                                  "B: Roof=Switch | Preset=Bright Switch=Preset"));
  EXPECT_THAT(switches(), ElementsAre("Switch: *Preset Red"));
}

// A restore: the same walk, but materials are only put back.

TEST_F(kuVariantsMaterialNodesTest, RestoreGivesTheNodeTheMaterialOfTheLastSetThatDiffers) {
  const osg::NodePtr roof = scene.geometry("Roof", red);
  scene.material("Green");
  setWith("A", {{"Roof", "Green"}});
  setWith("B", {{"Roof", "Blue"}});
  setWith("C", {{"Roof", "Red"}});
  setWith("D", {{"Roof", "Lost"}});
  kuVariantsTestAccess::rebuildNodePathIndex();
  kuVariantsTestAccess::handleMaterialSnapshots(&setWith("Temp", {{"Roof", "Green"}}), roof, "Roof",
                                                red, met, false);
  EXPECT_THAT(nodes(), ElementsAre("Roof: Blue"));
  EXPECT_THAT(sets(), ElementsAre("A: Roof=Green", "B: Roof=Blue", "C: Roof=Red", "D: Roof=Lost",
                                  "Temp: Roof=Green"));
  EXPECT_THAT(switches(), IsEmpty());
  EXPECT_THAT(met.handledMaterials, IsEmpty());
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(kuVariantsMaterialNodesTest, RestorePutsASwitchBackAsItStands) {
  const osg::NodePtr roof = scene.geometry("Roof", red);
  scene.switchMaterial("Paint", {blue}, 0);
  setWith("A", {{"Roof", "Paint"}});
  kuVariantsTestAccess::rebuildNodePathIndex();
  kuVariantsTestAccess::handleMaterialSnapshots(&setWith("Temp", {}), roof, "Roof", red, met,
                                                false);
  EXPECT_THAT(nodes(), ElementsAre("Roof: Paint"));
  EXPECT_THAT(switches(), ElementsAre("Paint: *Blue"));
  EXPECT_THAT(kuVariants::getMaterialVariants(), IsEmpty());
}

TEST_F(kuVariantsMaterialNodesTest, RestoreLeavesAPathWithoutANodeAlone) {
  const osg::NodePtr gone =
      kuStandalone::SceneNode::create("Gone", kuStandalone::GeometryCore::create(red));
  setWith("A", {{"Gone", "Blue"}});
  kuVariantsTestAccess::rebuildNodePathIndex();
  kuVariantsTestAccess::handleMaterialSnapshots(&setWith("Temp", {}), gone, "Gone", red, met,
                                                false);
  EXPECT_EQ(kuNodeUtils::getMaterial(gone), red);
}
