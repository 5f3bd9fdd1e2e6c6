#include "standalone/scene/MaterialNames.h"

#include <string>

#include "host/kernel/kuController.h"
#include "standalone/scene/Scene.h"
#include "standalone/scene/ScenePool.h"

namespace kuStandalone {
namespace {

constexpr const char* uniqueNameMessage = "MaterialGetUniqueName";

void onUniqueName(kuMessage& message) {
  std::string name;
  if (!message.get("name", name)) return;
  message.set("newname", ScenePool::of(Scene::the().pool).uniqueName(name), true);
}

}  // namespace

MaterialNames::MaterialNames() { kuController::addCB(uniqueNameMessage, onUniqueName); }

MaterialNames::~MaterialNames() { kuController::subCB(uniqueNameMessage, onUniqueName); }

}  // namespace kuStandalone
