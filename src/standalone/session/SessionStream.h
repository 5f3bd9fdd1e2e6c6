#pragma once

#include <QDataStream>

namespace kuStandalone {

/** The one form in which the session's streams are written and read, on every machine. */
inline void prepareSessionStream(QDataStream& stream) {
  stream.setVersion(QDataStream::Qt_5_12);
  stream.setByteOrder(QDataStream::BigEndian);
}

}  // namespace kuStandalone
