#include <CLI/CLI.hpp>

#include "Commands.h"
#include "Optimization.h"

namespace {

struct OptimizeOptions {
  bool dropEmpty = false;
  bool dryRun = false;
};

void addOptions(CLI::App& command, OptimizeOptions& options) {
  command.add_flag("--drop-empty", options.dropEmpty, "Drop empty sets, then groups without sets");
  command.add_flag("--dry-run", options.dryRun, "Tell what would be removed, write nothing");
}

}  // namespace

void addOptimizeCommand(CLI::App& app, Invocation& invocation) {
  CLI::App* command =
      app.add_subcommand("optimize", "Remove from sets what the scene no longer has");
  const auto options = std::make_shared<OptimizeOptions>();
  addSceneArgument(*command, invocation);
  addDocumentArgument(*command, invocation);
  addSaveDocumentOption(*command, invocation);
  addOptions(*command, *options);
  command->footer(
      "Examples:\n"
      "  kuvariants optimize car.gltf car.xml --dry-run\n"
      "  kuvariants optimize car.gltf car.xml -o car.xml --drop-empty");
  command->callback([&invocation, options] {
    if (options->dryRun) invocation.saveDocument.reset();
    if (!options->dryRun && !invocation.saveDocument) throw CLI::RequiredError("-o or --dry-run");
    invocation.run = [options](const Invocation& chosen) {
      const OptimizationReport report = optimizeSets(options->dropEmpty);
      return chosen.common.json ? optimizationJson(report)
                                : optimizationText(report, !options->dryRun);
    };
  });
}
