#pragma once

#include <string>
#include <vector>

#include "CommandLine.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

/** Each command enters itself, and sets Invocation::run when it is the one that was chosen. */
void addSceneCommand(CLI::App& app, Invocation& invocation);
void addListCommand(CLI::App& app, Invocation& invocation);
void addCreateCommand(CLI::App& app, Invocation& invocation);
void addCaptureCommand(CLI::App& app, Invocation& invocation);
void addSelectCommand(CLI::App& app, Invocation& invocation);
void addRenderCommand(CLI::App& app, Invocation& invocation);
void addRunCommand(CLI::App& app, Invocation& invocation);
void addJoinCommand(CLI::App& app, Invocation& invocation);
void addVerifyCommand(CLI::App& app, Invocation& invocation);
void addOptimizeCommand(CLI::App& app, Invocation& invocation);

/** The arguments SCENE and DOCUMENT. */
void addSceneArgument(CLI::App& command, Invocation& invocation);
void addDocumentArgument(CLI::App& command, Invocation& invocation);

/** An argument DOCUMENT that may be left out. */
void addOptionalDocumentArgument(CLI::App& command, Invocation& invocation);

/** The option --save-scene FILE. */
void addSaveSceneOption(CLI::App& command, Invocation& invocation);

/** The option --no-restore, which makes the flag false. */
void addNoRestoreOption(CLI::App& command, bool& restoreMaterials);

/** The option -o DOCUMENT. */
CLI::Option& addSaveDocumentOption(CLI::App& command, Invocation& invocation);

/**
 * The library that reads the command line takes texts in brackets for lists and passes over empty
 * ones. While it reads, such arguments stand behind a mark; this takes it away.
 */
std::string unmarked(const std::string& argument);

/** The same for the name of a file; an empty one makes the command line wrong. */
std::string fileName(const std::string& argument);
