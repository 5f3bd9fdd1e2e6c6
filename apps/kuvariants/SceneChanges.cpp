#include "SceneChanges.h"

#include <algorithm>
#include <map>
#include <utility>

#include "model/kuVariant.h"
#include "standalone/animation/AnimationPlayer.h"
#include "standalone/scene/Scene.h"
#include "standalone/script/ScriptPolicy.h"

using namespace kuStandalone;

namespace {

/** The name in a message that a selection of a set begins; empty for all other messages. */
QString selectedSet(const PassedMessage& message) {
  std::string name;
  if (message.name != "variantsSetSelected" || !message.hasRecord) return {};
  for (const kuMessage::Attribute& attribute : message.record->attributes()) {
    const auto* text = boost::any_cast<std::string>(&attribute.second);
    if (attribute.first == "variantSetName" && text) name = *text;
  }
  return QString::fromStdString(name);
}

QString presentViewpoint() { return QString::fromStdString(Scene::the().activeViewpoint); }

/** The states that all variants have now, as those before a change. */
std::vector<VariantChange> presentStates() {
  std::vector<VariantChange> states;
  for (const Kind& kind : kinds()) {
    for (const kuVariant* variant : kind.variants()) {
      states.push_back({&kind, variant->getName(), variant->getCurrent(), {}});
    }
  }
  return states;
}

/** The states that all variants have now, beside those which they had before, as far as they were
 * there. */
std::vector<VariantChange> compare(const std::vector<VariantChange>& before) {
  std::map<std::pair<const Kind*, QString>, QString> former;
  for (const VariantChange& one : before)
    former[{one.kind, one.variant}] = one.before;
  std::vector<VariantChange> changes = presentStates();
  for (VariantChange& change : changes) {
    change.after = change.before;
    const auto known = former.find({change.kind, change.variant});
    if (known != former.end()) change.before = known->second;
  }
  return changes;
}

bool hasChanged(const VariantChange& one) { return one.before != one.after; }

}  // namespace

SceneChanges::SceneChanges()
    : _before(presentStates()),
      _viewpoint(presentViewpoint()),
      _watch([this](const PassedMessage& message) {
        const QString set = selectedSet(message);
        if (!set.isEmpty()) _selected += set;
      }) {
  AnimationPlayer::clearStarted();
  ScriptPolicy::clearRefusals();
}

SelectionReport SceneChanges::take() {
  SelectionReport report;
  report.sets = std::exchange(_selected, {});
  report.variants = compare(_before);
  report.viewpointBefore = _viewpoint;
  report.viewpoint = presentViewpoint();
  report.animations = AnimationPlayer::started();
  report.scriptsHeldBack = ScriptPolicy::refusalCount();
  AnimationPlayer::clearStarted();
  ScriptPolicy::clearRefusals();
  _before = presentStates();
  _viewpoint = report.viewpoint;
  return report;
}

bool tellsAnything(const SelectionReport& report) {
  return !report.sets.isEmpty() || !report.animations.empty() ||
         report.viewpoint != report.viewpointBefore ||
         std::any_of(report.variants.begin(), report.variants.end(), hasChanged);
}
