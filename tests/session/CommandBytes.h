#pragma once

#include <QByteArray>
#include <QDataStream>
#include <string>

#include "host/session/kuSessionCommand.h"

/** A command as it goes over the wire, and the other way round. Texts are hexadecimal. */
namespace CommandBytes {

inline std::string hex(const QByteArray& bytes) { return bytes.toHex().toStdString(); }

inline QByteArray written(const kuSessionCommand& command) {
  QByteArray bytes;
  QDataStream stream(&bytes, QIODevice::WriteOnly);
  command.write(stream);
  return bytes;
}

inline QByteArray key(const kuSessionCommand& command) {
  QByteArray bytes;
  QDataStream stream(&bytes, QIODevice::WriteOnly);
  command.writeKey(stream);
  return bytes;
}

/** What is left of the bytes after the command, and how the stream stands. */
struct Rest {
  qint64 bytes;
  QDataStream::Status status;
  bool operator==(const Rest& other) const {
    return bytes == other.bytes && status == other.status;
  }
};

inline Rest read(kuSessionCommand& command, const QByteArray& bytes) {
  QDataStream stream(bytes);
  command.read(stream);
  return {stream.device()->bytesAvailable(), stream.status()};
}

/** Whether the bytes are a whole command and nothing more. */
inline bool readWhole(kuSessionCommand& command, const QByteArray& bytes) {
  return read(command, bytes) == Rest{0, QDataStream::Ok};
}

}  // namespace CommandBytes
