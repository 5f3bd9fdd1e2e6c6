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
  std::uint64_t pushed() const { return _pushed; }

  bool isLinked() const { return _isLinked; }
  bool isJoinCompleted() const { return _isJoinCompleted; }
  const QUuid& id() const { return _id; }
  const SessionPartners& partners() const { return _partners; }
  const SessionOrder& order() const { return _order; }
  std::set<unsigned>& blocked() { return _blocked; }

 private:
  using Clock = std::chrono::steady_clock;

  /** What goes out for a command or script, and where to. */
  struct Outgoing {
    SessionFrame frame;
    QByteArray subject, bytes;

    /** By which the broker knows it again. */
    QByteArray messageId() const;
  };

  /** A command of our own that push waits for. */
  struct Awaited {
    const Outgoing& out;
    kuSessionCommand& command;
    bool hasRun = false;
    bool isRefused = false;
  };

  /** Somebody waits as long as this lives. */
  class Waiting {
   public:
    Waiting(Awaited*& place, Awaited& awaited) : _place(place) { _place = &awaited; }
    ~Waiting() { _place = nullptr; }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

   private:
    Awaited*& _place;
  };

  // SessionPush
  Outgoing outgoing(SessionFrame::Kind kind, const QString& type, const QByteArray& payload) const;
  bool isTooLong(const Outgoing& out) const;
  /** Whether a message may go out now and finds its place behind all that was kept. */
  bool mayPublish() const;
  Publication publish(const QByteArray& subject, const QByteArray& bytes, const QByteArray& id);
  void awaitOwn(Awaited& awaited);
  bool awaitPlace(Awaited& awaited);
  bool askForPlace(Awaited& awaited, bool isStored);
  /** False if nothing came for as long as the options say. */
  bool waitForMore();
  void runAlone(kuSessionCommand& command, const Outgoing& out, bool isSent);
  static void runHere(kuSessionCommand& command);
  void keep(const Outgoing& out, bool isSent, std::shared_ptr<kuSessionCommand> command);
  bool isDenied(const QByteArray& subject) const;
  static void tellRefused(const QByteArray& subject);
  void sendKept();
  void sendOneKept(KeptFrame& frame);

  // SessionDelivery
  void wake();
  void takeNews();
  void receive(const SessionDelivery& news);
  void deliver();
  bool deliverFirst(const SessionDelivery& delivery);
  bool isPassed(const SessionDelivery& delivery) const;
  bool isBehindGap(const SessionDelivery& delivery);
  void deliverReading(const SessionFrameReading& reading, std::uint64_t sequence);
  void deliverFrame(const SessionFrame& frame, std::uint64_t sequence);
  void deliverCommand(const SessionFrame& frame, std::uint64_t sequence);
  bool deliverOwn(const SessionFrame& frame, std::uint64_t sequence);
  static void runGuarded(kuSessionCommand& command, const SessionFrame& frame);
  void deliverScript(const SessionFrame& frame, std::uint64_t sequence);
  void deliverOwnScript(const SessionFrame& frame);
  bool mayRunWhileBusy(const SessionFrameReading& reading) const;
  void refuseNewer(const SessionFrameReading& reading);
  void tellRun(const SessionFrame& frame, std::uint64_t sequence);
  static bool isHeld();

  // SessionLink
  QString attach();
  BrokerStream::Subscription subscribe(const BrokerStream::State& state, bool& isAnew);
  void startAnew(const QByteArray& identity);
  void becomeAlone(const QString& reason);
  void noteClosed();
  void tryAgain();
  QString connectAnew();
  void fetchMissing();
  void noteProgress(const SessionDelivery& delivery);
  void caughtUp();
  void tellBack();
  void tick();
  void announce(PresenceNote::Kind kind);
  void hear(const QByteArray& bytes);
  void answer();

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
  /** Messages of the last per subject that are still to come: there are gaps between these. */
  std::uint64_t _leftOfPast = 0;
  Awaited* _awaited = nullptr;
  std::uint64_t _pushed = 0;
  /** What the broker said about the last message that it did not take for want of rights. */
  QByteArray _denial;
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
  /** The present one; 0 while there is none, as where something is missing. */
  unsigned _subscription = 0, _lastSubscription = 0;
  Clock::time_point _lastSign, _nextSign, _nextAttempt, _linkedSince;
  std::chrono::milliseconds _patience{0};

  QTimer _ticker, _again, _next, _answer;
  // The last ones go first: nothing arrives any more when the rest goes.
  std::shared_ptr<SessionInbox> _inbox;
  std::unique_ptr<BrokerConnection> _connection;
  std::unique_ptr<BrokerStream> _stream;
};

}  // namespace kuStandalone
