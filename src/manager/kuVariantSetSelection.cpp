#include <string>
#include <vector>

#include "host/kernel/kuController.h"
#include "host/kernel/kuOSGWidget.h"
#include "host/kernel/kuScenegraph.h"
#include "host/script/kuScript.h"
#include "host/services/kuCameraService.h"
#include "host/services/kuKernelServiceFactory.h"
#include "host/session/kuSession.h"
#include "host/utils/kuNodeUtils.h"
#include "host/utils/kuSceneplateUtils.h"
#include "manager/kuVariants.h"
#include "model/kuVariantGroup.h"
#include "model/kuVariantSet.h"
#include "model/kuVariantSetKeeper.h"
#include "scene/kuLightVariant.h"
#include "scene/kuMaterialVariant.h"
#include "scene/kuNodeVariant.h"
#include "scene/kuOverlayVariant.h"
#include "scene/kuTransformVariant.h"
#include "session/kuSessionVariantCommand.h"
#include "session/kuSessionVariantSetCommand.h"

// Selecting a set. Receivers of the messages and the scripts run in the midst of it, and may change
// or remove the variants and the very set. So each step reads the set through a keeper, each loop
// goes over a copy of its list, taken when its turn comes, and each variant is looked up when its
// turn comes. The selection of a set that was removed goes on with what the set held, so that every
// message goes out and the scene is not left halfway; only its script is not run any more: nobody
// wants the code of what was just taken away.

namespace {

using States = std::vector<kuVariantState>;

/** From this many states on the name cache is worth its opening. */
constexpr std::size_t statesWorthACache = 4;

/** Opens the name cache for as long as this object lives, unless one is open. */
class NameCache {
 public:
  explicit NameCache(bool wanted) : _opened(wanted && !kuScenegraph::hasFindCache()) {
    if (_opened) kuScenegraph::initFindCache();
  }
  ~NameCache() { close(); }
  NameCache(const NameCache&) = delete;
  NameCache& operator=(const NameCache&) = delete;

  void close() {
    if (_opened) kuScenegraph::clearFindCache();
    _opened = false;
  }

 private:
  bool _opened;
};

/** Keeps the selections of single variants from the partners, for as long as this object lives. */
class LocalVariants {
 public:
  explicit LocalVariants(bool wanted) : _blocked(wanted) {
    if (_blocked) kuSession::the().block(type());
  }
  ~LocalVariants() { end(); }
  LocalVariants(const LocalVariants&) = delete;
  LocalVariants& operator=(const LocalVariants&) = delete;

  void end() {
    if (_blocked) kuSession::the().unblock(type());
    _blocked = false;
  }

 private:
  static unsigned type() { return kuSessionVariantCommand(nullptr, "").getType(); }

  bool _blocked;
};

/** Whether selections of the set travel to the partners: its own flag and its group's decide. */
bool isShared(const kuVariantSet& set) {
  if (!set.getSyncInCollaboration()) return false;
  return !set.getGroup() || set.getGroup()->getSyncInCollaboration();
}

/** "variantsSetSelected": with the set's name at the start of a selection, empty at its end. */
void sendSetSelected(const std::string& setName) {
  kuMessage message;
  message.set("variantSetName", setName, true);
  kuController::call("variantsSetSelected", message, 1);
}

void startAnimation(const QString& name, bool instantaneous) {
  kuMessage message;
  message.set("animation-name", name.toStdString(), true);
  message.set("instantaneous", instantaneous, true);
  kuController::call("animationStart", message, 1);
}

/** Puts each variant that exists into the state of its entry. */
template <class Variant>
void selectStates(const std::list<kuVariantState>& states, Variant* (*find)(const QString&)) {
  for (const kuVariantState& entry : States(states.begin(), states.end())) {
    if (kuVariant* variant = find(entry.getVariant())) variant->select(entry.getState());
  }
}

/** Puts each variant that exists into its own default; the states of the entries play no part. */
template <class Variant>
void selectDefaults(const std::list<kuVariantState>& states, Variant* (*find)(const QString&)) {
  for (const kuVariantState& entry : States(states.begin(), states.end())) {
    if (kuVariant* variant = find(entry.getVariant())) variant->select();
  }
}

kuCameraService* cameraService() {
  return kuKernelServiceFactory::the().getService<kuCameraService>();
}

/** Looks through a viewpoint, if there is one of that name. */
void activate(kuCameraService& service, const QString& viewpoint, bool asDefault) {
  const kudCameraBaseNode camera = service.findCamera(viewpoint);
  if (!camera.isNull()) service.activateCamera(camera.getId(), false, asDefault, true);
}

}  // namespace

