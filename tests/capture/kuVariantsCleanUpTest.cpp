// Removing the sets that hold nothing and the groups that hold no set.

#include "capture/CaptureTest.h"
#include "support/ManagerDump.h"
#include "support/MessageReceiver.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class kuVariantsCleanUpTest : public CaptureTest {
 protected:
  kuVariantsCleanUpTest() { set.setScript("full"); }

  static kuVariantSet& makeFull(const char* name, kuVariantGroup* group = nullptr) {
    kuVariantSet& made = makeSet(name, group);
    made.setScript("full");
    return made;
  }

  static void* pointerIn(const kuMessage& message) {
    void* pointer = nullptr;
    message.get("variant", pointer);
    return pointer;
  }
};

}  // namespace

TEST_F(kuVariantsCleanUpTest, OneEmptySetAmongOthersIsSeen) {
  EXPECT_FALSE(kuVariants::hasEmptyVariantSets());
  makeSet("Empty");
  makeFull("Last");
  EXPECT_TRUE(kuVariants::hasEmptyVariantSets());
}

TEST_F(kuVariantsCleanUpTest, ManagerWithoutSetsHasNoEmptySet) {
  kuVariants::clearVariantSets();
  EXPECT_FALSE(kuVariants::hasEmptyVariantSets());
}

TEST_F(kuVariantsCleanUpTest, OneGroupWithoutSetsAmongOthersIsSeen) {
  EXPECT_FALSE(kuVariants::hasEmptyGroups());
  makeGroup("Group")->add(&set);
  EXPECT_FALSE(kuVariants::hasEmptyGroups());
  makeGroup("Empty");
  makeSet("Other", makeGroup("Last"));
  EXPECT_TRUE(kuVariants::hasEmptyGroups());
}

TEST_F(kuVariantsCleanUpTest, GroupOfAnEmptySetIsNotEmpty) {
  makeSet("Empty", makeGroup("Group"));
  EXPECT_FALSE(kuVariants::hasEmptyGroups());
}

