#pragma once

#include <QString>
#include <QStringList>
#include <string>
#include <vector>

/** What a user at a terminal saw. */
struct TerminalResult {
  int code = -1;
  /** Standard output and standard error as they came, with what was typed; lines end in "\n". */
  std::string screen;
};

/** What a user types once a text has come up on the screen, since what was typed before. */
struct Typing {
  std::string after;
  std::string text;
  /** How long the user waits before, for what is meant to meet a program that is waiting itself. */
  int milliseconds = 0;
};

/** Runs the executable in a folder, on a terminal of its own; killed after a minute of silence. */
TerminalResult runOnTerminal(const QString& folder, const QStringList& arguments,
                             const std::vector<Typing>& typings);

/**
 * Runs the executable in a folder, on a terminal of its own. @p typed is typed once it asks, and
 * "\x04" is the end of input. What is never asked is never typed.
 */
TerminalResult runOnTerminal(const QString& folder, const QStringList& arguments,
                             const std::string& typed);
