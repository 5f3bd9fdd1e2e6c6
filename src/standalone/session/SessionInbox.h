#pragma once

#include <QByteArray>
#include <QObject>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>

#include "host/kuHostExport.h"

namespace kuStandalone {

/** What the broker's client has to say. */
struct SessionDelivery {
  enum class Kind {
    /** A message of the stream. */
    Message,
    Presence,
    Lost,
    Back,
    /** A message was not taken for want of rights; the bytes are the broker's text. */
    Denied,
    /** The connection is over for good. */
    Closed
  };

  Kind kind = Kind::Message;
  QByteArray bytes;
  /** Of the stream: in which subscription it came, its place, and how many stand behind it. */
  unsigned subscription = 0;
  std::uint64_t sequence = 0, pending = 0;
};

/**
 * Where the threads of the broker's client leave what they have, and the only thing that they
 * touch; the main thread takes it from there: news at once, and messages of the stream when they
 * may run. It holds no more than it can: messages that find it full are dropped, and with them all
 * others of their subscription, so that the order holds.
 */
class KUHOST_EXPORT SessionInbox : public QObject {
 public:
  /** @param wake called by the event loop of the main thread when something has come.
   * @param mostMessages so many messages wait at most. */
  explicit SessionInbox(std::function<void()> wake, std::size_t mostMessages = 100'000);

  /** Any thread. */
  void put(SessionDelivery delivery);

  /** Main thread: what has come and is no message, in its order, and no more than so many. */
  std::deque<SessionDelivery> takeNews(std::size_t most = 1000);
  bool hasNews() const;
  /** The message that has waited longest; none if there is none. */
  std::optional<SessionDelivery> firstMessage() const;
  void dropFirstMessage();
  /** Waits until something is there; false if nothing came in time. */
  bool waitForMore(std::chrono::milliseconds limit);
  /** Another connection begins. */
  void beginConnection();
  /** Waits until the connection is over for good; false if that took longer. */
  bool waitForClosed(std::chrono::milliseconds limit);
  /** Whether messages of a subscription were dropped. Later subscriptions have higher numbers. */
  bool hasOverflown(unsigned subscription) const;
  /** From now on nobody is woken, and nothing is taken but the word that the connection is over. */
  void silence();

 protected:
  bool event(QEvent* event) override;

 private:
  bool isFullFor(const SessionDelivery& delivery);

  std::function<void()> _wake;
  mutable std::mutex _mutex;
  std::condition_variable _changed;
  std::deque<SessionDelivery> _news, _messages;
  std::size_t _mostMessages;
  qint64 _bytes = 0;
  /** The latest one of which messages were dropped; of those before nothing is taken either. */
  unsigned _overflown = 0;
  bool _isWakePosted = false, _isClosed = false, _isSilent = false;
};

}  // namespace kuStandalone
