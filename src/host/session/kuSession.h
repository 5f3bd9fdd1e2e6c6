#pragma once

#include "host/kuHostExport.h"

class kuSessionCommand;

/** The collaboration session of the host. Main thread only. */
class KUHOST_EXPORT kuSession {
 public:
  static kuSession& the();

  /**
   * True while a session is running and commands can be pushed; false while a command of the
   * session runs, so that what it selects in turn is not pushed again.
   */
  bool isReadyToUse() const;

  /**
   * Makes the command run here and at the partners, in one order for all; it has run here when the
   * call returns. The command is needed for the call alone. Without a session it runs here.
   */
  void pushCommand(const kuSessionCommand& command);

  /**
   * From now on commands of this type (kuSessionCommand::getType) run here only. Blocking is not
   * counted: one unblock ends it, however often the type was blocked.
   */
  void block(unsigned type);

  /** Ends that; nothing happens for a type that is not blocked. */
  void unblock(unsigned type);

  kuSession(const kuSession&) = delete;
  kuSession& operator=(const kuSession&) = delete;

 private:
  kuSession() = default;
};
