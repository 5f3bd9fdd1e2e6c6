#include "standalone/services/CameraService.h"

#include "host/kernel/kuController.h"
#include "host/osg/EditCP.h"
#include "host/utils/kuNodeUtils.h"
#include "standalone/services/Addressed.h"

namespace kuStandalone {
namespace {

/** A camera has one track here, for viewpoints of every kind. */
kudCameraTrackNode trackOf(const kudCameraBaseNode& camera) {
  const Scene& scene = Scene::the();
  const Viewpoint* viewpoint = addressedViewpoint(camera.getId());
  const bool isKnown = viewpoint && viewpoint->camera < scene.cameras.size();
  return kudCameraTrackNode(isKnown ? scene.cameras[viewpoint->camera].track : 0);
}

std::string uniqueViewpointName(const Scene& scene, const std::string& name) {
  std::vector<std::string> used;
  for (const Viewpoint& viewpoint : scene.viewpoints)
    used.push_back(viewpoint.name);
  // In a file a viewpoint of a camera's name would be that camera's own.
  for (const Camera& camera : scene.cameras)
    used.push_back(camera.name);
  return kuNodeUtils::getUniqueName(name, used);
}

}  // namespace

// The active viewpoint, or where none is active that of the first camera.
kudCameraBaseNode CameraService::getActiveCamera(int) {
  const Scene& scene = Scene::the();
  const Camera* camera = scene.activeCamera();
  if (!camera) return kudCameraBaseNode();
  const auto index = static_cast<std::size_t>(camera - scene.cameras.data());
  std::uint32_t id = 0;
  for (const Viewpoint& viewpoint : scene.viewpoints) {
    if (viewpoint.camera != index) continue;
    if (scene.isActive(viewpoint)) return kudCameraBaseNode(viewpoint.id);
    if (id == 0) id = viewpoint.id;
  }
  return kudCameraBaseNode(id);
}

kudCameraBaseNode CameraService::findCamera(const QString& name) {
  const Viewpoint* viewpoint = Scene::the().findViewpoint(name.toStdString());
  return kudCameraBaseNode(viewpoint ? viewpoint->id : 0);
}

kudCameraBaseNode CameraService::createViewpoint(const QString& name,
                                                 const kudCameraTrackNode& track) {
  Scene& scene = Scene::the();
  const Camera* camera = scene.findTrack(track.getId());
  if (name.isEmpty() || !camera || !camera->node) return kudCameraBaseNode();
  Viewpoint viewpoint;
  viewpoint.name = uniqueViewpointName(scene, name.toStdString());
  viewpoint.camera = static_cast<std::size_t>(camera - scene.cameras.data());
  viewpoint.pose = SceneNode::of(camera->node).transform();
  viewpoint.named = true;
  return kudCameraBaseNode(scene.addViewpoint(std::move(viewpoint)).id);
}

void CameraService::refreshCamera(unsigned id, bool) {
  if (Scene::the().findViewpoint(id)) kuController::updateRender(false);
}

void CameraService::activateCamera(unsigned id, bool, bool, bool) {
  Scene& scene = Scene::the();
  const Viewpoint* viewpoint = scene.findViewpoint(id);
  if (!viewpoint) return;
  scene.activeViewpoint = viewpoint->name;
  if (viewpoint->camera >= scene.cameras.size()) return;
  const osg::NodePtr node = scene.cameras[viewpoint->camera].node;
  if (!node) return;
  const osg::EditCP edit(node, SceneNode::TransformFieldMask);
  SceneNode::of(node).moveTo(viewpoint->pose);
}

kudCameraTrackNode CameraService::findSetNamedViewpointTrack(const kudCameraBaseNode& camera) {
  return trackOf(camera);
}

kudCameraTrackNode CameraService::findViewSuffixedViewpointTrack(const kudCameraBaseNode& camera) {
  return trackOf(camera);
}

}  // namespace kuStandalone
