#include "Certificates.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>

Certificates::Certificates(const QByteArray& subject) {
  write("authority.cnf",
        "[req]\ndistinguished_name=dn\nx509_extensions=v3\nprompt=no\n"
        "[dn]\nCN=Test authority\n[v3]\nbasicConstraints=critical,CA:TRUE\n");
  write("broker.cnf", "subjectAltName=" + subject + "\n");
  openssl(
      "req -x509 -newkey rsa:2048 -nodes -days 2 -config authority.cnf -keyout ca.key "
      "-out ca.pem");
  openssl("req -newkey rsa:2048 -nodes -subj /CN=broker -keyout broker.key -out broker.csr");
  openssl(
      "x509 -req -in broker.csr -CA ca.pem -CAkey ca.key -CAcreateserial -days 2 "
      "-extfile broker.cnf -out broker.pem");
}

QByteArray Certificates::configuration() const {
  return "tls { cert_file: \"" + _folder.filePath("broker.pem").toUtf8() + "\", key_file: \"" +
         _folder.filePath("broker.key").toUtf8() + "\" }\n";
}

void Certificates::write(const char* name, const QByteArray& text) {
  QFile file(_folder.filePath(name));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(text);
}

void Certificates::openssl(const QString& arguments) {
  QProcess process;
  process.setWorkingDirectory(_folder.path());
  process.start("openssl", arguments.split(' '));
  ASSERT_TRUE(process.waitForFinished(30'000));
  ASSERT_EQ(process.exitCode(), 0) << process.readAllStandardError().constData();
}
