#pragma once

#include <QByteArray>
#include <QString>
#include <QUuid>
#include <memory>
#include <vector>

#include "host/kuHostExport.h"
#include "standalone/session/SessionEvent.h"
#include "standalone/session/SessionOptions.h"

class kuSessionCommand;

namespace kuStandalone {

/** Somebody who takes part in a session. */
struct SessionPartner {
  QUuid id;
  QString name;
  /** Of the protocol that the partner speaks. */
  int version = 0;
  /** Whether it still catches up with what the session held when it came. */
  bool isJoining = false;
};

/**
 * A place in a live session: a stream of commands on a broker, run by everyone in the broker's
 * order. Made by join, and left when it is destroyed; a process has one at a time, and kuSession
 * speaks to it. The application's event loop delivers what the partners send. While the broker is
 * lost the user works alone, and all is brought together when it is back.
 * Main thread only. It must not be destroyed while a command runs or from its own events.
 */
class KUHOST_EXPORT Session {
 public:
  enum class Status {
    /** What the session held runs here now. */
    Joining,
    Joined,
    /** The broker does not answer. */
    Alone
  };

  struct Joining {
    /** Null if the session could not be joined. */
    std::unique_ptr<Session> session;
    /** Why not, for people; empty if it could. */
    QString error;
  };

  /**
   * Joins a session. Waits for the broker as long as the options say; what the session holds then
   * comes by the event loop.
   */
  static Joining join(const SessionOptions& options, SessionEvents events = {});

  /** The session of this process; null while there is none. */
  static Session* present();

  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  Status status() const;
  /** This one's own id. */
  QUuid id() const;
  /** The others, by name. */
  std::vector<SessionPartner> partners() const;
  /** Commands that ran here and still wait to be sent to the partners. */
  std::size_t unsent() const;
  /** Whether everything that the session held at the join has run here. */
  bool isJoinCompleted() const;

  /** What kuSession does. */
  bool isReadyToUse() const;
  void push(const kuSessionCommand& command);
  void block(unsigned type);
  void unblock(unsigned type);

  /** How many commands were pushed so far, blocked ones and nested ones included. */
  std::uint64_t pushed() const;

  /**
   * Sends script commands that have just run here to the partners, which run them if the text is
   * made wholly of commands. They run here once more if something of a partner's turns out to have
   * its place in front of them. Nothing happens while the session is not ready.
   */
  void pushScript(const QByteArray& text);

 private:
  class Parts;
  explicit Session(std::unique_ptr<Parts> parts);
  std::unique_ptr<Parts> _parts;
};

}  // namespace kuStandalone
