#pragma once

#include <string>

#include "standalone/kernel/LogSink.h"

namespace kuStandalone {

/** Hands one text of the log to the newest sink, or without one to the error stream. */
void writeLog(LogLevel level, const std::string& text);

}  // namespace kuStandalone
