#include "CommandBytes.h"
#include "manager/kuVariants.h"
#include "scene/kuLightVariant.h"
#include "scene/kuMaterialVariant.h"
#include "scene/kuNodeVariant.h"
#include "scene/kuOverlayVariant.h"
#include "scene/kuTransformVariant.h"
#include "session/kuSessionVariantCommand.h"
#include "support/SelectionScene.h"

using namespace CommandBytes;

namespace {

/** The scene has a variant of each kind; see SelectionScene. */
class SessionVariantWire : public SelectionScene {
 protected:
  static kuVariant* variantOf(VariantType type, const char* name) {
    return kuVariants::findVariant(type, name);
  }
  static std::string bytesOf(VariantType type, const char* name, const QString& state) {
    return hex(written(kuSessionVariantCommand(variantOf(type, name), state)));
  }
};

}  // namespace

TEST_F(SessionVariantWire, WholeCommandIsNameOldStateNewStateAndKind) {
  EXPECT_EQ(bytesOf(NodeVariantType, "Roof", "Closed"),
            "00000008"
            "0052006f006f0066"
            "00000008"
            "004f00700065006e"
            "0000000c"
            "0043006c006f007300650064"
            "00000002");
  EXPECT_EQ(bytesOf(LightVariantType, "Lamp", "!Toggle"),
            "00000008"
            "004c0061006d0070"
            "00000010"
            "002100440069007300610062006c0065"
            "0000000e"
            "00210054006f00670067006c0065"
            "00000000");
}

TEST_F(SessionVariantWire, KindIsTheLastNumber) {
  struct Row {
    VariantType type;
    const char* name;
    const char* kind;
  };
  for (const Row& row :
       {Row{LightVariantType, "Lamp", "00000000"}, Row{MaterialVariantType, "Paint", "00000001"},
        Row{NodeVariantType, "Roof", "00000002"}, Row{OverlayVariantType, "Badge", "00000003"},
        Row{TransformVariantType, "Door", "00000004"}}) {
    SCOPED_TRACE(row.name);
    const std::string bytes = bytesOf(row.type, row.name, "x");
    EXPECT_EQ(bytes.substr(bytes.size() - 8), row.kind);
  }
}

TEST_F(SessionVariantWire, VariantOfUnknownKindHasKindMinusOneAndNoState) {
  kuVariant plain;
  plain.setName("P");
  EXPECT_EQ(hex(written(kuSessionVariantCommand(&plain, "s"))),
            "00000002"
            "0050"
            "ffffffff"
            "00000002"
            "0073"
            "ffffffff");
}

TEST_F(SessionVariantWire, CommandWithoutVariantHasNullTextsAndKindMinusOne) {
  EXPECT_EQ(hex(written(kuSessionVariantCommand(nullptr, ""))),
            "ffffffff"
            "ffffffff"
            "00000000"
            "ffffffff");
}

TEST_F(SessionVariantWire, NullStateAndEmptyStateDiffer) {
  EXPECT_EQ(bytesOf(TransformVariantType, "Door", QString()),
            "00000008"
            "0044006f006f0072"
            "00000008"
            "0053006800750074"
            "ffffffff"
            "00000004");
  EXPECT_EQ(bytesOf(TransformVariantType, "Door", ""),
            "00000008"
            "0044006f006f0072"
            "00000008"
            "0053006800750074"
            "00000000"
            "00000004");
}

TEST_F(SessionVariantWire, KeyIsTheNameThenTheKind) {
  EXPECT_EQ(hex(key(kuSessionVariantCommand(variantOf(TransformVariantType, "Door"), "Ajar"))),
            "00000008"
            "0044006f006f0072"
            "00000004");
}

TEST_F(SessionVariantWire, KeysOfOneVariantAreEqualAlsoWithOtherStates) {
  kuVariant* roof = variantOf(NodeVariantType, "Roof");
  const QByteArray before = key(kuSessionVariantCommand(roof, "Closed"));
  roof->select("Closed");
  EXPECT_EQ(key(kuSessionVariantCommand(roof, "!Next")), before);
  kuVariants::createLightVariant("Roof", false);
  EXPECT_NE(key(kuSessionVariantCommand(variantOf(LightVariantType, "Roof"), "Closed")), before);
}

TEST_F(SessionVariantWire, TextsOutsideOfLatinGoAsTheyAre) {
  kuVariants::createNodeVariant(scene.switchNode(u8"Dächer", 0, {u8"😀", u8"閉"}), false);
  EXPECT_EQ(bytesOf(NodeVariantType, u8"Dächer", u8"閉"),
            "0000000c"
            "004400e40063006800650072"
            "00000004"
            "d83dde00"
            "00000002"
            "9589"
            "00000002");
}

TEST_F(SessionVariantWire, WhatIsReadIsWrittenAgainByteForByte) {
  for (const char* bytes :
       {"00000002 0052 00000002 0041 00000002 0042 00000002", "ffffffff 00000000 ffffffff ffffffff",
        "00000000 ffffffff 00000000 80000000",
        "00000004 d83dde00 00000002 d83d 00000002 0000 00000063"}) {
    SCOPED_TRACE(bytes);
    kuSessionVariantCommand command(nullptr, "initial");
    EXPECT_TRUE(readWhole(command, QByteArray::fromHex(bytes)));
    EXPECT_EQ(hex(written(command)), hex(QByteArray::fromHex(bytes)));
  }
}

TEST_F(SessionVariantWire, CommandThatEndsTooSoonLeavesTheStreamFailed) {
  const auto whole = QByteArray::fromHex("00000002 0052 00000002 0041 00000002 0042 00000002");
  for (int length = 0; length < whole.size(); ++length) {
    SCOPED_TRACE(length);
    kuSessionVariantCommand command(nullptr, "");
    EXPECT_EQ(read(command, whole.left(length)), (Rest{0, QDataStream::ReadPastEnd}));
  }
}

TEST_F(SessionVariantWire, VersionAndByteOrderAreTheStreams) {
  QByteArray bytes;
  QDataStream stream(&bytes, QIODevice::WriteOnly);
  stream.setByteOrder(QDataStream::LittleEndian);
  kuSessionVariantCommand(variantOf(NodeVariantType, "Roof"), "x").write(stream);
  EXPECT_EQ(hex(bytes),
            "08000000"
            "52006f006f006600"
            "08000000"
            "4f00700065006e00"
            "02000000"
            "7800"
            "02000000");
}
