#pragma once

#include <gtest/gtest.h>
#include <nats/nats.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "standalone/session/SessionSubject.h"

/** Somebody with rights on the broker. */
class BrokerAdministrator {
 public:
  explicit BrokerAdministrator(const QString& url) {
    EXPECT_EQ(natsConnection_ConnectTo(&_connection, url.toUtf8().constData()), NATS_OK);
  }
  ~BrokerAdministrator() { natsConnection_Destroy(_connection); }
  BrokerAdministrator(const BrokerAdministrator&) = delete;
  BrokerAdministrator& operator=(const BrokerAdministrator&) = delete;

  /** Makes the stream of a session that takes no message longer than that. */
  void makeStream(const kuStandalone::SessionSubject& subject, int mostBytes) {
    const QJsonObject stream{{"name", QString(subject.stream())},
                             {"subjects", QJsonArray{QString(subject.all())}},
                             {"max_msg_size", mostBytes}};
    const QByteArray text = QJsonDocument(stream).toJson();
    EXPECT_FALSE(ask("$JS.API.STREAM.CREATE." + subject.stream(), text).contains("error"));
  }

  /** Removes a message for good. */
  void removeMessage(const QByteArray& stream, int sequence) {
    const QByteArray text = "{\"seq\":" + QByteArray::number(sequence) + "}";
    EXPECT_TRUE(ask("$JS.API.STREAM.MSG.DELETE." + stream, text)["success"].toBool());
  }

  void removeStream(const QByteArray& stream) {
    EXPECT_TRUE(ask("$JS.API.STREAM.DELETE." + stream)["success"].toBool());
  }

  /** How many messages a stream holds. */
  int messages(const QByteArray& stream) {
    return ask("$JS.API.STREAM.INFO." + stream)["state"].toObject()["messages"].toInt();
  }

  /** To how many a stream delivers. */
  int consumers(const QByteArray& stream) {
    return ask("$JS.API.CONSUMER.NAMES." + stream)["consumers"].toArray().size();
  }

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
  QJsonObject ask(const QByteArray& subject, const QByteArray& text = {}) {
    natsMsg* reply = nullptr;
    EXPECT_EQ(natsConnection_Request(&reply, _connection, subject.constData(), text.constData(),
                                     text.size(), 5000),
              NATS_OK);
    if (!reply) return {};
    const QByteArray answer(natsMsg_GetData(reply), natsMsg_GetDataLength(reply));
    natsMsg_Destroy(reply);
    return QJsonDocument::fromJson(answer).object();
  }

  natsConnection* _connection = nullptr;
};
