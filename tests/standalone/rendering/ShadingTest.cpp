#include <gtest/gtest.h>

#include <cmath>

#include "standalone/rendering/Environment.h"
#include "standalone/rendering/Placement.h"
#include "standalone/rendering/Reflectance.h"
#include "standalone/rendering/Sampler.h"
#include "standalone/rendering/ToneMapping.h"
#include "standalone/rendering/View.h"

using namespace kuStandalone;

namespace {

double distance(const QVector3D& a, const QVector3D& b) { return double((a - b).length()); }

Placement placed(std::array<double, 3> translation, std::array<double, 4> rotation,
                 std::array<double, 3> scale) {
  Transform transform;
  transform.translation = translation;
  transform.rotation = rotation;
  transform.scale = scale;
  return Placement(transform);
}

}  // namespace

TEST(Placement, ScalesThenTurnsThenMoves) {
  const double half = std::sqrt(0.5);
  const Placement turned = placed({1, 2, 3}, {0, 0, half, half}, {2, 3, 4});
  EXPECT_LT(distance(turned.point({1, 1, 1}), {-2, 4, 7}), 1e-6);
  EXPECT_LT(distance(turned.direction({1, 1, 1}), {-3, 2, 4}), 1e-6);
}

TEST(Placement, AProductAppliesTheInnerOneFirst) {
  const Placement outer = placed({10, 0, 0}, {0, 0, 0, 1}, {2, 2, 2});
  const Placement inner = placed({0, 1, 0}, {0, 1, 0, 0}, {1, 1, 1});
  EXPECT_LT(distance((outer * inner).point({1, 0, 5}), {8, 2, -10}), 1e-6);
}

TEST(Placement, ANormalStaysAtARightAngleUnderUnevenScalesAndMirrors) {
  const Placement uneven = placed({5, 5, 5}, {0, 0, 0, 1}, {1, 4, 1});
  const Placement mirror = placed({0, 0, 0}, {0, 0, 0, 1}, {-2, 1, 1});
  const QVector3D slope = QVector3D(1, 1, 0).normalized();
  EXPECT_LT(distance(uneven.normal(slope), QVector3D(4, 1, 0).normalized()), 1e-6);
  EXPECT_LT(distance(mirror.normal({0, 0, 1}), {0, 0, 1}), 1e-6);
  EXPECT_LT(distance(mirror.normal({1, 0, 0}), {-1, 0, 0}), 1e-6);
}

TEST(Placement, IsRegularUnlessItFlattensOrIsNotFinite) {
  EXPECT_TRUE(placed({0, 0, 0}, {0, 0, 0, 0}, {1e-9, 1e-9, 1e-9}).isRegular());
  EXPECT_TRUE(placed({0, 0, 0}, {0, 0, 0, 1}, {-1, 1, 1}).isRegular());
  EXPECT_FALSE(placed({0, 0, 0}, {0, 0, 0, 1}, {1, 1, 0}).isRegular());
  EXPECT_FALSE(placed({1e300, 0, 0}, {0, 0, 0, 1}, {1, 1, 1}).isRegular());
  EXPECT_FALSE(placed({0, 0, 0}, {std::nan(""), 0, 0, 1}, {1, 1, 1}).isRegular());
}

TEST(View, ProjectsAPointOntoTheRayThatMeetsIt) {
  for (const bool perspective : {true, false}) {
    View view;
    view.eye = {1, 2, 3};
    view.perspective = perspective;
    view.halfWidth = 0.7f;
    view.halfHeight = 0.3f;
    for (const float at : {0.1f, 0.5f, 0.8f}) {
      const Ray ray = view.ray(at, 1 - at / 2);
      float x = 0, y = 0;
      ASSERT_TRUE(view.project(ray.at(7), x, y));
      EXPECT_NEAR(x, at, 1e-5);
      EXPECT_NEAR(y, 1 - at / 2, 1e-5);
    }
  }
}

TEST(View, ProjectsNothingBehindTheEye) {
  for (const bool perspective : {true, false}) {
    View view;
    view.perspective = perspective;
    float x = 9, y = 9;
    EXPECT_FALSE(view.project({0, 0, 1}, x, y));
    EXPECT_FALSE(view.project({0, 0, 0}, x, y));
    EXPECT_EQ(x, 9);
    EXPECT_EQ(y, 9);
  }
}

TEST(Sampler, SpreadsItsNumbersEvenlyInEachDimension) {
  for (std::size_t dimension = 0; dimension < Sampler::dimensions; ++dimension) {
    std::array<int, 8> cells{};
    for (std::uint32_t sample = 0; sample < 256; ++sample) {
      const float value = Sampler(77, sample).at(dimension);
      ASSERT_TRUE(value >= 0 && value < 1);
      ++cells[std::size_t(value * 8)];
    }
    for (const int count : cells)
      EXPECT_NEAR(count, 32, 4) << dimension;
  }
}

