#include "capture/kuSceneReferences.h"

#include "host/kernel/kuScenegraph.h"
#include "host/utils/kuAnimManager.h"
#include "host/utils/kuLights.h"
#include "host/utils/kuMaterials.h"
#include "host/utils/kuNodeUtils.h"
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

Lights::Lights() {
  std::vector<osg::NodePtr> lights;
  kuLights::getLights(lights);
  for (const osg::NodePtr& light : lights)
    _names.insert(kuNodeUtils::getName(light));
}

bool Lights::contains(const QString& name) const { return _names.count(kuUtf8(name)) > 0; }

Animations::Animations() { kuAnimManager::the().getBlockAndClipNames(_names); }

bool Animations::contains(const QString& name) const { return _names.count(kuUtf8(name)) > 0; }

}  // namespace kuSceneReferences
