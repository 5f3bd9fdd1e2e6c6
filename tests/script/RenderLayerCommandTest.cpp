#include "ScriptTest.h"
#include "host/script/kuScript.h"
#include "standalone/scene/RenderLayer.h"
#include "standalone/scene/SceneNode.h"
#include "standalone/script/ScriptPolicy.h"
#include "support/BracketRecorder.h"
#include "support/SceneDump.h"

using namespace kuStandalone;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

constexpr RayVisibility shadowOnly{false, false, true};
constexpr RayVisibility noShadow{true, true, false};

/** The line of a captured set, with scripts on and off. */
class RenderLayerCommand : public ScriptTest, public ::testing::WithParamInterface<bool> {
 protected:
  RenderLayerCommand() { ScriptPolicy::allow(GetParam()); }
  ~RenderLayerCommand() override { EXPECT_EQ(ScriptPolicy::refusalCount(), 0u); }

  static RenderLayer& give(const osg::NodePtr& node, const RayVisibility& present,
                           RayVisibilities states) {
    SceneNode::of(node).setRenderLayer(RenderLayer::create(present, std::move(states)));
    return *SceneNode::of(node).renderLayer();
  }
};

TEST_P(RenderLayerCommand, EveryNodeTakesItsStateOfThatNameOrTheDefaultOne) {
  const osg::NodePtr car = scene.group("Car");
  const RenderLayer& outer = give(car, {}, {{"Day", noShadow}, {"Night", shadowOnly}});
  const RenderLayer& inner = give(scene.geometry("Door", {}, car), noShadow, {{"Day", shadowOnly}});
  const RenderLayer& none = give(scene.light("Sun", true), shadowOnly, {});
  EXPECT_TRUE(kuScript::run("activateRenderLayerState(\"Day\")"));
  EXPECT_EQ(outer.present(), noShadow);
  EXPECT_EQ(inner.present(), shadowOnly);
  EXPECT_TRUE(none.isInDefaultState());
  EXPECT_TRUE(kuScript::run("activateRenderLayerState(\"Night\")"));
  EXPECT_EQ(outer.present(), shadowOnly);
  EXPECT_TRUE(inner.isInDefaultState());
  EXPECT_TRUE(kuScript::run("activateRenderLayerState(\"\")"));
  EXPECT_TRUE(outer.isInDefaultState());
  EXPECT_THAT(log, IsEmpty());
}

TEST_P(RenderLayerCommand, BracketsStandAroundWhatChangesAlone) {
  give(scene.group("Same"), noShadow, {{"Day", noShadow}});
  give(scene.group("Other"), noShadow, {{"Day", shadowOnly}});
  scene.group("Plain");
  const BracketRecorder recorder;
  EXPECT_TRUE(kuScript::run("activateRenderLayerState(\"Day\")"));
  EXPECT_THAT(recorder.brackets(), ElementsAre(BracketRecorder::Bracket(
                                       "RaytracingGeoAttachment", RenderLayer::PresentFieldMask)));
}

TEST_P(RenderLayerCommand, NamesAreUtf8AndMayHoldAnything) {
  const RenderLayer& layer =
      give(scene.group("Car"), {},
           {{"T\xC3\xBCr \xE2\x9C\x93", noShadow}, {"');import os", shadowOnly}});
  EXPECT_TRUE(kuScript::run("activateRenderLayerState(\"T\xC3\xBCr \xE2\x9C\x93\")"));
  EXPECT_EQ(layer.present(), noShadow);
  EXPECT_TRUE(kuScript::run("activateRenderLayerState(\"');import os\")"));
  EXPECT_EQ(layer.present(), shadowOnly);
}

TEST_P(RenderLayerCommand, ArgumentsThatAreNoNameChangeNothing) {
  give(scene.group("Car"), noShadow, {{"Day", shadowOnly}});
  const std::string before = dumpScene(Scene::the());
  for (const char* arguments :
       {"", "None", "7", "-7", "true", "1.5", "\"Day\", \"Day\"", "Vec3f(1, 2, 3)"}) {
    log.clear();
    EXPECT_FALSE(
        kuScript::run(("activateRenderLayerState(" + std::string(arguments) + ")").c_str()))
        << arguments;
    EXPECT_THAT(log, ElementsAre(HasSubstr("failed: "))) << arguments;
    EXPECT_EQ(dumpScene(Scene::the()), before) << arguments;
  }
}

TEST_P(RenderLayerCommand, AnEmptySceneHasNothingToChange) {
  EXPECT_TRUE(kuScript::run("activateRenderLayerState(\"Day\")"));
  EXPECT_THAT(log, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(ScriptsOffAndOn, RenderLayerCommand, ::testing::Bool());

}  // namespace
