#include "standalone/rendering/View.h"

#include <cmath>

namespace kuStandalone {

namespace {

/** A little room around what is framed. */
constexpr float margin = 1.08f;
constexpr float framingHalfAngle = 0.28f;

/** Sets the three directions from a placement that may be scaled, skewed or mirrored. */
bool orient(View& view, const Placement& placement) {
  const QVector3D forward = placement.direction({0, 0, -1}).normalized();
  QVector3D right = placement.direction({1, 0, 0});
  right = (right - forward * QVector3D::dotProduct(right, forward)).normalized();
  if (forward.isNull() || right.isNull() || !std::isfinite(forward.lengthSquared()) ||
      !std::isfinite(right.lengthSquared()))
    return false;
  view.forward = forward;
  view.right = right;
  view.up = QVector3D::crossProduct(right, forward);
  return true;
}

const Camera* cameraOf(const Scene& scene) {
  for (const Viewpoint& viewpoint : scene.viewpoints) {
    if (viewpoint.name == scene.activeViewpoint && viewpoint.camera < scene.cameras.size())
      return &scene.cameras[viewpoint.camera];
  }
  return scene.cameras.empty() ? nullptr : &scene.cameras.front();
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
  const float distance = perspective ? QVector3D::dotProduct(to, forward) : 1;
  if (!(distance > 0)) return false;
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
  const QVector3D center = bounds.isEmpty() ? QVector3D() : bounds.center();
  // Far enough that each corner lies inside the picture.
  float distance = bounds.isEmpty() ? 1 : 0;
  for (int corner = 0; corner < 8 && !bounds.isEmpty(); ++corner) {
    const QVector3D to =
        QVector3D(corner & 1 ? bounds.most.x() : bounds.least.x(),
                  corner & 2 ? bounds.most.y() : bounds.least.y(),
                  corner & 4 ? bounds.most.z() : bounds.least.z()) -
        center;
    const float aside = std::fabs(QVector3D::dotProduct(to, view.right)) / view.halfWidth;
    const float above = std::fabs(QVector3D::dotProduct(to, view.up)) / view.halfHeight;
    const float ahead = QVector3D::dotProduct(to, view.forward);
    distance = std::max(distance, margin * std::max(aside, above) - ahead);
  }
  view.eye = center - view.forward * std::max(distance, 1e-6f);
  return view;
}

View viewOf(const Scene& scene, const Bounds& bounds, float aspect) {
  const Camera* camera = cameraOf(scene);
  if (!camera || !camera->node) return viewOfAll(bounds, aspect);
  View view;
  const Placement placement = worldPlacement(camera->node);
  if (!setLens(view, *camera, aspect) || !orient(view, placement))
    return viewOfAll(bounds, aspect);
  view.eye = placement.origin();
  return view;
}

}  // namespace kuStandalone
