#include <gtest/gtest.h>

#include "GltfText.h"
#include "host/utils/kuNodeUtils.h"
#include "standalone/scene/Cores.h"
#include "standalone/scene/NodeCoreFields.h"

using namespace kuStandalone;

namespace {

TEST(Clones, CloneSharesTheCoreAndCopiesAllBelow) {
  const auto result = loadText(
      sceneText("0,3", R"({"name":"A","children":[1],"extras":{"switch":1}},)"
                       R"({"name":"B","translation":[1,2,3],"children":[2],)"
                       R"("extensions":{"KHR_node_visibility":{"visible":false}}},{"name":"C"},)"
                       R"({"name":"D","translation":[7,7,7],"extras":{"cloneOf":"A"}})"));
  ASSERT_EQ(result.error, "");
  const osg::NodePtr original = nodeAt(result, {0}), clone = nodeAt(result, {1});
  EXPECT_EQ(clone->getCore(), original->getCore());
  EXPECT_EQ(nameOf(clone), "D");
  EXPECT_EQ(SceneNode::of(clone).source(), 3);
  EXPECT_EQ(SceneNode::of(clone).transform().translation, (std::array<double, 3>{7, 7, 7}));
  ASSERT_EQ(clone->getNChildren(), 1u);
  const osg::NodePtr copy = clone->getChild(0);
  EXPECT_NE(copy, original->getChild(0));
  EXPECT_EQ(copy->getCore(), original->getChild(0)->getCore());
  EXPECT_EQ(nameOf(copy), "B");
  EXPECT_FALSE(copy->getActive());
  EXPECT_EQ(SceneNode::of(copy).source(), -1);
  EXPECT_EQ(SceneNode::of(copy).transform().translation, (std::array<double, 3>{1, 2, 3}));
  EXPECT_EQ(nameOf(nodeAt(result, {1, 0, 0})), "C");
}

TEST(Clones, OriginalIsTheFirstParentEvenIfTheCloneComesFirst) {
  const auto result =
      loadText(sceneText("0,1", R"({"name":"Clone","extras":{"cloneOf":"A"}},{"name":"A"})"));
  ASSERT_EQ(result.error, "");
  const auto& parents = nodeAt(result, {0})->getCore()->hostFields().parents;
  ASSERT_EQ(parents.size(), 2u);
  EXPECT_EQ(parents[0], &SceneNode::of(nodeAt(result, {1})));
  EXPECT_EQ(parents[1], &SceneNode::of(nodeAt(result, {0})));
}

TEST(Clones, FirstInTheSceneIsNoCloneWhicheverIsTheOriginal) {
  const auto result =
      loadText(sceneText("0,1", R"({"name":"Clone","extras":{"cloneOf":"A"}},{"name":"A"})"));
  ASSERT_EQ(result.error, "");
  EXPECT_FALSE(kuNodeUtils::isClone(nodeAt(result, {0})));
  EXPECT_TRUE(kuNodeUtils::isClone(nodeAt(result, {1})));
}

TEST(Clones, LaterNodesOfOneMeshAreClonesOfTheFirst) {
  const auto result = loadText(
      sceneText("0,1", R"({"name":"A","mesh":0},{"name":"B","children":[2],"mesh":0},{"name":"C"})",
                R"(,"meshes":[{"primitives":[{}]}])"));
  ASSERT_EQ(result.error, "");
  EXPECT_FALSE(kuNodeUtils::isClone(nodeAt(result, {0})));
  EXPECT_FALSE(kuNodeUtils::isClone(nodeAt(result, {1})));
  EXPECT_EQ(nameOf(nodeAt(result, {1, 1})), "B.geometry1");
  EXPECT_TRUE(kuNodeUtils::isClone(nodeAt(result, {1, 1})));
}

TEST(Clones, OriginalIsTheFirstOfThatNameThatIsNoCloneItself) {
  const auto result = loadText(sceneText("0,1,2", R"({"name":"A","extras":{"cloneOf":"A"}},)"
                                                  R"({"name":"A","extras":{"switch":5}},)"
                                                  R"({"name":"A","extras":{"switch":6}})"));
  ASSERT_EQ(result.error, "");
  EXPECT_EQ(nodeAt(result, {0})->getCore(), nodeAt(result, {1})->getCore());
}

TEST(Clones, OriginalCanBeNamedByItsIndex) {
  const auto result = loadText(
      sceneText("0,1,2", R"({"name":"A"},{"name":"A"},{"name":"X","extras":{"cloneOf":1}})"));
  ASSERT_EQ(result.error, "");
  EXPECT_EQ(nodeAt(result, {2})->getCore(), nodeAt(result, {1})->getCore());
}

TEST(Clones, ClonesInsideAnOriginalAreClonedWithIt) {
  const auto result = loadText(sceneText(
      "0,1,3",
      R"({"name":"Outer clone","extras":{"cloneOf":"Outer"}},)"
      R"({"name":"Outer","children":[2]},{"name":"Inner clone","extras":{"cloneOf":4}},)"
      R"({"name":"Inner holder","children":[4]},{"name":"Inner","children":[5]},{"name":"Leaf"})"));
  ASSERT_EQ(result.error, "");
  EXPECT_EQ(nameOf(nodeAt(result, {0, 0, 0})), "Leaf");
  EXPECT_EQ(nameOf(nodeAt(result, {1, 0, 0})), "Leaf");
  const auto& parents = nodeAt(result, {2, 0})->getCore()->hostFields().parents;
  ASSERT_EQ(parents.size(), 3u);
  EXPECT_EQ(parents[0], &SceneNode::of(nodeAt(result, {2, 0})));
}

TEST(Clones, CloneOfANodeOutsideTheSceneHasItsContent) {
  const auto result = loadText(sceneText(
      "0", R"({"name":"X","extras":{"cloneOf":"A"}},{"name":"A","children":[2]},{"name":"B"})"));
  ASSERT_EQ(result.error, "");
  EXPECT_EQ(nameOf(nodeAt(result, {0, 0})), "B");
  EXPECT_EQ(nodeAt(result, {0})->getCore()->hostFields().parents.size(), 1u);
}

TEST(Clones, WrongClonesAreRefused) {
  const std::vector<std::pair<QByteArray, std::string>> cases = {
      {sceneText("0", R"({"extras":{"cloneOf":"A"}})"),
       "f: nodes[0].extras.cloneOf: there is no node 'A' to clone"},
      {sceneText("0", R"({"name":"A","extras":{"cloneOf":"A"}})"),
       "f: nodes[0].extras.cloneOf: there is no node 'A' to clone"},
      {sceneText("0", R"({"extras":{"cloneOf":7}})"),
       "f: nodes[0].extras.cloneOf: there are 1 and no such one"},
      {sceneText("0", R"({"extras":{"cloneOf":0}})"), "f: nodes[0].extras.cloneOf: names a clone"},
      {sceneText("0", R"({"extras":{"cloneOf":true}})"), "f: nodes[0].extras.cloneOf: is no index"},
      {sceneText("0", R"({"name":"A","children":[1]},{"extras":{"cloneOf":"A"}})"),
       "f: nodes[1].extras.cloneOf: the clone lies below its own original"},
      {sceneText("0,2", R"({"name":"A","children":[1]},{"extras":{"cloneOf":"B"}},)"
                        R"({"name":"B","children":[3]},{"extras":{"cloneOf":"A"}})"),
       "f: nodes[1].extras.cloneOf: the clone lies below its own original"},
      {sceneText("0,1", R"({"name":"A"},{"children":[2],"extras":{"cloneOf":"A"}},{})"),
       "f: nodes[1]: has both 'children' and 'cloneOf'"},
      {sceneText("0,1", R"({"name":"A"},{"extras":{"switch":0,"cloneOf":"A"}})"),
       "f: nodes[1].extras: has both 'switch' and 'cloneOf'"},
  };
  for (const auto& one : cases)
    EXPECT_EQ(loadText(one.first).error, one.second) << one.first.toStdString();
}

/** Each node holds two clones of the next, so that the nodes double with each. */
QByteArray doubling(int levels) {
  QByteArray nodes, top;
  for (int level = 0; level < levels; ++level) {
    const QByteArray next = R"({"extras":{"cloneOf":)" + QByteArray::number(3 * level + 3) + "}}";
    const QByteArray first = QByteArray::number(3 * level + 1);
    nodes += R"({"children":[)" + first + "," + QByteArray::number(3 * level + 2) + "]}," + next +
             "," + next + ",";
    top += QByteArray::number(3 * level) + ",";
  }
  return sceneText(top + QByteArray::number(3 * levels), nodes + "{}");
}

TEST(Clones, WhatClonesAddCountsAsNodes) {
  SceneLimits limits;
  limits.nodes = 10'000;
  EXPECT_EQ(loadSceneData(doubling(3), "f", limits).error, "");
  EXPECT_EQ(loadSceneData(doubling(40), "f", limits).error, "f: nodes: are too many");
}

TEST(Clones, WhatClonesAddCountsAsDepth) {
  SceneLimits limits;
  limits.depth = 6;
  EXPECT_EQ(loadSceneData(doubling(5), "f", limits).error, "");
  EXPECT_EQ(loadSceneData(doubling(6), "f", limits).error, "f: nodes: the clones lie too deep");
}

}  // namespace
