#include "CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstring>

#include "Commands.h"
#include "Failure.h"
#include "Output.h"

namespace {

/** A character that no argument begins with. */
constexpr char mark = '\x01';

/** Whether the library would not take the argument as it stands. */
bool needsMark(const std::string& argument) {
  const bool isList = argument.size() > 1 && argument.front() == '[' && argument.back() == ']';
  return argument.empty() || isList;
}

bool takesValue(const std::string& argument) {
  return argument == "--trace" || argument == "--save-scene";
}

bool isOption(const std::string& argument) {
  return argument.size() > 1 && argument.front() == '-';
}

/**
 * Where the command "run" has its SCRIPT; the number of arguments if it is not there. As with
 * Python, everything behind it belongs to the script, be it written as an option.
 */
int indexOfScript(int argc, char** argv) {
  constexpr int commandSceneDocument = 3;
  int found = 0;
  for (int i = 1; i < argc && std::strcmp(argv[i], "--") != 0; ++i) {
    if (takesValue(argv[i])) {
      ++i;
    } else if (!isOption(argv[i])) {
      if (found == 0 && std::strcmp(argv[i], "run") != 0) return argc;
      if (found++ == commandSceneDocument) return i;
    }
  }
  return argc;
}

/**
 * In reverse, as the library wants them. Behind "--" everything is an argument and no option: the
 * library loses that where the arguments before it would have been enough.
 */
std::vector<std::string> argumentsOf(int argc, char** argv) {
  std::vector<std::string> arguments;
  const int script = indexOfScript(argc, argv);
  bool argumentsOnly = false;
  for (int i = 1; i < argc; ++i) {
    const std::string argument = argv[i];
    argumentsOnly = argumentsOnly || i >= script;
    if (!argumentsOnly && argument == "--") {
      argumentsOnly = true;
    } else {
      arguments.push_back(argumentsOnly || needsMark(argument) ? mark + argument : argument);
    }
  }
  std::reverse(arguments.begin(), arguments.end());
  return arguments;
}

void addCommonOptions(CLI::App& app, CommonOptions& common) {
  app.add_flag("--json", common.json, "Print JSON for programs to read");
  app.add_flag("--allow-scripts", common.allowScripts,
               "Let scripts run; they are held back otherwise");
  app.add_option_function<std::string>(
         "--trace", [&](const std::string& file) { common.trace = fileName(file); },
         "Write each message to the host as a line of JSON")
      ->type_name("FILE");
}

void layOutHelp(CLI::App& app) {
  const std::shared_ptr<CLI::FormatterBase> formatter = app.get_formatter();
  formatter->column_width(26);
  formatter->label("REQUIRED", "");
  formatter->label("Positionals", "Arguments");
  formatter->label("SUBCOMMAND", "COMMAND");
  app.footer(
      "kuvariants COMMAND --help tells more about a command.\n\n"
      "Exit codes: 0 done, 1 done with findings or a renaming refused, 2 wrong\n"
      "command line, 3 an input cannot be read or is not valid, 4 unknown set,\n"
      "variant or state, 5 output cannot be written, 6 a session cannot be reached,\n"
      "130 interrupted.");
}

void describe(CLI::App& app, Invocation& invocation) {
  app.name("kuvariants");
  app.require_subcommand(1);
  app.set_help_flag("-h,--help", "Show this help");
  app.set_version_flag("--version", "kuvariants " KUVARIANTS_VERSION, "Show the version");
  layOutHelp(app);
  addCommonOptions(app, invocation.common);
  addSceneCommand(app, invocation);
  addListCommand(app, invocation);
  addCreateCommand(app, invocation);
  addCaptureCommand(app, invocation);
  addSelectCommand(app, invocation);
  addRenderCommand(app, invocation);
  addRunCommand(app, invocation);
  addJoinCommand(app, invocation);
  addVerifyCommand(app, invocation);
  addOptimizeCommand(app, invocation);
  for (CLI::App* command : app.get_subcommands({}))
    command->fallthrough();
}

CLI::Option& documentArgument(CLI::App& command, Invocation& invocation, const char* help) {
  return *command
              .add_option_function<std::string>(
                  "DOCUMENT",
                  [&](const std::string& file) { invocation.document = fileName(file); }, help)
              ->type_name("");
}

std::string helpOf(const CLI::App& app) {
  const std::vector<CLI::App*> chosen = app.get_subcommands();
  if (chosen.empty()) return app.help();
  return chosen.front()->help("kuvariants") +
         "\nAlso: --json, --trace FILE, --allow-scripts; see kuvariants --help\n";
}

std::string chosenCommand(const CLI::App& app) {
  const std::vector<CLI::App*> chosen = app.get_subcommands();
  return chosen.empty() ? "command line" : chosen.front()->get_name();
}

std::string reasonOf(const CLI::App& app, const CLI::ParseError& error) {
  const std::vector<std::string> unread = app.remaining();
  if (app.get_subcommands().empty() && !unread.empty()) {
    return "there is no command or option " + unmarked(unread.front());
  }
  std::string reason = error.what();
  reason.erase(std::remove(reason.begin(), reason.end(), mark), reason.end());
  return reason;
}

[[noreturn]] void failBy(const CLI::App& app, const CLI::ParseError& error) {
  throw Failure{ExitCode::CommandLineWrong, "wrong command line", chosenCommand(app),
                reasonOf(app, error) + " (see --help)"};
}

}  // namespace

