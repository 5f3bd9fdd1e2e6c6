#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/**
 * A broker of our own, on a port of its own and with a store of its own. It ends with the test,
 * also when that is killed. Everything that waits has a limit and fails the test behind it.
 */
class NatsBroker {
 public:
  /** @param configuration what the broker's file says beside address and port. */
  explicit NatsBroker(const QByteArray& configuration = {}, bool hasJetStream = true);
  ~NatsBroker();
  NatsBroker(const NatsBroker&) = delete;
  NatsBroker& operator=(const NatsBroker&) = delete;

  /** "127.0.0.1:port" */
  QString address() const;
  QString url() const { return "nats://" + address(); }

  /** Ends it without a word. */
  void kill();
  /** The same again: port, configuration and store. */
  void restart();
  /** The same port and store with another configuration. */
  void restart(const QByteArray& configuration);
  /** Empties the store; only while it does not run. */
  void wipe();
  /** Remembers the store as it is; only while it does not run. */
  void keepStore();
  /** The store as it was remembered; only while it does not run. */
  void putStoreBack();
  /** It stands still: connections stay, nothing is answered. */
  void pause();
  void resume();

 private:
  void start(int port);
  bool waitForPort();
  void copyStore(const QString& from, const QString& to);

  QTemporaryDir _folder;
  QByteArray _configuration;
  bool _hasJetStream;
  int _process = 0;
  int _port = 0;
};
