#pragma once

#include <QString>
#include <QStringList>
#include <string>

/** What a user at a terminal saw. */
struct TerminalResult {
  int code = -1;
  /** Standard output and standard error as they came, with what was typed; lines end in "\n". */
  std::string screen;
};

/**
 * Runs the executable in a folder, on a terminal of its own. @p typed is typed once it asks, and
 * "\x04" is the end of input. What is never asked is never typed.
 */
TerminalResult runOnTerminal(const QString& folder, const QStringList& arguments,
                             const std::string& typed);
