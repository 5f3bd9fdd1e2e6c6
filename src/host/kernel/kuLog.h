#pragma once

#include "host/kuHostExport.h"

/**
 * The host's log. Texts are UTF-8, printf-style; a line feed at the end of the text is optional.
 */
class KUHOST_EXPORT kuLog {
 public:
  kuLog() = delete;

  static void error(const char* format, ...) __attribute__((format(printf, 1, 2)));
  static void warning(const char* format, ...) __attribute__((format(printf, 1, 2)));
  static void info(const char* format, ...) __attribute__((format(printf, 1, 2)));
};
