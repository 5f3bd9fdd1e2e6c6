#pragma once

#include <QByteArray>
#include <chrono>
#include <functional>
#include <map>
#include <vector>

#include "standalone/session/Session.h"
#include "standalone/session/SessionFrame.h"

namespace kuStandalone {

/** The longest sign of life: a frame with a name and hardly a payload. */
constexpr int kMostSignBytes = 1024;

/** What a sign of life says beside who sends it. */
struct PresenceNote {
  enum class Kind : std::uint8_t { Here = 1, /** Who else is there? */ Asks = 2, Leaves = 3 };

  Kind kind = Kind::Here;
  bool isJoining = false;
  /** Until the next sign, in milliseconds. */
  std::uint32_t interval = 1000;
};

KUHOST_EXPORT QByteArray writeNote(const PresenceNote& note);
/** False if the bytes are none. */
KUHOST_EXPORT bool readNote(const QByteArray& bytes, PresenceNote& note);

/** Who takes part in the session, by the signs of life of each. */
class KUHOST_EXPORT SessionPartners {
 public:
  using Clock = std::chrono::steady_clock;
  using Told = std::function<void(SessionEvent::Kind, const SessionPartner&)>;

  /** @param told hears who comes and leaves. */
  explicit SessionPartners(Told told);

  void heard(const SessionPartner& partner, const PresenceNote& note, Clock::time_point now);
  /** Lets those go who were not heard for a while. */
  void forgetSilent(Clock::time_point now);

  std::vector<SessionPartner> list() const;
  std::size_t count() const { return _known.size(); }

 private:
  struct Known {
    SessionPartner partner;
    Clock::time_point missedAt;
  };

  Told _told;
  std::map<QUuid, Known> _known;
};

/** Between two signs of life among so many partners: all signs together stay a bounded number. */
KUHOST_EXPORT std::chrono::milliseconds signInterval(std::chrono::milliseconds shortest,
                                                     std::size_t partners);

}  // namespace kuStandalone
