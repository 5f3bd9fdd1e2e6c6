#include "scene/kuOverlayVariant.h"

#include <memory>

#include "host/services/kuKernelServiceFactory.h"
#include "host/services/kuSceneplateService.h"
#include "support/BracketRecorder.h"
#include "support/MessageReceiver.h"
#include "support/MessageRecorder.h"
#include "support/SceneTest.h"
#include "support/VariantText.h"
#include "support/kuVariantsTestAccess.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

using Texts = std::vector<std::string>;

class OverlayVariant : public SceneTest {
 protected:
  /** Three sceneplates, none of them visible. */
  osg::NodePtr darkSwitch(int choice) {
    const osg::NodePtr node = scene.sceneplateSwitch("Plates", choice, {"X", "Y", "Z"});
    for (unsigned i = 0; i < 3; ++i)
      SceneBuilder::setActive(node->getChild(i), false);
    return node;
  }

  static std::vector<bool> flags(const osg::NodePtr& node) {
    std::vector<bool> result;
    for (unsigned i = 0; i < node->getNChildren(); ++i) {
      result.push_back(node->getChild(i)->getActive());
    }
    return result;
  }

  MessageRecorder messages{[](const void* pointer) {
    return static_cast<const kuVariant*>(pointer)->getName().toStdString();
  }};
};

TEST_F(OverlayVariant, DefaultMadeAndNullNodeGiveEmptyVariants) {
  EXPECT_THAT(optionTexts(kuOverlayVariant()), IsEmpty());
  EXPECT_THAT(optionTexts(kuOverlayVariant(osg::NodePtr())), IsEmpty());
}

TEST_F(OverlayVariant, SwitchListsKeywordsThenChildren) {
  const kuOverlayVariant variant(scene.sceneplateSwitch("Plates", 1, {"X", "Y", "X"}));
  EXPECT_EQ(variant.getName(), "Plates");
  EXPECT_EQ(variant.getOverlay(), "Plates");
  EXPECT_EQ(variant.getDefault(), "Y");
  EXPECT_EQ(optionTexts(variant), (Texts{"!All", "!None", "!Next *", "!Next (Loop) *",
                                         "!Previous *", "!Previous (Loop) *", "X", "Y"}));
}

TEST_F(OverlayVariant, SwitchAtAllNoneOrBeyondHasTheDefaultNone) {
  for (const int choice : {-3, -2, -1, 1}) {
    EXPECT_EQ(kuOverlayVariant(scene.sceneplateSwitch("P", choice, {"X"})).getDefault(), "!None")
        << choice;
  }
}

TEST_F(OverlayVariant, SinglePlateListsOnOffAndToggle) {
  const osg::NodePtr plate = scene.sceneplate("Logo");
  EXPECT_EQ(optionTexts(kuOverlayVariant(plate)), (Texts{"!Enable", "!Disable", "!Toggle *"}));
  EXPECT_EQ(kuOverlayVariant(plate).getDefault(), "!Enable");
  SceneBuilder::setActive(plate, false);
  EXPECT_EQ(kuOverlayVariant(plate).getDefault(), "!Disable");
}

// Selection.

TEST_F(OverlayVariant, SelectedChildBecomesVisibleAndTheFormerKeepsItsFlag) {
  const osg::NodePtr node = darkSwitch(0);
  SceneBuilder::setActive(node->getChild(0), true);
  kuOverlayVariant(node).select(QString("Y"));
  EXPECT_EQ(SceneBuilder::choice(node), 1);
  EXPECT_THAT(flags(node), ElementsAre(true, true, false));
  EXPECT_THAT(messages.lines(), ElementsAre("overlayVariantSelected/1 variant:void*=Plates"));
}

TEST_F(OverlayVariant, ChildIsMadeVisibleBeforeItIsChosenAndTheSelectionToldLast) {
  const osg::NodePtr node = darkSwitch(0);
  const BracketRecorder recorder;
  std::size_t closedWhenTold = 99;
  const MessageReceiver receiver("overlayVariantSelected",
                                 [&](kuMessage&) { closedWhenTold = recorder.brackets().size(); });
  kuOverlayVariant(node).select(QString("Y"));
  EXPECT_THAT(recorder.brackets(), ElementsAre(::testing::Pair("Node", ::testing::_),
                                               ::testing::Pair("Switch", ::testing::_)));
  EXPECT_EQ(closedWhenTold, 2u);
}

