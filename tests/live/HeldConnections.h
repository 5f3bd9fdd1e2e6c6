#pragma once

#include <QByteArray>
#include <QString>
#include <QTcpServer>
#include <QTcpSocket>
#include <memory>
#include <vector>

class NatsBroker;

/**
 * Stands between partners and their broker, and can keep what the partners send for a while, so
 * that several of them have sent something before any has heard of the others. The event loop moves
 * what passes.
 */
class HeldConnections {
 public:
  explicit HeldConnections(const NatsBroker& broker);

  /** Where partners find the broker through this: "nats://127.0.0.1:port" */
  QString url() const;
  /** From now on nothing that is sent reaches the broker. What the broker says still arrives. */
  void hold() { _isHolding = true; }
  /** How many connections have sent something with this word that is being held. */
  int holding(const QByteArray& word) const;
  /** Lets all that was held go on, one connection after the other. */
  void release();

 private:
  struct Connection {
    std::unique_ptr<QTcpSocket> partner, broker;
    QByteArray held;
  };

  void accept();
  void forward(Connection& connection);

  QTcpServer _server;
  quint16 _brokerPort;
  bool _isHolding = false;
  std::vector<std::unique_ptr<Connection>> _connections;
};
