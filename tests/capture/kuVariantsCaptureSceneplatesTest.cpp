#include "SceneCaptureTest.h"
#include "standalone/scene/SceneNode.h"
#include "support/kuVariantsTestAccess.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Sceneplates in a capture: a set records only where they deviate from being shown.

namespace {

const char* const severalStates =
    "warning: Found multiple sceneplates with same name but different states, states can not be "
    "correctly set to all sceneplates with name: 'Logo'";

class KuVariantsCaptureSceneplatesTest : public SceneCaptureTest {
 protected:
  static osg::NodePtr inactive(const osg::NodePtr& node) {
    SceneBuilder::setActive(node, false);
    return node;
  }
  static std::string stateOf(const osg::NodePtr& node) {
    return kuVariantsTestAccess::sceneplateState(node).toStdString();
  }
  void captureSceneplates() { kuVariants::captureSceneplateVariants(&set, true); }
};

struct StateOfRow {
  const char* name;
  osg::NodePtr (*build)(SceneBuilder& scene);
  const char* state;
};

void PrintTo(const StateOfRow& row, std::ostream* out) { *out << row.name; }

class KuVariantsSceneplateStateTest : public KuVariantsCaptureSceneplatesTest,
                                      public ::testing::WithParamInterface<StateOfRow> {};

template <int choice, bool isActive>
osg::NodePtr switchOfTwo(SceneBuilder& scene) {
  const osg::NodePtr node = scene.sceneplateSwitch("Plates", choice, {"Front", "Rear"});
  SceneBuilder::setActive(node, isActive);
  return node;
}

}  // namespace

TEST_P(KuVariantsSceneplateStateTest, State) {
  EXPECT_EQ(stateOf(GetParam().build(scene)), GetParam().state);
}

