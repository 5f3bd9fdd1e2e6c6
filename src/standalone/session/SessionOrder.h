#pragma once

#include <QByteArray>
#include <QUuid>
#include <cstdint>
#include <deque>
#include <optional>
#include <set>

#include "host/kuHostExport.h"

namespace kuStandalone {

/** A command that ran here before the broker had it. */
struct KeptFrame {
  QUuid id;
  QByteArray subject, bytes;
  /** The broker has it now. */
  bool isSent = false;
  /** How many commands of partners had run here before it did. */
  std::uint64_t partnersBefore = 0;
};

/** What has run and what is still to be sent: so that nothing is run for being delivered twice, and
 * what was done alone comes into the one order. */
class KUHOST_EXPORT SessionOrder {
 public:
  /** False if a command of that id came before. */
  bool isFirst(const QUuid& id);
  void partnerRan() { ++_partnersRan; }

  /** Keeps what ran here alone. False if too much is kept; then nothing is kept of it. */
  bool keep(const QUuid& id, const QByteArray& subject, const QByteArray& bytes, bool isSent);
  /** The first that the broker does not have yet; null if it has all. */
  KeptFrame* firstUnsent();
  std::size_t unsent() const;
  /** Gives one up that cannot be sent. */
  void drop(const QUuid& id);

  /**
   * A command of our own comes in its place. None if it is not one that ran alone; else whether it
   * has to run once more, since something else ran after it.
   */
  std::optional<bool> runsAgain(const QUuid& id);

 private:
  std::optional<KeptFrame> take(const QUuid& id);

  std::set<QUuid> _seen;
  std::deque<QUuid> _seenInTurn;
  /** Commands of partners, and our own that ran again. */
  std::uint64_t _partnersRan = 0;
  std::deque<KeptFrame> _kept;
  qint64 _keptBytes = 0;
};

}  // namespace kuStandalone
