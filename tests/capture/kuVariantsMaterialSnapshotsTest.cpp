// Materials that differ between captures: one node, and what each set knows of it.

#include "capture/MaterialCaptureTest.h"
#include "support/BracketRecorder.h"
#include "support/ManagerDump.h"
#include "support/MessageReceiver.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class kuVariantsMaterialSnapshotsTest : public MaterialCaptureTest {
 protected:
  const osg::MaterialPtr red = scene.material("Red");
  const osg::MaterialPtr blue = scene.material("Blue");
  const osg::MaterialPtr green = scene.material("Green");
  const osg::NodePtr roof = scene.geometry("Roof", red);
};

}  // namespace

TEST_F(kuVariantsMaterialSnapshotsTest, FirstCaptureOnlyWritesSnapshots) {
  capture("A");
  EXPECT_EQ(managerDump(), "set A incl=010100\n  target Root\n  snapshot Roof=Red\n");
  EXPECT_THAT(switches(), IsEmpty());
  EXPECT_THAT(nodes(), ElementsAre("Roof: Red"));
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(kuVariantsMaterialSnapshotsTest, SetUnderCaptureIsNotComparedWithItself) {
  kuVariantSet& set = setWith("A", {{"Roof", "Red"}});
  bear(roof, blue);
  captureInto(set, kuOpenSGUtils::getRoot());
  EXPECT_THAT(sets(), ElementsAre("A: Roof=Blue"));
  EXPECT_THAT(switches(), IsEmpty());

  kuVariantsTestAccess::CaptureContainers met;
  kuVariantsTestAccess::handleMaterialSnapshots(&set, roof, "Roof", red, met, true);
  EXPECT_THAT(sets(), ElementsAre("A: Roof=Blue"));
  EXPECT_THAT(switches(), IsEmpty());
}

TEST_F(kuVariantsMaterialSnapshotsTest, SecondCaptureGivesTheNodeASwitchWithBothMaterials) {
  capture("A");
  bear(roof, blue);
  capture("B");
  EXPECT_EQ(managerDump(),
            "set A incl=010100\n"
            "  material Switch=Red\n"
            "  target Root\n"
            "  snapshot Roof=Switch\n"
            "set B incl=010100\n"
            "  material Switch=Blue\n"
            "  target Root\n"
            "  snapshot Roof=Switch\n"
            "materialVariant Switch base=Switch default=Blue\n"
            "  option !Next action=1\n"
            "  option !Next (Loop) action=1\n"
            "  option !Previous action=1\n"
            "  option !Previous (Loop) action=1\n"
            "  option Blue\n"
            "  option Red\n");
  EXPECT_THAT(switches(), ElementsAre("Switch: *Blue Red"));
  EXPECT_THAT(nodes(), ElementsAre("Roof: Switch"));
  EXPECT_THAT(log, ElementsAre("info: Created new material 'Switch'."));
}

TEST_F(kuVariantsMaterialSnapshotsTest, SelectedSetsShowTheirOwnMaterials) {
  capture("A");
  bear(roof, blue);
  capture("B");
  kuVariants::selectVariantSet("A", false);
  EXPECT_THAT(switches(), ElementsAre("Switch: Blue *Red"));
  kuVariants::selectVariantSet("B", false);
  EXPECT_THAT(switches(), ElementsAre("Switch: *Blue Red"));
}

TEST_F(kuVariantsMaterialSnapshotsTest, ThirdCaptureAddsItsMaterialToTheSwitch) {
  capture("A");
  bear(roof, blue);
  capture("B");
  bear(roof, green);
  capture("C");
  EXPECT_THAT(sets(), ElementsAre("A: Roof=Switch | Switch=Red", "B: Roof=Switch | Switch=Blue",
                                  "C: Roof=Switch | Switch=Green"));
  EXPECT_THAT(switches(), ElementsAre("Switch: Blue Red *Green"));
  EXPECT_THAT(nodes(), ElementsAre("Roof: Switch"));
  EXPECT_THAT(log, ElementsAre("info: Created new material 'Switch'."));
}

TEST_F(kuVariantsMaterialSnapshotsTest, MaterialThatTheSwitchHasIsNotAddedAgain) {
  capture("A");
  bear(roof, blue);
  capture("B");
  bear(roof, red);
  capture("C");
  EXPECT_THAT(sets(), ElementsAre("A: Roof=Switch | Switch=Red", "B: Roof=Switch | Switch=Blue",
                                  "C: Roof=Switch | Switch=Red"));
  EXPECT_THAT(switches(), ElementsAre("Switch: Blue *Red"));
}

TEST_F(kuVariantsMaterialSnapshotsTest, CaptureOfTheSwitchAsItStandsTakesWhatItShows) {
  capture("A");
  bear(roof, blue);
  capture("B");
  choose(findSwitch("Switch"), 1);
  capture("C");
  EXPECT_THAT(sets(), ElementsAre("A: Roof=Switch | Switch=Red", "B: Roof=Switch | Switch=Blue",
                                  "C: Roof=Switch | Switch=Red"));
  EXPECT_THAT(switches(), ElementsAre("Switch: Blue *Red"));
}

TEST_F(kuVariantsMaterialSnapshotsTest, SeveralPlainMaterialsOfOtherSetsGoIntoOneSwitch) {
  setWith("A", {{"Roof", "Green"}});
  setWith("B", {{"Roof", "Red"}});
  setWith("C", {{"Roof", "Blue"}});
  setWith("D", {{"Roof", "Green"}});
  capture("E");
  EXPECT_THAT(sets(), ElementsAre("A: Roof=Switch | Switch=Green", "B: Roof=Red",
                                  "C: Roof=Switch | Switch=Blue", "D: Roof=Switch | Switch=Green",
                                  "E: Roof=Switch | Switch=Red"));
  EXPECT_THAT(switches(), ElementsAre("Switch: *Red Green Blue"));
}

TEST_F(kuVariantsMaterialSnapshotsTest, SetThatKeptTheSameMaterialStaysWithItsPlainSnapshot) {
  capture("A");
  capture("B");
  bear(roof, blue);
  setWith("C", {{"Roof", "Blue"}});
  capture("D");
  EXPECT_THAT(sets(), ElementsAre("A: Roof=Switch | Switch=Red", "B: Roof=Switch | Switch=Red",
                                  "C: Roof=Blue", "D: Roof=Switch | Switch=Blue"));
}

TEST_F(kuVariantsMaterialSnapshotsTest, MaterialsOfOneNameAreNoDifference) {
  capture("A");
  bear(roof, scene.material("Red"));
  capture("B");
  EXPECT_THAT(sets(), ElementsAre("A: Roof=Red", "B: Roof=Red"));
  EXPECT_THAT(switches(), IsEmpty());
}

TEST_F(kuVariantsMaterialSnapshotsTest, SnapshotOfAnAbsentMaterialStays) {
  setWith("A", {{"Roof", "Lost"}});
  setWith("B", {{"Roof", ""}});
  capture("C");
  EXPECT_THAT(sets(), ElementsAre("A: Roof=Lost", "B: Roof=", "C: Roof=Red"));
  EXPECT_THAT(switches(), IsEmpty());
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(kuVariantsMaterialSnapshotsTest, SnapshotOfAnAbsentMaterialDoesNotEndTheComparison) {
  setWith("A", {{"Roof", "Lost"}});
  setWith("B", {{"Hood", "Blue"}});
  setWith("C", {{"Roof", "Blue"}});
  capture("D");
  EXPECT_THAT(sets(), ElementsAre("A: Roof=Lost", "B: Hood=Blue", "C: Roof=Switch | Switch=Blue",
                                  "D: Roof=Switch | Switch=Red"));
}

TEST_F(kuVariantsMaterialSnapshotsTest, PathWithoutANodeInTheSceneIsSkipped) {
  setWith("A", {{"Gone", "Blue"}});
  const osg::NodePtr gone =
      kuStandalone::SceneNode::create("Gone", kuStandalone::GeometryCore::create(red));
  captureInto(*kuVariants::createVariantSet("B", false, nullptr), gone);
  EXPECT_THAT(sets(), ElementsAre("A: Gone=Blue", "B: Gone=Red"));
  EXPECT_THAT(switches(), IsEmpty());
}

TEST_F(kuVariantsMaterialSnapshotsTest, PathBelowGroupsTellsNodesOfOneNameApart) {
  const osg::NodePtr left = scene.geometry("Door", red, scene.group("Left"));
  scene.geometry("Door", red, scene.group("Right"));
  capture("A");
  bear(left, blue);
  capture("B");
  EXPECT_THAT(sets(), ElementsAre("A: Left/Door=Switch Right/Door=Red Roof=Red | Switch=Red",
                                  "B: Left/Door=Switch Right/Door=Red Roof=Red | Switch=Blue"));
  EXPECT_THAT(nodes(), ElementsAre("Roof: Red", "Door: Switch", "Door: Red"));
}

TEST_F(kuVariantsMaterialSnapshotsTest, EachNodeThatDiffersGetsASwitchOfItsOwn) {
  const osg::NodePtr hood = scene.geometry("Hood", red);
  capture("A");
  bear(roof, blue);
  bear(hood, green);
  capture("B");
  EXPECT_THAT(sets(), ElementsAre("A: Hood=Switch2 Roof=Switch | Switch=Red Switch2=Red",
                                  "B: Hood=Switch2 Roof=Switch | Switch=Blue Switch2=Green"));
  EXPECT_THAT(switches(), ElementsAre("Switch: *Blue Red", "Switch2: *Green Red"));
  EXPECT_THAT(log, ElementsAre("info: Created new material 'Switch'.",
                               "info: Created new material 'Switch2'."));
}

TEST_F(kuVariantsMaterialSnapshotsTest, StateOfAnEarlierVariantOfTheSwitchIsReplaced) {
  kuVariantSet& a = setWith("A", {{"Roof", "Blue"}});
  a.addMaterialVariant("Switch", "Old");
  a.addMaterialVariant("Other", "Kept");
  capture("B");
  EXPECT_THAT(sets(), ElementsAre("A: Roof=Switch | Switch=Blue Other=Kept",
                                  "B: Roof=Switch | Switch=Red"));
}

TEST_F(kuVariantsMaterialSnapshotsTest, CaptureWithoutMaterialsChangesNothing) {
  setWith("A", {{"Roof", "Blue"}});
  kuVariantSet* set = kuVariants::createVariantSet("B", false, nullptr);
  kuVariants::captureVariantsFromRootNodes(set, {kuOpenSGUtils::getRoot()}, true, false, true, true,
                                           false, true, false, false, false, true);
  EXPECT_THAT(sets(), ElementsAre("A: Roof=Blue", "B:"));
  EXPECT_THAT(nodes(), ElementsAre("Roof: Red"));
}

TEST_F(kuVariantsMaterialSnapshotsTest, CapturedSetOfAllKindsHasItsMaterialsToo) {
  setWith("A", {{"Roof", "Blue"}});
  kuVariants::createAndCaptureVariantSet("B", "Group");
  EXPECT_THAT(sets(), ElementsAre("A: Roof=Switch | Switch=Blue", "B: Roof=Switch | Switch=Red"));
  EXPECT_THAT(messages.linesOf("materialVariantAdded"), IsEmpty());
}

TEST_F(kuVariantsMaterialSnapshotsTest, NewVariantIsAnnouncedWhereThatIsWished) {
  setWith("A", {{"Roof", "Blue"}});
  capture("B", true);
  EXPECT_THAT(messages.lines(),
              ElementsAre("MaterialGetUniqueName/1 name:string=Switch",
                          "materialVariantAdded/1 variant:void*=kuVariant Switch"));
}

TEST_F(kuVariantsMaterialSnapshotsTest, NewVariantIsNotAnnouncedWhereThatIsNotWished) {
  setWith("A", {{"Roof", "Blue"}});
  capture("B", false);
  EXPECT_THAT(messages.lines(), ElementsAre("MaterialGetUniqueName/1 name:string=Switch"));
}

TEST_F(kuVariantsMaterialSnapshotsTest, VariantIsAnnouncedWhenTheSwitchHasBothAndTheNodeBearsIt) {
  setWith("A", {{"Roof", "Blue"}});
  Texts seen;
  const MessageReceiver receiver("materialVariantAdded", [&](kuMessage&) {
    for (const Texts& part : {switches(), nodes(), sets()})
      seen.insert(seen.end(), part.begin(), part.end());
  });
  capture("B", true);
  EXPECT_THAT(seen, ElementsAre("Switch: *Red Blue", "Roof: Switch", "A: Roof=Blue", "B:"));
}

TEST_F(kuVariantsMaterialSnapshotsTest, EveryChangeStandsInABracketOfItsOwn) {
  setWith("A", {{"Roof", "Blue"}});
  const BracketRecorder recorder;
  capture("B");
  using Bracket = BracketRecorder::Bracket;
  EXPECT_THAT(recorder.brackets(),
              ElementsAre(Bracket("SwitchMaterial", osg::MultiMaterial::MaterialsFieldMask),
                          Bracket("MaterialPool", osg::AllFieldsMask),
                          Bracket("SwitchMaterial", osg::AllFieldsMask),  // its name
                          Bracket("Geometry", osg::Geometry::MaterialFieldMask),
                          Bracket("SwitchMaterial", osg::MultiMaterial::MaterialsFieldMask)));
}
