#include "model/kuVariantGroup.h"

#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"
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

}  // namespace
