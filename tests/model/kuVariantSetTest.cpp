#include "model/kuVariantSet.h"

#include "model/kuVariantGroup.h"
#include "support/BracketRecorder.h"
#include "support/VariantsTest.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

namespace {

class kuVariantSetTest : public VariantsTest {
 protected:
  kuVariantSet set{"Summer"};
};

TEST_F(kuVariantSetTest, NewOneHasNoHotkeyYet) {
  EXPECT_EQ(set.getShortcutKey(), -1);
  EXPECT_TRUE(set.getShowInVRMenu());
  EXPECT_TRUE(set.getSyncInCollaboration());
  EXPECT_FALSE(set.getSequentialAnimation());
  EXPECT_EQ(kuVariantSet("Next").id(), set.id() + 1);
}

TEST_F(kuVariantSetTest, AnEmptyHotkeyGivesKeyZero) {
  set.setHotkey("");
  EXPECT_EQ(set.getShortcutKey(), 0);
  set.setHotkey("Ctrl+A");
  EXPECT_EQ(set.getShortcutKey(), Qt::Key_A);
  EXPECT_EQ(set.getShortcutModifier(), Qt::ControlModifier);
}

TEST_F(kuVariantSetTest, ASecondAddChangesTheStateAndMovesNothing) {
  set.addNodeVariant("Roof", "Open");
  set.addNodeVariant("Door", "Left");
  set.addNodeVariant("Roof", "Shut");
  ASSERT_EQ(set.getNodeVariants().size(), 2u);
  EXPECT_EQ(set.getNodeVariants().front().getVariant(), "Roof");
  EXPECT_EQ(set.getNodeVariants().front().getState(), "Shut");
}

TEST_F(kuVariantSetTest, AnEmptyStateByNameStaysEmpty) {
  set.addNodeVariant("Roof", "");
  EXPECT_EQ(set.findNodeVariant("Roof")->getState(), "");
}

TEST_F(kuVariantSetTest, TheFiveListsAreApart) {
  set.addNodeVariant("X", "1");
  set.addMaterialVariant("X", "2");
  set.addLightVariant("X", "3");
  set.addOverlayVariant("X", "4");
  set.addTransformVariant("X", "5");
  EXPECT_EQ(set.findNodeVariant("X")->getState(), "1");
  EXPECT_EQ(set.findMaterialVariant("X")->getState(), "2");
  EXPECT_EQ(set.findLightVariant("X")->getState(), "3");
  EXPECT_EQ(set.findOverlayVariant("X")->getState(), "4");
  EXPECT_EQ(set.findTransformVariant("X")->getState(), "5");
  set.removeMaterialVariant("X");
  set.removeMaterialVariant("unknown");
  EXPECT_FALSE(set.containsMaterialVariant("X"));
  EXPECT_TRUE(set.containsNodeVariant("X"));
  EXPECT_TRUE(set.containsLightVariant("X"));
  EXPECT_TRUE(set.containsOverlayVariant("X"));
  EXPECT_TRUE(set.containsTransformVariant("X"));
}

TEST_F(kuVariantSetTest, ContainsReadsUtf8) {
  set.addNodeVariant(QString::fromUtf8("T\xC3\xBCr"), "");
  EXPECT_TRUE(set.containsNodeVariant("T\xC3\xBCr"));
  EXPECT_FALSE(set.containsNodeVariant("T\xFCr"));
}

TEST_F(kuVariantSetTest, RemoveViewpointEmptiesTheDefaultOnlyIfItWasListed) {
  set.setDefaultViewpoint("Front");
  set.removeViewpoint("Front");
  EXPECT_EQ(set.getDefaultViewpoint(), "Front");
  set.addViewpoint("Front");
  set.addViewpoint("Front");
  EXPECT_THAT(set.getViewpoints(), ElementsAre("Front"));
  set.removeViewpoint("Front");
  EXPECT_TRUE(set.getDefaultViewpoint().isNull());
  EXPECT_THAT(set.getViewpoints(), IsEmpty());
}

TEST_F(kuVariantSetTest, AppendToScriptPutsALineFeedOnlyBetween) {
  set.appendToScript("one");
  EXPECT_EQ(set.getScript(), "one");
  set.appendToScript("two");
  EXPECT_EQ(set.getScript(), "one\ntwo");
}

TEST_F(kuVariantSetTest, RenameTellsTheGroupsNameOrUngrouped) {
  kuVariantGroup group("G");
  set.setName("Winter");
  group.add(&set);
  set.setName("Spring");
  EXPECT_THAT(messages.lines(),
              ElementsAre("variantSetRenamed/0 oldName:string=Summer newName:string=Winter "
                          "groupName:string=ungrouped",
                          "variantSetRenamed/0 oldName:string=Winter newName:string=Spring "
                          "groupName:string=G"));
}

TEST_F(kuVariantSetTest, AbsentKeysGiveEmptyTexts) {
  set.addValue("k", "1");
  set.addValue("k", "2");
  EXPECT_EQ(set.getValue("k"), "2");
  EXPECT_EQ(set.getValue("absent"), "");
  EXPECT_FALSE(set.containsValue("absent"));
  set.removeValue("k");
  EXPECT_FALSE(set.containsValue("k"));
}

TEST_F(kuVariantSetTest, ClearKeepsGroupGeometriesAndFlags) {
  kuVariantGroup group("G");
  group.add(&set);
  set.addGeometry("Hood");
  set.setPreview("png");
  set.setClippingState(3);
  set.setInclInfo(true, false, true, false, true, false);
  set.setShowInVRMenu(false);
  set.setHotkey("A");
  set.addNodeVariant("Roof", "Open");
  set.addAnimation("Doors");
  set.addTargetNodeName("Car");
  set.addMaterialSnapshot("Car/Hood", "Red");
  set.clear();
  EXPECT_EQ(set.getGroup(), &group);
  EXPECT_EQ(set.getName(), "Summer");
  EXPECT_THAT(set.getGeometries(), ElementsAre("Hood"));
  EXPECT_EQ(set.getPreview(), "png");
  EXPECT_EQ(set.getClippingState(), 3);
  EXPECT_FALSE(set.getShowInVRMenu());
  bool n = false, m = true, l = false, e = true, v = false, s = true;
  set.getInclInfo(n, m, l, e, v, s);
  EXPECT_TRUE(n && !m && l && !e && v && !s);
  EXPECT_EQ(set.getShortcutKey(), -1);
  EXPECT_EQ(set.getHotkey(), "");
  EXPECT_THAT(set.getNodeVariants(), IsEmpty());
  EXPECT_THAT(set.getAnimations(), IsEmpty());
  EXPECT_THAT(set.getTargetNodeNames(), IsEmpty());
  EXPECT_THAT(set.getMaterialSnapshots(), IsEmpty());
}

TEST_F(kuVariantSetTest, ShowOpensTheSubtreeAndHideClosesTheGeometriesAlone) {
  const osg::NodePtr body = scene.group("Body");
  const osg::NodePtr hood = scene.geometry("Hood", {}, body);
  set.addGeometry("Body");
  set.hideGeometry();
  EXPECT_TRUE(body->getActive());
  EXPECT_FALSE(hood->getActive());
  SceneBuilder::setActive(body, false);
  set.showGeometry();
  EXPECT_TRUE(body->getActive());
  EXPECT_TRUE(hood->getActive());
}

TEST_F(kuVariantSetTest, HideLeavesInactiveGroupsAndShowReachesEveryNodeOfTheName) {
  const osg::NodePtr body = scene.group("Body");
  const osg::NodePtr hood = scene.geometry("Hood", {}, scene.group("Lid", body));
  const osg::NodePtr twin = scene.geometry("Body");
  const osg::NodePtr other = scene.geometry("Other");
  SceneBuilder::setActive(body, false);
  set.addGeometry("absent");
  set.addGeometry("Body");
  set.hideGeometry();
  EXPECT_FALSE(body->getActive());
  EXPECT_TRUE(hood->getParent()->getActive());
  EXPECT_FALSE(hood->getActive());
  EXPECT_FALSE(twin->getActive());
  EXPECT_TRUE(other->getActive());
  SceneBuilder::setActive(hood->getParent(), false);
  SceneBuilder::setActive(other, false);
  set.showGeometry();
  EXPECT_TRUE(body->getActive());
  EXPECT_TRUE(hood->getParent()->getActive());
  EXPECT_TRUE(hood->getActive());
  EXPECT_TRUE(twin->getActive());
  EXPECT_FALSE(other->getActive());
}

TEST_F(kuVariantSetTest, ShowAndHideBracketTheFlagOfWhatTheySetAlone) {
  const osg::NodePtr body = scene.group("Body");
  scene.geometry("Hood", {}, body);
  set.addGeometry("Body");
  const BracketRecorder recorder;
  const auto flag = Pair("Node", osg::FieldMask(1));
  set.hideGeometry();
  EXPECT_THAT(recorder.brackets(), ElementsAre(flag));
  set.showGeometry();
  EXPECT_THAT(recorder.brackets(), ElementsAre(flag, flag, flag));
}

TEST_F(kuVariantSetTest, CopyHasIdAndGroupButIsNoMember) {
  kuVariantGroup group("G");
  group.add(&set);
  {
    const kuVariantSet copy(set);
    EXPECT_EQ(copy.id(), set.id());
    EXPECT_EQ(copy.getGroup(), &group);
  }
  EXPECT_THAT(group.getVariantSets(), ElementsAre(&set));
}

}  // namespace
