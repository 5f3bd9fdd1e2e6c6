// Random scenes with many equal names, held against what a fix promises.

#include <map>
#include <random>

#include "capture/CheckerTest.h"
#include "standalone/scene/Scene.h"
#include "standalone/scene/SceneNode.h"
#include "support/SceneDump.h"

namespace {

class CheckerGeneratedTest : public CheckerTest, public ::testing::WithParamInterface<unsigned> {
 protected:
  /** Nodes of all kinds below one another, a few of them cloned behind all others; the same scene
   * each time. */
  void build() {
    SceneBuilder();  // empties the scene
    _random.seed(GetParam());
    _nodes.clear();
    _parents.clear();
    for (int count = 0; count < 60; ++count)
      grow();
    for (int count = 0; count < 5; ++count)
      scene.clone(pick(_nodes), pickName());
    for (int count = 0; count < 8; ++count)
      scene.sceneplate(pickName());
  }

 private:
  void grow() {
    const osg::NodePtr parent = _parents.empty() || roll(3) == 0 ? scene.root() : pick(_parents);
    const osg::NodePtr node = make(parent);
    _nodes.push_back(node);
    if (roll(4) != 0) _parents.push_back(node);
  }

  osg::NodePtr make(const osg::NodePtr& parent) {
    const int kind = roll(4);
    if (kind == 0) return scene.light(pickName(), true, parent);
    if (kind == 1) return scene.switchNode(pickName(), 0, {pickName(), pickName()}, parent);
    if (kind == 2) {
      return scene.transforms(pickName(), {pickName(), pickName(), pickName()}, 0, -1, parent);
    }
    return scene.group(pickName(), parent);
  }

  int roll(int sides) { return std::uniform_int_distribution<>(0, sides - 1)(_random); }
  const osg::NodePtr& pick(const std::vector<osg::NodePtr>& nodes) {
    return nodes[static_cast<std::size_t>(roll(static_cast<int>(nodes.size())))];
  }
  std::string pickName() {
    static const Names choices = {"",   "1",   "2",   "A",  "A1",  "A2",
                                  "A3", "A01", "Böx", "車", "車9", "A18446744073709551616"};
    return choices[static_cast<std::size_t>(roll(static_cast<int>(choices.size())))];
  }

  std::mt19937 _random;
  std::vector<osg::NodePtr> _nodes, _parents;
};

/** The nodes under which each core is met first, in the order of the walk. */
void collect(const osg::NodePtr& node, std::vector<osg::NodePtr>& met,
             std::set<osg::NodeCorePtr>& seen) {
  if (!seen.insert(node->getCore()).second) return;
  met.push_back(node);
  for (unsigned child = 0; child < node->getNChildren(); ++child)
    collect(node->getChild(child), met, seen);
}

std::vector<osg::NodePtr> nodesOfTheWalk() {
  std::vector<osg::NodePtr> met;
  std::set<osg::NodeCorePtr> seen;
  collect(kuOpenSGUtils::getRoot(), met, seen);
  collect(kuSceneplateUtils::getSceneplateRoot(), met, seen);
  return met;
}

/** The text of the scene without the names of nodes and of transform states, which it takes away.
 */
std::string dumpWithoutNames() {
  using namespace kuStandalone;
  std::vector<kuNodePtr> nodes;
  kuNodeUtils::getSceneNodes(nodes, true);
  for (const kuNodePtr& node : nodes) {
    SceneNode::of(node).setName("");
    if (!osg::SwitchComponentTransformPtr::dcast(node.getNode()->getCore())) continue;
    for (TransformState& state : TransformSwitchCore::of(node.getNode()->getCore()).states)
      state.name.clear();
  }
  return dumpScene(Scene::the());
}

}  // namespace

TEST_P(CheckerGeneratedTest, AfterAFixNoNameIsAmbiguousAndFirstBearersAloneKeepTheirs) {
  build();
  const std::vector<osg::NodePtr> nodes = nodesOfTheWalk();
  const Names before = namesOf(nodes);
  ASSERT_TRUE(hasAmbiguousNodes());
  kuVariantCaptureChecker().fixAmbiguousNodes();
  const kuVariantCaptureChecker after;
  EXPECT_FALSE(after.hasAmbiguousNodes());
  EXPECT_TRUE(kuVariantsTestAccess::coresWithAmbiguousTransformVariants(after).empty());
  std::set<std::string> seen;
  for (std::size_t index = 0; index < nodes.size(); ++index) {
    const bool isFirst = seen.insert(before[index]).second;
    EXPECT_EQ(kuNodeUtils::getName(nodes[index]) == before[index], isFirst) << before[index];
  }
}

TEST_P(CheckerGeneratedTest, NothingButNamesChanges) {
  build();
  const std::string before = dumpWithoutNames();
  build();
  kuVariantCaptureChecker().fixAmbiguousNodes();
  EXPECT_EQ(dumpWithoutNames(), before);
}

TEST_P(CheckerGeneratedTest, NumbersOfOneBaseAreGivenInTheOrderOfTheWalk) {
  build();
  const std::vector<osg::NodePtr> nodes = nodesOfTheWalk();
  const Names before = namesOf(nodes);
  kuVariantCaptureChecker().fixAmbiguousNodes();
  std::map<std::string, std::uint64_t> last;
  for (std::size_t index = 0; index < nodes.size(); ++index) {
    if (kuNodeUtils::getName(nodes[index]) == before[index]) continue;
    const std::string base = kuNodeUtils::getStrippedName(before[index]).baseName;
    const auto after = kuNodeUtils::getStrippedName(kuNodeUtils::getName(nodes[index]));
    EXPECT_EQ(after.baseName, base);
    EXPECT_GT(after.number, last[base]);
    last[base] = after.number;
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, CheckerGeneratedTest, ::testing::Range(0u, 25u));
