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

template <class List>
std::vector<kuVariant*> asVariants(const List& list) {
  return {list.begin(), list.end()};
}

template <class Variant>
const Variant& as(const kuVariant& variant) {
  return static_cast<const Variant&>(variant);
}

const Kind node = {
    "node", [] { return asVariants(kuVariants::getNodeVariants()); },
    [](const QString& name) -> kuVariant* { return kuVariants::findNodeVariant(name); },
    [](const kuVariantSet& set) -> const auto& {return set.getNodeVariants();
}  // namespace
, [](const kuVariant& variant) { return as<kuNodeVariant>(variant).getNode(); }, Keywords::nodeObeys
}
;

const Kind material = {
    "material", [] { return asVariants(kuVariants::getMaterialVariants()); },
    [](const QString& name) -> kuVariant* { return kuVariants::findMaterialVariant(name); },
    [](const kuVariantSet& set) -> const auto& {return set.getMaterialVariants();
}
, [](const kuVariant& variant) { return as<kuMaterialVariant>(variant).getMaterial(); },
    Keywords::materialObeys
}
;

const Kind transform = {
    "transform", [] { return asVariants(kuVariants::getTransformVariants()); },
    [](const QString& name) -> kuVariant* { return kuVariants::findTransformVariant(name); },
    [](const kuVariantSet& set) -> const auto& {return set.getTransformVariants();
}
, [](const kuVariant& variant) { return as<kuTransformVariant>(variant).getNode(); },
    Keywords::transformObeys
}
;

const Kind light = {
    "light", [] { return asVariants(kuVariants::getLightVariants()); },
    [](const QString& name) -> kuVariant* { return kuVariants::findLightVariant(name); },
    [](const kuVariantSet& set) -> const auto& {return set.getLightVariants();
}
, [](const kuVariant& variant) { return as<kuLightVariant>(variant).getNode(); },
    Keywords::lightObeys
}
;

const Kind overlay = {
    "overlay", [] { return asVariants(kuVariants::getOverlayVariants()); },
    [](const QString& name) -> kuVariant* { return kuVariants::findOverlayVariant(name); },
    [](const kuVariantSet& set) -> const auto& {return set.getOverlayVariants();
}
, [](const kuVariant& variant) { return as<kuOverlayVariant>(variant).getOverlay(); },
    Keywords::overlayObeys
}
;

}  // namespace

const std::array<Kind, 5>& kinds() {
  static const std::array<Kind, 5> all = {node, material, transform, light, overlay};
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
