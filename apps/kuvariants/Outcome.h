#pragma once

#include <optional>
#include <string>
#include <utility>

#include "ExitCode.h"

/** What came of a command. */
struct Outcome {
  Outcome() = default;
  /** A command that is done once its result is printed. */
  Outcome(std::string result) : text(std::move(result)) {}

  /** Goes to standard output. */
  std::string text;
  /** Lines for people; they go to standard error, behind the text. */
  std::string remarks;
  /** What goes to the file of Invocation::saveReport. */
  std::string report;
  ExitCode code = ExitCode::Done;
  /** The exit code of a script, in the place of that. */
  std::optional<int> scriptCode;
  /** No file is written for a script that failed. */
  bool isComplete = true;
};
