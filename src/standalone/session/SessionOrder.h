#pragma once

#include <QByteArray>
#include <QUuid>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <set>

#include "host/kuHostExport.h"

class kuSessionCommand;

namespace kuStandalone {

/** A command, or a script, that ran here before the broker had it. */
struct KeptFrame {
  QUuid id;
  QByteArray subject, bytes;
  /** The command as it was pushed, with what does not travel; null for a script. */
  std::shared_ptr<kuSessionCommand> command;
  /** The broker has it now. */
  bool isSent = false;
  /** How many had run here in their places before it did. */
  std::uint64_t placesBefore = 0;
};

/** What has run and what is still to be sent: so that nothing is run for being delivered twice, and
 * what was done alone comes into the one order. */
class KUHOST_EXPORT SessionOrder {
 public:
  /** False if a command of that id came before. */
  bool isFirst(const QUuid& id);
  /** Something has run in its place behind which stands all that is kept now. */
  void hasRun() { ++_placesRun; }

  /** Keeps what runs here alone. False if too much is kept; then nothing is kept of it. */
  bool keep(KeptFrame frame);
  /** The first that the broker does not have yet; null if it has all. */
  KeptFrame* firstUnsent();
  std::size_t unsent() const;
  /** Gives those up that the broker has: they come no more. */
  void forgetSent();
  /** Gives one up that cannot be sent. */
  void drop(const QUuid& id);

  /** One of our own that ran alone comes in its place. */
  struct Own {
    /** Whether it has to run once more, since something else ran after it. */
    bool runsAgain = false;
    std::shared_ptr<kuSessionCommand> command;
  };
  /** None if it is not one that ran alone. */
  std::optional<Own> takeOwn(const QUuid& id);

 private:
  std::optional<KeptFrame> take(const QUuid& id);

  std::set<QUuid> _seen;
  std::deque<QUuid> _seenInTurn;
  std::uint64_t _placesRun = 0;
  std::deque<KeptFrame> _kept;
  qint64 _keptBytes = 0;
};

}  // namespace kuStandalone