void kuVariantSet::select(bool execute, bool skipViewpoint, bool instantaneous) {
  const bool shared = isShared(*this);
  kuSession& session = kuSession::the();
  if (shared && session.isReadyToUse()) {
    session.pushCommand(kuSessionVariantSetCommand(this, execute, skipViewpoint));
    return;
  }
  const Keeper set(*this);
  // Transform and overlay states do not count.
  NameCache cache(nodeVariants.size() + materialVariants.size() + lightVariants.size() >=
                  statesWorthACache);
  sendSetSelected(getName().toStdString());
  LocalVariants local(!shared);
  set->showTargetNodes();

  selectStates(set->nodeVariants, kuVariants::findNodeVariant);
  selectStates(set->materialVariants, kuVariants::findMaterialVariant);
  selectStates(set->transformVariants, kuVariants::findTransformVariant);
  selectStates(set->lightVariants, kuVariants::findLightVariant);
  const bool moveCamera = cameraService() && !skipViewpoint;
  if (moveCamera && !set->viewpoints.empty()) {
    activate(*cameraService(), set->viewpoints.front(), false);
  }
  selectStates(set->overlayVariants, kuVariants::findOverlayVariant);
  local.end();

  if (execute) {
    if (!set->script.isEmpty() && !set.isGone()) set->executeScript();
    set->executeAnalyzer();
    startAnimations(set, instantaneous);
    if (moveCamera && !set->defaultViewpoint.isEmpty()) {
      // A receiver may have taken the service out since.
      if (kuCameraService* cameras = cameraService())
        activate(*cameras, set->defaultViewpoint, true);
    }
  }

  cache.close();
  sendSetSelected(std::string());
  // Receivers hear from a selection without the set; selectDefault alone sends it along.
  kuController::call("variantSetSelected", 1);
  kuController::updateRender(false);
}

void kuVariantSet::showTargetNodes() {
  if (targetNodeNames.empty()) return;
  std::vector<kuNodePtr> nodes;
  if (inclNodes) {
    for (const QString& target : targetNodeNames) {
      const kuNodePtr node = kuScenegraph::findNode(target.toUtf8().constData());
      if (node.isValid()) kuNodeUtils::getSubTreeNodes(node, nodes);
    }
  }
  if (inclSceneplates) {
    kuNodeUtils::getSubTreeNodes(kuSceneplateUtils::getSceneplateRoot(), nodes);
  }
  kuScenegraph::showNodes(nodes);
}

void kuVariantSet::startAnimations(const Keeper& set, bool instantaneous) {
  if (!set->sequentialAnimation) {
    for (const QString& animation : std::vector<QString>(set->animations)) {
      startAnimation(animation, instantaneous);
    }
    return;
  }
  if (set->animations.empty()) return;
  const int count = static_cast<int>(set->animations.size());
  int& cursor = set->animationCursor;
  if (cursor < 0 || cursor >= count) cursor = 0;
  startAnimation(QString(set->animations[static_cast<std::size_t>(cursor)]), instantaneous);
  ++set->animationCursor;
}

void kuVariantSet::selectDefault() {
  const Keeper set(*this);
  sendSetSelected(getName().toStdString());
  // Light stands before transform, the other way round than in select, and overlays are left out.
  selectDefaults(set->nodeVariants, kuVariants::findNodeVariant);
  selectDefaults(set->materialVariants, kuVariants::findMaterialVariant);
  selectDefaults(set->lightVariants, kuVariants::findLightVariant);
  selectDefaults(set->transformVariants, kuVariants::findTransformVariant);
  sendSetSelected(std::string());
  kuMessage message;
  message.set("variantSet", static_cast<void*>(&*set), true);
  kuController::call("variantSetSelected", message, 1);
  kuController::updateRender(true);
}

void kuVariantSet::executeScript() { kuScript::run(script.toUtf8().constData()); }

void kuVariantSet::executeAnalyzer() { analyzerVariant.execute(); }

void kuVariants::selectVariantSet(const char* name, bool skipViewpoint) {
  kuOSGWidget::cancelAntialiasing();
  if (kuVariantSet* set = findVariantSet(QString::fromUtf8(name))) {
    set->select(true, skipViewpoint, false);
  }
}
