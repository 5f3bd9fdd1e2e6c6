// Captures of nodes that bear a switch already, or had one in another set.

#include "capture/MaterialCaptureTest.h"
#include "support/BracketRecorder.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class kuVariantsExistingSwitchTest : public MaterialCaptureTest {
 protected:
  /** Compares the roof with the sets, and takes nothing else of it into the set. */
  void compare(kuVariantSet& set) {
    kuVariantsTestAccess::rebuildNodePathIndex();
    kuVariantsTestAccess::handleMaterialSnapshots(&set, roof, "Roof",
                                                  kuNodeUtils::getMaterial(roof), met, true);
  }
  Texts createdSwitches() const {
    Texts names;
    for (const osg::SwitchMaterialPtr& material : met.createdSwitches)
      names.emplace_back(kuMaterials::getName(material));
    return names;
  }
  Texts handledMaterials() const {
    Texts names;
    for (const osg::MaterialPtr& material : met.handledMaterials)
      names.emplace_back(kuMaterials::getName(material));
    return names;
  }

  const osg::MaterialPtr red = scene.material("Red");
  const osg::MaterialPtr blue = scene.material("Blue");
  const osg::MaterialPtr green = scene.material("Green");
  const osg::MaterialPtr white = scene.material("White");
  const osg::SwitchMaterialPtr paint = scene.switchMaterial("Paint", {red, blue}, 0);
  const osg::NodePtr roof = scene.geometry("Roof", paint);
  kuVariantsTestAccess::CaptureContainers met;
};

}  // namespace

// The present material is a switch, the other set's is none.

