// The other operation of the verifier: every set is selected once, and nothing is reported.

#include "VerifierTest.h"
#include "host/kernel/kuScenegraph.h"
#include "standalone/scene/Scene.h"
#include "support/MessageReceiver.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class VerifyKorvo : public VerifierTest {
 protected:
  /** @return what was printed */
  std::string run() {
    ::testing::internal::CaptureStdout();
    EXPECT_TRUE(verifier.verifyKorvo());
    return ::testing::internal::GetCapturedStdout();
  }

  static int roof() { return SceneBuilder::choice(kuScenegraph::findNode("Roof").getNode()); }
};

const std::string RoofOpen =
    "variantsNodesChanged/1 variantName:string=V visible:strings=[Open] "
    "invisible:strings=[Closed] parent:string=Roof path:string=Roof|";
const std::string RoofClosed =
    "variantsNodesChanged/1 variantName:string=V visible:strings=[Closed] "
    "invisible:strings=[Open] parent:string=Roof path:string=Roof|";
const std::string Selected = "nodeVariantSelected/1 variant:void*=kuVariant V";
const std::string End = "variantsSetSelected/1 variantSetName:string=";

TEST_F(VerifyKorvo, WithoutSetsTheAnswerIsTrueAndNothingHappens) {
  EXPECT_EQ(run(), "");
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(VerifyKorvo, SelectsEachSetAndThenItsDefaults) {
  nodeVariant("Roof", "Open", {"Open", "Closed"});
  variantSet("A").addNodeVariant("V", "Closed");
  variantSet("B");
  EXPECT_EQ(run(), "");
  EXPECT_THAT(
      messages.lines(),
      ElementsAre(End + "A", RoofClosed, Selected, End, "variantSetSelected/1 bare", End + "A",
                  RoofOpen, Selected, End, "variantSetSelected/1 variantSet:void*=kuVariantSet A",
                  End + "B", End, "variantSetSelected/1 bare", End + "B", End,
                  "variantSetSelected/1 variantSet:void*=kuVariantSet B"));
}

TEST_F(VerifyKorvo, LeavesTheSceneInTheDefaultsOfTheLastSet) {
  nodeVariant("Roof", "Closed", {"Open", "Closed"});
  nodeVariant("Car", "!Disable", {"!Enable", "!Disable"}, "C");
  variantSet("A").addNodeVariant("V", "Open");
  variantSet("B").addNodeVariant("C", "!Enable");
  run();
  EXPECT_EQ(roof(), 1);
  EXPECT_FALSE(kuScenegraph::findNode("Car").getNode()->getActive());
}

TEST_F(VerifyKorvo, RunsNoSideEffectOfTheSetButMovesTheCamera) {
  scene.camera("Front");
  kuVariantSet& set = variantSet("A");
  set.addAnimation("Drive");
  set.setScript("nothing that would run()");
  set.addViewpoint("Front");
  set.setDefaultViewpoint("Front");
  run();
  EXPECT_THAT(messages.linesOf("animationStart"), IsEmpty());
  EXPECT_THAT(log, IsEmpty());
  EXPECT_EQ(kuStandalone::Scene::the().activeViewpoint, "Front");
}

TEST_F(VerifyKorvo, SetsThatAReceiverRemovesMeanwhileAreLeftOut) {
  variantSet("A");
  variantSet("B");
  variantSet("C");
  const MessageReceiver receiver("variantSetSelected",
                                 [](kuMessage&) { kuVariants::removeVariantSet("B"); });
  run();
  EXPECT_THAT(messages.linesOf("variantsSetSelected"),
              ElementsAre(End + "A", End, End + "A", End, End + "C", End, End + "C", End));
}

TEST_F(VerifyKorvo, ASetThatItsOwnSelectionRemovesGetsNoDefaults) {
  nodeVariant("Roof", "Open", {"Open", "Closed"});
  variantSet("A").addNodeVariant("V", "Closed");
  const MessageReceiver receiver("nodeVariantSelected",
                                 [](kuMessage&) { kuVariants::removeVariantSet("A"); });
  run();
  EXPECT_THAT(messages.linesOf("variantsSetSelected"), ElementsAre(End + "A", End));
  EXPECT_EQ(roof(), 1);
}

TEST_F(VerifyKorvo, AllSetsMayBeClearedMeanwhile) {
  variantSet("A");
  variantSet("B");
  const MessageReceiver receiver("variantsSetSelected",
                                 [](kuMessage&) { kuVariants::clearVariantSets(); });
  run();
  EXPECT_THAT(messages.linesOf("variantsSetSelected"), ElementsAre(End + "A", End));
}

TEST_F(VerifyKorvo, SetsThatAReceiverAddsMeanwhileAreLeftOut) {
  variantSet("A");
  const MessageReceiver receiver("variantSetSelected", [](kuMessage&) {
    kuVariants::createVariantSet("New", false, nullptr);
  });
  run();
  EXPECT_TRUE(kuVariants::findVariantSet("New"));
  EXPECT_THAT(messages.linesOf("variantsSetSelected"), ElementsAre(End + "A", End, End + "A", End));
}

}  // namespace
