// What comes from anybody who reaches the broker, and is no partner.

#include <QCoreApplication>
#include <QElapsedTimer>

#include "SessionTest.h"
#include "manager/kuVariants.h"
#include "standalone/kernel/HostState.h"
#include "standalone/script/ClippingSettings.h"
#include "standalone/session/SessionFrame.h"
#include "standalone/session/SessionPartners.h"
#include "standalone/session/SessionSubject.h"
#include "support/Stranger.h"

using namespace kuStandalone;

namespace {

QByteArray withVersion(QByteArray bytes, char version) {
  bytes[5] = version;
  return bytes;
}

class HostileMessagesTest : public SessionTest {
 protected:
  void SetUp() override {
    join();
    log.clear();
  }
  /** Sends a note of a true partner behind all that was sent, and waits for it. */
  void settle() {
    stranger.send(anywhere, note("end", "1"));
    EXPECT_EQ(notes(1), QStringList{"end=1"});
  }

  const SessionSubject subject{"review"};
  const QByteArray anywhere = subject.command("Note", "x");
  Stranger stranger{broker.url()};
};

}  // namespace

TEST_F(HostileMessagesTest, RubbishIsDroppedWithOneLineAndNothingChanges) {
  const QByteArray good = note("A", "1");
  const QString longText(300'000, 'x');
  const QByteArray payloads[] = {
      QByteArray(),
      "x",
      QByteArray(1 << 19, '\0'),
      QByteArray(1 << 19, 'x'),
      good.left(good.size() / 2),
      good + good,
      good.mid(1),
      writeFrame(frameOf("Nonsense", streamOf(QString("A"), QString("1")))),
      writeFrame(frameOf("", streamOf(QString("A"), QString("1")))),
      writeFrame(frameOf("Note", {})),
      writeFrame(frameOf("Note", streamOf(QString("A")))),
      writeFrame(frameOf("Note", streamOf(QString("A"), QString("1"), 1))),
      writeFrame(frameOf("Note", streamOf(quint32(0x7ffffffe)))),
      writeFrame(frameOf("SelectVariant", streamOf(QString("A")))),
      writeFrame(frameOf("SelectVariantSet", streamOf(QString("A"), qint32(0), qint32(-1)))),
      writeFrame(
          frameOf("SelectVariantSet", streamOf(QString("A"), qint32(0), qint32(2'000'000'000)))),
      writeFrame(frameOf("SelectVariantSet",
                         streamOf(QString("A"), qint32(0), qint32(5), qint32(2'000'000'000)))),
      writeFrame(
          frameOf("SelectVariantSet", streamOf(QString("A"), qint32(0), qint32(1), qint32(-1)))),
      writeFrame(frameOf("SelectVariantSet", streamOf(longText, qint32(0), qint32(1))))};
  for (const QByteArray& bytes : payloads)
    stranger.send(anywhere, bytes);
  settle();
  EXPECT_EQ(log, QStringList{"Session: a message was dropped: it is no frame"});
  EXPECT_EQ(events, (QStringList{"joined", "ran Note of Zoe"}));
  leave();
  const int others = int(std::size(payloads)) - 1;
  EXPECT_EQ(log.last(), QStringLiteral("Session: %1 more messages were dropped").arg(others));
}

TEST_F(HostileMessagesTest, ARubbishSignOfLifeIsDropped) {
  SessionFrame presence = frameOf({}, "rubbish");
  presence.kind = SessionFrame::Kind::Presence;
  stranger.send(subject.presence(), "x");
  stranger.send(subject.presence(), writeFrame(presence));
  stranger.send(subject.presence(), note("A", "1"));
  settle();
  waitUntil([this] { return !log.isEmpty(); });
  EXPECT_EQ(session->partners().size(), 0u);
  EXPECT_EQ(log, QStringList{"Session: a message was dropped: it is no frame"});
}

TEST_F(HostileMessagesTest, ASignOfLifeInTheStreamIsNoPartner) {
  SessionFrame presence = frameOf({}, writeNote({}));
  presence.kind = SessionFrame::Kind::Presence;
  stranger.send(anywhere, writeFrame(presence));
  settle();
  EXPECT_EQ(session->partners().size(), 0u);
}

TEST_F(HostileMessagesTest, ThePartnersThatASwarmPretendsAreBounded) {
  SessionFrame presence = frameOf({}, writeNote({}));
  presence.kind = SessionFrame::Kind::Presence;
  for (int count = 0; count < 5100; ++count) {
    presence.sender = QUuid::createUuid();
    stranger.send(subject.presence(), writeFrame(presence));
  }
  settle();
  EXPECT_LE(session->partners().size(), 5000u);
}

TEST_F(HostileMessagesTest, TheSameCommandTwiceRunsOnce) {
  const QByteArray bytes = note("A", "1");
  stranger.send(anywhere, bytes);
  stranger.send(subject.command("Note", "y"), bytes);
  stranger.send(anywhere, note("A", "2"));
  EXPECT_EQ(notes(2), (QStringList{"A=1", "A=2"}));
}

TEST_F(HostileMessagesTest, ACommandOfOnesOwnThatSomebodyRepeatsDoesNotRunAgain) {
  leave();
  QUuid id;
  const Session::Joining joining = Session::join(options(), [&](const SessionEvent& event) {
    if (event.own) id = event.id;
  });
  ASSERT_TRUE(joining.session) << joining.error.toStdString();
  for (const bool isBusy : {false, true}) {
    HostState::the().busy = isBusy;
    push("A", "1");
    HostState::the().busy = false;
    waitUntil([&] { return joining.session->unsent() == 0; });
    sessionNotes().clear();
    SessionFrame frame = frameOf("Note", streamOf(QString("A"), QString("1")));
    frame.id = id;
    frame.sender = joining.session->id();
    stranger.send(anywhere, writeFrame(frame));
    settle();
  }
}

TEST_F(HostileMessagesTest, WhatIsNoCommandHoldsNothingUpThatMayRunWhileBusy) {
  HostState::the().busy = true;
  stranger.send(anywhere, "x");
  stranger.send(anywhere, withVersion(note("A", "1"), 2));
  stranger.send(anywhere, writeFrame(frameOf("Nonsense", {})));
  const QByteArray urgent = streamOf(QString("A"), QString("2"));
  stranger.send(anywhere, writeFrame(frameOf("UrgentNote", urgent)));
  EXPECT_EQ(notes(1), QStringList{"A=2"});
}

TEST_F(HostileMessagesTest, WhoPretendsToBeThisOneIsAPartnerLikeAll) {
  SessionFrame frame = frameOf("Note", streamOf(QString("A"), QString("1")));
  frame.sender = session->id();
  stranger.send(anywhere, writeFrame(frame));
  EXPECT_EQ(notes(1), QStringList{"A=1"});
}

TEST_F(HostileMessagesTest, ANewerVersionIsRefusedOnceAndSaysWhoMustUpdate) {
  for (int count = 0; count < 5; ++count)
    stranger.send(anywhere, withVersion(note("A", "1"), 2));
  SessionFrame frame = frameOf("Note", streamOf(QString("A"), QString("1")));
  for (int count = 0; count < 5; ++count)
    stranger.send(anywhere, withVersion(writeFrame(frame), 2));
  settle();
  EXPECT_EQ(log, QStringList{"Session: a message of Zoe was dropped: it is of version 2 and this "
                             "program of version 1: this program has to be updated"});
  EXPECT_EQ(events.count("refused Zoe"), 6);
}

TEST_F(HostileMessagesTest, RefusalsAreNotToldWithoutEnd) {
  for (int count = 0; count < 200; ++count)
    stranger.send(anywhere, withVersion(note("A", "1"), 2));
  settle();
  EXPECT_EQ(events.count("refused Zoe"), 100);
}

// Megabytes.

namespace {

class HugeMessagesTest : public ::testing::Test {
 protected:
  HugeMessagesTest() { sessionNotes().clear(); }
  NatsBroker broker{"max_payload: 33554432\n"};
};

}  // namespace

TEST_F(HugeMessagesTest, TenMegabytesAreDroppedWhereTheyArrive) {
  QStringList log;
  const LogSink sink(
      [&](LogLevel, const std::string& text) { log << QString::fromStdString(text); });
  const Session::Joining joining = Session::join(testOptions(broker.url(), "review", "Ada"), {});
  ASSERT_TRUE(joining.session);
  const SessionSubject subject("review");
  Stranger stranger(broker.url());
  const QByteArray text(10 << 20, 'x');
  stranger.send(subject.presence(), text);
  stranger.send(subject.script(), text);
  stranger.send(subject.command("Note", "x"), text);
  kuSession::the().pushCommand(NoteCommand("A", "1"));
  EXPECT_EQ(sessionNotes(), QStringList{"A=1"});
  // The sign of life comes by another thread than the note.
  QElapsedTimer time;
  for (time.start(); log.isEmpty() && time.elapsed() < 10'000;)
    QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
  EXPECT_EQ(log, QStringList{"Session: a message was dropped: it is too long"});
  EXPECT_EQ(joining.session->status(), Session::Status::Joined);
}
