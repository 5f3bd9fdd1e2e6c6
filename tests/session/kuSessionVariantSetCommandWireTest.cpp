#include <random>

#include "CommandBytes.h"
#include "manager/kuVariants.h"
#include "scene/kuNodeVariant.h"
#include "session/kuSessionVariantSetCommand.h"
#include "support/SelectionScene.h"
#include "support/kuVariantsTestAccess.h"

using namespace CommandBytes;

namespace {

using Tables = QVector<QMap<QString, QString>>;

class SessionSetWire : public SelectionScene {
 protected:
  std::string bytes() { return hex(written(kuSessionVariantSetCommand(&set(), true, false))); }
};

/** The standard form of the same content. */
QByteArray standardForm(const QString& name, int cursor, const Tables& tables) {
  QByteArray bytes;
  QDataStream stream(&bytes, QIODevice::WriteOnly);
  stream << name << qint32(cursor) << tables;
  return bytes;
}

/** Texts of all lengths from a small alphabet, the null and the empty one among them. */
QString anyText(std::mt19937& random) {
  if (random() % 5 == 0) return random() % 2 ? QString() : QString("");
  QString text;
  for (unsigned length = random() % 6; length > 0; --length)
    text += QString::fromUtf8(u8"aZ!ä閉 ").at(int(random() % 6));
  return text;
}

Tables anyTables(std::mt19937& random) {
  Tables tables(int(random() % 8));
  for (auto& table : tables) {
    for (unsigned entries = random() % 6; entries > 0; --entries)
      table[anyText(random)] = anyText(random);
  }
  return tables;
}

}  // namespace

TEST_F(SessionSetWire, WholeCommandIsNameCursorAndTheTablesOfTheKindsInTheirOrder) {
  fill();
  kuVariantsTestAccess::animationCursor(set()) = 1;
  EXPECT_EQ(bytes(),
            // Summer, the cursor, five tables
            "0000000c"
            "00530075006d006d00650072"
            "00000001"
            "00000005"
            // Roof: Open
            "00000001"
            "00000008"
            "0052006f006f0066"
            "00000008"
            "004f00700065006e"
            // Paint: Red
            "00000001"
            "0000000a"
            "005000610069006e0074"
            "00000006"
            "005200650064"
            // Door: Shut
            "00000001"
            "00000008"
            "0044006f006f0072"
            "00000008"
            "0053006800750074"
            // Lamp: !Disable
            "00000001"
            "00000008"
            "004c0061006d0070"
            "00000010"
            "002100440069007300610062006c0065"
            // Badge: Small
            "00000001"
            "0000000a"
            "00420061006400670065"
            "0000000a"
            "0053006d0061006c006c");
}

TEST_F(SessionSetWire, EntriesOfATableGoFromTheLastKeyToTheFirst) {
  for (const char* name : {"b", "c", "a"}) {
    kuVariants::createNodeVariant(scene.switchNode(name, 0, {"s"}), false);
    set().addNodeVariant(name, "x");
  }
  EXPECT_EQ(bytes(),
            "0000000c"
            "00530075006d006d00650072"
            "00000000"
            "00000005"
            "00000003"
            "00000002"
            "0063"
            "00000002"
            "0073"
            "00000002"
            "0062"
            "00000002"
            "0073"
            "00000002"
            "0061"
            "00000002"
            "0073"
            "00000000"
            "00000000"
            "00000000"
            "00000000");
}

TEST_F(SessionSetWire, NegativeCursorGoesAsItIs) {
  kuVariantsTestAccess::animationCursor(set()) = -2;
  EXPECT_EQ(bytes(),
            "0000000c"
            "00530075006d006d00650072"
            "fffffffe"
            "00000005"
            "00000000"
            "00000000"
            "00000000"
            "00000000"
            "00000000");
}

TEST_F(SessionSetWire, CommandWithoutSetHasTheNumberZeroAndNoTables) {
  EXPECT_EQ(hex(written(kuSessionVariantSetCommand(nullptr, true, false))),
            "ffffffff"
            "00000000"
            "00000000");
}

TEST_F(SessionSetWire, FlagsOfTheSelectionDoNotTravel) {
  fill();
  const QByteArray one = written(kuSessionVariantSetCommand(&set(), true, false));
  EXPECT_EQ(written(kuSessionVariantSetCommand(&set(), false, true)), one);
}

TEST_F(SessionSetWire, KeyIsTheNameAlone) {
  fill();
  const std::string name =
      "0000000c"
      "00530075006d006d00650072";
  EXPECT_EQ(hex(key(kuSessionVariantSetCommand(&set(), true, false))), name);
  set().select(true, false, false);
  set().clear();
  EXPECT_EQ(hex(key(kuSessionVariantSetCommand(&set(), false, true))), name);
}

TEST_F(SessionSetWire, TablesHaveTheStandardFormOfAVectorOfMaps) {
  std::mt19937 random(1);
  for (int round = 0; round < 500; ++round) {
    SCOPED_TRACE(round);
    const QByteArray standard = standardForm(anyText(random), int(random()), anyTables(random));
    kuSessionVariantSetCommand command(nullptr, true, false);
    ASSERT_TRUE(readWhole(command, standard));
    ASSERT_EQ(hex(written(command)), hex(standard));
  }
}

TEST_F(SessionSetWire, StandardReaderOfAVectorOfMapsReadsTheTables) {
  fill();
  const QByteArray sent = written(kuSessionVariantSetCommand(&set(), true, false));
  QDataStream stream(sent);
  QString name;
  qint32 cursor = -1;
  Tables tables;
  stream >> name >> cursor >> tables;
  EXPECT_TRUE(stream.atEnd());
  EXPECT_EQ(name, "Summer");
  EXPECT_EQ(cursor, 0);
  EXPECT_EQ(tables, (Tables{{{"Roof", "Open"}},
                            {{"Paint", "Red"}},
                            {{"Door", "Shut"}},
                            {{"Lamp", "!Disable"}},
                            {{"Badge", "Small"}}}));
}

TEST_F(SessionSetWire, NullTextsAndEmptyTextsDiffer) {
  const auto bytes = QByteArray::fromHex(
      "00000000 00000000 00000001 00000002 00000002 0062 00000000 00000002 0061 ffffffff");
  kuSessionVariantSetCommand command(nullptr, true, false);
  ASSERT_TRUE(readWhole(command, bytes));
  EXPECT_EQ(hex(written(command)), hex(bytes));
}

TEST_F(SessionSetWire, VersionAndByteOrderAreTheStreams) {
  QByteArray bytes;
  QDataStream stream(&bytes, QIODevice::WriteOnly);
  stream.setByteOrder(QDataStream::LittleEndian);
  kuVariantSet empty("S");
  kuSessionVariantSetCommand(&empty, true, false).write(stream);
  EXPECT_EQ(hex(bytes),
            "02000000"
            "5300"
            "00000000"
            "05000000"
            "00000000"
            "00000000"
            "00000000"
            "00000000"
            "00000000");
}
