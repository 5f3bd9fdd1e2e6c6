// Receivers that change the manager in the midst of a capture.

#include <QTimer>

#include "capture/MaterialCaptureTest.h"
#include "host/kernel/kuController.h"
#include "support/ManagerDump.h"
#include "support/MessageReceiver.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class kuVariantsMaterialReentranceTest : public MaterialCaptureTest {
 protected:
  /** Captures into a new set with an action at every message of that name. */
  static void captureWith(const char* name, const char* message, MessageReceiver::Action action) {
    const MessageReceiver receiver(message, std::move(action));
    capture(name, true);
  }
  static void remove(const char* name) { kuVariants::removeVariantSet(name); }

  const osg::MaterialPtr red = scene.material("Red");
  const osg::MaterialPtr blue = scene.material("Blue");
  const osg::SwitchMaterialPtr paint = scene.switchMaterial("Paint", {blue}, 0);
  const osg::NodePtr roof = scene.geometry("Roof", red);
};

constexpr const char* variantAdded = "materialVariantAdded";
constexpr const char* nameWanted = "MaterialGetUniqueName";

}  // namespace

// The set that the one under capture is compared with.

TEST_F(kuVariantsMaterialReentranceTest, ReceiverMayRemoveTheSetThatGetsTheState) {
  setWith("A", {{"Roof", "Blue"}});
  captureWith("B", variantAdded, [](kuMessage&) { remove("A"); });
  EXPECT_THAT(sets(), ElementsAre("B: Roof=Switch | Switch=Red"));
}

TEST_F(kuVariantsMaterialReentranceTest, ReceiverMayRemoveTheSetWhenASwitchIsNamed) {
  setWith("A", {{"Roof", "Blue"}});
  captureWith("B", nameWanted, [](kuMessage&) { remove("A"); });
  EXPECT_THAT(sets(), ElementsAre("B: Roof=Switch | Switch=Red"));
}

TEST_F(kuVariantsMaterialReentranceTest, ReceiverMayRemoveTheSetWhoseSwitchGrows) {
  setWith("A", {{"Roof", "Paint"}});
  captureWith("B", variantAdded, [](kuMessage&) { remove("A"); });
  EXPECT_THAT(sets(), ElementsAre("B: Roof=Paint | Paint=Red"));
}

TEST_F(kuVariantsMaterialReentranceTest, ReceiverMayRemoveTheSetWhoseSwitchIsSplit) {
  scene.geometry("Hood", blue);
  for (const char* message : {variantAdded, nameWanted}) {
    bear(roof, red);
    setWith("A", {{"Roof", "Paint"}, {"Hood", "Paint"}});
    captureWith("B", message, [](kuMessage&) { remove("A"); });
    EXPECT_THAT(kuVariants::findVariantSet("A"), nullptr);
    EXPECT_EQ(kuVariants::findVariantSet("B")->getMaterialVariants().size(), 1u);
    kuVariants::clearVariantSets();
  }
}

TEST_F(kuVariantsMaterialReentranceTest, SetThatTakesTheRemovedOnesNameGetsNothing) {
  setWith("A", {{"Roof", "Blue"}});
  captureWith("B", variantAdded, [](kuMessage&) {
    remove("A");
    setWith("A", {});
  });
  EXPECT_THAT(sets(), ElementsAre("B: Roof=Switch | Switch=Red", "A:"));
}

TEST_F(kuVariantsMaterialReentranceTest, ReceiverMayRemoveALaterSet) {
  setWith("A", {{"Roof", "Blue"}});
  setWith("B", {{"Roof", "Blue"}});
  captureWith("C", variantAdded, [](kuMessage&) { remove("B"); });
  EXPECT_THAT(sets(), ElementsAre("A: Roof=Switch | Switch=Blue", "C: Roof=Switch | Switch=Red"));
}

TEST_F(kuVariantsMaterialReentranceTest,
       ReceiverThatRemovesAnEarlierSetMovesTheNextOnePastTheComparison) {
  setWith("A", {});
  setWith("B", {{"Roof", "Blue"}});
  setWith("C", {{"Roof", "Blue"}});
  captureWith("D", variantAdded, [](kuMessage&) { remove("A"); });
  EXPECT_THAT(sets(), ElementsAre("B: Roof=Switch | Switch=Blue", "C: Roof=Blue",
                                  "D: Roof=Switch | Switch=Red"));
}

// The new variant.

TEST_F(kuVariantsMaterialReentranceTest, VariantThatAReceiverRemovesGivesNoStates) {
  setWith("A", {{"Roof", "Blue"}});
  captureWith("B", variantAdded, [](kuMessage&) { kuVariants::removeMaterialVariant("Switch"); });
  EXPECT_THAT(sets(), ElementsAre("A: Roof=Switch", "B: Roof=Switch"));
  EXPECT_THAT(switches(), ElementsAre("Paint: *Blue", "Switch: *Red Blue"));
  EXPECT_THAT(kuVariants::getMaterialVariants(), IsEmpty());
}

TEST_F(kuVariantsMaterialReentranceTest, RemovedVariantOfAGrownSwitchGivesNoState) {
  setWith("A", {{"Roof", "Paint"}});
  captureWith("B", variantAdded, [](kuMessage&) { kuVariants::removeMaterialVariant("Paint"); });
  EXPECT_THAT(sets(), ElementsAre("A: Roof=Paint", "B: Roof=Paint"));
  EXPECT_THAT(switches(), ElementsAre("Paint: Blue *Red"));
}

