#include <gtest/gtest.h>

#include "GltfText.h"

using namespace kuStandalone;

namespace {

/** A scene with the cameras "Front" and "Back" and these extras. */
QByteArray withExtras(const QByteArray& extras) {
  return gltfText(
      R"("scenes":[{"nodes":[0,1],"extras":{)" + extras +
      R"(}}],"nodes":[{"name":"Front","camera":0,"translation":[1,2,3],"scale":[2,2,2]},)"
      R"({"name":"Back","camera":0}],"cameras":[{"type":"perspective","perspective":{"yfov":0.5,"znear":0.1}}],)"
      R"("animations":[{"name":"Door","samplers":[],"channels":[]}])");
}

TEST(SceneExtras, ViewpointsFollowThoseOfTheCameras) {
  const auto result = loadText(withExtras(
      R"("viewpoints":[{"name":"Low","camera":"Back","translation":[4,5,6],"rotation":[0,1,0,0]}])"));
  ASSERT_EQ(result.error, "");
  const auto& viewpoints = result.scene->viewpoints;
  ASSERT_EQ(viewpoints.size(), 3u);
  EXPECT_EQ(viewpoints[0].name, "Front");
  EXPECT_EQ(viewpoints[0].pose.translation, (std::array<double, 3>{1, 2, 3}));
  EXPECT_FALSE(viewpoints[0].named);
  EXPECT_EQ(viewpoints[1].name, "Back");
  EXPECT_EQ(viewpoints[2].name, "Low");
  EXPECT_EQ(viewpoints[2].camera, 1u);
  EXPECT_TRUE(viewpoints[2].named);
  EXPECT_EQ(viewpoints[2].pose.translation, (std::array<double, 3>{4, 5, 6}));
  EXPECT_EQ(viewpoints[2].pose.rotation, (std::array<double, 4>{0, 1, 0, 0}));
}

TEST(SceneExtras, EntryWithACamerasNameReplacesItsPose) {
  const auto result = loadText(
      withExtras(R"("viewpoints":[{"name":"Front","camera":"Front","translation":[9,9,9]}])"));
  ASSERT_EQ(result.error, "");
  ASSERT_EQ(result.scene->viewpoints.size(), 2u);
  const Viewpoint& viewpoint = result.scene->viewpoints[0];
  EXPECT_EQ(viewpoint.pose.translation, (std::array<double, 3>{9, 9, 9}));
  EXPECT_EQ(viewpoint.pose.scale, (std::array<double, 3>{2, 2, 2}));
  EXPECT_NE(viewpoint.id, 0u);
  EXPECT_EQ(SceneNode::of(nodeAt(result, {0})).transform().translation,
            (std::array<double, 3>{1, 2, 3}));
}

TEST(SceneExtras, ActiveCameraIsTheViewpointLookedThrough) {
  EXPECT_EQ(loadText(withExtras(R"("activeCamera":"Back")")).scene->activeViewpoint, "Back");
  EXPECT_EQ(loadText(withExtras("")).scene->activeViewpoint, "");
}

TEST(SceneExtras, BlocksNameClips) {
  const auto result = loadText(withExtras(R"("animationBlocks":{"B":["Door","Door"],"A":[]})"));
  EXPECT_EQ(result.warnings, std::vector<std::string>{});
  const std::map<std::string, std::vector<std::string>> expected = {{"A", {}},
                                                                    {"B", {"Door", "Door"}}};
  EXPECT_EQ(result.scene->animationBlocks, expected);
}

TEST(SceneExtras, UnknownNamesAreWarnedOf) {
  const auto result = loadText(withExtras(
      R"("activeCamera":"X","viewpoints":[{"name":"V","camera":"Y"}],"animationBlocks":{"B":["Z"]})"));
  ASSERT_EQ(result.error, "");
  EXPECT_EQ(result.warnings, (std::vector<std::string>{
                                 "f: scene.extras.viewpoints[0].camera: there is no camera 'Y'",
                                 "f: scene.extras.activeCamera: there is no viewpoint 'X'",
                                 "f: scene.extras.animationBlocks.B: there is no animation 'Z'"}));
  EXPECT_EQ(result.scene->activeViewpoint, "");
  EXPECT_EQ(result.scene->viewpoints.size(), 2u);
}

TEST(SceneExtras, WrongTypesAreRefused) {
  EXPECT_EQ(loadText(withExtras(R"("viewpoints":{})")).error,
            "f: scene.extras.viewpoints: is no array");
  EXPECT_EQ(
      loadText(withExtras(R"("viewpoints":[{"name":"V","camera":"Back","rotation":[1]}])")).error,
      "f: scene.extras.viewpoints[0].rotation: is not 4 numbers");
  EXPECT_EQ(loadText(withExtras(R"("activeCamera":0)")).error,
            "f: scene.extras.activeCamera: is no text");
  EXPECT_EQ(loadText(withExtras(R"("animationBlocks":{"B":"Door"})")).error,
            "f: scene.extras.animationBlocks.B: is no array");
  EXPECT_EQ(loadText(withExtras(R"("animationBlocks":{"B":[1]})")).error,
            "f: scene.extras.animationBlocks.B[0]: is no text");
}

}  // namespace
