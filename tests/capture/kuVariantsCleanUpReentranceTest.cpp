// Receivers that change the manager while sets and groups are cleaned up.

#include "capture/CaptureTest.h"
#include "host/kernel/kuController.h"
#include "support/ManagerDump.h"
#include "support/MessageReceiver.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

namespace {

class kuVariantsCleanUpReentranceTest : public CaptureTest {
 protected:
  kuVariantsCleanUpReentranceTest() { set.setScript("full"); }

  /** Runs the clean-up of sets with an action at every removal. */
  static void clearSets(MessageReceiver::Action action) {
    const MessageReceiver receiver("variantSetRemoved", std::move(action));
    kuVariants::clearEmptyVariantSets();
  }
  static void clearGroups(MessageReceiver::Action action) {
    const MessageReceiver receiver("variantGroupRemoved", std::move(action));
    kuVariants::clearEmptyGroups();
  }
};

}  // namespace

TEST_F(kuVariantsCleanUpReentranceTest, ReceiverMayRemoveALaterSet) {
  makeSet("First");
  makeSet("Second");
  makeSet("Third");
  clearSets([](kuMessage&) { kuVariants::removeVariantSet("Third"); });
  EXPECT_THAT(setNames(), ElementsAre("Set"));
}

TEST_F(kuVariantsCleanUpReentranceTest,
       ReceiverThatRemovesAnEarlierSetMovesTheNextOnePastTheIndex) {
  makeSet("First");
  makeSet("Second");
  makeSet("Third");
  clearSets([](kuMessage&) { kuVariants::removeVariantSet("Set"); });
  EXPECT_THAT(setNames(), ElementsAre("Second"));
}

TEST_F(kuVariantsCleanUpReentranceTest, ReceiverMayAskForTheSameSetAgain) {
  makeSet("First");
  makeSet("Second");
  clearSets([](kuMessage& message) {
    void* removed = nullptr;
    ASSERT_TRUE(message.get("variant", removed));
    kuVariants::removeVariantSet(static_cast<kuVariantSet*>(removed)->getName());
  });
  EXPECT_THAT(setNames(), ElementsAre("Set"));
  EXPECT_THAT(messages.lines(), SizeIs(2));
}

TEST_F(kuVariantsCleanUpReentranceTest, SetThatAReceiverFillsStays) {
  makeSet("First");
  kuVariantSet& second = makeSet("Second");
  clearSets([&](kuMessage&) { second.addGeometry("Body"); });
  EXPECT_THAT(setNames(), ElementsAre("Set", "Second"));
}

TEST_F(kuVariantsCleanUpReentranceTest, SetThatAReceiverEmptiesBehindTheIndexGoes) {
  makeSet("First");
  kuVariantSet& full = makeSet("Full");
  full.setScript("full");
  clearSets([&](kuMessage&) {
    if (kuVariants::findVariantSet("Full")) full.setScript("");
  });
  EXPECT_THAT(setNames(), ElementsAre("Set"));
}

TEST_F(kuVariantsCleanUpReentranceTest, FullSetThatAReceiverAddsStays) {
  makeSet("First");
  clearSets([](kuMessage&) { makeSet("Added").setScript("full"); });
  EXPECT_THAT(setNames(), ElementsAre("Set", "Added"));
}

TEST_F(kuVariantsCleanUpReentranceTest, EmptySetsThatAReceiverAddsOnceGoToo) {
  makeSet("First");
  makeSet("Last");
  int calls = 0;
  clearSets([&](kuMessage&) {
    if (++calls > 1) return;
    for (const char* name : {"Added", "Also added", "Added as well"})
      makeSet(name);
  });
  EXPECT_THAT(setNames(), ElementsAre("Set"));
}

TEST_F(kuVariantsCleanUpReentranceTest, ReceiverThatAddsAnEmptySetEachTimeDoesNotKeepItGoing) {
  makeSet("First");
  makeSet("Second");
  int calls = 0;
  clearSets([&](kuMessage&) { makeSet(("Added " + std::to_string(++calls)).c_str()); });
  EXPECT_EQ(calls, 4);
  EXPECT_THAT(setNames(), ElementsAre("Set", "Added 3", "Added 4"));
}

TEST_F(kuVariantsCleanUpReentranceTest, ReceiverThatMakesTheRemovedSetAnewDoesNotKeepItGoing) {
  makeSet("First");
  int calls = 0;
  clearSets([&](kuMessage&) {
    ++calls;
    makeSet("First");
  });
  EXPECT_EQ(calls, 2);
  EXPECT_THAT(setNames(), ElementsAre("Set", "First"));
}

TEST_F(kuVariantsCleanUpReentranceTest, ReceiverMayClearAllWhileSetsAreCleared) {
  makeSet("First", makeGroup("Group"));
  makeSet("Second");
  clearSets([](kuMessage&) { kuController::call("clearAllVariants", 1); });
  EXPECT_EQ(managerDump(), "");
}

TEST_F(kuVariantsCleanUpReentranceTest, ReceiverMayClearTheListOfSets) {
  makeSet("First");
  makeSet("Second");
  clearSets([](kuMessage&) { kuVariants::clearVariantSets(); });
  EXPECT_THAT(setNames(), IsEmpty());
}