INSTANTIATE_TEST_SUITE_P(
    States, KuVariantsSceneplateStateTest,
    ::testing::Values(StateOfRow{"NullIsEmpty", [](SceneBuilder&) { return osg::NodePtr(); }, ""},
                      StateOfRow{"SwitchShowsItsFirstChild", switchOfTwo<0, true>, "Front"},
                      StateOfRow{"SwitchShowsItsLastChild", switchOfTwo<1, true>, "Rear"},
                      StateOfRow{"SwitchShowsAll", switchOfTwo<-2, true>, "!All"},
                      StateOfRow{"SwitchShowsNone", switchOfTwo<-1, true>, "!None"},
                      StateOfRow{"SwitchAtItsChildrensNumber", switchOfTwo<2, true>, "!None"},
                      StateOfRow{"SwitchFarBeyondItsChildren", switchOfTwo<9, true>, "!None"},
                      StateOfRow{"SwitchBelowAllNumbersInUse", switchOfTwo<-3, true>, "!None"},
                      StateOfRow{"InactiveSwitchWithAChild", switchOfTwo<0, false>, "!None"},
                      StateOfRow{"InactiveSwitchThatShowsAll", switchOfTwo<-2, false>, "!None"},
                      StateOfRow{"InactiveSwitchThatShowsNone", switchOfTwo<-1, false>, "!None"},
                      StateOfRow{"SceneplateShown",
                                 [](SceneBuilder& scene) { return scene.sceneplate("Logo"); },
                                 "!Enable"},
                      StateOfRow{"SceneplateHidden",
                                 [](SceneBuilder& scene) {
                                   const osg::NodePtr logo = scene.sceneplate("Logo");
                                   SceneBuilder::setActive(logo, false);
                                   return logo;
                                 },
                                 "!Disable"},
                      StateOfRow{"NodeWithoutCoreShown",
                                 [](SceneBuilder& scene) { return scene.bare("Logo"); }, "!Enable"},
                      StateOfRow{"NodeWithoutCoreHidden",
                                 [](SceneBuilder& scene) {
                                   const osg::NodePtr logo = scene.bare("Logo");
                                   SceneBuilder::setActive(logo, false);
                                   return logo;
                                 },
                                 "!Disable"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(KuVariantsCaptureSceneplatesTest, ShownSceneplateYieldsNoVariant) {
  scene.sceneplate("Logo");
  captureSceneplates();
  EXPECT_THAT(content(), IsEmpty());
  EXPECT_THAT(kuVariants::getOverlayVariants(), IsEmpty());
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(KuVariantsCaptureSceneplatesTest, DeviatingOnesAreStoredInTheOrderOfTheirNames) {
  inactive(scene.sceneplate("Title"));
  scene.sceneplate("Shown");
  inactive(scene.sceneplate("Logo"));
  captureSceneplates();
  EXPECT_THAT(content(), ElementsAre("overlay Logo=!Disable", "overlay Title=!Disable"));
  EXPECT_THAT(messages.lines(), ElementsAre("overlayVariantAdded/1 variant:void*=kuVariant Logo",
                                            "overlayVariantAdded/1 variant:void*=kuVariant Title"));
}

TEST_F(KuVariantsCaptureSceneplatesTest, SwitchesAndNestedSceneplatesAreStored) {
  scene.sceneplateSwitch("Plates", 1, {"Front", "Rear"});
  scene.sceneplateSwitch("Both", -2, {"Left", "Right"});
  const osg::NodePtr group = scene.sceneplate("Group");
  inactive(scene.sceneplate("Nested", group));
  captureSceneplates();
  EXPECT_THAT(content(),
              ElementsAre("overlay Both=!All", "overlay Nested=!Disable", "overlay Plates=Rear"));
}

TEST_F(KuVariantsCaptureSceneplatesTest, SceneplatesBelowAnInactiveOneAreVisited) {
  const osg::NodePtr group = inactive(scene.sceneplate("Group"));
  inactive(scene.sceneplate("Nested", group));
  captureSceneplates();
  EXPECT_THAT(content(), ElementsAre("overlay Group=!Disable", "overlay Nested=!Disable"));
}

TEST_F(KuVariantsCaptureSceneplatesTest, RootOfTheSceneplatesIsNotVisited) {
  inactive(scene.sceneplateRoot());
  captureSceneplates();
  EXPECT_THAT(content(), IsEmpty());
}

TEST_F(KuVariantsCaptureSceneplatesTest, SceneWithoutSceneplatesGivesNothing) {
  captureSceneplates();
  EXPECT_THAT(content(), IsEmpty());
}

TEST_F(KuVariantsCaptureSceneplatesTest, FirstOfTwoDifferentStatesStaysWithAWarning) {
  inactive(scene.sceneplate("Logo"));
  scene.sceneplate("Logo");
  captureSceneplates();
  EXPECT_THAT(content(), ElementsAre("overlay Logo=!Disable"));
  EXPECT_THAT(log, ElementsAre(severalStates));
}

TEST_F(KuVariantsCaptureSceneplatesTest, FirstStateStaysAlsoWhereItYieldsNothing) {
  scene.sceneplate("Logo");
  inactive(scene.sceneplate("Logo", scene.sceneplate("Group")));
  captureSceneplates();
  EXPECT_THAT(content(), IsEmpty());
  EXPECT_THAT(log, ElementsAre(severalStates));
}

TEST_F(KuVariantsCaptureSceneplatesTest, EveryDeviationFromTheFirstIsWarnedOf) {
  inactive(scene.sceneplate("Logo"));
  scene.sceneplate("Logo");
  inactive(scene.sceneplate("Logo"));
  scene.sceneplate("Logo");
  captureSceneplates();
  EXPECT_THAT(log, ElementsAre(severalStates, severalStates));
}

TEST_F(KuVariantsCaptureSceneplatesTest, EqualStatesOfOneNameAreStoredOnceWithoutAWarning) {
  inactive(scene.sceneplate("Logo"));
  inactive(scene.sceneplate("Logo"));
  captureSceneplates();
  EXPECT_THAT(content(), ElementsAre("overlay Logo=!Disable"));
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(KuVariantsCaptureSceneplatesTest, UnnamedSceneplateIsSkipped) {
  inactive(scene.sceneplate(""));
  captureSceneplates();
  EXPECT_THAT(content(), IsEmpty());
  EXPECT_THAT(kuVariants::getOverlayVariants(), IsEmpty());
}

TEST_F(KuVariantsCaptureSceneplatesTest, ChildNamedAsTheKeywordForShownIsNotStored) {
  scene.sceneplateSwitch("Plates", 0, {"!Enable"});
  captureSceneplates();
  EXPECT_THAT(content(), IsEmpty());
}

TEST_F(KuVariantsCaptureSceneplatesTest, VariantThatExistsIsNotAnnounced) {
  kuVariants::createOverlayVariant(QString("Logo"), false);
  inactive(scene.sceneplate("Logo"));
  captureSceneplates();
  EXPECT_THAT(content(), ElementsAre("overlay Logo=!Disable"));
  EXPECT_THAT(messages.lines(), IsEmpty());
}
