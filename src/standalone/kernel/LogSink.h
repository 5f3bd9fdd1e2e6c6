#pragma once

#include <functional>
#include <string>

#include "host/kuHostExport.h"

namespace kuStandalone {

enum class LogLevel { Error, Warning, Info };

/**
 * Takes the place of the log's own output, which is a line on the error stream ("error: ...",
 * "warning: ...", information as it is). The texts come without a line feed at the end. Sinks nest:
 * the newest takes all. Lasts as long as this object.
 */
class KUHOST_EXPORT LogSink {
 public:
  using Sink = std::function<void(LogLevel, const std::string& text)>;

  explicit LogSink(Sink sink);
  ~LogSink();
  LogSink(const LogSink&) = delete;
  LogSink& operator=(const LogSink&) = delete;

  /** The line that the log's own output would write, without a line feed. */
  static std::string lineOf(LogLevel level, const std::string& text);

 private:
  int _handle;
};

}  // namespace kuStandalone
