// The temporary set of a restore, what is told of it, and receivers that interfere.

#include <stdexcept>

#include "capture/RestoreTest.h"
#include "host/kernel/kuController.h"
#include "scene/kuNodeVariant.h"
#include "support/ManagerDump.h"
#include "support/MessageReceiver.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

namespace {

class kuVariantsRestoreSetTest : public RestoreTest {
 protected:
  /** A node that a restore makes a variant of, and announces. */
  void addInactiveNode() { SceneBuilder::setActive(scene.geometry("Hidden", red), false); }

  osg::NodePtr place = scene.geometry("Place", red);
};

void fail(kuMessage&) { throw std::runtime_error("a receiver's own"); }

}  // namespace

TEST_F(kuVariantsRestoreSetTest, TemporarySetIsAnnouncedAndItsRemovalToo) {
  restore();
  EXPECT_THAT(messages.lines(), ElementsAre("variantSetAdded/1 variant:void*=kuVariantSet Temp",
                                            "variantSetRemoved/1 variant:void*=unlisted"));
  EXPECT_EQ(managerDump(), "");
}

TEST_F(kuVariantsRestoreSetTest, VariantsOfInactiveNodesAreAnnouncedInBetweenAndStay) {
  addInactiveNode();
  restore();
  EXPECT_THAT(messages.lines(), ElementsAre("variantSetAdded/1 variant:void*=kuVariantSet Temp",
                                            "nodeVariantAdded/1 variant:void*=kuVariant Hidden",
                                            "variantSetRemoved/1 variant:void*=unlisted"));
  EXPECT_NE(kuVariants::findNodeVariant("Hidden"), nullptr);
  EXPECT_THAT(kuVariants::getVariantSets(), IsEmpty());
}

TEST_F(kuVariantsRestoreSetTest, OnlyMaterialGroupsAndGeometriesGetVariantsForBeingInactive) {
  const osg::NodePtr nodes[] = {scene.group("Group"),
                                scene.switchNode("Switch", 0, {"A"}),
                                scene.light("Light", true),
                                scene.bare("Bare"),
                                scene.transforms("Door", {"A"}, 0, 0),
                                scene.materialGroup("Paint", red),
                                scene.geometry("Body")};
  for (const osg::NodePtr& node : nodes)
    SceneBuilder::setActive(node, false);
  restore();
  EXPECT_THAT(messages.linesOf("nodeVariantAdded"),
              ElementsAre("nodeVariantAdded/1 variant:void*=kuVariant Paint",
                          "nodeVariantAdded/1 variant:void*=kuVariant Body"));
}

TEST_F(kuVariantsRestoreSetTest, InactiveNodeWithAnActiveNamesakeGetsNoVariant) {
  addInactiveNode();
  scene.group("Hidden");
  restore();
  EXPECT_EQ(managerDump(), "");
}

TEST_F(kuVariantsRestoreSetTest, TemporarySetHasWhatIsSaidOfInactiveNodesAndMaterialGroups) {
  scene.materialGroup("Paint", red);
  addInactiveNode();
  std::string whileItLasts;
  const MessageReceiver receiver("variantSetRemoved", [&](kuMessage& message) {
    void* removed = nullptr;
    ASSERT_TRUE(message.get("variant", removed));
    const auto* set = static_cast<kuVariantSet*>(removed);
    whileItLasts = set->getScript().toStdString() + " | " +
                   set->getNodeVariants().front().getVariant().toStdString() + "=" +
                   set->getNodeVariants().front().getState().toStdString();
    EXPECT_EQ(set->getGroup(), nullptr);
  });
  restore();
  EXPECT_EQ(whileItLasts, "setIgnoreMaterialGroup(\"Paint\",false) | Hidden=!Disable");
}

TEST_F(kuVariantsRestoreSetTest, SetOfTheUsersCalledTempDisablesItAndStays) {
  addInactiveNode();
  remember("Temp", {{"Place", "Green"}}).setComment("mine");
  const std::string before = managerDump();
  restore();
  EXPECT_EQ(materialOf(place), "Red");
  EXPECT_EQ(managerDump(), before);
  EXPECT_THAT(messages.lines(), IsEmpty());
  EXPECT_THAT(log, ElementsAre("warning: A variant set with that name already exists."));
}

