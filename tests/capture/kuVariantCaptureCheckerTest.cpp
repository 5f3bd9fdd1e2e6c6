// What the capture checker finds, and whether it reaches variant sets.

#include <functional>
#include <ostream>

#include "capture/CheckerTest.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"
#include "scene/kuLightVariant.h"
#include "scene/kuMaterialVariant.h"
#include "scene/kuNodeVariant.h"
#include "scene/kuOverlayVariant.h"
#include "scene/kuTransformVariant.h"
#include "standalone/scene/SceneNode.h"

using Access = kuVariantsTestAccess;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

using Cores = std::vector<osg::NodeCorePtr>;
using CoreSet = std::set<osg::NodeCorePtr>;
using CoresByName = std::map<QString, Cores>;
using CoresByStrippedName = std::map<std::string, Cores>;

class kuVariantCaptureCheckerTest : public CheckerTest {};

osg::NodeCorePtr coreOf(const osg::NodePtr& node) { return node->getCore(); }

}  // namespace

TEST_F(kuVariantCaptureCheckerTest, EmptySceneWithoutSceneplatesHasItsRootAlone) {
  const kuVariantCaptureChecker checker;
  EXPECT_FALSE(checker.hasAmbiguousNodes());
  EXPECT_FALSE(checker.containsAmbiguousVariantSets());
  EXPECT_EQ(Access::coresByName(checker), (CoresByName{{"Root", {coreOf(scene.root())}}}));
  EXPECT_EQ(Access::visitedCores(checker), (CoreSet{coreOf(scene.root())}));
}

TEST_F(kuVariantCaptureCheckerTest, EveryNameStandsWithTheCoresOfAllItsBearersInOrder) {
  const osg::NodePtr first = scene.group("A");
  const osg::NodePtr child = scene.light("B", true, first);
  const osg::NodePtr second = scene.geometry("A");
  const kuVariantCaptureChecker checker;
  EXPECT_EQ(Access::coresByName(checker), (CoresByName{{"A", {coreOf(first), coreOf(second)}},
                                                       {"B", {coreOf(child)}},
                                                       {"Root", {coreOf(scene.root())}}}));
}

TEST_F(kuVariantCaptureCheckerTest, SecondAndLaterBearersStandUnderTheNameWithoutItsNumber) {
  const auto nodes = groups({"A1", "B", "A1", "A2", "B", "A1", "A2"});
  const kuVariantCaptureChecker checker;
  EXPECT_TRUE(checker.hasAmbiguousNodes());
  EXPECT_EQ(Access::coresByStrippedName(checker),
            (CoresByStrippedName{{"A", {coreOf(nodes[2]), coreOf(nodes[5]), coreOf(nodes[6])}},
                                 {"B", {coreOf(nodes[4])}}}));
}

TEST_F(kuVariantCaptureCheckerTest, NamesThatDifferOnlyByTheirNumberAreNoDuplicates) {
  groups({"A", "A1", "A2", "A01"});
  EXPECT_FALSE(hasAmbiguousNodes());
}

TEST_F(kuVariantCaptureCheckerTest, NamesThatDifferInCaseAreNoDuplicates) {
  groups({"Roof", "roof"});
  EXPECT_FALSE(hasAmbiguousNodes());
}

TEST_F(kuVariantCaptureCheckerTest, TheRootsNameCountsToo) {
  scene.group("Root");
  EXPECT_TRUE(hasAmbiguousNodes());
}

TEST_F(kuVariantCaptureCheckerTest, NodesSharingOneCoreAreVisitedOnce) {
  const osg::NodePtr original = scene.group("A");
  scene.clone(original);
  const kuVariantCaptureChecker checker;
  EXPECT_FALSE(checker.hasAmbiguousNodes());
  EXPECT_EQ(Access::coresByName(checker).at("A"), Cores{coreOf(original)});
  EXPECT_EQ(Access::visitedCores(checker), (CoreSet{coreOf(scene.root()), coreOf(original)}));
}

