#include "standalone/rendering/PathTracer.h"

#include <cmath>

#include "standalone/rendering/Environment.h"
#include "standalone/rendering/ToneMapping.h"

namespace kuStandalone {

namespace {

constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float pi = 3.14159265f;
constexpr int mostLayers = 32;
/** What shows through with less than this is left out. */
constexpr float leastRest = 0.01f;
/** Light along one path that is brighter than this is noise rather than picture. */
constexpr float brightest = 12;
/** Share of the light from all around that still reaches what a bounce meets. */
constexpr float bounceAmbient = 0.6f;

float dot(const QVector3D& a, const QVector3D& b) { return QVector3D::dotProduct(a, b); }

QVector3D limited(const QVector3D& light) {
  return {std::min(light.x(), brightest), std::min(light.y(), brightest),
          std::min(light.z(), brightest)};
}

/** Light of a lamp at a point, without shadow, and the way to it. */
struct Arriving {
  QVector3D light, direction;
  float distance;
};

float coneShare(const VisibleLight& lamp, const QVector3D& toLamp) {
  if (lamp.light.type != Light::Type::Spot) return 1;
  const float inner = std::cos(lamp.light.innerCone), outer = std::cos(lamp.light.outerCone);
  const float at = dot(lamp.direction, -toLamp);
  const float share = (at - outer) / std::max(inner - outer, 1e-4f);
  const float clamped = std::min(std::max(share, 0.0f), 1.0f);
  return clamped * clamped;
}

float rangeShare(float range, float distance) {
  if (range <= 0) return 1;
  const float ratio = distance / range;
  return std::min(std::max(1 - ratio * ratio * ratio * ratio, 0.0f), 1.0f);
}

Arriving arriving(const VisibleLight& lamp, const QVector3D& position) {
  if (lamp.light.type == Light::Type::Directional)
    return {lamp.light.intensity, -lamp.direction, infinity};
  const QVector3D to = lamp.position - position;
  const float distance = std::max(to.length(), 1e-6f);
  const QVector3D direction = to / distance;
  const float share =
      coneShare(lamp, direction) * rangeShare(lamp.light.range, distance) / (distance * distance);
  return {lamp.light.intensity * share, direction, distance};
}

}  // namespace

/** A surface that a ray met, with the ray as it was then. */
struct PathTracer::Met {
  RayHit hit;
  Ray ray;
};

PathTracer::PathTracer(const TracedScene& scene) : _scene(scene) {
  const Bounds& bounds = scene.geometry->bounds();
  const float size = bounds.size().length();
  const float far = std::max(bounds.least.length(), bounds.most.length());
  _offset = std::max({size * 1e-5f, far * 1e-6f, std::numeric_limits<float>::min()});
}

// The farther the eye, the less exact is the place of what it meets.
float PathTracer::past(float distance) const {
  return distance + std::max(_offset, distance * 4e-7f);
}

Ray PathTracer::cut(const Ray& ray) const { return _scene.cut ? _scene.cut->outside(ray) : ray; }

/** Whether the ray goes through: an opening, or the back of what has only a front. What is cut open
 * shows its inside. */
bool PathTracer::isHole(const RayHit& hit, const Ray& ray) const {
  const bool hasBack = hit.instance->surface->doubleSided || _scene.cut;
  return (!hasBack && isBack(hit, ray)) || opacityAt(hit) <= 0;
}

std::optional<PathTracer::Met> PathTracer::meet(Ray ray) const {
  if (_scene.hidden) return std::nullopt;
  ray = cut(ray);
  for (int layer = 0; layer < mostLayers; ++layer) {
    const std::optional<RayHit> hit = _scene.geometry->intersect(ray);
    if (!hit) return std::nullopt;
    if (!isHole(*hit, ray)) return Met{*hit, ray};
    ray.nearest = past(hit->distance);
  }
  return std::nullopt;
}

std::optional<float> PathTracer::visibleDistance(Ray ray) const {
  const std::optional<Met> met = meet(ray);
  return met ? std::optional<float>(met->hit.distance) : std::nullopt;
}

Ray PathTracer::leaving(RayKind kind, const SurfacePoint& point, const QVector3D& direction,
                        float farthest) const {
  Ray ray;
  const float side = dot(point.geometricNormal, direction) < 0 ? -1.0f : 1.0f;
  ray.origin = point.position + point.geometricNormal * (side * _offset);
  ray.direction = direction;
  ray.farthest = farthest;
  ray.kind = kind;
  return cut(ray);
}

/** The share of light that gets through, from 0 to 1. Backs throw shadows as fronts do. */
float PathTracer::passing(Ray ray) const {
  if (!_scene.geometry->hasOpenings()) return _scene.geometry->occluded(ray) ? 0 : 1;
  float share = 1;
  for (int layer = 0; layer < mostLayers && share > 0.005f; ++layer) {
    const std::optional<RayHit> hit = _scene.geometry->intersect(ray);
    if (!hit) return share;
    share *= 1 - opacityAt(*hit);
    ray.nearest = past(hit->distance);
  }
  return share > 0.005f ? share : 0;
}

QVector3D PathTracer::direct(const SurfacePoint& point, const Reflectance& reflectance) const {
  QVector3D sum;
  for (const VisibleLight& lamp : _scene.lights) {
    const Arriving light = arriving(lamp, point.position);
    if (light.light.isNull() || dot(point.geometricNormal, light.direction) <= 0) continue;
    const QVector3D sent = reflectance.evaluate(light.direction) * light.light;
    if (sent.isNull()) continue;
    const float farthest = std::isinf(light.distance) ? infinity : light.distance - 2 * _offset;
    sum += sent * passing(leaving(RayKind::Shadow, point, light.direction, farthest));
  }
  return sum;
}

/** The light that comes from a direction after at most one more surface, or several that light
 * passes through. */
QVector3D PathTracer::bounced(Ray ray, QVector3D (*sky)(const QVector3D&)) const {
  QVector3D light;
  float rest = 1;
  for (int layer = 0; layer < mostLayers && rest >= leastRest; ++layer) {
    const std::optional<Met> met = meet(ray);
    if (!met) return light + sky(ray.direction) * rest;
    const SurfacePoint point = surfacePoint(met->hit, met->ray);
    light += sentOn(point, -ray.direction) * (rest * point.opacity);
    rest *= 1 - point.opacity;
    ray.nearest = past(met->hit.distance);
  }
  return light;
}

/** The light that a surface sends on which a bounce meets. */
QVector3D PathTracer::sentOn(const SurfacePoint& point, const QVector3D& toEye) const {
  if (point.surface->unlit) return point.baseColor;
  const Reflectance reflectance(point, toEye);
  const QVector3D around = Environment::diffuse(point.normal) * (bounceAmbient * point.occlusion);
  // The mirrored part is taken as if it scattered: what it would show lies a bounce too far.
  const QVector3D color = reflectance.diffuseColor() + point.baseColor * point.metallic;
  return limited(point.emissive + direct(point, reflectance) + color * around);
}

QVector3D PathTracer::shade(const SurfacePoint& point, const QVector3D& toEye,
                            const Sampler& random) const {
  if (point.surface->unlit) return point.baseColor;
  const Reflectance reflectance(point, toEye);
  return point.emissive + direct(point, reflectance) + scattered(point, reflectance, random) +
         mirrored(point, reflectance, random);
}

/** What of the light from all around a surface scatters. It comes by the rays that carry light:
 * what casts no shadow takes nothing of it away. The main light is sought by itself: it
 * fills a small part of the directions only, which chance seldom hits. */
QVector3D PathTracer::scattered(const SurfacePoint& point, const Reflectance& reflectance,
                                const Sampler& random) const {
  if (reflectance.diffuseColor().isNull()) return {};
  const QVector3D direction = reflectance.scatter(random.at(2), random.at(3));
  QVector3D light = bounced(leaving(RayKind::Shadow, point, direction, infinity), Environment::sky);
  const Environment::MainLight main = Environment::mainLight(random.at(6), random.at(7));
  const float cosine = dot(point.normal, main.direction);
  if (cosine > 0 && dot(point.geometricNormal, main.direction) > 0)
    light += main.light *
             (cosine / pi * passing(leaving(RayKind::Shadow, point, main.direction, infinity)));
  return reflectance.diffuseColor() * point.occlusion * light;
}

QVector3D PathTracer::mirrored(const SurfacePoint& point, const Reflectance& reflectance,
                               const Sampler& random) const {
  QVector3D share;
  const QVector3D direction = reflectance.reflect(random.at(4), random.at(5), share);
  if (share.isNull()) return {};
  const QVector3D light =
      bounced(leaving(RayKind::Reflection, point, direction, infinity), Environment::radiance);
  return limited(share * point.occlusion * light);
}

std::optional<float> PathTracer::groundDistance(const Ray& ray) const {
  if (!_scene.ground || ray.direction.y() >= 0 || ray.origin.y() <= *_scene.ground)
    return std::nullopt;
  const float distance = (*_scene.ground - ray.origin.y()) / ray.direction.y();
  if (!(distance > ray.nearest && distance < ray.farthest)) return std::nullopt;
  return distance;
}

/** How much of the light that would reach the ground does not, from 0 to 1. */
float PathTracer::groundShadow(const QVector3D& position, const Sampler& random) const {
  SurfacePoint point;
  point.position = position;
  point.geometricNormal = point.normal = {0, 1, 0};
  point.baseColor = {1, 1, 1};
  const Reflectance flat(point, {0, 1, 0});
  const auto level = [](const QVector3D& light) { return (light.x() + light.y() + light.z()) / 3; };

  const QVector3D direction = flat.scatter(random.at(2), random.at(3));
  float whole = level(Environment::diffuse(point.normal));
  float lost = (1 - passing(leaving(RayKind::Shadow, point, direction, infinity))) *
               level(Environment::sky(direction));
  const Environment::MainLight main = Environment::mainLight(random.at(6), random.at(7));
  lost += level(main.light) * std::max(main.direction.y(), 0.0f) / pi *
          (1 - passing(leaving(RayKind::Shadow, point, main.direction, infinity)));
  for (const VisibleLight& lamp : _scene.lights) {
    const Arriving light = arriving(lamp, position);
    const float amount = level(light.light) * std::max(light.direction.y(), 0.0f) / pi;
    if (amount <= 0) continue;
    const float farthest = std::isinf(light.distance) ? infinity : light.distance - 2 * _offset;
    whole += amount;
    lost += amount * (1 - passing(leaving(RayKind::Shadow, point, light.direction, farthest)));
  }
  return lost / whole;
}

void PathTracer::addPane(const Ray& ray, float behind, QVector3D& picture, float& rest) const {
  if (!_scene.pane) return;
  const std::optional<float> distance = _scene.pane->distance(ray);
  if (!distance || *distance > behind + _offset) return;
  const QVector4D color = _scene.pane->colorAt(ray.at(*distance));
  picture += color.toVector3D() * (rest * color.w());
  rest *= 1 - color.w();
}

QVector3D PathTracer::sample(const Ray& first, float height, const Sampler& random) const {
  QVector3D picture;
  float rest = 1;
  Ray ray = first;
  for (int layer = 0; layer < mostLayers; ++layer) {
    const Sampler numbers = layer == 0 ? random : random.beyond(std::uint32_t(layer));
    const std::optional<Met> met = meet(ray);
    const std::optional<float> ground = groundDistance(ray);
    const float next = std::min(met ? met->hit.distance : infinity, ground.value_or(infinity));
    addPane(ray, next, picture, rest);
    if (!met || met->hit.distance > next) {
      const float shadow = ground ? std::min(groundShadow(ray.at(*ground), numbers), 1.0f) : 0;
      return picture + Environment::backdrop(height) * (rest * (1 - shadow));
    }
    const SurfacePoint point = surfacePoint(met->hit, met->ray);
    const QVector3D light = toneMapped(shade(point, -ray.direction, numbers));
    picture += light * (rest * point.opacity);
    rest *= 1 - point.opacity;
    if (rest < leastRest) return picture;
    ray.nearest = past(met->hit.distance);
  }
  return picture;
}

}  // namespace kuStandalone
