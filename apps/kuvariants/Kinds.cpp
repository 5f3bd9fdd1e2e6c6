#include "Kinds.h"

#include <algorithm>

#include "Keywords.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"
#include "scene/kuLightVariant.h"
#include "scene/kuMaterialVariant.h"
#include "scene/kuNodeVariant.h"
#include "scene/kuOverlayVariant.h"
#include "scene/kuTransformVariant.h"

namespace {

// What a kind answers, each by the manager's or the set's own function.

template <auto& list>
std::vector<kuVariant*> variants() {
  const auto& all = list();
  return {all.begin(), all.end()};
}

template <auto& findByName>
kuVariant* variant(const QString& name) {
  return findByName(name);
}

template <auto states>
const std::list<kuVariantState>& statesOf(const kuVariantSet& set) {
  return (set.*states)();
}

template <class Variant, auto base>
QString baseOf(const kuVariant& variant) {
  return (static_cast<const Variant&>(variant).*base)();
}

}  // namespace

const std::array<Kind, 5>& kinds() {
  static const std::array<Kind, 5> all = {{
      {"node", variants<kuVariants::getNodeVariants>, variant<kuVariants::findNodeVariant>,
       statesOf<&kuVariantSet::getNodeVariants>, baseOf<kuNodeVariant, &kuNodeVariant::getNode>,
       Keywords::nodeObeys},
      {"material", variants<kuVariants::getMaterialVariants>,
       variant<kuVariants::findMaterialVariant>, statesOf<&kuVariantSet::getMaterialVariants>,
       baseOf<kuMaterialVariant, &kuMaterialVariant::getMaterial>, Keywords::materialObeys},
      {"transform", variants<kuVariants::getTransformVariants>,
       variant<kuVariants::findTransformVariant>, statesOf<&kuVariantSet::getTransformVariants>,
       baseOf<kuTransformVariant, &kuTransformVariant::getNode>, Keywords::transformObeys},
      {"light", variants<kuVariants::getLightVariants>, variant<kuVariants::findLightVariant>,
       statesOf<&kuVariantSet::getLightVariants>, baseOf<kuLightVariant, &kuLightVariant::getNode>,
       Keywords::lightObeys},
      {"overlay", variants<kuVariants::getOverlayVariants>, variant<kuVariants::findOverlayVariant>,
       statesOf<&kuVariantSet::getOverlayVariants>,
       baseOf<kuOverlayVariant, &kuOverlayVariant::getOverlay>, Keywords::overlayObeys},
  }};
  return all;
}

const Kind* findKind(const QString& name) {
  const auto kind = std::find_if(kinds().begin(), kinds().end(),
                                 [&](const Kind& candidate) { return name == candidate.name; });
  return kind == kinds().end() ? nullptr : &*kind;
}

bool hasState(const Kind& kind, const kuVariant& variant, const QString& state) {
  const auto& options = variant.getOptions();
  const bool listed = std::any_of(options.begin(), options.end(),
                                  [&](const auto& o) { return o.getName() == state; });
  return listed || kind.obeys(kind.baseOf(variant), state);
}
