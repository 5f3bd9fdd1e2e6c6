#pragma once

#include "standalone/rendering/RayScene.h"

namespace kuStandalone {

/** A place on a surface with all that its textures say there. Colours are linear. */
struct SurfacePoint {
  QVector3D position;
  /** Of the triangle itself and of the shaded surface; both point to where the ray came from. */
  QVector3D geometricNormal, normal;
  QVector3D baseColor;
  float opacity = 1;
  float metallic = 0, roughness = 1;
  QVector3D emissive;
  /** Share of the light from all around that reaches it. */
  float occlusion = 1;
  /** Whether the ray met the back of the triangle. */
  bool isBack = false;
  const Surface* surface = nullptr;
};

// What decides whether a ray goes on, without the rest.

/** Whether the ray met the back of the triangle. */
KUHOST_EXPORT bool isBack(const RayHit& hit, const Ray& ray);
/** Opacity from 0 to 1. */
KUHOST_EXPORT float opacityAt(const RayHit& hit);

KUHOST_EXPORT SurfacePoint surfacePoint(const RayHit& hit, const Ray& ray);

}  // namespace kuStandalone
