#include "standalone/rendering/CutPlane.h"

#include <cmath>

#include "standalone/rendering/Vectors.h"

namespace kuStandalone {

namespace {

constexpr float paneOpacity = 0.22f, lineOpacity = 0.85f;

QVector3D vectorOf(const osg::Vector<float, 3>& v) { return {v[0], v[1], v[2]}; }

/** About a twelfth of an extent: 1, 2 or 5 times a power of ten. */
float roundSpacing(float extent) {
  const float raw = std::max(extent, 1e-6f) / 12;
  const float power = std::pow(10.0f, std::floor(std::log10(raw)));
  const float first = raw / power;
  return power * (first < 1.5f ? 1.0f : first < 3.5f ? 2.0f : first < 7.5f ? 5.0f : 10.0f);
}

}  // namespace

std::optional<HalfSpace> cutAway(const ClippingSettings& settings) {
  if (!settings.enabled) return std::nullopt;
  HalfSpace half{vectorOf(settings.position), unit(vectorOf(settings.normal))};
  if (!isFinite(half.point) || half.normal.isNull()) return std::nullopt;
  if (settings.invert) half.normal = -half.normal;
  return half;
}

CutPlane::CutPlane(const ClippingSettings& settings, const HalfSpace& half, const Bounds& bounds)
    : _half(half),
      _showPlane(settings.showPlane),
      _showGrid(settings.showGrid),
      _planeColor(vectorOf(settings.planeColor)),
      _gridColor(vectorOf(settings.gridColor)) {
  const QVector3D& n = half.normal;
  const QVector3D axis = std::fabs(n.y()) < 0.9f ? QVector3D(0, 1, 0) : QVector3D(1, 0, 0);
  _axisU = QVector3D::crossProduct(axis, n).normalized();
  _axisV = QVector3D::crossProduct(n, _axisU);
  _leastU = _leastV = std::numeric_limits<float>::max();
  _mostU = _mostV = -_leastU;
  for (int corner = 0; corner < 8 && !bounds.isEmpty(); ++corner) {
    const QVector3D to = bounds.corner(corner) - half.point;
    const float u = QVector3D::dotProduct(to, _axisU), v = QVector3D::dotProduct(to, _axisV);
    _leastU = std::min(_leastU, u), _mostU = std::max(_mostU, u);
    _leastV = std::min(_leastV, v), _mostV = std::max(_mostV, v);
  }
  if (bounds.isEmpty()) _leastU = _leastV = -0.5f, _mostU = _mostV = 0.5f;
  const float extent = std::max(_mostU - _leastU, _mostV - _leastV);
  const float room = extent * 0.06f;
  _leastU -= room, _mostU += room, _leastV -= room, _mostV += room;
  _spacing = roundSpacing(extent);
}

std::optional<float> CutPlane::distance(const Ray& ray) const {
  if (!_showPlane && !_showGrid) return std::nullopt;
  const float slope = QVector3D::dotProduct(_half.normal, ray.direction);
  if (slope == 0) return std::nullopt;
  const float distance = -_half.side(ray.origin) / slope;
  if (!(distance > ray.nearest && distance < ray.farthest)) return std::nullopt;
  const QVector3D to = ray.at(distance) - _half.point;
  const float u = QVector3D::dotProduct(to, _axisU), v = QVector3D::dotProduct(to, _axisV);
  if (u < _leastU || u > _mostU || v < _leastV || v > _mostV) return std::nullopt;
  return distance;
}

bool CutPlane::isOnLine(float along) const {
  const float cell = along / _spacing;
  return std::fabs(cell - std::round(cell)) < 0.02f;
}

QVector4D CutPlane::colorAt(const QVector3D& position) const {
  const QVector3D to = position - _half.point;
  const bool onGrid = _showGrid && (isOnLine(QVector3D::dotProduct(to, _axisU)) ||
                                    isOnLine(QVector3D::dotProduct(to, _axisV)));
  if (onGrid) return QVector4D(_gridColor, lineOpacity);
  return QVector4D(_planeColor, _showPlane ? paneOpacity : 0);
}

}  // namespace kuStandalone
