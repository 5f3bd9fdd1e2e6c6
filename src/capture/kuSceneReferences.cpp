#include "capture/kuSceneReferences.h"

#include "host/kernel/kuScenegraph.h"
#include "host/utils/kuMaterials.h"
#include "host/utils/kuSceneplateUtils.h"
#include "host/utils/kuUberCameraPool.h"
#include "model/kuUtf8.h"

namespace kuSceneReferences {

std::vector<kuNodePtr> nodes(const QString& name) {
  return kuScenegraph::findNodes(kuUtf8(name).c_str());
}

std::vector<kuMaterialPtr> materials(const QString& name) {
  return kuMaterials::findMaterials(kuUtf8(name).c_str());
}

std::vector<osg::NodePtr> sceneplates(const QString& name) {
  std::vector<osg::NodePtr> found;
  kuSceneplateUtils::findNodes(kuUtf8(name), found);
  return found;
}

bool hasNode(const QString& name) { return !nodes(name).empty(); }

bool hasViewpoint(const QString& name) {
  return !kuUberCameraPool::the().findViewpoint(kuUtf8(name)).isNull();
}

}  // namespace kuSceneReferences
