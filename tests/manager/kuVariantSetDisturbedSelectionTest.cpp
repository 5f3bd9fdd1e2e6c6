#include <functional>

#include "host/kernel/kuController.h"
#include "host/utils/kuLights.h"
#include "manager/kuVariants.h"
#include "model/kuVariantGroup.h"
#include "standalone/kernel/MessageWatch.h"
#include "standalone/script/ClippingSettings.h"
#include "support/SelectionScene.h"

// Receivers that change or empty the manager in the midst of a selection. What dangles shows under
// the address sanitizer.

using namespace kuStandalone;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

using Lines = std::vector<std::string>;
using Action = std::function<void()>;

/** Runs an action once, during the call of that number (from 1). */
class AtCall {
 public:
  AtCall(int call, Action action)
      : _watch([this, call, action = std::move(action)](const PassedMessage& message) {
          if (_acting) return;
          names.push_back(message.name);
          if (int(names.size()) != call) return;
          _acting = true;
          action();
          _acting = false;
        }) {}

  /** Names of the messages, those of the action left out. */
  Lines names;

 private:
  bool _acting = false;
  MessageWatch _watch;
};

void removeSet() { kuVariants::removeVariantSet("Summer"); }
void clearSets() { kuVariants::clearVariantSets(); }
void clearEverything() { kuController::call("clearAllVariants", 1); }
void clearVariants() {
  kuVariants::clearNodeVariants();
  kuVariants::clearMaterialVariants();
  kuVariants::clearLightVariants();
  kuVariants::clearOverlayVariants();
  kuVariants::clearTransformVariants();
}

const Lines messagesOfASelection = {
    "variantsSetSelected",     "variantsNodesChanged",    "nodeVariantSelected",
    "variantsMaterialChanged", "materialVariantSelected", "variantsLightsChanged",
    "lightVariantSelected",    "overlayVariantSelected",  "animationStart",
    "animationStart",          "variantsSetSelected",     "variantSetSelected"};
const Lines messagesOfDefaults = {
    "variantsSetSelected",     "variantsNodesChanged",    "nodeVariantSelected",
    "variantsMaterialChanged", "materialVariantSelected", "variantsLightsChanged",
    "lightVariantSelected",    "variantsSetSelected",     "variantSetSelected"};

class DisturbedSelection : public SelectionScene {
 protected:
  /** A built scene with a full set in a group. */
  kuVariantSet& fresh() {
    build();
    fill();
    kuVariants::createVariantGroup("Seasons", false, true)->add(&set());
    return set();
  }

  void expectTheSceneSelected() const {
    EXPECT_EQ(roof(), 1);
    EXPECT_EQ(paint()->getChoice(), 1u);
    EXPECT_EQ(SceneBuilder::transformChoice(doorNode()), 1u);
    EXPECT_TRUE(kuLights::getOn(lampNode()));
    EXPECT_EQ(SceneBuilder::choice(badgeNode()), 1);
    EXPECT_EQ(viewpoint(), "Rear");
    EXPECT_EQ(ClippingSettings::the().position[0], 2);
  }
};

}  // namespace

TEST_F(DisturbedSelection, SetRemovedDuringAnyMessageStillSelectsTheSceneAndSendsTheRest) {
  for (const Action& remove : {Action(removeSet), Action(clearSets)}) {
    for (int call = 1; call <= int(messagesOfASelection.size()); ++call) {
      SCOPED_TRACE(call);
      kuVariantSet& selected = fresh();
      const AtCall disturbed(call, remove);
      selected.select(true, false, false);
      EXPECT_EQ(disturbed.names, messagesOfASelection);
      EXPECT_THAT(kuVariants::getVariantSets(), IsEmpty());
      EXPECT_THAT(kuVariants::findVariantGroup("Seasons")->getVariantSets(), IsEmpty());
      EXPECT_EQ(frames(), 1u);
      expectTheSceneSelected();
    }
  }
}

TEST_F(DisturbedSelection, ScriptOfASetThatIsGoneDoesNotRun) {
  for (int call = 1; call <= int(messagesOfASelection.size()); ++call) {
    SCOPED_TRACE(call);
    kuVariantSet& selected = fresh();
    const AtCall disturbed(call, removeSet);
    selected.select(true, false, false);
    const bool scriptWasRunBefore = call > 8;  // the overlay's is the last message before it
    EXPECT_EQ(ClippingSettings::the().hideScene, scriptWasRunBefore);
  }
}

TEST_F(DisturbedSelection, VariantsRemovedDuringAnyMessageAreSkippedAndTheSetGoesOn) {
  for (int call = 1; call <= int(messagesOfASelection.size()); ++call) {
    SCOPED_TRACE(call);
    kuVariantSet& selected = fresh();
    const AtCall disturbed(call, clearVariants);
    selected.select(true, false, false);
    const Lines& names = disturbed.names;
    ASSERT_GE(names.size(), 5u);
    EXPECT_THAT(Lines(names.end() - 4, names.end()),
                ElementsAre("animationStart", "animationStart", "variantsSetSelected",
                            "variantSetSelected"));
    EXPECT_EQ(viewpoint(), "Rear");
    EXPECT_TRUE(ClippingSettings::the().hideScene);
    EXPECT_EQ(roof(), call == 1 ? 0 : 1);
    EXPECT_EQ(SceneBuilder::choice(badgeNode()), call < 8 ? 0 : 1);
  }
}

