#include "Diagnostics.h"

#include "ProgressLine.h"
#include "Text.h"

void printDiagnostic(const std::string& text) {
  ProgressLine::printAbove("kuvariants: " + onOneLine(text) + '\n');
}
