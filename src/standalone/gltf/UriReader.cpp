#include "standalone/gltf/UriReader.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

namespace kuStandalone {
namespace {

QByteArray dataOf(const QString& uri, const std::string& place) {
  const int comma = uri.indexOf(',');
  if (comma < 0 || !uri.leftRef(comma).endsWith(QLatin1String(";base64"))) {
    throw GltfRefusal(place, "is no base64 data");
  }
  const QByteArray::FromBase64Result decoded = QByteArray::fromBase64Encoding(
      uri.midRef(comma + 1).toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
  if (!decoded) throw GltfRefusal(place, "is no base64 data");
  return *decoded;
}

bool hasScheme(const QString& uri) {
  static const QRegularExpression scheme(QStringLiteral("^[A-Za-z][A-Za-z0-9+.-]*:"));
  return scheme.match(uri).hasMatch();
}

}  // namespace

UriReader::UriReader(QString folder, std::size_t budget)
    : _folder(std::move(folder)), _budget(budget) {}

QString UriReader::fileOf(const QString& uri, const std::string& place) const {
  if (_folder.isEmpty()) throw GltfRefusal(place, "names a file where only data is read");
  if (hasScheme(uri)) throw GltfRefusal(place, "is no relative path");
  const QByteArray decoded = QByteArray::fromPercentEncoding(uri.toUtf8());
  // A NUL would end the path.
  const QString path = QString::fromUtf8(decoded);
  if (path.isEmpty() || decoded.contains('\0') || QDir::isAbsolutePath(path) ||
      path.split('/').contains("..")) {
    throw GltfRefusal(place, "leads out of the scene's folder");
  }
  const QFileInfo file(QDir(_folder), path);
  if (!file.isFile()) throw GltfUnreadable(place, "there is no file '" + path.toStdString() + "'");
  // A link may lead anywhere, whatever its name looks like.
  if (!file.canonicalFilePath().startsWith(QDir(_folder).canonicalPath() + "/")) {
    throw GltfRefusal(place, "leads out of the scene's folder");
  }
  return file.canonicalFilePath();
}

QByteArray UriReader::read(const QString& uri, const std::string& place) {
  if (uri.startsWith(QLatin1String("data:"))) return dataOf(uri, place);
  QFile file(fileOf(uri, place));
  if (!file.open(QIODevice::ReadOnly)) {
    throw GltfUnreadable(place, file.errorString().toStdString());
  }
  if (std::size_t(file.size()) >= _budget) throw GltfRefusal(place, "is too large");
  const QByteArray bytes = file.readAll();
  if (file.error() != QFileDevice::NoError) {
    throw GltfUnreadable(place, file.errorString().toStdString());
  }
  _budget -= std::size_t(bytes.size());
  _files.push_back(file.fileName().toStdString());
  return bytes;
}

}  // namespace kuStandalone
