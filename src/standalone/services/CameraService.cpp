#include "standalone/services/CameraService.h"

#include "host/kernel/kuController.h"
#include "host/osg/EditCP.h"
#include "standalone/scene/Scene.h"
#include "standalone/scene/SceneNode.h"

namespace kuStandalone {

kudCameraBaseNode CameraService::findCamera(const QString& name) {
  const Viewpoint* viewpoint = Scene::the().findViewpoint(name.toStdString());
  return kudCameraBaseNode(viewpoint ? viewpoint->id : 0);
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

}  // namespace kuStandalone
