#include "host/kernel/kuController.h"
#include "manager/kuVariants.h"
#include "model/kuVariantGroup.h"
#include "model/kuVariantSet.h"
#include "scene/kuLightVariant.h"
#include "scene/kuMaterialVariant.h"
#include "scene/kuNodeVariant.h"
#include "scene/kuOverlayVariant.h"
#include "scene/kuTransformVariant.h"

// The instance stands behind the lists: it must not be called back before they are there. At
// unload they free their own storage and leave what they point to.
kuNamedList<kuNodeVariant> kuVariants::_nodeVariants;
kuNamedList<kuMaterialVariant> kuVariants::_materialVariants;
kuNamedList<kuLightVariant> kuVariants::_lightVariants;
kuNamedList<kuOverlayVariant> kuVariants::_overlayVariants;
kuNamedList<kuTransformVariant> kuVariants::_transformVariants;
kuNamedList<kuVariantSet> kuVariants::_variantSets;
kuNamedList<kuVariantGroup> kuVariants::_variantGroups;
std::unordered_map<std::uint32_t, std::vector<kuNodePtr>> kuVariants::_nodePathIndex;
std::unordered_set<osg::GeometryPtr> kuVariants::_capturedGeometryCores;
bool kuVariants::_recurse = false;
kuVariants kuVariants::_the;

kuVariants::kuVariants() { kuController::addCB("clearAllVariants", clearAll); }

kuVariants::~kuVariants() { kuController::subCB("clearAllVariants", clearAll); }

kuVariants* kuVariants::the() { return &_the; }

void kuVariants::setRecursion(bool recurse) { _recurse = recurse; }

bool kuVariants::getRecursion() { return _recurse; }

// Sets go before groups, so that each leaves its group while that still exists. The transform
// message has mode 0 here, unlike in sendVariantsChanged.
void kuVariants::clearAll(kuMessage&) {
  clearNodeVariants();
  clearMaterialVariants();
  clearLightVariants();
  clearOverlayVariants();
  clearTransformVariants();
  clearVariantSets();
  clearVariantGroups();
}

void kuVariants::sendVariantsChanged() {
  for (const char* message : {"lightVariantChanged", "nodeVariantChanged", "materialVariantChanged",
                              "overlayVariantChanged", "transformVariantChanged",
                              "variantSetChanged", "variantGroupChanged"}) {
    kuController::call(message, 1);
  }
}

void kuVariants::showConnectedVariants(QString setName) {
  // Unlike findVariantSet this finds a nameless set too.
  if (kuVariantSet* set = _variantSets.first(setName)) set->showConnectedVariants();
}
