#pragma once

#include <QByteArray>
#include <QString>
#include <cstdint>
#include <memory>

namespace kuStandalone {

class BrokerConnection;

/** How a message fared that was sent to the stream. */
enum class Publication {
  /** It stands in the stream, now or since before. */
  Stored,
  /** Nobody said so in time: it may stand there or not. */
  Unknown,
  /** It cannot stand there at all. */
  Refused
};

/**
 * The stream that holds the session, on the broker. Each call ends within the times of the options.
 * What comes of a subscription goes into the inbox, by the threads of the broker's client.
 */
class BrokerStream {
 public:
  explicit BrokerStream(BrokerConnection& connection);
  ~BrokerStream();
  BrokerStream(const BrokerStream&) = delete;
  BrokerStream& operator=(const BrokerStream&) = delete;

  /** The stream as the broker has it. */
  struct State {
    /** Why it could not be asked for; empty if it could. */
    QString error;
    /** Another stream has another one, also where the names are the same. */
    QByteArray identity;
    std::uint64_t lastSequence = 0;
  };

  /** Asks for the stream, and makes it where it is not there. */
  State find();

  /** A subscription that took the place of the one before. */
  struct Subscription {
    bool exists = false;
    /** How many messages of the past it delivers. */
    std::uint64_t waiting = 0;
  };

  /** To the last message of each subject, and all that is new.
   * @param number what the deliveries carry; higher than that of all before. */
  Subscription subscribeToLast(unsigned number);
  /** To everything from a place on. */
  Subscription subscribeFrom(unsigned number, std::uint64_t sequence);

  /** Whether the broker has said nothing for longer than it ever should: it delivers no more. */
  bool isSilent() const;

  /** Sends a message on its way, and does not wait; false if there is no way. */
  bool send(const QByteArray& subject, const QByteArray& bytes, const QByteArray& id);
  /** Sends a message and waits for its acknowledgement. What has the id of one that the broker took
   * some minutes ago it takes no second time. */
  Publication publish(const QByteArray& subject, const QByteArray& bytes, const QByteArray& id);

 private:
  struct Parts;
  Subscription subscribe(unsigned number, std::uint64_t firstSequence);
  Subscription deliverTo(const char* inbox, std::uint64_t firstSequence);
  void retire();

  BrokerConnection& _connection;
  std::unique_ptr<Parts> _parts;
};

}  // namespace kuStandalone
