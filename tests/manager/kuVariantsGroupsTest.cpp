#include "host/utils/kuNodeUtils.h"
#include "manager/kuVariants.h"
#include "model/kuVariantGroup.h"
#include "model/kuVariantSet.h"
#include "standalone/kernel/MessageWatch.h"
#include "support/VariantsTest.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class kuVariantsGroupsTest : public VariantsTest {
 protected:
  static kuVariantGroup* make(const char* name) {
    return kuVariants::createVariantGroup(name, false, true);
  }
};

}  // namespace

TEST_F(kuVariantsGroupsTest, NewGroupIsAnnounced) {
  kuVariantGroup* seasons = kuVariants::createVariantGroup("Seasons", true, true);
  ASSERT_TRUE(seasons);
  EXPECT_TRUE(seasons->getVisible());
  EXPECT_THAT(kuVariants::getVariantGroups(), ElementsAre(seasons));
  EXPECT_THAT(messages.lines(),
              ElementsAre("variantGroupAdded/1 variant:void*=kuVariantGroup Seasons"));
}

TEST_F(kuVariantsGroupsTest, InvisibleGroupIsMadeInSilenceWithItsOtherFlagsOn) {
  const kuVariantGroup* seasons = kuVariants::createVariantGroup("Seasons", false, false);
  ASSERT_TRUE(seasons);
  EXPECT_FALSE(seasons->getVisible());
  EXPECT_TRUE(seasons->getShowInVRMenu());
  EXPECT_TRUE(seasons->getSyncInCollaboration());
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(kuVariantsGroupsTest, EmptyNameMakesNoGroup) {
  EXPECT_EQ(kuVariants::createVariantGroup("", true, true), nullptr);
  EXPECT_THAT(messages.lines(), IsEmpty());
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(kuVariantsGroupsTest, ExistingNameWarns) {
  make("Seasons");
  EXPECT_EQ(kuVariants::createVariantGroup("Seasons", true, true), nullptr);
  EXPECT_EQ(kuVariants::getVariantGroups().size(), 1u);
  EXPECT_THAT(log, ElementsAre("warning: A variant group with that name already exists."));
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(kuVariantsGroupsTest, NewGroupThatAReceiverRemovesIsNotAnswered) {
  const kuStandalone::MessageWatch watch([](const kuStandalone::PassedMessage& message) {
    if (message.name == "variantGroupAdded") kuVariants::removeVariantGroup("Seasons");
  });
  EXPECT_EQ(kuVariants::createVariantGroup("Seasons", true, true), nullptr);
}

TEST_F(kuVariantsGroupsTest, GroupsAreFoundByNameAndById) {
  kuVariantGroup* seasons = make("Seasons");
  kuVariantGroup* hours = make("Hours");
  EXPECT_EQ(hours->id(), seasons->id() + 1);
  EXPECT_EQ(kuVariants::findVariantGroup("Hours"), hours);
  EXPECT_EQ(kuVariants::findVariantGroup("hours"), nullptr);
  EXPECT_EQ(kuVariants::findVariantGroup(""), nullptr);
  EXPECT_EQ(kuVariants::getVariantGroup(seasons->id()), seasons);
  EXPECT_EQ(kuVariants::getVariantGroup(hours->id() + 1), nullptr);
}

TEST_F(kuVariantsGroupsTest, RemovedGroupIsNotFoundByItsIdAndTheOthersStillAre) {
  const auto seasons = make("Seasons")->id();
  kuVariantGroup* hours = make("Hours");
  kuVariants::removeVariantGroup("Seasons");
  EXPECT_EQ(kuVariants::getVariantGroup(seasons), nullptr);
  EXPECT_EQ(kuVariants::getVariantGroup(hours->id()), hours);
}

TEST_F(kuVariantsGroupsTest, NamelessGroupsCountAndAreRemovedByTheEmptyName) {
  make("Seasons")->setName("");
  make("Hours")->setName("");
  EXPECT_EQ(kuVariants::countVariantGroup(""), 2);
  messages.clear();
  EXPECT_TRUE(kuVariants::removeVariantGroup(""));
  EXPECT_EQ(kuVariants::countVariantGroup(""), 1);
  EXPECT_THAT(messages.lines(), ElementsAre("variantGroupRemoved/1 variant:void*=unlisted"));
}

TEST_F(kuVariantsGroupsTest, RemovalAmongEqualNamesTakesTheFirst) {
  kuVariantGroup* seasons = make("Seasons");
  kuVariantGroup* hours = make("Hours");
  kuVariantGroup* days = make("Days");
  hours->setName("Seasons");
  days->setName("Seasons");
  EXPECT_EQ(kuVariants::countVariantGroup("Seasons"), 3);
  EXPECT_EQ(kuVariants::findVariantGroup("Seasons"), seasons);
  kuVariants::removeVariantGroup("Seasons");
  EXPECT_THAT(kuVariants::getVariantGroups(), ElementsAre(hours, days));
  EXPECT_EQ(kuVariants::countVariantGroup("Seasons"), 2);
  hours->setName("Hours");
  EXPECT_EQ(kuVariants::findVariantGroup("Seasons"), days);
}

TEST_F(kuVariantsGroupsTest, NewGroupHasItsVisibilityWhenItIsAnnounced) {
  bool visible = true;
  const kuStandalone::MessageWatch watch([&](const kuStandalone::PassedMessage&) {
    visible = kuVariants::findVariantGroup("Seasons")->getVisible();
  });
  kuVariants::createVariantGroup("Seasons", true, false);
  EXPECT_FALSE(visible);
}

TEST_F(kuVariantsGroupsTest, GroupsAreGoneWhenTheirClearingIsTold) {
  make("Seasons");
  std::size_t left = 7;
  const kuStandalone::MessageWatch watch(
      [&](const kuStandalone::PassedMessage&) { left = kuVariants::getVariantGroups().size(); });
  kuVariants::clearVariantGroups();
  EXPECT_EQ(left, 0u);
}

TEST_F(kuVariantsGroupsTest, CountTellsHowManyBearTheName) {
  make("Seasons");
  kuVariantGroup* hours = make("Hours");
  EXPECT_EQ(kuVariants::countVariantGroup("Seasons"), 1);
  EXPECT_EQ(kuVariants::countVariantGroup("absent"), 0);
  hours->setName("Seasons");
  EXPECT_EQ(kuVariants::countVariantGroup("Seasons"), 2);
  EXPECT_EQ(kuVariants::countVariantGroup("Hours"), 0);
}

TEST_F(kuVariantsGroupsTest, RemovedGroupIsEmptyAndUnlistedWhileItIsAnnounced) {
  kuVariantGroup* seasons = make("Seasons");
  kuVariantSet* summer = kuVariants::createVariantSet("Summer", false, seasons);
  bool alive = false;
  const kuStandalone::MessageWatch watch([&](const kuStandalone::PassedMessage& message) {
    void* pointer = nullptr;
    ASSERT_TRUE(message.record->get("variant", pointer));
    alive = static_cast<kuVariantGroup*>(pointer)->getName() == "Seasons";
    EXPECT_THAT(static_cast<kuVariantGroup*>(pointer)->getVariantSets(), IsEmpty());
    EXPECT_THAT(kuVariants::getUngroupedVariantSets(), ElementsAre(summer));
  });
  EXPECT_TRUE(kuVariants::removeVariantGroup("Seasons"));
  EXPECT_TRUE(alive);
  EXPECT_THAT(kuVariants::getVariantGroups(), IsEmpty());
  EXPECT_THAT(kuVariants::getVariantSets(), ElementsAre(summer));
  EXPECT_EQ(summer->getGroup(), nullptr);
  EXPECT_THAT(messages.lines(), ElementsAre("variantGroupRemoved/1 variant:void*=unlisted"));
}

TEST_F(kuVariantsGroupsTest, RemovalOfAnUnknownGroupIsTrueAndSilent) {
  make("Seasons");
  EXPECT_TRUE(kuVariants::removeVariantGroup("Hours"));
  EXPECT_TRUE(kuVariants::removeVariantGroup(""));
  EXPECT_EQ(kuVariants::getVariantGroups().size(), 1u);
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(kuVariantsGroupsTest, ClearingLeavesTheSetsUngroupedAndTellsOnce) {
  kuVariantSet* summer = kuVariants::createVariantSet("Summer", false, make("Seasons"));
  kuVariants::clearVariantGroups();
  EXPECT_THAT(kuVariants::getVariantGroups(), IsEmpty());
  EXPECT_THAT(kuVariants::getVariantSets(), ElementsAre(summer));
  EXPECT_EQ(summer->getGroup(), nullptr);
  EXPECT_THAT(messages.lines(), ElementsAre("variantGroupChanged/1 bare"));
}

TEST_F(kuVariantsGroupsTest, NamesAreMadeUniqueAmongGroupsByTheRuleOfNodes) {
  make("Seasons");
  kuVariants::createVariantSet("Hours", false, nullptr);
  EXPECT_EQ(kuVariants::getUniqueVariantGroupName("Hours"), "Hours");
  const QString unique = kuVariants::getUniqueVariantGroupName("Seasons");
  EXPECT_EQ(unique.toStdString(), kuNodeUtils::getUniqueName("Seasons", {"Seasons"}));
  EXPECT_NE(unique, "Seasons");
}
