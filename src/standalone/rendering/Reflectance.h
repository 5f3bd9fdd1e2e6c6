#pragma once

#include "standalone/rendering/SurfacePoint.h"

namespace kuStandalone {

/**
 * How a point reflects light: glTF's metallic-roughness model, a diffuse part and a reflection of
 * microfacets (GGX distribution, height-correlated Smith masking, Schlick's Fresnel term).
 */
class KUHOST_EXPORT Reflectance {
 public:
  /** @param toEye direction back along the ray, of length 1. */
  Reflectance(const SurfacePoint& point, const QVector3D& toEye);

  /** Light sent to the eye for light of 1 from a direction, times the cosine to the normal. */
  QVector3D evaluate(const QVector3D& toLight) const;

  /** What the surface scatters evenly of the light that reaches it, by colour. */
  const QVector3D& diffuseColor() const { return _diffuse; }

  /** A direction for scattered light, more often the nearer to the normal; u and v in [0, 1). */
  QVector3D scatter(float u, float v) const;

  /**
   * A direction for reflected light, and with what share its light counts; a null share where the
   * direction leads below the surface.
   */
  QVector3D reflect(float u, float v, QVector3D& share) const;

 private:
  QVector3D toWorld(const QVector3D& local) const;
  QVector3D fresnel(float cosine) const;
  float maskingOf(float cosine) const;

  QVector3D _normal, _tangent, _side, _toEye;
  QVector3D _diffuse, _specular;
  float _cosEye;
  /** Square of the roughness. */
  float _alpha;
};

}  // namespace kuStandalone