TEST_F(DisturbedSelection, EverythingClearedDuringAnyMessageStillEndsTheSelection) {
  for (int call = 1; call <= int(messagesOfASelection.size()); ++call) {
    SCOPED_TRACE(call);
    kuVariantSet& selected = fresh();
    const AtCall disturbed(call, clearEverything);
    selected.select(true, false, false);
    const Lines& names = disturbed.names;
    ASSERT_GE(names.size(), 3u);
    EXPECT_THAT(Lines(names.end() - 2, names.end()),
                ElementsAre("variantsSetSelected", "variantSetSelected"));
    EXPECT_EQ(frames(), 1u);
    EXPECT_THAT(kuVariants::getVariantSets(), IsEmpty());
  }
}

TEST_F(DisturbedSelection, SelectionByNameSurvivesTheRemovalOfItsSet) {
  for (int call = 1; call <= int(messagesOfASelection.size()); ++call) {
    SCOPED_TRACE(call);
    fresh();
    const AtCall disturbed(call, removeSet);
    kuVariants::selectVariantSet("Summer", false);
    EXPECT_EQ(disturbed.names, messagesOfASelection);
  }
}

TEST_F(DisturbedSelection, DefaultsGoOnWhateverIsRemovedDuringAnyMessage) {
  for (const Action& remove :
       {Action(removeSet), Action(clearSets), Action(clearVariants), Action(clearEverything)}) {
    for (int call = 1; call <= int(messagesOfDefaults.size()); ++call) {
      SCOPED_TRACE(call);
      kuVariantSet& selected = fresh();
      const AtCall disturbed(call, remove);
      selected.selectDefault();
      const Lines& names = disturbed.names;
      ASSERT_GE(names.size(), 3u);
      EXPECT_THAT(Lines(names.end() - 2, names.end()),
                  ElementsAre("variantsSetSelected", "variantSetSelected"));
      EXPECT_EQ(frames(), 1u);
      if (kuVariants::findVariant(NodeVariantType, "Roof")) {
        EXPECT_EQ(names, messagesOfDefaults);
      }
    }
  }
}

TEST_F(DisturbedSelection, SetRemovedInASelectionWithinItsSelectionDisturbsNeither) {
  kuVariantSet& selected = fresh();
  const AtCall disturbed(3, [&] {
    const AtCall within(3, removeSet);
    kuVariants::selectVariantSet("Summer", false);
    EXPECT_EQ(within.names, messagesOfASelection);
  });
  selected.select(true, false, false);
  EXPECT_EQ(disturbed.names, messagesOfASelection);
  expectTheSceneSelected();
}

TEST_F(DisturbedSelection, ListThatChangesWhileItIsWalkedIsWalkedAsItWas) {
  for (const char* name : {"A", "B", "C"}) {
    kuVariants::createNodeVariant(scene.group(name), false);
    set().addNodeVariant(name, "!Enable");
  }
  messages.clear();
  const AtCall disturbed(2, [&] {  // at the first state's first message
    set().removeNodeVariant("B");
    set().addNodeVariant("Roof", "Closed");
    set().findNodeVariant("C")->setState("!Disable");
  });
  set().select(true, false, false);
  EXPECT_THAT(messages.linesOf("nodeVariantSelected"),
              ElementsAre("nodeVariantSelected/1 variant:void*=kuVariant A",
                          "nodeVariantSelected/1 variant:void*=kuVariant B",
                          "nodeVariantSelected/1 variant:void*=kuVariant C"));
  EXPECT_EQ(roof(), 0);
}

TEST_F(DisturbedSelection, ListThatIsStillToComeIsTakenAsItIsThen) {
  set().addNodeVariant("Roof", "Closed");
  const AtCall disturbed(2, [&] {
    set().addLightVariant("Lamp", "!Enable");
    set().addViewpoint("Front");
    set().addAnimation("Doors");
    set().setScript("setClippingHideScene(true)");
  });
  set().select(true, false, false);
  EXPECT_TRUE(kuLights::getOn(lampNode()));
  EXPECT_EQ(viewpoint(), "Front");
  EXPECT_TRUE(ClippingSettings::the().hideScene);
  EXPECT_EQ(messages.linesOf("animationStart").size(), 1u);
}

TEST_F(DisturbedSelection, AnimationsThatChangeWhileTheyStartAreStartedAsTheyWere) {
  for (const char* name : {"A", "B"})
    set().addAnimation(name);
  const AtCall disturbed(2, [&] {
    set().clearAnimations();
    set().addAnimation("C");
  });
  set().select(true, false, false);
  EXPECT_THAT(messages.linesOf("animationStart"),
              ElementsAre("animationStart/1 animation-name:string=A instantaneous:bool=false",
                          "animationStart/1 animation-name:string=B instantaneous:bool=false"));
}

TEST_F(DisturbedSelection, SequentialAnimationsThatGoWhileOneStartsLeaveTheCursorToWrap) {
  for (const char* name : {"A", "B"})
    set().addAnimation(name);
  set().setSequentialAnimation(true);
  {
    const AtCall disturbed(2, [&] { set().clearAnimations(); });
    set().select(true, false, false);
  }
  set().addAnimation("C");
  set().select(true, false, false);
  EXPECT_EQ(messages.linesOf("animationStart").back(),
            "animationStart/1 animation-name:string=C instantaneous:bool=false");
}
