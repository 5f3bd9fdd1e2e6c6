#include "standalone/kernel/LogSink.h"

#include <algorithm>
#include <cstdio>
#include <utility>
#include <vector>

#include "standalone/kernel/LogOutput.h"

namespace kuStandalone {
namespace {

using Entry = std::pair<int, LogSink::Sink>;

std::vector<Entry>& sinks() {
  static auto* entries = new std::vector<Entry>();  // static objects may log at the very end
  return *entries;
}

const char* prefixOf(LogLevel level) {
  switch (level) {
    case LogLevel::Error:
      return "error: ";
    case LogLevel::Warning:
      return "warning: ";
    case LogLevel::Info:
      break;
  }
  return "";
}

}  // namespace

LogSink::LogSink(Sink sink) {
  static int lastHandle = 0;
  _handle = ++lastHandle;
  sinks().emplace_back(_handle, std::move(sink));
}

LogSink::~LogSink() {
  const auto found = std::find_if(sinks().begin(), sinks().end(),
                                  [this](const Entry& entry) { return entry.first == _handle; });
  sinks().erase(found);
}

std::string LogSink::lineOf(LogLevel level, const std::string& text) {
  return prefixOf(level) + text;
}

void writeLog(LogLevel level, const std::string& text) {
  if (sinks().empty()) {
    std::fprintf(stderr, "%s\n", LogSink::lineOf(level, text).c_str());
    return;
  }
  const LogSink::Sink sink = sinks().back().second;  // a copy: it may end itself in the call
  sink(level, text);
}

}  // namespace kuStandalone
