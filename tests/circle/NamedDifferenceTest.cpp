#include "circle/CircleTest.h"
#include "host/osg/UEnvironmentMaterial.h"

// What does not come back, since captures do not take it in or take it in otherwise: each case is
// exactly that difference, and no other.

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class NamedDifference : public CircleTest {
 protected:
  /** A geometry that may bear any of three materials. */
  osg::NodePtr hood(const char* name = "Hood", const osg::NodePtr& parent = {}) {
    for (const char* each : {"Red", "Blue", "Green"})
      if (!material(each)) scene.material(each);
    return scene.geometry(name, material("Red"), parent);
  }
};

TEST_F(NamedDifference, ASwitchThatShowsAllComesBackShowingNone) {
  scene.switchNode("Roof", -2, {"Closed", "Open"});
  begin();
  capture("A");
  EXPECT_THAT(fromTheOriginal("A"), ElementsAre("Roof choice: all -> none"));
}

TEST_F(NamedDifference, AChoiceBeyondTheChildrenIsNotStored) {
  scene.switchNode("Roof", 0, {"Closed", "Open"});
  begin();
  setChoice(node("Roof"), 2);
  capture("A");
  EXPECT_THAT(fromTheOriginal("A"), ElementsAre("Roof choice: beyond -> Closed"));
}

TEST_F(NamedDifference, NothingBelowAnInactiveNodeIsCaptured) {
  const osg::NodePtr car = scene.group("Car");
  scene.switchNode("Roof", 0, {"Closed", "Open"}, car);
  scene.light("Lamp", false, car);
  scene.transforms("Door", {"Shut", "Wide"}, 0, 0, car);
  scene.group("Bolt", car);
  hood("Hood", car);
  begin();
  setActive(car, false);
  setActive(node("Bolt"), false);
  setChoice(node("Roof"), 1);
  setLight("Lamp", true);
  setState("Door", 1);
  bear("Hood", "Blue");
  capture("A");
  EXPECT_THAT(fromTheOriginal("A"),
              ElementsAre("Car/Roof choice: Open -> Closed", "Car/Lamp light: on -> off",
                          "Car/Door state: Wide -> Shut", "Car/Bolt active: no -> yes",
                          "Car/Hood material: Blue -> Red"));
}

TEST_F(NamedDifference, AnInactiveSwitchComesBackWithoutItsChoice) {
  scene.switchNode("Roof", 0, {"Closed", "Open"});
  begin();
  setActive(node("Roof"), false);
  setChoice(node("Roof"), 1);
  capture("A");
  EXPECT_THAT(fromTheOriginal("A"), ElementsAre("Roof choice: Open -> Closed"));
}

TEST_F(NamedDifference, AnInactiveLightComesBackActiveAndOff) {
  scene.light("Lamp", true);
  begin();
  setActive(node("Lamp"), false);
  capture("A");
  EXPECT_THAT(fromTheOriginal("A"), ElementsAre("Lamp active: no -> yes", "Lamp light: on -> off"));
}

TEST_F(NamedDifference, AnInactiveNodeWithoutACoreComesBackActive) {
  scene.bare("Anchor");
  begin();
  setActive(node("Anchor"), false);
  capture("A");
  EXPECT_THAT(fromTheOriginal("A"), ElementsAre("Anchor active: no -> yes"));
}

TEST_F(NamedDifference, TheMaterialOfACloneIsLostWithAnInactiveOriginal) {
  scene.clone(hood(), "Spare");
  begin();
  setActive(node("Hood"), false);
  bear("Hood", "Blue");
  capture("A");
  EXPECT_THAT(fromTheOriginal("A"),
              ElementsAre("Hood material: Blue -> Red", "Spare material: Blue -> Red"));
  EXPECT_THAT(fromTheCaptured("A"), IsEmpty());
}

TEST_F(NamedDifference, TheMaterialOfANodeThatIsInactiveInTheSceneIsNotPutBack) {
  hood();
  SceneBuilder::setActive(node("Hood"), false);
  begin();
  setActive(node("Hood"), true);
  bear("Hood", "Blue");
  capture("A");
  EXPECT_THAT(fromTheOriginal("A"), ElementsAre("Hood material: Blue -> Red"));
}