TEST_F(kuVariantCaptureCheckerTest, ChildrenOfASharedCoreAreWalkedOnce) {
  scene.group("Child");
  const osg::NodePtr original = scene.group("Original");
  scene.group("Child", scene.clone(original, "Clone"));
  EXPECT_FALSE(hasAmbiguousNodes());
}

TEST_F(kuVariantCaptureCheckerTest, NodeWithoutACoreIsPassedOverWithItsChildren) {
  scene.bare("A");
  scene.group("A", scene.bare("A"));
  const kuVariantCaptureChecker checker;
  EXPECT_FALSE(checker.hasAmbiguousNodes());
  EXPECT_EQ(Access::coresByName(checker).count("A"), 0u);
}

TEST_F(kuVariantCaptureCheckerTest, ChildrenBelowAGeometryAreNotScanned) {
  const osg::NodePtr geometry = scene.geometry("Body");
  scene.group("A");
  scene.group("A", geometry);
  scene.group("A", geometry);
  EXPECT_FALSE(hasAmbiguousNodes());
}

TEST_F(kuVariantCaptureCheckerTest, ChildrenBelowEveryOtherKindAreScanned) {
  const auto material = scene.material("Paint");
  for (const osg::NodePtr& parent :
       {scene.group("Group"), scene.switchNode("Switch", -1, {}), scene.light("Light", false),
        scene.transforms("Transforms", {"Open"}, 0, -1), scene.materialGroup("Materials", material),
        scene.sceneplate("Plate")})
    scene.group("A", parent);
  const kuVariantCaptureChecker checker;
  EXPECT_EQ(Access::coresByStrippedName(checker).at("A").size(), 5u);
}

TEST_F(kuVariantCaptureCheckerTest, InactiveNodesAreScanned) {
  const auto nodes = groups({"A", "A"});
  SceneBuilder::setActive(nodes[1], false);
  EXPECT_TRUE(hasAmbiguousNodes());
}

TEST_F(kuVariantCaptureCheckerTest, SceneNodesAndSceneplatesShareOneNameSpaceSceneNodesFirst) {
  const osg::NodePtr plate = scene.sceneplate("A");
  const osg::NodePtr node = scene.group("A");
  const kuVariantCaptureChecker checker;
  EXPECT_EQ(Access::coresByName(checker).at("A"), (Cores{coreOf(node), coreOf(plate)}));
  EXPECT_EQ(Access::coresByStrippedName(checker), (CoresByStrippedName{{"A", {coreOf(plate)}}}));
}

TEST_F(kuVariantCaptureCheckerTest, CoresWithTransformStatesOfOneNameAreNotedAndDoNotCount) {
  const osg::NodePtr ambiguous = scene.transforms("A", {"Open", "Shut", "Open"}, 0, -1);
  scene.transforms("B", {"Open", "Shut", "open"}, 0, -1);
  scene.transforms("C", {}, 0, -1);
  const kuVariantCaptureChecker checker;
  EXPECT_FALSE(checker.hasAmbiguousNodes());
  EXPECT_EQ(Access::coresWithAmbiguousTransformVariants(checker), CoreSet{coreOf(ambiguous)});
}

TEST_F(kuVariantCaptureCheckerTest, DuplicateTransformStatesOfADuplicateNodeAreNotedAsWell) {
  scene.group("A");
  const osg::NodePtr node = scene.transforms("A", {"Open", "Open"}, 0, -1);
  const kuVariantCaptureChecker checker;
  EXPECT_TRUE(checker.hasAmbiguousNodes());
  EXPECT_EQ(Access::coresWithAmbiguousTransformVariants(checker), CoreSet{coreOf(node)});
}

TEST_F(kuVariantCaptureCheckerTest, ItTellsTheSceneAsItWasWhenItWasMade) {
  const auto nodes = groups({"A", "A"});
  const kuVariantCaptureChecker checker;
  kuStandalone::SceneNode::of(nodes[1]).setName("B");
  EXPECT_TRUE(checker.hasAmbiguousNodes());
  EXPECT_FALSE(hasAmbiguousNodes());
}

