// A host with few numbers. It is a program of its own: in the place of two operations of the host
// it has its own, which the library then calls.

#include "capture/CheckerTest.h"
#include "capture/DialogAnswer.h"
#include "manager/kuVariants.h"
#include "standalone/scene/SceneNode.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/** The numbers that this host has to give, whatever they are used for. */
std::set<std::uint64_t> numbers;

/** What the library asked and did, in order. */
std::vector<std::string> calls;

}  // namespace

std::set<std::uint64_t> kuNodeUtils::getFreeNumbers(const std::set<std::uint64_t>& used,
                                                    std::size_t count) {
  std::string call = "free " + std::to_string(count) + " without";
  for (const std::uint64_t number : used)
    call += ' ' + std::to_string(number);
  calls.push_back(call);
  return numbers;
}

void kuNodeUtils::fixBrokenNameAttachment(const osg::NodePtr& node) {
  calls.push_back(std::string("mend '") + getName(node) + "'");
}

namespace {

class kuVariantCaptureCheckerNumbersTest : public CheckerTest {
 protected:
  kuVariantCaptureCheckerNumbersTest() { calls.clear(); }
};

}  // namespace

TEST_F(kuVariantCaptureCheckerNumbersTest, SmallestNumberIsTakenFirst) {
  numbers = {900, 7, 18446744073709551615u};
  groups({"A", "A", "A", "A"});
  kuVariantCaptureChecker().fixAmbiguousNodes();
  EXPECT_THAT(names(), ElementsAre("A", "A7", "A900", "A18446744073709551615"));
}

TEST_F(kuVariantCaptureCheckerNumbersTest, AsManyNumbersAreAskedForAsABaseHasDuplicates) {
  numbers = {50, 51};
  groups({"A3", "A3", "A3", "A9", "B", "B", "C5"});
  kuVariantCaptureChecker().fixAmbiguousNodes();
  EXPECT_THAT(calls, ElementsAre("free 2 without 3 9", "mend 'A3'", "mend 'A3'", "free 1 without",
                                 "mend 'B'"));
}

TEST_F(kuVariantCaptureCheckerNumbersTest, BasesComeInTheOrderOfTheirBytes) {
  numbers = {50};
  groups({"b", "b", "", "", "é", "é", "B", "B", "a10", "a10", "a9", "a8"});
  kuVariantCaptureChecker().fixAmbiguousNodes();
  EXPECT_THAT(calls, ElementsAre("free 1 without", "mend ''", "free 1 without", "mend 'B'",
                                 "free 1 without 8 9 10", "mend 'a10'", "free 1 without",
                                 "mend 'b'", "free 1 without", "mend 'é'"));
}

TEST_F(kuVariantCaptureCheckerNumbersTest, WithTheNumbersSpentAllRenamingEnds) {
  numbers = {50};
  groups({"A", "A", "A", "B", "B"});
  kuVariantCaptureChecker().fixAmbiguousNodes();
  EXPECT_THAT(names(), ElementsAre("A", "A50", "A", "B", "B"));
  EXPECT_THAT(calls, ElementsAre("free 2 without", "mend 'A'"));
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(kuVariantCaptureCheckerNumbersTest, WithoutAnyNumberNothingIsRenamed) {
  numbers = {};
  groups({"A", "A", "B", "B"});
  kuVariantCaptureChecker().fixAmbiguousNodes();
  EXPECT_THAT(names(), ElementsAre("A", "A", "B", "B"));
}

TEST_F(kuVariantCaptureCheckerNumbersTest, WithTheNumbersSpentTransformStatesAreFixedStill) {
  numbers = {};
  const osg::NodePtr door = scene.transforms("Door", {"Open", "Open"}, 0, -1);
  groups({"A", "A"});
  kuVariantCaptureChecker().fixAmbiguousNodes();
  EXPECT_THAT(stateNames(door), ElementsAre("Open", "Open1"));
}

TEST_F(kuVariantCaptureCheckerNumbersTest, CoreThatHasLostItsNodesSpendsANumber) {
  numbers = {50, 51};
  auto nodes = groups({"A", "A", "A", "A", "B", "B"});
  kuVariantCaptureChecker checker;
  kuStandalone::SceneNode::of(scene.root()).removeChild(nodes[1]);
  nodes[1] = osg::NullFC;
  checker.fixAmbiguousNodes();
  EXPECT_THAT(names(), ElementsAre("A", "A51", "A", "B", "B"));
  EXPECT_THAT(calls, ElementsAre("free 3 without", "mend 'A'"));
}

TEST_F(kuVariantCaptureCheckerNumbersTest, CoreThatHasLostItsNodesEndsItWhereNoNumberIsLeft) {
  numbers = {};
  auto nodes = groups({"A", "A", "B", "B"});
  kuVariantCaptureChecker checker;
  kuStandalone::SceneNode::of(scene.root()).removeChild(nodes[1]);
  nodes[1] = osg::NullFC;
  checker.fixAmbiguousNodes();
  EXPECT_THAT(calls, ElementsAre("free 1 without"));
}

TEST_F(kuVariantCaptureCheckerNumbersTest, CaptureMayGoOnWithDuplicatesLeft) {
  numbers = {};
  groups({"A", "A"});
  const DialogAnswer rename(QMessageBox::Yes);
  EXPECT_TRUE(kuVariants::verifyNodeNames());
  EXPECT_THAT(names(), ElementsAre("A", "A"));
}
