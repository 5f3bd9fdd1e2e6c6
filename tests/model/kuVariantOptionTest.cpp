#include "model/kuVariantOption.h"

#include <gtest/gtest.h>

#include "manager/kuVariants.h"

namespace {

struct HotkeyRow {
  const char* text;
  int key;
  unsigned modifier;
};

class HotkeyText : public ::testing::TestWithParam<HotkeyRow> {};

TEST_P(HotkeyText, GivesKeyAndModifiersOfItsFirstCombination) {
  int key = 99;
  QFlags<Qt::KeyboardModifier> modifier = Qt::AltModifier;
  kuVariants::mapHotkey(GetParam().text, key, modifier);
  EXPECT_EQ(key, GetParam().key);
  EXPECT_EQ(static_cast<unsigned>(modifier), GetParam().modifier);
}

INSTANTIATE_TEST_SUITE_P(
    kuVariants, HotkeyText,
    ::testing::Values(HotkeyRow{"", 0, 0}, HotkeyRow{"A", 0x41, 0},
                      HotkeyRow{"Ctrl+A", 0x41, 0x04000000}, HotkeyRow{"F5", 0x01000034, 0},
                      HotkeyRow{"Ctrl+Shift+F5", 0x01000034, 0x06000000},
                      HotkeyRow{"Alt+B, Ctrl+C", 0x42, 0x08000000}, HotkeyRow{"no such key", 0, 0},
                      HotkeyRow{"Ctrl+no such key", 0, 0}, HotkeyRow{"Ctrl+", 0, 0}));

TEST(kuVariantOptionTest, NewOneIsEmptyAndNoAction) {
  const kuVariantOption option;
  EXPECT_EQ(option.getName(), "");
  EXPECT_EQ(option.getHotkey(), "");
  EXPECT_EQ(option.getShortcutKey(), 0);
  EXPECT_EQ(option.getShortcutModifier(), 0);
  EXPECT_FALSE(option.getAction());
}

TEST(kuVariantOptionTest, ConstructorsDeriveTheShortcut) {
  const kuVariantOption step(true, "!Next", "Ctrl+A");
  EXPECT_TRUE(step.getAction());
  EXPECT_EQ(step.getName(), "!Next");
  EXPECT_EQ(step.getShortcutKey(), Qt::Key_A);
  EXPECT_EQ(step.getShortcutModifier(), Qt::ControlModifier);
  const kuVariantOption state(QString("Open"), "B");
  EXPECT_FALSE(state.getAction());
  EXPECT_EQ(state.getShortcutKey(), Qt::Key_B);
}

TEST(kuVariantOptionTest, SetHotkeyKeepsTheTextAndReplacesTheShortcut) {
  kuVariantOption option(QString("Open"), "Ctrl+A");
  option.setHotkey("no such key");
  EXPECT_EQ(option.getHotkey(), "no such key");
  EXPECT_EQ(option.getShortcutKey(), 0);
  EXPECT_EQ(option.getShortcutModifier(), 0);
}

TEST(kuVariantOptionTest, ConstructorsWithoutAHotkeyLeaveTheShortcutAtZero) {
  const kuVariantOption named(QString("Open"));
  const kuVariantOption step(true, QString("!Next"));
  EXPECT_EQ(named.getName(), "Open");
  EXPECT_FALSE(named.getAction());
  EXPECT_EQ(step.getName(), "!Next");
  EXPECT_TRUE(step.getAction());
  for (const kuVariantOption* option : {&named, &step}) {
    EXPECT_EQ(option->getHotkey(), "");
    EXPECT_EQ(option->getShortcutKey(), 0);
    EXPECT_EQ(option->getShortcutModifier(), 0);
  }
}

TEST(kuVariantOptionTest, TheActionFlagOfEveryConstructorIsTheOneGiven) {
  EXPECT_FALSE(kuVariantOption(false, QString("Open")).getAction());
  EXPECT_FALSE(kuVariantOption(false, QString("Open"), QString("A")).getAction());
  EXPECT_TRUE(kuVariantOption(true, QString("Open"), QString("A")).getAction());
}

TEST(kuVariantOptionTest, OfTwoLiteralsTheFirstIsTakenForAFlag) {
  const kuVariantOption option("Open", "A");
  EXPECT_TRUE(option.getAction());
  EXPECT_EQ(option.getName(), "A");
  EXPECT_EQ(option.getHotkey(), "");
  EXPECT_EQ(option.getShortcutKey(), 0);
}

TEST(kuVariantOptionTest, NameAndActionChangeNothingElse) {
  kuVariantOption option(QString("Open"), QString("Ctrl+A"));
  option.setName("Shut");
  option.setAction(true);
  EXPECT_EQ(option.getName(), "Shut");
  EXPECT_TRUE(option.getAction());
  option.setAction(false);
  EXPECT_FALSE(option.getAction());
  EXPECT_EQ(option.getHotkey(), "Ctrl+A");
  EXPECT_EQ(option.getShortcutKey(), Qt::Key_A);
  EXPECT_EQ(option.getShortcutModifier(), Qt::ControlModifier);
}

TEST(kuVariantOptionTest, SetHotkeyOfSeveralCombinationsKeepsAllTextAndTheFirstShortcut) {
  kuVariantOption option(QString("Open"));
  option.setHotkey("Alt+B, Ctrl+C");
  EXPECT_EQ(option.getHotkey(), "Alt+B, Ctrl+C");
  EXPECT_EQ(option.getShortcutKey(), Qt::Key_B);
  EXPECT_EQ(option.getShortcutModifier(), Qt::AltModifier);
}

}  // namespace
