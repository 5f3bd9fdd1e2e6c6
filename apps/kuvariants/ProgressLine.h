#pragma once

#include <string>

/**
 * The line on the terminal that tells what goes on. What else is printed on standard error comes
 * above it. One at a time.
 */
namespace ProgressLine {

/** Shows the line, or another text in it. */
void show(const std::string& text);

/** The line goes again. */
void hide();

/** Prints on standard error, and the line comes again behind that where one is shown. */
void printAbove(const std::string& lines);

/** Takes the line away before the process ends in the handler of a signal. */
void clearInHandler();

}  // namespace ProgressLine