TEST_F(kuVariantsCleanUpTest, EmptySetsAreRemovedAndTheOthersKeepTheirOrder) {
  makeSet("First empty");
  makeSet("Second empty");
  makeFull("Middle");
  makeSet("Third empty");
  kuVariants::clearEmptyVariantSets();
  EXPECT_THAT(setNames(), ElementsAre("Set", "Middle"));
  EXPECT_THAT(messages.lines(), ElementsAre("variantSetRemoved/1 variant:void*=unlisted",
                                            "variantSetRemoved/1 variant:void*=unlisted",
                                            "variantSetRemoved/1 variant:void*=unlisted"));
  EXPECT_FALSE(kuVariants::hasEmptyVariantSets());
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(kuVariantsCleanUpTest, NothingIsSentWhereNoSetIsEmpty) {
  kuVariants::clearEmptyVariantSets();
  EXPECT_THAT(setNames(), ElementsAre("Set"));
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(kuVariantsCleanUpTest, EachSetIsToldAliveOutOfTheListAndInItsGroupFromTheFirstOn) {
  kuVariantGroup* group = makeGroup("Group");
  const kuVariantSet* first = &makeSet("First", group);
  const kuVariantSet* second = &makeSet("Second", group);
  Texts told;
  std::vector<const void*> pointers;
  const MessageReceiver receiver("variantSetRemoved", [&](kuMessage& message) {
    pointers.push_back(pointerIn(message));
    const auto* removed = static_cast<const kuVariantSet*>(pointers.back());
    told.push_back(removed->getName().toStdString() + " of " +
                   removed->getGroup()->getName().toStdString());
    for (const std::string& left : setNames())
      told.push_back("  left " + left);
  });
  kuVariants::clearEmptyVariantSets();
  EXPECT_THAT(told, ElementsAre("First of Group", "  left Set", "  left Second", "Second of Group",
                                "  left Set"));
  EXPECT_THAT(pointers, ElementsAre(first, second));
  EXPECT_THAT(group->getVariantSets(), IsEmpty());
}

TEST_F(kuVariantsCleanUpTest, OfSetsOfOneNameTheEmptyOneIsRemoved) {
  makeSet("Twin").setName("Set");
  messages.clear();
  kuVariants::clearEmptyVariantSets();
  EXPECT_THAT(kuVariants::getVariantSets(), ElementsAre(&set));
  EXPECT_EQ(set.getScript(), "full");
  EXPECT_THAT(messages.lines(), ElementsAre("variantSetRemoved/1 variant:void*=unlisted"));
}

TEST_F(kuVariantsCleanUpTest, NamelessEmptySetIsRemoved) {
  makeSet("Nameless").setName("");
  kuVariants::clearEmptyVariantSets();
  EXPECT_THAT(setNames(), ElementsAre("Set"));
}

TEST_F(kuVariantsCleanUpTest, GroupsStayWhenTheirSetsAreRemoved) {
  makeSet("Empty", makeGroup("Group"));
  kuVariants::clearEmptyVariantSets();
  EXPECT_THAT(groupNames(), ElementsAre("Group"));
  EXPECT_TRUE(kuVariants::hasEmptyGroups());
}

TEST_F(kuVariantsCleanUpTest, GroupsThatTheSetsLeftEmptyGoAfterThem) {
  kuVariantGroup* kept = makeGroup("Kept");
  kuVariantGroup* left = makeGroup("Left");
  kept->add(&set);
  makeSet("Empty", left);
  makeSet("Other empty", kept);
  kuVariants::clearEmptyGroups();
  EXPECT_THAT(groupNames(), ElementsAre("Kept", "Left"));
  kuVariants::clearEmptyVariantSets();
  kuVariants::clearEmptyGroups();
  EXPECT_EQ(managerDump(), "group Kept\n  set Set\nset Set script=full group=Kept\n");
}

TEST_F(kuVariantsCleanUpTest, EmptyGroupsAreRemovedTheLastFirst) {
  makeGroup("First");
  makeGroup("Kept")->add(&set);
  makeGroup("Second");
  makeGroup("Third");
  Texts told;
  const MessageReceiver receiver("variantGroupRemoved", [&](kuMessage& message) {
    const auto* removed = static_cast<const kuVariantGroup*>(pointerIn(message));
    told.push_back(removed->getName().toStdString());
  });
  kuVariants::clearEmptyGroups();
  EXPECT_THAT(told, ElementsAre("Third", "Second", "First"));
  EXPECT_THAT(groupNames(), ElementsAre("Kept"));
  EXPECT_THAT(messages.lines(), ElementsAre("variantGroupRemoved/1 variant:void*=unlisted",
                                            "variantGroupRemoved/1 variant:void*=unlisted",
                                            "variantGroupRemoved/1 variant:void*=unlisted"));
  EXPECT_FALSE(kuVariants::hasEmptyGroups());
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(kuVariantsCleanUpTest, NothingIsSentWhereNoGroupIsEmpty) {
  makeGroup("Kept")->add(&set);
  kuVariants::clearEmptyGroups();
  EXPECT_THAT(groupNames(), ElementsAre("Kept"));
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(kuVariantsCleanUpTest, InvisibleEmptyGroupIsRemovedToo) {
  kuVariants::createVariantGroup("Hidden", false, false);
  kuVariants::clearEmptyGroups();
  EXPECT_THAT(groupNames(), IsEmpty());
}

TEST_F(kuVariantsCleanUpTest, NamelessEmptyGroupIsRemoved) {
  makeGroup("Nameless")->setName("");
  kuVariants::clearEmptyGroups();
  EXPECT_THAT(groupNames(), IsEmpty());
}

TEST_F(kuVariantsCleanUpTest, OfGroupsOfOneNameTheFirstIsRemovedThoughItHasSets) {
  const kuVariantGroup* full = makeGroup("Twin");
  kuVariants::findVariantGroup("Twin")->add(&set);
  kuVariantGroup* empty = makeGroup("Other");
  empty->setName("Twin");
  makeGroup("Kept")->add(&makeFull("Full"));
  std::vector<const void*> removed;
  const MessageReceiver receiver(
      "variantGroupRemoved", [&](kuMessage& message) { removed.push_back(pointerIn(message)); });
  kuVariants::clearEmptyGroups();
  EXPECT_THAT(removed, ElementsAre(full, empty));  // the empty one when its own turn has come
  EXPECT_THAT(groupNames(), ElementsAre("Kept"));
  EXPECT_EQ(set.getGroup(), nullptr);
}
