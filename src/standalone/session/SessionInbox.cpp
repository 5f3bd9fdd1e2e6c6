#include "standalone/session/SessionInbox.h"

#include <QCoreApplication>
#include <QEvent>
#include <algorithm>
#include <iterator>

namespace kuStandalone {

namespace {

constexpr std::size_t kMostSigns = 20'000;
constexpr qint64 kMostBytes = 256 << 20;

}  // namespace

SessionInbox::SessionInbox(std::function<void()> wake, std::size_t mostMessages)
    : _wake(std::move(wake)), _mostMessages(mostMessages) {}

bool SessionInbox::isFullFor(const SessionDelivery& delivery) {
  using Kind = SessionDelivery::Kind;
  if (delivery.kind == Kind::Presence) return _news.size() >= kMostSigns;
  if (delivery.kind != Kind::Message) return false;
  // What came before that one is of no use either, and must not take its place here.
  if (delivery.subscription <= _overflown) return true;
  const qint64 bytes = _bytes + delivery.bytes.size();
  const bool isFull = _messages.size() >= _mostMessages || bytes > kMostBytes;
  if (isFull) _overflown = delivery.subscription;
  return isFull;
}

void SessionInbox::put(SessionDelivery delivery) {
  const std::lock_guard<std::mutex> lock(_mutex);
  _isClosed = _isClosed || delivery.kind == SessionDelivery::Kind::Closed;
  if (_isSilent) return _changed.notify_all();
  if (isFullFor(delivery)) return;
  const bool isMessage = delivery.kind == SessionDelivery::Kind::Message;
  if (isMessage) _bytes += delivery.bytes.size();
  (isMessage ? _messages : _news).push_back(std::move(delivery));
  _changed.notify_all();
  if (_isWakePosted) return;
  _isWakePosted = true;
  QCoreApplication::postEvent(this, new QEvent(QEvent::User));
}

void SessionInbox::silence() {
  const std::lock_guard<std::mutex> lock(_mutex);
  _isSilent = true;
  _wake = nullptr;
  _news.clear();
  _messages.clear();
}

std::deque<SessionDelivery> SessionInbox::takeNews(std::size_t most) {
  const std::lock_guard<std::mutex> lock(_mutex);
  const auto end = _news.begin() + std::ptrdiff_t(std::min(most, _news.size()));
  std::deque<SessionDelivery> taken(std::make_move_iterator(_news.begin()),
                                    std::make_move_iterator(end));
  _news.erase(_news.begin(), end);
  return taken;
}

bool SessionInbox::hasNews() const {
  const std::lock_guard<std::mutex> lock(_mutex);
  return !_news.empty();
}

void SessionInbox::beginConnection() {
  const std::lock_guard<std::mutex> lock(_mutex);
  _isClosed = false;
}

std::optional<SessionDelivery> SessionInbox::firstMessage() const {
  const std::lock_guard<std::mutex> lock(_mutex);
  if (_messages.empty()) return std::nullopt;
  return _messages.front();
}

void SessionInbox::dropFirstMessage() {
  const std::lock_guard<std::mutex> lock(_mutex);
  _bytes -= _messages.front().bytes.size();
  _messages.pop_front();
}

bool SessionInbox::waitForMore(std::chrono::milliseconds limit) {
  std::unique_lock<std::mutex> lock(_mutex);
  return _changed.wait_for(lock, limit, [this] { return !_messages.empty() || !_news.empty(); });
}

bool SessionInbox::waitForClosed(std::chrono::milliseconds limit) {
  std::unique_lock<std::mutex> lock(_mutex);
  return _changed.wait_for(lock, limit, [this] { return _isClosed; });
}

bool SessionInbox::hasOverflown(unsigned subscription) const {
  const std::lock_guard<std::mutex> lock(_mutex);
  return subscription != 0 && subscription <= _overflown;
}

bool SessionInbox::event(QEvent* event) {
  bool isOurs = false;
  {
    // Also what the event says was written by another thread.
    const std::lock_guard<std::mutex> lock(_mutex);
    isOurs = event->type() == QEvent::User;
    if (isOurs) _isWakePosted = false;
  }
  if (!isOurs) return QObject::event(event);
  if (_wake) _wake();
  return true;
}

}  // namespace kuStandalone
