#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"
#include "scene/kuLightVariant.h"
#include "scene/kuMaterialVariant.h"
#include "scene/kuNodeVariant.h"
#include "scene/kuOverlayVariant.h"
#include "scene/kuTransformVariant.h"

namespace {

using Table = QMap<QString, QString>;
using Tables = QVector<Table>;

/** One table per kind, in the order of a selection: node, material, transform, light, overlay. */
constexpr int kinds = 5;

template <class Variant>
void readStates(const std::list<kuVariantState>& states, Variant* (*find)(const QString&),
                Table& table) {
  for (const kuVariantState& entry : states) {
    const kuVariant* variant = find(entry.getVariant());
    if (variant) table[variant->getName()] = variant->getCurrent();
  }
}

template <class Variant>
void selectDiffering(const Table& table, Variant* (*find)(const QString&)) {
  for (auto entry = table.begin(); entry != table.end(); ++entry) {
    kuVariant* variant = find(entry.key());
    if (variant && variant->getCurrent() != entry.value()) variant->select(entry.value());
  }
}

}  // namespace

void kuVariantSet::getCurrentState(Tables& states, int& cursor) {
  cursor = animationCursor;
  states.resize(kinds);
  readStates(nodeVariants, kuVariants::findNodeVariant, states[0]);
  readStates(materialVariants, kuVariants::findMaterialVariant, states[1]);
  readStates(transformVariants, kuVariants::findTransformVariant, states[2]);
  readStates(lightVariants, kuVariants::findLightVariant, states[3]);
  readStates(overlayVariants, kuVariants::findOverlayVariant, states[4]);
}

void kuVariantSet::setCurrentState(const Tables& states, int cursor) {
  animationCursor = cursor;
  if (states.size() < kinds) return;
  // Receivers may remove this set, and change what the tables come from.
  const Tables tables = states;
  selectDiffering(tables[0], kuVariants::findNodeVariant);
  selectDiffering(tables[1], kuVariants::findMaterialVariant);
  selectDiffering(tables[2], kuVariants::findTransformVariant);
  selectDiffering(tables[3], kuVariants::findLightVariant);
  selectDiffering(tables[4], kuVariants::findOverlayVariant);
}
