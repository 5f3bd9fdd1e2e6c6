#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

/** Certificates made for a test: an authority of its own, and one for a broker. */
class Certificates {
 public:
  /** @param subject whom the broker's certificate names, as openssl writes it: "IP:127.0.0.1" */
  explicit Certificates(const QByteArray& subject);

  /** The file of the authority's certificate. */
  QString authority() const { return _folder.filePath("ca.pem"); }
  /** What makes a broker use its certificate, for its configuration file. */
  QByteArray configuration() const;

 private:
  void write(const char* name, const QByteArray& text);
  void openssl(const QString& arguments);

  QTemporaryDir _folder;
};
