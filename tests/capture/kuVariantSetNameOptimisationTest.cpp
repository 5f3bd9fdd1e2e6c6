// Geometries, viewpoints and animations: the lists of plain names. And names that repeat.

#include "capture/CaptureTest.h"
#include "support/kuVariantsTestAccess.h"

using kuStandalone::AnimationClip;
using kuStandalone::Scene;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class kuVariantSetNameOptimisationTest : public CaptureTest {
 protected:
  static void addClip(const char* name) {
    AnimationClip clip;
    clip.name = name;
    Scene::the().animations.push_back(clip);
  }
};

}  // namespace

TEST_F(kuVariantSetNameOptimisationTest, GeometriesWithoutANodeGoAndTheOthersKeepTheirOrder) {
  scene.geometry("Body");
  scene.geometry("Door");
  for (const char* name : {"Lost", "Door", "body", "Body", "Gone"})
    set.addGeometry(name);
  set.optimize();
  EXPECT_THAT(texts(set.getGeometries()), ElementsAre("Door", "Body"));
}

TEST_F(kuVariantSetNameOptimisationTest, AnyNodeOfTheNameKeepsAGeometry) {
  scene.group("Group");
  scene.bare("Bare");
  scene.light("Lamp", true);
  for (const char* name : {"Group", "Bare", "Lamp"})
    set.addGeometry(name);
  set.optimize();
  EXPECT_THAT(texts(set.getGeometries()), ElementsAre("Group", "Bare", "Lamp"));
}

TEST_F(kuVariantSetNameOptimisationTest, SceneplateKeepsNoGeometry) {
  scene.sceneplate("Logo");
  set.addGeometry("Logo");
  set.optimize();
  EXPECT_THAT(texts(set.getGeometries()), IsEmpty());
}

TEST_F(kuVariantSetNameOptimisationTest, GeometryGoesAsOftenAsItRepeats) {
  scene.geometry("Body");
  kuVariantsTestAccess::geometries(set) = {"Lost", "Body", "Lost", "Body"};
  set.optimize();
  EXPECT_THAT(texts(set.getGeometries()), ElementsAre("Body", "Body"));
}

TEST_F(kuVariantSetNameOptimisationTest, UnknownViewpointsGoAndTheOthersKeepTheirOrder) {
  scene.camera("Front");
  scene.camera("Back");
  for (const char* name : {"Lost", "Back", "front", "Front"})
    set.addViewpoint(name);
  set.optimize();
  EXPECT_THAT(texts(set.getViewpoints()), ElementsAre("Back", "Front"));
}

TEST_F(kuVariantSetNameOptimisationTest, NodeOfTheNameKeepsNoViewpoint) {
  scene.group("Front");
  set.addViewpoint("Front");
  set.optimize();
  EXPECT_THAT(texts(set.getViewpoints()), IsEmpty());
}

TEST_F(kuVariantSetNameOptimisationTest, DefaultViewpointGoesWithItsEntry) {
  scene.camera("Front");
  set.addViewpoint("Lost");
  set.addViewpoint("Front");
  set.setDefaultViewpoint("Lost");
  set.optimize();
  EXPECT_THAT(texts(set.getViewpoints()), ElementsAre("Front"));
  EXPECT_TRUE(set.getDefaultViewpoint().isNull());
}

TEST_F(kuVariantSetNameOptimisationTest, DefaultViewpointStaysWhereAnotherEntryGoes) {
  scene.camera("Front");
  set.addViewpoint("Lost");
  set.addViewpoint("Front");
  set.setDefaultViewpoint("Front");
  set.optimize();
  EXPECT_EQ(set.getDefaultViewpoint(), "Front");
}

TEST_F(kuVariantSetNameOptimisationTest, UnknownDefaultViewpointThatIsNotListedStays) {
  set.addViewpoint("Gone");
  set.setDefaultViewpoint("Lost");
  set.optimize();
  EXPECT_THAT(texts(set.getViewpoints()), IsEmpty());
  EXPECT_EQ(set.getDefaultViewpoint(), "Lost");
}

