#pragma once

#include "host/kuHostExport.h"

class QDataStream;
class kuSessionClient;

/**
 * Something that happens on every machine of a session, in the same order.
 * A command on the sending side lives for the call of kuSession::pushCommand alone; a received one
 * is made by kuSessionCommandFactory. The class has no virtual destructor: the factory deletes what
 * it made as the class that it is. Main thread only.
 */
class KUHOST_EXPORT kuSessionCommand {
 public:
  /** The number of the command's class in this process; 0 for one that is not registered. It never
   * leaves the process: another one may count its classes otherwise. */
  unsigned getType() const;

  /** Runs the command on this machine. */
  virtual void execute(kuSessionClient* client) = 0;

  /** Writes what identifies the target of the command, and nothing else: of the commands with the
   * same key the last one decides how the target stands. */
  virtual void writeKey(QDataStream& stream) const = 0;

  /** Writes the whole command. */
  virtual void write(QDataStream& stream) const = 0;

  /** Reads the whole command, as write wrote it. */
  virtual void read(QDataStream& stream) = 0;

 protected:
  /**
   * @param runsAtSender whether the sender runs it too, in its place in the order.
   * @param isForLateJoiners whether those who join later run the last one of its target.
   * @param runsWhileBusy whether it may run while a long operation or a dialogue is at work.
   */
  kuSessionCommand(bool runsAtSender, bool isForLateJoiners, bool runsWhileBusy)
      : _runsAtSender(runsAtSender),
        _isForLateJoiners(isForLateJoiners),
        _runsWhileBusy(runsWhileBusy) {}
  kuSessionCommand(const kuSessionCommand&) = default;
  kuSessionCommand& operator=(const kuSessionCommand&) = default;
  ~kuSessionCommand() = default;

 public:
  bool runsAtSender() const { return _runsAtSender; }
  bool isForLateJoiners() const { return _isForLateJoiners; }
  bool runsWhileBusy() const { return _runsWhileBusy; }

 private:
  bool _runsAtSender;
  bool _isForLateJoiners;
  bool _runsWhileBusy;
};