TEST(Sampler, DiffersByPixelAndLayerAndRepeatsItself) {
  EXPECT_EQ(Sampler(3, 5).at(2), Sampler(3, 5).at(2));
  EXPECT_NE(Sampler(3, 5).at(2), Sampler(4, 5).at(2));
  EXPECT_NE(Sampler(3, 5).at(2), Sampler(3, 5).beyond(1).at(2));
}

TEST(ToneMapping, RisesAndStaysBelowOne) {
  float last = -1;
  for (float light = 0; light < 100; light += 0.01f) {
    const float shown = toneMapped({light, light, light}).x();
    EXPECT_GE(shown, last) << light;
    EXPECT_LE(shown, 1) << light;
    last = shown;
  }
  EXPECT_GT(last, 0.99f);
}

TEST(ToneMapping, WhatIsNoColorStaysInBounds) {
  const float none = std::nanf(""), infinite = INFINITY;
  EXPECT_EQ(toneMapped({none, none, none}), QVector3D(0, 0, 0));
  EXPECT_EQ(toneMapped({-5, -5, -5}), QVector3D(0, 0, 0));
  const QVector3D bright = toneMapped({infinite, infinite, infinite});
  EXPECT_NEAR(bright.x(), 1, 1e-3);
  EXPECT_EQ(srgbByte(none), 0);
  EXPECT_EQ(srgbByte(-1), 0);
  EXPECT_EQ(srgbByte(infinite), 255);
}

TEST(Environment, DiffuseLightIsTheIntegralOfItsRadiance) {
  for (const QVector3D& axis : {QVector3D(0, 1, 0), QVector3D(0, -1, 0), QVector3D(1, 0, 0),
                                QVector3D(-0.45f, 0.8f, 0.55f), QVector3D(0.3f, -0.2f, -0.9f)}) {
    const QVector3D normal = axis.normalized();
    double sum = 0, solid = 0;
    for (int ring = 0; ring < 200; ++ring) {
      const double height = 2 * (ring + 0.5) / 200 - 1, radius = std::sqrt(1 - height * height);
      for (int at = 0; at < 200; ++at) {
        const double angle = 2 * 3.14159265358979 * at / 200;
        const QVector3D to(float(radius * std::cos(angle)), float(height),
                           float(radius * std::sin(angle)));
        const double cosine = std::max(double(QVector3D::dotProduct(to, normal)), 0.0);
        sum += cosine * double(Environment::radiance(to).x());
        solid += cosine;
      }
    }
    const double expected = sum / solid;
    EXPECT_NEAR(double(Environment::diffuse(normal).x()), expected, 0.01 * expected);
  }
}

TEST(Environment, TheSkyAndTheMainLightAreAllOfItsLight) {
  for (const QVector3D& axis : {QVector3D(0, 1, 0), QVector3D(1, 0, 0), QVector3D(0, -1, 0),
                                QVector3D(-0.45f, 0.8f, 0.55f), QVector3D(0.3f, -0.2f, -0.9f)}) {
    SurfacePoint point;
    point.normal = point.geometricNormal = axis.normalized();
    const Reflectance surface(point, point.normal);
    constexpr std::uint32_t samples = 4096;
    double sum = 0;
    for (std::uint32_t at = 0; at < samples; ++at) {
      const Sampler random(1, at);
      sum += double(Environment::sky(surface.scatter(random.at(2), random.at(3))).x());
      const Environment::MainLight main = Environment::mainLight(random.at(6), random.at(7));
      EXPECT_NEAR(double(main.direction.length()), 1, 1e-5);
      const float cosine = std::max(QVector3D::dotProduct(main.direction, point.normal), 0.0f);
      sum += double(main.light.x() * cosine) / 3.14159265358979;
    }
    const double whole = double(Environment::diffuse(point.normal).x());
    EXPECT_NEAR(sum / samples, whole, 0.02 * whole);
  }
}

TEST(Reflectance, HardlyMoreLightLeavesThanComes) {
  for (const float metallic : {0.0f, 0.5f, 1.0f}) {
    for (const float roughness : {0.0f, 0.3f, 0.6f, 1.0f}) {
      for (const float cosine : {0.02f, 0.2f, 0.5f, 0.8f, 1.0f}) {
        SurfacePoint point;
        point.normal = point.geometricNormal = {0, 0, 1};
        point.baseColor = {1, 1, 1};
        point.metallic = metallic;
        point.roughness = roughness;
        const Reflectance white(point, {std::sqrt(1 - cosine * cosine), 0, cosine});
        double mirrored = 0;
        for (std::uint32_t at = 0; at < 2048; ++at) {
          const Sampler random(1, at);
          QVector3D share;
          white.reflect(random.at(0), random.at(1), share);
          mirrored += double(share.x()) / 2048;
        }
        EXPECT_LT(mirrored + double(white.diffuseColor().x()), 1.04)
            << metallic << ' ' << roughness << ' ' << cosine;
      }
    }
  }
}
