#pragma once

#include <memory>

#include "host/kuHostExport.h"

namespace kuStandalone {

class Scene;

/**
 * How a scene stood at one moment, to be put back later, as often as wanted: what is active, the
 * choices of switches and the named states, transforms and render layers of nodes, scene and
 * sceneplates alike; lights; which materials the pool holds, their names and states, and who bears
 * them; cameras, viewpoints, and which one is looked through; the clipping settings.
 *
 * What nodes and cores there are is not part of it: a node that was added since stays as it is, and
 * one that was taken out stays out. The snapshot keeps the objects that it knows alive.
 */
class KUHOST_EXPORT SceneSnapshot {
 public:
  explicit SceneSnapshot(const Scene& scene);
  ~SceneSnapshot();
  SceneSnapshot(const SceneSnapshot&) = delete;
  SceneSnapshot& operator=(const SceneSnapshot&) = delete;

  /** Puts it back into the scene that it was taken of; touches only what differs. */
  void restore(Scene& scene) const;

 private:
  struct Parts;
  std::unique_ptr<Parts> _parts;
};

}  // namespace kuStandalone
