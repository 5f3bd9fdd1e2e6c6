#pragma once

#include <string>

#include "host/kuHostExport.h"

/** The host's Python interpreter. Texts are UTF-8. Main thread only. */
class KUHOST_EXPORT kuScript {
 public:
  kuScript() = delete;

  /**
   * Runs a piece of script in the interpreter's global namespace. The answer is false if it was
   * refused or ended in an error; the host has then told so in its log.
   */
  static bool run(const char* code);

  /**
   * Runs a script command. @param sync whether a session's partners run it too, if one is ready;
   * each decides by itself how far it trusts the text.
   * Answers as run does.
   */
  static bool executeNUS(const char* code, bool sync);

  /**
   * Runs an expression and answers its result as Python's str of it, so None gives "None"; empty
   * if it was refused or failed.
   */
  static std::string executeNUSR(const char* code);
};
