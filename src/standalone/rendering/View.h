#pragma once

#include "standalone/rendering/RayScene.h"

namespace kuStandalone {

/** Where a picture is taken from. */
struct KUHOST_EXPORT View {
  QVector3D eye{0, 0, 0};
  // Of length 1 and at right angles.
  QVector3D right{1, 0, 0}, up{0, 1, 0}, forward{0, 0, -1};
  bool perspective = true;
  /** Half the picture's width and height: at distance 1 in perspective, otherwise in scene units.
   */
  float halfWidth = 1, halfHeight = 1;
  /** Distances along `forward` between which things show; the far one may be infinite. */
  float nearDistance = 0, farDistance = std::numeric_limits<float>::infinity();

  /** The ray through a place of the picture, from (0, 0) at the top left to (1, 1). */
  Ray ray(float x, float y) const;

  /**
   * Where a point shows, in the units of ray(); false behind the eye, and then nothing is set. What
   * lies outside the picture has numbers beyond 0 and 1.
   */
  bool project(const QVector3D& point, float& x, float& y) const;

  /** Distance along `forward`. */
  float depth(const QVector3D& point) const { return QVector3D::dotProduct(point - eye, forward); }
};

/**
 * The view of the scene's active viewpoint; of the first camera where none is active; and where the
 * scene has no camera, or that one has lost its node, a view of all that shows, from the front, the
 * right and above.
 * @param aspect width of the picture by its height. A camera's own aspect ratio plays no part: the
 * height of its view fills the picture's.
 */
KUHOST_EXPORT View viewOf(const Scene& scene, const Bounds& bounds, float aspect);

/** A view that frames a box. */
KUHOST_EXPORT View viewOfAll(const Bounds& bounds, float aspect);

}  // namespace kuStandalone
