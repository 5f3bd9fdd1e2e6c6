// Switches that several nodes of a set share: grown for all of them, or split.

#include "capture/MaterialCaptureTest.h"
#include "support/BracketRecorder.h"
#include "support/MessageReceiver.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class kuVariantsSharedSwitchTest : public MaterialCaptureTest {
 protected:
  /** Compares the roof with the sets, and takes nothing else of it into the set. */
  void compare(kuVariantSet& set) {
    kuVariantsTestAccess::rebuildNodePathIndex();
    kuVariantsTestAccess::handleMaterialSnapshots(&set, roof, "Roof",
                                                  kuNodeUtils::getMaterial(roof), met, true);
  }
  Texts handledPaths() const {
    Texts paths;
    for (const QString& path : met.handledPaths)
      paths.push_back(path.toStdString());
    return paths;
  }

  const osg::MaterialPtr red = scene.material("Red");
  const osg::MaterialPtr blue = scene.material("Blue");
  const osg::MaterialPtr green = scene.material("Green");
  const osg::MaterialPtr white = scene.material("White");
  const osg::SwitchMaterialPtr paint = scene.switchMaterial("Paint", {red, blue}, 0);
  const osg::NodePtr roof = scene.geometry("Roof", green);
  const osg::NodePtr hood = scene.geometry("Hood", paint);
  kuVariantsTestAccess::CaptureContainers met;
};

}  // namespace

// All nodes that share the switch bear the same material now: it grows for all of them.

TEST_F(kuVariantsSharedSwitchTest, SwitchGrowsForAllNodesThatChangedAlike) {
  bear(hood, green);
  setWith("A", {{"Roof", "Paint"}, {"Hood", "Paint"}}).addMaterialVariant("Paint", "Red");
  capture("B");
  EXPECT_THAT(sets(), ElementsAre("A: Hood=Paint Roof=Paint | Paint=Red",
                                  "B: Hood=Paint Roof=Paint | Paint=Green"));
  EXPECT_THAT(switches(), ElementsAre("Paint: Red Blue *Green"));
  EXPECT_THAT(nodes(), ElementsAre("Roof: Paint", "Hood: Paint"));
}

TEST_F(kuVariantsSharedSwitchTest, PathOfANodeThatChangedAlikeIsHandled) {
  bear(hood, green);
  setWith("A", {{"Roof", "Paint"}, {"Hood", "Paint"}});
  compare(setWith("B", {}));
  EXPECT_THAT(handledPaths(), ElementsAre("Hood"));
}

TEST_F(kuVariantsSharedSwitchTest, PathWithoutANodeIsHandledToo) {
  setWith("A", {{"Gone", "Paint"}, {"Roof", "Paint"}});
  compare(setWith("B", {}));
  EXPECT_THAT(handledPaths(), ElementsAre("Gone"));
  EXPECT_THAT(switches(), ElementsAre("Paint: Red Blue *Green"));
}

TEST_F(kuVariantsSharedSwitchTest, PathsOfOtherMaterialsAreNotLookedAt) {
  setWith("A", {{"Gone", "Gloss"}, {"Hood", "Gloss"}, {"Roof", "Paint"}});
  compare(setWith("B", {}));
  EXPECT_THAT(handledPaths(), IsEmpty());
  EXPECT_THAT(switches(), ElementsAre("Paint: Red Blue *Green"));
}

TEST_F(kuVariantsSharedSwitchTest, OnlyTheFirstNodeOfASharingPathCounts) {
  bear(hood, green);
  scene.geometry("Hood", red);
  setWith("A", {{"Roof", "Paint"}, {"Hood", "Paint"}});
  compare(setWith("B", {}));
  EXPECT_THAT(handledPaths(), ElementsAre("Hood"));
  EXPECT_THAT(switches(), ElementsAre("Paint: Red Blue *Green"));
}

TEST_F(kuVariantsSharedSwitchTest, PathThatAReceiverLetsTheSetRememberMidwayCounts) {
  scene.geometry("Boot", blue);
  kuVariantSet& a = setWith("A", {{"Roof", "Paint"}, {"Hood", "Paint"}});
  bear(hood, white);
  // The switch is split for the roof, since the hood has another material, and for the hood, since
  // the boot has; it is not grown for it.
  const MessageReceiver receiver("materialVariantAdded",
                                 [&](kuMessage&) { a.addMaterialSnapshot("Boot", "Paint"); });
  capture("B", true);
  EXPECT_THAT(switches(), ElementsAre("Paint: Red *Blue", "Switch: Red Blue *Green",
                                      "Switch2: Red Blue *White"));
}

