// How the capture checker renames what it has found.

#include <ostream>

#include "capture/CheckerTest.h"
#include "host/kernel/kuScenegraph.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"
#include "scene/kuNodeVariant.h"
#include "standalone/scene/Cores.h"
#include "standalone/scene/SceneNode.h"
#include "support/BracketRecorder.h"
#include "support/ManagerDump.h"

using Access = kuVariantsTestAccess;
using kuStandalone::SceneNode;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

using Names = std::vector<std::string>;

class kuVariantCaptureCheckerFixTest : public CheckerTest {};

struct RenameRow {
  const char* name;
  Names before, after;
};

void PrintTo(const RenameRow& row, std::ostream* out) { *out << row.name; }

class CheckerRenameTest : public CheckerTest, public ::testing::WithParamInterface<RenameRow> {};

const RenameRow renameRows[] = {
    {"NothingToDo", {"A", "A1", "B"}, {"A", "A1", "B"}},
    {"TheFirstOfThreeKeepsItsName", {"A", "A", "A"}, {"A", "A1", "A2"}},
    {"NumbersInUseAreLeftOut", {"A1", "A1", "A2"}, {"A1", "A3", "A2"}},
    {"NumbersInUseBehindTheDuplicatesCountToo", {"A", "A", "A", "A2"}, {"A", "A1", "A3", "A2"}},
    {"NewNamesComeFromTheStrippedName", {"Box3", "Box3"}, {"Box3", "Box1"}},
    {"FullNamesOfOneBaseShareItsNumbers", {"A7", "A7", "A", "A"}, {"A7", "A1", "A", "A2"}},
    {"OtherBasesHaveNumbersOfTheirOwn", {"A1", "B", "B", "a2"}, {"A1", "B", "B1", "a2"}},
    {"LeadingZerosAreTheSameNumber", {"A01", "A01"}, {"A01", "A2"}},
    {"NumberZero", {"A0", "A0"}, {"A0", "A1"}},
    {"NumbersInTheMiddleStay", {"A1B", "A1B"}, {"A1B", "A1B1"}},
    {"TrailingSpaceIsNoNumber", {"A1 ", "A1 "}, {"A1 ", "A1 1"}},
    {"OnlyDigits", {"7", "7"}, {"7", "1"}},
    {"OnlyDigitsInUse", {"1", "1", "2"}, {"1", "3", "2"}},
    {"UnnamedNodesAreDuplicatesOfOneAnother", {"", "", ""}, {"", "1", "2"}},
    {"UnnamedNodesShareNumbersWithNamesOfDigits", {"", "", "1", "1"}, {"", "2", "1", "3"}},
    {"LargestNumber",
     {"A18446744073709551615", "A18446744073709551615"},
     {"A18446744073709551615", "A1"}},
    {"NumberThatIsTooLargeIsPartOfTheName",
     {"A18446744073709551616", "A18446744073709551616"},
     {"A18446744073709551616", "A18446744073709551616_1"}},
    {"NumberBehindATooLargeOneInUse",
     {"A18446744073709551616", "A18446744073709551616", "A18446744073709551616_1"},
     {"A18446744073709551616", "A18446744073709551616_2", "A18446744073709551616_1"}},
    {"NumberBehindADigitInUse", {"A7_1", "A7_1", "A7_2"}, {"A7_1", "A7_3", "A7_2"}},
    {"TextBeyondAscii", {"Größe", "Größe", "車1", "車1"}, {"Größe", "Größe1", "車1", "車2"}},
    {"TextBeyondTheBasicPlane", {"🚗", "🚗"}, {"🚗", "🚗1"}},
    {"SlashesAndQuotes", {"a/b'\"", "a/b'\""}, {"a/b'\"", "a/b'\"1"}},
};

}  // namespace

TEST_P(CheckerRenameTest, GivesEveryNodeANameOfItsOwn) {
  const auto nodes = groups(GetParam().before);
  kuVariantCaptureChecker().fixAmbiguousNodes();
  EXPECT_EQ(namesOf(nodes), GetParam().after);
  EXPECT_FALSE(hasAmbiguousNodes());
}

