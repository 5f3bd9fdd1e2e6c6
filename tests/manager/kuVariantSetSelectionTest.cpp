#include "host/kernel/kuScenegraph.h"
#include "host/utils/kuLights.h"
#include "manager/kuVariants.h"
#include "scene/kuNodeVariant.h"
#include "standalone/animation/AnimationPlayer.h"
#include "standalone/kernel/HostState.h"
#include "standalone/kernel/MessageWatch.h"
#include "standalone/script/ClippingSettings.h"
#include "support/SelectionScene.h"

using namespace kuStandalone;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

using Lines = std::vector<std::string>;

/** The messages, and between them what else of a selection has come about since the last one. */
class Journal {
 public:
  explicit Journal(const MessageRecorder& messages)
      : _messages(messages), _watch([this](const PassedMessage&) {
          note();
          lines.push_back(_messages.lines().back());
        }) {}

  void note() {
    note("viewpoint " + Scene::the().activeViewpoint, _viewpoint);
    const ClippingSettings& clipping = ClippingSettings::the();
    note(clipping.hideScene ? "script ran" : "script did not run", _script);
    note("plane at " + std::to_string(int(clipping.position[0])), _plane);
    note(kuScenegraph::hasFindCache() ? "cache open" : "cache closed", _cache);
    note("frames " + std::to_string(HostState::the().renderRequests), _frames);
  }

  Lines lines;

 private:
  void note(const std::string& now, std::string& last) {
    if (now != last) lines.push_back("-- " + now);
    last = now;
  }

  const MessageRecorder& _messages;
  std::string _viewpoint = "viewpoint ", _script = "script did not run", _plane = "plane at 0",
              _cache = "cache closed", _frames = "frames 0";
  MessageWatch _watch;
};

class kuVariantSetSelectionTest : public SelectionScene {
 protected:
  void select() { set().select(true, false, false); }

  static std::uint64_t cachesOpened() { return HostState::the().findCacheOpenings; }

  Lines startedAnimations() const {
    Lines names;
    for (const std::string& line : messages.linesOf("animationStart"))
      names.push_back(line.substr(line.find('=') + 1, 1));
    return names;
  }
};

}  // namespace

TEST_F(kuVariantSetSelectionTest, WholeSelectionRunsInItsOrder) {
  fill();
  set().addNodeVariant("absent", "Closed");
  Journal journal(messages);
  set().select(true, false, true);
  journal.note();
  EXPECT_THAT(
      journal.lines,
      ElementsAre("-- cache open", "variantsSetSelected/1 variantSetName:string=Summer",
                  "variantsNodesChanged/1 variantName:string=Roof visible:strings=[Closed] "
                  "invisible:strings=[Open] parent:string=Roof path:string=Roof|",
                  "nodeVariantSelected/1 variant:void*=kuVariant Roof",
                  "variantsMaterialChanged/1 variantName:string=Paint materialName:chars=Blue "
                  "materialBaseName:string=Paint",
                  "materialVariantSelected/1 variant:void*=kuVariant Paint",
                  "variantsLightsChanged/1 variantName:string=Lamp enabled:strings=[Lamp] "
                  "disabled:strings=[] parent:string= path:string=",
                  "lightVariantSelected/1 variant:void*=kuVariant Lamp", "-- viewpoint Front",
                  "overlayVariantSelected/1 variant:void*=kuVariant Badge", "-- script ran",
                  "-- plane at 2",
                  "animationStart/1 animation-name:string=Doors instantaneous:bool=true",
                  "animationStart/1 animation-name:string=Wipers instantaneous:bool=true",
                  "-- viewpoint Rear", "-- cache closed",
                  "variantsSetSelected/1 variantSetName:string=", "variantSetSelected/1 bare",
                  "-- frames 1"));
  EXPECT_EQ(roof(), 1);
  EXPECT_EQ(paint()->getChoice(), 1u);
  EXPECT_EQ(SceneBuilder::transformChoice(doorNode()), 1u);
  EXPECT_TRUE(kuLights::getOn(lampNode()));
  EXPECT_EQ(SceneBuilder::choice(badgeNode()), 1);
  EXPECT_FALSE(lastFrameAtOnce());
}

