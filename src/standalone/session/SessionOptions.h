#pragma once

#include <QByteArray>
#include <QString>
#include <chrono>
#include <cstddef>

#include "host/kuHostExport.h"

namespace kuStandalone {

/** What it takes to join a session. Strings are the user's own; empty ones are not given. */
struct KUHOST_EXPORT SessionOptions {
  /** Of the broker: nats://host:port or tls://host:port; the port may be missing. */
  QString url;
  /** The session's name; who names the same one on the same broker takes part in it. */
  QString session = QStringLiteral("default");
  /** The name by which the partners see this one; need not be unique. */
  QString partner;
  /** What the broker asks for: user and password, or a token. */
  QString user, password, token;
  /** Encrypts and checks the broker's certificate, as tls:// does too. */
  bool tls = false;
  /** A file of certificates to trust in the place of the system's. */
  QString caFile;
  /** How long joining waits for the broker, and a command for its acknowledgement. */
  std::chrono::milliseconds connectTimeout{3000}, acknowledgeTimeout{2000};
  /** Between two signs of life to the partners. */
  std::chrono::milliseconds heartbeat{1000};

  /** The options for an address that also names the session: nats://host:port/session. */
  static SessionOptions at(const QString& address);

  /** How many messages wait at most for an application that is busy; the broker keeps the others.
   */
  std::size_t mostWaiting = 100'000;

  /** Why these options cannot do; empty if they can. Never contains a password or token. */
  QString fault() const;
  /** Host and port, for people. */
  QString address() const;
  /** Whether tls says so, or the address. */
  bool isEncrypted() const;
};

/** A secret, or why there is none. */
struct SessionSecret {
  QString text;
  QString error;
};

/** A password or token from a file of its own: its whole text but for one line feed at the end. */
KUHOST_EXPORT SessionSecret readSecretFile(const QString& path);

}  // namespace kuStandalone
