#include "model/kuVariantGroup.h"

#include <cstdio>
#include <cstdlib>

#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"
#include "support/MessageReceiver.h"
#include "support/VariantsTest.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class kuVariantGroupTest : public VariantsTest {
 protected:
  kuVariantSet a{"A"}, b{"B"}, c{"C"};
  kuVariantGroup group{"Seasons"}, other{"Other"};
};

TEST_F(kuVariantGroupTest, NewOneIsVisibleAndEmpty) {
  EXPECT_THAT(group.getVariantSets(), IsEmpty());
  EXPECT_EQ(group.getComment(), "");
  EXPECT_TRUE(group.getVisible());
  EXPECT_TRUE(group.getShowInVRMenu());
  EXPECT_TRUE(group.getSyncInCollaboration());
  EXPECT_EQ(other.id(), group.id() + 1);
}

TEST_F(kuVariantGroupTest, AddLeavesASetOfAnotherGroupThere) {
  other.add(&a);
  group.add(&a);
  EXPECT_EQ(a.getGroup(), &other);
  EXPECT_THAT(group.getVariantSets(), IsEmpty());
}

TEST_F(kuVariantGroupTest, AddTwiceListsOnce) {
  group.add(&a);
  group.add(&a);
  EXPECT_THAT(group.getVariantSets(), ElementsAre(&a));
}

TEST_F(kuVariantGroupTest, RemoveOfAnothersSetLeavesBoth) {
  other.add(&a);
  group.add(&b);
  group.remove(&a);
  EXPECT_EQ(a.getGroup(), &other);
  EXPECT_THAT(other.getVariantSets(), ElementsAre(&a));
  EXPECT_THAT(group.getVariantSets(), ElementsAre(&b));
}

TEST_F(kuVariantGroupTest, RemoveKeepsTheOrder) {
  for (kuVariantSet* set : {&a, &b, &c})
    group.add(set);
  group.remove(&b);
  EXPECT_EQ(b.getGroup(), nullptr);
  EXPECT_THAT(group.getVariantSets(), ElementsAre(&a, &c));
}

TEST_F(kuVariantGroupTest, InsertAtTheEndIsAddAndElsewhereGoesBefore) {
  group.add(&a);
  group.insert(group.find(nullptr), &b);
  group.insert(group.find(&a), &c);
  EXPECT_THAT(group.getVariantSets(), ElementsAre(&c, &a, &b));
  EXPECT_EQ(c.getGroup(), &group);
}

TEST_F(kuVariantGroupTest, ClearUngroupsTheMembers) {
  kuVariantGroup* made = kuVariants::createVariantGroup("Made", false, true);
  kuVariantSet* set = kuVariants::createVariantSet("Summer", false, made);
  ASSERT_EQ(set->getGroup(), made);
  made->clear();
  EXPECT_THAT(kuVariants::getUngroupedVariantSets(), ElementsAre(set));
}

TEST_F(kuVariantGroupTest, RenameIsAnnouncedWithoutGroupName) {
  group.setName("Tours");
  EXPECT_EQ(group.getName(), "Tours");
  EXPECT_THAT(messages.lines(),
              ElementsAre("variantGroupRenamed/0 oldName:string=Seasons newName:string=Tours"));
}

TEST_F(kuVariantGroupTest, GroupAndSetMayGoInEitherOrder) {
  {
    kuVariantGroup brief("Brief");
    brief.add(&a);
  }
  EXPECT_EQ(a.getGroup(), nullptr);
  {
    kuVariantSet brief("Brief");
    group.add(&brief);
  }
  EXPECT_THAT(group.getVariantSets(), IsEmpty());
}

TEST_F(kuVariantGroupTest, CopyKeepsIdAndListWithoutTellingTheSets) {
  group.add(&a);
  kuVariantGroup copy(group);
  EXPECT_EQ(copy.id(), group.id());
  EXPECT_THAT(copy.getVariantSets(), ElementsAre(&a));
  EXPECT_EQ(a.getGroup(), &group);
}

/** In a process of its own, where nothing was made before. */
TEST(kuVariantNumbersTest, TheFirstSetHasTwoAndTheFirstGroupOne) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        const kuVariantSet firstSet("A");
        const kuVariantSet secondSet;
        const kuVariantGroup firstGroup("A");
        const kuVariantGroup secondGroup;
        std::fprintf(stderr, "sets %u %u groups %u %u", firstSet.id(), secondSet.id(),
                     firstGroup.id(), secondGroup.id());
        std::_Exit(0);
      },
      ::testing::ExitedWithCode(0), "sets 2 3 groups 1 2");
}

TEST(kuVariantNumbersTest, RecursionIsOffAtLoad) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(std::_Exit(kuVariants::getRecursion() ? 1 : 0), ::testing::ExitedWithCode(0), "");
}

TEST_F(kuVariantGroupTest, ACopyTakesNoNumber) {
  const kuVariantGroup copy(group);
  EXPECT_EQ(kuVariantGroup("Next").id(), other.id() + 1);
  EXPECT_EQ(copy.id(), group.id());
}

