#pragma once

#include <QString>
#include <functional>

#include "model/kuVariantsExport.h"

/** One thing that a check of the manager against itself and the scene found. */
struct kuVariantFinding {
  enum class Severity { Error, Info };

  Severity severity;
  /** One of the type names of kuVariantVerifier. */
  QString type;
  /** The set or the variant that was checked. */
  QString name;
  /** For a set the variant that the state at fault names; for a variant the name of its scene
   * object. */
  QString context;
  /** The state at fault; empty where there is none. */
  QString state;
  /** What was found, in English; a literal. */
  const char* message;
};

using kuFindingReceiver = std::function<void(const kuVariantFinding&)>;

// The checks: each hands its findings on in the order of the manager's list. They change nothing.

/** The node and material states of every set. */
KUVARIANTS_EXPORT void kuCheckVariantSets(const kuFindingReceiver& receive);
/** Default and options of every node variant. */
KUVARIANTS_EXPORT void kuCheckNodeVariants(const kuFindingReceiver& receive);
/** Default and options of every material variant. */
KUVARIANTS_EXPORT void kuCheckMaterialVariants(const kuFindingReceiver& receive);
