#pragma once

#include <QVector4D>
#include <optional>

#include "standalone/rendering/RayScene.h"
#include "standalone/script/ClippingSettings.h"

namespace kuStandalone {

/** What is to be seen of a clipping plane: a pane over the size of the scene, and a grid on it. */
class KUHOST_EXPORT CutPlane {
 public:
  /** @param bounds of what the plane cuts; an empty box gives a pane of size 1. */
  CutPlane(const ClippingSettings& settings, const HalfSpace& half, const Bounds& bounds);

  /** Where a ray meets the pane. */
  std::optional<float> distance(const Ray& ray) const;

  /** Colour and opacity at a point of the pane, as they show. */
  QVector4D colorAt(const QVector3D& position) const;

 private:
  bool isOnLine(float along) const;

  HalfSpace _half;
  // The pane's axes, and its extent along them from the plane's point.
  QVector3D _axisU, _axisV;
  float _leastU, _mostU, _leastV, _mostV;
  float _spacing;
  bool _showPlane, _showGrid;
  QVector3D _planeColor, _gridColor;
};

/**
 * The half of space that a clipping plane cuts away: the side that the normal points to, or with
 * `invert` the other one. Nothing where clipping is off, and where the plane has no direction or a
 * number is not finite.
 */
KUHOST_EXPORT std::optional<HalfSpace> cutAway(const ClippingSettings& settings);

}  // namespace kuStandalone
