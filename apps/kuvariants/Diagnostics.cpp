#include "Diagnostics.h"

#include <unistd.h>

#include "Output.h"
#include "Text.h"

void printDiagnostic(const std::string& text) {
  // Where standard error cannot be written to, nobody is left to be told.
  writeAll(STDERR_FILENO, "kuvariants: " + onOneLine(text) + '\n');
}
