#include <limits>

#include "host/utils/NodeUtils.h"
#include "host/utils/kuNodeUtils.h"
#include "standalone/scene/SceneNode.h"
#include "support/BracketRecorder.h"
#include "support/SceneTest.h"

using kuStandalone::SceneNode;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

constexpr std::uint64_t most = std::numeric_limits<std::uint64_t>::max();

struct StrippedRow {
  const char* rule;
  std::string name;
  bool hasNumber;
  std::string baseName;
  std::uint64_t number;
};

void PrintTo(const StrippedRow& row, std::ostream* out) { *out << row.rule; }

class StrippedNameTest : public ::testing::TestWithParam<StrippedRow> {};

class kuNodeNamesTest : public SceneTest {};

}  // namespace

TEST_P(StrippedNameTest, PartsANameFromItsTrailingNumber) {
  const StrippedRow& row = GetParam();
  const kuNodeUtils::StrippedName stripped = kuNodeUtils::getStrippedName(row.name);
  EXPECT_EQ(stripped.hasNumber, row.hasNumber);
  EXPECT_EQ(stripped.baseName, row.baseName);
  EXPECT_EQ(stripped.number, row.number);
}

INSTANTIATE_TEST_SUITE_P(
    Names, StrippedNameTest,
    ::testing::Values(StrippedRow{"NoName", "", false, "", 0},
                      StrippedRow{"NoNumber", "Box", false, "Box", 0},
                      StrippedRow{"Number", "Box12", true, "Box", 12},
                      StrippedRow{"NumberZero", "Box0", true, "Box", 0},
                      StrippedRow{"LeadingZeros", "Box007", true, "Box", 7},
                      StrippedRow{"OnlyANumber", "42", true, "", 42},
                      StrippedRow{"NumberInTheMiddle", "Box3Left", false, "Box3Left", 0},
                      StrippedRow{"SignIsNoPart", "Box-3", true, "Box-", 3},
                      StrippedRow{"SeparatorBehindALetterStays", "Wheel_3", true, "Wheel_", 3},
                      StrippedRow{"SeparatorBehindADigitGoes", "Bolt8_12", true, "Bolt8", 12},
                      StrippedRow{"OneOfSeveralSeparatorsGoes", "Bolt8__12", true, "Bolt8_", 12},
                      StrippedRow{"LargestNumber", "Box18446744073709551615", true, "Box", most},
                      StrippedRow{"TooLargeForANumber", "Box18446744073709551616", false,
                                  "Box18446744073709551616", 0},
                      StrippedRow{"OnlyDigitsWithoutEnd", std::string(100000, '9'), false,
                                  std::string(100000, '9'), 0},
                      StrippedRow{"NotUtf8",
                                  "B\xFF\xC3"
                                  "7",
                                  true, "B\xFF\xC3", 7},
                      StrippedRow{"ZeroByteInside", std::string("A\0B5", 4), true,
                                  std::string("A\0B", 3), 5}),
    [](const auto& row) { return std::string(row.param.rule); });

TEST_F(kuNodeNamesTest, NumberStandsBehindTheName) {
  EXPECT_EQ(kuNodeUtils::appendNumberToName("Box", 12), "Box12");
  EXPECT_EQ(kuNodeUtils::appendNumberToName("", 1), "1");
  EXPECT_EQ(kuNodeUtils::appendNumberToName("Box", most), "Box18446744073709551615");
}

TEST_F(kuNodeNamesTest, NumberBehindADigitIsSetApart) {
  EXPECT_EQ(kuNodeUtils::appendNumberToName("99999999999999999999", 1), "99999999999999999999_1");
  EXPECT_EQ(kuNodeUtils::appendNumberToName("Bolt8_", 1), "Bolt8__1");
}

TEST_F(kuNodeNamesTest, WhatIsPutTogetherIsPartedTheSameWay) {
  for (const char* base : {"", "Box", "Box3", "Box_", "Box3_", "Box3__", "_", "__", "7", "7_",
                           "\xFF", "Box99999999999999999999", "a7b_"}) {
    for (const std::uint64_t number :
         {std::uint64_t(0), std::uint64_t(1), std::uint64_t(90), most}) {
      const std::string name = kuNodeUtils::appendNumberToName(base, number);
      const kuNodeUtils::StrippedName stripped = kuNodeUtils::getStrippedName(name);
      EXPECT_TRUE(stripped.hasNumber) << name;
      EXPECT_EQ(stripped.baseName, base) << name;
      EXPECT_EQ(stripped.number, number) << name;
    }
  }
}

TEST_F(kuNodeNamesTest, FreeNumbersAreTheSmallestFromOneThatAreNotUsed) {
  EXPECT_THAT(kuNodeUtils::getFreeNumbers({}, 3), ElementsAre(1u, 2u, 3u));
  EXPECT_THAT(kuNodeUtils::getFreeNumbers({0, 1, 3, most}, 3), ElementsAre(2u, 4u, 5u));
  EXPECT_THAT(kuNodeUtils::getFreeNumbers({2, 4}, 0), IsEmpty());
}

TEST_F(kuNodeNamesTest, NodeTakesANameAndIsFoundByItAtOnce) {
  const auto box = scene.group("Box");
  BracketRecorder recorder;
  NodeUtils::setName(box, "Crate", true);
  EXPECT_STREQ(kuNodeUtils::getName(box), "Crate");
  EXPECT_EQ(kuScenegraph::findNode("Crate").getNode(), box);
  EXPECT_FALSE(kuScenegraph::findNode("Box").isValid());
  EXPECT_EQ(recorder.brackets().size(), 1u);
}

TEST_F(kuNodeNamesTest, NodeMayBeNamedByItsOwnName) {
  const auto box = scene.group("A name that is too long for a small text");
  NodeUtils::setName(box, kuNodeUtils::getName(box), true);
  EXPECT_STREQ(kuNodeUtils::getName(box), "A name that is too long for a small text");
}

TEST_F(kuNodeNamesTest, NullNodeOrNameChangesNothing) {
  const auto box = scene.group("Box");
  BracketRecorder recorder;
  NodeUtils::setName(osg::NullFC, "Name", true);
  NodeUtils::setName(box, nullptr, true);
  EXPECT_STREQ(kuNodeUtils::getName(box), "Box");
  EXPECT_THAT(recorder.brackets(), IsEmpty());
}

TEST_F(kuNodeNamesTest, RepairLeavesASoundNameAndANullNodeAlone) {
  const auto box = scene.group("Box\xFF");
  kuNodeUtils::fixBrokenNameAttachment(box);
  kuNodeUtils::fixBrokenNameAttachment(osg::NullFC);
  EXPECT_STREQ(kuNodeUtils::getName(box), "Box\xFF");
}
