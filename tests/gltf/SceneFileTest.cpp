#include "standalone/gltf/SceneFile.h"

#include <gtest/gtest.h>

#include "standalone/scene/Cores.h"
#include "standalone/scene/SceneNode.h"
#include "standalone/scene/ScenePool.h"

using namespace kuStandalone;

namespace {

/** A file of version 2.0 with these further members. */
QByteArray gltf(const QByteArray& members) {
  return R"({"asset":{"version":"2.0"},)" + members + "}";
}

/** A file whose scene is node 0 alone at the top. */
QByteArray withNodes(const QByteArray& nodes, const QByteArray& more = {}) {
  return gltf(R"("scene":0,"scenes":[{"nodes":[0]}],"nodes":[)" + nodes + "]" + more);
}

QByteArray glb(const QByteArray& text) {
  const auto number = [](quint32 value) {
    return QByteArray(reinterpret_cast<const char*>(&value), 4);
  };
  const QByteArray padded = text + QByteArray((4 - text.size() % 4) % 4, ' ');
  return "glTF" + number(2) + number(quint32(padded.size() + 20)) + number(quint32(padded.size())) +
         "JSON" + padded;
}

osg::NodePtr firstNode(const SceneLoadResult& result) {
  return result.scene->nodes.root->getChild(0);
}

TEST(SceneFile, HostileFilesAreRefusedWithPlaceAndReason) {
  const std::vector<std::pair<QByteArray, std::string>> cases = {
      {"", "f: is empty"},
      {"[]", "f: is no JSON object"},
      {"{}", "f: asset.version: is not \"2.0\""},
      {R"({"asset":{"version":"1.0"}})", "f: asset.version: is not \"2.0\""},
      {gltf(R"("extensionsRequired":["KHR_draco_mesh_compression"])"),
       "f: extensionsRequired: 'KHR_draco_mesh_compression' is not supported"},
      {gltf(R"("nodes":7)"), "f: nodes: is no array"},
      {gltf(R"("nodes":[7])"), "f: nodes[0]: is no object"},
      {gltf(R"("scene":1,"scenes":[{}])"), "f: scene: there are 1 and no such one"},
      {gltf(R"("scenes":[{"nodes":[2]}])"), "f: scenes[0].nodes[0]: there are 0 and no such one"},
      {withNodes(R"({"mesh":0})"), "f: nodes[0].mesh: there are 0 and no such one"},
      {withNodes(R"({"mesh":0.5})"), "f: nodes[0].mesh: is no index"},
      {withNodes(R"({"camera":4})"), "f: nodes[0].camera: there are 0 and no such one"},
      {withNodes(R"({"matrix":[1,2]})"), "f: nodes[0].matrix: is not 16 numbers"},
      {withNodes(R"({"children":[0]})"), "f: nodes[0]: lies below itself"},
      {withNodes(R"({"children":[1]},{"children":[2]},{"children":[1]})"),
       "f: nodes[2].children[0]: the node has a parent already"},
      {withNodes(R"({"children":[1,1]},{})"),
       "f: nodes[0].children[1]: the node has a parent already"},
      {withNodes(R"({"extras":{"switch":1e99}})"),
       "f: nodes[0].extras.switch: is no whole number in range"},
      {withNodes(R"({"extras":{"materialGroup":{"material":3}}})"),
       "f: nodes[0].extras.materialGroup.material: there are 0 and no such one"},
      {gltf(R"("materials":[{"extras":{"switch":{"materials":[1]}}}])"),
       "f: materials[0].extras.switch.materials[0]: there are 1 and no such one"},
      {gltf(R"("materials":[{"extras":{"switch":{"materials":[0]}}}])"),
       "f: materials[0]: contains itself or lies too deep"},
  };
  for (const auto& one : cases) {
    const SceneLoadResult result = loadSceneData(one.first, "f");
    EXPECT_EQ(result.status, SceneLoadResult::Status::Invalid) << one.first.toStdString();
    EXPECT_EQ(result.error, one.second);
    EXPECT_EQ(result.scene, nullptr);
  }
}

TEST(SceneFile, GlbCutAtAnyLengthIsRefused) {
  const QByteArray whole = glb(withNodes(R"({"name":"A"})"));
  ASSERT_EQ(loadSceneData(whole, "f").error, "");
  for (int length = 0; length < whole.size(); ++length) {
    const SceneLoadResult result = loadSceneData(whole.left(length), "f");
    EXPECT_EQ(result.status, SceneLoadResult::Status::Invalid) << length;
    EXPECT_NE(result.error, "") << length;
  }
}

TEST(SceneFile, MissingFileCannotBeRead) {
  const SceneLoadResult result = loadScene("no/such/file.gltf");
  EXPECT_EQ(result.status, SceneLoadResult::Status::CannotRead);
  EXPECT_EQ(result.error, "no/such/file.gltf: No such file or directory");
}

TEST(SceneFile, SwitchKeepsAnyChoiceAndItsChildrenInOrder) {
  const SceneLoadResult result = loadSceneData(
      withNodes(
          R"({"name":"S","children":[2,1],"extras":{"switch":77}},{"name":"A"},{"name":"B"})"),
      "f");
  ASSERT_EQ(result.error, "");
  const osg::NodePtr node = firstNode(result);
  EXPECT_EQ(SwitchCore::of(node->getCore()).choice, 77);
  ASSERT_EQ(node->getNChildren(), 2u);
  EXPECT_EQ(SceneNode::of(node->getChild(0)).name(), "B");
  EXPECT_EQ(SceneNode::of(node->getChild(1)).name(), "A");
}

TEST(SceneFile, TransformStandsInItsChoiceUnlessToldOtherwise) {
  const SceneLoadResult result = loadSceneData(
      withNodes(
          R"({"extras":{"transforms":[{"name":"Open"},{"translation":[1,2,3]}],"transform":1}})"),
      "f");
  ASSERT_EQ(result.error, "");
  const auto& core = TransformSwitchCore::of(firstNode(result)->getCore());
  ASSERT_EQ(core.states.size(), 2u);
  EXPECT_EQ(core.states[0].name, "Open");
  EXPECT_EQ(core.states[1].transform.translation, (std::array<double, 3>{1, 2, 3}));
  EXPECT_EQ(core.choice, 1u);
  EXPECT_EQ(core.supposed, 1);
}

TEST(SceneFile, MeshOfTwoPrimitivesGivesTwoChildren) {
  const SceneLoadResult result = loadSceneData(
      withNodes(R"({"name":"M","mesh":0})", R"(,"meshes":[{"primitives":[{},{}]}])"), "f");
  ASSERT_EQ(result.error, "");
  const osg::NodePtr node = firstNode(result);
  ASSERT_EQ(node->getNChildren(), 2u);
  EXPECT_EQ(SceneNode::of(node->getChild(0)).name(), "M.geometry1");
  EXPECT_EQ(SceneNode::of(node->getChild(1)).name(), "M.geometry2");
}

TEST(SceneFile, NodesOfOneMeshShareTheGeometry) {
  const SceneLoadResult result =
      loadSceneData(withNodes(R"({"children":[1,2]},{"mesh":0},{"mesh":0})",
                              R"(,"meshes":[{"primitives":[{}]}])"),
                    "f");
  ASSERT_EQ(result.error, "");
  const osg::NodePtr node = firstNode(result);
  EXPECT_EQ(node->getChild(0)->getCore(), node->getChild(1)->getCore());
  EXPECT_STREQ(node->getChild(0)->getCore()->getType().getName(), "Geometry");
}

TEST(SceneFile, MoreNodesThanAllowedAreRefused) {
  SceneLimits limits;
  limits.nodes = 1;
  EXPECT_EQ(loadSceneData(withNodes(R"({"children":[1]},{})"), "f", limits).error,
            "f: nodes: are too many");
}

}  // namespace
