#include "standalone/scene/RenderLayer.h"

#include "standalone/scene/SceneNode.h"
#include "support/BracketRecorder.h"
#include "support/SceneTest.h"

using namespace kuStandalone;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

namespace {

constexpr RayVisibility shadowOnly{false, false, true};
constexpr RayVisibility noShadow{true, true, false};

class RenderLayerTest : public SceneTest {
 protected:
  static const RenderLayerPtr& give(const osg::NodePtr& node, const RayVisibility& present = {},
                                    RayVisibilities states = {}) {
    SceneNode::of(node).setRenderLayer(RenderLayer::create(present, std::move(states)));
    return SceneNode::of(node).renderLayer();
  }
  static std::vector<std::string> layered() {
    std::vector<std::string> names;
    for (const auto& [id, node] : Scene::the().nodes.layered) {
      EXPECT_EQ(id, node->id());
      names.push_back(node->name());
    }
    return names;
  }
};

TEST_F(RenderLayerTest, IsTheAttachmentOfBindingZeroOfItsGroupAlone) {
  const unsigned group = osg::RaytracingGeoAttachment::getClassGroupId();
  const osg::NodePtr node = scene.group("Car"), other = scene.group("Other");
  const osg::AttachmentPtr layer = give(node);
  EXPECT_EQ(node->findAttachment(group), layer);
  EXPECT_EQ(node->findAttachment(group, 0), layer);
  EXPECT_FALSE(node->findAttachment(group, 1));
  EXPECT_FALSE(node->findAttachment(group, 65535));
  EXPECT_FALSE(node->findAttachment(group + 1));
  EXPECT_FALSE(node->findAttachment(group - 1));
  EXPECT_FALSE(other->findAttachment(group));
  EXPECT_TRUE(osg::RaytracingGeoAttachmentPtr::dcast(layer));
  SceneNode::of(node).setRenderLayer({});
  EXPECT_FALSE(node->findAttachment(group));
}

TEST_F(RenderLayerTest, IsInTheDefaultStateWhereAllRaysSeeTheNode) {
  EXPECT_TRUE(RenderLayer::create()->isInDefaultState());
  EXPECT_TRUE(RenderLayer::create({}, {{"Day", shadowOnly}})->isInDefaultState());
  EXPECT_FALSE(RenderLayer::create({false, true, true})->isInDefaultState());
  EXPECT_FALSE(RenderLayer::create({true, false, true})->isInDefaultState());
  EXPECT_FALSE(RenderLayer::create({true, true, false})->isInDefaultState());
}

TEST_F(RenderLayerTest, StoringKeepsThePresentStateInABracketOfItsOwn) {
  const RenderLayerPtr layer = RenderLayer::create(shadowOnly, {{"Night", noShadow}});
  const BracketRecorder recorder;
  layer->storeState("Day");
  EXPECT_THAT(layer->states(), ElementsAre(Pair("Day", shadowOnly), Pair("Night", noShadow)));
  EXPECT_EQ(layer->present(), shadowOnly);
  EXPECT_THAT(recorder.brackets(), ElementsAre(BracketRecorder::Bracket(
                                       "RaytracingGeoAttachment", RenderLayer::StatesFieldMask)));
}

TEST_F(RenderLayerTest, StoringReplacesTheStateOfThatVeryName) {
  const RenderLayerPtr layer =
      RenderLayer::create(shadowOnly, {{"", noShadow}, {"day", noShadow}, {"Day", noShadow}});
  layer->storeState("Day");
  layer->storeState("");
  EXPECT_THAT(layer->states(),
              ElementsAre(Pair("", shadowOnly), Pair("Day", shadowOnly), Pair("day", noShadow)));
}

TEST_F(RenderLayerTest, ActivatingTakesTheStoredStateAndStoresNothing) {
  const RenderLayerPtr layer = RenderLayer::create({}, {{"Day", shadowOnly}});
  const BracketRecorder recorder;
  layer->activateState("Day");
  EXPECT_EQ(layer->present(), shadowOnly);
  EXPECT_THAT(layer->states(), ElementsAre(Pair("Day", shadowOnly)));
  EXPECT_THAT(recorder.brackets(), ElementsAre(BracketRecorder::Bracket(
                                       "RaytracingGeoAttachment", RenderLayer::PresentFieldMask)));
}

TEST_F(RenderLayerTest, ActivatingANameThatIsNotStoredGivesTheDefaultState) {
  const RenderLayerPtr layer = RenderLayer::create(noShadow, {{"Day", shadowOnly}});
  layer->activateState("day");
  EXPECT_TRUE(layer->isInDefaultState());
}

TEST_F(RenderLayerTest, ActivatingThePresentStateTouchesNothing) {
  const RenderLayerPtr layer = RenderLayer::create(shadowOnly, {{"Day", shadowOnly}});
  const RenderLayerPtr plain = RenderLayer::create();
  const BracketRecorder recorder;
  layer->activateState("Day");
  plain->activateState("Day");
  EXPECT_EQ(layer->present(), shadowOnly);
  EXPECT_THAT(recorder.brackets(), IsEmpty());
}

TEST_F(RenderLayerTest, ACopyGoesItsOwnWay) {
  const RenderLayerPtr layer = RenderLayer::create(shadowOnly, {{"Day", noShadow}});
  const RenderLayerPtr copy = layer->copy();
  EXPECT_TRUE(copy->equals(*layer));
  copy->storeState("Night");
  EXPECT_FALSE(copy->equals(*layer));
  copy->activateState("Day");
  EXPECT_EQ(layer->present(), shadowOnly);
  EXPECT_THAT(layer->states(), ElementsAre(Pair("Day", noShadow)));
  EXPECT_EQ(copy->present(), noShadow);
  EXPECT_THAT(copy->states(), ElementsAre(Pair("Day", noShadow), Pair("Night", shadowOnly)));
}

TEST_F(RenderLayerTest, EqualMeansThePresentStateAndTheStoredOnes) {
  const RenderLayerPtr layer = RenderLayer::create(shadowOnly, {{"Day", noShadow}});
  EXPECT_TRUE(layer->equals(*RenderLayer::create(shadowOnly, {{"Day", noShadow}})));
  EXPECT_FALSE(layer->equals(*RenderLayer::create(noShadow, {{"Day", noShadow}})));
  EXPECT_FALSE(layer->equals(*RenderLayer::create(shadowOnly, {{"Day", shadowOnly}})));
  EXPECT_FALSE(layer->equals(*RenderLayer::create(shadowOnly, {{"Night", noShadow}})));
  EXPECT_FALSE(layer->equals(*RenderLayer::create(shadowOnly)));
}

TEST_F(RenderLayerTest, TheTreeKnowsTheNodesThatHaveOne) {
  const osg::NodePtr car = scene.group("Car"), door = scene.group("Door", car);
  scene.group("Plain");
  give(door);
  give(car);
  EXPECT_THAT(layered(), ElementsAre("Car", "Door"));
  give(car);
  EXPECT_THAT(layered(), ElementsAre("Car", "Door"));
  SceneNode::of(scene.root()).removeChild(car);
  EXPECT_THAT(layered(), IsEmpty());
  SceneNode::of(scene.root()).addChild(car);
  EXPECT_THAT(layered(), ElementsAre("Car", "Door"));
  SceneNode::of(door).setRenderLayer({});
  EXPECT_THAT(layered(), ElementsAre("Car"));
  Scene::the().nodes.setRoot(SceneNode::create("Root", GroupCore::create()));
  EXPECT_THAT(layered(), IsEmpty());
}

}  // namespace
