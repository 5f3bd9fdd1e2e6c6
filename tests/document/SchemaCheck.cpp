#include "SchemaCheck.h"

#include <QFile>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

namespace {

QStringList writeFiles(const QTemporaryDir& folder, const std::vector<QByteArray>& documents) {
  QStringList paths;
  for (const QByteArray& document : documents) {
    QFile file(folder.filePath(QString::number(paths.size()) + ".xml"));
    if (file.open(QIODevice::WriteOnly)) file.write(document);
    paths += file.fileName();
  }
  return paths;
}

/** The lines that xmllint says about the files; or what went wrong with the program. */
QStringList told(const QStringList& paths) {
  QProcess process;
  process.setProcessChannelMode(QProcess::MergedChannels);
  process.start(
      "xmllint",
      QStringList{"--noout", "--nonet", "--huge", "--schema", KU_VARIANTS_SCHEMA} + paths);
  if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit)
    return {"xmllint: " + process.errorString()};
  return QString::fromUtf8(process.readAll()).split('\n');
}

/** The first line about the file; empty where that says that it is valid. */
std::string faultOf(const QString& path, const QStringList& lines) {
  for (const QString& line : lines) {
    if (line == path + " validates") return {};
    if (line.startsWith(path + ":")) return line.mid(path.size() + 1).toStdString();
  }
  return "nothing was told: " + lines.join(" | ").toStdString();
}

}  // namespace

std::vector<std::string> schemaFaults(const std::vector<QByteArray>& documents) {
  const QTemporaryDir folder;
  const QStringList paths = writeFiles(folder, documents);
  const QStringList lines = told(paths);
  std::vector<std::string> faults;
  for (const QString& path : paths)
    faults.push_back(faultOf(path, lines));
  return faults;
}
