#include "host/utils/kuUberCameraPool.h"

#include "standalone/scene/Scene.h"

using kuStandalone::Scene;
using kuStandalone::Viewpoint;

kuUberCameraPool& kuUberCameraPool::the() {
  static kuUberCameraPool pool;
  return pool;
}

kudCameraBaseNode kuUberCameraPool::findViewpoint(const std::string& name) const {
  const Viewpoint* found = Scene::the().findViewpoint(name);
  return kudCameraBaseNode(found ? found->id : 0);
}
