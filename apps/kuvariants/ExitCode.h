#pragma once

/** What the executable answers; docs/command-line.md tells the user. */
enum class ExitCode {
  Done = 0,
  /** Done, and what was checked has findings; or not done, since the user refused. */
  Findings = 1,
  CommandLineWrong = 2,
  InputNotValid = 3,
  NameUnknown = 4,
  OutputNotWritten = 5,
  SessionNotReached = 6
};
