#include <CLI/CLI.hpp>

#include "Commands.h"
#include "PictureOptions.h"
#include "Selection.h"
#include "Text.h"

namespace {

QString textOf(const std::string& argument) { return QString::fromStdString(unmarked(argument)); }

/** KIND:NAME=STATE, split at the first ":" and at the first "=" behind it. */
StateRequest readRequest(const std::string& argument) {
  const QString text = textOf(argument);
  const int colon = text.indexOf(QLatin1Char(':'));
  const int equals = text.indexOf(QLatin1Char('='), colon + 1);
  if (colon < 0 || equals < 0) {
    throw CLI::ValidationError("--variant", "not of the form KIND:NAME=STATE: " + escaped(text));
  }
  const Kind* kind = findKind(text.left(colon));
  if (!kind) {
    throw CLI::ValidationError(
        "--variant", "KIND is node, material, transform, light or overlay: " + escaped(text));
  }
  return {kind, text.mid(colon + 1, equals - colon - 1), text.mid(equals + 1)};
}

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
  command
      .add_option_function<std::vector<std::string>>(
          "--variant",
          [options](const std::vector<std::string>& requests) {
            for (const std::string& one : requests)
              options->states.push_back(readRequest(one));
          },
          "Put one variant into a state, after the sets;\n"
          "KIND is node, material, transform, light or\n"
          "overlay; may be repeated")
      ->type_name("KIND:NAME=STATE")
      ->allow_extra_args(false)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  command.add_flag("--default", options->useDefaults,
                   "Put the sets' variants into their own defaults");
  command.add_flag("--skip-viewpoint", options->skipViewpoint, "Leave the camera alone");
  command
      .add_option_function<std::string>(
          "--save-scene",
          [&invocation](const std::string& file) { invocation.saveScene = fileName(file); },
          "Write the scene as it is at the end")
      ->type_name("FILE");
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
      const SelectionReport report = selectAll(*options);
      return chosen.common.json ? selectionJson(report) : selectionText(report);
    };
  });
}
