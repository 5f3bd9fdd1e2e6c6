#pragma once

#include <QVector3D>
#include <limits>

namespace kuStandalone {

/** What a ray is after; a surface may be hidden from some kinds. The values are bits of a mask. */
enum class RayKind : unsigned { Camera = 1, Reflection = 2, Shadow = 4 };

/** Kinds of rays as a mask. */
using RayKinds = unsigned;
constexpr RayKinds allRayKinds = 7;

constexpr bool hasKind(RayKinds kinds, RayKind kind) { return (kinds & RayKinds(kind)) != 0; }

/** A half line with the part of it that counts. */
struct Ray {
  QVector3D origin;
  /** Of length 1. */
  QVector3D direction;
  float nearest = 0;
  float farthest = std::numeric_limits<float>::infinity();
  RayKind kind = RayKind::Camera;

  QVector3D at(float distance) const { return origin + direction * distance; }
  bool isEmpty() const { return !(nearest < farthest); }
};

/** Half of space: what lies on the side of the plane that the normal points to. */
struct HalfSpace {
  QVector3D point;
  /** Of length 1. */
  QVector3D normal;

  /** Signed distance from the plane. */
  float side(const QVector3D& p) const { return QVector3D::dotProduct(normal, p - point); }

  /** The part of a ray that lies outside. */
  Ray outside(Ray ray) const {
    const float start = side(ray.origin);
    const float slope = QVector3D::dotProduct(normal, ray.direction);
    if (slope == 0) {
      if (start > 0) ray.farthest = ray.nearest;
      return ray;
    }
    const float crossing = -start / slope;
    if (slope > 0) ray.farthest = std::min(ray.farthest, crossing);
    if (slope < 0) ray.nearest = std::max(ray.nearest, crossing);
    return ray;
  }
};

}  // namespace kuStandalone
