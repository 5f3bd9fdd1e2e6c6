#include "standalone/session/SessionFrame.h"

#include <gtest/gtest.h>

#include <QDataStream>

using namespace kuStandalone;
using Status = SessionFrameReading::Status;

namespace {

SessionFrame sample() {
  SessionFrame frame;
  frame.kind = SessionFrame::Kind::Command;
  frame.id = QUuid("{00112233-4455-6677-8899-aabbccddeeff}");
  frame.sender = QUuid("{ffeeddcc-bbaa-9988-7766-554433221100}");
  frame.senderName = QStringLiteral("Ada Löw");
  frame.type = QStringLiteral("SelectVariant");
  frame.payload = QByteArray("\0payload\xff", 9);
  return frame;
}

/** Where things stand in the bytes of the sample. */
constexpr int kVersionAt = 4, kNameLengthAt = 22, kKindAt = 34, kTypeLengthAt = 51,
              kPayloadLengthAt = 68;

/** The bytes of the sample with others in one place, and the checksum that they then have. */
QByteArray changed(int at, const QByteArray& bytes) {
  QByteArray all = writeFrame(sample());
  all.replace(at, bytes.size(), bytes);
  all.chop(2);
  const quint16 check = qChecksum(all.constData(), uint(all.size()));
  return all + char(check >> 8) + char(check & 0xff);
}

QByteArray number(quint32 value) {
  QByteArray bytes;
  QDataStream(&bytes, QIODevice::WriteOnly) << value;
  return bytes;
}

std::string reasonOf(const QByteArray& bytes) {
  const SessionFrameReading reading = readFrame(bytes);
  EXPECT_EQ(reading.status, Status::Broken);
  return reading.reason.toStdString();
}

}  // namespace

TEST(SessionFrameTest, WhatWasWrittenIsReadAgain) {
  const SessionFrameReading reading = readFrame(writeFrame(sample()));
  ASSERT_EQ(reading.status, Status::Whole) << reading.reason.toStdString();
  EXPECT_EQ(reading.frame.kind, sample().kind);
  EXPECT_EQ(reading.frame.id, sample().id);
  EXPECT_EQ(reading.frame.sender, sample().sender);
  EXPECT_EQ(reading.frame.senderName, sample().senderName);
  EXPECT_EQ(reading.frame.type, sample().type);
  EXPECT_EQ(reading.frame.payload, sample().payload);
  EXPECT_EQ(writeFrame(reading.frame), writeFrame(sample()));
}

TEST(SessionFrameTest, AnEmptyFrameIsOne) {
  EXPECT_EQ(readFrame(writeFrame(SessionFrame())).status, Status::Whole);
}

TEST(SessionFrameTest, TheBytesAreTheSameOnEveryMachine) {
  EXPECT_EQ(writeFrame(sample()).toHex(),
            "6b7553460001ffeeddccbbaa9988776655443322110000000008416461204cc3b677"
            "0100112233445566778899aabbccddeeff0000000d53656c65637456617269616e74"
            "00000009007061796c6f6164ff" +
                writeFrame(sample()).right(2).toHex());
}

TEST(SessionFrameTest, EveryTruncationIsBroken) {
  const QByteArray whole = writeFrame(sample());
  for (int length = 0; length < whole.size(); ++length)
    EXPECT_EQ(readFrame(whole.left(length)).status, Status::Broken) << length;
}

TEST(SessionFrameTest, EveryFlippedBitIsBrokenOrANewerVersion) {
  const QByteArray whole = writeFrame(sample());
  for (int bit = 0; bit < 8 * whole.size(); ++bit) {
    QByteArray flipped = whole;
    flipped[bit / 8] = char(flipped[bit / 8] ^ (1 << bit % 8));
    const bool isVersion = bit / 8 == kVersionAt || bit / 8 == kVersionAt + 1;
    const Status expected =
        isVersion && bit != 8 * (kVersionAt + 1) ? Status::Newer : Status::Broken;
    EXPECT_EQ(readFrame(flipped).status, expected) << "bit " << bit;
  }
}

TEST(SessionFrameTest, EveryOtherByteIsBrokenOrANewerVersion) {
  const QByteArray whole = writeFrame(sample());
  for (int at = 0; at < whole.size(); ++at) {
    for (int value = 0; value < 256; ++value) {
      QByteArray other = whole;
      other[at] = char(value);
      const bool isWhole = readFrame(other).status == Status::Whole;
      EXPECT_EQ(isWhole, other == whole) << at << " " << value;
    }
  }
}

