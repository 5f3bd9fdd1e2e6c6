#include "joining/SceneChanges.h"

#include <algorithm>
#include <utility>

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