TEST_F(kuVariantCaptureCheckerTest, CopyAndAssignmentTakeAllFourContainers) {
  scene.transforms("A", {"Open", "Open"}, 0, -1);
  scene.group("A");
  const kuVariantCaptureChecker checker;
  SceneBuilder();  // empties the scene
  kuVariantCaptureChecker assigned;
  EXPECT_FALSE(assigned.hasAmbiguousNodes());
  assigned = checker;
  for (const kuVariantCaptureChecker& copy : {kuVariantCaptureChecker(checker), assigned}) {
    EXPECT_EQ(Access::coresByName(copy), Access::coresByName(checker));
    EXPECT_EQ(Access::coresByStrippedName(copy), Access::coresByStrippedName(checker));
    EXPECT_EQ(Access::coresWithAmbiguousTransformVariants(copy),
              Access::coresWithAmbiguousTransformVariants(checker));
    EXPECT_EQ(Access::visitedCores(copy), Access::visitedCores(checker));
  }
  EXPECT_EQ(Access::coresWithAmbiguousTransformVariants(checker).size(), 1u);
  EXPECT_EQ(Access::visitedCores(checker).size(), 3u);
}

namespace {

/** What a set holds, and whether that is reached by the second node "Roof", whose path is
 * "Car/Roof". */
struct HoldingRow {
  const char* name;
  void (*fill)(kuVariantSet& set);
  bool isReached;
};

void PrintTo(const HoldingRow& row, std::ostream* out) { *out << row.name; }

class CheckerHoldingTest : public CheckerTest, public ::testing::WithParamInterface<HoldingRow> {};

kuNodeVariant* nodeVariant(const char* name) { return kuVariants::createNodeVariant(name, false); }
kuMaterialVariant* materialVariant(const char* name) {
  return kuVariants::createMaterialVariant(name, false);
}
kuLightVariant* lightVariant(const char* name) {
  return kuVariants::createLightVariant(name, false);
}
kuOverlayVariant* overlayVariant(const char* name) {
  return kuVariants::createOverlayVariant(name, false);
}
kuTransformVariant* transformVariant(const char* name) {
  return kuVariants::createTransformVariant(name, false);
}

const HoldingRow holdingRows[] = {
    {"OverlayVariant", [](kuVariantSet& s) { s.add(overlayVariant("Roof"), "!None"); }, true},
    {"OverlayState", [](kuVariantSet& s) { s.add(overlayVariant("Other"), "Roof"); }, true},
    {"SnapshotOfThePath", [](kuVariantSet& s) { s.addMaterialSnapshot("Car/Roof", "M"); }, true},
    {"NodeVariant", [](kuVariantSet& s) { s.add(nodeVariant("Roof"), "!None"); }, true},
    {"NodeState", [](kuVariantSet& s) { s.add(nodeVariant("Other"), "Roof"); }, true},
    {"Viewpoint", [](kuVariantSet& s) { s.addViewpoint("Roof"); }, true},
    {"LightVariant", [](kuVariantSet& s) { s.add(lightVariant("Roof"), "!Enable"); }, true},
    {"LightState", [](kuVariantSet& s) { s.add(lightVariant("Other"), "Roof"); }, true},
    {"Nothing", [](kuVariantSet&) {}, false},
    {"OtherNames", [](kuVariantSet& s) { s.add(nodeVariant("Car"), "Front"); }, false},
    {"OtherCase", [](kuVariantSet& s) { s.add(nodeVariant("roof"), "ROOF"); }, false},
    {"PartOfAName", [](kuVariantSet& s) { s.add(nodeVariant("Roof1"), "Roo"); }, false},
    {"SnapshotOfTheNameAlone", [](kuVariantSet& s) { s.addMaterialSnapshot("Roof", "M"); }, false},
    {"SnapshotMaterial", [](kuVariantSet& s) { s.addMaterialSnapshot("Car", "Roof"); }, false},
    {"MaterialVariant", [](kuVariantSet& s) { s.add(materialVariant("Roof"), "Red"); }, false},
    {"MaterialState", [](kuVariantSet& s) { s.add(materialVariant("M"), "Roof"); }, false},
    {"TransformVariant", [](kuVariantSet& s) { s.add(transformVariant("Roof"), "Up"); }, false},
    {"TransformState", [](kuVariantSet& s) { s.add(transformVariant("T"), "Roof"); }, false},
    {"Geometry", [](kuVariantSet& s) { s.addGeometry("Roof"); }, false},
    {"Animation", [](kuVariantSet& s) { s.addAnimation("Roof"); }, false},
    {"TargetNode", [](kuVariantSet& s) { s.addTargetNodeName("Roof"); }, false},
    {"Script", [](kuVariantSet& s) { s.setScript("Roof"); }, false},
    {"NameOfTheSet", [](kuVariantSet& s) { s.setName("Roof"); }, false},
};

}  // namespace