TEST(SessionFrameTest, LengthsBeyondTheBytesAreNotBelieved) {
  for (const int at : {kNameLengthAt, kTypeLengthAt, kPayloadLengthAt}) {
    for (const quint32 length : {200u, 0x7fffffffu, 0x80000000u, 0xffffffffu, 2'000'000'000u})
      EXPECT_EQ(reasonOf(changed(at, number(length))), "it is damaged or cut off")
          << at << " " << length;
  }
}

TEST(SessionFrameTest, AnUnknownKindIsBroken) {
  EXPECT_EQ(reasonOf(changed(kKindAt, QByteArray(1, '\0'))), "its kind is unknown");
  EXPECT_EQ(reasonOf(changed(kKindAt, "\4")), "its kind is unknown");
  EXPECT_EQ(readFrame(changed(kKindAt, "\2")).frame.kind, SessionFrame::Kind::Script);
}

TEST(SessionFrameTest, NamesThatNobodyWritesAreBroken) {
  EXPECT_EQ(reasonOf(changed(kNameLengthAt + 4, "A\nb")), "it is damaged or cut off");
  EXPECT_EQ(reasonOf(changed(kNameLengthAt + 4, "\xff\xfe")), "it is damaged or cut off");
}

TEST(SessionFrameTest, WhatStandsBehindIsBroken) {
  EXPECT_EQ(reasonOf(writeFrame(sample()) + '\0'), "something stands behind it");
}

TEST(SessionFrameTest, AFrameThatIsTooLongIsBroken) {
  SessionFrame frame = sample();
  frame.payload = QByteArray(kSessionFrameBytes, 'x');
  EXPECT_EQ(reasonOf(writeFrame(frame)), "it is too long");
  EXPECT_EQ(reasonOf(QByteArray(10 << 20, 'x')), "it is too long");
}

TEST(SessionFrameTest, TheLongestFrameIsWhole) {
  SessionFrame frame;
  frame.payload = QByteArray(kSessionFrameBytes - writeFrame(frame).size(), 'x');
  EXPECT_EQ(writeFrame(frame).size(), kSessionFrameBytes);
  EXPECT_EQ(readFrame(writeFrame(frame)).status, Status::Whole);
  frame.payload += 'x';
  EXPECT_EQ(reasonOf(writeFrame(frame)), "it is too long");
}

TEST(SessionFrameTest, ANewerVersionTellsWhoSpeaksIt) {
  const SessionFrameReading reading = readFrame(changed(kVersionAt, QByteArray("\0\2", 2)));
  EXPECT_EQ(reading.status, Status::Newer);
  EXPECT_EQ(reading.frame.senderName, sample().senderName);
  EXPECT_EQ(reading.frame.sender, sample().sender);
  EXPECT_EQ(reading.reason,
            "it is of version 2 and this program of version 1: this program has to be updated");
}

TEST(SessionFrameTest, ANewerVersionOfAnotherFormHasNoName) {
  const QByteArray bytes = changed(kVersionAt, QByteArray("\0\2", 2)).left(kNameLengthAt + 2);
  EXPECT_EQ(readFrame(bytes).status, Status::Newer);
  EXPECT_EQ(readFrame(bytes).frame.senderName, QString());
}

TEST(SessionFrameTest, AVersionOfZeroIsBroken) {
  EXPECT_EQ(reasonOf(changed(kVersionAt, QByteArray("\0\0", 2))), "its version is 0");
}

TEST(SessionFrameTest, NamesTravelWithoutControlCharactersAndNotTooLong) {
  struct Row {
    const char* name;
    QString given, expected;
  };
  const Row rows[] = {
      {"plain", "Ada", "Ada"},
      {"empty", "", ""},
      {"accents", QString::fromUtf8("Löw 雪"), QString::fromUtf8("Löw 雪")},
      {"line feed", "A\nb", "A?b"},
      {"escape", "\x1b[2J", "?[2J"},
      {"direction override", QString(QChar(0x202e)) + "Ada", "?Ada"},
      {"lone surrogate", QString(QChar(0xd800)), "?"},
      {"long", QString(100, 'x'), QString(64, 'x')},
  };
  for (const Row& row : rows)
    EXPECT_EQ(sessionName(row.given), row.expected) << row.name;
}
