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

}  // namespace