TEST_P(CheckerHoldingTest, TellsWhetherAFixReachesTheSet) {
  scene.group("Roof");
  scene.group("Roof", scene.group("Car"));
  kuVariants::createVariantSet("First", false, nullptr);
  GetParam().fill(*kuVariants::createVariantSet("Set", false, nullptr));
  EXPECT_EQ(kuVariantCaptureChecker().containsAmbiguousVariantSets(), GetParam().isReached);
}

INSTANTIATE_TEST_SUITE_P(All, CheckerHoldingTest, ::testing::ValuesIn(holdingRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(kuVariantCaptureCheckerTest, PathOfTheFirstBearerReachesNoSet) {
  scene.group("Roof");
  scene.group("Roof", scene.group("Car"));
  kuVariants::createVariantSet("Set", false, nullptr)->addMaterialSnapshot("Roof", "Paint");
  EXPECT_FALSE(kuVariantCaptureChecker().containsAmbiguousVariantSets());
}

TEST_F(kuVariantCaptureCheckerTest, NameThatIsNotAmbiguousReachesNoSet) {
  groups({"Roof", "Roof", "Door"});
  kuVariants::createVariantSet("Set", false, nullptr)->add(nodeVariant("Door"), "!None");
  EXPECT_FALSE(kuVariantCaptureChecker().containsAmbiguousVariantSets());
}

TEST_F(kuVariantCaptureCheckerTest, LaterDuplicatesAreHeldAgainstTheSetsToo) {
  groups({"Door", "Door", "Roof", "Roof", "Wheel", "Wheel"});
  kuVariants::createVariantSet("Set", false, nullptr)->add(nodeVariant("Wheel"), "!None");
  EXPECT_TRUE(kuVariantCaptureChecker().containsAmbiguousVariantSets());
}

TEST_F(kuVariantCaptureCheckerTest, NodeIsHeldAgainstTheSetsByItsPresentName) {
  const auto nodes = groups({"Roof", "Roof"});
  kuVariants::createVariantSet("Set", false, nullptr)->add(nodeVariant("Lid"), "!None");
  const kuVariantCaptureChecker checker;
  EXPECT_FALSE(checker.containsAmbiguousVariantSets());
  kuStandalone::SceneNode::of(nodes[1]).setName("Lid");
  EXPECT_TRUE(checker.containsAmbiguousVariantSets());
}

TEST_F(kuVariantCaptureCheckerTest, CoreThatHasLostItsNodesReachesNoSet) {
  groups({"Roof", "Roof"});
  kuVariants::createVariantSet("Set", false, nullptr)->add(nodeVariant("Roof"), "!None");
  const kuVariantCaptureChecker checker;
  EXPECT_TRUE(checker.containsAmbiguousVariantSets());
  SceneBuilder();  // empties the scene
  EXPECT_FALSE(checker.containsAmbiguousVariantSets());
}

TEST_F(kuVariantCaptureCheckerTest, UnnamedDuplicateReachesASetWithAnEmptyState) {
  groups({"", ""});
  kuVariants::createVariantSet("Set", false, nullptr)->add(nodeVariant("Roof"), "");
  EXPECT_EQ(kuVariants::findVariantSet("Set")->getNodeVariants().front().getState(), "");
  EXPECT_TRUE(kuVariantCaptureChecker().containsAmbiguousVariantSets());
}
