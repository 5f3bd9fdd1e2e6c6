#include <QHash>
#include <algorithm>
#include <iterator>
#include <list>
#include <string>
#include <vector>

#include "capture/kuSceneNames.h"
#include "capture/kuSceneReferences.h"
#include "host/osg/Switch.h"
#include "host/utils/kuNodeUtils.h"
#include "manager/kuVariants.h"
#include "model/kuUtf8.h"
#include "model/kuVariantSet.h"
#include "scene/kuLightVariant.h"
#include "scene/kuMaterialVariant.h"
#include "scene/kuNodeStates.h"
#include "scene/kuNodeVariant.h"
#include "scene/kuOverlayVariant.h"
#include "scene/kuTransformVariant.h"

// Shedding what the scene no longer has. Each kind has its own rule for what counts as gone; they
// differ on purpose. Every pass collects before it removes, so that no list changes under its own
// walk.

namespace {

using States = std::list<kuVariantState>;
using Names = std::vector<QString>;

/** Steps and keywords: no child or material state is named by them. */
bool isKeyword(const QString& state) { return state.startsWith(QLatin1Char('!')); }

/**
 * The variants of those entries that are gone. An entry whose variant the manager does not have is
 * passed over: it cannot be judged.
 */
template <class Variant, class IsGone>
Names variantsOfGone(const States& states, Variant* (*find)(const QString&), IsGone isGone) {
  Names names;
  for (const kuVariantState& entry : states) {
    const Variant* variant = find(entry.getVariant());
    if (variant && isGone(*variant, entry.getState())) names.push_back(entry.getVariant());
  }
  return names;
}

template <class List, class IsThere>
Names namesOfGone(const List& list, IsThere isThere) {
  Names names;
  std::copy_if(list.begin(), list.end(), std::back_inserter(names),
               [&](const QString& listed) { return !isThere(listed); });
  return names;
}

const QString& nameOf(const kuVariantState& entry) { return entry.getVariant(); }
const QString& nameOf(const QString& listed) { return listed; }

template <class Entry, class IsDue>
void eraseWhere(std::list<Entry>& list, IsDue isDue) {
  list.remove_if(isDue);
}

template <class IsDue>
void eraseWhere(kuVariantStates& states, IsDue isDue) {
  states.editable().remove_if(isDue);
}

template <class Entry, class IsDue>
void eraseWhere(std::vector<Entry>& list, IsDue isDue) {
  list.erase(std::remove_if(list.begin(), list.end(), isDue), list.end());
}

/**
 * Erases for each of the names the first entry that bears it: of a name collected twice the first
 * two, if there are so many. One walk for all, since a set may lose thousands.
 */
template <class List>
void eraseFirstOf(List& list, const Names& gone) {
  QHash<QString, int> due;
  for (const QString& name : gone)
    ++due[name];
  if (due.isEmpty()) return;
  eraseWhere(list, [&](const auto& entry) {
    const auto found = due.find(nameOf(entry));
    if (found == due.end() || *found == 0) return false;
    --*found;
    return true;
  });
}

/** Whether one of the switches among the nodes lacks the child; nodes of other kinds do not count.
 */
template <class Nodes>
bool aSwitchLacks(const Nodes& nodes, const std::string& child) {
  return std::any_of(nodes.begin(), nodes.end(), [&](const osg::NodePtr& node) {
    return osg::SwitchPtr::dcast(node->getCore()) && !kuNodeStates::hasChild(*node, child);
  });
}

bool isNodeStateGone(const kuNodeVariant& variant, const QString& state) {
  const std::vector<kuNodePtr> nodes = kuSceneReferences::nodes(variant.getNode());
  if (nodes.empty()) return true;
  return !isKeyword(state) && aSwitchLacks(nodes, kuUtf8(state));
}

/** Whatever its class, a material is asked for its states: one without any has not got this one. */
bool lacksState(const kuMaterialPtr& material, const std::string& state) {
  std::vector<std::string> names;
  material.getMaterial()->getStateNames(names);
  return std::find(names.begin(), names.end(), state) == names.end();
}

bool isMaterialStateGone(const kuMaterialVariant& variant, const QString& state) {
  const auto materials = kuSceneReferences::materials(variant.getMaterial());
  if (materials.empty()) return true;
  if (isKeyword(state)) return false;
  const std::string name = kuUtf8(state);
  return std::any_of(materials.begin(), materials.end(), [&](const kuMaterialPtr& material) {
    return material.isValid() && lacksState(material, name);
  });
}

bool isOverlayStateGone(const kuOverlayVariant& variant, const QString& state) {
  const std::vector<osg::NodePtr> nodes = kuSceneReferences::sceneplates(variant.getOverlay());
  if (nodes.empty()) return true;
  return !isKeyword(state) && aSwitchLacks(nodes, kuUtf8(state));
}

// One node that has the state is enough, where every switch must have its child. Keywords are no
// exception: they are no transform's state, and go.
bool isTransformStateGone(const kuTransformVariant& variant, const QString& state) {
  const std::vector<kuNodePtr> nodes = kuSceneReferences::nodes(variant.getNode());
  const std::string name = kuUtf8(state);
  return std::none_of(nodes.begin(), nodes.end(), [&](const osg::NodePtr& node) {
    return kuNodeUtils::hasTransformVariants(node) &&
           kuNodeUtils::getTransformVariantIndex(node, name) >= 0;
  });
}

}  // namespace

void kuVariantSet::optimize(kuSceneNames& scene) {
  // The state of a light plays no part.
  const auto isLightGone = [&](const kuLightVariant& variant, const QString&) {
    return !scene.hasLight(variant.getNode());
  };
  const auto hasAnimation = [&](const QString& listed) { return scene.hasAnimation(listed); };

  eraseFirstOf(nodeVariants,
               variantsOfGone(nodeVariants, kuVariants::findNodeVariant, isNodeStateGone));
  eraseFirstOf(materialVariants, variantsOfGone(materialVariants, kuVariants::findMaterialVariant,
                                                isMaterialStateGone));
  eraseFirstOf(lightVariants,
               variantsOfGone(lightVariants, kuVariants::findLightVariant, isLightGone));
  eraseFirstOf(geometries, namesOfGone(geometries, kuSceneReferences::hasNode));
  for (const QString& gone : namesOfGone(viewpoints, kuSceneReferences::hasViewpoint))
    removeViewpoint(gone);  // which looks after the default viewpoint as well
  eraseFirstOf(animations, namesOfGone(animations, hasAnimation));
  eraseFirstOf(overlayVariants,
               variantsOfGone(overlayVariants, kuVariants::findOverlayVariant, isOverlayStateGone));
  eraseFirstOf(
      transformVariants,
      variantsOfGone(transformVariants, kuVariants::findTransformVariant, isTransformStateGone));
}

void kuVariantSet::optimize() {
  kuSceneNames scene;
  optimize(scene);
}

void kuVariants::optimizeVariantSets() {
  kuSceneNames scene;  // taken once for all sets: nothing changes it meanwhile
  for (kuVariantSet* set : getVariantSets())
    set->optimize(scene);
}