TEST_F(kuVariantSetSelectionTest, EmptySetSendsAllItsMessages) {
  select();
  EXPECT_THAT(messages.lines(), ElementsAre("variantsSetSelected/1 variantSetName:string=Summer",
                                            "variantsSetSelected/1 variantSetName:string=",
                                            "variantSetSelected/1 bare"));
  EXPECT_EQ(frames(), 1u);
  EXPECT_EQ(cachesOpened(), 0u);
}

TEST_F(kuVariantSetSelectionTest, TransformComesBeforeLight) {
  set().addTransformVariant("Door", "Ajar");
  set().addLightVariant("Lamp", "!Enable");
  unsigned doorWhenLampChanges = 0;
  const MessageWatch watch([&](const PassedMessage& message) {
    if (message.name == "variantsLightsChanged") {
      doorWhenLampChanges = SceneBuilder::transformChoice(doorNode());
    }
  });
  select();
  EXPECT_EQ(doorWhenLampChanges, 1u);
}

TEST_F(kuVariantSetSelectionTest, TransformComesAfterNodeAndMaterial) {
  fill();
  std::vector<std::string> before;
  const MessageWatch watch([&](const PassedMessage& message) {
    if (SceneBuilder::transformChoice(doorNode()) == 0) before.push_back(message.name);
  });
  select();
  EXPECT_THAT(before,
              ElementsAre("variantsSetSelected", "variantsNodesChanged", "nodeVariantSelected",
                          "variantsMaterialChanged", "materialVariantSelected"));
}

TEST_F(kuVariantSetSelectionTest, StatesOfOneKindAreSelectedInTheOrderOfTheList) {
  for (const char* name : {"C", "A", "B"}) {
    kuVariants::createNodeVariant(scene.group(name), false);
    set().addNodeVariant(name, "!Enable");
  }
  messages.clear();
  select();
  EXPECT_THAT(messages.linesOf("nodeVariantSelected"),
              ElementsAre("nodeVariantSelected/1 variant:void*=kuVariant C",
                          "nodeVariantSelected/1 variant:void*=kuVariant A",
                          "nodeVariantSelected/1 variant:void*=kuVariant B"));
}

TEST_F(kuVariantSetSelectionTest, ThreeCountedStatesOpenNoCache) {
  set().addNodeVariant("a", "s");
  set().addMaterialVariant("b", "s");
  set().addLightVariant("c", "s");
  for (int i = 0; i < 10; ++i)
    set().addOverlayVariant(QString::number(i), "s");
  select();
  EXPECT_EQ(cachesOpened(), 0u);
}

TEST_F(kuVariantSetSelectionTest, FourCountedStatesOpenTheCacheAndCloseIt) {
  set().addNodeVariant("a", "s");
  set().addNodeVariant("b", "s");
  set().addMaterialVariant("c", "s");
  set().addLightVariant("d", "s");
  select();
  EXPECT_EQ(cachesOpened(), 1u);
  EXPECT_FALSE(kuScenegraph::hasFindCache());
}

TEST_F(kuVariantSetSelectionTest, HundredTransformStatesOpenNoCache) {
  for (int i = 0; i < 100; ++i)
    set().addTransformVariant(QString::number(i), "s");
  select();
  EXPECT_EQ(cachesOpened(), 0u);
}

TEST_F(kuVariantSetSelectionTest, CacheThatIsOpenStaysOpen) {
  for (int i = 0; i < 4; ++i)
    set().addNodeVariant(QString::number(i), "s");
  kuScenegraph::initFindCache();
  select();
  EXPECT_TRUE(kuScenegraph::hasFindCache());
  EXPECT_EQ(cachesOpened(), 1u);
  kuScenegraph::clearFindCache();
}

TEST_F(kuVariantSetSelectionTest, WithoutExecutionOnlyStatesAndFirstViewpointTakeEffect) {
  fill();
  set().setSequentialAnimation(true);
  set().select(false, false, false);
  EXPECT_EQ(roof(), 1);
  EXPECT_EQ(viewpoint(), "Front");
  EXPECT_FALSE(ClippingSettings::the().hideScene);
  EXPECT_EQ(ClippingSettings::the().position[0], 0);
  EXPECT_THAT(startedAnimations(), IsEmpty());
  select();
  EXPECT_THAT(startedAnimations(), ElementsAre("D"));  // the cursor stood at the first
}

