#pragma once

#include <string>
#include <vector>

/** A script of the user's own, which may do anything. */
struct UserScript {
  /** "-" for standard input; empty for a prompt on the terminal. */
  std::string file;
  std::vector<std::string> arguments;
};

/** How a script ended. */
struct ScriptEnd {
  /** As Python's own program would have it. */
  int code;
  /** Not by an exception that it did not catch. */
  bool byItsOwnWill;
};

/**
 * Runs a script in the interpreter's global namespace; its standard streams are the process's.
 * Throws a Failure for a script that cannot be read, and for output that cannot be written.
 * @param hasOutput whether there is a standard output.
 */
ScriptEnd runScript(const UserScript& script, bool hasOutput);
