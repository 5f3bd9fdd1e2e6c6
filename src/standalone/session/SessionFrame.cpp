#include "standalone/session/SessionFrame.h"

#include <QDataStream>

#include "standalone/session/SessionStream.h"

namespace kuStandalone {

namespace {

constexpr quint32 kMagic = 0x6b755346;
constexpr int kNameCharacters = 64;
/** UTF-8 takes up to three bytes for each UTF-16 unit. */
constexpr int kNameBytes = 3 * kNameCharacters;
constexpr int kCheckBytes = 2;
constexpr int kUuidBytes = 16;

/** A text or block of bytes with its length before it. Marks the stream where that is too much. */
QByteArray readBlock(QDataStream& stream, qint64 most) {
  quint32 length = 0;
  stream >> length;
  if (length > most || length > stream.device()->bytesAvailable()) {
    stream.setStatus(QDataStream::ReadCorruptData);
    return {};
  }
  QByteArray block(int(length), Qt::Uninitialized);
  if (stream.readRawData(block.data(), int(length)) != int(length)) {
    stream.setStatus(QDataStream::ReadPastEnd);
  }
  return block;
}

/** A name as sessionName makes it; others have not made it so. */
QString readName(QDataStream& stream) {
  const QByteArray bytes = readBlock(stream, kNameBytes);
  const QString name = QString::fromUtf8(bytes);
  if (name.toUtf8() != bytes || sessionName(name) != name) {
    stream.setStatus(QDataStream::ReadCorruptData);
  }
  return name;
}

QUuid readId(QDataStream& stream) {
  char bytes[kUuidBytes] = {};
  if (stream.readRawData(bytes, kUuidBytes) != kUuidBytes) {
    stream.setStatus(QDataStream::ReadPastEnd);
  }
  return QUuid::fromRfc4122(QByteArray(bytes, kUuidBytes));
}

void writeBlock(QDataStream& stream, const QByteArray& block) {
  stream << quint32(block.size());
  stream.writeRawData(block.constData(), block.size());
}

void writeId(QDataStream& stream, const QUuid& id) {
  const QByteArray bytes = id.toRfc4122();
  stream.writeRawData(bytes.constData(), bytes.size());
}

SessionFrameReading broken(const char* reason) {
  SessionFrameReading reading;
  reading.reason = QString::fromLatin1(reason);
  return reading;
}

SessionFrameReading newer(SessionFrameReading reading, int version) {
  reading.status = SessionFrameReading::Status::Newer;
  reading.reason = QStringLiteral(
                       "it is of version %1 and this program of version %2: this program has to be "
                       "updated")
                       .arg(version)
                       .arg(kSessionVersion);
  return reading;
}

bool isKind(quint8 kind) { return kind >= 1 && kind <= 3; }

bool checks(const QByteArray& bytes) {
  const int covered = bytes.size() - kCheckBytes;
  if (covered < 0) return false;
  QDataStream stream(bytes.mid(covered));
  quint16 check = 0;
  stream >> check;
  return check == qChecksum(bytes.constData(), uint(covered));
}

/** Magic and version, then sender and name: so far every version begins alike. */
SessionFrameReading readHead(QDataStream& stream, quint16& version) {
  quint32 magic = 0;
  stream >> magic >> version;
  if (stream.status() != QDataStream::Ok || magic != kMagic) return broken("it is no frame");
  if (version == 0) return broken("its version is 0");
  SessionFrameReading reading;
  reading.frame.sender = readId(stream);
  reading.frame.senderName = readName(stream);
  return reading;
}

}  // namespace

QString sessionName(const QString& name) {
  QString clean;
  for (const QChar character : name.left(kNameCharacters)) {
    const bool isPlain = character.isPrint() && !character.isSurrogate();
    clean += isPlain ? character : QLatin1Char('?');
  }
  return clean;
}

QByteArray writeFrame(const SessionFrame& frame) {
  QByteArray bytes;
  QDataStream stream(&bytes, QIODevice::WriteOnly);
  prepareSessionStream(stream);
  stream << kMagic << kSessionVersion;
  writeId(stream, frame.sender);
  writeBlock(stream, sessionName(frame.senderName).toUtf8());
  stream << quint8(frame.kind);
  writeId(stream, frame.id);
  writeBlock(stream, sessionName(frame.type).toUtf8());
  writeBlock(stream, frame.payload);
  stream << qChecksum(bytes.constData(), uint(bytes.size()));
  return bytes;
}

SessionFrameReading readFrame(const QByteArray& bytes) {
  if (bytes.size() > kSessionFrameBytes) return broken("it is too long");
  QDataStream stream(bytes);
  prepareSessionStream(stream);
  quint16 version = 0;
  SessionFrameReading reading = readHead(stream, version);
  if (!reading.reason.isEmpty()) return reading;
  if (version > kSessionVersion) {
    if (stream.status() != QDataStream::Ok) reading.frame.senderName.clear();
    return newer(std::move(reading), version);
  }
  quint8 kind = 0;
  stream >> kind;
  reading.frame.id = readId(stream);
  reading.frame.type = readName(stream);
  reading.frame.payload = readBlock(stream, kSessionFrameBytes);
  quint16 check = 0;
  stream >> check;
  if (stream.status() != QDataStream::Ok) return broken("it is damaged or cut off");
  if (!stream.atEnd()) return broken("something stands behind it");
  if (!checks(bytes)) return broken("its checksum is wrong");
  if (!isKind(kind)) return broken("its kind is unknown");
  reading.frame.kind = SessionFrame::Kind(kind);
  reading.status = SessionFrameReading::Status::Whole;
  return reading;
}

}  // namespace kuStandalone
