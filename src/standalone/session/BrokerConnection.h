#pragma once

#include <nats/nats.h>

#include <QByteArray>
#include <QString>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <memory>

#include "standalone/session/SessionInbox.h"
#include "standalone/session/SessionOptions.h"
#include "standalone/session/SessionSubject.h"

namespace kuStandalone {

/** Of the broker's client: what a callback of a subscription to the stream needs. */
struct BrokerReceiver {
  using Clock = std::chrono::steady_clock;

  BrokerReceiver(SessionInbox& to, unsigned number) : inbox(to), subscription(number) {}

  SessionInbox& inbox;
  const unsigned subscription;
  /** When something came, be it only the broker's word that there is nothing. */
  std::atomic<Clock::time_point> heardAt{Clock::now()};
};

/**
 * The connection to the broker, over its C client. The client's threads put what comes into the
 * inbox; the calls here are the main thread's, and each ends within the times of the options.
 * A connection that breaks is made again by the client; the inbox is told.
 */
class BrokerConnection {
 public:
  BrokerConnection(const SessionOptions& options, std::shared_ptr<SessionInbox> inbox);
  /** Says good-bye to the broker and waits until none of the client's threads uses the inbox. */
  ~BrokerConnection();
  BrokerConnection(const BrokerConnection&) = delete;
  BrokerConnection& operator=(const BrokerConnection&) = delete;

  /** Connects; answers why not, empty if it could. */
  QString open();

  bool isConnected() const;
  /** Whether it is over for good: the client does not connect again by itself. */
  bool isClosed() const;
  /** The longest message, without what stands before it. */
  qint64 mostBytes() const;

  const SessionOptions& options() const;
  const SessionSubject& subject() const;
  /** The client's own handle. */
  natsConnection* link() const;
  /** For a subscription of that number; it holds as long as any of the client's threads. */
  BrokerReceiver* makeReceiver(unsigned number);
  /** Takes over a subscription that has ended: the client's threads may still be at it. */
  void keepEnded(natsSubscription* subscription);

  /** Tells those who are there now; nobody knows whether it arrives. */
  void announce(const QByteArray& bytes);

 private:
  struct Parts;
  static void keepForEver(std::unique_ptr<Parts> parts);
  QString subscribePresence();

  std::unique_ptr<Parts> _parts;
};

}  // namespace kuStandalone