INSTANTIATE_TEST_SUITE_P(All, CheckerRenameTest, ::testing::ValuesIn(renameRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(kuVariantCaptureCheckerFixTest, FirstIsWhoComesFirstDepthFirst) {
  const osg::NodePtr car = scene.group("Car");
  scene.group("Seat");
  scene.group("Seat", scene.group("Inside", car));
  kuVariantCaptureChecker().fixAmbiguousNodes();
  EXPECT_THAT(names(), ElementsAre("Car", "Inside", "Seat", "Seat1"));
}

TEST_F(kuVariantCaptureCheckerFixTest, SceneplateGivesWayToASceneNode) {
  scene.sceneplate("Logo");
  scene.group("Logo");
  kuVariantCaptureChecker().fixAmbiguousNodes();
  EXPECT_THAT(names(), ElementsAre("Logo", "Logo1"));
}

TEST_F(kuVariantCaptureCheckerFixTest, NumbersOfSceneplatesAreInUseForSceneNodes) {
  scene.sceneplate("Logo1");
  groups({"Logo", "Logo"});
  kuVariantCaptureChecker().fixAmbiguousNodes();
  EXPECT_THAT(names(), ElementsAre("Logo", "Logo2", "Logo1"));
}

TEST_F(kuVariantCaptureCheckerFixTest, NamesBelowAGeometryStayAndTheirNumbersAreNotSeen) {
  scene.group("A");
  const osg::NodePtr geometry = scene.geometry("A");
  scene.group("A", geometry);
  scene.group("A1", geometry);
  kuVariantCaptureChecker().fixAmbiguousNodes();
  EXPECT_THAT(names(), ElementsAre("A", "A1", "A", "A1"));
}

TEST_F(kuVariantCaptureCheckerFixTest, ClonesKeepTheNameThatTheyShare) {
  scene.clone(scene.group("A"));
  kuVariantCaptureChecker().fixAmbiguousNodes();
  EXPECT_THAT(names(), ElementsAre("A", "A"));
}

TEST_F(kuVariantCaptureCheckerFixTest, OfADuplicateWithClonesTheFirstNodeOfTheCoreIsRenamed) {
  scene.group("A");
  const osg::NodePtr original = scene.group("A");
  scene.clone(original);
  scene.clone(original, "Clone");
  kuVariantCaptureChecker().fixAmbiguousNodes();
  EXPECT_THAT(names(), ElementsAre("A", "A1", "A", "Clone"));
}

TEST_F(kuVariantCaptureCheckerFixTest, FirstNodeOfACoreIsNotTheFirstInTheScene) {
  const osg::NodePtr front = scene.group("Front");
  const osg::NodePtr original = scene.group("Original");
  scene.group("A", front);
  const osg::NodePtr clone = scene.clone(original, "A", front);
  kuVariantCaptureChecker().fixAmbiguousNodes();
  EXPECT_THAT(namesOf({clone, original}), ElementsAre("A", "A1"));
}

TEST_F(kuVariantCaptureCheckerFixTest, NumberIsSpentOnACoreThatHasLostItsNodes) {
  auto nodes = groups({"A", "A", "A"});
  kuVariantCaptureChecker checker;
  SceneNode::of(scene.root()).removeChild(nodes[1]);
  nodes[1] = osg::NullFC;
  checker.fixAmbiguousNodes();
  EXPECT_THAT(names(), ElementsAre("A", "A2"));
}

TEST_F(kuVariantCaptureCheckerFixTest, TheSameCheckerStillSaysThatThereAreAmbiguousNodes) {
  groups({"A", "A"});
  kuVariantCaptureChecker checker;
  checker.fixAmbiguousNodes();
  EXPECT_TRUE(checker.hasAmbiguousNodes());
  EXPECT_FALSE(hasAmbiguousNodes());
}

TEST_F(kuVariantCaptureCheckerFixTest, CopyFixesAsTheOriginalWould) {
  groups({"A", "A"});
  const kuVariantCaptureChecker checker;
  kuVariantCaptureChecker copy(checker);
  copy.fixAmbiguousNodes();
  EXPECT_THAT(names(), ElementsAre("A", "A1"));
}

TEST_F(kuVariantCaptureCheckerFixTest, SearchByNameFollows) {
  const auto nodes = groups({"A", "A"});
  kuVariantCaptureChecker().fixAmbiguousNodes();
  EXPECT_EQ(kuScenegraph::findNode("A1").getNode(), nodes[1]);
  EXPECT_EQ(kuScenegraph::findNodes("A").size(), 1u);
}

TEST_F(kuVariantCaptureCheckerFixTest, VariantsAndSetsStayAndNothingIsSent) {
  const auto nodes = groups({"A", "A"});
  kuVariants::createNodeVariant(nodes[1], false);
  kuVariants::createVariantSet("Set", false, nullptr)->addMaterialSnapshot("A", "Paint");
  const std::string before = managerDump();
  kuVariantCaptureChecker().fixAmbiguousNodes();
  EXPECT_EQ(managerDump(), before);
  EXPECT_THAT(messages.lines(), IsEmpty());
  EXPECT_THAT(log, IsEmpty());
}

namespace {

class CheckerStatesTest : public CheckerTest, public ::testing::WithParamInterface<RenameRow> {};

const RenameRow stateRows[] = {
    {"TheFirstOfThreeKeepsItsName", {"Open", "Open", "Open"}, {"Open", "Open1", "Open2"}},
    {"NamesOfOtherStatesAreLeftOut", {"Open", "Open", "Open1"}, {"Open", "Open2", "Open1"}},
    {"DuplicatesOfTwoNames", {"A", "B", "B", "A"}, {"A", "B", "B1", "A1"}},
    {"NewNamesAreInUseForTheNext", {"A", "A", "A1", "A1"}, {"A", "A2", "A1", "A11"}},
    {"UnnamedStates", {"Open", "", ""}, {"Open", "", "1"}},
    {"TextBeyondAscii", {"Öffnen", "Öffnen"}, {"Öffnen", "Öffnen1"}},
};

}  // namespace

TEST_P(CheckerStatesTest, GivesEveryTransformStateANameOfItsOwn) {
  const osg::NodePtr node = scene.transforms("Door", GetParam().before, 0, -1);
  kuVariantCaptureChecker().fixTransformVariants();
  EXPECT_EQ(stateNames(node), GetParam().after);
  EXPECT_THAT(Access::coresWithAmbiguousTransformVariants(kuVariantCaptureChecker()), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(All, CheckerStatesTest, ::testing::ValuesIn(stateRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(kuVariantCaptureCheckerFixTest, FixOfTransformStatesAloneRenamesNoNode) {
  const osg::NodePtr door = scene.transforms("A", {"Open", "Open"}, 0, -1);
  scene.group("A");
  kuVariantCaptureChecker().fixTransformVariants();
  EXPECT_THAT(names(), ElementsAre("A", "A"));
  EXPECT_THAT(stateNames(door), ElementsAre("Open", "Open1"));
}

TEST_F(kuVariantCaptureCheckerFixTest, FixOfNamesAloneRenamesNoTransformState) {
  const osg::NodePtr door = scene.transforms("A", {"Open", "Open"}, 0, -1);
  scene.group("A");
  kuVariantCaptureChecker checker;
  Access::fixNames(checker);
  EXPECT_THAT(names(), ElementsAre("A", "A1"));
  EXPECT_THAT(stateNames(door), ElementsAre("Open", "Open"));
}

TEST_F(kuVariantCaptureCheckerFixTest, WholeFixRenamesNodesAndThenTransformStatesInBrackets) {
  scene.group("A");
  const osg::NodePtr door = scene.transforms("A", {"Open", "Open"}, 0, -1);
  const BracketRecorder recorder;
  kuVariantCaptureChecker().fixAmbiguousNodes();
  EXPECT_THAT(names(), ElementsAre("A", "A1"));
  EXPECT_THAT(stateNames(door), ElementsAre("Open", "Open1"));
  std::vector<std::string> classes;
  for (const auto& bracket : recorder.brackets())
    classes.push_back(bracket.first);
  EXPECT_THAT(classes, ElementsAre("Node", "SwitchComponentTransform"));
}

TEST_F(kuVariantCaptureCheckerFixTest, SharedTransformStatesAreRenamedOnce) {
  const osg::NodePtr door = scene.transforms("Door", {"Open", "Open"}, 0, -1);
  const osg::NodePtr clone = scene.clone(door);
  kuVariantCaptureChecker().fixTransformVariants();
  EXPECT_THAT(stateNames(door), ElementsAre("Open", "Open1"));
  EXPECT_THAT(stateNames(clone), ElementsAre("Open", "Open1"));
}

TEST_F(kuVariantCaptureCheckerFixTest, TransformStatesOfACoreThatHasLostItsNodesStay) {
  const osg::NodeCorePtr core = scene.transforms("Door", {"Open", "Open"}, 0, -1)->getCore();
  const osg::NodePtr other = scene.transforms("Lid", {"Open", "Open"}, 0, -1);
  kuVariantCaptureChecker checker;
  SceneNode::of(scene.root()).removeChild(scene.root()->getChild(0));
  checker.fixTransformVariants();
  EXPECT_EQ(kuStandalone::TransformSwitchCore::of(core).states[1].name, "Open");
  EXPECT_THAT(stateNames(other), ElementsAre("Open", "Open1"));
}
