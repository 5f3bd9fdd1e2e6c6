#pragma once

#include <string>

/**
 * Prints one line on standard error: "kuvariants: TEXT". The text is UTF-8; what does not print in
 * it is escaped.
 */
void printDiagnostic(const std::string& text);
