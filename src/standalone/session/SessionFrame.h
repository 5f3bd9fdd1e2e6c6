#pragma once

#include <QByteArray>
#include <QString>
#include <QUuid>
#include <cstdint>

#include "host/kuHostExport.h"

namespace kuStandalone {

/** The version of the protocol that this host speaks. */
constexpr std::uint16_t kSessionVersion = 1;

/** What travels between partners, around what a command writes of itself. */
struct SessionFrame {
  enum class Kind : std::uint8_t { Command = 1, Script = 2, Presence = 3 };

  Kind kind = Kind::Command;
  /** Of this frame; it keeps it however often it is sent. */
  QUuid id;
  QUuid sender;
  /** The sender's name for people. */
  QString senderName;
  /** The registered name of a command's class; empty for the other kinds. */
  QString type;
  QByteArray payload;
};

/** Bytes that were read as a frame. */
struct SessionFrameReading {
  enum class Status {
    Whole,
    Broken,
    /** Of a newer version: nothing but sender and senderName is to be relied on. */
    Newer
  };

  Status status = Status::Broken;
  SessionFrame frame;
  /** Why it is not whole, for people. */
  QString reason;
};

/** The longest frame, whatever the broker allows. */
constexpr int kSessionFrameBytes = 1 << 20;

/** A name as it travels: without control characters, cut after 64 characters. */
KUHOST_EXPORT QString sessionName(const QString& name);

KUHOST_EXPORT QByteArray writeFrame(const SessionFrame& frame);

/** Reads a frame of any bytes; allocates no more than their length. */
KUHOST_EXPORT SessionFrameReading readFrame(const QByteArray& bytes);

}  // namespace kuStandalone
