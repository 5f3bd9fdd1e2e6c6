#pragma once

#include <QString>

#include "host/session/kuSessionCommandFactory.h"
#include "standalone/session/SessionFrame.h"

namespace kuStandalone {

/** A command out of a frame. */
struct MadeCommand {
  /** Null if none could be made. */
  kuSessionCommandFactory::Command command;
  /** Why not, for people. */
  QString reason;
};

/** Makes the command of a frame; only of one that was read to its end without a fault. */
KUHOST_EXPORT MadeCommand makeCommand(const SessionFrame& frame);

/** What a command writes of itself, and of its target. */
KUHOST_EXPORT QByteArray payloadOf(const kuSessionCommand& command);
KUHOST_EXPORT QByteArray keyOf(const kuSessionCommand& command);

/** Runs commands; while one runs, nobody pushes. */
class KUHOST_EXPORT CommandRun {
 public:
  CommandRun() = delete;

  static bool isRunning();
  static void run(kuSessionCommand& command);

  /** Marks something else as a command that runs, as long as it lives. */
  class Mark {
   public:
    Mark();
    ~Mark();
    Mark(const Mark&) = delete;
    Mark& operator=(const Mark&) = delete;
  };
};

}  // namespace kuStandalone
