// When a set is empty, and when it is used: two questions that are not each other's opposite.

#include "capture/CaptureTest.h"

using kuStandalone::Scene;
using ::testing::IsEmpty;
using ::testing::ValuesIn;

namespace {

/** One thing that a set may hold, in a scene, and what the question answers. */
struct UseRow {
  const char* name;
  void (*arrange)(SceneBuilder& scene, kuVariantSet& set);
  bool answer;
};

class UseTest : public CaptureTest, public ::testing::WithParamInterface<UseRow> {
 protected:
  void SetUp() override { GetParam().arrange(scene, set); }
};

class kuVariantSetIsEmptyTest : public UseTest {};
class kuVariantSetIsUsedTest : public UseTest {};

void PrintTo(const UseRow& row, std::ostream* out) { *out << row.name; }

std::string useRowName(const ::testing::TestParamInfo<UseRow>& row) { return row.param.name; }

const UseRow emptyRows[] = {
    {"NewSetIsEmpty", [](SceneBuilder&, kuVariantSet&) {}, true},
    {"NodeStateCounts", [](SceneBuilder&, kuVariantSet& set) { set.addNodeVariant("X", ""); },
     false},
    {"MaterialStateCounts",
     [](SceneBuilder&, kuVariantSet& set) { set.addMaterialVariant("X", ""); }, false},
    {"LightStateCounts", [](SceneBuilder&, kuVariantSet& set) { set.addLightVariant("X", ""); },
     false},
    {"GeometryCounts", [](SceneBuilder&, kuVariantSet& set) { set.addGeometry("X"); }, false},
    {"ViewpointCounts", [](SceneBuilder&, kuVariantSet& set) { set.addViewpoint("X"); }, false},
    {"AnimationCounts", [](SceneBuilder&, kuVariantSet& set) { set.addAnimation("X"); }, false},
    {"OverlayStateCounts", [](SceneBuilder&, kuVariantSet& set) { set.addOverlayVariant("X", ""); },
     false},
    {"TransformStateCounts",
     [](SceneBuilder&, kuVariantSet& set) { set.addTransformVariant("X", ""); }, false},
    {"ScriptCounts", [](SceneBuilder&, kuVariantSet& set) { set.setScript(" "); }, false},
    {"ClippingStateCounts", [](SceneBuilder&, kuVariantSet& set) { set.setClippingState(1); },
     false},
    {"NegativeClippingStateCounts",
     [](SceneBuilder&, kuVariantSet& set) { set.setClippingState(-1); }, false},
    {"OtherClippingSettingsDoNotCount",
     [](SceneBuilder&, kuVariantSet& set) {
       set.setClippingInvert(true);
       set.setClippingContourWidth(7);
     },
     true},
    {"MaterialSnapshotDoesNotCount",
     [](SceneBuilder&, kuVariantSet& set) { set.addMaterialSnapshot("Path", "Red"); }, true},
    {"TargetNodeDoesNotCount",
     [](SceneBuilder&, kuVariantSet& set) { set.addTargetNodeName("Roof"); }, true},
    {"ValueDoesNotCount", [](SceneBuilder&, kuVariantSet& set) { set.addValue("key", "value"); },
     true},
    {"DefaultViewpointDoesNotCount",
     [](SceneBuilder&, kuVariantSet& set) { set.setDefaultViewpoint("Front"); }, true},
    {"HotkeyCommentPreviewAndFlagsDoNotCount",
     [](SceneBuilder&, kuVariantSet& set) {
       set.setHotkey("F5");
       set.setComment("Comment");
       set.setPreview(QByteArray("picture"));
       set.setInclInfo(true, true, true, true, true, true);
       set.setSequentialAnimation(true);
     },
     true},
    {"GroupDoesNotCount",
     [](SceneBuilder&, kuVariantSet& set) {
       kuVariants::createVariantGroup("Group", false, true)->add(&set);
     },
     true},
};

void nodeState(kuVariantSet& set, const char* state) {
  kuVariants::createNodeVariant("Choice", false)->setNode("Roof");
  set.addNodeVariant("Choice", state);
}

void materialState(kuVariantSet& set, const char* state) {
  kuVariants::createMaterialVariant("Choice", false)->setMaterial("Roof");
  set.addMaterialVariant("Choice", state);
}

void lightState(kuVariantSet& set, const char* state) {
  kuVariants::createLightVariant("Choice", false)->setNode("Roof");
  set.addLightVariant("Choice", state);
}

void overlayState(kuVariantSet& set, const char* state) {
  kuVariants::createOverlayVariant("Choice", false)->setOverlay("Roof");
  set.addOverlayVariant("Choice", state);
}

const UseRow usedRows[] = {
    {"NewSetIsNotUsed", [](SceneBuilder&, kuVariantSet&) {}, false},
    {"NodeStateOfANodeIsUsed",
     [](SceneBuilder& scene, kuVariantSet& set) {
       scene.group("Roof");
       nodeState(set, "!Enable");
     },
     true},
    {"NodeStateThatTheSwitchDoesNotHaveIsUsed",
     [](SceneBuilder& scene, kuVariantSet& set) {
       scene.switchNode("Roof", 0, {"Open"});
       nodeState(set, "Lost");
     },
     true},
    {"NodeStateWithoutANodeIsNot",
     [](SceneBuilder& scene, kuVariantSet& set) {
       scene.group("Choice");
       nodeState(set, "!Enable");
     },
     false},
    {"NodeStateWithoutAVariantIsNot",
     [](SceneBuilder& scene, kuVariantSet& set) {
       scene.group("Roof");
       set.addNodeVariant("Roof", "!Enable");
     },
     false},
    {"MaterialStateOfAMaterialIsUsed",
     [](SceneBuilder& scene, kuVariantSet& set) {
       scene.presetMaterial("Roof", {"Red"}, 0);
       materialState(set, "Red");
     },
     true},
    {"MaterialStateThatTheMaterialDoesNotHaveIsUsed",
     [](SceneBuilder& scene, kuVariantSet& set) {
       scene.material("Roof");
       materialState(set, "Lost");
     },
     true},
    {"MaterialStateWithoutAMaterialIsNot",
     [](SceneBuilder& scene, kuVariantSet& set) {
       scene.material("Choice");
       materialState(set, "Red");
     },
     false},
    {"MaterialStateWithoutAVariantIsNot",
     [](SceneBuilder& scene, kuVariantSet& set) {
       scene.material("Roof");
       set.addMaterialVariant("Roof", "Red");
     },
     false},
    {"LightStateOfALightIsUsed",
     [](SceneBuilder& scene, kuVariantSet& set) {
       scene.light("Roof", false);
       lightState(set, "Sideways");
     },
     true},
    {"LightStateOfANodeThatIsNoLightIsNot",
     [](SceneBuilder& scene, kuVariantSet& set) {
       scene.group("Roof");
       scene.light("Choice", true);
       lightState(set, "!Enable");
     },
     false},
    {"LightStateWithoutAVariantIsNot",
     [](SceneBuilder& scene, kuVariantSet& set) {
       scene.light("Roof", true);
       set.addLightVariant("Roof", "!Enable");
     },
     false},
    {"GeometryThatIsANodeIsUsed",
     [](SceneBuilder& scene, kuVariantSet& set) {
       scene.group("Roof");
       set.addGeometry("Roof");
     },
     true},
    {"UnknownGeometryIsNot",
     [](SceneBuilder& scene, kuVariantSet& set) {
       scene.sceneplate("Roof");
       set.addGeometry("Roof");
     },
     false},
    {"ViewpointIsUsed",
     [](SceneBuilder& scene, kuVariantSet& set) {
       scene.camera("Front");
       set.addViewpoint("Front");
     },
     true},
    {"UnknownViewpointIsNot",
     [](SceneBuilder& scene, kuVariantSet& set) {
       scene.group("Front");
       set.addViewpoint("Front");
     },
     false},
    {"DefaultViewpointAloneIsNot",
     [](SceneBuilder& scene, kuVariantSet& set) {
       scene.camera("Front");
       set.setDefaultViewpoint("Front");
     },
     false},
    {"AnimationThatIsAClipIsUsed",
     [](SceneBuilder&, kuVariantSet& set) {
       Scene::the().animations.emplace_back();
       Scene::the().animations.back().name = "Doors";
       set.addAnimation("Doors");
     },
     true},
    {"AnimationThatIsABlockIsUsed",
     [](SceneBuilder&, kuVariantSet& set) {
       Scene::the().animationBlocks["Doors"] = {};
       set.addAnimation("Doors");
     },
     true},
    {"UnknownAnimationIsNot", [](SceneBuilder&, kuVariantSet& set) { set.addAnimation("Doors"); },
     false},
    {"OverlayStateOfASceneplateIsUsed",
     [](SceneBuilder& scene, kuVariantSet& set) {
       scene.sceneplate("Roof");
       overlayState(set, "Sideways");
     },
     true},
    {"OverlayStateOfANodeOfTheSceneIsNot",
     [](SceneBuilder& scene, kuVariantSet& set) {
       scene.sceneplate("Choice");
       scene.group("Roof");
       overlayState(set, "!Enable");
     },
     false},
    {"OverlayStateWithoutAVariantIsNot",
     [](SceneBuilder& scene, kuVariantSet& set) {
       scene.sceneplate("Roof");
       set.addOverlayVariant("Roof", "!Enable");
     },
     false},
    {"LaterEntryIsEnough",
     [](SceneBuilder& scene, kuVariantSet& set) {
       scene.group("Roof");
       set.addNodeVariant("Lost", "!Enable");
       set.addGeometry("Lost");
       nodeState(set, "!Enable");
     },
     true},
    {"LaterNameIsEnough",
     [](SceneBuilder& scene, kuVariantSet& set) {
       scene.group("Roof");
       set.addGeometry("Lost");
       set.addGeometry("Roof");
     },
     true},
    {"TransformStateAloneIsNot",
     [](SceneBuilder& scene, kuVariantSet& set) {
       scene.transforms("Roof", {"Open"}, 0, 0);
       kuVariants::createTransformVariant("Roof", false)->setNode("Roof");
       set.addTransformVariant("Roof", "Open");
     },
     false},
    {"ScriptAloneIsNot", [](SceneBuilder&, kuVariantSet& set) { set.setScript("print(1)"); },
     false},
    {"ClippingStateAloneIsNot", [](SceneBuilder&, kuVariantSet& set) { set.setClippingState(1); },
     false},
    {"SnapshotTargetAndValueAreNot",
     [](SceneBuilder& scene, kuVariantSet& set) {
       scene.group("Roof");
       set.addMaterialSnapshot("Roof", "Roof");
       set.addTargetNodeName("Roof");
       set.addValue("Roof", "Roof");
     },
     false},
};

class kuVariantSetUseTest : public CaptureTest {};

}  // namespace

