#include "model/kuVariant.h"

#include <memory>

#include "manager/kuVariants.h"
#include "scene/kuNodeVariant.h"
#include "support/VariantsTest.h"

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

/** Loses its texts while it is selected, as one does that a receiver deletes. */
class ForgettingVariant : public kuVariant {
 public:
  ForgettingVariant() {
    add("Open", "");
    setDefault(QString("Open"));
  }
  QString heard;

 protected:
  void onSelect(const QString& state) override {
    setDefault(QString("forgotten"));
    clear();
    heard = state;
  }
};

TEST(kuVariantTest, TheSelectedStateOutlivesTheTextsOfTheVariant) {
  ForgettingVariant byDefault, byOption, byText, byOptionText;
  byDefault.select();
  byOption.select(byOption.getOptions().front());
  byText.select(byText.getDefault());
  byOptionText.select(byOptionText.find("Open")->getName());
  for (const ForgettingVariant* variant : {&byDefault, &byOption, &byText, &byOptionText}) {
    EXPECT_EQ(variant->heard, "Open");
    EXPECT_EQ(variant->getDefault(), "forgotten");
  }
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

TEST(kuVariantTest, NewOneIsEmpty) {
  const kuVariant variant;
  EXPECT_EQ(variant.getName(), "");
  EXPECT_EQ(variant.getDefault(), "");
  EXPECT_TRUE(variant.getOptions().empty());
}

TEST(kuVariantTest, AddTakesTheActionFlagGivenAndNoneMeansAState) {
  kuVariant variant;
  variant.add("Open", "A");
  variant.add(false, "Shut", "B");
  variant.add(true, "!Next", "Ctrl+N");
  EXPECT_THAT(names(variant), ElementsAre("Open", "Shut", "!Next"));
  EXPECT_FALSE(variant.isAction("Open"));
  EXPECT_FALSE(variant.isAction("Shut"));
  EXPECT_TRUE(variant.isAction("!Next"));
  EXPECT_EQ(variant.find("!Next")->getHotkey(), "Ctrl+N");
  EXPECT_EQ(variant.find("!Next")->getShortcutModifier(), Qt::ControlModifier);
}

TEST(kuVariantTest, NamesCompareExactly) {
  kuVariant variant;
  variant.add("Open", "");
  variant.add("open", "");
  EXPECT_THAT(names(variant), ElementsAre("Open", "open"));
  EXPECT_EQ(variant.find("OPEN"), nullptr);
  variant.remove("open");
  EXPECT_THAT(names(variant), ElementsAre("Open"));
}

TEST(kuVariantTest, RemoveTakesTheFirstOfThatNameAlone) {
  kuVariant variant;
  variant.add("A", "F1");
  variant.add("B", "F2");
  variant.find("B")->setName("A");
  variant.setDefault(QString("A"));
  variant.remove("A");
  ASSERT_THAT(names(variant), ElementsAre("A"));
  EXPECT_EQ(variant.find("A")->getHotkey(), "F2");
  EXPECT_EQ(variant.getDefault(), "A");
}

TEST(kuVariantTest, AnOptionWithoutNameCanBeRemoved) {
  kuVariant variant;
  variant.add("", "");
  variant.add("", "A");
  EXPECT_THAT(names(variant), ElementsAre(""));
  variant.remove("");
  EXPECT_TRUE(variant.getOptions().empty());
}

TEST(kuVariantTest, RenameInformsNobody) {
  const MessageRecorder messages;
  kuVariant variant;
  variant.setName("Roof");
  variant.setName("Door");
  EXPECT_EQ(variant.getName(), "Door");
  EXPECT_TRUE(messages.lines().empty());
}

TEST(kuVariantTest, AssignmentReplacesNameDefaultAndOptions) {
  kuVariant variant, other;
  variant.setName("Roof");
  variant.add("Open", "A");
  variant.setDefault(QString("Open"));
  other.setName("Door");
  other.add("Left", "");
  other = variant;
  EXPECT_EQ(other.getName(), "Roof");
  EXPECT_EQ(other.getDefault(), "Open");
  ASSERT_THAT(names(other), ElementsAre("Open"));
  EXPECT_EQ(other.find("Open")->getHotkey(), "A");
  other.setName("Door");
  other.clear();
  EXPECT_EQ(variant.getName(), "Roof");
  EXPECT_THAT(names(variant), ElementsAre("Open"));
}

TEST(kuVariantTest, DeletedThroughItsBaseTheDerivedPartGoesToo) {
  class Telling : public kuVariant {
   public:
    explicit Telling(bool& gone) : _gone(gone) {}
    ~Telling() override { _gone = true; }

   private:
    bool& _gone;
  };
  bool gone = false;
  std::unique_ptr<kuVariant>(std::make_unique<Telling>(gone)).reset();
  EXPECT_TRUE(gone);
}

using ListedVariantTest = VariantsTest;

TEST_F(ListedVariantTest, AssignmentOverAListedVariantKeepsLookUpsRight) {
  kuVariant* roof = kuVariants::createNodeVariant("Roof", false);
  kuVariant* door = kuVariants::createNodeVariant("Door", false);
  kuVariant other;
  other.setName("Hood");
  *roof = other;
  EXPECT_EQ(kuVariants::findNodeVariant("Roof"), nullptr);
  EXPECT_EQ(kuVariants::findNodeVariant("Hood"), roof);
  *roof = *roof;
  EXPECT_EQ(kuVariants::findNodeVariant("Hood"), roof);
  other.setName("Wheel");  // the value is not tied to the list
  EXPECT_EQ(kuVariants::findNodeVariant("Wheel"), nullptr);
  roof->setName("Roof");  // the variant still is
  EXPECT_EQ(kuVariants::findNodeVariant("Roof"), roof);
  *roof = *door;  // the first of a name is found
  EXPECT_EQ(kuVariants::findNodeVariant("Door"), roof);
  EXPECT_EQ(kuVariants::findNodeVariant("Roof"), nullptr);
  kuVariants::removeNodeVariant("Door");
  EXPECT_EQ(kuVariants::findNodeVariant("Door"), door);
}

}  // namespace
