#include "standalone/rendering/View.h"

#include <cmath>

#include "standalone/rendering/Vectors.h"

namespace kuStandalone {

namespace {

/** A little room around what is framed. */
constexpr float margin = 1.08f;
constexpr float framingHalfAngle = 0.28f;

/** Sets the eye and the three directions from a placement that may be scaled, skewed or mirrored.
 */
bool orient(View& view, const Placement& placement) {
  view.forward = unit(placement.direction({0, 0, -1}));
  const QVector3D up = unit(placement.direction({0, 1, 0}));
  view.up = unit(up - view.forward * QVector3D::dotProduct(up, view.forward));
  view.right = QVector3D::crossProduct(view.forward, view.up);
  view.eye = placement.origin();
  return !view.forward.isNull() && !view.up.isNull() && isFinite(view.eye);
}

/** Where an eye must stand so that a box just fits into its view in one direction. */
struct Span {
  /** From the box's centre: to the side, and backwards. */
  float middle, back;
};

/** @param slope tangent of half the angle of view in that direction. */
Span spanOf(const Bounds& bounds, const QVector3D& aside, const QVector3D& forward, float slope) {
  // The lines of sight along both edges of the picture, pushed out until they touch the box.
  float over = -std::numeric_limits<float>::infinity(), under = over;
  for (int corner = 0; corner < 8; ++corner) {
    const QVector3D to = bounds.corner(corner) - bounds.center();
    const float side = QVector3D::dotProduct(to, aside);
    const float ahead = slope * QVector3D::dotProduct(to, forward);
    over = std::max(over, side - ahead);
    under = std::max(under, -side - ahead);
  }
  return {(over - under) / 2, (over + under) / (2 * slope)};
}

bool setLens(View& view, const Camera& camera, float aspect) {
  view.perspective = camera.perspective;
  view.halfHeight = float(camera.perspective ? std::tan(camera.yfov / 2) : camera.ymag);
  view.halfWidth = view.halfHeight * aspect;
  view.nearDistance = float(std::max(camera.znear, 0.0));
  if (camera.zfar > camera.znear) view.farDistance = float(camera.zfar);
  return std::isfinite(view.halfHeight) && view.halfHeight > 0;
}

}  // namespace

Ray View::ray(float x, float y) const {
  const QVector3D aside = right * ((2 * x - 1) * halfWidth) + up * ((1 - 2 * y) * halfHeight);
  Ray ray;
  float perDepth = 1;
  if (perspective) {
    const QVector3D direction = forward + aside;
    perDepth = direction.length();
    ray.origin = eye;
    ray.direction = direction / perDepth;
  } else {
    ray.origin = eye + aside;
    ray.direction = forward;
  }
  ray.nearest = nearDistance * perDepth;
  ray.farthest = farDistance * perDepth;
  return ray;
}

bool View::project(const QVector3D& point, float& x, float& y) const {
  const QVector3D to = point - eye;
  const float ahead = QVector3D::dotProduct(to, forward);
  if (!(ahead > 0)) return false;
  const float distance = perspective ? ahead : 1;
  x = (QVector3D::dotProduct(to, right) / (distance * halfWidth) + 1) / 2;
  y = (1 - QVector3D::dotProduct(to, up) / (distance * halfHeight)) / 2;
  return std::isfinite(x) && std::isfinite(y);
}

View viewOfAll(const Bounds& bounds, float aspect) {
  View view;
  view.forward = QVector3D(-0.62f, -0.36f, -0.72f).normalized();
  view.right = QVector3D::crossProduct(view.forward, {0, 1, 0}).normalized();
  view.up = QVector3D::crossProduct(view.right, view.forward);
  view.halfHeight = std::tan(framingHalfAngle) * std::min(1.0f, 1 / std::max(aspect, 1e-6f));
  view.halfWidth = view.halfHeight * aspect;
  view.eye = -view.forward;
  if (bounds.isEmpty()) return view;

  const Span across = spanOf(bounds, view.right, view.forward, view.halfWidth / margin);
  const Span upright = spanOf(bounds, view.up, view.forward, view.halfHeight / margin);
  const float back = std::max({across.back, upright.back, 1e-6f * bounds.size().length()});
  view.eye =
      bounds.center() + view.right * across.middle + view.up * upright.middle - view.forward * back;
  return view;
}

View viewOf(const Scene& scene, const Bounds& bounds, float aspect) {
  const Camera* camera = scene.activeCamera();
  if (!camera) return viewOfAll(bounds, aspect);
  View view;
  const Placement placement = worldPlacement(camera->node);
  const bool isSound = setLens(view, *camera, aspect) && orient(view, placement);
  return isSound ? view : viewOfAll(bounds, aspect);
}

}  // namespace kuStandalone
