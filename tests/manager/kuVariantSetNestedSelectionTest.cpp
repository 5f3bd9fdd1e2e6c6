#include <cstdint>
#include <functional>

#include "host/kernel/kuScenegraph.h"
#include "manager/kuVariants.h"
#include "model/kuVariantGroup.h"
#include "scene/kuNodeVariant.h"
#include "standalone/kernel/HostState.h"
#include "standalone/script/ClippingSettings.h"
#include "standalone/script/ScriptPolicy.h"
#include "support/MessageReceiver.h"
#include "support/SelectionScene.h"
#include "support/kuVariantsTestAccess.h"

// Selections that run inside a selection: from a receiver, and from the set's own script.

using namespace kuStandalone;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

using Lines = std::vector<std::string>;
using Action = std::function<void()>;

/** What the scripts of these tests call. */
Action& called() {
  static Action action;
  return action;
}
void callFromScript() { called()(); }

/** Python that calls back into the test. */
QString callingScript() {
  return QString("import ctypes\nctypes.PYFUNCTYPE(None)(%1)()")
      .arg(reinterpret_cast<std::uintptr_t>(&callFromScript));
}

class NestedSelection : public SelectionScene {
 protected:
  ~NestedSelection() override {
    ScriptPolicy::allow(false);
    called() = nullptr;
  }

  kuVariantSet& another(const char* name) {
    kuVariantSet* made = kuVariants::createVariantSet(name, false, nullptr);
    messages.clear();
    return *made;
  }

  /** Gives the present set a script that runs the action. */
  void callFromItsScript(Action action) {
    ScriptPolicy::allow(true);
    called() = std::move(action);
    set().setScript(callingScript());
  }
};

}  // namespace

TEST_F(NestedSelection, SetThatAReceiverSelectsRunsWholeWithinTheOther) {
  set().addNodeVariant("Roof", "Closed");
  set().addLightVariant("Lamp", "!Enable");
  another("Winter").addMaterialVariant("Paint", "Blue");
  {
    const MessageReceiver receiver(
        "nodeVariantSelected", [](kuMessage&) { kuVariants::selectVariantSet("Winter", false); });
    set().select(true, false, false);
  }
  EXPECT_THAT(
      messages.lines(),
      ElementsAre("variantsSetSelected/1 variantSetName:string=Summer",
                  "variantsNodesChanged/1 variantName:string=Roof visible:strings=[Closed] "
                  "invisible:strings=[Open] parent:string=Roof path:string=Roof|",
                  "nodeVariantSelected/1 variant:void*=kuVariant Roof",
                  "variantsSetSelected/1 variantSetName:string=Winter",
                  "variantsMaterialChanged/1 variantName:string=Paint "
                  "materialName:chars=Blue materialBaseName:string=Paint",
                  "materialVariantSelected/1 variant:void*=kuVariant Paint",
                  "variantsSetSelected/1 variantSetName:string=", "variantSetSelected/1 bare",
                  "variantsLightsChanged/1 variantName:string=Lamp enabled:strings=[Lamp] "
                  "disabled:strings=[] parent:string= path:string=",
                  "lightVariantSelected/1 variant:void*=kuVariant Lamp",
                  "variantsSetSelected/1 variantSetName:string=", "variantSetSelected/1 bare"));
  EXPECT_EQ(frames(), 2u);
}

TEST_F(NestedSelection, SelectionWithinUsesTheCacheThatIsOpenAndLeavesItOpen) {
  kuVariantSet& winter = another("Winter");
  for (int i = 0; i < 4; ++i) {
    set().addNodeVariant(QString::number(i), "s");
    winter.addNodeVariant(QString::number(i), "s");
  }
  bool openAfterTheInner = false;
  {
    int depth = 0;
    const MessageReceiver receiver("variantsSetSelected", [&](kuMessage&) {
      if (++depth != 1) return;
      winter.select(true, false, false);
      openAfterTheInner = kuScenegraph::hasFindCache();
    });
    set().select(true, false, false);
  }
  EXPECT_TRUE(openAfterTheInner);
  EXPECT_EQ(HostState::the().findCacheOpenings, 1u);
  EXPECT_FALSE(kuScenegraph::hasFindCache());
}

