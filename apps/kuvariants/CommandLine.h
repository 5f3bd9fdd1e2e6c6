#pragma once

#include <functional>
#include <optional>
#include <string>

#include "Outcome.h"
#include "PictureOptions.h"

class Output;
class Workspace;

/** What every command understands. */
struct CommonOptions {
  bool json = false;
  bool allowScripts = false;
  /** File for the messages to the host. */
  std::optional<std::string> trace;
};

/** A command line that was understood. */
struct Invocation {
  CommonOptions common;
  std::string scene;
  /** None for a command that takes no document. */
  std::optional<std::string> document;
  /** File for the scene as it is at the end. */
  std::optional<std::string> saveScene;
  /** File for the variants document as it is at the end. */
  std::optional<std::string> saveDocument;
  /** The option that names it. */
  const char* documentOption = "-o";
  /** File for a picture of the scene as it is at the end. */
  std::optional<std::string> savePicture;
  /** File for the sheet of all pictures. */
  std::optional<std::string> saveSheet;
  /** How pictures are to be. */
  kuStandalone::PictureSettings picture = usualPicture;
  /** File for the report of the command. */
  std::optional<std::string> saveReport;
  /** File with a script of the user's own. */
  std::optional<std::string> script;
  /** Where results go; set before the command runs. */
  Output* output = nullptr;
  /** What the command does once the inputs are loaded. */
  std::function<Outcome(const Invocation&)> run;
};

/**
 * Reads the command line. Throws a Failure where it is wrong. Where it asks for help or for the
 * version, that goes to the output and the answer is false.
 */
bool readCommandLine(int argc, char** argv, Invocation& invocation, Output& output);
