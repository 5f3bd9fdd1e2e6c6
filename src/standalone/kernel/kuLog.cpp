#include "host/kernel/kuLog.h"

#include <cstdarg>
#include <cstdio>
#include <string>

#include "standalone/kernel/LogOutput.h"

using kuStandalone::LogLevel;

namespace {

std::string formatted(const char* format, va_list arguments) {
  va_list again;
  va_copy(again, arguments);
  const int size = std::vsnprintf(nullptr, 0, format, again);
  va_end(again);
  if (size < 0) return format;
  std::string text(static_cast<std::size_t>(size) + 1, '\0');
  std::vsnprintf(&text[0], text.size(), format, arguments);
  text.pop_back();
  while (!text.empty() && text.back() == '\n')
    text.pop_back();
  return text;
}

}  // namespace

void kuLog::error(const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  kuStandalone::writeLog(LogLevel::Error, formatted(format, arguments));
  va_end(arguments);
}

void kuLog::warning(const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  kuStandalone::writeLog(LogLevel::Warning, formatted(format, arguments));
  va_end(arguments);
}

void kuLog::info(const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  kuStandalone::writeLog(LogLevel::Info, formatted(format, arguments));
  va_end(arguments);
}
