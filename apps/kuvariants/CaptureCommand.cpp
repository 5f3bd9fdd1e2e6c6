#include <CLI/CLI.hpp>
#include <algorithm>

#include "Capture.h"
#include "Commands.h"
#include "VariantOption.h"

namespace {

using Names = std::vector<std::string>;

QString textOf(const std::string& argument) { return QString::fromStdString(unmarked(argument)); }

struct CaptureOptions {
  CLI::Option* after = nullptr;
  CLI::Option* variant = nullptr;
  CLI::Option* set = nullptr;
  CLI::Option* group = nullptr;
  std::vector<StateRequest> states;
  std::string renameDuplicates = "ask";
  bool skipViewpoint = false;
  bool restoreMaterials = true;
};

CLI::Option* addNamesOption(CLI::App& command, const char* option, const char* help) {
  return command
      .add_option_function<Names>(
          option, [](const Names&) {}, help)
      ->type_name("NAME")
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

void addOptions(CLI::App& command, CaptureOptions& options) {
  options.after = addNamesOption(command, "--after", "Select these sets first, in this order");
  options.variant = &addVariantOption(command, "after those", [&](StateRequest request) {
    options.states.push_back(std::move(request));
  });
  options.set = addNamesOption(command, "--set",
                               "Capture into a new set of this name; may be\n"
                               "repeated, each --set with the --after and\n"
                               "--variant in front of it")
                    ->required()
                    ->expected(1)
                    ->allow_extra_args(false);
  options.group = addNamesOption(command, "--group",
                                 "Put the set into this group, made if it is not\n"
                                 "there; one for all sets, or one for each")
                      ->expected(1)
                      ->allow_extra_args(false);
  command
      .add_option("--rename-duplicates", options.renameDuplicates,
                  "Whether nodes that share a name are renamed:\n"
                  "yes, no, or ask (the default; no without a\n"
                  "terminal)")
      ->type_name("ANSWER")
      ->check(CLI::IsMember({"yes", "no", "ask"}));
  command.add_flag("--skip-viewpoint", options.skipViewpoint, "Let --after leave the camera alone");
  addNoRestoreOption(command, options.restoreMaterials);
}

TerminalDialogs::Answer answerOf(const std::string& word) {
  if (word == "yes") return TerminalDialogs::Answer::Yes;
  return word == "no" ? TerminalDialogs::Answer::No : TerminalDialogs::Answer::Ask;
}

CaptureStep emptyStep(const CaptureOptions& options) {
  CaptureStep step;
  step.before.skipViewpoint = options.skipViewpoint;
  step.before.restoreMaterials = options.restoreMaterials;
  return step;
}

void appendTo(CaptureStep& step, const CaptureStep& more) {
  const auto& [sets, states] = std::tie(more.before.sets, more.before.states);
  step.before.sets.insert(step.before.sets.end(), sets.begin(), sets.end());
  step.before.states.insert(step.before.states.end(), states.begin(), states.end());
}

/** Each --set ends a step. What stands behind the last one belongs to it where it is the only one.
 */
std::vector<CaptureStep> stepsOf(const CLI::App& command, const CaptureOptions& options) {
  std::vector<CaptureStep> steps;
  CaptureStep step = emptyStep(options);
  std::size_t afters = 0, states = 0, sets = 0;
  for (const CLI::Option* given : command.parse_order()) {
    if (given == options.after) {
      step.before.sets.push_back(textOf(options.after->results()[afters++]));
    } else if (given == options.variant) {
      step.before.states.push_back(options.states[states++]);
    } else if (given == options.set) {
      step.set = textOf(options.set->results()[sets++]);
      steps.push_back(step);
      step = emptyStep(options);
    }
  }
  if (step.before.sets.empty() && step.before.states.empty()) return steps;
  if (steps.size() > 1) {
    throw CLI::ValidationError(
        "--after and --variant stand in front of the --set that they are for");
  }
  appendTo(steps.front(), step);
  return steps;
}

void setGroups(std::vector<CaptureStep>& steps, const Names& groups) {
  if (groups.size() > 1 && groups.size() != steps.size()) {
    throw CLI::ValidationError("--group", "is given once, or once for each --set");
  }
  for (std::size_t i = 0; i < steps.size() && !groups.empty(); ++i)
    steps[i].group = textOf(groups.size() == 1 ? groups.front() : groups[i]);
}

std::vector<CaptureStep> readSteps(const CLI::App& command, const CaptureOptions& options) {
  std::vector<CaptureStep> steps = stepsOf(command, options);
  const auto isNameless = [](const CaptureStep& step) { return step.set.isEmpty(); };
  if (std::any_of(steps.begin(), steps.end(), isNameless)) {
    throw CLI::ValidationError("--set", "the name of a set is empty");
  }
  setGroups(steps, options.group->results());
  return steps;
}

}  // namespace

void addCaptureCommand(CLI::App& app, Invocation& invocation) {
  CLI::App* command = app.add_subcommand("capture", "Make a set of how the scene stands");
  const auto options = std::make_shared<CaptureOptions>();
  addSceneArgument(*command, invocation);
  addOptionalDocumentArgument(*command, invocation);
  addSaveDocumentOption(*command, invocation).required();
  addOptions(*command, *options);
  addSaveSceneOption(*command, invocation);
  command->footer(
      "Where two captured sets differ in the material of a node, it gets a switch\n"
      "material, and each set the state that shows its own.\n\n"
      "Examples:\n"
      "  kuvariants capture car.gltf --set Delivered -o car.xml\n"
      "  kuvariants capture car.gltf car.xml --after Red --set \"Red car\" \\\n"
      "      --after Blue --set \"Blue car\" -o both.xml --save-scene both.glb");
  command->callback([&invocation, options, command] {
    const std::vector<CaptureStep> steps = readSteps(*command, *options);
    const TerminalDialogs::Answer answer = answerOf(options->renameDuplicates);
    invocation.run = [steps, answer](const Invocation& chosen) {
      const std::vector<CaptureReport> reports = captureAll(steps, answer);
      const bool sceneSaved = chosen.saveScene.has_value();
      return chosen.common.json ? captureJson(reports, sceneSaved)
                                : captureText(reports, sceneSaved);
    };
  });
}
