#include "support/VariantsTest.h"

#include "host/kernel/kuController.h"
#include "manager/kuVariants.h"
#include "model/kuVariantGroup.h"
#include "model/kuVariantSet.h"
#include "scene/kuLightVariant.h"
#include "scene/kuMaterialVariant.h"
#include "scene/kuNodeVariant.h"
#include "scene/kuOverlayVariant.h"
#include "scene/kuTransformVariant.h"

namespace {

template <class Listed, class List>
const Listed* listed(const void* pointer, const List& list) {
  for (auto* entry : list) {
    const Listed* base = entry;
    if (base == pointer) return base;
  }
  return nullptr;
}

const kuVariant* variantAt(const void* pointer) {
  for (const kuVariant* found : {listed<kuVariant>(pointer, kuVariants::getNodeVariants()),
                                 listed<kuVariant>(pointer, kuVariants::getMaterialVariants()),
                                 listed<kuVariant>(pointer, kuVariants::getLightVariants()),
                                 listed<kuVariant>(pointer, kuVariants::getOverlayVariants()),
                                 listed<kuVariant>(pointer, kuVariants::getTransformVariants())}) {
    if (found) return found;
  }
  return nullptr;
}

std::string nameOf(const void* pointer) {
  if (const kuVariant* variant = variantAt(pointer)) {
    return "kuVariant " + variant->getName().toStdString();
  }
  if (const auto* set = listed<kuVariantSet>(pointer, kuVariants::getVariantSets())) {
    return "kuVariantSet " + set->getName().toStdString();
  }
  if (const auto* group = listed<kuVariantGroup>(pointer, kuVariants::getVariantGroups())) {
    return "kuVariantGroup " + group->getName().toStdString();
  }
  return "unlisted";
}

}  // namespace

VariantsTest::VariantsTest() : messages(nameOf) {
  kuController::call("clearAllVariants", 1);
  kuVariants::setRecursion(false);
  messages.clear();
}

VariantsTest::~VariantsTest() { kuController::call("clearAllVariants", 1); }
