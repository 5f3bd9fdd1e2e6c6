#pragma once

#include <QString>
#include <QUuid>
#include <cstdint>
#include <functional>

namespace kuStandalone {

/** Something that happened in a session. */
struct SessionEvent {
  enum class Kind {
    /** Everything that the session held has run here. Again after a join anew. */
    Joined,
    PartnerCame,
    PartnerLeft,
    /** A command ran here; also one that ran here alone. */
    CommandRan,
    /** The broker does not answer: commands run here and are kept for it. */
    BrokerLost,
    /** What was missed has run here, and what was kept has gone out. */
    BrokerBack,
    /** Something of a partner was not taken because of its version. */
    Refused
  };

  Kind kind;
  /** Whom it is about: who came or left, who sent the command. */
  QString partner{};
  /** The registered name of the command, or "Script". */
  QString command{};
  /** Of the command; the same on every machine. */
  QUuid id{};
  bool own = false;
  /** The command's place in the order of all; 0 when it ran here alone. */
  std::uint64_t sequence = 0;
  /** Of a loss or refusal, for people. */
  QString reason{};
};

using SessionEvents = std::function<void(const SessionEvent&)>;

}  // namespace kuStandalone
