#include "Capture.h"
#include "DocumentAlone.h"
#include "Kinds.h"
#include "Page.h"
#include "Text.h"

namespace {

using Pairs = std::vector<std::pair<QString, QString>>;

std::string stateText(const QString& variant, const QString& state) {
  return escaped(variant) + " = " + (state.isEmpty() ? "-" : escaped(state));
}

std::vector<std::string> stateTexts(const Pairs& states) {
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

/** Line by line as they stand in the set: joined by commas nobody could read them. */
std::string scriptText(const QStringList& lines) {
  std::string text;
  for (const QString& line : lines)
    text += field(text.empty() ? "script" : "", {onOneLine(line.toStdString())});
  return text;
}

std::string contentText(const CaptureReport& report) {
  std::string text = afterText(report);
  for (std::size_t kind = 0; kind < kinds().size(); ++kind)
    text += field(kinds()[kind].name, stateTexts(report.content.states[kind]));
  text += field("viewpoint", report.content.defaultViewpoint);
  if (report.materials > 0) {
    text += field("remembers", {"the materials of " + counted(report.materials, "node")});
  }
  return text + scriptText(report.script);
}

std::string switchHeading(const SwitchChange& change) {
  std::string text = "  Switch material " + escaped(change.name);
  if (change.isNew) {
    text += ", new";
  } else if (!change.added.isEmpty()) {
    text += ", grown";
  }
  return text + (change.isVariantNew ? ", with a variant" : "") + '\n';
}

std::string switchText(const SwitchChange& change) {
  std::string text = switchHeading(change);
  text += field("materials", escapedNames(change.materials));
  if (!change.isNew) text += field("added", escapedNames(change.added));
  text += field("nodes", escapedNames(change.nodes));
  return text + field("sets", stateTexts(change.states));
}

std::string renamingText(const Renaming& renaming) {
  // Only a node without a name, at the top of the scene, has no path.
  std::string text =
      "  Renamed " + (renaming.path.isEmpty() ? "a node without a name" : escaped(renaming.path));
  if (!renaming.transformState.isEmpty()) {
    text += ", state " + escaped(renaming.transformState);
  }
  return text + " -> " + escaped(renaming.newName) + '\n';
}

std::string headingText(const CaptureReport& report) {
  std::string text = "Captured " + escaped(report.set) + " in group " + escaped(report.group);
  if (report.set != report.wished) text += ", since " + escaped(report.wished) + " is in use";
  return text + '\n';
}

std::string reportText(const CaptureReport& report) {
  std::string text = headingText(report) + contentText(report);
  for (const Renaming& renaming : report.renamings)
    text += renamingText(renaming);
  for (const SwitchChange& change : report.switches)
    text += switchText(change);
  return text;
}

std::string lostText(const DocumentAlone& alone) {
  return field("viewpoints", escapedNames(alone.viewpoints)) +
         field("materials", stateTexts(alone.grown)) +
         (alone.names ? field("names", {counted(alone.names, "new name")}) : std::string()) +
         field("layers", escapedNames(alone.renderLayers));
}

std::string documentAloneText(const DocumentAlone& alone) {
  const std::string anew = field("materials", escapedNames(alone.madeAnew)) +
                           field("as plain", escapedNames(alone.madeAnewAsPlain));
  const std::string lost = lostText(alone);
  std::string text;
  if (!anew.empty()) text += "\nMade anew when the document is read\n" + anew;
  if (!lost.empty()) text += "\nLost, as --save-scene does not write the scene\n" + lost;
  return text;
}

}  // namespace

std::string captureText(const std::vector<CaptureReport>& reports, bool sceneSaved) {
  std::string text;
  for (const CaptureReport& report : reports)
    text += (text.empty() ? "" : "\n") + reportText(report);
  return sceneSaved ? text : text + documentAloneText(documentAlone(reports));
}