TEST_F(kuVariantGroupTest, FieldsAreKeptApart) {
  group.setComment("text");
  EXPECT_EQ(group.getComment(), "text");
  group.setVisible(false);
  EXPECT_FALSE(group.getVisible());
  EXPECT_TRUE(group.getShowInVRMenu());
  EXPECT_TRUE(group.getSyncInCollaboration());
  group.setVisible(true);
  group.setShowInVRMenu(false);
  EXPECT_TRUE(group.getVisible());
  EXPECT_FALSE(group.getShowInVRMenu());
  EXPECT_TRUE(group.getSyncInCollaboration());
  group.setShowInVRMenu(true);
  group.setSyncInCollaboration(false);
  EXPECT_TRUE(group.getVisible());
  EXPECT_TRUE(group.getShowInVRMenu());
  EXPECT_FALSE(group.getSyncInCollaboration());
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(kuVariantGroupTest, AddKeepsTheOrderAndBindsTheSets) {
  for (kuVariantSet* set : {&c, &a, &b})
    group.add(set);
  EXPECT_THAT(group.getVariantSets(), ElementsAre(&c, &a, &b));
  for (const kuVariantSet* set : {&a, &b, &c})
    EXPECT_EQ(set->getGroup(), &group);
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(kuVariantGroupTest, InsertLeavesSetsThatHaveAGroup) {
  other.add(&a);
  group.add(&b);
  group.insert(group.find(&b), &a);
  group.insert(group.find(&b), &b);
  EXPECT_THAT(group.getVariantSets(), ElementsAre(&b));
  EXPECT_EQ(a.getGroup(), &other);
}

TEST_F(kuVariantGroupTest, FindGivesTheEntryOrTheEnd) {
  group.add(&a);
  group.add(&b);
  const kuVariantGroup& fixed = group;
  EXPECT_EQ(fixed.find(&b) - fixed.getVariantSets().begin(), 1);
  EXPECT_EQ(*group.find(&b), &b);
  EXPECT_EQ(fixed.find(&c), fixed.getVariantSets().end());
  EXPECT_EQ(group.find(&c), fixed.getVariantSets().end());
  EXPECT_TRUE(fixed.contains(&a));
  EXPECT_FALSE(fixed.contains(&c));
}

TEST_F(kuVariantGroupTest, ASetMovesOnceItWasRemoved) {
  group.add(&a);
  group.remove(&a);
  other.add(&a);
  EXPECT_EQ(a.getGroup(), &other);
  EXPECT_THAT(group.getVariantSets(), IsEmpty());
}

TEST_F(kuVariantGroupTest, RemoveOfASetThatNamesTheGroupButIsNoMemberChangesNothing) {
  group.add(&a);
  kuVariantSet copy(a);
  group.remove(&copy);
  EXPECT_EQ(copy.getGroup(), &group);
  EXPECT_THAT(group.getVariantSets(), ElementsAre(&a));
}

TEST_F(kuVariantGroupTest, ACopyOfTheGroupIsNoGroupOfItsMembers) {
  group.add(&a);
  kuVariantGroup copy(group);
  copy.remove(&a);
  EXPECT_THAT(copy.getVariantSets(), ElementsAre(&a));
  EXPECT_EQ(a.getGroup(), &group);
}

TEST_F(kuVariantGroupTest, ClearAndDestructionUngroupEveryMemberAndSendNothing) {
  for (kuVariantSet* set : {&a, &b, &c})
    group.add(set);
  group.clear();
  EXPECT_THAT(group.getVariantSets(), IsEmpty());
  for (const kuVariantSet* set : {&a, &b, &c})
    EXPECT_EQ(set->getGroup(), nullptr);
  {
    kuVariantGroup brief("Brief");
    for (kuVariantSet* set : {&a, &b, &c})
      brief.add(set);
  }
  for (const kuVariantSet* set : {&a, &b, &c})
    EXPECT_EQ(set->getGroup(), nullptr);
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(kuVariantGroupTest, ASetThatIsDestroyedLeavesTheOthersInOrder) {
  group.add(&a);
  {
    kuVariantSet brief("Brief");
    group.add(&brief);
    group.add(&b);
  }
  EXPECT_THAT(group.getVariantSets(), ElementsAre(&a, &b));
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(kuVariantGroupTest, TheNewNameStandsWhenTheRenameIsAnnounced) {
  QString heard;
  const MessageReceiver receiver("variantGroupRenamed",
                                 [&](kuMessage&) { heard = group.getName(); });
  group.setName("Tours");
  EXPECT_EQ(heard, "Tours");
}

TEST_F(kuVariantGroupTest, AReceiverOfTheRenameMayRemoveTheGroup) {
  kuVariantGroup* made = kuVariants::createVariantGroup("Made", false, true);
  const MessageReceiver receiver("variantGroupRenamed",
                                 [](kuMessage&) { kuVariants::clearVariantGroups(); });
  made->setName(QString::fromUtf8("T\xC3\xBCr"));
  EXPECT_THAT(kuVariants::getVariantGroups(), IsEmpty());
  EXPECT_EQ(messages.linesOf("variantGroupRenamed").front(),
            "variantGroupRenamed/0 oldName:string=Made newName:string=T\xC3\xBCr");
}

TEST_F(kuVariantGroupTest, AssignmentOverAListedGroupKeepsLookUpsRight) {
  kuVariantGroup* made = kuVariants::createVariantGroup("Made", false, true);
  *made = other;
  EXPECT_EQ(kuVariants::findVariantGroup("Made"), nullptr);
  EXPECT_EQ(kuVariants::findVariantGroup("Other"), made);
}

}  // namespace
