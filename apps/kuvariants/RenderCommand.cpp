#include <CLI/CLI.hpp>

#include "Commands.h"
#include "Diagnostics.h"
#include "JsonWriter.h"
#include "Rendering.h"
#include "Selection.h"
#include "TerminalDialogs.h"
#include "Text.h"

namespace {

void entryOrNull(JsonWriter& json, const char* key, const std::optional<std::string>& file) {
  json.key(key);
  file ? json.value(*file) : json.null();
}

void writePicture(JsonWriter& json, const SetPicture& picture, const std::string& folder) {
  const auto members = [&] {
    json.entry("set", picture.set);
    json.key("group");
    picture.group.isEmpty() ? json.null() : json.value(picture.group);
    json.entry("file", inFolder(folder, picture.file));
    json.entry("milliseconds", picture.milliseconds);
  };
  json.object(members, JsonWriter::Layout::OneLine);
}

std::string renderJson(const RenderReport& report, const std::string& folder,
                       const Invocation& invocation) {
  JsonWriter json;
  json.object([&] {
    json.key("pictures");
    json.array(report.pictures,
               [&](const SetPicture& picture) { writePicture(json, picture, folder); });
    json.entry("page", inFolder(folder, pageFile));
    entryOrNull(json, "sheet", invocation.saveSheet);
    entryOrNull(json, "previews", invocation.saveDocument);
  });
  return json.text() + '\n';
}

std::string renderText(const RenderReport& report, const std::string& folder,
                       const Invocation& invocation) {
  std::string text;
  for (const SetPicture& picture : report.pictures) {
    text += escaped(inFolder(folder, picture.file)) + "  " + std::to_string(picture.milliseconds) +
            " ms\n";
  }
  text += escaped(inFolder(folder, pageFile)) + '\n';
  for (const auto& file : {invocation.saveSheet, invocation.saveDocument}) {
    if (file) text += escaped(*file) + '\n';
  }
  return text;
}

Outcome render(const RenderOptions& options, const Invocation& invocation) {
  const RenderReport report = renderSets(options, invocation);
  if (report.scriptsHeldBack) printDiagnostic(heldBackText(report.scriptsHeldBack));
  return invocation.common.json ? renderJson(report, options.folder, invocation)
                                : renderText(report, options.folder, invocation);
}

void addFolderOption(CLI::App& command, RenderOptions& options) {
  command
      .add_option_function<std::string>(
          "-o", [&](const std::string& folder) { options.folder = fileName(folder); },
          "Folder for the pictures and index.html, made\nif it is not there")
      ->required()
      ->type_name("FOLDER");
}

void addSetOption(CLI::App& command, RenderOptions& options) {
  const auto read = [&](const std::vector<std::string>& names) {
    for (const std::string& name : names)
      options.sets.push_back(QString::fromStdString(unmarked(name)));
  };
  command
      .add_option_function<std::vector<std::string>>(
          "--set", read, "Render these sets, in this order, and no others")
      ->type_name("NAME")
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

void addFileOptions(CLI::App& command, RenderOptions& options, Invocation& invocation) {
  const auto readPreviews = [&](const std::string& file) {
    invocation.saveDocument = fileName(file);
    invocation.documentOption = "--previews";
    options.previews = true;
  };
  command
      .add_option_function<std::string>(
          "--previews", readPreviews,
          "Render the sets' previews too, 264x256, and\nwrite the document with them to this file")
      ->type_name("DOCUMENT");
  command
      .add_option_function<std::string>(
          "--sheet", [&](const std::string& file) { invocation.saveSheet = fileName(file); },
          "Write one picture with all sets and their\nnames, JPEG if FILE ends so, otherwise PNG")
      ->type_name("FILE");
}

void addArguments(CLI::App& command, RenderOptions& options, Invocation& invocation) {
  addSceneArgument(command, invocation);
  addDocumentArgument(command, invocation);
  addFolderOption(command, options);
  addSetOption(command, options);
  addSizeOption(command, invocation.picture);
  addSamplesOption(command, invocation.picture);
  command.add_flag("--cumulative", options.cumulative, "Put each set on top of the one before");
  addNoRestoreOption(command, options.restoreMaterials);
  addFileOptions(command, options, invocation);
}

}  // namespace

void addRenderCommand(CLI::App& app, Invocation& invocation) {
  CLI::App* command =
      app.add_subcommand("render", "Take a picture of every set, with a page of all");
  const auto options = std::make_shared<RenderOptions>();
  addArguments(*command, *options, invocation);
  command->footer(
      "Before each set the scene is put back to how it stood at the start, so that no\n"
      "set inherits what the one before it left. With --cumulative it is not.\n"
      "The sets of the groups come first, then those in no group.\n\n"
      "Examples:\n"
      "  kuvariants render car.gltf car.xml -o pictures\n"
      "  kuvariants render car.gltf car.xml -o pictures --set Summer --size 1920x1080");
  command->callback([&invocation, options] {
    invocation.run = [options](const Invocation& chosen) {
      // A set's script may capture.
      const TerminalDialogs dialogs(TerminalDialogs::Answer::Ask);
      Outcome outcome = render(*options, chosen);
      dialogs.tellRefusal();
      return outcome;
    };
  });
}