TEST_F(NamedDifference, ANodeWithoutAMaterialIsNotRemembered) {
  scene.material("Red");
  scene.geometry("Hood");
  begin();
  EXPECT_THAT(capture("A"), IsEmpty());
  bear("Hood", "Red");
  EXPECT_THAT(capture("B"), IsEmpty());
  EXPECT_THAT(fromTheOriginal("B"), ElementsAre("Hood material: Red -> nothing"));
  EXPECT_THAT(fromTheCaptured("A"), ElementsAre("Hood material: nothing -> Red"));
}

TEST_F(NamedDifference, OfTwoSwitchesInTurnOnANodeTheOtherOneIsPutBack) {
  hood();
  scene.switchMaterial("Gloss", {material("Red"), material("Blue")}, 0);
  scene.switchMaterial("Matt", {material("Green"), material("Blue")}, 0);
  bear("Hood", "Gloss");
  begin();
  EXPECT_THAT(capture("A"), IsEmpty());
  bear("Hood", "Matt");
  EXPECT_THAT(capture("B"), IsEmpty());
  EXPECT_THAT(fromTheOriginal("A"), ElementsAre("Hood material: Red -> Green"));
  EXPECT_THAT(fromTheOriginal("B"), IsEmpty());
  EXPECT_THAT(fromTheCaptured("A"), IsEmpty());
  EXPECT_THAT(fromTheCaptured("B"), ElementsAre("Hood material: Green -> Red"));
}

TEST_F(NamedDifference, ASwitchOnANodeThatWasPlainBeforeIsPutBackWithoutItsChoice) {
  hood();
  scene.switchMaterial("Paint", {material("Red"), material("Blue")}, 0);
  begin();
  EXPECT_THAT(capture("A"), IsEmpty());
  bear("Hood", "Paint");
  showInSwitch("Paint", 1);
  EXPECT_THAT(capture("B"), IsEmpty());
  EXPECT_THAT(fromTheOriginal("A"), IsEmpty());
  EXPECT_THAT(fromTheOriginal("B"), ElementsAre("Hood material: Blue -> Red"));
}

TEST_F(NamedDifference, ASetCalledTempKeepsMaterialsFromBeingPutBack) {
  hood();
  begin();
  bear("Hood", "Blue");
  capture("Temp");
  EXPECT_THAT(fromTheOriginal("Temp"), ElementsAre("Hood material: Blue -> Red"));
  EXPECT_THAT(fromTheCaptured("Temp"), IsEmpty());
}

TEST_F(NamedDifference, ATransformThatIsInAStateByChanceIsSteppedOn) {
  scene.transforms("Door", {"Shut", "Ajar", "Wide"}, 1, -1);
  begin();
  capture("A");
  EXPECT_THAT(fromTheOriginal("A"), ElementsAre("Door state: Ajar -> Shut"));
}

TEST_F(NamedDifference, NodesOfOnePathAreLevelledByTheCaptureItself) {
  hood("Wheel");
  hood("Wheel");
  bear("Wheel", "Blue");
  begin();
  EXPECT_THAT(capture("A"), ElementsAre("Wheel material: Red -> Blue"));
  EXPECT_THAT(fromTheCaptured("A"), ElementsAre("Wheel material: Red -> Blue"));
}

TEST_F(NamedDifference, AQuotationMarkInAPathBreaksTheLineOfTheScript) {
  scene.materialGroup("6\" seats", {});
  begin();
  setIgnored("6\" seats", true);
  capture("A");
  EXPECT_THAT(fromTheOriginal("A"), ElementsAre("6\" seats ignored: yes -> no"));
}

TEST_F(NamedDifference, SceneplatesAreBoundByTheCommandAlone) {
  scene.sceneplate("Title");
  scene.sceneplateSwitch("Legend", 0, {"English", "Deutsch"});
  begin();
  setActive(plate("Title"), false);
  setChoice(plate("Legend"), 1);
  capture("A");
  EXPECT_THAT(fromTheOriginal("A"),
              ElementsAre("Title active: no -> yes", "Legend choice: Deutsch -> English"));
}

