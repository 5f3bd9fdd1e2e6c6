#pragma once

#include <QString>
#include <array>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

/** What a set names of the scene, or a part of it. */
struct SetContent {
  /** For each kind, in the order of kinds(), variants and their states. */
  std::array<std::vector<std::pair<QString, QString>>, 5> states;
  std::vector<QString> viewpoints;
  /** Empty for none. */
  QString defaultViewpoint;
  std::vector<QString> animations;
  std::vector<QString> geometries;
};

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
