#include "standalone/scene/NameIndex.h"

#include "standalone/scene/SceneEdits.h"
#include "standalone/scene/SceneNode.h"
#include "support/SceneTest.h"

using kuStandalone::NameIndex;
using kuStandalone::Scene;
using kuStandalone::SceneNode;

namespace {

using Nodes = std::vector<SceneNode*>;

Nodes linearSearch(const std::string& name) {
  Nodes found;
  for (SceneNode* node : allNodes()) {
    if (node->name() == name) found.push_back(node);
  }
  return found;
}

Nodes indexSearch(const std::string& name) {
  const NameIndex::Nodes* found = Scene::the().nodes.names.find(name);
  return found ? Nodes(found->begin(), found->end()) : Nodes();
}

/** Edits the scene at random, the same way for the same seed. */
class RandomEdits : SceneEdits {
 public:
  explicit RandomEdits(unsigned seed) : SceneEdits(seed) {}

  std::string anyName() { return "Name" + std::to_string(below(7)); }

  void edit() {
    const unsigned kind = below(10);
    if (kind < 4) return add();
    if (kind < 6) return remove();
    if (kind < 8) return move();
    SceneNode::of(anyNode()).setName(anyName());
  }

 private:
  void add() {
    const osg::NodePtr top = SceneNode::create(anyName(), kuStandalone::GroupCore::create());
    if (below(2)) {
      SceneNode::of(top).addChild(SceneNode::create(anyName(), top->getCore()));
    }
    SceneNode::of(anyNode()).addChild(top);
  }

  void remove() { takeOut(); }
};

class NameIndexTest : public SceneTest, public ::testing::WithParamInterface<unsigned> {};

}  // namespace

TEST_P(NameIndexTest, AnswersAsALinearSearchAfterEveryEdit) {
  RandomEdits edits(GetParam());
  for (int i = 0; i < 400; ++i) {
    edits.edit();
    // Not every name each time: an order must also survive edits between two searches.
    const std::string name = edits.anyName();
    ASSERT_EQ(indexSearch(name), linearSearch(name)) << name << " after edit " << i;
  }
  for (int i = 0; i < 7; ++i) {
    const std::string name = "Name" + std::to_string(i);
    EXPECT_EQ(indexSearch(name), linearSearch(name)) << name;
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, NameIndexTest, ::testing::Range(1u, 13u));

TEST_F(NameIndexTest, NodeTakenOutOfTheTreeIsNotFound) {
  const auto group = scene.group("Group");
  const auto child = scene.group("Child", group);
  SceneNode::of(scene.root()).removeChild(group);
  EXPECT_TRUE(indexSearch("Child").empty());
  EXPECT_EQ(SceneNode::of(child).tree(), nullptr);
}

TEST_F(NameIndexTest, LargeSceneOfUnnamedNodesIsTakenDownAtOnce) {
  // One by one out of a single list this would be some ten thousand million moves.
  constexpr int count = 200000;
  for (int i = 0; i < count; ++i) {
    SceneNode::of(scene.root()).addChild(SceneNode::create("", osg::NullFC));
  }
  ASSERT_EQ(indexSearch("").size(), std::size_t(count));
  const osg::NodePtr last = scene.root()->getChild(count - 1);
  Scene::the().nodes.setRoot(SceneNode::create("Root", osg::NullFC));
  EXPECT_TRUE(indexSearch("").empty());
  EXPECT_EQ(SceneNode::of(last).tree(), nullptr);
}

TEST_F(NameIndexTest, ManyNodesOfOneNameAreRenamedAtOnce) {
  // One by one out of a single list this would be some ten thousand million moves.
  constexpr int count = 200000;
  for (int i = 0; i < count; ++i)
    SceneNode::of(scene.root()).addChild(SceneNode::create("Box", osg::NullFC));
  for (int i = 0; i < count; i += 2)
    SceneNode::of(scene.root()->getChild(unsigned(i))).setName("Box" + std::to_string(i));
  EXPECT_EQ(indexSearch("Box"), linearSearch("Box"));
  EXPECT_EQ(indexSearch("Box4"), Nodes{&SceneNode::of(scene.root()->getChild(4))});
}

TEST_F(NameIndexTest, NodeThatTakesNamesInTurnLeavesNothingBehind) {
  const auto first = scene.group("A"), moving = scene.group("A"), last = scene.group("A");
  for (int i = 0; i < 1001; ++i)
    SceneNode::of(moving).setName(i % 2 ? "A" : "B");
  EXPECT_EQ(indexSearch("A"), (Nodes{&SceneNode::of(first), &SceneNode::of(last)}));
  EXPECT_EQ(indexSearch("B"), Nodes{&SceneNode::of(moving)});
}
