#pragma once

#include <QString>
#include <cstddef>
#include <string>
#include <vector>

#include "SetContent.h"

/** What a set lost. */
struct SetLoss {
  QString set;
  SetContent content;
};

/** What came of an optimization. */
struct OptimizationReport {
  std::size_t setCount = 0;
  /** The sets that lost something. */
  std::vector<SetLoss> losses;
  std::vector<QString> droppedSets;
  std::vector<QString> droppedGroups;
  /** Those that are empty and still there. */
  std::vector<QString> emptySets;
  std::vector<QString> emptyGroups;
};

/** Sheds from all sets what the scene no longer has. @param dropEmpty removes empty sets, too, and
 * then the groups without sets. */
OptimizationReport optimizeSets(bool dropEmpty);

std::string optimizationJson(const OptimizationReport& report);
/** @param done false tells what would be removed. */
std::string optimizationText(const OptimizationReport& report, bool done);