TEST_F(OverlayVariant, OfTwoPlatesOfOneNameTheFirstAloneIsReached) {
  const osg::NodePtr first = scene.sceneplate("Logo");
  const osg::NodePtr second = scene.sceneplate("Logo");
  kuOverlayVariant(first).select(QString("!Disable"));
  EXPECT_FALSE(first->getActive());
  EXPECT_TRUE(second->getActive());
}

TEST_F(OverlayVariant, AllOnThreeChildrenChangesNoFlag) {
  const osg::NodePtr node = darkSwitch(0);
  kuOverlayVariant(node).select(QString("!All"));
  EXPECT_EQ(SceneBuilder::choice(node), -2);
  EXPECT_THAT(flags(node), ElementsAre(false, false, false));
}

TEST_F(OverlayVariant, NoneChangesNoFlag) {
  const osg::NodePtr node = darkSwitch(0);
  kuOverlayVariant(node).select(QString("!None"));
  EXPECT_EQ(SceneBuilder::choice(node), -1);
  EXPECT_THAT(flags(node), ElementsAre(false, false, false));
}

TEST_F(OverlayVariant, UnknownStateAppliesThePresentChoiceAgain) {
  const std::vector<std::pair<int, std::vector<bool>>> expected = {{-2, {false, false, false}},
                                                                   {-1, {false, false, false}},
                                                                   {1, {false, true, false}},
                                                                   {7, {false, false, false}}};
  for (const auto& [choice, visible] : expected) {
    scene = SceneBuilder();
    const osg::NodePtr node = darkSwitch(choice);
    kuOverlayVariant(node).select(QString("Gone"));
    EXPECT_EQ(SceneBuilder::choice(node), choice);
    EXPECT_EQ(flags(node), visible) << choice;
  }
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(OverlayVariant, NextFromAllShowsTheFirstChild) {
  const osg::NodePtr node = darkSwitch(-2);
  kuOverlayVariant(node).select(QString("!Next"));
  EXPECT_EQ(SceneBuilder::choice(node), 0);
  EXPECT_THAT(flags(node), ElementsAre(true, false, false));
}

TEST_F(OverlayVariant, StepsOnASwitchWithoutChildrenShowNone) {
  const osg::NodePtr node = scene.sceneplateSwitch("Plates", 0, {});
  kuOverlayVariant(node).select(QString("!Previous (Loop)"));
  EXPECT_EQ(SceneBuilder::choice(node), -1);
  kuOverlayVariant(node).select(QString("!Next"));
  EXPECT_EQ(SceneBuilder::choice(node), -1);
}

TEST_F(OverlayVariant, EnableDisableAndToggleWorkOnASwitchTooAndLeaveItsChoice) {
  const osg::NodePtr node = darkSwitch(1);
  kuOverlayVariant variant(node);
  variant.select(QString("!Disable"));
  EXPECT_FALSE(node->getActive());
  variant.select(QString("!Toggle"));
  EXPECT_TRUE(node->getActive());
  variant.select(QString("!Toggle"));
  EXPECT_FALSE(node->getActive());
  variant.select(QString("!Enable"));
  EXPECT_TRUE(node->getActive());
  EXPECT_EQ(SceneBuilder::choice(node), 1);
  EXPECT_THAT(flags(node), ElementsAre(false, false, false));
}

TEST_F(OverlayVariant, DisabledPlateIsFoundDisabled) {
  kuOverlayVariant variant(scene.sceneplate("Logo"));
  EXPECT_EQ(variant.getCurrent(), "!Enable");
  variant.select(QString("!Disable"));
  EXPECT_EQ(variant.getCurrent(), "!Disable");
}

TEST_F(OverlayVariant, OtherStatesOfASinglePlateAreSilent) {
  const osg::NodePtr plate = scene.sceneplate("Logo");
  for (const char* state : {"!All", "!None", "!Next", "Gone", ""}) {
    kuOverlayVariant(plate).select(QString(state));
  }
  EXPECT_TRUE(plate->getActive());
  EXPECT_THAT(log, IsEmpty());
  EXPECT_EQ(messages.linesOf("overlayVariantSelected").size(), 5u);
}

TEST_F(OverlayVariant, MissingNodeOnlyTellsOfTheSelection) {
  kuOverlayVariant variant(scene.sceneplate("Logo"));
  variant.setOverlay("Gone");
  variant.select(QString("!Disable"));
  EXPECT_EQ(variant.getCurrent(), "");
  EXPECT_THAT(messages.lines(), ElementsAre("overlayVariantSelected/1 variant:void*=Logo"));
}

TEST_F(OverlayVariant, MissingServiceIsPrintedAndTheSelectionTold) {
  auto& services = kuKernelServiceFactory::the();
  auto* const service = services.getService<kuSceneplateService>();
  const osg::NodePtr plate = scene.sceneplate("Logo");
  kuOverlayVariant variant(plate);
  services.unregisterService<kuSceneplateService>();
  ::testing::internal::CaptureStderr();
  variant.select(QString("!Disable"));
  const std::string printed = ::testing::internal::GetCapturedStderr();
  services.registerService(service);
  EXPECT_THAT(printed, ::testing::HasSubstr("couldn't find class"));
  EXPECT_TRUE(plate->getActive());
  EXPECT_THAT(messages.lines(), ElementsAre("overlayVariantSelected/1 variant:void*=Logo"));
}

class OverlayVariantReceivers : public SceneTest {};

TEST_F(OverlayVariantReceivers, ReceiverMayDeleteTheVariant) {
  const osg::NodePtr plate = scene.sceneplate("Logo");
  auto variant = std::make_unique<kuOverlayVariant>(plate);
  variant->setDefault(QString("!Disable"));
  const MessageReceiver receiver("overlayVariantSelected", [&](kuMessage&) { variant.reset(); });
  variant->select();
  EXPECT_FALSE(variant);
  EXPECT_FALSE(plate->getActive());
}

// Reading and rebuilding.

TEST_F(OverlayVariant, CurrentOfASwitchTellsAllFromNoneAndNamesTheChild) {
  const std::vector<std::pair<int, const char*>> expected = {{-3, ""}, {-2, "!All"}, {-1, "!None"},
                                                             {0, "X"}, {2, "Z"},     {3, ""}};
  for (const auto& [choice, state] : expected) {
    scene = SceneBuilder();
    EXPECT_EQ(kuOverlayVariant(darkSwitch(choice)).getCurrent(), state) << choice;
  }
}

TEST_F(OverlayVariant, UpdateKeepsHotkeysAndFlagsAndDropsWhatHasGone) {
  kuOverlayVariant variant(scene.sceneplateSwitch("Plates", -1, {"X"}));
  variant.find("!Next")->setHotkey("F5");
  variant.find("!Previous")->setAction(false);
  variant.find("X")->setAction(true);
  variant.add("Gone", "F7");
  variant.updateVariants();
  EXPECT_EQ(optionTexts(variant), (Texts{"!All", "!None", "!Next * [F5]", "!Next (Loop) *",
                                         "!Previous *", "!Previous (Loop) *", "X *"}));
}

TEST_F(OverlayVariant, UpdateBringsUnseenStepsBackAsNormalOptions) {
  scene.sceneplateSwitch("Plates", 0, {"X"});
  scene.sceneplate("Logo");
  kuOverlayVariant variant;
  variant.setOverlay("Plates");
  variant.updateVariants();
  EXPECT_EQ(optionTexts(variant), (Texts{"!All", "!None", "!Next", "!Next (Loop)", "!Previous",
                                         "!Previous (Loop)", "X"}));
  kuOverlayVariant logo;
  logo.setOverlay("Logo");
  logo.updateVariants();
  EXPECT_EQ(optionTexts(logo), (Texts{"!Enable", "!Disable", "!Toggle"}));
}

TEST_F(OverlayVariant, UpdateOfASinglePlateKeepsHotkeysAndTakesTheDefaultFromItsFlag) {
  const osg::NodePtr plate = scene.sceneplate("Logo");
  kuOverlayVariant variant(plate);
  variant.find("!Toggle")->setHotkey("F5");
  variant.find("!Toggle")->setAction(false);
  variant.setDefault(QString("Gone"));
  SceneBuilder::setActive(plate, false);
  variant.updateVariants();
  EXPECT_EQ(optionTexts(variant), (Texts{"!Enable", "!Disable", "!Toggle * [F5]"}));
  EXPECT_EQ(variant.getDefault(), "!Disable");
}

TEST_F(OverlayVariant, CurrentAndUpdateLookAtTheFirstNodeAlone) {
  const osg::NodePtr first = scene.sceneplate("Logo");
  kuOverlayVariant variant(scene.sceneplateSwitch("Logo", 0, {"X"}));
  SceneBuilder::setActive(first, false);
  EXPECT_EQ(variant.getCurrent(), "!Disable");
  variant.updateVariants();
  EXPECT_EQ(optionTexts(variant), (Texts{"!Enable", "!Disable", "!Toggle"}));
}

TEST_F(OverlayVariant, UpdateTakesTheDefaultTwoOptionsBehindTheChoice) {
  const std::vector<std::pair<int, const char*>> expected = {
      {-2, "!None"}, {-1, "!None"}, {0, "!Next"}, {4, "A"}, {5, "!None"}};
  for (const auto& [choice, state] : expected) {
    scene = SceneBuilder();
    kuOverlayVariant variant(scene.sceneplateSwitch("P", choice, {"A", "B", "C", "D", "E"}));
    variant.setDefault(QString());
    variant.updateVariants();
    EXPECT_EQ(variant.getDefault(), state) << choice;
  }
}

TEST_F(OverlayVariant, UpdateRestoresTheOldDefaultUnlessItIsGoneOrAnAction) {
  const osg::NodePtr node = darkSwitch(0);
  const std::vector<std::pair<const char*, const char*>> expected = {
      {"Y", "Y"}, {"Gone", "!Next"}, {"!Previous", "!Next"}};
  for (const auto& [before, after] : expected) {
    kuOverlayVariant variant(node);
    variant.setDefault(QString(before));
    variant.updateVariants();
    EXPECT_EQ(variant.getDefault(), after) << before;
  }
}

TEST_F(OverlayVariant, UpdateWithoutANodeEmptiesTheOptionsAndKeepsTheDefault) {
  kuOverlayVariant variant(scene.sceneplate("Logo"));
  variant.setOverlay("Gone");
  variant.updateVariants();
  EXPECT_THAT(optionTexts(variant), IsEmpty());
  EXPECT_EQ(variant.getDefault(), "!Enable");
}

// What tells of nodes.

TEST_F(OverlayVariant, PathEndsBelowTheSceneplateRootAndAtANodeNamedRoot) {
  const osg::NodePtr node = darkSwitch(0);
  EXPECT_EQ(kuVariantsTestAccess::overlayPath(node->getChild(1)), "Plates|Y|");
  EXPECT_EQ(kuVariantsTestAccess::overlayPath(scene.sceneplateRoot()), "");
  const osg::NodePtr cut = scene.sceneplateSwitch("Root", 0, {"X"});
  EXPECT_EQ(kuVariantsTestAccess::overlayPath(cut->getChild(0)), "X|");
}

TEST_F(OverlayVariant, ChangedNodesAreToldUnderTheNameOfOverlays) {
  kuMessage ofSwitch;
  kuVariantsTestAccess::callOverlaysChanged(darkSwitch(1), ofSwitch);
  kuMessage ofPlate;
  kuVariantsTestAccess::callOverlaysChanged(scene.sceneplate("Logo"), ofPlate);
  EXPECT_THAT(messages.lines(),
              ElementsAre("variantsOverlaysChanged/1 visible:strings=[Y] invisible:strings=[X,Z] "
                          "parent:string=Plates path:string=Plates|",
                          "variantsOverlaysChanged/1 visible:strings=[Logo] invisible:strings=[] "
                          "parent:string=Sceneplates path:string=Logo|"));
}

}  // namespace