TEST_F(kuVariantSetSelectionTest, ClippingSettingsAreAppliedAfterTheScript) {
  fill();
  select();
  EXPECT_EQ(ClippingSettings::the().position[0], 2);
}

TEST_F(kuVariantSetSelectionTest, ExecuteScriptAndExecuteAnalyzerRunAlone) {
  fill();
  set().executeScript();
  EXPECT_EQ(ClippingSettings::the().position[0], 1);
  EXPECT_TRUE(ClippingSettings::the().hideScene);
  set().executeAnalyzer();
  EXPECT_EQ(ClippingSettings::the().position[0], 2);
  set().setScript("");
  set().executeScript();
  EXPECT_THAT(log, IsEmpty());
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(kuVariantSetSelectionTest, TargetNodesAreShownWithTheirSubTrees) {
  const auto body = scene.group("Body");
  const auto seat = scene.group("Seat", body);
  const auto other = scene.group("Other");
  for (const auto& node : {body, seat, other, badgeNode()})
    SceneBuilder::setActive(node, false);
  set().addTargetNodeName("absent");
  set().addTargetNodeName("Body");
  set().setInclInfo(true, false, false, false, false, false);
  select();
  EXPECT_EQ(HostState::the().showNodesCalls, 1u);
  EXPECT_TRUE(body->getActive());
  EXPECT_TRUE(seat->getActive());
  EXPECT_FALSE(other->getActive());
  EXPECT_FALSE(badgeNode()->getActive());
}

TEST_F(kuVariantSetSelectionTest, SceneplatesAreShownWhereTheSetIncludesThem) {
  const auto body = scene.group("Body");
  SceneBuilder::setActive(body, false);
  SceneBuilder::setActive(badgeNode(), false);
  set().addTargetNodeName("Body");
  set().setInclInfo(false, false, false, false, false, true);
  select();
  EXPECT_FALSE(body->getActive());
  EXPECT_TRUE(badgeNode()->getActive());
}

TEST_F(kuVariantSetSelectionTest, TargetNodesAreShownAfterTheFirstMessageAndBeforeTheStates) {
  const auto body = scene.group("Body");
  SceneBuilder::setActive(body, false);
  set().addTargetNodeName("Body");
  set().setInclInfo(true, false, false, false, false, false);
  set().addNodeVariant("Roof", "Closed");
  std::vector<bool> shown;
  const MessageWatch watch([&](const PassedMessage&) { shown.push_back(body->getActive()); });
  select();
  ASSERT_EQ(shown.size(), 5u);
  EXPECT_FALSE(shown[0]);  // variantsSetSelected
  EXPECT_TRUE(shown[1]);   // variantsNodesChanged
}

TEST_F(kuVariantSetSelectionTest, NothingIsShownWhereTheSetIncludesNeitherNodesNorSceneplates) {
  const auto body = scene.group("Body");
  SceneBuilder::setActive(body, false);
  SceneBuilder::setActive(badgeNode(), false);
  set().addTargetNodeName("Body");
  set().setInclInfo(false, true, true, true, true, false);
  select();
  EXPECT_EQ(HostState::the().showNodesCalls, 1u);  // all the same, without a node
  EXPECT_FALSE(body->getActive());
  EXPECT_FALSE(badgeNode()->getActive());
}

TEST_F(kuVariantSetSelectionTest, SceneplatesStayHiddenWithoutTargetNodes) {
  SceneBuilder::setActive(badgeNode(), false);
  set().setInclInfo(true, false, false, false, false, true);
  select();
  EXPECT_EQ(HostState::the().showNodesCalls, 0u);
  EXPECT_FALSE(badgeNode()->getActive());
}

TEST_F(kuVariantSetSelectionTest, StateOfARemovedVariantIsSkippedAndTheOthersGoOn) {
  kuVariants::createNodeVariant(scene.switchNode("Boot", 0, {"Shut", "Lifted"}), false);
  set().addNodeVariant("Roof", "Closed");
  set().addNodeVariant("Boot", "Lifted");
  kuVariants::removeNodeVariant("Roof");
  messages.clear();
  select();
  EXPECT_EQ(roof(), 0);
  EXPECT_THAT(messages.linesOf("nodeVariantSelected"),
              ElementsAre("nodeVariantSelected/1 variant:void*=kuVariant Boot"));
}

TEST_F(kuVariantSetSelectionTest, StepMovesItsVariantOnAtEachSelection) {
  kuVariants::createNodeVariant(scene.switchNode("Gear", 0, {"1", "2", "3"}), false);
  set().addNodeVariant("Gear", "!Next");
  const auto gear = kuScenegraph::findNode("Gear").getNode();
  select();
  EXPECT_EQ(SceneBuilder::choice(gear), 1);
  select();
  EXPECT_EQ(SceneBuilder::choice(gear), 2);
  select();
  EXPECT_EQ(SceneBuilder::choice(gear), 2);
}

TEST_F(kuVariantSetSelectionTest, DefaultsAreSelectedWithLightBeforeTransformAndWithoutOverlays) {
  fill();
  select();
  kuVariants::findVariant(NodeVariantType, "Roof")->setDefault("Open");
  kuVariants::findVariant(MaterialVariantType, "Paint")->setDefault("Red");
  kuVariants::findVariant(TransformVariantType, "Door")->setDefault("Shut");
  kuVariants::findVariant(LightVariantType, "Lamp")->setDefault("!Disable");
  messages.clear();
  unsigned doorWhenLampChanges = 7;
  const MessageWatch watch([&](const PassedMessage& message) {
    if (message.name == "variantsLightsChanged") {
      doorWhenLampChanges = SceneBuilder::transformChoice(doorNode());
    }
  });
  set().selectDefault();
  EXPECT_THAT(messages.lines(),
              ElementsAre("variantsSetSelected/1 variantSetName:string=Summer",
                          "variantsNodesChanged/1 variantName:string=Roof visible:strings=[Open] "
                          "invisible:strings=[Closed] parent:string=Roof path:string=Roof|",
                          "nodeVariantSelected/1 variant:void*=kuVariant Roof",
                          "variantsMaterialChanged/1 variantName:string=Paint "
                          "materialName:chars=Red materialBaseName:string=Paint",
                          "materialVariantSelected/1 variant:void*=kuVariant Paint",
                          "variantsLightsChanged/1 variantName:string=Lamp enabled:strings=[] "
                          "disabled:strings=[Lamp] parent:string= path:string=",
                          "lightVariantSelected/1 variant:void*=kuVariant Lamp",
                          "variantsSetSelected/1 variantSetName:string=",
                          "variantSetSelected/1 variantSet:void*=kuVariantSet Summer"));
  EXPECT_EQ(doorWhenLampChanges, 1u);
  EXPECT_EQ(SceneBuilder::transformChoice(doorNode()), 0u);
  EXPECT_EQ(SceneBuilder::choice(badgeNode()), 1);
  EXPECT_EQ(frames(), 2u);
  EXPECT_TRUE(lastFrameAtOnce());
}

TEST_F(kuVariantSetSelectionTest, DefaultsAskForTheirFrameAfterTheLastMessage) {
  std::uint64_t framesAtTheEnd = 7;
  const MessageWatch watch([&](const PassedMessage& message) {
    if (message.name == "variantSetSelected") framesAtTheEnd = frames();
  });
  set().selectDefault();
  EXPECT_EQ(framesAtTheEnd, 0u);
  EXPECT_EQ(frames(), 1u);
}

TEST_F(kuVariantSetSelectionTest, DefaultsPassOverRemovedVariantsAndGoOn) {
  kuVariants::createNodeVariant(scene.switchNode("Boot", 0, {"Shut", "Lifted"}), false);
  kuVariants::findVariant(NodeVariantType, "Boot")->setDefault("Lifted");
  set().addNodeVariant("Roof", "Closed");
  set().addNodeVariant("Boot", "Shut");
  kuVariants::removeNodeVariant("Roof");
  messages.clear();
  set().selectDefault();
  EXPECT_EQ(SceneBuilder::choice(kuScenegraph::findNode("Boot").getNode()), 1);
  EXPECT_THAT(messages.linesOf("nodeVariantSelected"),
              ElementsAre("nodeVariantSelected/1 variant:void*=kuVariant Boot"));
}

TEST_F(kuVariantSetSelectionTest, DefaultsOfASetWithOnlyOverlaysSendMessagesAndChangeNothing) {
  set().addOverlayVariant("Badge", "Large");
  set().selectDefault();
  EXPECT_THAT(messages.lines(),
              ElementsAre("variantsSetSelected/1 variantSetName:string=Summer",
                          "variantsSetSelected/1 variantSetName:string=",
                          "variantSetSelected/1 variantSet:void*=kuVariantSet Summer"));
  EXPECT_EQ(SceneBuilder::choice(badgeNode()), 0);
}

TEST_F(kuVariantSetSelectionTest, DefaultsOpenNoCacheAndMoveNoCamera) {
  fill();
  for (int i = 0; i < 4; ++i)
    set().addNodeVariant(QString::number(i), "s");
  set().selectDefault();
  EXPECT_EQ(cachesOpened(), 0u);
  EXPECT_EQ(viewpoint(), "");
  EXPECT_FALSE(ClippingSettings::the().hideScene);
  EXPECT_THAT(startedAnimations(), IsEmpty());
}

TEST_F(kuVariantSetSelectionTest, SelectionByNameStopsAntialiasingAndSelectsAll) {
  fill();
  kuVariants::selectVariantSet("Summer", false);
  EXPECT_EQ(HostState::the().antialiasingCancels, 1u);
  EXPECT_EQ(roof(), 1);
  EXPECT_EQ(viewpoint(), "Rear");
  EXPECT_THAT(messages.linesOf("animationStart").at(0), ::testing::HasSubstr("bool=false"));
}

TEST_F(kuVariantSetSelectionTest, SelectionByNameCanSkipTheViewpoints) {
  fill();
  kuVariants::selectVariantSet("Summer", true);
  EXPECT_EQ(roof(), 1);
  EXPECT_EQ(viewpoint(), "");
}

TEST_F(kuVariantSetSelectionTest, SelectionByNameReadsUtf8) {
  set().setName(QString::fromUtf8("Fr\xc3\xbchling"));
  messages.clear();
  kuVariants::selectVariantSet("Fr\xc3\xbchling", false);
  EXPECT_EQ(messages.lines().at(0), "variantsSetSelected/1 variantSetName:string=Fr\xc3\xbchling");
}

TEST_F(kuVariantSetSelectionTest, SelectionByTheEmptyNameFindsNoNamelessSet) {
  set().setName("");
  messages.clear();
  kuVariants::selectVariantSet("", false);
  kuVariants::selectVariantSet(nullptr, false);
  EXPECT_EQ(HostState::the().antialiasingCancels, 2u);
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(kuVariantSetSelectionTest, AntialiasingIsStoppedBeforeTheSelection) {
  std::uint64_t cancelsAtTheFirstMessage = 0;
  const MessageWatch watch([&](const PassedMessage& message) {
    if (message.name == "variantsSetSelected" && !cancelsAtTheFirstMessage)
      cancelsAtTheFirstMessage = HostState::the().antialiasingCancels;
  });
  kuVariants::selectVariantSet("Summer", false);
  EXPECT_EQ(cancelsAtTheFirstMessage, 1u);
}

TEST_F(kuVariantSetSelectionTest, SelectionByAnUnknownNameOnlyStopsAntialiasing) {
  for (const char* name : {"", "Winter", "summer"})
    kuVariants::selectVariantSet(name, false);
  EXPECT_EQ(HostState::the().antialiasingCancels, 3u);
  EXPECT_THAT(messages.lines(), IsEmpty());
  EXPECT_EQ(frames(), 0u);
}

TEST_F(kuVariantSetSelectionTest, SetThatTheManagerDoesNotHoldSelectsAsWell) {
  kuVariantSet own("Own");
  own.addNodeVariant("Roof", "Closed");
  own.select(true, false, false);
  EXPECT_EQ(roof(), 1);
  EXPECT_EQ(messages.lines().back(), "variantSetSelected/1 bare");
}
