// The broker forgets to whom it delivers; the connection stands.

#include <nats/nats.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "SessionTest.h"
#include "standalone/session/SessionSubject.h"

namespace {

/** Somebody with rights on the broker. */
class Administrator {
 public:
  explicit Administrator(const QString& url) {
    EXPECT_EQ(natsConnection_ConnectTo(&_connection, url.toUtf8().constData()), NATS_OK);
  }
  ~Administrator() { natsConnection_Destroy(_connection); }
  Administrator(const Administrator&) = delete;
  Administrator& operator=(const Administrator&) = delete;

  /** Removes all that a stream delivers to; answers how many there were. */
  int removeConsumers(const QByteArray& stream) {
    const QJsonArray names = ask("$JS.API.CONSUMER.NAMES." + stream)["consumers"].toArray();
    for (const QJsonValue& name : names) {
      const QByteArray subject =
          "$JS.API.CONSUMER.DELETE." + stream + "." + name.toString().toUtf8();
      EXPECT_TRUE(ask(subject)["success"].toBool());
    }
    return names.size();
  }

 private:
  QJsonObject ask(const QByteArray& subject) {
    natsMsg* reply = nullptr;
    EXPECT_EQ(natsConnection_Request(&reply, _connection, subject.constData(), "", 0, 5000),
              NATS_OK);
    if (!reply) return {};
    const QByteArray text(natsMsg_GetData(reply), natsMsg_GetDataLength(reply));
    natsMsg_Destroy(reply);
    return QJsonDocument::fromJson(text).object();
  }

  natsConnection* _connection = nullptr;
};

class LostConsumerTest : public SessionTest {
 protected:
  int removeConsumers() {
    return Administrator(broker.url())
        .removeConsumers(kuStandalone::SessionSubject("review").stream());
  }
};

}  // namespace

TEST_F(LostConsumerTest, WhoOnlyListensHearsOfAllAgainAfterAWhile) {
  join();
  push("A", "1");
  ASSERT_EQ(removeConsumers(), 1);
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  ben.tell("push A 2");
  ben.tell("push A 3");
  EXPECT_EQ(notes(3), (QStringList{"A=1", "A=2", "A=3"}));
}

TEST_F(LostConsumerTest, WhatIsPushedRunsOnceEverywhere) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  ASSERT_EQ(removeConsumers(), 2);
  push("A", "1");
  push("A", "2");
  EXPECT_EQ(ben.notes(2), (QStringList{"A=1", "A=2"}));
  EXPECT_EQ(sessionNotes(), (QStringList{"A=1", "A=2"}));
}