TEST_F(kuVariantsMaterialReentranceTest, RemovedVariantOfASplitSwitchGivesNoStates) {
  scene.geometry("Hood", blue);
  setWith("A", {{"Roof", "Paint"}, {"Hood", "Paint"}}).addMaterialVariant("Paint", "Blue");
  kuVariantSet& b = setWith("B", {});
  const MessageReceiver receiver(variantAdded,
                                 [](kuMessage&) { kuVariants::removeMaterialVariant("Switch"); });
  captureInto(b, roof, true);
  EXPECT_THAT(sets(), ElementsAre("A: Hood=Paint Roof=Switch | Paint=Blue", "B: Roof=Switch"));
}

// The set under capture itself: the capture goes on for the other sets.

TEST_F(kuVariantsMaterialReentranceTest, ReceiverMayRemoveTheSetUnderCapture) {
  setWith("A", {{"Roof", "Blue"}});
  captureWith("B", variantAdded, [](kuMessage&) { remove("B"); });
  EXPECT_THAT(sets(), ElementsAre("A: Roof=Switch | Switch=Blue"));
  EXPECT_THAT(nodes(), ElementsAre("Roof: Switch"));
}

TEST_F(kuVariantsMaterialReentranceTest, ReceiverMayRemoveTheSetUnderCaptureWhenASwitchIsNamed) {
  setWith("A", {{"Roof", "Blue"}});
  captureWith("B", nameWanted, [](kuMessage&) { remove("B"); });
  EXPECT_THAT(sets(), ElementsAre("A: Roof=Switch | Switch=Blue"));
}

TEST_F(kuVariantsMaterialReentranceTest, ReceiverMayRemoveTheSetUnderCaptureWhenASwitchGrows) {
  setWith("A", {{"Roof", "Paint"}});
  captureWith("B", variantAdded, [](kuMessage&) { remove("B"); });
  EXPECT_THAT(sets(), ElementsAre("A: Roof=Paint"));
  EXPECT_THAT(switches(), ElementsAre("Paint: Blue *Red"));
}

TEST_F(kuVariantsMaterialReentranceTest, ReceiverMayRemoveTheSetUnderCaptureWhenASwitchIsSplit) {
  scene.geometry("Hood", blue);
  setWith("A", {{"Roof", "Paint"}, {"Hood", "Paint"}}).addMaterialVariant("Paint", "Blue");
  kuVariantSet& b = setWith("B", {});
  const MessageReceiver receiver(variantAdded, [](kuMessage&) { remove("B"); });
  captureInto(b, roof, true);
  EXPECT_THAT(sets(), ElementsAre("A: Hood=Paint Roof=Switch | Paint=Blue Switch=Blue"));
}

TEST_F(kuVariantsMaterialReentranceTest, ReceiverMayRemoveTheSetUnderCaptureAtAMaterialWithStates) {
  bear(roof, scene.presetMaterial("Preset", {"Dull"}, 0));
  scene.geometry("Hood", scene.switchMaterial("Gloss", {paint, paint}, 0));
  captureWith("A", variantAdded, [](kuMessage&) { remove("A"); });
  EXPECT_THAT(sets(), IsEmpty());
}

TEST_F(kuVariantsMaterialReentranceTest, SetOfTheSameNameIsNotTakenForTheOneUnderCapture) {
  setWith("A", {{"Roof", "Blue"}});
  captureWith("B", variantAdded, [](kuMessage&) {
    remove("B");
    setWith("B", {{"Roof", "Paint"}});
  });
  // It is one of the others now, and its switch becomes an entry.
  EXPECT_THAT(sets(), ElementsAre("A: Roof=Switch | Switch=Blue", "B: Roof=Switch | Switch=Paint"));
  EXPECT_THAT(switches(), ElementsAre("Paint: *Blue", "Switch: *Red Blue Paint"));
}

TEST_F(kuVariantsMaterialReentranceTest, ReceiverMayClearEverything) {
  for (const char* message : {variantAdded, nameWanted}) {
    bear(roof, red);
    setWith("A", {{"Roof", "Blue"}});
    captureWith("B", message, [](kuMessage&) { kuController::call("clearAllVariants", 1); });
    EXPECT_THAT(sets(), IsEmpty());
  }
}

TEST_F(kuVariantsMaterialReentranceTest, ReceiverMayRemoveTheSetAtEveryKindOfVariant) {
  scene.switchNode("Choice", 0, {"Only"});
  scene.transforms("Position", {"Here"}, 0, 0);
  scene.light("Lamp", true);
  SceneBuilder::setActive(scene.group("Hidden"), false);
  scene.sceneplateSwitch("Plate", 0, {"Text"});
  for (const char* message :
       {"nodeVariantAdded", "lightVariantAdded", "overlayVariantAdded", "transformVariantAdded"}) {
    kuController::call("clearAllVariants", 1);
    kuVariantSet* set = kuVariants::createVariantSet("A", false, nullptr);
    const MessageReceiver receiver(message, [](kuMessage&) { remove("A"); });
    kuVariants::captureVariantsFromRootNodes(set, {kuOpenSGUtils::getRoot()}, true, true, true,
                                             true, true, true, true, true, true, true);
    EXPECT_THAT(sets(), IsEmpty()) << message;
    EXPECT_THAT(messages.linesOf(message), ::testing::Not(IsEmpty()));
  }
}

TEST_F(kuVariantsMaterialReentranceTest, TimerMayRemoveTheSetUnderCapture) {
  bool fired = false;
  QTimer::singleShot(0, [&] {
    fired = true;
    kuVariants::clearVariantSets();
  });
  kuVariants::createAndCaptureVariantSet("A", "Group");
  EXPECT_TRUE(fired);
  EXPECT_EQ(managerDump(), "group Group\n");
}
