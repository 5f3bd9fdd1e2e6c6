#pragma once

#include <QVector3D>
#include <limits>

namespace kuStandalone {

/** A half line with the part of it that counts. */
struct Ray {
  QVector3D origin;
  /** Of length 1. */
  QVector3D direction;
  float nearest = 0;
  float farthest = std::numeric_limits<float>::infinity();

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
