#include "support/SelectionScene.h"

#include "host/kernel/kuController.h"
#include "manager/kuVariants.h"
#include "standalone/kernel/HostState.h"
#include "standalone/script/ClippingSettings.h"
#include "standalone/script/ScriptPolicy.h"

using namespace kuStandalone;

SelectionScene::SelectionScene() { build(); }

SelectionScene::~SelectionScene() { ClippingSettings::the() = ClippingSettings(); }

void SelectionScene::build() {
  kuController::call("clearAllVariants", 1);
  scene = SceneBuilder();
  HostState::the() = HostState();
  ClippingSettings::the() = ClippingSettings();
  ScriptPolicy::allow(false);
  _roof = scene.switchNode("Roof", 0, {"Open", "Closed"});
  _paint = scene.switchMaterial("Paint", {scene.material("Red"), scene.material("Blue")}, 0);
  _door = scene.transforms("Door", {"Shut", "Ajar"}, 0, 0);
  _lamp = scene.light("Lamp", false);
  _badge = scene.sceneplateSwitch("Badge", 0, {"Small", "Large"});
  scene.camera("Front");
  scene.camera("Rear");
  kuVariants::createNodeVariant(_roof, false);
  kuVariants::createMaterialVariant(_paint, false);
  kuVariants::createTransformVariant(_door, false);
  kuVariants::createLightVariant(_lamp, false);
  kuVariants::createOverlayVariant(_badge, false);
  kuVariants::createVariantSet("Summer", false, nullptr);
  messages.clear();
}

void SelectionScene::fill() {
  set().addNodeVariant("Roof", "Closed");
  set().addMaterialVariant("Paint", "Blue");
  set().addTransformVariant("Door", "Ajar");
  set().addLightVariant("Lamp", "!Enable");
  set().addOverlayVariant("Badge", "Large");
  set().addViewpoint("Front");
  set().addViewpoint("Rear");
  set().setDefaultViewpoint("Rear");
  // The script moves the plane first, the clipping settings move it on.
  set().setScript(
      "setClippingHideScene(true)\nsetClippingPlane(Pnt3f(1, 0, 0),Vec3f(0, 1, 0),false)");
  set().setClippingState(3);
  set().setClippingPlanePositionX(2);
  set().addAnimation("Doors");
  set().addAnimation("Wipers");
}

kuVariantSet& SelectionScene::set() const { return *kuVariants::findVariantSet("Summer"); }

std::uint64_t SelectionScene::frames() { return HostState::the().renderRequests; }

bool SelectionScene::lastFrameAtOnce() { return HostState::the().lastRenderRequestNow; }

std::string SelectionScene::viewpoint() { return Scene::the().activeViewpoint; }
