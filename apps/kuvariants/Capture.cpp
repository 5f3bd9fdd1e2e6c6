#include "Capture.h"

#include <algorithm>
#include <map>
#include <set>

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
    if (seen.insert(node.getNode()->getCore()).second) ++counts[kuNodeUtils::getName(node)];
  }
  std::vector<std::pair<std::string, int>> duplicates;
  std::copy_if(counts.begin(), counts.end(), std::back_inserter(duplicates),
               [](const auto& entry) { return entry.second > 1; });
  return duplicates;
}

[[noreturn]] void failByDuplicates(const QString& set) {
  constexpr std::size_t most = 5;
  std::string names;
  const auto duplicates = duplicateNames();
  for (std::size_t i = 0; i < std::min(most, duplicates.size()); ++i)
    names += (i ? ", " : "") + escaped(duplicates[i].first) + " (" +
             counted(std::size_t(duplicates[i].second), "node") + ')';
  if (duplicates.size() > most) {
    names += " and " + counted(duplicates.size() - most, "other name");
  }
  throw Failure{ExitCode::Findings, "not captured", set.toStdString(),
                "nodes share a name: " + names +
                    "; --rename-duplicates yes renames all but the "
                    "first of each"};
}

SetContent contentOf(const kuVariantSet& set) {
  SetContent content;
  for (std::size_t kind = 0; kind < kinds().size(); ++kind) {
    for (const kuVariantState& state : kinds()[kind].statesOf(set))
      content.states[kind].emplace_back(state.getVariant(), state.getState());
  }
  content.viewpoints.assign(set.getViewpoints().begin(), set.getViewpoints().end());
  content.defaultViewpoint = set.getDefaultViewpoint();
  return content;
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

/** A switch that grew has states that its variant does not list yet; a document lists them all. */
void listNewStates() {
  for (kuMaterialVariant* variant : kuVariants::getMaterialVariants()) {
    const osg::MaterialPtr material =
        kuMaterials::findMaterial(variant->getMaterial().toUtf8().constData());
    if (!material) continue;
    std::vector<std::string> states;
    material->getStateNames(states);
    const bool isListed = std::all_of(states.begin(), states.end(), [&](const std::string& state) {
      return variant->find(QString::fromStdString(state)) != nullptr;
    });
    if (!isListed) variant->updateVariants();
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

CaptureReport run(const CaptureStep& step, const TerminalDialogs& dialogs) {
  CaptureReport report;
  if (!step.before.sets.empty() || !step.before.states.empty()) {
    const SelectionReport selected = selectAll(step.before);
    report.after = selected.sets;
    report.states = selected.states;
  }
  const CaptureDifference difference;
  const kuVariantSet* set = capture(step, dialogs);
  if (!set) failByDuplicates(step.set);
  listNewStates();
  bindSceneplates(*set);
  report.set = set->getName();
  report.group = set->getGroup()->getName();
  report.content = contentOf(*set);
  report.materials = set->getMaterialSnapshots().size();
  report.script = set->getScript().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
  report.switches = difference.switches();
  report.renamings = difference.renamings();
  report.hasRenderLayers = hasRenderLayers();
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
