#pragma once

#include <QTimer>
#include <chrono>
#include <memory>
#include <set>

#include "standalone/session/BrokerConnection.h"
#include "standalone/session/BrokerStream.h"
#include "standalone/session/Session.h"
#include "standalone/session/SessionCommand.h"
#include "standalone/session/SessionFrame.h"
#include "standalone/session/SessionInbox.h"
#include "standalone/session/SessionLog.h"
#include "standalone/session/SessionOrder.h"
#include "standalone/session/SessionPartners.h"

namespace kuStandalone {

/**
 * A session at work. What it does stands in three sources: SessionPush (what goes out),
 * SessionDelivery (what comes in and runs, in its order) and SessionLink (the broker lost and back,
 * signs of life).
 */
class Session::Parts {
 public:
  Parts(const SessionOptions& options, SessionEvents events);
  ~Parts();
  Parts(const Parts&) = delete;
  Parts& operator=(const Parts&) = delete;

  /** Connects and subscribes; answers why not, empty if it could. */
  QString open();

  void push(const kuSessionCommand& command);
  void pushScript(const QByteArray& text);

  bool isLinked() const { return _isLinked; }
  bool isJoinCompleted() const { return _isJoinCompleted; }
  const QUuid& id() const { return _id; }
  const SessionPartners& partners() const { return _partners; }
  const SessionOrder& order() const { return _order; }
  std::set<unsigned>& blocked() { return _blocked; }

 private:
  using Clock = std::chrono::steady_clock;

  /** A command of our own that push waits for. */
  struct Awaited {
    QUuid id;
    kuSessionCommand* command;
    bool hasRun = false;
  };

  // SessionPush
  /** What goes out for a command or script, and where to. */
  struct Outgoing {
    SessionFrame frame;
    QByteArray subject, bytes;

    /** By which the broker knows it again. */
    QByteArray messageId() const;
  };
  Outgoing outgoing(SessionFrame::Kind kind, const QString& type, const QByteArray& payload) const;
  bool isTooLong(const Outgoing& out) const;
  /** Whether a message may go out now and finds its place behind all that was kept. */
  bool mayPublish() const;
  Publication publish(const Outgoing& out);
  void awaitOwn(kuSessionCommand& command, const Outgoing& out);
  /** False if nothing came for as long as the options say. */
  bool waitForMore();
  void runAlone(kuSessionCommand& command, const Outgoing& out, bool isSent);
  void keep(const Outgoing& out, bool isSent);
  void sendKept();
  void sendOneKept(KeptFrame& frame);

  // SessionDelivery
  void wake();
  void takeNews();
  void receive(const SessionDelivery& news);
  void deliver();
  bool deliverFirst(const SessionDelivery& delivery);
  bool isPassed(const SessionDelivery& delivery) const;
  void deliverFrame(const SessionFrame& frame, std::uint64_t sequence);
  void deliverCommand(const SessionFrame& frame, std::uint64_t sequence);
  bool deliverOwn(const SessionFrame& frame, std::uint64_t sequence);
  void deliverScript(const SessionFrame& frame, std::uint64_t sequence);
  bool mayRunWhileBusy(const SessionFrameReading& reading) const;
  void refuseNewer(const SessionFrameReading& reading);
  void tellRun(const SessionFrame& frame, std::uint64_t sequence);
  static bool isHeld();

  // SessionLink
  QString attach();
  BrokerStream::Subscription subscribe(const BrokerStream::State& state, bool& isAnew);
  void startAnew(const QByteArray& identity);
  void becomeAlone(const QString& reason);
  void tryAgain();
  void fetchDropped();
  void noteProgress(const SessionDelivery& delivery);
  void caughtUp();
  void tellBack();
  void tick();
  void announce(PresenceNote::Kind kind);
  void hear(const QByteArray& bytes);

  void tell(SessionEvent event) const;

  SessionOptions _options;
  SessionSubject _subject;
  QUuid _id;
  SessionEvents _events;

  SessionOrder _order;
  SessionPartners _partners;
  SessionLog _log;
  std::set<unsigned> _blocked;
  std::set<QUuid> _refused;

  /** The place of the last message that was looked at. */
  std::uint64_t _lastSequence = 0;
  Awaited* _awaited = nullptr;
  Clock::time_point _lastRun;
  bool _isDelivering = false;

  bool _isLinked = false;
  bool _isJoinCompleted = false;
  /** Until everything has run that the stream held when it was subscribed to. */
  bool _isCatchingUp = false;
  std::uint64_t _catchUpTo = 0;
  bool _owesBack = false;
  /** Whether the broker has answered since it was lost. */
  bool _isEchoed = false;
  QByteArray _identity;
  unsigned _subscription = 0;
  Clock::time_point _nextSign, _nextAttempt;
  std::chrono::milliseconds _patience{0};

  QTimer _ticker, _again;
  // The last ones go first: nothing arrives any more when the rest goes.
  std::shared_ptr<SessionInbox> _inbox;
  std::unique_ptr<BrokerConnection> _connection;
  std::unique_ptr<BrokerStream> _stream;
};

}  // namespace kuStandalone
