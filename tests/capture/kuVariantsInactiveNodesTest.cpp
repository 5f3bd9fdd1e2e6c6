#include <algorithm>
#include <random>

#include "SceneCaptureTest.h"
#include "host/utils/kuNodeUtils.h"
#include "standalone/scene/SceneNode.h"
#include "support/kuVariantsTestAccess.h"

// Inactive nodes in generated scenes, held against a plain look through all nodes for each of them.

namespace {

using kuStandalone::SceneNode;

class KuVariantsInactiveNodesTest : public SceneCaptureTest,
                                    public ::testing::WithParamInterface<int> {
 protected:
  /** Sixty groups of few names, some without one, a third of them inactive. */
  KuVariantsInactiveNodesTest() : _random(static_cast<unsigned>(GetParam())) {
    std::vector<osg::NodePtr> nodes{scene.root()};
    while (nodes.size() < 60) {
      nodes.push_back(scene.group(nameAt(number(12)), nodes[number(nodes.size())]));
      SceneBuilder::setActive(nodes.back(), number(3) != 0);
    }
  }

  /** What the capture of nodes is to take of a node and all below it. */
  void walk(const osg::NodePtr& node) {
    if (node->getActive()) {
      for (const osg::NodePtr& child : SceneNode::of(node).children())
        walk(child);
    } else if (hasActiveNamesake(node)) {
      script.push_back("findNodePath(\"" + kuVariants::getNodePath(node).toStdString() +
                       "\").setActive(false)");
    } else {
      addState(kuNodeUtils::getName(node));
    }
  }

  static bool hasActiveNamesake(const osg::NodePtr& node) {
    const std::string name = kuNodeUtils::getName(node);
    std::vector<kuNodePtr> nodes;
    kuNodeUtils::getSceneNodes(nodes, false);
    return std::any_of(nodes.begin(), nodes.end(), [&](const kuNodePtr& other) {
      return kuNodeUtils::getName(other) == name && other.getNode()->getActive();
    });
  }

  Texts states, script;

 private:
  std::size_t number(std::size_t count) { return _random() % count; }
  /** Few are frequent, so that there are names with one bearer and names with many. */
  static std::string nameAt(std::size_t index) {
    return index < 3 ? std::string() : index < 6 ? "Mirror" : "Part" + std::to_string(index);
  }
  void addState(const std::string& name) {
    const std::string state = "node " + name + "=!Disable";
    if (name.empty() || std::find(states.begin(), states.end(), state) != states.end()) return;
    states.push_back(state);
  }

  std::mt19937 _random;
};

}  // namespace

TEST_P(KuVariantsInactiveNodesTest, CaptureAnswersAsAPlainLookThroughTheScene) {
  walk(scene.root());
  states.emplace_back("target Root");
  capture(only(&CaptureFlags::nodes));
  EXPECT_EQ(content(), states);
  EXPECT_EQ(scriptLines(), script);
}

TEST_P(KuVariantsInactiveNodesTest, SingleQuestionAnswersAsAPlainLookThroughTheScene) {
  std::vector<kuNodePtr> nodes;
  kuNodeUtils::getSceneNodes(nodes, false);
  for (const kuNodePtr& node : nodes) {
    kuVariantSet asked;
    const bool goesOn = kuVariantsTestAccess::checkAndSetNodeActive(node, asked, true);
    EXPECT_EQ(goesOn, node.getNode()->getActive());
    EXPECT_EQ(!asked.getScript().isEmpty(), !goesOn && hasActiveNamesake(node));
  }
}

INSTANTIATE_TEST_SUITE_P(Scenes, KuVariantsInactiveNodesTest, ::testing::Range(0, 40));
