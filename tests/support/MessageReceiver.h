#pragma once

#include <functional>
#include <utility>

#include "host/kernel/kuController.h"

/**
 * A receiver on the bus: runs an action for each message of one name, as long as it lives. There is
 * one at a time.
 */
class MessageReceiver {
 public:
  using Action = std::function<void(kuMessage&)>;

  MessageReceiver(const char* name, Action action) : _name(name) {
    present() = std::move(action);
    kuController::addCB(_name, &receive);
  }
  ~MessageReceiver() {
    kuController::subCB(_name, &receive);
    present() = nullptr;
  }
  MessageReceiver(const MessageReceiver&) = delete;
  MessageReceiver& operator=(const MessageReceiver&) = delete;

 private:
  static Action& present() {
    static Action action;
    return action;
  }
  static void receive(kuMessage& message) { present()(message); }

  const char* _name;
};
