#include "standalone/session/SessionInbox.h"

#include <QCoreApplication>
#include <QEvent>

namespace kuStandalone {

namespace {

constexpr std::size_t kMostDeliveries = 200'000;
constexpr std::size_t kMostPresence = 20'000;
constexpr qint64 kMostBytes = 256 << 20;

}  // namespace

SessionInbox::SessionInbox(std::function<void()> wake) : _wake(std::move(wake)) {}

bool SessionInbox::isFullFor(const SessionDelivery& delivery) {
  using Kind = SessionDelivery::Kind;
  if (delivery.kind == Kind::Presence) return _deliveries.size() >= kMostPresence;
  if (delivery.kind != Kind::Message) return false;
  if (delivery.subscription == _overflown) return true;
  const bool isFull =
      _deliveries.size() >= kMostDeliveries || _bytes + delivery.bytes.size() > kMostBytes;
  if (isFull) _overflown = delivery.subscription;
  return isFull;
}

void SessionInbox::put(SessionDelivery delivery) {
  const std::lock_guard<std::mutex> lock(_mutex);
  if (isFullFor(delivery)) return;
  _isClosed = _isClosed || delivery.kind == SessionDelivery::Kind::Closed;
  _bytes += delivery.bytes.size();
  _deliveries.push_back(std::move(delivery));
  _changed.notify_all();
  if (_isWakePosted) return;
  _isWakePosted = true;
  QCoreApplication::postEvent(this, new QEvent(QEvent::User));
}

std::deque<SessionDelivery> SessionInbox::takeAll() {
  const std::lock_guard<std::mutex> lock(_mutex);
  _bytes = 0;
  std::deque<SessionDelivery> taken;
  taken.swap(_deliveries);
  return taken;
}

bool SessionInbox::waitForMore(std::chrono::milliseconds limit) {
  std::unique_lock<std::mutex> lock(_mutex);
  return _changed.wait_for(lock, limit, [this] { return !_deliveries.empty(); });
}

bool SessionInbox::waitForClosed(std::chrono::milliseconds limit) {
  std::unique_lock<std::mutex> lock(_mutex);
  return _changed.wait_for(lock, limit, [this] { return _isClosed; });
}

bool SessionInbox::hasOverflown(unsigned subscription) const {
  const std::lock_guard<std::mutex> lock(_mutex);
  return _overflown == subscription;
}

bool SessionInbox::event(QEvent* event) {
  if (event->type() != QEvent::User) return QObject::event(event);
  {
    const std::lock_guard<std::mutex> lock(_mutex);
    _isWakePosted = false;
  }
  if (_wake) _wake();
  return true;
}

}  // namespace kuStandalone
