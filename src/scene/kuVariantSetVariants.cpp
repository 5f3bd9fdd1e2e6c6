#include "model/kuVariantSet.h"
#include "scene/kuLightVariant.h"
#include "scene/kuMaterialVariant.h"
#include "scene/kuNodeVariant.h"
#include "scene/kuOverlayVariant.h"
#include "scene/kuTransformVariant.h"

// The members of a set that take a variant. Overlay variants alone are found and removed only by
// name.

namespace {

/** The state to store: an empty one stands for the variant's default. */
const QString& stateOrDefault(const kuVariant& variant, const QString& state) {
  return state.isEmpty() ? variant.getDefault() : state;
}

}  // namespace

void kuVariantSet::add(kuNodeVariant* variant, const QString& state) {
  addNodeVariant(variant->getName(), stateOrDefault(*variant, state));
}

kuVariantState* kuVariantSet::find(kuNodeVariant* variant) {
  return findNodeVariant(variant->getName());
}

void kuVariantSet::remove(kuNodeVariant* variant) { removeNodeVariant(variant->getName()); }

void kuVariantSet::add(kuMaterialVariant* variant, const QString& state) {
  addMaterialVariant(variant->getName(), stateOrDefault(*variant, state));
}

kuVariantState* kuVariantSet::find(kuMaterialVariant* variant) {
  return findMaterialVariant(variant->getName());
}

void kuVariantSet::remove(kuMaterialVariant* variant) { removeMaterialVariant(variant->getName()); }

void kuVariantSet::add(kuLightVariant* variant, const QString& state) {
  addLightVariant(variant->getName(), stateOrDefault(*variant, state));
}

kuVariantState* kuVariantSet::find(kuLightVariant* variant) {
  return findLightVariant(variant->getName());
}

void kuVariantSet::remove(kuLightVariant* variant) { removeLightVariant(variant->getName()); }

void kuVariantSet::add(kuOverlayVariant* variant, const QString& state) {
  addOverlayVariant(variant->getName(), stateOrDefault(*variant, state));
}

void kuVariantSet::add(kuTransformVariant* variant, const QString& state) {
  addTransformVariant(variant->getName(), stateOrDefault(*variant, state));
}

kuVariantState* kuVariantSet::find(kuTransformVariant* variant) {
  return findTransformVariant(variant->getName());
}

void kuVariantSet::remove(kuTransformVariant* variant) {
  removeTransformVariant(variant->getName());
}
