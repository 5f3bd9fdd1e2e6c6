#include "standalone/session/SessionOptions.h"

#include <QFile>
#include <QUrl>

namespace kuStandalone {

namespace {

constexpr int kUsualPort = 4222;
constexpr qint64 kLongestSecret = 64 << 10;

QUrl parsed(const QString& url) {
  return url.contains("://") ? QUrl(url, QUrl::StrictMode)
                             : QUrl("nats://" + url, QUrl::StrictMode);
}

bool isKnownScheme(const QString& scheme) { return scheme == "nats" || scheme == "tls"; }

}  // namespace

SessionOptions SessionOptions::at(const QString& address) {
  SessionOptions options;
  const QUrl url = parsed(address);
  options.tls = url.scheme() == "tls";
  const QString path = url.path(QUrl::FullyDecoded);
  if (path.size() > 1) options.session = path.mid(1);
  options.url = url.isValid() ? url.adjusted(QUrl::RemovePath).toString() : address;
  return options;
}

QString SessionOptions::fault() const {
  const QUrl address = parsed(url);
  if (!address.isValid() || address.host().isEmpty())
    return QStringLiteral("the address names no host");
  if (!isKnownScheme(address.scheme())) {
    return QStringLiteral("the address begins with neither nats:// nor tls://");
  }
  if (!address.userInfo().isEmpty()) {
    return QStringLiteral("user, password and token do not belong into the address");
  }
  if (address.path().size() > 1 || address.hasQuery() || address.hasFragment()) {
    return QStringLiteral("the address has more than host and port");
  }
  if (session.isEmpty()) return QStringLiteral("the session has no name");
  if (!token.isEmpty() && !user.isEmpty())
    return QStringLiteral("both a user and a token are given");
  if (user.isEmpty() && !password.isEmpty())
    return QStringLiteral("a password is given and no user");
  return QString();
}

QString SessionOptions::address() const {
  const QUrl address = parsed(url);
  const QString host = address.host();
  const QString shown = host.contains(':') ? '[' + host + ']' : host;
  return QStringLiteral("%1:%2").arg(shown).arg(address.port(kUsualPort));
}

bool SessionOptions::isEncrypted() const { return tls || parsed(url).scheme() == "tls"; }

SessionSecret readSecretFile(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return {QString(), path + ": " + file.errorString()};
  const QByteArray bytes = file.read(kLongestSecret + 1);
  if (bytes.size() > kLongestSecret) return {QString(), path + ": too long for a password"};
  QString text = QString::fromUtf8(bytes);
  if (text.endsWith('\n')) text.chop(1);
  if (text.isEmpty()) return {QString(), path + ": empty"};
  return {text, QString()};
}

}  // namespace kuStandalone
