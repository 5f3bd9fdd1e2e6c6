#include <array>

#include "Capture.h"
#include "DocumentAlone.h"
#include "JsonWriter.h"
#include "Kinds.h"

namespace {

using Pairs = std::vector<std::pair<QString, QString>>;

void writePairs(JsonWriter& json, const char* key, const Pairs& pairs) {
  json.key(key);
  json.array(
      pairs,
      [&](const auto& pair) {
        json.list(std::array<QString, 2>{pair.first, pair.second});
      },
      JsonWriter::Layout::OneLine);
}

void writeNames(JsonWriter& json, const char* key, const QStringList& names) {
  json.key(key);
  json.list(names);
}

void entryOrNull(JsonWriter& json, const char* key, const QString& text) {
  json.key(key);
  text.isEmpty() ? json.null() : json.value(text);
}

void writeSwitch(JsonWriter& json, const SwitchChange& change) {
  json.object([&] {
    json.entry("name", change.name);
    json.entry("new", change.isNew);
    json.entry("newVariant", change.isVariantNew);
    writeNames(json, "materials", change.materials);
    writeNames(json, "added", change.added);
    writeNames(json, "nodes", change.nodes);
    writePairs(json, "states", change.states);
  });
}

void writeRenaming(JsonWriter& json, const Renaming& renaming) {
  const auto members = [&] {
    json.entry("path", renaming.path);
    entryOrNull(json, "transformState", renaming.transformState);
    json.entry("newName", renaming.newName);
  };
  json.object(members, JsonWriter::Layout::OneLine);
}

void writeAfter(JsonWriter& json, const CaptureReport& report) {
  writeNames(json, "after", report.after);
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
    json.entry("wished", report.wished);
    json.entry("group", report.group);
    writeAfter(json, report);
    writeStates(json, report.content);
    entryOrNull(json, "viewpoint", report.content.defaultViewpoint);
    json.entry("materials", report.materials);
    writeNames(json, "script", report.script);
    json.key("switchMaterials");
    json.array(report.switches, [&](const SwitchChange& change) { writeSwitch(json, change); });
    json.key("renamed");
    json.array(report.renamings, [&](const Renaming& renaming) { writeRenaming(json, renaming); });
    json.entry("renderLayers", report.hasRenderLayers);
  });
}

void writeDocumentAlone(JsonWriter& json, const DocumentAlone& alone) {
  json.object([&] {
    writeNames(json, "madeAnew", alone.madeAnew);
    writeNames(json, "madeAnewAsPlain", alone.madeAnewAsPlain);
    json.key("lost");
    json.object([&] {
      writePairs(json, "materials", alone.grown);
      writeNames(json, "viewpoints", alone.viewpoints);
      json.entry("names", alone.names);
      writeNames(json, "renderLayers", alone.renderLayers);
    });
  });
}

}  // namespace

std::string captureJson(const std::vector<CaptureReport>& reports, bool sceneSaved) {
  JsonWriter json;
  json.object([&] {
    json.key("captures");
    json.array(reports, [&](const CaptureReport& report) { writeReport(json, report); });
    json.key("documentAlone");
    sceneSaved ? json.null() : writeDocumentAlone(json, documentAlone(reports));
  });
  return json.text() + '\n';
}