TEST_F(NamedDifference, AnInactiveSwitchOfSceneplatesComesBackActiveAndShowingNone) {
  scene.sceneplateSwitch("Legend", 0, {"English", "Deutsch"});
  begin(Capturing::ByCommand);
  setActive(plate("Legend"), false);
  capture("A");
  EXPECT_THAT(fromTheOriginal("A"),
              ElementsAre("Legend active: no -> yes", "Legend choice: English -> none"));
}

TEST_F(NamedDifference, AHiddenSceneplateThatIsChosenComesBackShown) {
  scene.sceneplateSwitch("Legend", 0, {"Deutsch", "English"});
  begin(Capturing::ByCommand);
  setActive(plate("Deutsch"), false);
  capture("A");
  EXPECT_THAT(fromTheOriginal("A"), ElementsAre("Legend/Deutsch active: no -> yes"));
}

// What only a saved scene holds.

TEST_F(NamedDifference, NewViewpointsAreInTheSavedSceneAlone) {
  scene.camera("Front");
  begin();
  move("Front", 2);
  capture("A");
  move("Front", 3);
  capture("B");
  EXPECT_THAT(fromTheOriginal("A"), ElementsAre("Front place: 2 0 0 0 0 0 1 1 1 1  -> "
                                                "0 0 0 0 0 0 1 1 1 1 "));
  EXPECT_THAT(fromTheCaptured("A"), IsEmpty());
  EXPECT_THAT(fromTheCaptured("B"), IsEmpty());
}

TEST_F(NamedDifference, StatesOfRenderLayersAreInTheSavedSceneAlone) {
  scene.geometry("Hood");
  begin();
  setRays("Hood", {false, true, true});
  capture("A");
  setRays("Hood", {true, true, false});
  capture("B");
  EXPECT_THAT(fromTheOriginal("A"),
              ElementsAre("Hood rays: reflections shadows -> camera reflections shadows"));
  EXPECT_THAT(fromTheCaptured("A"), IsEmpty());
  EXPECT_THAT(fromTheCaptured("B"), IsEmpty());
}

TEST_F(NamedDifference, WhatASwitchOfTheSceneGainedIsInTheSavedSceneAlone) {
  hood();
  scene.switchMaterial("Paint", {material("Red"), material("Blue")}, 0);
  bear("Hood", "Paint");
  begin();
  EXPECT_THAT(capture("A"), IsEmpty());
  bear("Hood", "Green");
  EXPECT_THAT(capture("B"), IsEmpty());
  EXPECT_THAT(fromTheOriginal("A"), IsEmpty());
  EXPECT_THAT(fromTheOriginal("B"), ElementsAre("Hood material: Green -> Red"));
  EXPECT_THAT(fromTheCaptured("A"), IsEmpty());
  EXPECT_THAT(fromTheCaptured("B"), IsEmpty());
}

TEST_F(NamedDifference, RenamedNodesAreInTheSavedSceneAlone) {
  hood("Wheel", scene.group("Left"));
  hood("Wheel", scene.group("Right"));
  begin(Capturing::ByCommand);
  kuNodeUtils::setMaterial(kuScenegraph::findNodes("Wheel")[1], material("Blue"), false, false);
  EXPECT_THAT(capture("A"), ElementsAre("Right/Wheel name: Wheel -> Wheel1"));
  EXPECT_THAT(fromTheOriginal("A"), ElementsAre("Right/Wheel material: Blue -> Red"));
  EXPECT_THAT(fromTheCaptured("A"), ElementsAre("Right/Wheel name: Wheel -> Wheel1"));
}

TEST_F(NamedDifference, ASwitchOfEnvironmentsThatIsMadeAnewIsAnyOther) {
  scene.environmentMaterial("Day");
  scene.environmentMaterial("Night");
  scene.geometry("Dome", material("Day"));
  begin();
  capture("A");
  bear("Dome", "Night");
  capture("B");
  const auto isOfEnvironments = [] {
    return osg::UEnvironmentSwitchMaterialPtr::dcast(kuNodeUtils::getMaterial(node("Dome"))) !=
           osg::NullFC;
  };
  EXPECT_THAT(fromTheOriginal("B"), IsEmpty());
  EXPECT_FALSE(isOfEnvironments());
  EXPECT_THAT(fromTheCaptured("B"), IsEmpty());
  EXPECT_TRUE(isOfEnvironments());
}

}  // namespace
