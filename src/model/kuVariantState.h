#pragma once

#include <QString>

#include "model/kuVariantsExport.h"

class kuVariant;

/** One entry of a variant set: a variant by name, and the state that the set puts it into. */
class KUVARIANTS_EXPORT kuVariantState {
 public:
  kuVariantState() = default;
  /** An entry with an empty state. */
  kuVariantState(const QString& variantName) : variant(variantName) {}
  kuVariantState(const QString& variantName, const QString& stateName)
      : variant(variantName), state(stateName) {}
  /** The variant's name and its default state. */
  kuVariantState(kuVariant* of);
  kuVariantState(kuVariant* of, const QString& stateName);

  const QString& getVariant() const { return variant; }
  /** Name of the option to select; may be a step. */
  const QString& getState() const { return state; }
  void setState(const QString& stateName) { state = stateName; }

 private:
  QString variant;
  QString state;
};