TEST_P(kuVariantSetIsEmptyTest, Ask) {
  EXPECT_EQ(set.isEmpty(), GetParam().answer);
  EXPECT_EQ(kuVariants::hasEmptyVariantSets(), GetParam().answer);
}

TEST_P(kuVariantSetIsUsedTest, Ask) { EXPECT_EQ(set.isUsed(), GetParam().answer); }

INSTANTIATE_TEST_SUITE_P(Rules, kuVariantSetIsEmptyTest, ValuesIn(emptyRows), useRowName);
INSTANTIATE_TEST_SUITE_P(Rules, kuVariantSetIsUsedTest, ValuesIn(usedRows), useRowName);

TEST_F(kuVariantSetUseTest, SetOfTransformsScriptOrClippingIsNeitherEmptyNorUsed) {
  kuVariantSet& script = makeSet("Script");
  kuVariantSet& clipping = makeSet("Clipping");
  set.addTransformVariant("Door", "Open");
  script.setScript("print(1)");
  clipping.setClippingState(2);
  for (const kuVariantSet* asked : {&set, &script, &clipping}) {
    EXPECT_FALSE(asked->isEmpty()) << asked->getName().toStdString();
    EXPECT_FALSE(asked->isUsed()) << asked->getName().toStdString();
  }
}

TEST_F(kuVariantSetUseTest, AskingSaysNothing) {
  scene.light("Roof", true);
  lightState(set, "!Enable");
  messages.clear();
  EXPECT_TRUE(set.isUsed());
  EXPECT_FALSE(set.isEmpty());
  EXPECT_THAT(messages.lines(), IsEmpty());
  EXPECT_THAT(log, IsEmpty());
}
