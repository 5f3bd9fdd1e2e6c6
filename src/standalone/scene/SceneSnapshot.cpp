#include "standalone/scene/SceneSnapshot.h"

#include "standalone/scene/MaterialSnapshot.h"
#include "standalone/scene/NodeSnapshot.h"
#include "standalone/scene/Scene.h"
#include "standalone/script/ClippingSettings.h"

namespace kuStandalone {

struct SceneSnapshot::Parts {
  explicit Parts(const Scene& scene)
      : nodes(scene.nodes.root),
        sceneplates(scene.sceneplates.root),
        materials(scene),
        cameras(scene.cameras),
        viewpoints(scene.viewpoints),
        activeViewpoint(scene.activeViewpoint),
        clipping(ClippingSettings::the()) {}

  NodeSnapshot nodes, sceneplates;
  MaterialSnapshot materials;
  std::vector<Camera> cameras;
  std::vector<Viewpoint> viewpoints;
  std::string activeViewpoint;
  ClippingSettings clipping;
};

SceneSnapshot::SceneSnapshot(const Scene& scene) : _parts(std::make_unique<Parts>(scene)) {}

SceneSnapshot::~SceneSnapshot() = default;

void SceneSnapshot::restore(Scene& scene) const {
  _parts->nodes.restore();
  _parts->sceneplates.restore();
  _parts->materials.restore(scene);
  scene.cameras = _parts->cameras;
  scene.viewpoints = _parts->viewpoints;
  scene.activeViewpoint = _parts->activeViewpoint;
  ClippingSettings::the() = _parts->clipping;
}

}  // namespace kuStandalone
