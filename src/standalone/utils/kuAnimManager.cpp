#include "host/utils/kuAnimManager.h"

#include "standalone/scene/Scene.h"

using kuStandalone::AnimationClip;
using kuStandalone::Scene;

kuAnimManager& kuAnimManager::the() {
  static kuAnimManager manager;
  return manager;
}

void kuAnimManager::getBlockAndClipNames(std::set<std::string>& names) const {
  for (const auto& block : Scene::the().animationBlocks)
    names.insert(block.first);
  for (const AnimationClip& clip : Scene::the().animations)
    names.insert(clip.name);
}
