#include "host/osg/GraphOp.h"

#include <functional>
#include <map>

#include "host/utils/kuNodeUtils.h"
#include "standalone/gltf/SceneFile.h"
#include "standalone/scene/SceneNode.h"
#include "support/SceneTest.h"

using kuStandalone::SceneNode;
using osg::Action;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/** Notes its calls, and answers what a test tells it to at a node. */
class NotedWalk final : public osg::GraphOp {
 public:
  NotedWalk() : GraphOp("NotedWalk") {}

  GraphOp* create() override { return new NotedWalk; }
  void setParams(std::string) override {}
  std::string usage() override { return std::string(); }

  /** "+Roof" for a node that is entered, "-Roof" for one that is left. */
  std::vector<std::string> calls;
  /** What each node that was left had answered before. */
  std::map<std::string, Action::ResultE> handedOn;
  std::map<std::string, Action::ResultE> enterAnswers, leaveAnswers;
  std::function<void(const osg::NodePtr&)> atEnter = [](const osg::NodePtr&) {};

 private:
  using Answers = std::map<std::string, Action::ResultE>;

  static Action::ResultE answer(const Answers& answers, const std::string& name) {
    const auto found = answers.find(name);
    return found == answers.end() ? Action::Continue : found->second;
  }

  Action::ResultE traverseEnter(const osg::NodePtr& node) override {
    const std::string name = kuNodeUtils::getName(node);
    calls.push_back("+" + name);
    atEnter(node);
    return answer(enterAnswers, name);
  }

  Action::ResultE traverseLeave(const osg::NodePtr& node, Action::ResultE result) override {
    const std::string name = kuNodeUtils::getName(node);
    calls.push_back("-" + name);
    handedOn[name] = result;
    return answer(leaveAnswers, name);
  }
};

/** A tree Top (A (A1, A2), B). */
class GraphOpTest : public SceneTest {
 protected:
  GraphOpTest() {
    top = scene.group("Top");
    a = scene.group("A", top);
    scene.group("A1", a);
    scene.group("A2", a);
    scene.group("B", top);
  }

  osg::NodePtr top, a;
  NotedWalk walk;
};

TEST_F(GraphOpTest, HasTheNameItWasMadeWith) { EXPECT_EQ(walk.getName(), "NotedWalk"); }

TEST_F(GraphOpTest, EntersEachNodeBeforeItsChildrenAndLeavesItBehindThem) {
  EXPECT_TRUE(walk.traverse(top));
  EXPECT_THAT(walk.calls,
              ElementsAre("+Top", "+A", "+A1", "-A1", "+A2", "-A2", "-A", "+B", "-B", "-Top"));
  EXPECT_EQ(walk.handedOn.at("A"), Action::Continue);
}

TEST_F(GraphOpTest, WalksTheNodeAndWhatIsBelowItAlone) {
  EXPECT_TRUE(walk.traverse(a));
  EXPECT_THAT(walk.calls, ElementsAre("+A", "+A1", "-A1", "+A2", "-A2", "-A"));
}

TEST_F(GraphOpTest, ANullNodeIsNotWalked) {
  EXPECT_FALSE(walk.traverse(osg::NullFC));
  EXPECT_THAT(walk.calls, IsEmpty());
}

TEST_F(GraphOpTest, SkipAtTheEntryLeavesOutTheChildren) {
  walk.enterAnswers["A"] = Action::Skip;
  EXPECT_TRUE(walk.traverse(top));
  EXPECT_THAT(walk.calls, ElementsAre("+Top", "+A", "-A", "+B", "-B", "-Top"));
  EXPECT_EQ(walk.handedOn.at("A"), Action::Skip);
}

TEST_F(GraphOpTest, BreakAtTheEntryLeavesOutTheChildrenAndTheSiblingsBehind) {
  walk.enterAnswers["A"] = Action::Break;
  EXPECT_TRUE(walk.traverse(top));
  EXPECT_THAT(walk.calls, ElementsAre("+Top", "+A", "-A", "-Top"));
  EXPECT_EQ(walk.handedOn.at("A"), Action::Break);
}

