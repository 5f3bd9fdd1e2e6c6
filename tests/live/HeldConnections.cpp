#include "HeldConnections.h"

#include <gtest/gtest.h>

#include <QHostAddress>
#include <algorithm>

#include "support/NatsBroker.h"

HeldConnections::HeldConnections(const NatsBroker& broker)
    : _brokerPort(broker.address().section(':', 1).toUShort()) {
  QObject::connect(&_server, &QTcpServer::newConnection, [this] { accept(); });
  EXPECT_TRUE(_server.listen(QHostAddress::LocalHost));
}

QString HeldConnections::url() const {
  return QString("nats://127.0.0.1:%1").arg(_server.serverPort());
}

void HeldConnections::accept() {
  while (QTcpSocket* socket = _server.nextPendingConnection()) {
    _connections.push_back(std::make_unique<Connection>());
    Connection& made = *_connections.back();
    made.partner.reset(socket);
    // The server would delete it too.
    socket->setParent(nullptr);
    made.broker = std::make_unique<QTcpSocket>();
    QTcpSocket* broker = made.broker.get();
    QObject::connect(socket, &QTcpSocket::readyRead, [this, &made] { forward(made); });
    QObject::connect(broker, &QTcpSocket::readyRead, [=] { socket->write(broker->readAll()); });
    QObject::connect(socket, &QTcpSocket::disconnected, broker, &QTcpSocket::disconnectFromHost);
    QObject::connect(broker, &QTcpSocket::disconnected, socket, &QTcpSocket::disconnectFromHost);
    broker->connectToHost(QHostAddress(QHostAddress::LocalHost), _brokerPort);
  }
}

void HeldConnections::forward(Connection& connection) {
  connection.held += connection.partner->readAll();
  if (_isHolding) return;
  connection.broker->write(connection.held);
  connection.held.clear();
}

int HeldConnections::holding(const QByteArray& word) const {
  const auto holds = [&](const auto& connection) { return connection->held.contains(word); };
  return int(std::count_if(_connections.begin(), _connections.end(), holds));
}

void HeldConnections::release() {
  _isHolding = false;
  for (const auto& connection : _connections)
    forward(*connection);
}
