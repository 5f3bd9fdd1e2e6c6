#include "standalone/rendering/Reflectance.h"

#include <cmath>

namespace kuStandalone {

namespace {

constexpr float pi = 3.14159265f;
/** Light that a plain material reflects straight ahead. */
constexpr float dielectric = 0.04f;
constexpr float leastRoughness = 0.045f;

float dot(const QVector3D& a, const QVector3D& b) { return QVector3D::dotProduct(a, b); }

/** An even spread over the unit disc. */
QVector3D disc(float u, float v) {
  const float radius = std::sqrt(u), angle = 2 * pi * v;
  return {radius * std::cos(angle), radius * std::sin(angle), 0};
}

float fifthPower(float x) { return x * x * x * x * x; }

/** About the share of light that the facets of a plain material reflect before it can scatter. */
float mirroredShare(float cosEye, float roughness) {
  const float grazing = std::max(1 - roughness, dielectric);
  return dielectric + (grazing - dielectric) * fifthPower(1 - std::min(cosEye, 1.0f));
}

}  // namespace

Reflectance::Reflectance(const SurfacePoint& point, const QVector3D& toEye)
    : _normal(point.normal), _toEye(toEye) {
  // A shading normal that looks away from the eye is brought to the rim.
  if (dot(_normal, toEye) < 1e-3f)
    _normal = (_normal - toEye * (dot(_normal, toEye) - 1e-3f)).normalized();
  const QVector3D axis = std::fabs(_normal.x()) < 0.7f ? QVector3D(1, 0, 0) : QVector3D(0, 1, 0);
  _tangent = QVector3D::crossProduct(_normal, axis).normalized();
  _side = QVector3D::crossProduct(_normal, _tangent);
  _specular =
      QVector3D(1, 1, 1) * (dielectric * (1 - point.metallic)) + point.baseColor * point.metallic;
  const float roughness = std::max(point.roughness, leastRoughness);
  _alpha = roughness * roughness;
  _cosEye = std::max(dot(_normal, _toEye), 1e-3f);
  // Together with the mirrored part no more light leaves than comes.
  _diffuse = point.baseColor * ((1 - point.metallic) * (1 - mirroredShare(_cosEye, roughness)));
}

QVector3D Reflectance::toWorld(const QVector3D& local) const {
  return _tangent * local.x() + _side * local.y() + _normal * local.z();
}

QVector3D Reflectance::fresnel(float cosine) const {
  const float share = fifthPower(1 - std::min(std::max(cosine, 0.0f), 1.0f));
  return _specular + (QVector3D(1, 1, 1) - _specular) * share;
}

// Smith's Lambda of one direction, written as 2 G1 / (2 cosine).
float Reflectance::maskingOf(float cosine) const {
  const float a2 = _alpha * _alpha;
  return 2 * cosine / (cosine + std::sqrt(a2 + (1 - a2) * cosine * cosine));
}

QVector3D Reflectance::evaluate(const QVector3D& toLight) const {
  const float cosLight = dot(_normal, toLight);
  if (cosLight <= 0) return {};
  const QVector3D half = (toLight + _toEye).normalized();
  const float cosHalf = std::max(dot(_normal, half), 0.0f);
  const float a2 = _alpha * _alpha;
  const float bell = cosHalf * cosHalf * (a2 - 1) + 1;
  const float distribution = a2 / (pi * bell * bell);
  const float root = std::sqrt(a2 + (1 - a2) * cosLight * cosLight) * _cosEye +
                     std::sqrt(a2 + (1 - a2) * _cosEye * _cosEye) * cosLight;
  const float visibility = 0.5f / std::max(root, 1e-6f);
  const QVector3D mirror = fresnel(dot(half, toLight)) * (distribution * visibility);
  return (_diffuse / pi + mirror) * cosLight;
}

QVector3D Reflectance::scatter(float u, float v) const {
  QVector3D local = disc(u, v);
  local.setZ(std::sqrt(std::max(1 - u, 0.0f)));
  return toWorld(local);
}

// A facet is chosen among those that the eye sees (Heitz 2018), so that what is left of the
// integrand is the Fresnel term and the masking towards the light.
QVector3D Reflectance::reflect(float u, float v, QVector3D& share) const {
  const QVector3D eye(dot(_toEye, _tangent), dot(_toEye, _side), _cosEye);
  const QVector3D stretched = QVector3D(_alpha * eye.x(), _alpha * eye.y(), eye.z()).normalized();
  const float flat = stretched.x() * stretched.x() + stretched.y() * stretched.y();
  const QVector3D t1 =
      flat > 0 ? QVector3D(-stretched.y(), stretched.x(), 0) / std::sqrt(flat) : QVector3D(1, 0, 0);
  const QVector3D t2 = QVector3D::crossProduct(stretched, t1);
  const QVector3D on = disc(u, v);
  const float s = (1 + stretched.z()) / 2;
  const float p1 = on.x();
  const float p2 = (1 - s) * std::sqrt(std::max(1 - p1 * p1, 0.0f)) + s * on.y();
  const QVector3D facet =
      t1 * p1 + t2 * p2 + stretched * std::sqrt(std::max(1 - p1 * p1 - p2 * p2, 0.0f));
  const QVector3D half =
      QVector3D(_alpha * facet.x(), _alpha * facet.y(), std::max(facet.z(), 1e-6f)).normalized();
  const QVector3D local = half * (2 * dot(eye, half)) - eye;
  const float cosLight = local.z();
  share = cosLight > 0 ? fresnel(dot(eye, half)) * maskingOf(cosLight) : QVector3D();
  return toWorld(local).normalized();
}

}  // namespace kuStandalone