TEST_F(GraphOpTest, BreakBelowLeavesOutTheSiblingsOfThatNodeAlone) {
  walk.enterAnswers["A1"] = Action::Break;
  EXPECT_TRUE(walk.traverse(top));
  EXPECT_THAT(walk.calls, ElementsAre("+Top", "+A", "+A1", "-A1", "-A", "+B", "-B", "-Top"));
}

TEST_F(GraphOpTest, QuitAtTheEntryEndsTheWalkAtOnce) {
  walk.enterAnswers["A1"] = Action::Quit;
  EXPECT_FALSE(walk.traverse(top));
  EXPECT_THAT(walk.calls, ElementsAre("+Top", "+A", "+A1"));
}

TEST_F(GraphOpTest, SkipOnTheWayUpChangesNothing) {
  walk.leaveAnswers["A1"] = Action::Skip;
  EXPECT_TRUE(walk.traverse(a));
  EXPECT_THAT(walk.calls, ElementsAre("+A", "+A1", "-A1", "+A2", "-A2", "-A"));
}

TEST_F(GraphOpTest, BreakOnTheWayUpLeavesOutTheSiblingsBehind) {
  walk.leaveAnswers["A1"] = Action::Break;
  EXPECT_TRUE(walk.traverse(top));
  EXPECT_THAT(walk.calls, ElementsAre("+Top", "+A", "+A1", "-A1", "-A", "+B", "-B", "-Top"));
}

TEST_F(GraphOpTest, QuitOnTheWayUpEndsTheWalkAtOnce) {
  walk.leaveAnswers["A"] = Action::Quit;
  EXPECT_FALSE(walk.traverse(top));
  EXPECT_THAT(walk.calls, ElementsAre("+Top", "+A", "+A1", "-A1", "+A2", "-A2", "-A"));
}

TEST_F(GraphOpTest, AChildThatIsAddedMeanwhileIsWalked) {
  walk.atEnter = [&](const osg::NodePtr& node) {
    if (node == a) scene.group("A3", a);
  };
  EXPECT_TRUE(walk.traverse(a));
  EXPECT_THAT(walk.calls, ElementsAre("+A", "+A1", "-A1", "+A2", "-A2", "+A3", "-A3", "-A"));
}

TEST_F(GraphOpTest, AChildThatIsRemovedBeforeItsTurnIsNotWalked) {
  walk.atEnter = [&](const osg::NodePtr& node) {
    if (node == a) SceneNode::of(a).removeChild(a->getChild(1));
  };
  EXPECT_TRUE(walk.traverse(a));
  EXPECT_THAT(walk.calls, ElementsAre("+A", "+A1", "-A1", "-A"));
}

TEST_F(GraphOpTest, ANodeThatIsRemovedInItsTurnIsWalkedToItsEnd) {
  walk.atEnter = [&](const osg::NodePtr& node) {
    if (std::string(kuNodeUtils::getName(node)) != "A") return;
    SceneNode::of(top).removeChild(a);
    a = osg::NullFC;
  };
  EXPECT_TRUE(walk.traverse(top));
  EXPECT_THAT(walk.calls, ElementsAre("+Top", "+A", "+A1", "-A1", "+A2", "-A2", "-A", "-Top"));
}

TEST_F(GraphOpTest, ANodeThatNobodyElseHoldsLivesAsLongAsItIsWalked) {
  osg::NodePtr alone = SceneNode::create("Alone", osg::NullFC);
  walk.atEnter = [&](const osg::NodePtr&) { alone = osg::NullFC; };
  EXPECT_TRUE(walk.traverse(alone));
  EXPECT_THAT(walk.calls, ElementsAre("+Alone", "-Alone"));
}

TEST_F(GraphOpTest, ReachesTheDeepestNodeThatASceneFileMayHave) {
  const std::size_t depth = kuStandalone::SceneLimits().depth;
  osg::NodePtr deepest = scene.group("Deep", a);
  for (std::size_t level = 1; level < depth; ++level)
    deepest = scene.group("Deep", deepest);
  scene.group("Deepest", deepest);
  EXPECT_TRUE(walk.traverse(scene.root()));
  EXPECT_EQ(walk.handedOn.count("Deepest"), 1u);
  EXPECT_EQ(walk.calls.size(), 2 * (depth + 7));
}

}  // namespace
