#include <QJsonDocument>
#include <QtEndian>

#include "standalone/gltf/GltfJson.h"
#include "standalone/gltf/JsonText.h"

namespace kuStandalone {
namespace {

constexpr quint32 jsonChunk = 0x4E4F534A;
constexpr quint32 binaryChunk = 0x004E4942;
constexpr int headerSize = 12;
constexpr int chunkHeaderSize = 8;

quint32 numberAt(const QByteArray& bytes, int offset) {
  return qFromLittleEndian<quint32>(bytes.constData() + offset);
}

/** The chunk at @p offset, which moves behind it. */
QByteArray takeChunk(const QByteArray& bytes, int& offset, quint32 type, const char* place) {
  if (bytes.size() - offset < chunkHeaderSize) throw GltfRefusal(place, "is cut short");
  const quint32 length = numberAt(bytes, offset);
  if (numberAt(bytes, offset + 4) != type) throw GltfRefusal(place, "is of the wrong type");
  offset += chunkHeaderSize;
  if (length > quint32(bytes.size() - offset)) throw GltfRefusal(place, "is cut short");
  const QByteArray chunk = bytes.mid(offset, int(length));
  offset += int(length);
  return chunk;
}

QJsonObject parseObject(const QByteArray& text) {
  checkJsonText(text);
  QJsonParseError error;
  const QJsonDocument document = QJsonDocument::fromJson(text, &error);
  if (error.error != QJsonParseError::NoError) {
    throw GltfRefusal("byte " + std::to_string(error.offset), error.errorString().toStdString());
  }
  if (!document.isObject()) throw GltfRefusal({}, "is no JSON object");
  return document.object();
}

}  // namespace

GltfContent parseGltf(const QByteArray& bytes) {
  if (bytes.isEmpty()) throw GltfRefusal({}, "is empty");
  if (!bytes.startsWith("glTF")) return {parseObject(bytes), {}};
  if (bytes.size() < headerSize) throw GltfRefusal("header", "is cut short");
  if (numberAt(bytes, 4) != 2) throw GltfRefusal("header", "is not of version 2");
  if (numberAt(bytes, 8) != quint32(bytes.size())) {
    throw GltfRefusal("header", "the length is not that of the file");
  }
  int offset = headerSize;
  GltfContent content;
  content.root = parseObject(takeChunk(bytes, offset, jsonChunk, "chunk 0"));
  if (offset < bytes.size()) content.binary = takeChunk(bytes, offset, binaryChunk, "chunk 1");
  return content;
}

}  // namespace kuStandalone
