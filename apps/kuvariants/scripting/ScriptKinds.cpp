#include "scripting/ScriptKinds.h"

#include <algorithm>
#include <array>

#include "Kinds.h"
#include "Text.h"
#include "model/kuVariantSet.h"
#include "scripting/ScriptErrors.h"

const ScriptKind& existingKind(const std::string& name) {
  static const std::array<ScriptKind, 5> all = {{
      {findKind("node"), &kuVariantSet::addNodeVariant, &kuVariantSet::removeNodeVariant},
      {findKind("material"), &kuVariantSet::addMaterialVariant,
       &kuVariantSet::removeMaterialVariant},
      {findKind("transform"), &kuVariantSet::addTransformVariant,
       &kuVariantSet::removeTransformVariant},
      {findKind("light"), &kuVariantSet::addLightVariant, &kuVariantSet::removeLightVariant},
      {findKind("overlay"), &kuVariantSet::addOverlayVariant, &kuVariantSet::removeOverlayVariant},
  }};
  const auto found = std::find_if(all.begin(), all.end(),
                                  [&](const ScriptKind& one) { return name == one.kind->name; });
  if (found != all.end()) return *found;
  raiseWrong("a kind is node, material, transform, light or overlay, not \"" + escaped(name) + '"');
}
