#include <algorithm>

#include "capture/kuSceneNames.h"
#include "capture/kuSceneReferences.h"
#include "host/utils/kuSceneplateUtils.h"
#include "manager/kuVariants.h"
#include "model/kuUtf8.h"
#include "model/kuVariantSet.h"
#include "scene/kuLightVariant.h"
#include "scene/kuMaterialVariant.h"
#include "scene/kuNodeVariant.h"
#include "scene/kuOverlayVariant.h"

namespace {

/** Whether an entry's variant exists and reaches the scene. */
template <class Variant, class Reaches>
bool anyReaches(const std::list<kuVariantState>& states, Variant* (*find)(const QString&),
                Reaches reaches) {
  return std::any_of(states.begin(), states.end(), [&](const kuVariantState& entry) {
    const Variant* variant = find(entry.getVariant());
    return variant && reaches(*variant);
  });
}

bool usesNode(const std::list<kuVariantState>& states) {
  return anyReaches(states, kuVariants::findNodeVariant, [](const kuNodeVariant& variant) {
    return kuSceneReferences::hasNode(variant.getNode());
  });
}

bool usesMaterial(const std::list<kuVariantState>& states) {
  return anyReaches(states, kuVariants::findMaterialVariant, [](const kuMaterialVariant& variant) {
    return !kuSceneReferences::materials(variant.getMaterial()).empty();
  });
}

bool usesLight(const std::list<kuVariantState>& states, kuSceneNames& scene) {
  return anyReaches(states, kuVariants::findLightVariant, [&](const kuLightVariant& variant) {
    return scene.hasLight(variant.getNode());
  });
}

bool usesAnimation(const std::vector<QString>& animations, kuSceneNames& scene) {
  return std::any_of(animations.begin(), animations.end(),
                     [&](const QString& animation) { return scene.hasAnimation(animation); });
}

bool usesOverlay(const std::list<kuVariantState>& states) {
  return anyReaches(states, kuVariants::findOverlayVariant, [](const kuOverlayVariant& variant) {
    return kuSceneplateUtils::findNode(kuUtf8(variant.getOverlay())) != osg::NullFC;
  });
}

}  // namespace

bool kuVariantSet::isEmpty() const {
  return nodeVariants.empty() && materialVariants.empty() && lightVariants.empty() &&
         geometries.empty() && viewpoints.empty() && animations.empty() &&
         overlayVariants.empty() && transformVariants.empty() && script.isEmpty() &&
         analyzerVariant.clipState == 0;
}

// Transform states do not count, nor do script and clipping: a set of these alone is neither empty
// nor used.
bool kuVariantSet::isUsed() const {
  kuSceneNames scene;
  return usesNode(nodeVariants) || usesMaterial(materialVariants) ||
         usesLight(lightVariants, scene) ||
         std::any_of(geometries.begin(), geometries.end(), kuSceneReferences::hasNode) ||
         std::any_of(viewpoints.begin(), viewpoints.end(), kuSceneReferences::hasViewpoint) ||
         usesAnimation(animations, scene) || usesOverlay(overlayVariants);
}
