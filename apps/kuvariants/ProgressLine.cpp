#include "ProgressLine.h"

#include <unistd.h>

#include <csignal>

#include "Output.h"

namespace ProgressLine {
namespace {

constexpr char clearing[] = "\r\x1b[K";

std::string shownText;
volatile std::sig_atomic_t isShown = 0;

// Where standard error cannot be written to, nobody is left to be told.
void write(const std::string& bytes) { writeAll(STDERR_FILENO, bytes); }

std::string line() { return '\r' + shownText + "\x1b[K"; }

}  // namespace

void show(const std::string& text) {
  shownText = text;
  isShown = 1;
  write(line());
}

void hide() {
  if (isShown) write(clearing);
  isShown = 0;
}

void printAbove(const std::string& lines) { write(isShown ? clearing + lines + line() : lines); }

void clearInHandler() {
  if (isShown && ::write(STDERR_FILENO, clearing, sizeof clearing - 1) > 0) isShown = 0;
}

}  // namespace ProgressLine
