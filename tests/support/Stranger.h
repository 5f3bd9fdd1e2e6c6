#pragma once

#include <gtest/gtest.h>
#include <nats/nats.h>

#include <QDataStream>

#include "standalone/session/SessionFrame.h"
#include "standalone/session/SessionStream.h"

/** A client of the broker that is no partner. */
class Stranger {
 public:
  explicit Stranger(const QString& url) {
    EXPECT_EQ(natsConnection_ConnectTo(&_connection, url.toUtf8().constData()), NATS_OK);
  }
  ~Stranger() { natsConnection_Destroy(_connection); }
  Stranger(const Stranger&) = delete;
  Stranger& operator=(const Stranger&) = delete;

  void send(const QByteArray& subject, const QByteArray& bytes) {
    EXPECT_EQ(
        natsConnection_Publish(_connection, subject.constData(), bytes.constData(), bytes.size()),
        NATS_OK);
    EXPECT_EQ(natsConnection_FlushTimeout(_connection, 10'000), NATS_OK);
  }

 private:
  natsConnection* _connection = nullptr;
};

/** A frame of a partner named Zoe. */
inline kuStandalone::SessionFrame frameOf(const QString& type, const QByteArray& payload) {
  kuStandalone::SessionFrame frame;
  frame.id = QUuid::createUuid();
  frame.sender = QUuid::createUuid();
  frame.senderName = "Zoe";
  frame.type = type;
  frame.payload = payload;
  return frame;
}

template <class... Items>
QByteArray streamOf(const Items&... items) {
  QByteArray bytes;
  QDataStream stream(&bytes, QIODevice::WriteOnly);
  kuStandalone::prepareSessionStream(stream);
  (stream << ... << items);
  return bytes;
}

/** A note as a partner sends it. */
inline QByteArray note(const QString& target, const QString& text) {
  return kuStandalone::writeFrame(frameOf("Note", streamOf(target, text)));
}
