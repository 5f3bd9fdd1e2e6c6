#include <vector>

#include "host/kernel/kuController.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"
#include "model/kuVariantSetKeeper.h"
#include "scene/kuLightVariant.h"
#include "scene/kuMaterialVariant.h"
#include "scene/kuNodeVariant.h"
#include "scene/kuOverlayVariant.h"
#include "scene/kuTransformVariant.h"

namespace {

/** Sends the names of those variants that exist; also where there is none. */
template <class Variant>
void sendExisting(const char* name, const std::list<kuVariantState>& states,
                  Variant* (*find)(const QString&)) {
  std::vector<QString> names;
  for (const kuVariantState& entry : states) {
    if (const kuVariant* variant = find(entry.getVariant())) names.push_back(variant->getName());
  }
  kuMessage message;
  message.set("variant", names, true);
  kuController::call(name, message, 1);
}

}  // namespace

void kuVariantSet::showConnectedVariants() {
  const Keeper set(*this);
  sendExisting("selectNodeVariants", set->nodeVariants, kuVariants::findNodeVariant);
  sendExisting("selectMaterialVariants", set->materialVariants, kuVariants::findMaterialVariant);
  sendExisting("selectLightVariants", set->lightVariants, kuVariants::findLightVariant);
  sendExisting("selectOverlayVariants", set->overlayVariants, kuVariants::findOverlayVariant);
  sendExisting("selectTransformVariants", set->transformVariants, kuVariants::findTransformVariant);
}
