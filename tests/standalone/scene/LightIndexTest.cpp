#include "standalone/scene/LightIndex.h"

#include "standalone/scene/SceneEdits.h"
#include "standalone/scene/SceneNode.h"
#include "support/SceneTest.h"

using kuStandalone::GroupCore;
using kuStandalone::LightCore;
using kuStandalone::Scene;
using kuStandalone::SceneNode;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

using Nodes = std::vector<SceneNode*>;

Nodes walkedLights() {
  Nodes lights;
  for (SceneNode* node : allNodes()) {
    if (osg::UberLightPtr::dcast(node->core())) lights.push_back(node);
  }
  return lights;
}

const Nodes& indexedLights() { return Scene::the().nodes.lights.find(Scene::the().nodes.root); }

/** Edits the scene at random, the same way for the same seed: subtrees come, go, move and are
 * cloned, and nodes get other cores. */
class RandomEdits : SceneEdits {
 public:
  explicit RandomEdits(unsigned seed) : SceneEdits(seed) {}

  void edit() {
    const unsigned kind = below(12);
    if (kind < 4) return SceneNode::of(anyNode()).addChild(makeTree());
    if (kind < 6) return static_cast<void>(takeOut());
    if (kind < 8) return move();
    if (kind < 10) return SceneNode::of(anyNode()).setCore(anyCore());
    addClone();
  }

 private:
  osg::NodeCorePtr anyCore() {
    if (below(3) == 0) return LightCore::create(true);
    return below(2) ? GroupCore::create() : osg::NodeCorePtr();
  }

  osg::NodePtr makeTree() {
    const osg::NodePtr top = SceneNode::create("", anyCore());
    for (unsigned left = below(3); left > 0; --left)
      SceneNode::of(top).addChild(SceneNode::create("", anyCore()));
    return top;
  }

  void addClone() {
    const osg::NodePtr original = anyNode();
    SceneNode::of(anyNode()).addChild(SceneNode::create("", original->getCore()));
  }
};

class LightIndexTest : public SceneTest, public ::testing::WithParamInterface<unsigned> {};

}  // namespace

TEST_P(LightIndexTest, AnswersAsAWalkAfterEveryEdit) {
  RandomEdits edits(GetParam());
  for (int i = 0; i < 400; ++i) {
    edits.edit();
    ASSERT_EQ(indexedLights(), walkedLights()) << "after edit " << i;
  }
}

TEST_P(LightIndexTest, AnswersAsAWalkAfterSeveralEdits) {
  RandomEdits edits(GetParam());
  for (int i = 0; i < 60; ++i) {
    for (int edit = 0; edit < 7; ++edit)
      edits.edit();
    ASSERT_EQ(indexedLights(), walkedLights()) << "after round " << i;
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, LightIndexTest, ::testing::Range(1u, 9u));

TEST_F(LightIndexTest, NodeThatBecomesALightIsFoundAndOneThatCeasesToBeOneIsNot) {
  const auto node = scene.group("Node");
  EXPECT_THAT(indexedLights(), IsEmpty());
  SceneNode::of(node).setCore(LightCore::create(true));
  EXPECT_THAT(indexedLights(), ElementsAre(&SceneNode::of(node)));
  SceneNode::of(node).setCore(osg::NullFC);
  EXPECT_THAT(indexedLights(), IsEmpty());
}

TEST_F(LightIndexTest, LightTakenOutOfTheTreeIsForgottenAtOnce) {
  const auto group = scene.group("Group");
  scene.light("Lamp", true, group);
  EXPECT_EQ(indexedLights().size(), 1u);
  SceneNode::of(scene.root()).removeChild(group);
  EXPECT_THAT(indexedLights(), IsEmpty());
}

TEST_F(LightIndexTest, TreeWithoutARootHasNoLights) {
  kuStandalone::SceneTree tree;
  EXPECT_THAT(tree.lights.find(tree.root), IsEmpty());
}

TEST_F(LightIndexTest, LightsOfALargeSceneAreFoundWithoutWalkingItEachTime) {
  for (int i = 0; i < 100000; ++i) {
    SceneNode::of(scene.root()).addChild(SceneNode::create("", osg::NullFC));
  }
  scene.light("Lamp", true);
  std::size_t found = 0;
  for (int i = 0; i < 1000000; ++i)  // by a walk each time some hours
    found += indexedLights().size();
  EXPECT_EQ(found, 1000000u);
}
