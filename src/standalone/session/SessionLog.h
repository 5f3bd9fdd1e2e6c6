#pragma once

#include <QString>
#include <chrono>
#include <functional>

#include "host/kuHostExport.h"

namespace kuStandalone {

/** Tells the log what was dropped of the messages of a session: at most a line a minute, however
 * much comes, and how many others there were. */
class KUHOST_EXPORT SessionLog {
 public:
  using Clock = std::chrono::steady_clock;

  explicit SessionLog(std::function<Clock::time_point()> now = Clock::now);
  /** Tells how many were not told. */
  ~SessionLog();
  SessionLog(const SessionLog&) = delete;
  SessionLog& operator=(const SessionLog&) = delete;

  /** @param sender the partner's name, empty if it is not known. */
  void dropped(const QString& sender, const QString& reason);

 private:
  std::function<Clock::time_point()> _now;
  Clock::time_point _last;
  bool _hasTold = false;
  unsigned _untold = 0;
};

}  // namespace kuStandalone