std::string unmarked(const std::string& argument) {
  return !argument.empty() && argument.front() == mark ? argument.substr(1) : argument;
}

std::string fileName(const std::string& argument) {
  const std::string name = unmarked(argument);
  if (name.empty()) throw CLI::ValidationError("the name of a file is empty");
  return name;
}

void addSceneArgument(CLI::App& command, Invocation& invocation) {
  command
      .add_option_function<std::string>(
          "SCENE", [&](const std::string& file) { invocation.scene = fileName(file); },
          "Scene file, glTF 2.0 (.gltf or .glb)")
      ->required()
      ->type_name("");
}

void addDocumentArgument(CLI::App& command, Invocation& invocation) {
  documentArgument(command, invocation, "Variants document (XML)").required();
}

void addOptionalDocumentArgument(CLI::App& command, Invocation& invocation) {
  documentArgument(command, invocation, "Variants document (XML); none begins an empty\none");
}

void addSaveSceneOption(CLI::App& command, Invocation& invocation) {
  command
      .add_option_function<std::string>(
          "--save-scene", [&](const std::string& file) { invocation.saveScene = fileName(file); },
          "Write the scene as it is at the end")
      ->type_name("FILE");
}

void addNoRestoreOption(CLI::App& command, bool& restoreMaterials) {
  command.add_flag_callback(
      "--no-restore", [&] { restoreMaterials = false; },
      "Do not put the materials of captured sets back\nto their nodes first");
}

CLI::Option& addSaveDocumentOption(CLI::App& command, Invocation& invocation) {
  return *command
              .add_option_function<std::string>(
                  "-o", [&](const std::string& file) { invocation.saveDocument = fileName(file); },
                  "Write the variants document to this file")
              ->type_name("DOCUMENT");
}

bool readCommandLine(int argc, char** argv, Invocation& invocation, Output& output) {
  CLI::App app("Selects variants of a 3D scene by name.");
  describe(app, invocation);
  try {
    app.parse(argumentsOf(argc, argv));
  } catch (const CLI::CallForHelp&) {
    output.write(helpOf(app));
    return false;
  } catch (const CLI::CallForVersion& version) {
    output.write(std::string(version.what()) + '\n');
    return false;
  } catch (const CLI::ParseError& error) {
    failBy(app, error);
  }
  return true;
}
