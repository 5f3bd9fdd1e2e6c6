#include "standalone/scene/Scene.h"

#include <algorithm>

#include "standalone/scene/Cores.h"
#include "standalone/scene/SceneNode.h"
#include "standalone/scene/ScenePool.h"

namespace kuStandalone {
namespace {

std::unique_ptr<Scene>& present() {
  static std::unique_ptr<Scene> scene = std::make_unique<Scene>();
  return scene;
}

}  // namespace

SceneSource::~SceneSource() = default;

Scene::Scene() : pool(ScenePool::create()) {
  nodes.setRoot(SceneNode::create("Root", GroupCore::create()));
}

Scene::~Scene() = default;

Scene& Scene::the() { return *present(); }

void Scene::install(std::unique_ptr<Scene> scene) { present() = std::move(scene); }

Viewpoint* Scene::findViewpoint(const std::string& name) {
  const auto found =
      std::find_if(viewpoints.begin(), viewpoints.end(),
                   [&](const Viewpoint& viewpoint) { return viewpoint.name == name; });
  return found == viewpoints.end() ? nullptr : &*found;
}

Viewpoint* Scene::findViewpoint(std::uint32_t id) {
  const auto found = std::find_if(viewpoints.begin(), viewpoints.end(),
                                  [&](const Viewpoint& viewpoint) { return viewpoint.id == id; });
  return found == viewpoints.end() ? nullptr : &*found;
}

const Camera* Scene::activeCamera() const {
  const auto active =
      std::find_if(viewpoints.begin(), viewpoints.end(), [&](const Viewpoint& viewpoint) {
        return isActive(viewpoint) && viewpoint.camera < cameras.size();
      });
  const std::size_t index = active == viewpoints.end() ? 0 : active->camera;
  return index < cameras.size() && cameras[index].node ? &cameras[index] : nullptr;
}

bool Scene::isActive(const Viewpoint& viewpoint) const {
  return !activeViewpoint.empty() && viewpoint.name == activeViewpoint;
}

const Camera* Scene::findTrack(std::uint32_t id) const {
  if (id == 0) return nullptr;
  const auto found = std::find_if(cameras.begin(), cameras.end(),
                                  [&](const Camera& camera) { return camera.track == id; });
  return found == cameras.end() ? nullptr : &*found;
}

Camera& Scene::addCamera(Camera camera) {
  camera.track = SceneNode::newId();
  cameras.push_back(std::move(camera));
  return cameras.back();
}

Viewpoint& Scene::addViewpoint(Viewpoint viewpoint) {
  viewpoint.id = SceneNode::newId();
  viewpoints.push_back(std::move(viewpoint));
  return viewpoints.back();
}

}  // namespace kuStandalone
