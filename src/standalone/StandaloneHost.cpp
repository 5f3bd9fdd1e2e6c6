#include "standalone/StandaloneHost.h"

#include "host/services/kuKernelServiceFactory.h"
#include "standalone/animation/AnimationPlayer.h"
#include "standalone/rendering/ScenePictures.h"
#include "standalone/scene/MaterialNames.h"
#include "standalone/scene/Scene.h"
#include "standalone/services/CameraService.h"
#include "standalone/services/SceneplateService.h"
#include "standalone/services/TransformService.h"

namespace kuStandalone {

struct StandaloneHost::Parts {
  CameraService cameras;
  SceneplateService sceneplates;
  TransformService transforms;
  AnimationPlayer animations;
  MaterialNames materialNames;
};

StandaloneHost::StandaloneHost() : _parts(std::make_unique<Parts>()) {
  kuKernelServiceFactory& factory = kuKernelServiceFactory::the();
  factory.registerService<kuCameraService>(&_parts->cameras);
  factory.registerService<kuSceneplateService>(&_parts->sceneplates);
  factory.registerService<kuTransformService>(&_parts->transforms);
}

StandaloneHost::~StandaloneHost() {
  kuKernelServiceFactory& factory = kuKernelServiceFactory::the();
  factory.unregisterService<kuCameraService>();
  factory.unregisterService<kuSceneplateService>();
  factory.unregisterService<kuTransformService>();
  ScenePictures::the().forget();
  Scene::install(std::make_unique<Scene>());
}

}  // namespace kuStandalone
