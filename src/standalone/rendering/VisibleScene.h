#pragma once

#include <cstdint>
#include <vector>

#include "standalone/rendering/Light.h"
#include "standalone/rendering/Placement.h"
#include "standalone/rendering/Ray.h"
#include "standalone/scene/Cores.h"
#include "standalone/scene/Scene.h"

namespace kuStandalone {

/** A geometry that shows. */
struct VisibleGeometry {
  /** Identifier of its node. */
  std::uint32_t node;
  const GeometryCore* core;
  Placement placement;
  /** The material that counts: that of the nearest material group above it that is not ignored, or
   * else its own. */
  osg::MaterialPtr material;
  /** The rays that see it: neither it nor a node above it hides it from them. */
  RayKinds seenBy;
};

/** A light that shines. */
struct VisibleLight {
  Light light;
  /** Where it stands, and where it shines to, of length 1. */
  QVector3D position, direction;
};

/**
 * What of a scene is to be seen at this moment: hidden nodes, the children that a switch does not
 * choose, and lights that are off are left out; named transforms and nested placements are in.
 */
struct KUHOST_EXPORT VisibleScene {
  explicit VisibleScene(const Scene& scene);

  std::vector<VisibleGeometry> geometries;
  std::vector<VisibleLight> lights;
};

/** Where a node of a tree stands in the world, whether it shows or not. */
KUHOST_EXPORT Placement worldPlacement(const osg::NodePtr& node);

/** The children of a node that its core lets show, to be walked over while the node stays as it
 * is. */
class KUHOST_EXPORT ShownChildren {
 public:
  explicit ShownChildren(const SceneNode& node);

  const osg::NodePtr* begin() const { return _begin; }
  const osg::NodePtr* end() const { return _end; }

 private:
  const osg::NodePtr *_begin, *_end;
};

}  // namespace kuStandalone
