#include "SceneCaptureTest.h"
#include "standalone/scene/SceneNode.h"

using ::testing::ElementsAre;

// Which switches a capture takes, and what belongs to the environment.

namespace {

using Texts = std::vector<std::string>;

struct TruthRow {
  const char* name;
  bool inclNodes, inclEnv, isEnvironment, isTaken;
};

void PrintTo(const TruthRow& row, std::ostream* out) { *out << row.name; }

class KuVariantsCaptureTruthTest : public SceneCaptureTest,
                                   public ::testing::WithParamInterface<TruthRow> {};

class KuVariantsCaptureEnvironmentTest : public SceneCaptureTest {
 protected:
  void captureEnvironment() { capture(only(&CaptureFlags::env)); }
};

}  // namespace

TEST_P(KuVariantsCaptureTruthTest, Switch) {
  if (GetParam().isEnvironment) {
    scene.environmentSwitch("Body", 0, {"Coupe"});
  } else {
    scene.switchNode("Body", 0, {"Coupe"});
  }
  CaptureFlags flags;
  flags.nodes = GetParam().inclNodes;
  flags.env = GetParam().inclEnv;
  capture(flags);
  EXPECT_EQ(content(), GetParam().isTaken ? Texts({"node Body=Coupe", "target Root"})
                                          : Texts({"target Root"}));
}

INSTANTIATE_TEST_SUITE_P(
    TruthTable, KuVariantsCaptureTruthTest,
    ::testing::Values(TruthRow{"PlainWithNeither", false, false, false, false},
                      TruthRow{"PlainWithEnv", false, true, false, false},
                      TruthRow{"PlainWithNodes", true, false, false, true},
                      TruthRow{"PlainWithBoth", true, true, false, true},
                      TruthRow{"EnvironmentWithNeither", false, false, true, false},
                      TruthRow{"EnvironmentWithEnv", false, true, true, true},
                      TruthRow{"EnvironmentWithNodes", true, false, true, false},
                      TruthRow{"EnvironmentWithBoth", true, true, true, true}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(KuVariantsCaptureEnvironmentTest, EnvAloneTakesEnvironmentAlone) {
  scene.switchNode("Body", 0, {"Coupe"});
  scene.geometry("Hood", scene.switchMaterial("Paint", {scene.material("Red")}, 0));
  scene.geometry("Glass", scene.material("Clear"));
  scene.materialGroup("Trim", scene.material("Chrome"));
  scene.materialGroup("Backdrop", scene.environmentMaterial("Painted"));
  scene.light("Lamp", true);
  scene.transforms("Door", {"Closed"}, 0, 0);
  scene.geometry("Dome", scene.environmentMaterial("Sunset"));
  scene.environmentSwitch("Surroundings", 0, {"City"});
  captureEnvironment();
  EXPECT_THAT(content(),
              ElementsAre("node Surroundings=City", "target Root", "snapshot Dome=Sunset"));
  EXPECT_EQ(set.getScript(), "");
}

TEST_F(KuVariantsCaptureEnvironmentTest, WalkFromTheEnvironmentSwitchReachesPastTheRoots) {
  const osg::NodePtr surroundings = scene.environmentSwitch("Surroundings", 0, {"City"});
  scene.geometry("Dome", scene.environmentMaterial("Sunset"), surroundings->getChild(0));
  scene.switchNode("Fountain", 0, {"Running"}, surroundings->getChild(0));
  const osg::NodePtr car = scene.switchNode("Car", 0, {"Coupe"});
  CaptureFlags flags = everything();
  flags.view = flags.renderLayers = false;
  capture(set, flags, {car});
  EXPECT_THAT(content(), ElementsAre("node Car=Coupe", "node Surroundings=City", "target Car",
                                     "snapshot Surroundings/City/Dome=Sunset"));
}

TEST_F(KuVariantsCaptureEnvironmentTest, WalkFromTheEnvironmentSwitchLeavesAllElseOut) {
  const osg::NodePtr surroundings = scene.environmentSwitch("Surroundings", 0, {"City"});
  const osg::NodePtr city = surroundings->getChild(0);
  scene.geometry("Wall", scene.switchMaterial("Paint", {scene.material("Red")}, 0), city);
  scene.light("Lamp", true, city);
  scene.transforms("Gate", {"Closed"}, 0, 0, city);
  SceneBuilder::setActive(scene.group("Hidden", city), false);
  const auto layer = SceneBuilder::renderLayer(city);
  const osg::NodePtr car = scene.group("Car");
  CaptureFlags flags = everything();
  flags.view = false;
  capture(set, flags, {car});
  EXPECT_THAT(content(), ElementsAre("node Surroundings=City", "target Car"));
  EXPECT_THAT(scriptLines(), ElementsAre("activateRenderLayerState(\"Set\")"));
  EXPECT_EQ(layer->states().size(), 0u);
}

TEST_F(KuVariantsCaptureEnvironmentTest, WithoutEnvThereIsNoWalkFromTheEnvironmentSwitch) {
  scene.environmentSwitch("Surroundings", 0, {"City"});
  const osg::NodePtr car = scene.group("Car");
  CaptureFlags flags = everything();
  flags.env = flags.view = flags.renderLayers = false;
  capture(set, flags, {car});
  EXPECT_THAT(content(), ElementsAre("target Car"));
}

TEST_F(KuVariantsCaptureEnvironmentTest, MatsAloneLeavesEnvironmentMaterialsOut) {
  scene.geometry("Dome", scene.environmentMaterial("Sunset"));
  capture(only(&CaptureFlags::mats));
  EXPECT_THAT(content(), ElementsAre("target Root"));
}

TEST_F(KuVariantsCaptureEnvironmentTest, EnvironmentSwitchMaterialHasNoSnapshot) {
  const osg::MaterialPtr day = scene.environmentMaterial("Day");
  const osg::MaterialPtr night = scene.environmentMaterial("Night");
  scene.geometry("Sky", scene.environmentSwitchMaterial("Skies", {day, night}, 1));
  capture(everything());
  EXPECT_THAT(content(), ElementsAre("material Skies=Night", "target Root"));
}

TEST_F(KuVariantsCaptureEnvironmentTest, SharedGeometryIsHandledOnceOverBothWalks) {
  const osg::NodePtr surroundings = scene.environmentSwitch("Surroundings", 0, {"City"});
  const osg::NodePtr dome =
      scene.geometry("Dome", scene.environmentMaterial("Sunset"), surroundings->getChild(0));
  const osg::NodePtr copy = scene.clone(dome, "Copy", scene.group("Car"));
  capture(set, only(&CaptureFlags::env), {copy});
  EXPECT_THAT(content(),
              ElementsAre("node Surroundings=City", "target Copy", "snapshot Car/Copy=Sunset"));
}

TEST_F(KuVariantsCaptureEnvironmentTest, SceneWithoutEnvironmentSwitchIsCapturedAllTheSame) {
  scene.group("Car");
  captureEnvironment();
  EXPECT_THAT(content(), ElementsAre("target Root"));
  EXPECT_EQ(inclInfo(set), "000100");
}
