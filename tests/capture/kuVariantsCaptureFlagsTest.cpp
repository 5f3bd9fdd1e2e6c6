#include "SceneCaptureTest.h"
#include "standalone/scene/SceneNode.h"

using ::testing::ElementsAreArray;

// What each flag of a capture takes in, on a scene that holds one thing of every kind.

namespace {

using Texts = std::vector<std::string>;

struct FlagRow {
  const char* name;
  bool CaptureFlags::*flag;  // null for none
  Texts content;
  Texts script;
  const char* inclInfo;
  Texts announced;
};

void PrintTo(const FlagRow& row, std::ostream* out) { *out << row.name; }

class KuVariantsCaptureAllKindsTest : public SceneCaptureTest {
 protected:
  KuVariantsCaptureAllKindsTest() {
    scene.switchNode("Body", 1, {"Coupe", "Cabrio"});
    scene.geometry(
        "Hood", scene.switchMaterial("Paint", {scene.material("Red"), scene.material("Blue")}, 1));
    scene.materialGroup("Trim", scene.material("Chrome"));
    scene.light("Lamp", true);
    buildSurroundings();
    scene.transforms("Door", {"Closed", "Open"}, 1, 1);
    glass = scene.renderLayer(scene.geometry("Glass"));
    scene.camera("Front");
    SceneBuilder::setActive(scene.sceneplate("Logo"), false);
  }

  void buildSurroundings() {
    const osg::NodePtr surroundings = scene.environmentSwitch("Surroundings", 0, {"City"});
    scene.geometry("Dome", scene.environmentMaterial("Sunset"), surroundings->getChild(0));
    scene.geometry("Sky",
                   scene.environmentSwitchMaterial(
                       "Skies", {scene.material("Day"), scene.material("Night")}, 1),
                   surroundings->getChild(0));
  }

  kuStandalone::RenderLayerPtr glass;
};

class KuVariantsCaptureFlagsTest : public KuVariantsCaptureAllKindsTest,
                                   public ::testing::WithParamInterface<FlagRow> {};

const Texts noTexts;

}  // namespace

TEST_P(KuVariantsCaptureFlagsTest, Alone) {
  capture(GetParam().flag ? only(GetParam().flag) : CaptureFlags());
  EXPECT_THAT(content(), ElementsAreArray(GetParam().content));
  EXPECT_THAT(scriptLines(), ElementsAreArray(GetParam().script));
  EXPECT_EQ(inclInfo(set), GetParam().inclInfo);
  EXPECT_EQ(glass->states().size(), GetParam().flag == &CaptureFlags::renderLayers ? 1u : 0u);
  EXPECT_EQ(messages.lines(), Texts());
}

TEST_P(KuVariantsCaptureFlagsTest, WithMessages) {
  CaptureFlags flags = GetParam().flag ? only(GetParam().flag) : CaptureFlags();
  flags.sendMessage = true;
  capture(flags);
  EXPECT_THAT(content(), ElementsAreArray(GetParam().content));
  EXPECT_THAT(messages.lines(), ElementsAreArray(GetParam().announced));
}

INSTANTIATE_TEST_SUITE_P(
    Flags, KuVariantsCaptureFlagsTest,
    ::testing::Values(FlagRow{"NoneTakesNothingButTheNameOfTheRoot",
                              nullptr,
                              {"target Root"},
                              noTexts,
                              "000000",
                              noTexts},
                      FlagRow{"InclNodesTakesSwitchNodesButEnvironmentSwitches",
                              &CaptureFlags::nodes,
                              {"node Body=Cabrio", "target Root"},
                              noTexts,
                              "100000",
                              {"nodeVariantAdded/1 variant:void*=kuVariant Body"}},
                      FlagRow{"InclMatsTakesMaterialsSnapshotsAndIgnoredGroups",
                              &CaptureFlags::mats,
                              {"material Paint=Blue", "material Skies=Night", "target Root",
                               "snapshot Hood=Paint", "snapshot Trim=Chrome"},
                              {"setIgnoreMaterialGroup(\"Trim\",false)"},
                              "010000",
                              {"materialVariantAdded/1 variant:void*=kuVariant Paint",
                               "materialVariantAdded/1 variant:void*=kuVariant Skies"}},
                      FlagRow{"InclLightsTakesLights",
                              &CaptureFlags::lights,
                              {"light Lamp=!Enable", "target Root"},
                              noTexts,
                              "001000",
                              {"lightVariantAdded/1 variant:void*=kuVariant Lamp"}},
                      FlagRow{"InclEnvTakesEnvironmentSwitchesAndMaterials",
                              &CaptureFlags::env,
                              {"node Surroundings=City", "material Skies=Night", "target Root",
                               "snapshot Surroundings/City/Dome=Sunset"},
                              noTexts,
                              "000100",
                              {"nodeVariantAdded/1 variant:void*=kuVariant Surroundings",
                               "materialVariantAdded/1 variant:void*=kuVariant Skies"}},
                      FlagRow{"InclViewTakesAViewpoint",
                              &CaptureFlags::view,
                              {"viewpoint Set View", "target Root"},
                              noTexts,
                              "000010",
                              noTexts},
                      FlagRow{"InclTransformsTakesTransformsAndIsNotRemembered",
                              &CaptureFlags::transforms,
                              {"transform Door=Open", "target Root"},
                              noTexts,
                              "000000",
                              {"transformVariantAdded/0 variant:void*=kuVariant Door"}},
                      FlagRow{"InclRenderLayersTakesRenderLayersAndIsNotRemembered",
                              &CaptureFlags::renderLayers,
                              {"target Root"},
                              {"activateRenderLayerState(\"Set\")"},
                              "000000",
                              noTexts},
                      FlagRow{"InclSceneplatesTakesSceneplates",
                              &CaptureFlags::sceneplates,
                              {"overlay Logo=!Disable", "target Root"},
                              noTexts,
                              "000001",
                              {"overlayVariantAdded/1 variant:void*=kuVariant Logo"}},
                      FlagRow{"SendMessageAloneTakesNothing",
                              &CaptureFlags::sendMessage,
                              {"target Root"},
                              noTexts,
                              "000000",
                              noTexts},
                      FlagRow{"UseSetNameForViewAloneTakesNothing",
                              &CaptureFlags::useSetNameForView,
                              {"target Root"},
                              noTexts,
                              "000000",
                              noTexts}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(KuVariantsCaptureAllKindsTest, EverythingIsTakenInTheOrderOfTheScene) {
  capture(everything());
  EXPECT_THAT(content(), ElementsAreArray({
                             "node Body=Cabrio",
                             "node Surroundings=City",
                             "material Paint=Blue",
                             "material Skies=Night",
                             "light Lamp=!Enable",
                             "overlay Logo=!Disable",
                             "transform Door=Open",
                             "viewpoint Set View",
                             "target Root",
                             "snapshot Hood=Paint",
                             "snapshot Surroundings/City/Dome=Sunset",
                             "snapshot Trim=Chrome",
                         }));
  EXPECT_THAT(scriptLines(), ElementsAreArray({"setIgnoreMaterialGroup(\"Trim\",false)",
                                               "activateRenderLayerState(\"Set\")"}));
  EXPECT_EQ(inclInfo(set), "111111");
  EXPECT_EQ(set.getDefaultViewpoint(), "Set View");
}
