#include <gtest/gtest.h>

#include "GltfText.h"

using namespace kuStandalone;

namespace {

/** One node with an animation of one channel. The views: times 0 and 1, six floats, eight shorts.
 * Accessors: 0 times, 1 translations, 2 rotations as normalised shorts, 3 one time, 4 the six
 * floats as two triples from the shorts' view, which is too short. */
QByteArray animated(const QByteArray& sampler, const QByteArray& target,
                    const QByteArray& accessors = {}) {
  const QByteArray bytes =
      bytesOf<float>({0, 1, 1, 2, 3, 4, 5, 6}) + bytesOf<qint16>({0, 0, 0, 32767, 0, -32767, 0, 0});
  return sceneText(
      "0", R"({"name":"N"})",
      R"(,"animations":[{"name":"Clip","samplers":[{)" + sampler +
          R"(}],"channels":[{"sampler":0,"target":{)" + target +
          R"(}}]}],"accessors":[)"
          R"({"bufferView":0,"componentType":5126,"count":2,"type":"SCALAR"},)"
          R"({"bufferView":1,"componentType":5126,"count":2,"type":"VEC3"},)"
          R"({"bufferView":2,"componentType":5122,"normalized":true,"count":2,"type":"VEC4"},)"
          R"({"bufferView":0,"componentType":5126,"count":1,"type":"SCALAR"},)"
          R"({"bufferView":2,"componentType":5126,"count":2,"type":"VEC3"})" +
          accessors + "]" + bufferText(bytes, {8, 24, 16}));
}

TEST(AnimationFile, ChannelHasTimesAndValues) {
  const auto result = loadText(animated(R"("input":0,"output":1)", R"("node":0,"path":"scale")"));
  ASSERT_EQ(result.error, "");
  EXPECT_EQ(result.warnings, std::vector<std::string>{});
  ASSERT_EQ(result.scene->animations.size(), 1u);
  const AnimationClip& clip = result.scene->animations[0];
  EXPECT_EQ(clip.name, "Clip");
  EXPECT_EQ(clip.source, 0);
  ASSERT_EQ(clip.channels.size(), 1u);
  EXPECT_EQ(clip.channels[0].node, nodeAt(result, {0}));
  EXPECT_EQ(clip.channels[0].property, AnimationChannel::Property::Scale);
  EXPECT_EQ(clip.channels[0].interpolation, AnimationChannel::Interpolation::Linear);
  EXPECT_EQ(clip.channels[0].times, (std::vector<float>{0, 1}));
  EXPECT_EQ(clip.channels[0].values, (std::vector<float>{1, 2, 3, 4, 5, 6}));
}

TEST(AnimationFile, RotationsMayBeNormalisedIntegers) {
  const auto result = loadText(
      animated(R"("input":0,"output":2,"interpolation":"STEP")", R"("node":0,"path":"rotation")"));
  ASSERT_EQ(result.error, "");
  const AnimationChannel& channel = result.scene->animations[0].channels[0];
  EXPECT_EQ(channel.interpolation, AnimationChannel::Interpolation::Step);
  EXPECT_EQ(channel.values, (std::vector<float>{0, 0, 0, 1, 0, -1, 0, 0}));
}

TEST(AnimationFile, CubicSplineHasThreeValuesForEachTime) {
  const QByteArray target = R"("node":0,"path":"translation")";
  const QByteArray three =
      R"(,{"bufferView":1,"componentType":5126,"byteOffset":12,"count":1,"type":"VEC3"},)"
      R"({"bufferView":3,"componentType":5126,"count":3,"type":"VEC3"})";
  QByteArray text =
      animated(R"("input":3,"output":6,"interpolation":"CUBICSPLINE")", target, three);
  text.replace(R"("bufferViews":[)",
               R"("bufferViews":[{"buffer":0,"byteLength":36},)");  // now view 0
  text.replace(R"("bufferView":3)", R"("bufferView":0)");
  const auto result = loadText(text);
  ASSERT_EQ(result.error, "");
  const AnimationChannel& channel = result.scene->animations[0].channels[0];
  EXPECT_EQ(channel.interpolation, AnimationChannel::Interpolation::CubicSpline);
  EXPECT_EQ(channel.times.size(), 1u);
  EXPECT_EQ(channel.values.size(), 9u);
  EXPECT_EQ(
      loadText(animated(R"("input":0,"output":1,"interpolation":"CUBICSPLINE")", target)).error,
      "f: animations[0].samplers[0].output: does not fit the count of times");
}

TEST(AnimationFile, WhatIsNoTargetIsNamedAndTheClipKept) {
  const auto weights =
      loadText(animated(R"("input":0,"output":1)", R"("node":0,"path":"weights")"));
  EXPECT_EQ(weights.warnings,
            std::vector<std::string>{
                "f: animations[0].channels[0].target.path: 'weights' is not supported"});
  ASSERT_EQ(weights.scene->animations.size(), 1u);
  EXPECT_TRUE(weights.scene->animations[0].channels.empty());
  const auto nowhere = loadText(animated(R"("input":0,"output":1)", R"("path":"scale")"));
  EXPECT_EQ(nowhere.warnings,
            std::vector<std::string>{
                "f: animations[0].channels[0].target.node: is no node of the scene"});
}

TEST(AnimationFile, WrongAnimationsAreRefused) {
  struct Row {
    const char* sampler;
    const char* target;
    const char* accessors;
    const char* expected;
  };
  const char* scale = R"("node":0,"path":"scale")";
  const Row rows[] = {
      {R"("input":9,"output":1)", scale, "",
       "animations[0].samplers[0].input: there are 5 and no such one"},
      {R"("input":0)", scale, "", "animations[0].samplers[0].output: is no index"},
      {R"("input":0,"output":1)", R"("node":4,"path":"scale")", "",
       "animations[0].channels[0].target.node: there are 1 and no such one"},
      {R"("input":0,"output":1,"interpolation":"CUBIC")", scale, "",
       "animations[0].samplers[0].interpolation: is no interpolation"},
      {R"("input":3,"output":1)", scale, "",
       "animations[0].samplers[0].output: does not fit the count of times"},
      {R"("input":1,"output":1)", scale, "",
       "animations[0].samplers[0].input: the accessor is of the wrong type"},
      {R"("input":0,"output":2)", R"("node":0,"path":"translation")", "",
       "animations[0].samplers[0].output: the accessor is of the wrong type"},
      {R"("input":0,"output":1)", R"("node":0,"path":"rotation")", "",
       "animations[0].samplers[0].output: the accessor is of the wrong type"},
      {R"("input":0,"output":4)", scale, "", "accessors[4]: reaches beyond its buffer view"},
      {R"("input":5,"output":1)", scale,
       R"(,{"bufferView":0,"componentType":5126,"count":4294967295,"type":"SCALAR"})",
       "accessors[5]: reaches beyond its buffer view"},
      {R"("input":5,"output":1)", scale,
       R"(,{"bufferView":0,"componentType":5126,"byteOffset":1099511627776,"count":2,"type":"SCALAR"})",
       "accessors[5]: reaches beyond its buffer view"},
      {R"("input":5,"output":1)", scale,
       R"(,{"bufferView":0,"componentType":5127,"count":2,"type":"SCALAR"})",
       "accessors[5].componentType: is no component type"},
      {R"("input":5,"output":1)", scale,
       R"(,{"bufferView":0,"componentType":5126,"type":"SCALAR"})",
       "accessors[5].count: is missing"},
      {R"("input":5,"output":1)", scale,
       R"(,{"bufferView":0,"componentType":5126,"count":2,"type":"SCALAR","sparse":{}})",
       "accessors[5].sparse: is not supported"},
      {R"("input":5,"output":1)", scale, R"(,{"componentType":5126,"count":2,"type":"SCALAR"})",
       "accessors[5].bufferView: is missing"},
      {R"("input":5,"output":1)", scale,
       R"(,{"bufferView":2,"componentType":5126,"count":2,"type":"SCALAR"})",
       "animations[0].samplers[0].input: the times do not rise from 0"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(loadText(animated(row.sampler, row.target, row.accessors)).error,
              "f: " + std::string(row.expected))
        << row.sampler << row.accessors;
  }
}

TEST(AnimationFile, StrideOfABufferViewCounts) {
  QByteArray text = animated(R"("input":5,"output":1)", R"("node":0,"path":"scale")",
                             R"(,{"bufferView":1,"componentType":5126,"count":2,"type":"SCALAR"})");
  text.replace(R"("byteOffset":8,)", R"("byteOffset":8,"byteStride":16,)");
  text.replace(R"("output":1)", R"("output":6)");
  text.replace(
      R"("type":"SCALAR"}],"buffers")",
      R"("type":"SCALAR"},{"bufferView":0,"componentType":5126,"count":2,"type":"VEC3"}],"buffers")");
  text.replace(R"({"buffer":0,"byteOffset":0,"byteLength":8})",
               R"({"buffer":0,"byteOffset":0,"byteLength":24})");
  const auto result = loadText(text);
  ASSERT_EQ(result.error, "");
  EXPECT_EQ(result.scene->animations[0].channels[0].times, (std::vector<float>{1, 5}));
}

}  // namespace
