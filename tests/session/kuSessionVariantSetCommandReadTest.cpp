#include <gtest/gtest.h>

#include "CommandBytes.h"
#include "session/kuSessionVariantSetCommand.h"

// Bytes come from the network: whatever they claim, no more is made of them than they hold.

using namespace CommandBytes;

namespace {

/** "S", the cursor 1; the number of tables follows. */
const char beginning[] = "00000002 0053 00000001";

QByteArray bytesOf(const char* tables) {
  return QByteArray::fromHex(beginning + QByteArray(tables));
}

}  // namespace

TEST(SessionSetRead, ImpossibleNumberOfTablesMarksTheStreamAsCorruptAndMakesNoTable) {
  struct Row {
    const char* name;
    const char* tables;
    int left;
  };
  for (const Row& row :
       {Row{"-1", "ffffffff 00000000", 4}, Row{"the least number", "80000000 00000000", 4},
        Row{"2,000,000,000", "77359400 00000000", 4}, Row{"the greatest", "7fffffff", 0},
        Row{"one where nothing follows", "00000001", 0},
        Row{"one where not even its number of entries follows", "00000001 000000", 3},
        Row{"one more than can follow", "00000003 00000000 00000000", 8}}) {
    SCOPED_TRACE(row.name);
    kuSessionVariantSetCommand command(nullptr, true, false);
    EXPECT_EQ(read(command, bytesOf(row.tables)), (Rest{row.left, QDataStream::ReadCorruptData}));
    EXPECT_EQ(hex(written(command)), hex(bytesOf("00000000")));
  }
}

TEST(SessionSetRead, AsManyTablesAsTheBytesHoldAreRead) {
  for (const char* tables : {"00000000", "00000001 00000000", "00000002 00000000 00000000",
                             "00000006 00000000 00000000 00000000 00000000 00000000 00000000"}) {
    SCOPED_TRACE(tables);
    kuSessionVariantSetCommand command(nullptr, true, false);
    EXPECT_TRUE(readWhole(command, bytesOf(tables)));
    EXPECT_EQ(hex(written(command)), hex(bytesOf(tables)));
  }
}

TEST(SessionSetRead, ImpossibleNumberOfEntriesLeavesTheStreamFailedAndTheTableEmpty) {
  for (const char* entries : {"ffffffff", "80000000", "77359400", "00000002"}) {
    SCOPED_TRACE(entries);
    kuSessionVariantSetCommand command(nullptr, true, false);
    const QByteArray bytes =
        bytesOf(QByteArray("00000001") + entries + "00000002 0061 00000002 0062");
    EXPECT_EQ(read(command, bytes), (Rest{0, QDataStream::ReadPastEnd}));
    EXPECT_EQ(hex(written(command)), hex(bytesOf("00000001 00000000")));
  }
}

TEST(SessionSetRead, TextOfAnImpossibleLengthLeavesTheStreamFailed) {
  struct Row {
    const char* bytes;
    QDataStream::Status status;
  };
  for (const Row& row : {Row{"77359400 0053", QDataStream::ReadPastEnd},
                         Row{"fffffffe 0053", QDataStream::ReadPastEnd},
                         Row{"00000003 005300", QDataStream::ReadCorruptData}}) {
    SCOPED_TRACE(row.bytes);
    kuSessionVariantSetCommand command(nullptr, true, false);
    EXPECT_EQ(read(command, QByteArray::fromHex(row.bytes)).status, row.status);
  }
}

TEST(SessionSetRead, CommandThatEndsAnywhereTooSoonLeavesTheStreamFailed) {
  const QByteArray whole =
      bytesOf("00000002 00000002 00000002 0062 00000000 00000002 0061 ffffffff 00000000");
  kuSessionVariantSetCommand command(nullptr, true, false);
  ASSERT_TRUE(readWhole(command, whole));
  for (int length = 0; length < whole.size(); ++length) {
    SCOPED_TRACE(length);
    kuSessionVariantSetCommand cut(nullptr, true, false);
    EXPECT_NE(read(cut, whole.left(length)).status, QDataStream::Ok);
  }
}

TEST(SessionSetRead, WhatStandsBehindTheCommandStaysInTheStream) {
  kuSessionVariantSetCommand command(nullptr, true, false);
  EXPECT_EQ(read(command, bytesOf("00000001 00000000 abcdef")), (Rest{3, QDataStream::Ok}));
}

TEST(SessionSetRead, CommandIsReadAnewOverWhatItHeld) {
  kuSessionVariantSetCommand command(nullptr, true, false);
  ASSERT_TRUE(readWhole(command, bytesOf("00000002 00000001 00000000 00000000 00000000")));
  ASSERT_TRUE(readWhole(command, bytesOf("00000001 00000000")));
  EXPECT_EQ(hex(written(command)), hex(bytesOf("00000001 00000000")));
}

TEST(SessionSetRead, StreamWithoutADeviceGivesNoTables) {
  kuSessionVariantSetCommand command(nullptr, true, false);
  QDataStream stream;
  command.read(stream);
  EXPECT_EQ(hex(written(command)).substr(8), "0000000000000000");
}