TEST_F(kuVariantsSharedSwitchTest, PathThatAReceiverLetsTheSetForgetMidwayDoesNotCount) {
  scene.geometry("Boot", blue);
  kuVariantSet& a = setWith("A", {{"Roof", "Paint"}, {"Hood", "Paint"}, {"Boot", "Paint"}});
  bear(hood, white);
  const MessageReceiver receiver("materialVariantAdded",
                                 [&](kuMessage&) { a.removeMaterialSnapshot("Boot"); });
  capture("B", true);
  EXPECT_THAT(switches(), ElementsAre("Paint: Red Blue *White", "Switch: Red Blue *Green"));
}

TEST_F(kuVariantsSharedSwitchTest, OtherNodesOfTheOwnPathDoNotCount) {
  bear(hood, green);
  scene.geometry("Roof", red);
  setWith("A", {{"Roof", "Paint"}});
  compare(setWith("B", {}));
  EXPECT_THAT(handledPaths(), IsEmpty());
  EXPECT_THAT(switches(), ElementsAre("Paint: Red Blue *Green"));
}

TEST_F(kuVariantsSharedSwitchTest, HandledPathIsPassedOver) {
  met.handledPaths.insert("Hood");
  setWith("A", {{"Roof", "Paint"}, {"Hood", "Paint"}});
  compare(setWith("B", {}));
  EXPECT_THAT(switches(), ElementsAre("Paint: Red Blue *Green"));
}

TEST_F(kuVariantsSharedSwitchTest, SearchForASharingNodeEndsAtTheFirstThatDiffers) {
  scene.geometry("Front", green);
  scene.geometry("Last", green);
  setWith("A", {{"Front", "Paint"}, {"Hood", "Paint"}, {"Last", "Paint"}, {"Roof", "Paint"}});
  compare(setWith("B", {}));
  EXPECT_THAT(handledPaths(), ElementsAre("Front"));
  EXPECT_THAT(switches(), ElementsAre("Paint: *Red Blue", "Switch: Red Blue *Green"));
}

TEST_F(kuVariantsSharedSwitchTest, SharingIsAMatterOfOneSet) {
  setWith("A", {{"Roof", "Paint"}});
  setWith("B", {{"Hood", "Paint"}});
  capture("C");
  EXPECT_THAT(switches(), ElementsAre("Paint: Red Blue *Green"));
}

TEST_F(kuVariantsSharedSwitchTest, NodeOfAnotherSetFollowsASwitchThatWasHandled) {
  bear(hood, white);
  setWith("A", {{"Roof", "Paint"}});
  setWith("B", {{"Hood", "Paint"}});
  capture("C");
  EXPECT_THAT(sets(), ElementsAre("A: Roof=Paint", "B: Hood=Paint",
                                  "C: Hood=Paint Roof=Paint | Paint=Green"));
  EXPECT_THAT(switches(), ElementsAre("Paint: Red Blue *Green"));
  EXPECT_THAT(nodes(), ElementsAre("Roof: Paint", "Hood: Paint"));
}

TEST_F(kuVariantsSharedSwitchTest, HandledMaterialThatIsNoSwitchIsPutToTheNode) {
  met.handledMaterials.insert(white);
  setWith("A", {{"Roof", "White"}});
  compare(setWith("B", {}));
  EXPECT_THAT(sets(), ElementsAre("A: Roof=White", "B:"));
  EXPECT_THAT(nodes(), ElementsAre("Roof: White", "Hood: Paint"));
  EXPECT_THAT(switches(), ElementsAre("Paint: *Red Blue"));
}

// A node that shares the switch bears another material: the node gets a copy of it.

TEST_F(kuVariantsSharedSwitchTest, SwitchIsSplitWhereAnotherNodeDidNotChange) {
  setWith("A", {{"Roof", "Paint"}, {"Hood", "Paint"}}).addMaterialVariant("Paint", "Blue");
  capture("B");
  EXPECT_THAT(sets(), ElementsAre("A: Hood=Paint Roof=Switch | Paint=Blue Switch=Blue",
                                  "B: Hood=Paint Roof=Switch | Switch=Green Paint=Red"));
  EXPECT_THAT(switches(), ElementsAre("Paint: *Red Blue", "Switch: Red Blue *Green"));
  EXPECT_THAT(nodes(), ElementsAre("Roof: Switch", "Hood: Paint"));
  EXPECT_THAT(log, ElementsAre("info: Created new material 'Switch'."));
}

TEST_F(kuVariantsSharedSwitchTest, SplitSwitchIsCreatedAndHandled) {
  setWith("A", {{"Roof", "Paint"}, {"Hood", "Paint"}});
  compare(setWith("B", {}));
  const osg::SwitchMaterialPtr made = findSwitch("Switch");
  EXPECT_THAT(met.createdSwitches, ElementsAre(made));
  EXPECT_THAT(met.handledMaterials, ElementsAre(made));
  EXPECT_THAT(met.handledPaths, IsEmpty());
}

