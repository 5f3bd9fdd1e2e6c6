#include "Optimization.h"

#include "manager/kuVariants.h"
#include "model/kuVariantGroup.h"
#include "model/kuVariantSet.h"

namespace {

/** What is no longer in a list from which entries were taken out. */
template <class List>
List missing(const List& before, const List& after) {
  List gone;
  auto kept = after.begin();
  for (const auto& entry : before) {
    if (kept != after.end() && *kept == entry) {
      ++kept;
    } else {
      gone.push_back(entry);
    }
  }
  return gone;
}

SetContent missing(const SetContent& before, const SetContent& after) {
  SetContent gone;
  for (std::size_t kind = 0; kind < gone.states.size(); ++kind)
    gone.states[kind] = missing(before.states[kind], after.states[kind]);
  gone.viewpoints = missing(before.viewpoints, after.viewpoints);
  if (after.defaultViewpoint.isEmpty()) gone.defaultViewpoint = before.defaultViewpoint;
  gone.animations = missing(before.animations, after.animations);
  gone.geometries = missing(before.geometries, after.geometries);
  return gone;
}

/** The default viewpoint goes with the viewpoint, never alone. */
bool holdsNothing(const SetContent& content) {
  for (const auto& states : content.states) {
    if (!states.empty()) return false;
  }
  return content.viewpoints.empty() && content.animations.empty() && content.geometries.empty();
}

std::vector<SetContent> presentContents() {
  std::vector<SetContent> contents;
  for (const kuVariantSet* set : kuVariants::getVariantSets())
    contents.push_back(contentOf(*set));
  return contents;
}

std::vector<SetLoss> losses(const std::vector<SetContent>& before) {
  std::vector<SetLoss> lost;
  for (std::size_t i = 0; i < before.size(); ++i) {
    const kuVariantSet& set = *kuVariants::getVariantSets()[i];
    const SetContent gone = missing(before[i], contentOf(set));
    if (!holdsNothing(gone)) lost.push_back({set.getName(), gone});
  }
  return lost;
}

template <class List>
std::vector<QString> namesOf(const List& list) {
  std::vector<QString> names;
  for (const auto* one : list)
    names.push_back(one->getName());
  return names;
}

std::vector<QString> setNames() { return namesOf(kuVariants::getVariantSets()); }

std::vector<QString> groupNames() { return namesOf(kuVariants::getVariantGroups()); }

void dropEmptyOnes(OptimizationReport& report) {
  const std::vector<QString> sets = setNames(), groups = groupNames();
  kuVariants::clearEmptyVariantSets();
  kuVariants::clearEmptyGroups();
  report.droppedSets = missing(sets, setNames());
  report.droppedGroups = missing(groups, groupNames());
}

void nameEmptyOnes(OptimizationReport& report) {
  for (const kuVariantSet* set : kuVariants::getVariantSets()) {
    if (set->isEmpty()) report.emptySets.push_back(set->getName());
  }
  for (const kuVariantGroup* group : kuVariants::getVariantGroups()) {
    if (group->getVariantSets().empty()) report.emptyGroups.push_back(group->getName());
  }
}

}  // namespace

OptimizationReport optimizeSets(bool dropEmpty) {
  OptimizationReport report;
  const std::vector<SetContent> before = presentContents();
  report.setCount = before.size();
  kuVariants::optimizeVariantSets();
  report.losses = losses(before);
  if (dropEmpty) dropEmptyOnes(report);
  nameEmptyOnes(report);
  return report;
}