TEST_F(NestedSelection, SequentialSetSelectedWithinItsOwnAnimationStartCountsBoth) {
  for (const char* name : {"A", "B", "C"})
    set().addAnimation(name);
  set().setSequentialAnimation(true);
  {
    int depth = 0;
    const MessageReceiver receiver("animationStart", [&](kuMessage&) {
      if (++depth == 1) set().select(true, false, false);
    });
    set().select(true, false, false);
  }
  // The cursor moves on after the message, so the inner selection starts the same animation.
  EXPECT_THAT(messages.linesOf("animationStart"),
              ElementsAre("animationStart/1 animation-name:string=A instantaneous:bool=false",
                          "animationStart/1 animation-name:string=A instantaneous:bool=false"));
  EXPECT_EQ(kuVariantsTestAccess::animationCursor(set()), 2);
}

TEST_F(NestedSelection, ScriptThatSelectsItsOwnSetRunsItWholeWithin) {
  set().addAnimation("A");
  int depth = 0;
  callFromItsScript([&] {
    if (++depth < 3) kuVariants::selectVariantSet("Summer", false);
  });
  set().select(true, false, false);
  EXPECT_EQ(depth, 3);
  const std::string noSuchAnimation = "warning: There is no animation 'A'";
  EXPECT_THAT(log, ElementsAre(noSuchAnimation, noSuchAnimation, noSuchAnimation));
  EXPECT_EQ(frames(), 3u);
  const Lines& lines = messages.lines();
  ASSERT_EQ(lines.size(), 12u);
  for (int i = 0; i < 3; ++i)
    EXPECT_EQ(lines[i], "variantsSetSelected/1 variantSetName:string=Summer");
  for (int i = 3; i < 12; i += 3) {
    EXPECT_EQ(lines[i], "animationStart/1 animation-name:string=A instantaneous:bool=false");
    EXPECT_EQ(lines[i + 1], "variantsSetSelected/1 variantSetName:string=");
    EXPECT_EQ(lines[i + 2], "variantSetSelected/1 bare");
  }
}

TEST_F(NestedSelection, ScriptThatRemovesItsOwnSetIsFollowedByTheRestOfTheSet) {
  fill();
  callFromItsScript([] { kuVariants::removeVariantSet("Summer"); });
  set().select(true, false, false);
  EXPECT_THAT(kuVariants::getVariantSets(), IsEmpty());
  EXPECT_EQ(ClippingSettings::the().position[0], 2);
  EXPECT_EQ(messages.linesOf("animationStart").size(), 2u);
  EXPECT_EQ(viewpoint(), "Rear");
  EXPECT_EQ(messages.lines().back(), "variantSetSelected/1 bare");
}

