#pragma once

#include "standalone/rendering/CutPlane.h"
#include "standalone/rendering/RayScene.h"
#include "standalone/rendering/Reflectance.h"
#include "standalone/rendering/Sampler.h"
#include "standalone/rendering/SurfacePoint.h"
#include "standalone/rendering/View.h"

namespace kuStandalone {

/** What a picture shows beside the geometry. */
struct TracedScene {
  const RayScene* geometry = nullptr;
  std::vector<VisibleLight> lights;
  /** What is cut away, and what shows of the plane. */
  std::optional<HalfSpace> cut;
  std::optional<CutPlane> pane;
  /** Whether the geometry itself is left out. */
  bool hidden = false;
  /** Height of a ground that shows nothing but shadows. */
  std::optional<float> ground;
};

/**
 * The light along a ray: that of the lights with their shadows, that of the environment with what
 * stands in its way, and one bounce between surfaces. Safe to be used by several threads.
 */
class KUHOST_EXPORT PathTracer {
 public:
  /** @param scene lives longer than the tracer. */
  explicit PathTracer(const TracedScene& scene);

  /**
   * What a sample of the picture shows, linear and tone mapped.
   * @param height of the sample in the picture, 0 top, 1 bottom.
   */
  QVector3D sample(const Ray& ray, float height, const Sampler& random) const;

  /** The first thing along the ray that is to be seen, after cut, backs and holes. */
  std::optional<float> visibleDistance(Ray ray) const;

 private:
  struct Met;

  std::optional<Met> meet(Ray ray) const;
  bool isHole(const RayHit& hit, const Ray& ray) const;
  Ray cut(const Ray& ray) const;
  Ray leaving(RayKind kind, const SurfacePoint& point, const QVector3D& direction,
              float farthest) const;
  float passing(Ray ray) const;
  /** Where a ray goes on beyond what it met. */
  float past(float distance) const;

  QVector3D shade(const SurfacePoint& point, const QVector3D& toEye, const Sampler& random) const;
  QVector3D direct(const SurfacePoint& point, const Reflectance& reflectance) const;
  QVector3D scattered(const SurfacePoint& point, const Reflectance& reflectance,
                      const Sampler& random) const;
  QVector3D mirrored(const SurfacePoint& point, const Reflectance& reflectance,
                     const Sampler& random) const;
  /** @param sky gives the light from a direction in which there is nothing. */
  QVector3D bounced(Ray ray, QVector3D (*sky)(const QVector3D&)) const;
  QVector3D sentOn(const SurfacePoint& point, const QVector3D& toEye) const;
  /** Lays the clipping plane's pane over what lies behind it. */
  void addPane(const Ray& ray, float behind, QVector3D& picture, float& rest) const;
  float groundShadow(const QVector3D& position, const Sampler& random) const;
  std::optional<float> groundDistance(const Ray& ray) const;

  const TracedScene& _scene;
  /** How far a ray starts away from the surface that it leaves. */
  float _offset;
};

}  // namespace kuStandalone