TEST_F(kuVariantsExistingSwitchTest, PresentSwitchTakesThePlainMaterialOfTheOtherSet) {
  setWith("A", {{"Roof", "Green"}});
  capture("B");
  // The set under capture has the name of the material that was there: that of the switch.
  EXPECT_THAT(sets(), ElementsAre("A: Roof=Paint | Paint=Green", "B: Roof=Paint | Paint=Paint"));
  EXPECT_THAT(switches(), ElementsAre("Paint: *Red Blue Green"));
  EXPECT_THAT(nodes(), ElementsAre("Roof: Paint"));
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(kuVariantsExistingSwitchTest, PresentSwitchIsHandledButNotCreated) {
  setWith("A", {{"Roof", "Green"}});
  compare(setWith("B", {}));
  EXPECT_THAT(createdSwitches(), IsEmpty());
  EXPECT_THAT(handledMaterials(), ElementsAre("Paint"));
  EXPECT_THAT(met.handledPaths, IsEmpty());
}

TEST_F(kuVariantsExistingSwitchTest, CreatedSwitchIsHandledAndCreated) {
  bear(roof, red);
  setWith("A", {{"Roof", "Green"}});
  compare(setWith("B", {}));
  EXPECT_THAT(createdSwitches(), ElementsAre("Switch"));
  EXPECT_THAT(handledMaterials(), ElementsAre("Switch"));
  EXPECT_THAT(met.handledPaths, IsEmpty());
}

TEST_F(kuVariantsExistingSwitchTest, PresentSwitchDoesNotTakeAMaterialThatItHas) {
  setWith("A", {{"Roof", "Blue"}});
  capture("B");
  EXPECT_THAT(sets(), ElementsAre("A: Roof=Paint | Paint=Blue", "B: Roof=Paint | Paint=Paint"));
  EXPECT_THAT(switches(), ElementsAre("Paint: *Red Blue"));
}

TEST_F(kuVariantsExistingSwitchTest, EmptyPresentSwitchTakesTheMaterialToo) {
  const osg::SwitchMaterialPtr empty = scene.switchMaterial("Empty", {}, 0);
  bear(roof, empty);
  setWith("A", {{"Roof", "Green"}});
  capture("B");
  EXPECT_THAT(sets(), ElementsAre("A: Roof=Empty | Empty=Green", "B: Roof=Empty | Empty=Empty"));
  EXPECT_EQ(textOf(empty), "Empty: *Green");
}

// The other set's material is a switch, and so is the present one.

TEST_F(kuVariantsExistingSwitchTest, TwoDifferentSwitchesAreNotMerged) {
  scene.switchMaterial("Gloss", {red, green}, 0);
  setWith("A", {{"Roof", "Gloss"}});
  compare(setWith("B", {}));
  EXPECT_THAT(sets(), ElementsAre("A: Roof=Gloss", "B:"));
  EXPECT_THAT(switches(), ElementsAre("Paint: *Red Blue", "Gloss: *Red Green"));
  EXPECT_THAT(nodes(), ElementsAre("Roof: Paint"));
  EXPECT_THAT(handledMaterials(), IsEmpty());
  EXPECT_THAT(kuVariants::getMaterialVariants(), IsEmpty());
}

TEST_F(kuVariantsExistingSwitchTest, CaptureOfADifferentSwitchTakesWhatThatShows) {
  scene.switchMaterial("Gloss", {red, green}, 0);
  setWith("A", {{"Roof", "Gloss"}});
  choose(paint, 1);
  capture("B");
  EXPECT_THAT(sets(), ElementsAre("A: Roof=Gloss", "B: Roof=Paint | Paint=Blue"));
}

TEST_F(kuVariantsExistingSwitchTest, SwitchOfEqualEntriesChangesNothing) {
  scene.switchMaterial("Twin", {red, blue}, 1);
  setWith("A", {{"Roof", "Twin"}});
  compare(setWith("B", {}));
  EXPECT_THAT(sets(), ElementsAre("A: Roof=Twin", "B:"));
  EXPECT_THAT(switches(), ElementsAre("Paint: *Red Blue", "Twin: Red *Blue"));
  EXPECT_THAT(nodes(), ElementsAre("Roof: Paint"));
  EXPECT_THAT(handledMaterials(), IsEmpty());
}

TEST_F(kuVariantsExistingSwitchTest, SetAfterTwoDifferentSwitchesStillMeetsThePresentOne) {
  scene.switchMaterial("Gloss", {red, green}, 0);
  setWith("A", {{"Roof", "Gloss"}});
  setWith("B", {{"Roof", "White"}});
  compare(setWith("C", {}));
  EXPECT_THAT(sets(),
              ElementsAre("A: Roof=Gloss", "B: Roof=Paint | Paint=White", "C: | Paint=Paint"));
  EXPECT_THAT(switches(), ElementsAre("Paint: *Red Blue White", "Gloss: *Red Green"));
}

// The other set's material is a switch, the present one is none.

TEST_F(kuVariantsExistingSwitchTest, OtherSetsSwitchTakesThePresentMaterialAndShowsIt) {
  bear(roof, green);
  setWith("A", {{"Roof", "Paint"}});
  capture("B");
  // The other set selects the switch by the states that it has: here by none.
  EXPECT_THAT(sets(), ElementsAre("A: Roof=Paint", "B: Roof=Paint | Paint=Green"));
  EXPECT_THAT(switches(), ElementsAre("Paint: Red Blue *Green"));
  EXPECT_THAT(nodes(), ElementsAre("Roof: Paint"));
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(kuVariantsExistingSwitchTest, OtherSetsSwitchIsHandledButNotCreated) {
  bear(roof, green);
  setWith("A", {{"Roof", "Paint"}});
  compare(setWith("B", {}));
  EXPECT_THAT(createdSwitches(), IsEmpty());
  EXPECT_THAT(handledMaterials(), ElementsAre("Paint"));
}

TEST_F(kuVariantsExistingSwitchTest, OtherSetsSwitchShowsThePresentMaterialThatItHas) {
  bear(roof, blue);
  kuVariantSet& a = setWith("A", {{"Roof", "Paint"}});
  a.addMaterialVariant("Paint", "Red");
  capture("B");
  EXPECT_THAT(sets(), ElementsAre("A: Roof=Paint | Paint=Red", "B: Roof=Paint | Paint=Blue"));
  EXPECT_THAT(switches(), ElementsAre("Paint: Red *Blue"));
}

TEST_F(kuVariantsExistingSwitchTest, SwitchWithAMaterialTwiceShowsTheFirst) {
  const osg::SwitchMaterialPtr twice = scene.switchMaterial("Twice", {red, blue, blue}, 0);
  bear(roof, blue);
  setWith("A", {{"Roof", "Twice"}});
  capture("B");
  EXPECT_EQ(textOf(twice), "Twice: Red *Blue Blue");
}

TEST_F(kuVariantsExistingSwitchTest, EntriesAreToldApartByIdentityNotByName) {
  bear(roof, scene.material("Blue"));
  setWith("A", {{"Roof", "Paint"}});
  capture("B");
  EXPECT_THAT(switches(), ElementsAre("Paint: Red Blue *Blue"));
}

TEST_F(kuVariantsExistingSwitchTest, EmptySwitchOfTheOtherSetTakesThePresentMaterial) {
  const osg::SwitchMaterialPtr empty = scene.switchMaterial("Empty", {}, 7);
  bear(roof, green);
  setWith("A", {{"Roof", "Empty"}});
  capture("B");
  EXPECT_EQ(textOf(empty), "Empty: *Green");
  EXPECT_THAT(sets(), ElementsAre("A: Roof=Empty", "B: Roof=Empty | Empty=Green"));
}

TEST_F(kuVariantsExistingSwitchTest, GrowthOfASwitchStandsInBrackets) {
  bear(roof, green);
  setWith("A", {{"Roof", "Paint"}});
  const BracketRecorder recorder;
  capture("B");
  using Bracket = BracketRecorder::Bracket;
  EXPECT_THAT(recorder.brackets(),
              ElementsAre(Bracket("SwitchMaterial", osg::MultiMaterial::MaterialsFieldMask),
                          Bracket("SwitchMaterial", osg::SwitchMaterialBase::ChoiceFieldMask),
                          Bracket("Geometry", osg::Geometry::MaterialFieldMask)));
}

TEST_F(kuVariantsExistingSwitchTest, VariantOfAGrownSwitchIsAnnouncedOnce) {
  bear(roof, green);
  setWith("A", {{"Roof", "Paint"}});
  setWith("B", {{"Roof", "Paint"}});
  capture("C", true);
  EXPECT_THAT(messages.lines(),
              ElementsAre("materialVariantAdded/1 variant:void*=kuVariant Paint"));
}

// Once a switch is settled, the materials of later sets go into it, be they switches or not.

TEST_F(kuVariantsExistingSwitchTest, SettledSwitchTakesThePlainMaterialsOfLaterSets) {
  bear(roof, green);
  setWith("A", {{"Roof", "Paint"}});
  setWith("B", {{"Roof", "White"}});
  capture("C");
  EXPECT_THAT(sets(), ElementsAre("A: Roof=Paint", "B: Roof=Paint | Paint=White",
                                  "C: Roof=Paint | Paint=Green"));
  EXPECT_THAT(switches(), ElementsAre("Paint: Red Blue *Green White"));
}

TEST_F(kuVariantsExistingSwitchTest, SwitchOfALaterSetBecomesAnEntry) {
  bear(roof, red);
  setWith("A", {{"Roof", "Green"}});
  setWith("B", {{"Roof", "Paint"}});
  capture("C");
  EXPECT_THAT(sets(), ElementsAre("A: Roof=Switch | Switch=Green", "B: Roof=Switch | Switch=Paint",
                                  "C: Roof=Switch | Switch=Red"));
  EXPECT_THAT(switches(), ElementsAre("Paint: *Red Blue", "Switch: *Red Green Paint"));
}

TEST_F(kuVariantsExistingSwitchTest, SwitchOfALaterSetEqualToAnEntryIsNotAdded) {
  scene.switchMaterial("Twin", {red, blue}, 1);
  bear(roof, red);
  setWith("A", {{"Roof", "Green"}});
  setWith("B", {{"Roof", "Paint"}});
  setWith("C", {{"Roof", "Twin"}});
  capture("D");
  EXPECT_THAT(sets(), ElementsAre("A: Roof=Switch | Switch=Green", "B: Roof=Switch | Switch=Paint",
                                  "C: Roof=Switch | Switch=Twin", "D: Roof=Switch | Switch=Red"));
  EXPECT_EQ(textOf(findSwitch("Switch")), "Switch: *Red Green Paint");
}

TEST_F(kuVariantsExistingSwitchTest, SwitchThatHoldsTheSettledOneIsNotAdded) {
  scene.switchMaterial("Outer", {paint}, 0);
  setWith("A", {{"Roof", "Green"}});
  setWith("B", {{"Roof", "Outer"}});
  capture("C");
  EXPECT_THAT(sets(), ElementsAre("A: Roof=Paint | Paint=Green", "B: Roof=Paint | Paint=Outer",
                                  "C: Roof=Paint | Paint=Paint"));
  EXPECT_THAT(switches(), ElementsAre("Paint: *Red Blue Green", "Outer: *Paint"));
  EXPECT_THAT(log, IsEmpty());
}