TEST_F(kuVariantSetNameOptimisationTest, ViewpointGoesAsOftenAsItRepeats) {
  scene.camera("Front");
  kuVariantsTestAccess::viewpoints(set) = {"Lost", "Front", "Lost"};
  set.optimize();
  EXPECT_THAT(texts(set.getViewpoints()), ElementsAre("Front"));
}

TEST_F(kuVariantSetNameOptimisationTest, AnimationsStayWhereAClipOrABlockBearsTheName) {
  addClip("Doors open");
  addClip("T\xc3\xbcr");
  Scene::the().animationBlocks["All doors"] = {"Doors open"};
  for (const char* name : {"Lost", "T\xc3\xbcr", "All doors", "doors open", "Doors open", "Doors"})
    set.addAnimation(name);
  set.optimize();
  EXPECT_THAT(texts(set.getAnimations()), ElementsAre("T\xc3\xbcr", "All doors", "Doors open"));
}

TEST_F(kuVariantSetNameOptimisationTest, AnimationsAreComparedByLengthAndContent) {
  addClip("Door");
  set.addAnimation(QString::fromLatin1("Door\0", 5));
  set.addAnimation("Doo");
  set.addAnimation("Doors");
  set.addAnimation("Door");
  set.optimize();
  EXPECT_THAT(texts(set.getAnimations()), ElementsAre("Door"));
}

TEST_F(kuVariantSetNameOptimisationTest, NextAnimationOfASequenceIsNotAdjusted) {
  addClip("Doors");
  for (const char* name : {"Lost", "Gone", "Doors"})
    set.addAnimation(name);
  set.setSequentialAnimation(true);
  kuVariantsTestAccess::animationCursor(set) = 2;
  set.optimize();
  EXPECT_THAT(texts(set.getAnimations()), ElementsAre("Doors"));
  EXPECT_EQ(kuVariantsTestAccess::animationCursor(set), 2);
  EXPECT_TRUE(set.getSequentialAnimation());
}

TEST_F(kuVariantSetNameOptimisationTest, AnimationGoesAsOftenAsItRepeats) {
  addClip("Doors");
  kuVariantsTestAccess::animations(set) = {"Lost", "Doors", "Lost", "Doors", "Lost"};
  set.optimize();
  EXPECT_THAT(texts(set.getAnimations()), ElementsAre("Doors", "Doors"));
}

TEST_F(kuVariantSetNameOptimisationTest, StateGoesAsOftenAsItsVariantRepeats) {
  bindNode("Choice", "Roof");
  scene.switchNode("Roof", 0, {"Open"});
  kuVariantsTestAccess::nodeVariants(set) = {
      {"Choice", "Lost"}, {"Other", "X"}, {"Choice", "Gone"}};
  set.optimize();
  EXPECT_THAT(texts(set.getNodeVariants()), ElementsAre("Other=X"));
}

TEST_F(kuVariantSetNameOptimisationTest, OfRepeatedVariantsTheFirstGoesWhicheverStateIsAtFault) {
  bindNode("Choice", "Roof");
  scene.switchNode("Roof", 0, {"Open"});
  kuVariantsTestAccess::nodeVariants(set) = {
      {"Choice", "Open"}, {"Other", "X"}, {"Choice", "Lost"}, {"Choice", "Open"}};
  set.optimize();
  EXPECT_THAT(texts(set.getNodeVariants()), ElementsAre("Other=X", "Choice=Lost", "Choice=Open"));
}

TEST_F(kuVariantSetNameOptimisationTest, OfRepeatedTransformsTheFirstGoesToo) {
  bindTransform("Choice", "Door");
  scene.transforms("Door", {"Open"}, 0, 0);
  kuVariantsTestAccess::transformVariants(set) = {{"Choice", "Open"}, {"Choice", "!Enable"}};
  set.optimize();
  EXPECT_THAT(texts(set.getTransformVariants()), ElementsAre("Choice=!Enable"));
}
