#pragma once

#include <string>

#include "ExitCode.h"

/** Thrown where a command cannot go on; main() turns it into one line and an exit code. */
struct Failure {
  ExitCode code;
  /** What could not be done, for example "cannot read document". */
  std::string what;
  /** Where: a file, a name, an option. As it came, not escaped. */
  std::string where;
  /** Why; may be empty. */
  std::string reason;
  /** The number of the system's error where that is the reason, otherwise 0. */
  int systemError = 0;
};

/** For people; names as they came. */
inline std::string lineOf(const Failure& failure) {
  std::string line = failure.what + ": " + failure.where;
  if (!failure.reason.empty()) line += ": " + failure.reason;
  return line;
}
