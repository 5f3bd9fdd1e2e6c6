#pragma once

#include <QVector3D>
#include <cmath>

namespace kuStandalone {

inline bool isFinite(const QVector3D& v) {
  return std::isfinite(v.x()) && std::isfinite(v.y()) && std::isfinite(v.z());
}

/** Whether a point lies so near that the ray tracer has numbers for it. */
inline bool isWithinReach(const QVector3D& v) {
  constexpr float farthest = 1e18f;
  return std::fabs(v.x()) < farthest && std::fabs(v.y()) < farthest && std::fabs(v.z()) < farthest;
}

/**
 * The vector at length 1, or @p otherwise where it has no direction. Unlike Qt's own it takes
 * vectors of any length: those of a part of a millimetre are shorter than what Qt takes for null.
 */
inline QVector3D unit(const QVector3D& v, const QVector3D& otherwise = {}) {
  const double x = double(v.x()), y = double(v.y()), z = double(v.z());
  const double length = std::sqrt(x * x + y * y + z * z);
  if (!std::isfinite(length) || !(length > 0)) return otherwise;
  return {float(x / length), float(y / length), float(z / length)};
}

}  // namespace kuStandalone
