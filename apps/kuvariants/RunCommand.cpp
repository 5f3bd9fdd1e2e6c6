#include <unistd.h>

#include <CLI/CLI.hpp>

#include "Commands.h"
#include "Diagnostics.h"
#include "Output.h"
#include "Selection.h"
#include "TerminalDialogs.h"
#include "scripting/ScriptRun.h"
#include "standalone/script/ScriptPolicy.h"

namespace {

void addScriptArguments(CLI::App& command, Invocation& invocation, UserScript& script) {
  command
      .add_option_function<std::string>(
          "SCRIPT",
          [&](const std::string& file) {
            script.file = fileName(file);
            if (script.file != "-") invocation.script = script.file;
          },
          "Python file, or - for standard input; without\none there is a prompt on the terminal")
      ->type_name("");
  command
      .add_option_function<std::vector<std::string>>(
          "ARGS",
          [&](const std::vector<std::string>& arguments) {
            for (const std::string& one : arguments)
              script.arguments.push_back(unmarked(one));
          },
          "The script's own arguments, options among them")
      ->type_name("");
}

void checkTogether(const Invocation& invocation, const UserScript& script) {
  if (invocation.common.json) {
    throw CLI::ValidationError("--json", "a script prints what it likes");
  }
  if (script.file.empty() && isatty(STDIN_FILENO) != 1) {
    throw CLI::ValidationError("SCRIPT is required where there is no terminal");
  }
}

Outcome runOnScene(const UserScript& script, Output& output) {
  const TerminalDialogs dialogs(TerminalDialogs::Answer::Ask);
  const ScriptEnd end = runScript(script, output.giveBack());
  dialogs.tellRefusal();
  const std::string held = heldBackText(kuStandalone::ScriptPolicy::refusalCount());
  if (!held.empty()) printDiagnostic(held);
  Outcome outcome;
  outcome.scriptCode = end.code;
  outcome.isComplete = end.byItsOwnWill;
  return outcome;
}

}  // namespace

void addRunCommand(CLI::App& app, Invocation& invocation) {
  CLI::App* command = app.add_subcommand("run", "Run a Python script on a scene and a document");
  const auto script = std::make_shared<UserScript>();
  addSceneArgument(*command, invocation);
  addDocumentArgument(*command, invocation);
  addScriptArguments(*command, invocation, *script);
  addSaveSceneOption(*command, invocation);
  command->footer(
      "The script finds the module variants and the functions of the scene. Its exit\n"
      "code is the command's. Scripts of the document run only with --allow-scripts.\n\n"
      "Examples:\n"
      "  kuvariants run car.gltf car.xml regroup.py --dry-run\n"
      "  echo 'print(variants.sets())' | kuvariants run car.gltf car.xml -");
  command->callback([&invocation, script] {
    checkTogether(invocation, *script);
    invocation.run = [script](const Invocation& chosen) {
      return runOnScene(*script, *chosen.output);
    };
  });
}
