#pragma once

#include "host/kernel/kuMessage.h"

class QKuDockWindowManager;
class QMainWindow;

/** The application's message bus, frame requests and main window. Main thread only. */
class KUHOST_EXPORT kuController {
 public:
  kuController() = delete;

  /**
   * Delivers a named message to every callback of that name before it returns; with none, it
   * reaches nobody. Answers whether there was a receiver.
   * @param mode passed through to whoever watches the bus, unchanged.
   */
  static bool call(const char* name, kuMessage& message, int mode);

  /** The same with no attributes. */
  static bool call(const char* name, int mode);

  /**
   * Registers a callback under a message's name; registering it twice changes nothing. It may be
   * called while static objects are constructed.
   */
  static void addCB(const char* name, void (*callback)(kuMessage&));

  /** Removes a callback; one that is not registered changes nothing. */
  static void subCB(const char* name, void (*callback)(kuMessage&));

  /** Asks for a new frame. @param now true to draw at once, false when the host next does. */
  static void updateRender(bool now);

  /** Parent for dialogues; null while the host has no window. */
  static QMainWindow* getMainWindow();

  /** The application's dock widgets; never null. */
  static QKuDockWindowManager* getDockWindowManager();

  /**
   * Shows or ends the busy state.
   * While it lasts nothing may change the scene but the caller: what comes from partners, timers
   * and animations waits for its end.
   * @param process true to let the host draw the change before it returns.
   */
  static void setBusy(bool busy, bool process);
};
