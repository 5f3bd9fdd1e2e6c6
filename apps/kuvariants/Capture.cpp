#include "Capture.h"

#include <algorithm>
#include <map>
#include <set>

#include "CaptureWarnings.h"
#include "Diagnostics.h"
#include "Failure.h"
#include "Page.h"
#include "Text.h"
#include "manager/kuVariants.h"
#include "model/kuVariantGroup.h"
#include "model/kuVariantSet.h"
#include "scene/kuMaterialVariant.h"
#include "scene/kuOverlayVariant.h"

namespace {

/** The names that several nodes bear, with their number; clones count once. */
std::vector<std::pair<std::string, int>> duplicateNames() {
  std::vector<kuNodePtr> nodes;
  kuNodeUtils::getSceneNodes(nodes, true);
  std::set<osg::NodeCorePtr> seen;
  std::map<std::string, int> counts;
  for (const kuNodePtr& node : nodes) {
    const osg::NodeCorePtr core = node.getNode()->getCore();
    if (core && seen.insert(core).second) ++counts[kuNodeUtils::getName(node)];
  }
  std::vector<std::pair<std::string, int>> duplicates;
  std::copy_if(counts.begin(), counts.end(), std::back_inserter(duplicates),
               [](const auto& entry) { return entry.second > 1; });
  return duplicates;
}

/** "A" (2 nodes), "B" (3 nodes): the first of them. */
std::string listed(const std::vector<std::pair<std::string, int>>& duplicates) {
  constexpr std::size_t most = 5;
  std::string text;
  for (std::size_t i = 0; i < std::min(most, duplicates.size()); ++i)
    text += (i ? ", \"" : "\"") + escaped(duplicates[i].first) + "\" (" +
            counted(std::size_t(duplicates[i].second), "node") + ')';
  if (duplicates.size() > most) text += " and " + counted(duplicates.size() - most, "other name");
  return text;
}

[[noreturn]] void failByDuplicates(const QString& set) {
  throw Failure{ExitCode::Findings, "not captured", set.toStdString(),
                "nodes share a name: " + listed(duplicateNames()) +
                    "; --rename-duplicates yes renames all but the first of each"};
}

bool showsOtherwise(const kuNodePtr& node) {
  const auto attachment = osg::RaytracingGeoAttachmentPtr::dcast(
      node.getNode()->findAttachment(osg::RaytracingGeoAttachment::getClassGroupId()));
  return attachment && !attachment->isInDefaultState();
}

bool hasRenderLayers() {
  std::vector<kuNodePtr> nodes;
  kuNodeUtils::getSceneNodes(nodes, false);
  return std::any_of(nodes.begin(), nodes.end(), showsOtherwise);
}

/** The variant of a switch that grew does not list what is new; a document lists it. */
void listNewStates(const std::vector<SwitchChange>& changes) {
  for (const SwitchChange& change : changes) {
    kuMaterialVariant* variant = kuVariants::findMaterialVariant(change.name);
    if (!variant) continue;
    for (const QString& material : change.added) {
      if (!variant->find(material)) variant->add(material, QString());
    }
  }
}

/** A capture leaves the variants of sceneplates unbound: they would select nothing. */
void bindSceneplates(const kuVariantSet& set) {
  for (const kuVariantState& state : set.getOverlayVariants()) {
    kuOverlayVariant* variant = kuVariants::findOverlayVariant(state.getVariant());
    if (!variant || !variant->getOverlay().isEmpty()) continue;
    variant->setOverlay(variant->getName());
    variant->updateVariants();
  }
}

/** Null where nodes would have had to be renamed. */
const kuVariantSet* capture(const CaptureStep& step, const TerminalDialogs& dialogs) {
  const std::size_t before = kuVariants::getVariantSets().size();
  kuVariants::createAndCaptureVariantSet(step.set.toUtf8().constData(),
                                         step.group.toUtf8().constData());
  if (dialogs.refused()) return nullptr;
  const auto& sets = kuVariants::getVariantSets();
  if (sets.size() > before) return sets.back();
  throw Failure{ExitCode::InputNotValid, "not captured", step.set.toStdString(),
                "the set could not be made"};
}

void select(const CaptureStep& step, CaptureReport& report) {
  if (step.before.sets.empty() && step.before.states.empty()) return;
  const SelectionReport selected = selectAll(step.before);
  report.after = selected.sets;
  report.states = selected.states;
  if (selected.scriptsHeldBack) printDiagnostic(heldBackText(selected.scriptsHeldBack));
}

CaptureReport run(const CaptureStep& step, const TerminalDialogs& dialogs) {
  CaptureReport report;
  select(step, report);
  const CaptureDifference difference;
  const kuVariantSet* set = capture(step, dialogs);
  if (!set) failByDuplicates(step.set);
  bindSceneplates(*set);
  report.set = set->getName();
  report.wished = step.set;
  report.group = set->getGroup()->getName();
  report.content = contentOf(*set);
  report.materials = set->getMaterialSnapshots().size();
  report.script = set->getScript().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
  report.switches = difference.switches(*set);
  report.renamings = difference.renamings();
  report.hasRenderLayers = hasRenderLayers();
  listNewStates(report.switches);
  warnOfCapture(*set, report.switches);
  return report;
}

}  // namespace

std::vector<CaptureReport> captureAll(const std::vector<CaptureStep>& steps,
                                      TerminalDialogs::Answer renameDuplicates) {
  const TerminalDialogs dialogs(renameDuplicates);
  std::vector<CaptureReport> reports;
  for (const CaptureStep& step : steps)
    reports.push_back(run(step, dialogs));
  return reports;
}
