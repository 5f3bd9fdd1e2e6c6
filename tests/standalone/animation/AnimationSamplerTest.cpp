#include "standalone/animation/AnimationSampler.h"

#include <cmath>
#include <limits>

#include "standalone/scene/SceneNode.h"
#include "support/SceneTest.h"

using namespace kuStandalone;
using ::testing::DoubleNear;
using ::testing::ElementsAre;

namespace {

using Property = AnimationChannel::Property;
using Interpolation = AnimationChannel::Interpolation;

constexpr float halfRoot = 0.70710678f;
constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();

class AnimationSamplerTest : public SceneTest {
 protected:
  static AnimationChannel channel(Property property, Interpolation interpolation,
                                  std::vector<float> times, std::vector<float> values) {
    AnimationChannel result;
    result.property = property;
    result.interpolation = interpolation;
    result.times = std::move(times);
    result.values = std::move(values);
    return result;
  }

  static AnimationChannel moving(Interpolation interpolation) {
    return channel(Property::Translation, interpolation, {1, 3}, {0, 0, 0, 10, 20, 40});
  }

  static void expectValue(const AnimationChannel& of, double time,
                          const std::array<double, 4>& expected) {
    const auto value = sample(of, time);
    ASSERT_TRUE(value.has_value()) << "at " << time;
    for (std::size_t i = 0; i < 4; ++i) {
      EXPECT_THAT((*value)[i], DoubleNear(expected[i], 1e-6)) << "number " << i << " at " << time;
    }
  }
};

}  // namespace

TEST_F(AnimationSamplerTest, LinearGoesStraightBetweenKeys) {
  expectValue(moving(Interpolation::Linear), 1.5, {2.5, 5, 10, 0});
  expectValue(moving(Interpolation::Linear), 3, {10, 20, 40, 0});
}

TEST_F(AnimationSamplerTest, StepHoldsUntilTheNextKey) {
  expectValue(moving(Interpolation::Step), 2.999, {0, 0, 0, 0});
  expectValue(moving(Interpolation::Step), 3, {10, 20, 40, 0});
}

TEST_F(AnimationSamplerTest, TimesOutsideTheKeysGiveTheOutermostValues) {
  for (const auto interpolation : {Interpolation::Linear, Interpolation::Step}) {
    expectValue(moving(interpolation), -5, {0, 0, 0, 0});
    expectValue(moving(interpolation), 99, {10, 20, 40, 0});
  }
}

TEST_F(AnimationSamplerTest, CubicSplineFollowsItsTangentsPerSecond) {
  // From 0 to 1 in two seconds, leaving at 1 per second and arriving at rest: at half the way
  // 0.5 * 0 + 2 * 0.125 * 1 + 0.5 * 1 - 2 * 0.125 * 0.
  const auto cubic = channel(Property::Scale, Interpolation::CubicSpline, {0, 2},
                             {9, 9, 9, 0, 0, 0, 1, 1, 1, 0, 0, 0, 1, 1, 1, 9, 9, 9});
  expectValue(cubic, 0, {0, 0, 0, 0});
  expectValue(cubic, 1, {0.75, 0.75, 0.75, 0});
  expectValue(cubic, 2, {1, 1, 1, 0});
  expectValue(cubic, 7, {1, 1, 1, 0});
}

TEST_F(AnimationSamplerTest, LinearRotationTurnsAtConstantSpeed) {
  const auto turn = channel(Property::Rotation, Interpolation::Linear, {0, 3},
                            {0, 0, 0, 1, 0, 0, halfRoot, halfRoot});
  const double thirtyDegrees = std::acos(-1.0) / 6;
  expectValue(turn, 1, {0, 0, std::sin(thirtyDegrees / 2), std::cos(thirtyDegrees / 2)});
}

TEST_F(AnimationSamplerTest, LinearRotationTakesTheShorterArc) {
  const auto turn = channel(Property::Rotation, Interpolation::Linear, {0, 1},
                            {0, 0, 0, 1, 0, 0, -halfRoot, -halfRoot});
  const double angle = std::acos(-1.0) / 4;
  expectValue(turn, 0.5, {0, 0, std::sin(angle / 2), std::cos(angle / 2)});
}

TEST_F(AnimationSamplerTest, RotationBetweenEqualKeysStays) {
  const auto turn = channel(Property::Rotation, Interpolation::Linear, {0, 1},
                            {0, halfRoot, 0, halfRoot, 0, halfRoot, 0, halfRoot});
  expectValue(turn, 0.25, {0, std::sqrt(0.5), 0, std::sqrt(0.5)});
}

