#include "standalone/kernel/MessageBus.h"

namespace kuStandalone {

MessageBus& MessageBus::the() {
  // Static objects register and leave in an order that nobody knows: it outlives them all.
  static auto* bus = new MessageBus();
  return *bus;
}

void MessageBus::add(std::string_view name, Callback callback) {
  CallList<Callback>& receivers = _receivers[std::string(name)];
  const auto same = [callback](Callback other) { return other == callback; };
  if (callback && !receivers.has(same)) receivers.add(callback);
}

void MessageBus::remove(std::string_view name, Callback callback) {
  const auto found = _receivers.find(name, TextHash(), TextEqual());
  if (found == _receivers.end()) return;
  found->second.remove([callback](Callback other) { return other == callback; });
}

bool MessageBus::deliver(std::string_view name, kuMessage* record, int mode) {
  if (!_watchers.empty()) {
    const kuMessage none;
    show({std::string(name), mode, record != nullptr, record ? record : &none});
  }
  const auto found = _receivers.find(name, TextHash(), TextEqual());
  if (found == _receivers.end() || found->second.empty()) return false;
  kuMessage none;
  kuMessage& message = record ? *record : none;
  found->second.each([&message](Callback callback) { callback(message); });
  return true;
}

void MessageBus::broadcast(const kuMessage& message) {
  if (!_watchers.empty()) show({{}, 0, true, &message});
}

int MessageBus::addWatcher(MessageWatch::Watcher watcher) {
  _watchers.add({++_lastHandle, std::move(watcher)});
  return _lastHandle;
}

void MessageBus::removeWatcher(int handle) {
  _watchers.remove([handle](const Watching& watching) { return watching.handle == handle; });
}

void MessageBus::show(const PassedMessage& message) {
  _watchers.each([&message](const Watching& watching) { watching.watcher(message); });
}

}  // namespace kuStandalone