TEST_F(kuVariantsSharedSwitchTest, SplitSwitchGetsNoMaterialThatItHasAndShowsIt) {
  bear(roof, blue);
  setWith("A", {{"Roof", "Paint"}, {"Hood", "Paint"}}).addMaterialVariant("Paint", "Red");
  capture("B");
  EXPECT_THAT(sets(), ElementsAre("A: Hood=Paint Roof=Switch | Paint=Red Switch=Red",
                                  "B: Hood=Paint Roof=Switch | Switch=Blue Paint=Red"));
  EXPECT_THAT(switches(), ElementsAre("Paint: *Red Blue", "Switch: Red *Blue"));
}

TEST_F(kuVariantsSharedSwitchTest, SetWithoutAStateGetsTheDefaultOfTheSplitSwitch) {
  setWith("A", {{"Roof", "Paint"}, {"Hood", "Paint"}});
  compare(setWith("B", {}));
  EXPECT_THAT(sets(), ElementsAre("A: Hood=Paint Roof=Switch | Switch=Green", "B: | Switch=Green"));
}

TEST_F(kuVariantsSharedSwitchTest, SplitTakesAPresentSwitchAsAnEntry) {
  bear(roof, scene.switchMaterial("Gloss", {red, green}, 0));
  setWith("A", {{"Roof", "Paint"}, {"Hood", "Paint"}}).addMaterialVariant("Paint", "Blue");
  compare(setWith("B", {}));
  EXPECT_THAT(sets(), ElementsAre("A: Hood=Paint Roof=Switch | Paint=Blue Switch=Blue",
                                  "B: | Switch=Gloss"));
  EXPECT_THAT(switches(),
              ElementsAre("Paint: *Red Blue", "Gloss: *Red Green", "Switch: Red Blue *Gloss"));
}

TEST_F(kuVariantsSharedSwitchTest, PresentSwitchEqualToTheSharedOneIsNotSplit) {
  bear(roof, scene.switchMaterial("Twin", {red, blue}, 1));
  bear(hood, green);
  setWith("A", {{"Roof", "Paint"}, {"Hood", "Paint"}});
  compare(setWith("B", {}));
  EXPECT_THAT(sets(), ElementsAre("A: Hood=Paint Roof=Paint", "B:"));
  EXPECT_THAT(switches(), ElementsAre("Paint: *Red Blue", "Twin: Red *Blue"));
}

TEST_F(kuVariantsSharedSwitchTest, SplitOfAnEnvironmentSwitchIsAPlainOne) {
  scene.environmentSwitchMaterial("Sky", {red}, 0);
  setWith("A", {{"Roof", "Sky"}, {"Hood", "Sky"}});
  compare(setWith("B", {}));
  const osg::SwitchMaterialPtr made = findSwitch("Switch");
  EXPECT_EQ(textOf(made), "Switch: Red *Green");
  EXPECT_FALSE(osg::UEnvironmentSwitchMaterialPtr::dcast(made));
  EXPECT_THAT(met.createdSwitches, ElementsAre(made));
}

TEST_F(kuVariantsSharedSwitchTest, SplitStandsInBrackets) {
  setWith("A", {{"Roof", "Paint"}, {"Hood", "Paint"}});
  const BracketRecorder recorder;
  capture("B");
  using Bracket = BracketRecorder::Bracket;
  const Bracket entry("SwitchMaterial", osg::MultiMaterial::MaterialsFieldMask);
  EXPECT_THAT(recorder.brackets(),
              ElementsAre(entry, entry, entry,
                          Bracket("SwitchMaterial", osg::SwitchMaterialBase::ChoiceFieldMask),
                          Bracket("MaterialPool", osg::AllFieldsMask),
                          Bracket("SwitchMaterial", osg::AllFieldsMask),  // its name
                          Bracket("Geometry", osg::Geometry::MaterialFieldMask)));
}

TEST_F(kuVariantsSharedSwitchTest, VariantOfASplitSwitchIsAnnouncedWhereThatIsWished) {
  setWith("A", {{"Roof", "Paint"}, {"Hood", "Paint"}});
  capture("B", true);
  EXPECT_THAT(messages.lines(),
              ElementsAre("MaterialGetUniqueName/1 name:string=Switch",
                          "materialVariantAdded/1 variant:void*=kuVariant Switch",
                          "materialVariantAdded/1 variant:void*=kuVariant Paint"));
}

// What a split means for the later sets of the same node.