TEST_F(kuVariantsRestoreSetTest, SetOfAnotherCaseDoesNotDisableIt) {
  remember("temp", {{"Place", "Green"}});
  restore();
  EXPECT_EQ(materialOf(place), "Green");
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(kuVariantsRestoreSetTest, WhatAReceiverOfTheAnnouncementThrowsPassesOnAndTheSetIsGone) {
  remember("Summer", {{"Place", "Green"}});
  const MessageReceiver receiver("variantSetAdded", fail);
  EXPECT_THROW(restore(), std::runtime_error);
  EXPECT_EQ(kuVariants::findVariantSet("Temp"), nullptr);
  EXPECT_EQ(materialOf(place), "Red");
  EXPECT_THAT(messages.lines(), ElementsAre(StartsWith("variantSetAdded"),
                                            "variantSetRemoved/1 variant:void*=unlisted"));
}

TEST_F(kuVariantsRestoreSetTest, WhatAReceiverThrowsMidwayPassesOnAndTheSetIsGone) {
  addInactiveNode();
  scene.geometry("Later", red);
  remember("Summer", {{"Place", "Green"}, {"Later", "Green"}});
  const MessageReceiver receiver("nodeVariantAdded", fail);
  EXPECT_THROW(restore(), std::runtime_error);
  EXPECT_EQ(kuVariants::findVariantSet("Temp"), nullptr);
  EXPECT_EQ(materialOf(place), "Green");
  EXPECT_THAT(messages.lines(),
              ElementsAre(StartsWith("variantSetAdded"), StartsWith("nodeVariantAdded"),
                          "variantSetRemoved/1 variant:void*=unlisted"));
}

TEST_F(kuVariantsRestoreSetTest, WhatAReceiverOfTheRemovalThrowsPassesOnAndTheSetIsGone) {
  remember("Summer", {{"Place", "Green"}});
  const MessageReceiver receiver("variantSetRemoved", fail);
  EXPECT_THROW(restore(), std::runtime_error);
  EXPECT_EQ(kuVariants::findVariantSet("Temp"), nullptr);
  EXPECT_EQ(materialOf(place), "Green");
  EXPECT_THAT(messages.linesOf("variantSetRemoved"),
              ElementsAre("variantSetRemoved/1 variant:void*=unlisted"));
}

TEST_F(kuVariantsRestoreSetTest, AfterAFailureTheNextOneWorks) {
  remember("Summer", {{"Place", "Green"}});
  {
    const MessageReceiver receiver("variantSetAdded", fail);
    EXPECT_THROW(restore(), std::runtime_error);
  }
  restore();
  EXPECT_EQ(materialOf(place), "Green");
}

TEST_F(kuVariantsRestoreSetTest, ReceiverThatRemovesTheSetAtOnceEndsIt) {
  remember("Summer", {{"Place", "Green"}});
  const MessageReceiver receiver("variantSetAdded",
                                 [](kuMessage&) { kuVariants::removeVariantSet("Temp"); });
  restore();
  EXPECT_EQ(materialOf(place), "Red");
  EXPECT_EQ(messages.lines().size(), 2u);
}

TEST_F(kuVariantsRestoreSetTest, SetThatAReceiverMakesInThePlaceOfTheRemovedOneStays) {
  int calls = 0;
  const MessageReceiver receiver("variantSetAdded", [&](kuMessage&) {
    if (++calls > 1) return;
    kuVariants::removeVariantSet("Temp");
    kuVariants::createVariantSet("Temp", false, nullptr)->setComment("mine");
  });
  restore();
  ASSERT_NE(kuVariants::findVariantSet("Temp"), nullptr);
  EXPECT_EQ(kuVariants::findVariantSet("Temp")->getComment(), "mine");
}

TEST_F(kuVariantsRestoreSetTest, ReceiverThatRemovesTheSetMidwayEndsIt) {
  addInactiveNode();
  const osg::NodePtr later = scene.materialGroup("Later", red);
  remember("Summer", {{"Place", "Green"}, {"Later", "Green"}});
  const MessageReceiver receiver("nodeVariantAdded",
                                 [](kuMessage&) { kuVariants::removeVariantSet("Temp"); });
  restore();
  EXPECT_EQ(materialOf(place), "Green");
  EXPECT_EQ(materialOf(later), "Red");
}

TEST_F(kuVariantsRestoreSetTest, SetThatAReceiverMakesInThePlaceOfTheOneRemovedMidwayStays) {
  addInactiveNode();
  const MessageReceiver receiver("nodeVariantAdded", [](kuMessage&) {
    kuVariants::removeVariantSet("Temp");
    kuVariants::createVariantSet("Temp", false, nullptr)->setComment("mine");
  });
  restore();
  ASSERT_NE(kuVariants::findVariantSet("Temp"), nullptr);
  EXPECT_EQ(kuVariants::findVariantSet("Temp")->getComment(), "mine");
}

TEST_F(kuVariantsRestoreSetTest, SetOfAReceiverThatThrowsStaysInThePlaceOfTheRemovedOne) {
  const MessageReceiver receiver("variantSetAdded", [](kuMessage& message) {
    kuVariants::removeVariantSet("Temp");
    kuVariants::createVariantSet("Temp", false, nullptr)->setComment("mine");
    fail(message);
  });
  EXPECT_THROW(restore(), std::runtime_error);
  ASSERT_NE(kuVariants::findVariantSet("Temp"), nullptr);
  EXPECT_EQ(kuVariants::findVariantSet("Temp")->getComment(), "mine");
}

TEST_F(kuVariantsRestoreSetTest, ReceiverMayClearAllMidway) {
  addInactiveNode();
  scene.materialGroup("Later", red);
  remember("Summer", {{"Later", "Green"}});
  const MessageReceiver receiver("nodeVariantAdded",
                                 [](kuMessage&) { kuController::call("clearAllVariants", 1); });
  restore();
  EXPECT_EQ(managerDump(), "");
}

TEST_F(kuVariantsRestoreSetTest, ReceiverMayRemoveTheOtherSetsMidway) {
  addInactiveNode();
  const osg::NodePtr later = scene.materialGroup("Later", red);
  remember("Summer", {{"Later", "Green"}});
  const MessageReceiver receiver("nodeVariantAdded",
                                 [](kuMessage&) { kuVariants::removeVariantSet("Summer"); });
  restore();
  EXPECT_EQ(materialOf(later), "Red");
  EXPECT_THAT(kuVariants::getVariantSets(), IsEmpty());
}

TEST_F(kuVariantsRestoreSetTest, ReceiverMayEmptyTheSceneMidway) {
  addInactiveNode();
  scene.materialGroup("Later", red);
  const MessageReceiver receiver("nodeVariantAdded", [](kuMessage&) { SceneBuilder(); });
  restore();
  EXPECT_THAT(kuVariants::getVariantSets(), IsEmpty());
}

TEST_F(kuVariantsRestoreSetTest, RestoreInsideARestoreDoesNothing) {
  remember("Summer", {{"Place", "Green"}});
  const MessageReceiver receiver("variantSetAdded", [this](kuMessage&) {
    kuVariants::restoreSwitchNodes();
    EXPECT_EQ(materialOf(place), "Red");
  });
  restore();
  EXPECT_EQ(materialOf(place), "Green");
  EXPECT_THAT(log, ElementsAre("warning: A variant set with that name already exists."));
}

TEST_F(kuVariantsRestoreSetTest, InactiveNodeIsTakenIntoASetThatTheManagerDoesNotHoldToo) {
  addInactiveNode();
  kuVariantSet alone("Alone");
  kuVariants::captureVariantsFromRootNodes(&alone, {scene.root()}, true, false, false, false, false,
                                           false, false, false, true, true);
  ASSERT_EQ(alone.getNodeVariants().size(), 1u);
  EXPECT_EQ(alone.getNodeVariants().front().getVariant(), "Hidden");
  EXPECT_EQ(alone.getNodeVariants().front().getState(), "!Disable");
}
