#include <CLI/CLI.hpp>

#include "Commands.h"
#include "PictureOptions.h"
#include "Selection.h"
#include "TerminalDialogs.h"
#include "VariantOption.h"

namespace {

QString textOf(const std::string& argument) { return QString::fromStdString(unmarked(argument)); }

void checkTogether(const SelectOptions& options) {
  if (options.sets.empty() && options.states.empty()) {
    throw CLI::ValidationError("a SET or --variant is required");
  }
  if (options.useDefaults && options.sets.empty()) {
    throw CLI::ValidationError("--default", "needs a SET");
  }
}

void addArguments(CLI::App& command, Invocation& invocation,
                  const std::shared_ptr<SelectOptions>& options) {
  addSceneArgument(command, invocation);
  addDocumentArgument(command, invocation);
  command
      .add_option_function<std::vector<std::string>>(
          "SET",
          [options](const std::vector<std::string>& sets) {
            for (const std::string& set : sets)
              options->sets.push_back(textOf(set));
          },
          "Sets, selected in this order")
      ->type_name("");
  addVariantOption(command, "after the sets", [options](StateRequest request) {
    options->states.push_back(std::move(request));
  });
  command.add_flag("--default", options->useDefaults,
                   "Put the sets' variants into their own defaults");
  command.add_flag("--skip-viewpoint", options->skipViewpoint, "Leave the camera alone");
  addNoRestoreOption(command, options->restoreMaterials);
  addSaveSceneOption(command, invocation);
  CLI::Option* picture =
      command
          .add_option_function<std::string>(
              "--picture",
              [&invocation](const std::string& file) { invocation.savePicture = fileName(file); },
              "Write a picture of the scene as it is at the\nend, JPEG if FILE ends so, otherwise "
              "PNG")
          ->type_name("FILE");
  addSizeOption(command, invocation.picture).needs(picture);
  addSamplesOption(command, invocation.picture).needs(picture);
}

}  // namespace

void addSelectCommand(CLI::App& app, Invocation& invocation) {
  CLI::App* command =
      app.add_subcommand("select", "Select sets and variants, then print the states");
  const auto options = std::make_shared<SelectOptions>();
  addArguments(*command, invocation, options);
  command->footer(
      "Examples:\n"
      "  kuvariants select car.gltf car.xml Summer \"Roof open\" --save-scene open.glb\n"
      "  kuvariants select car.gltf car.xml Summer --picture summer.png --size 640x480\n"
      "  kuvariants select car.gltf car.xml --variant material:Paint=Red");
  command->callback([&invocation, options] {
    checkTogether(*options);
    invocation.run = [options](const Invocation& chosen) {
      // A set's script may capture.
      const TerminalDialogs dialogs(TerminalDialogs::Answer::Ask);
      const SelectionReport report = selectAll(*options);
      dialogs.tellRefusal();
      return chosen.common.json ? selectionJson(report) : selectionText(report);
    };
  });
}
