#include "standalone/rendering/SurfacePoint.h"

#include <cmath>

#include "standalone/rendering/Vectors.h"

namespace kuStandalone {

namespace {

/** A triangle with the weights of its vertices at the place that was met. */
class Corner {
 public:
  explicit Corner(const RayHit& hit)
      : _mesh(*hit.instance->mesh),
        _triangle(_mesh.triangles[hit.triangle]),
        _u(hit.u),
        _v(hit.v) {}

  const Mesh& mesh() const { return _mesh; }

  template <class Value>
  Value blend(const std::vector<Value>& list) const {
    return list[_triangle[0]] * (1 - _u - _v) + list[_triangle[1]] * _u + list[_triangle[2]] * _v;
  }

  QVector4D color() const {
    return _mesh.colors.empty() ? QVector4D(1, 1, 1, 1) : blend(_mesh.colors);
  }

  QVector4D sample(const TextureUse& use) const {
    const std::vector<QVector2D>& list = _mesh.texcoords[std::size_t(use.set)];
    QVector2D at = list.empty() ? QVector2D() : blend(list);
    at *= use.scale;
    if (use.rotation != 0) {
      const float c = std::cos(use.rotation), s = std::sin(use.rotation);
      at = QVector2D(c * at.x() + s * at.y(), -s * at.x() + c * at.y());
    }
    return use.texture->sample(at + use.offset);
  }

 private:
  const Mesh& _mesh;
  const Triangle& _triangle;
  float _u, _v;
};

QVector4D baseColor(const Corner& corner, const Surface& surface) {
  QVector4D color = surface.baseColor * corner.color();
  if (surface.baseColorTexture) color *= corner.sample(surface.baseColorTexture);
  return color;
}

float opacityOf(const QVector4D& color, const Surface& surface) {
  switch (surface.alpha) {
    case Surface::Alpha::Mask:
      return color.w() >= surface.alphaCutoff ? 1.0f : 0.0f;
    case Surface::Alpha::Blend:
      return std::min(std::max(color.w(), 0.0f), 1.0f);
    default:
      return 1;
  }
}

QVector3D bent(const Corner& corner, const Surface& surface, const Placement& placement,
               const QVector3D& normal) {
  if (!surface.normalTexture || corner.mesh().tangents.empty()) return normal;
  const QVector4D along = corner.blend(corner.mesh().tangents);
  const QVector3D tangent = unit(placement.direction(along.toVector3D()));
  // Where the placement mirrors, the picture's second axis turns over with the first.
  const bool turned = (along.w() < 0) != (placement.determinant() < 0);
  const QVector3D side = QVector3D::crossProduct(normal, tangent) * (turned ? -1.0f : 1.0f);
  const QVector3D map = corner.sample(surface.normalTexture).toVector3D() * 2 - QVector3D(1, 1, 1);
  const QVector3D result = tangent * (map.x() * surface.normalScale) +
                           side * (map.y() * surface.normalScale) + normal * map.z();
  return unit(result, normal);
}

}  // namespace

bool isBack(const RayHit& hit, const Ray& ray) {
  const QVector3D normal = hit.instance->worldNormal(hit.faceNormal);
  return QVector3D::dotProduct(normal, ray.direction) > 0;
}

float opacityAt(const RayHit& hit) {
  const Surface& surface = *hit.instance->surface;
  if (surface.alpha == Surface::Alpha::Opaque) return 1;
  return opacityOf(baseColor(Corner(hit), surface), surface);
}

SurfacePoint surfacePoint(const RayHit& hit, const Ray& ray) {
  const Corner corner(hit);
  const Surface& surface = *hit.instance->surface;
  const Placement& placement = hit.instance->placement;
  SurfacePoint point;
  point.surface = &surface;
  // From the triangle and not along the ray: that is as exact however far the eye is.
  point.position = placement.point(corner.blend(corner.mesh().positions));
  point.geometricNormal = unit(hit.instance->worldNormal(hit.faceNormal));
  point.normal = unit(hit.instance->worldNormal(corner.blend(corner.mesh().normals)));
  if (point.normal.isNull()) point.normal = point.geometricNormal;
  point.normal = bent(corner, surface, placement, point.normal);
  point.isBack = QVector3D::dotProduct(point.geometricNormal, ray.direction) > 0;
  if (point.isBack) {
    point.geometricNormal = -point.geometricNormal;
    point.normal = -point.normal;
  }

  const QVector4D color = baseColor(corner, surface);
  point.baseColor = color.toVector3D();
  point.opacity = opacityOf(color, surface);
  point.metallic = surface.metallic;
  point.roughness = surface.roughness;
  if (surface.metallicRoughnessTexture) {
    const QVector4D sample = corner.sample(surface.metallicRoughnessTexture);
    point.roughness *= sample.y();
    point.metallic *= sample.z();
  }
  point.emissive = surface.emissive;
  if (surface.emissiveTexture)
    point.emissive *= corner.sample(surface.emissiveTexture).toVector3D();
  if (surface.occlusionTexture) {
    const float share = corner.sample(surface.occlusionTexture).x();
    point.occlusion = 1 + surface.occlusionStrength * (share - 1);
  }
  return point;
}

}  // namespace kuStandalone
