// What the partners are told of somebody, and when.

#include <nats/nats.h>

#include "SessionTest.h"
#include "standalone/session/SessionFrame.h"
#include "standalone/session/SessionPartners.h"
#include "standalone/session/SessionSubject.h"
#include "support/Stranger.h"

using namespace kuStandalone;

namespace {

/** Listens to the signs of life in a session and gives none. */
class Listener {
 public:
  explicit Listener(const QString& url) {
    const QByteArray subject = SessionSubject("review").presence();
    EXPECT_EQ(natsConnection_ConnectTo(&_connection, url.toUtf8().constData()), NATS_OK);
    EXPECT_EQ(natsConnection_SubscribeSync(&_heard, _connection, subject.constData()), NATS_OK);
    EXPECT_EQ(natsConnection_FlushTimeout(_connection, 10'000), NATS_OK);
  }
  ~Listener() {
    natsSubscription_Destroy(_heard);
    natsConnection_Destroy(_connection);
  }
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;

  /** The signs heard since the last call; ends where for a while there is none. */
  QStringList heard() {
    QStringList signs;
    natsMsg* message = nullptr;
    while (natsSubscription_NextMsg(&message, _heard, 500) == NATS_OK) {
      signs << signOf({natsMsg_GetData(message), natsMsg_GetDataLength(message)});
      natsMsg_Destroy(message);
    }
    return signs;
  }

 private:
  static QString signOf(const QByteArray& bytes) {
    const SessionFrame frame = readFrame(bytes).frame;
    PresenceNote note;
    EXPECT_TRUE(readNote(frame.payload, note));
    const char* const kinds[] = {"", "here", "asks", "leaves"};
    return frame.senderName + " " + kinds[int(note.kind)] + (note.isJoining ? " (joining)" : "");
  }

  natsConnection* _connection = nullptr;
  natsSubscription* _heard = nullptr;
};

class SignsOfLifeTest : public SessionTest {
 protected:
  /** This one tells nothing for being there. */
  SessionOptions seldom() const {
    SessionOptions given = options();
    given.heartbeat = std::chrono::milliseconds(60'000);
    return given;
  }
};

}  // namespace

TEST_F(SignsOfLifeTest, WhoJoinsAsksWhoIsThereAndTellsWhenItHasJoinedAndWhenItLeaves) {
  {
    PartnerProcess ben(broker.url(), "review", "Ben");
    ben.waitFor("joined");
    ben.tell("push A 1");
  }
  Listener listener(broker.url());
  join(seldom());
  EXPECT_EQ(listener.heard(), (QStringList{"Ada asks (joining)", "Ada here"}));
  leave();
  EXPECT_EQ(listener.heard(), QStringList{"Ada leaves"});
}

TEST_F(SignsOfLifeTest, ManyWhoAskAreAnsweredTogether) {
  join(seldom());
  let(300);
  Listener listener(broker.url());
  {
    SessionFrame asking = frameOf(QString(), writeNote({PresenceNote::Kind::Asks, true, 1000}));
    asking.kind = SessionFrame::Kind::Presence;
    Stranger stranger(broker.url());
    for (int number = 0; number < 20; ++number)
      stranger.send(SessionSubject("review").presence(), writeFrame(asking));
  }
  let(500);
  const QStringList answers = listener.heard().filter("Ada here");
  EXPECT_GE(answers.size(), 1);
  EXPECT_LE(answers.size(), 3);
}

TEST_F(SignsOfLifeTest, WhoIsAskedAnswersAtOnce) {
  join(seldom());
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("came Ada");
}