TEST_F(kuVariantsCleanUpReentranceTest, ReceiverMayRemoveTheGroupOfTheRemovedSet) {
  makeSet("First", makeGroup("Group"));
  makeSet("Second");
  clearSets([](kuMessage&) { kuVariants::removeVariantGroup("Group"); });
  EXPECT_EQ(managerDump(), "set Set script=full\n");
}

TEST_F(kuVariantsCleanUpReentranceTest, ReceiverMayClearTheEmptySetsItself) {
  makeSet("First");
  makeSet("Second");
  makeSet("Third");
  clearSets([](kuMessage&) { kuVariants::clearEmptyVariantSets(); });
  EXPECT_THAT(setNames(), ElementsAre("Set"));
  EXPECT_THAT(messages.lines(), SizeIs(3));
}

TEST_F(kuVariantsCleanUpReentranceTest, ReceiverMayClearTheEmptyGroupsWhileSetsAreCleared) {
  makeSet("First", makeGroup("Left"));
  makeSet("Second", makeGroup("Other"));
  clearSets([](kuMessage&) { kuVariants::clearEmptyGroups(); });
  // The group that the last removed set still is in is not empty while that is told.
  EXPECT_EQ(managerDump(), "group Other\nset Set script=full\n");
}

TEST_F(kuVariantsCleanUpReentranceTest, ReceiverMayOptimiseWhileSetsAreCleared) {
  makeSet("First");
  set.setScript("");
  set.addGeometry("Lost");
  makeSet("Second").addGeometry("Lost");
  clearSets([](kuMessage&) { kuVariants::optimizeVariantSets(); });
  EXPECT_THAT(setNames(), ElementsAre("Set"));  // passed before it was emptied
}

TEST_F(kuVariantsCleanUpReentranceTest, ReceiverMayRemoveAnEarlierGroup) {
  for (const char* name : {"First", "Second", "Third"})
    makeGroup(name);
  clearGroups([](kuMessage&) { kuVariants::removeVariantGroup("First"); });
  EXPECT_THAT(groupNames(), IsEmpty());
}

TEST_F(kuVariantsCleanUpReentranceTest, ReceiverMayRemoveAllOtherGroups) {
  for (const char* name : {"First", "Second", "Third", "Fourth"})
    makeGroup(name);
  makeGroup("Last")->add(&set);
  clearGroups([](kuMessage&) {
    for (const char* name : {"First", "Second", "Third", "Last"})
      kuVariants::removeVariantGroup(name);
  });
  EXPECT_THAT(groupNames(), IsEmpty());
  EXPECT_EQ(set.getGroup(), nullptr);
}

TEST_F(kuVariantsCleanUpReentranceTest, EmptyGroupThatAReceiverAddsEachTimeStays) {
  makeGroup("First");
  makeGroup("Second");
  int calls = 0;
  clearGroups([&](kuMessage&) { makeGroup(("Added " + std::to_string(++calls)).c_str()); });
  EXPECT_EQ(calls, 2);
  EXPECT_THAT(groupNames(), ElementsAre("Added 1", "Added 2"));
}

TEST_F(kuVariantsCleanUpReentranceTest, GroupThatAReceiverFillsStays) {
  kuVariantGroup* first = makeGroup("First");
  makeGroup("Second");
  clearGroups([&](kuMessage&) { first->add(&set); });
  EXPECT_THAT(groupNames(), ElementsAre("First"));
}

TEST_F(kuVariantsCleanUpReentranceTest, GroupThatAReceiverRenamesIsRemovedByItsNewName) {
  kuVariantGroup* first = makeGroup("First");
  makeGroup("Second");
  int calls = 0;
  clearGroups([&](kuMessage&) {
    if (++calls == 1) first->setName("Renamed");
  });
  EXPECT_EQ(calls, 2);
  EXPECT_THAT(groupNames(), IsEmpty());
}

TEST_F(kuVariantsCleanUpReentranceTest, ReceiverMayClearAllWhileGroupsAreCleared) {
  makeSet("First", makeGroup("Group"));
  makeGroup("Empty");
  makeGroup("Other empty");
  clearGroups([](kuMessage&) { kuController::call("clearAllVariants", 1); });
  EXPECT_EQ(managerDump(), "");
}

TEST_F(kuVariantsCleanUpReentranceTest, ReceiverMayClearTheEmptyGroupsItself) {
  for (const char* name : {"First", "Second", "Third"})
    makeGroup(name);
  makeGroup("Kept")->add(&set);
  clearGroups([](kuMessage&) { kuVariants::clearEmptyGroups(); });
  EXPECT_THAT(groupNames(), ElementsAre("Kept"));
  EXPECT_THAT(messages.lines(), SizeIs(3));
}

TEST_F(kuVariantsCleanUpReentranceTest, ReceiverMayClearTheEmptySetsWhileGroupsAreCleared) {
  makeSet("Empty", makeGroup("Left"));
  makeGroup("Last");
  clearGroups([](kuMessage&) { kuVariants::clearEmptyVariantSets(); });
  EXPECT_EQ(managerDump(), "set Set script=full\n");
}
