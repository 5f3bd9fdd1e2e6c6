#include "JsonWriter.h"
#include "Kinds.h"
#include "Optimization.h"
#include "Page.h"
#include "Text.h"

namespace {

void writeList(JsonWriter& json, const char* key, const std::vector<QString>& list) {
  json.key(key);
  json.list(list);
}

void writeLoss(JsonWriter& json, const SetLoss& loss) {
  json.object([&] {
    json.entry("set", loss.set);
    writeStates(json, loss.content);
    writeList(json, "viewpoints", loss.content.viewpoints);
    json.entry("defaultViewpoint", loss.content.defaultViewpoint);
    writeList(json, "animations", loss.content.animations);
    writeList(json, "geometries", loss.content.geometries);
  });
}

std::vector<std::string> escapedNames(const std::vector<QString>& names) {
  std::vector<std::string> items;
  for (const QString& name : names)
    items.push_back(escaped(name));
  return items;
}

std::string lossText(const SetLoss& loss) {
  std::string text = "  " + escaped(loss.set) + '\n';
  for (std::size_t kind = 0; kind < kinds().size(); ++kind) {
    std::vector<std::string> items;
    for (const auto& state : loss.content.states[kind])
      items.push_back(escaped(state.first) + " = " + escaped(state.second));
    text += field(kinds()[kind].name, items);
  }
  std::vector<std::string> viewpoints = escapedNames(loss.content.viewpoints);
  if (!loss.content.defaultViewpoint.isEmpty()) {
    viewpoints.push_back("finally " + escaped(loss.content.defaultViewpoint));
  }
  text += field("viewpoints", viewpoints);
  text += field("animations", escapedNames(loss.content.animations));
  return text + field("geometries", escapedNames(loss.content.geometries));
}

std::string setsAndGroups(const std::vector<QString>& sets, const std::vector<QString>& groups) {
  return field("sets", escapedNames(sets)) + field("groups", escapedNames(groups));
}

std::string removedText(const OptimizationReport& report, bool done) {
  const std::string sets = counted(report.setCount, "set");
  if (report.losses.empty()) return "Nothing to remove from " + sets + '\n';
  std::string text = done ? "Removed from " : "To be removed from ";
  text += std::to_string(report.losses.size()) + " of " + sets + '\n';
  for (const SetLoss& loss : report.losses)
    text += lossText(loss);
  return text;
}

}  // namespace

std::string optimizationJson(const OptimizationReport& report) {
  JsonWriter json;
  json.object([&] {
    json.key("removed");
    json.array(report.losses, [&](const SetLoss& loss) { writeLoss(json, loss); });
    writeList(json, "droppedSets", report.droppedSets);
    writeList(json, "droppedGroups", report.droppedGroups);
    writeList(json, "emptySets", report.emptySets);
    writeList(json, "emptyGroups", report.emptyGroups);
  });
  return json.text() + '\n';
}

std::string optimizationText(const OptimizationReport& report, bool done) {
  std::string text = removedText(report, done);
  const std::string dropped = setsAndGroups(report.droppedSets, report.droppedGroups);
  if (!dropped.empty()) text += (done ? "\nDropped\n" : "\nTo be dropped\n") + dropped;
  const std::string empty = setsAndGroups(report.emptySets, report.emptyGroups);
  if (!empty.empty()) text += "\nEmpty, --drop-empty drops them\n" + empty;
  return text;
}