TEST_F(kuVariantsSharedSwitchTest, SetAfterASplitGetsAStateAndASnapshotButAddsNoEntry) {
  setWith("A", {{"Roof", "Paint"}, {"Hood", "Paint"}}).addMaterialVariant("Paint", "Blue");
  setWith("B", {{"Roof", "White"}});
  compare(setWith("C", {}));
  EXPECT_THAT(sets(), ElementsAre("A: Hood=Paint Roof=Switch | Paint=Blue Switch=Blue",
                                  "B: Roof=Switch | Switch=Green", "C: | Switch=Green"));
  EXPECT_THAT(switches(), ElementsAre("Paint: *Red Blue", "Switch: Red Blue *Green"));
}

TEST_F(kuVariantsSharedSwitchTest, SetAfterASplitKeepsTheStateOfTheVariantOfItsMaterial) {
  setWith("A", {{"Roof", "Paint"}, {"Hood", "Paint"}}).addMaterialVariant("Paint", "Blue");
  setWith("B", {{"Roof", "White"}}).addMaterialVariant("White", "Gloss");
  setWith("C", {{"Roof", "Paint"}}).addMaterialVariant("Paint", "Red");
  compare(setWith("D", {}));
  EXPECT_THAT(sets(), ElementsAre("A: Hood=Paint Roof=Switch | Paint=Blue Switch=Blue",
                                  "B: Roof=Switch | White=Gloss Switch=Gloss",
                                  "C: Roof=Switch | Paint=Red Switch=Red", "D: | Switch=Green"));
  EXPECT_THAT(switches(), ElementsAre("Paint: *Red Blue", "Switch: Red Blue *Green"));
}

TEST_F(kuVariantsSharedSwitchTest, SharingCountsForLaterSetsAlsoWhereNothingWasSplit) {
  bear(roof, scene.switchMaterial("Twin", {red, blue}, 0));
  bear(hood, green);
  setWith("A", {{"Roof", "Paint"}, {"Hood", "Paint"}});
  setWith("B", {{"Roof", "White"}});
  compare(setWith("C", {}));
  // White goes into the switch, for nothing was split; but the state is taken as after a split.
  EXPECT_THAT(sets(),
              ElementsAre("A: Hood=Paint Roof=Paint", "B: Roof=Twin | Twin=Red", "C: | Twin=Twin"));
  EXPECT_THAT(switches(), ElementsAre("Paint: *Red Blue", "Twin: *Red Blue White"));
}

TEST_F(kuVariantsSharedSwitchTest, SharingCountsForTheSwitchOfALaterSetThatIsNotShared) {
  bear(roof, scene.switchMaterial("Twin", {red, blue}, 0));
  bear(hood, green);
  scene.switchMaterial("Gloss", {red, green}, 0);
  setWith("A", {{"Roof", "Paint"}, {"Hood", "Paint"}});
  setWith("B", {{"Roof", "Gloss"}}).addMaterialVariant("Gloss", "Green");
  compare(setWith("C", {}));
  EXPECT_THAT(sets(), ElementsAre("A: Hood=Paint Roof=Paint",
                                  "B: Roof=Switch | Gloss=Green Switch=Green", "C: | Switch=Twin"));
  EXPECT_EQ(textOf(findSwitch("Switch")), "Switch: Red Green *Twin");
}

TEST_F(kuVariantsSharedSwitchTest, SharedSwitchOfALaterSetIsNoLongerSearched) {
  setWith("A", {{"Roof", "White"}});
  setWith("B", {{"Roof", "Paint"}, {"Hood", "Paint"}}).addMaterialVariant("Paint", "Red");
  compare(setWith("C", {}));
  EXPECT_THAT(sets(), ElementsAre("A: Roof=Switch | Switch=White",
                                  "B: Hood=Paint Roof=Switch | Paint=Red Switch=Paint",
                                  "C: | Switch=Green"));
  EXPECT_THAT(switches(), ElementsAre("Paint: *Red Blue", "Switch: *Green White Paint"));
}

TEST_F(kuVariantsSharedSwitchTest, SharingOfOneNodeDoesNotCountForTheNext) {
  const osg::NodePtr door = scene.geometry("Door", red);
  setWith("A", {{"Roof", "Paint"}, {"Hood", "Paint"}, {"Door", "White"}});
  capture("B");
  EXPECT_THAT(sets(), ElementsAre("A: Door=Switch2 Hood=Paint Roof=Switch | Switch=Green "
                                  "Switch2=White",
                                  "B: Door=Switch2 Hood=Paint Roof=Switch | Switch=Green Paint=Red "
                                  "Switch2=Red"));
  EXPECT_THAT(switches(),
              ElementsAre("Paint: *Red Blue", "Switch: Red Blue *Green", "Switch2: *Red White"));
}
