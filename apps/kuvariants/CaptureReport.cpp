#include "Capture.h"
#include "JsonWriter.h"
#include "Kinds.h"
#include "Page.h"
#include "Text.h"

namespace {

void writeStates(JsonWriter& json, const SetContent& content) {
  json.key("states");
  json.object([&] {
    for (std::size_t kind = 0; kind < kinds().size(); ++kind) {
      json.key(kinds()[kind].name);
      json.object([&] {
        for (const auto& state : content.states[kind])
          json.entry(state.first, state.second);
      });
    }
  });
}

void writeSwitch(JsonWriter& json, const SwitchChange& change) {
  json.object([&] {
    json.entry("name", change.name);
    json.entry("new", change.isNew);
    json.entry("newVariant", change.isVariantNew);
    json.key("materials");
    json.list(change.materials);
    json.key("added");
    json.list(change.added);
    json.key("nodes");
    json.list(change.nodes);
    json.key("states");
    json.array(
        change.states,
        [&](const auto& state) {
          json.list(std::array<QString, 2>{state.first, state.second});
        },
        JsonWriter::Layout::OneLine);
  });
}

void writeRenaming(JsonWriter& json, const Renaming& renaming) {
  const auto members = [&] {
    json.entry("path", renaming.path);
    json.key("transformState");
    renaming.transformState.isEmpty() ? json.null() : json.value(renaming.transformState);
    json.entry("newName", renaming.newName);
  };
  json.object(members, JsonWriter::Layout::OneLine);
}

void writeAfter(JsonWriter& json, const CaptureReport& report) {
  json.key("after");
  json.list(report.after);
  json.key("afterStates");
  json.array(
      report.states,
      [&](const StateRequest& one) {
        json.list(std::array<QString, 3>{one.kind->name, one.variant, one.state});
      },
      JsonWriter::Layout::OneLine);
}

void writeReport(JsonWriter& json, const CaptureReport& report) {
  json.object([&] {
    json.entry("set", report.set);
    json.entry("group", report.group);
    writeAfter(json, report);
    writeStates(json, report.content);
    json.key("viewpoint");
    const QString& viewpoint = report.content.defaultViewpoint;
    viewpoint.isEmpty() ? json.null() : json.value(viewpoint);
    json.entry("materials", report.materials);
    json.key("script");
    json.array(report.script, [&](const QString& line) { json.value(line); });
    json.key("switchMaterials");
    json.array(report.switches, [&](const SwitchChange& change) { writeSwitch(json, change); });
    json.key("renamed");
    json.array(report.renamings, [&](const Renaming& renaming) { writeRenaming(json, renaming); });
    json.entry("renderLayers", report.hasRenderLayers);
  });
}

std::string stateText(const QString& variant, const QString& state) {
  return escaped(variant) + " = " + (state.isEmpty() ? "-" : escaped(state));
}

std::vector<std::string> stateTexts(const std::vector<std::pair<QString, QString>>& states) {
  std::vector<std::string> texts;
  for (const auto& state : states)
    texts.push_back(stateText(state.first, state.second));
  return texts;
}

std::vector<std::string> escapedNames(const QStringList& names) {
  std::vector<std::string> texts;
  for (const QString& name : names)
    texts.push_back(escaped(name));
  return texts;
}

std::string afterText(const CaptureReport& report) {
  std::vector<std::string> items = escapedNames(report.after);
  for (const StateRequest& one : report.states)
    items.push_back(std::string(one.kind->name) + ' ' + stateText(one.variant, one.state));
  return field("after", items);
}

/** "    material    12 nodes", not every name: that is what the document is for. */
std::string contentText(const CaptureReport& report) {
  std::string text = afterText(report);
  for (std::size_t kind = 0; kind < kinds().size(); ++kind)
    text += field(kinds()[kind].name, stateTexts(report.content.states[kind]));
  text += field("viewpoint", report.content.defaultViewpoint);
  if (report.materials > 0) {
    text += field("remembers", {"the materials of " + counted(report.materials, "node")});
  }
  return text + field("script", escapedNames(report.script));
}

std::string switchText(const SwitchChange& change) {
  std::string text = "  Switch material " + escaped(change.name) +
                     (change.isNew             ? ", new"
                      : change.added.isEmpty() ? ""
                                               : ", grown") +
                     (change.isVariantNew ? ", with a variant" : "") + '\n';
  text += field("materials", escapedNames(change.materials));
  if (!change.isNew) text += field("added", escapedNames(change.added));
  text += field("nodes", escapedNames(change.nodes));
  return text + field("sets", stateTexts(change.states));
}

std::string renamingText(const Renaming& renaming) {
  std::string text = "  Renamed " + escaped(renaming.path);
  if (!renaming.transformState.isEmpty()) {
    text += ", state " + escaped(renaming.transformState);
  }
  return text + " -> " + escaped(renaming.newName) + '\n';
}

std::string reportText(const CaptureReport& report) {
  std::string text =
      "Captured " + escaped(report.set) + " in group " + escaped(report.group) + '\n';
  text += contentText(report);
  for (const Renaming& renaming : report.renamings)
    text += renamingText(renaming);
  for (const SwitchChange& change : report.switches)
    text += switchText(change);
  return text + '\n';
}

/** What only a saved scene holds, and what a document makes anew without it. */
std::string unsavedText(const std::vector<CaptureReport>& reports) {
  QStringList switches, viewpoints, layers;
  std::size_t renamed = 0;
  for (const CaptureReport& report : reports) {
    for (const SwitchChange& change : report.switches) {
      if (change.isNew) switches += change.name;
    }
    if (!report.content.defaultViewpoint.isEmpty()) viewpoints += report.content.defaultViewpoint;
    if (report.hasRenderLayers) layers += report.set;
    renamed += report.renamings.size();
  }
  std::string text;
  text += field("made anew", escapedNames(switches));
  const std::string lost =
      field("viewpoints", escapedNames(viewpoints)) +
      (renamed ? field("names", {counted(renamed, "new name")}) : std::string()) +
      field("layers", escapedNames(layers));
  std::string result;
  if (!text.empty()) result += "From the document alone, select and render bring back\n" + text;
  if (!lost.empty()) result += "Lost unless --save-scene writes the scene\n" + lost;
  return result;
}

}  // namespace

std::string captureJson(const std::vector<CaptureReport>& reports) {
  JsonWriter json;
  json.object([&] {
    json.key("captures");
    json.array(reports, [&](const CaptureReport& report) { writeReport(json, report); });
  });
  return json.text() + '\n';
}

std::string captureText(const std::vector<CaptureReport>& reports, bool sceneSaved) {
  std::string text;
  for (const CaptureReport& report : reports)
    text += reportText(report);
  if (!sceneSaved) text += unsavedText(reports);
  while (text.size() > 1 && text.compare(text.size() - 2, 2, "\n\n") == 0)
    text.pop_back();
  return text;
}