TEST_F(NestedSelection, ScriptRunAloneMayRemoveItsSet) {
  callFromItsScript([] { kuVariants::removeVariantSet("Summer"); });
  set().executeScript();
  EXPECT_THAT(kuVariants::getVariantSets(), IsEmpty());
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(NestedSelection, ScriptThatClearsEverythingAndSelectsAgainFindsNothing) {
  fill();
  callFromItsScript([] {
    kuController::call("clearAllVariants", 1);
    kuVariants::selectVariantSet("Summer", false);
  });
  kuVariants::selectVariantSet("Summer", false);
  EXPECT_EQ(messages.linesOf("variantSetSelected").size(), 1u);
  EXPECT_EQ(viewpoint(), "Rear");
}

TEST_F(NestedSelection, RemovalWithinASelectionWithinDisturbsNeitherAtAnyDepth) {
  fill();
  kuVariants::createVariantGroup("Seasons", false, true)->add(&set());
  int depth = 0;
  callFromItsScript([&] {
    ++depth;
    if (depth < 3) kuVariants::selectVariantSet("Summer", false);
    if (depth == 3) kuVariants::clearVariantSets();
  });
  set().select(true, false, false);
  EXPECT_EQ(messages.linesOf("variantSetSelected").size(), 3u);
  EXPECT_EQ(messages.linesOf("animationStart").size(), 6u);
  EXPECT_EQ(roof(), 1);
}

TEST_F(NestedSelection, SetRenamedDuringItsSelectionKeepsOn) {
  set().addNodeVariant("Roof", "Closed");
  {
    const MessageReceiver receiver("nodeVariantSelected", [](kuMessage&) {
      kuVariants::findVariantSet("Summer")->setName("Winter");
    });
    kuVariants::selectVariantSet("Summer", false);
  }
  EXPECT_EQ(messages.linesOf("variantsSetSelected"),
            (Lines{"variantsSetSelected/1 variantSetName:string=Summer",
                   "variantsSetSelected/1 variantSetName:string="}));
  EXPECT_EQ(messages.lines().back(), "variantSetSelected/1 bare");
}

TEST_F(NestedSelection, VariantRenamedDuringTheSelectionIsLookedUpByItsNewName) {
  for (const char* name : {"A", "B"})
    kuVariants::createNodeVariant(scene.switchNode(name, 0, {"1", "2"}), false);
  set().addNodeVariant("Roof", "Closed");
  set().addNodeVariant("A", "2");
  set().addNodeVariant("late", "2");
  {
    const MessageReceiver receiver("nodeVariantSelected", [](kuMessage&) {
      if (kuNodeVariant* a = kuVariants::findNodeVariant("A")) a->setName("elsewhere");
      if (kuNodeVariant* b = kuVariants::findNodeVariant("B")) b->setName("late");
    });
    set().select(true, false, false);
  }
  EXPECT_THAT(messages.linesOf("nodeVariantSelected"),
              ElementsAre("nodeVariantSelected/1 variant:void*=kuVariant Roof",
                          "nodeVariantSelected/1 variant:void*=kuVariant late"));
}

TEST_F(NestedSelection, VariantRemovedAndMadeAnewDuringTheSelectionIsSelected) {
  set().addNodeVariant("Roof", "Closed");
  {
    const MessageReceiver receiver("variantsSetSelected", [this](kuMessage&) {
      kuVariants::removeNodeVariant("Roof");
      kuVariants::createNodeVariant(roofNode(), false);
    });
    set().select(true, false, false);
  }
  EXPECT_EQ(roof(), 1);
}

TEST_F(NestedSelection, StatesAddedToTheListUnderWayWaitForTheNextSelection) {
  kuVariants::createNodeVariant(scene.switchNode("Boot", 0, {"Shut", "Lifted"}), false);
  const auto boot = kuScenegraph::findNode("Boot").getNode();
  set().addNodeVariant("Roof", "Closed");
  {
    const MessageReceiver receiver("nodeVariantSelected", [this](kuMessage&) {
      for (int i = 0; i < 100; ++i)
        set().addNodeVariant(QString::number(i), "s");
      set().addNodeVariant("Boot", "Lifted");
    });
    set().select(true, false, false);
    EXPECT_EQ(SceneBuilder::choice(boot), 0);
    set().select(true, false, false);
    EXPECT_EQ(SceneBuilder::choice(boot), 1);
  }
}

TEST_F(NestedSelection, ListEmptiedUnderWayIsWalkedToItsEnd) {
  kuVariants::createNodeVariant(scene.switchNode("Boot", 0, {"Shut", "Lifted"}), false);
  set().addNodeVariant("Roof", "Closed");
  set().addNodeVariant("Boot", "Lifted");
  {
    const MessageReceiver receiver("nodeVariantSelected", [this](kuMessage&) { set().clear(); });
    set().select(true, false, false);
  }
  EXPECT_EQ(SceneBuilder::choice(kuScenegraph::findNode("Boot").getNode()), 1);
}
