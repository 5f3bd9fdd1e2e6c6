#include "standalone/session/SessionLog.h"

#include "host/kernel/kuLog.h"
#include "standalone/script/LogText.h"

namespace kuStandalone {

namespace {

constexpr std::chrono::minutes kBetweenLines{1};

}  // namespace

SessionLog::SessionLog(std::function<Clock::time_point()> now) : _now(std::move(now)) {}

SessionLog::~SessionLog() {
  if (_untold > 0) kuLog::warning("Session: %u more messages were dropped", _untold);
}

void SessionLog::dropped(const QString& sender, const QString& reason) {
  const Clock::time_point now = _now();
  if (_hasTold && now - _last < kBetweenLines) {
    ++_untold;
    return;
  }
  const QString from = sender.isEmpty() ? QString() : QStringLiteral(" of %1").arg(sender);
  const QString others =
      _untold == 0 ? QString() : QStringLiteral("; so were %1 others").arg(_untold);
  const QString text = QStringLiteral("a message%1 was dropped: %2%3").arg(from, reason, others);
  kuLog::warning("Session: %s", oneLine(text.toStdString(), kLogReasonBytes).c_str());
  _hasTold = true;
  _last = now;
  _untold = 0;
}

}  // namespace kuStandalone
