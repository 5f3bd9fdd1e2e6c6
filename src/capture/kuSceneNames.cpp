#include "capture/kuSceneNames.h"

#include <vector>

#include "host/utils/kuAnimManager.h"
#include "host/utils/kuLights.h"
#include "host/utils/kuNodeUtils.h"
#include "model/kuUtf8.h"

bool kuSceneNames::hasLight(const QString& name) {
  if (!_lights) {
    _lights.emplace();
    std::vector<osg::NodePtr> lights;
    kuLights::getLights(lights);
    for (const osg::NodePtr& light : lights)
      _lights->insert(kuNodeUtils::getName(light));
  }
  return _lights->count(kuUtf8(name)) > 0;
}

bool kuSceneNames::hasAnimation(const QString& name) {
  if (!_animations) kuAnimManager::the().getBlockAndClipNames(_animations.emplace());
  return _animations->count(kuUtf8(name)) > 0;
}
