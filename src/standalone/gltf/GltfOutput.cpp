#include "standalone/gltf/GltfOutput.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QtEndian>

#include "standalone/gltf/GltfJson.h"

namespace kuStandalone {
namespace {

constexpr quint32 jsonChunk = 0x4E4F534A;
constexpr quint32 binaryChunk = 0x004E4942;
constexpr qint64 headerSize = 12, chunkHeaderSize = 8;

QString dataUri(const QByteArray& bytes, const QString& type) {
  return "data:" + type + ";base64," + QString::fromLatin1(bytes.toBase64());
}

QString pictureType(const QByteArray& bytes) {
  if (bytes.startsWith("\x89PNG")) return "image/png";
  if (bytes.startsWith("\xFF\xD8\xFF")) return "image/jpeg";
  return "application/octet-stream";
}

bool standsInside(const QJsonObject& entry) {
  return entry.value("uri").toString().startsWith("data:");
}

QString typeOf(const QByteArray& bytes, bool picture) {
  return picture ? pictureType(bytes) : QString("application/octet-stream");
}

/** Puts the bytes of a list's entries, from @p first on, in the place of the files they name. */
void embed(QJsonObject& root, const char* list, const std::vector<QByteArray>& bytes, int first,
           bool pictures) {
  QJsonArray entries = root.value(QLatin1String(list)).toArray();
  for (int index = first; index < entries.size() && std::size_t(index) < bytes.size(); ++index) {
    QJsonObject entry = entries[index].toObject();
    const QByteArray& own = bytes[std::size_t(index)];
    if (own.isEmpty() || standsInside(entry)) continue;
    entry["uri"] = dataUri(own, typeOf(own, pictures));
    entries[index] = entry;
  }
  if (!entries.isEmpty()) root[QLatin1String(list)] = entries;
}

void appendNumber(QByteArray& file, quint32 number) {
  char bytes[4];
  qToLittleEndian(number, bytes);
  file.append(bytes, sizeof bytes);
}

QByteArray padded(QByteArray bytes, char filling) {
  return bytes.append((4 - bytes.size() % 4) % 4, filling);
}

void appendChunk(QByteArray& file, quint32 type, const QByteArray& bytes) {
  appendNumber(file, quint32(bytes.size()));
  appendNumber(file, type);
  file.append(bytes);
}

}  // namespace

QByteArray textFile(QJsonObject root, const GltfSource& data) {
  embed(root, "buffers", data.buffers, 0, false);
  embed(root, "images", data.images, 0, true);
  return QJsonDocument(root).toJson(QJsonDocument::Indented);
}

QByteArray binaryFile(QJsonObject root, const GltfSource& data) {
  const bool withBinary = !data.buffers.empty() && !data.buffers.front().isEmpty();
  embed(root, "buffers", data.buffers, withBinary ? 1 : 0, false);
  embed(root, "images", data.images, 0, true);
  if (withBinary) {
    QJsonArray buffers = root.value("buffers").toArray();
    QJsonObject first = buffers[0].toObject();
    first.remove("uri");
    buffers[0] = first;
    root["buffers"] = buffers;
  }
  const QByteArray text = padded(QJsonDocument(root).toJson(QJsonDocument::Compact), ' ');
  const QByteArray binary = withBinary ? padded(data.buffers.front(), '\0') : QByteArray();
  const qint64 size = headerSize + chunkHeaderSize + text.size() +
                      (withBinary ? chunkHeaderSize + binary.size() : 0);
  if (size > std::numeric_limits<int>::max()) throw GltfRefusal({}, "the scene is too large");
  QByteArray file("glTF");
  file.reserve(int(size));
  appendNumber(file, 2);
  appendNumber(file, quint32(size));
  appendChunk(file, jsonChunk, text);
  if (withBinary) appendChunk(file, binaryChunk, binary);
  return file;
}

}  // namespace kuStandalone
