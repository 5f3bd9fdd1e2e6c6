#include "scene/kuLightVariant.h"

#include "host/kernel/kuController.h"
#include "host/utils/kuLights.h"
#include "manager/kuVariants.h"
#include "support/BracketRecorder.h"
#include "support/MessageReceiver.h"
#include "support/VariantText.h"
#include "support/VariantsTest.h"
#include "support/kuVariantsTestAccess.h"

using ::testing::ElementsAre;
using ::testing::Pair;

namespace {

class kuLightVariantTest : public VariantsTest {
 protected:
  /** A variant that the manager owns, bound to the nodes of that name. */
  static kuLightVariant& bound(const QString& name) {
    kuLightVariant& variant = *kuVariants::createLightVariant(name, false);
    variant.setNode(name);
    return variant;
  }
  static const std::string Selected;
};
const std::string kuLightVariantTest::Selected =
    "lightVariantSelected/1 variant:void*=kuVariant Lamp";

TEST_F(kuLightVariantTest, ALightGivesThreeOptionsAndItsStateAsDefault) {
  const kuLightVariant off(scene.light("Lamp", false));
  ASSERT_EQ(off.getOptions().size(), 3u);
  EXPECT_EQ(off.getOptions()[0].getName(), "!Enable");
  EXPECT_EQ(off.getOptions()[1].getName(), "!Disable");
  EXPECT_EQ(off.getOptions()[2].getName(), "!Toggle");
  EXPECT_FALSE(off.getOptions()[0].getAction());
  EXPECT_FALSE(off.getOptions()[1].getAction());
  EXPECT_TRUE(off.getOptions()[2].getAction());
  EXPECT_EQ(off.getDefault(), "!Disable");
  EXPECT_EQ(off.getNode(), "Lamp");
  EXPECT_EQ(kuLightVariant(scene.light("Other", true)).getDefault(), "!Enable");
}

TEST_F(kuLightVariantTest, ANodeThatIsNoLightGivesTheNameAlone) {
  const kuLightVariant variant(scene.group("Lamp"));
  EXPECT_EQ(variant.getName(), "Lamp");
  EXPECT_TRUE(variant.getOptions().empty());
  EXPECT_EQ(variant.getDefault(), "");
}

TEST_F(kuLightVariantTest, ToggleTurnsTwoClonesOnce) {
  const osg::NodePtr lamp = scene.light("Lamp", false);
  scene.clone(lamp);
  kuLightVariant& variant = bound("Lamp");
  variant.select(QString("!Toggle"));
  EXPECT_TRUE(kuLights::getOn(lamp));
  EXPECT_THAT(messages.lines(),
              ElementsAre("variantsLightsChanged/1 variantName:string=Lamp "
                          "enabled:strings=[Lamp] disabled:strings=[] parent:string= path:string=",
                          Selected));
}

TEST_F(kuLightVariantTest, ToggleTurnsTwoLightsOfOneNameEach) {
  const osg::NodePtr first = scene.light("Lamp", false);
  const osg::NodePtr second = scene.light("Lamp", true);
  bound("Lamp").select(QString("!Toggle"));
  EXPECT_TRUE(kuLights::getOn(first));
  EXPECT_FALSE(kuLights::getOn(second));
  EXPECT_THAT(messages.lines(),
              ElementsAre("variantsLightsChanged/1 variantName:string=Lamp "
                          "enabled:strings=[Lamp] disabled:strings=[] parent:string= path:string=",
                          "variantsLightsChanged/1 variantName:string=Lamp "
                          "enabled:strings=[] disabled:strings=[Lamp] parent:string= path:string=",
                          Selected));
}

TEST_F(kuLightVariantTest, TheFirstLightAnswersWhereOtherNodesComeBefore) {
  scene.group("Lamp");
  scene.light("Lamp", true);
  scene.group("Lamp");
  kuLightVariant& variant = bound("Lamp");
  EXPECT_EQ(variant.getCurrent(), "!Enable");
  variant.updateVariants();
  EXPECT_EQ(variant.getOptions().size(), 3u);
  EXPECT_EQ(variant.getDefault(), "!Enable");
}

TEST_F(kuLightVariantTest, ALightThatStandsAsAskedIsSetAndAnnouncedAllTheSame) {
  scene.light("Lamp", true);
  kuLightVariant& variant = bound("Lamp");
  const BracketRecorder recorder;
  variant.select(QString("!Enable"));
  EXPECT_THAT(recorder.brackets(), ElementsAre(Pair("UberLight", osg::FieldMask(1) << 8)));
  variant.select(QString("!Disable"));
  variant.select(QString("!Disable"));
  EXPECT_EQ(recorder.brackets().size(), 3u);
  EXPECT_EQ(messages.linesOf("variantsLightsChanged").size(), 3u);
}

TEST_F(kuLightVariantTest, TheLightIsSwitchedBeforeItIsTold) {
  const osg::NodePtr lamp = scene.light("Lamp", true);
  kuLightVariant& variant = bound("Lamp");
  std::vector<bool> on;
  const MessageReceiver receiver("variantsLightsChanged",
                                 [&](kuMessage&) { on.push_back(kuLights::getOn(lamp)); });
  for (const char* state : {"!Disable", "!Enable", "!Toggle"})
    variant.select(QString(state));
  EXPECT_THAT(on, ElementsAre(false, true, false));
}

TEST_F(kuLightVariantTest, DisableTurnsOff) {
  const osg::NodePtr lamp = scene.light("Lamp", true);
  bound("Lamp").select(QString("!Disable"));
  EXPECT_FALSE(kuLights::getOn(lamp));
}

TEST_F(kuLightVariantTest, AnotherStateOnlyEndsTheSelection) {
  const osg::NodePtr lamp = scene.light("Lamp", true);
  bound("Lamp").select(QString("Child"));
  EXPECT_TRUE(kuLights::getOn(lamp));
  EXPECT_THAT(messages.lines(), ElementsAre(Selected));
  EXPECT_TRUE(log.empty());
}

TEST_F(kuLightVariantTest, UpdateLosesHotkeysAndDefault) {
  scene.light("Lamp", true);
  kuLightVariant& variant = bound("Lamp");
  variant.add("!Enable", "Ctrl+A");
  variant.setDefault(QString("!Disable"));
  variant.updateVariants();
  EXPECT_EQ(variant.find("!Enable")->getHotkey(), "");
  EXPECT_EQ(variant.getDefault(), "!Enable");
}

TEST_F(kuLightVariantTest, PathLeadsFromTheSceneToTheLight) {
  const osg::NodePtr lamp = scene.light("Lamp", true, scene.group("Car"));
  EXPECT_EQ(kuVariantsTestAccess::lightPath(lamp), "Car|Lamp|");
}

TEST_F(kuLightVariantTest, UpdateWithoutALightKeepsTheDefault) {
  kuLightVariant& variant = bound("Lamp");
  variant.add("!Enable", "");
  variant.setDefault(QString("!Disable"));
  variant.updateVariants();
  EXPECT_TRUE(variant.getOptions().empty());
  EXPECT_EQ(variant.getDefault(), "!Disable");
  EXPECT_EQ(variant.getCurrent(), "");
}

TEST_F(kuLightVariantTest, TheMessageNamesTheVariantAndTheLightEach) {
  scene.light("Bulb", true, scene.group("Car"));
  kuLightVariant& variant = *kuVariants::createLightVariant("Lamp", false);
  variant.setNode("Bulb");
  variant.select(QString("!Disable"));
  EXPECT_THAT(messages.lines(),
              ElementsAre("variantsLightsChanged/1 variantName:string=Lamp "
                          "enabled:strings=[] disabled:strings=[Bulb] parent:string= path:string=",
                          Selected));
}

TEST_F(kuLightVariantTest, ClonesBetweenOtherLightsAreThinnedOut) {
  const osg::NodePtr first = scene.light("Lamp", false);
  const osg::NodePtr second = scene.light("Lamp", true);
  scene.clone(first);
  scene.clone(first);
  scene.clone(second);
  const osg::NodePtr third = scene.light("Lamp", false);
  bound("Lamp").select(QString("!Toggle"));
  EXPECT_TRUE(kuLights::getOn(first));
  EXPECT_FALSE(kuLights::getOn(second));
  EXPECT_TRUE(kuLights::getOn(third));
  const std::string on =
      "variantsLightsChanged/1 variantName:string=Lamp "
      "enabled:strings=[Lamp] disabled:strings=[] parent:string= path:string=";
  const std::string off =
      "variantsLightsChanged/1 variantName:string=Lamp "
      "enabled:strings=[] disabled:strings=[Lamp] parent:string= path:string=";
  EXPECT_THAT(messages.lines(), ElementsAre(on, off, on, Selected));
}

TEST_F(kuLightVariantTest, NodesThatAreNoLightsArePassedOver) {
  scene.group("Lamp");
  const osg::NodePtr lamp = scene.light("Lamp", false);
  bound("Lamp").select(QString("!Enable"));
  EXPECT_TRUE(kuLights::getOn(lamp));
  EXPECT_THAT(messages.lines(),
              ElementsAre("variantsLightsChanged/1 variantName:string=Lamp "
                          "enabled:strings=[Lamp] disabled:strings=[] parent:string= path:string=",
                          Selected));
}

TEST_F(kuLightVariantTest, WithoutANodeTheSelectionEndsAllTheSame) {
  bound("Lamp").select(QString("!Enable"));
  EXPECT_THAT(messages.lines(), ElementsAre(Selected));
  EXPECT_TRUE(log.empty());
}

TEST_F(kuLightVariantTest, KeywordsOfOtherKindsAndNearMissesChangeNothing) {
  const osg::NodePtr lamp = scene.light("Lamp", true);
  kuLightVariant& variant = bound("Lamp");
  const char* const states[] = {
      "",     "!All",    "!None",     "!Next",  "!Next (Loop)", "!Previous", "!Previous (Loop)",
      "Lamp", "!toggle", "!Disable ", "Disable"};
  for (const char* state : states) {
    messages.clear();
    variant.select(QString(state));
    EXPECT_TRUE(kuLights::getOn(lamp)) << state;
    EXPECT_THAT(messages.lines(), ElementsAre(Selected)) << state;
  }
}

TEST_F(kuLightVariantTest, CurrentFollowsTheLight) {
  const osg::NodePtr lamp = scene.light("Lamp", false);
  kuLightVariant& variant = bound("Lamp");
  EXPECT_EQ(variant.getCurrent(), "!Disable");
  kuLights::setOn(lamp, true);
  EXPECT_EQ(variant.getCurrent(), "!Enable");
}

TEST_F(kuLightVariantTest, UpdateListsTheThreeOptionsAnewWithTheirFlags) {
  scene.light("Lamp", false);
  kuLightVariant& variant = bound("Lamp");
  variant.add(true, "!Enable", "");
  variant.add("Other", "");
  variant.setDefault(QString("Other"));
  variant.updateVariants();
  EXPECT_THAT(optionTexts(variant), ElementsAre("!Enable", "!Disable", "!Toggle *"));
  EXPECT_EQ(variant.getDefault(), "!Disable");
}

TEST_F(kuLightVariantTest, CopyAndAssignmentHaveTheNodeToo) {
  const kuLightVariant variant(scene.light("Lamp", true));
  const kuLightVariant copy(variant);
  kuLightVariant assigned;
  EXPECT_EQ(assigned.getNode(), "");
  EXPECT_TRUE(assigned.getOptions().empty());
  assigned = variant;
  for (const kuLightVariant* other : {&copy, static_cast<const kuLightVariant*>(&assigned)}) {
    EXPECT_EQ(other->getNode(), "Lamp");
    EXPECT_EQ(other->getName(), "Lamp");
    EXPECT_EQ(other->getDefault(), "!Enable");
    EXPECT_THAT(optionTexts(*other), ElementsAre("!Enable", "!Disable", "!Toggle *"));
  }
}

/** What a receiver does to the variants in the midst of a selection. */
struct RemovalRow {
  const char* title;
  void (*remove)();
};

class LightVariantRemoval : public VariantsTest,
                            public ::testing::WithParamInterface<RemovalRow> {};

TEST_P(LightVariantRemoval, TheSelectionReachesEveryLightAllTheSame) {
  const osg::NodePtr first = scene.light("Lamp", false);
  const osg::NodePtr second = scene.light("Lamp", false);
  kuLightVariant& variant = *kuVariants::createLightVariant("Lamp", false);
  variant.setNode("Lamp");
  variant.setDefault(QString("!Enable"));
  const MessageReceiver receiver("variantsLightsChanged", [](kuMessage&) { GetParam().remove(); });
  messages.clear();
  variant.select();  // the state's text is the variant's own
  EXPECT_EQ(kuVariants::findLightVariant("Lamp"), nullptr);
  EXPECT_TRUE(kuLights::getOn(first));
  EXPECT_TRUE(kuLights::getOn(second));
  const std::string changed =
      "variantsLightsChanged/1 variantName:string=Lamp "
      "enabled:strings=[Lamp] disabled:strings=[] parent:string= path:string=";
  EXPECT_THAT(messages.linesOf("variantsLightsChanged"), ElementsAre(changed, changed));
  EXPECT_THAT(messages.linesOf("lightVariantSelected"),
              ElementsAre("lightVariantSelected/1 variant:void*=unlisted"));
}

INSTANTIATE_TEST_SUITE_P(
    kuLightVariant, LightVariantRemoval,
    ::testing::Values(RemovalRow{"TheVariant", [] { kuVariants::removeLightVariant("Lamp"); }},
                      RemovalRow{"AllVariants", [] { kuVariants::clearLightVariants(); }},
                      RemovalRow{"Everything", [] { kuController::call("clearAllVariants", 1); }}),
    [](const auto& row) { return std::string(row.param.title); });

TEST_F(kuLightVariantTest, ReceiverThatRenamesTheVariantFindsTheNewNameAtTheNextLight) {
  kuLightVariant variant(scene.light("Lamp", false));
  scene.light("Lamp", false);
  std::vector<std::string> told;
  const MessageReceiver receiver("variantsLightsChanged", [&](kuMessage& message) {
    std::string name;
    message.get("variantName", name);
    told.push_back(name);
    variant.setName("Renamed");
  });
  variant.select(QString("!Enable"));
  EXPECT_THAT(told, ElementsAre("Lamp", "Renamed"));
}

}  // namespace
