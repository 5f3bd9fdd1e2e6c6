#include "model/kuVariant.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using ::testing::ElementsAre;

namespace {

/** Notes what reaches the scene. */
class NotingVariant : public kuVariant {
 public:
  std::vector<QString> selected;

 protected:
  void onSelect(const QString& state) override { selected.push_back(state); }
};

std::vector<QString> names(const kuVariant& variant) {
  std::vector<QString> result;
  for (const kuVariantOption& option : variant.getOptions())
    result.push_back(option.getName());
  return result;
}

TEST(kuVariantTest, AddOfAnExistingNameKeepsTheOldHotkey) {
  kuVariant variant;
  variant.add("Open", "A");
  variant.add(true, "Open", "B");
  ASSERT_THAT(names(variant), ElementsAre("Open"));
  EXPECT_EQ(variant.find("Open")->getHotkey(), "A");
  EXPECT_FALSE(variant.isAction("Open"));
}

TEST(kuVariantTest, AddWithAHotkeyDerivesTheShortcut) {
  kuVariant variant;
  variant.add("Open", "Ctrl+A");
  variant.add("Shut", "");
  EXPECT_EQ(variant.find("Open")->getShortcutKey(), Qt::Key_A);
  EXPECT_EQ(variant.find("Open")->getShortcutModifier(), Qt::ControlModifier);
  EXPECT_EQ(variant.find("Shut")->getShortcutKey(), 0);
}

TEST(kuVariantTest, AnOptionWithoutNameIsKeptButNotFound) {
  kuVariant variant;
  variant.add(true, "", "A");
  EXPECT_THAT(names(variant), ElementsAre(""));
  EXPECT_EQ(variant.find(""), nullptr);
  EXPECT_FALSE(variant.isAction(""));
}

TEST(kuVariantTest, RemoveKeepsTheOrderAndPassesOverUnknownNames) {
  kuVariant variant;
  for (const char* name : {"A", "B", "C"})
    variant.add(name, "");
  variant.remove("B");
  variant.remove("unknown");
  EXPECT_THAT(names(variant), ElementsAre("A", "C"));
}

TEST(kuVariantTest, IsActionOfAnUnknownNameIsFalse) {
  kuVariant variant;
  variant.add(true, "!Next", "");
  EXPECT_TRUE(variant.isAction("!Next"));
  EXPECT_FALSE(variant.isAction("unknown"));
}

TEST(kuVariantTest, SelectWithAnEmptyDefaultSelectsTheEmptyState) {
  NotingVariant variant;
  variant.select();
  EXPECT_THAT(variant.selected, ElementsAre(""));
}

TEST(kuVariantTest, SelectPassesDefaultsOptionsAndUnknownStatesThrough) {
  NotingVariant variant;
  variant.setDefault(kuVariantOption(QString("Open")));
  variant.select();
  variant.select(kuVariantOption(QString("Shut")));
  variant.select(QString("unknown"));
  EXPECT_THAT(variant.selected, ElementsAre("Open", "Shut", "unknown"));
}

TEST(kuVariantTest, CurrentOfAPlainVariantIsEmpty) {
  kuVariant variant;
  variant.setDefault(QString("Open"));
  variant.select();
  EXPECT_EQ(variant.getCurrent(), "");
}

TEST(kuVariantTest, ClearLeavesTheDefaultWithoutItsOption) {
  kuVariant variant;
  variant.setName("Roof");
  variant.add("Open", "");
  variant.setDefault(QString("Open"));
  variant.clear();
  EXPECT_TRUE(variant.getOptions().empty());
  EXPECT_EQ(variant.getDefault(), "Open");
  EXPECT_EQ(variant.getName(), "Roof");
}

TEST(kuVariantTest, CopyHasNameDefaultAndOptions) {
  kuVariant variant;
  variant.setName("Roof");
  variant.add("Open", "A");
  variant.setDefault(QString("Open"));
  const kuVariant copy(variant);
  EXPECT_EQ(copy.getName(), "Roof");
  EXPECT_EQ(copy.getDefault(), "Open");
  EXPECT_THAT(names(copy), ElementsAre("Open"));
}

}  // namespace
