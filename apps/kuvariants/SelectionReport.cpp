#include <algorithm>
#include <array>

#include "Diagnostics.h"
#include "JsonWriter.h"
#include "Selection.h"
#include "Text.h"

namespace {

std::string shownState(const QString& state) { return state.isEmpty() ? "-" : escaped(state); }

bool hasChanged(const VariantChange& one) { return one.before != one.after; }

std::string lineOf(const VariantChange& one) {
  std::string line = std::string("  ") + one.kind->name + ' ' + escaped(one.variant) + ": ";
  if (hasChanged(one)) line += shownState(one.before) + " -> ";
  return line + shownState(one.after) + '\n';
}

std::string viewpointLine(const SelectionReport& report) {
  if (report.viewpoint.isEmpty()) return {};
  std::string line = "  viewpoint: ";
  if (report.viewpoint != report.viewpointBefore) {
    line += shownState(report.viewpointBefore) + " -> ";
  }
  return line + escaped(report.viewpoint) + '\n';
}

/** The lines of the variants and of the viewpoint that changed, or that did not. */
std::string lines(const SelectionReport& report, bool changed) {
  std::string text;
  for (const VariantChange& one : report.variants) {
    if (hasChanged(one) == changed) text += lineOf(one);
  }
  const bool viewpointChanged = report.viewpoint != report.viewpointBefore;
  return viewpointChanged == changed ? text + viewpointLine(report) : text;
}

std::string materialLines(const SelectionReport& report) {
  std::string text;
  for (const NodeMaterialChange& one : report.materials) {
    text += "  material of " + escaped(one.node) + ": " + shownState(one.before) + " -> " +
            shownState(one.after) + '\n';
  }
  return text;
}

std::string animationLines(const SelectionReport& report) {
  std::string text;
  for (const std::string& name : report.animations) {
    text += "  animation " + escaped(name) + ": started\n";
  }
  return text;
}

std::string section(const std::string& heading, const std::string& content) {
  return content.empty() ? std::string() : '\n' + heading + '\n' + content;
}

/** The sets by name, then the single variants. */
std::string selected(const SelectionReport& report) {
  std::string text = escapedList(report.sets);
  for (const StateRequest& one : report.states) {
    text += (text.empty() ? "" : ", ") + (one.kind->name + (' ' + escaped(one.variant))) + " = " +
            escaped(one.state);
  }
  return "Selected: " + text + '\n';
}

void writeMaterials(JsonWriter& json, const SelectionReport& report) {
  json.key("materials");
  json.array(
      report.materials,
      [&](const NodeMaterialChange& one) {
        json.list(std::array<QString, 3>{one.node, one.before, one.after});
      },
      JsonWriter::Layout::OneLine);
}

}  // namespace

std::string heldBackText(std::uint64_t scripts) {
  if (scripts == 0) return {};
  return std::to_string(scripts) + (scripts == 1 ? " script was" : " scripts were") +
         " held back; --allow-scripts lets scripts run";
}

std::string selectionJson(const SelectionReport& report) {
  // The form has no place for it, and it must not go unsaid.
  if (report.scriptsHeldBack) printDiagnostic(heldBackText(report.scriptsHeldBack));
  JsonWriter json;
  json.object([&] {
    json.key("selected");
    json.list(report.sets);
    json.key("states");
    json.object([&] { writeStates(json, report); });
    writeMaterials(json, report);
    json.key("viewpoint");
    report.viewpoint.isEmpty() ? json.null() : json.value(report.viewpoint);
    json.key("animations");
    json.list(report.animations);
  });
  return json.text() + '\n';
}

void writeStates(JsonWriter& json, const SelectionReport& report) {
  for (const Kind& kind : kinds()) {
    json.key(kind.name);
    json.object([&] {
      for (const VariantChange& one : report.variants) {
        if (one.kind == &kind) json.entry(one.variant, one.after);
      }
    });
  }
}

std::string statesText(const SelectionReport& report) {
  return lines(report, true) + lines(report, false);
}

std::string changedText(const SelectionReport& report) {
  return materialLines(report) + lines(report, true) + animationLines(report);
}

std::string selectionText(const SelectionReport& report) {
  std::string text = selected(report);
  const std::string changed = changedText(report);
  text += section("Changed", changed.empty() ? "  nothing\n" : changed);
  text += section("Unchanged", lines(report, false));
  const std::string held = heldBackText(report.scriptsHeldBack);
  return held.empty() ? text : text + '\n' + held + '\n';
}
