#pragma once

#include <cstdint>

#include "standalone/scene/Scene.h"
#include "standalone/scene/SceneNode.h"

namespace kuStandalone {

/** The viewpoint of the present scene behind an identifier, or null. */
inline const Viewpoint* addressedViewpoint(std::uint32_t id) {
  return Scene::the().findViewpoint(id);
}

/** The camera of the present scene whose track has that identifier, or null. */
inline const Camera* addressedTrack(std::uint32_t id) { return Scene::the().findTrack(id); }

/** The node behind an identifier: for a viewpoint that of its camera. Null if there is none. */
inline SceneNode* addressedNode(std::uint32_t id) {
  if (SceneNode* node = SceneNode::byId(id)) return node;
  const Viewpoint* viewpoint = addressedViewpoint(id);
  const Scene& scene = Scene::the();
  if (!viewpoint || viewpoint->camera >= scene.cameras.size()) return nullptr;
  const osg::NodePtr& node = scene.cameras[viewpoint->camera].node;
  return node ? &SceneNode::of(node) : nullptr;
}

}  // namespace kuStandalone
