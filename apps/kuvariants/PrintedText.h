#pragma once

#include <string>

#include "ScratchFile.h"

/**
 * Collects what the library prints to standard output while this lives, where that is the result of
 * a command; it would go to standard error otherwise (see Output).
 */
class PrintedText {
 public:
  PrintedText();
  ~PrintedText();
  PrintedText(const PrintedText&) = delete;
  PrintedText& operator=(const PrintedText&) = delete;

  /** All of it so far, or throws a Failure where the system could not keep it. */
  std::string text();

 private:
  ScratchFile _file;
  int _former;
};
