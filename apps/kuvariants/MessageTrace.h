#pragma once

#include <string>

#include "standalone/kernel/MessageWatch.h"

/**
 * Every message to the host since this was made, as one JSON object per line. What a message points
 * to is written as its name; null where it is no longer there.
 */
class MessageTrace {
 public:
  MessageTrace();

  const std::string& lines() const { return _lines; }

 private:
  std::string _lines;
  kuStandalone::MessageWatch _watch;
};