TEST_F(AnimationSamplerTest, RotationHasUnitLength) {
  expectValue(channel(Property::Rotation, Interpolation::Step, {0}, {0, 0, 0, 5}), 0, {0, 0, 0, 1});
  const auto cubic =
      channel(Property::Rotation, Interpolation::CubicSpline, {0, 1},
              {0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0});
  expectValue(cubic, 0.5, {0, 0, std::sqrt(0.5), std::sqrt(0.5)});
}

TEST_F(AnimationSamplerTest, KeysWithoutAllTheirNumbersArePassedOver) {
  const auto cut =
      channel(Property::Translation, Interpolation::Linear, {0, 1, 2}, {0, 0, 0, 1, 1, 1, 2, 2});
  expectValue(cut, 2, {1, 1, 1, 0});
  const auto moreValues =
      channel(Property::Translation, Interpolation::Linear, {0}, {4, 5, 6, 7, 8, 9});
  expectValue(moreValues, 2, {4, 5, 6, 0});
}

TEST_F(AnimationSamplerTest, ChannelWithoutAWholeKeyHasNoValue) {
  EXPECT_FALSE(sample(channel(Property::Translation, Interpolation::Linear, {}, {}), 0));
  EXPECT_FALSE(sample(channel(Property::Translation, Interpolation::Linear, {0}, {1, 2}), 0));
  EXPECT_FALSE(sample(channel(Property::Rotation, Interpolation::Step, {0}, {1, 2, 3}), 0));
  EXPECT_FALSE(
      sample(channel(Property::Scale, Interpolation::CubicSpline, {0}, {1, 1, 1, 1, 1, 1}), 0));
}

TEST_F(AnimationSamplerTest, WhatIsNoNumberOrNoRotationHasNoValue) {
  EXPECT_FALSE(
      sample(channel(Property::Translation, Interpolation::Step, {0}, {notANumber, 0, 0}), 0));
  EXPECT_FALSE(sample(channel(Property::Rotation, Interpolation::Step, {0}, {0, 0, 0, 0}), 0));
}

TEST_F(AnimationSamplerTest, EqualAndFallingTimesAreSafe) {
  const auto equal =
      channel(Property::Translation, Interpolation::Linear, {1, 1}, {0, 0, 0, 2, 2, 2});
  expectValue(equal, 1, {2, 2, 2, 0});
  const auto falling =
      channel(Property::Translation, Interpolation::Linear, {3, 1, 2}, {0, 0, 0, 2, 2, 2, 4, 4, 4});
  for (const double time : {0.0, 1.0, 1.5, 2.0, 2.5, 3.0, 4.0}) {
    EXPECT_TRUE(sample(falling, time).has_value()) << "at " << time;
  }
}

TEST_F(AnimationSamplerTest, ClipEndsWithItsLastKey) {
  AnimationClip clip;
  EXPECT_EQ(durationOf(clip), 0);
  clip.channels.push_back(moving(Interpolation::Linear));
  clip.channels.push_back(
      channel(Property::Scale, Interpolation::Step, {0, 8}, {1, 1, 1, 2, 2, 2}));
  clip.channels.push_back(
      channel(Property::Scale, Interpolation::Step, {0, 9}, {1, 1, 1}));  // the last key is cut
  EXPECT_EQ(durationOf(clip), 8);
}

TEST_F(AnimationSamplerTest, PoseGathersTheChannelsOfANodeAndKeepsTheRest) {
  const auto node = scene.group("Door");
  Transform before;
  before.scale = {5, 5, 5};
  SceneNode::of(node).setTransform(before);
  AnimationClip clip;
  clip.channels.push_back(moving(Interpolation::Linear));
  clip.channels.push_back(channel(Property::Rotation, Interpolation::Step, {0}, {0, 1, 0, 0}));
  for (AnimationChannel& each : clip.channels)
    each.node = node;
  const std::vector<NodePose> poses = sample(clip, 3);
  ASSERT_EQ(poses.size(), 1u);
  EXPECT_EQ(poses[0].node, node);
  EXPECT_THAT(poses[0].transform.translation, ElementsAre(10, 20, 40));
  EXPECT_THAT(poses[0].transform.rotation, ElementsAre(0, 1, 0, 0));
  EXPECT_THAT(poses[0].transform.scale, ElementsAre(5, 5, 5));
}

TEST_F(AnimationSamplerTest, ChannelsOfNoNodeAndOfAMatrixAreLeftOut) {
  const auto node = scene.group("Door");
  Transform placed;
  placed.matrix.emplace();
  SceneNode::of(node).setTransform(placed);
  AnimationClip clip;
  clip.channels.assign(2, moving(Interpolation::Linear));
  clip.channels[1].node = node;
  EXPECT_TRUE(sample(clip, 1).empty());
}
