#include "SceneCaptureTest.h"
#include "standalone/scene/SceneNode.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Switch nodes, inactive nodes, lights and transforms in a capture.

namespace {

class KuVariantsCaptureNodesTest : public SceneCaptureTest {
 protected:
  static osg::NodePtr inactive(const osg::NodePtr& node) {
    SceneBuilder::setActive(node, false);
    return node;
  }
  void captureNodes() { capture(only(&CaptureFlags::nodes)); }
};

struct SwitchRow {
  const char* name;
  int choice;
  bool isActive;
  std::vector<std::string> content;
};

void PrintTo(const SwitchRow& row, std::ostream* out) { *out << row.name; }

class KuVariantsCaptureSwitchTest : public KuVariantsCaptureNodesTest,
                                    public ::testing::WithParamInterface<SwitchRow> {};

}  // namespace

TEST_P(KuVariantsCaptureSwitchTest, IsStoredWith) {
  const osg::NodePtr body = scene.switchNode("Body", GetParam().choice, {"Coupe", "Cabrio"});
  SceneBuilder::setActive(body, GetParam().isActive);
  captureNodes();
  EXPECT_EQ(content(), GetParam().content);
  EXPECT_THAT(scriptLines(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Switches, KuVariantsCaptureSwitchTest,
    ::testing::Values(
        SwitchRow{"FirstChild", 0, true, {"node Body=Coupe", "target Root"}},
        SwitchRow{"LastChild", 1, true, {"node Body=Cabrio", "target Root"}},
        SwitchRow{"NoneForNoChild", -1, true, {"node Body=!None", "target Root"}},
        SwitchRow{"NoneForAllChildren", -2, true, {"node Body=!None", "target Root"}},
        SwitchRow{"NoneBelowAllNumbersInUse", -3, true, {"node Body=!None", "target Root"}},
        SwitchRow{"NothingAtTheNumberOfChildren", 2, true, {"target Root"}},
        SwitchRow{"NothingBeyondTheNumberOfChildren", 7, true, {"target Root"}},
        SwitchRow{
            "DisableWhereInactiveWithAChild", 1, false, {"node Body=!Disable", "target Root"}},
        // The second look at the node, before its children, replaces the state.
        SwitchRow{"DisableWhereInactiveWithNone", -1, false, {"node Body=!Disable", "target Root"}},
        SwitchRow{
            "DisableWhereInactiveBeyondChildren", 2, false, {"node Body=!Disable", "target Root"}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(KuVariantsCaptureNodesTest, SwitchWithoutChildrenShowsNone) {
  scene.switchNode("Body", -1, {});
  scene.switchNode("Roof", 0, {});
  captureNodes();
  EXPECT_THAT(content(), ElementsAre("node Body=!None", "target Root"));
}

TEST_F(KuVariantsCaptureNodesTest, ChildrenOfASwitchBeyondItsChildrenAreWalked) {
  const osg::NodePtr body = scene.switchNode("Body", 5, {"Coupe"});
  scene.switchNode("Roof", 0, {"Open"}, body->getChild(0));
  captureNodes();
  EXPECT_THAT(content(), ElementsAre("node Roof=Open", "target Root"));
}

TEST_F(KuVariantsCaptureNodesTest, ChildrenThatASwitchDoesNotShowAreWalked) {
  const osg::NodePtr body = scene.switchNode("Body", 0, {"Coupe", "Cabrio"});
  scene.switchNode("Roof", 0, {"Open"}, body->getChild(1));
  captureNodes();
  EXPECT_THAT(content(), ElementsAre("node Body=Coupe", "node Roof=Open", "target Root"));
}

TEST_F(KuVariantsCaptureNodesTest, UnnamedChildGivesTheDefaultOfTheVariant) {
  scene.switchNode("Body", 0, {"", "Cabrio"});
  captureNodes();
  const QString usual = kuVariants::findNodeVariant("Body")->getDefault();
  EXPECT_THAT(content(), ElementsAre("node Body=" + usual.toStdString(), "target Root"));
}

TEST_F(KuVariantsCaptureNodesTest, UnnamedSwitchIsSkippedAndItsChildrenAreWalked) {
  const osg::NodePtr unnamed = scene.switchNode("", 0, {"Coupe"});
  scene.switchNode("Roof", 0, {"Open"}, unnamed->getChild(0));
  captureNodes();
  EXPECT_THAT(content(), ElementsAre("node Roof=Open", "target Root"));
}

TEST_F(KuVariantsCaptureNodesTest, SecondSwitchOfANameReplacesTheState) {
  scene.switchNode("Body", 0, {"Coupe", "Cabrio"});
  scene.switchNode("Roof", 0, {"Open"});
  scene.switchNode("Body", 1, {"Coupe", "Cabrio"});
  captureNodes();
  EXPECT_THAT(content(), ElementsAre("node Body=Cabrio", "node Roof=Open", "target Root"));
}

TEST_F(KuVariantsCaptureNodesTest, InactiveGroupEndsTheWalkAndIsStored) {
  const osg::NodePtr car = inactive(scene.group("Car"));
  scene.switchNode("Body", 0, {"Coupe"}, car);
  scene.switchNode("Roof", 0, {"Open"});
  captureNodes();
  EXPECT_THAT(content(), ElementsAre("node Car=!Disable", "node Roof=Open", "target Root"));
  EXPECT_THAT(scriptLines(), IsEmpty());
}

TEST_F(KuVariantsCaptureNodesTest, InactiveGroupEndsTheWalkUnstoredWithoutInclNodes) {
  const osg::NodePtr car = inactive(scene.group("Car"));
  scene.light("Lamp", true, car);
  scene.group("Car");
  capture(only(&CaptureFlags::lights));
  EXPECT_THAT(content(), ElementsAre("target Root"));
  EXPECT_THAT(scriptLines(), IsEmpty());
}

TEST_F(KuVariantsCaptureNodesTest, InactiveMaterialGroupEndsTheWalkAndIsStored) {
  const osg::NodePtr trim = inactive(scene.materialGroup("Trim", scene.material("Chrome")));
  scene.switchNode("Body", 0, {"Coupe"}, trim);
  CaptureFlags flags = only(&CaptureFlags::nodes);
  flags.mats = true;
  capture(flags);
  EXPECT_THAT(content(), ElementsAre("node Trim=!Disable", "target Root"));
  EXPECT_THAT(scriptLines(), IsEmpty());
}

TEST_F(KuVariantsCaptureNodesTest, InactiveGeometryIsStoredWithoutItsMaterial) {
  const osg::NodePtr hood =
      inactive(scene.geometry("Hood", scene.switchMaterial("Paint", {scene.material("Red")}, 0)));
  scene.switchNode("Body", 0, {"Coupe"}, hood);
  CaptureFlags flags = only(&CaptureFlags::nodes);
  flags.mats = true;
  capture(flags);
  EXPECT_THAT(content(), ElementsAre("node Hood=!Disable", "target Root"));
}

TEST_F(KuVariantsCaptureNodesTest, InactiveMaterialGroupAndGeometryWithActiveNamesakesGiveScript) {
  const osg::NodePtr car = scene.group("Car");
  inactive(scene.materialGroup("Trim", scene.material("Chrome"), car));
  inactive(scene.geometry("Hood", scene.material("Red"), car));
  scene.group("Trim");
  scene.group("Hood");
  captureNodes();
  EXPECT_THAT(content(), ElementsAre("target Root"));
  EXPECT_EQ(set.getScript(),
            "findNodePath(\"Car/Trim\").setActive(false)\n"
            "findNodePath(\"Car/Hood\").setActive(false)");
}

TEST_F(KuVariantsCaptureNodesTest, InactiveNodeWithAnActiveNamesakeGetsAScriptLine) {
  const osg::NodePtr car = scene.group("Car");
  inactive(scene.group("Mirror", scene.group("Left", car)));
  scene.group("Mirror", scene.group("Right", car));
  captureNodes();
  EXPECT_THAT(content(), ElementsAre("target Root"));
  EXPECT_EQ(set.getScript(), "findNodePath(\"Car/Left/Mirror\").setActive(false)");
  EXPECT_THAT(kuVariants::getNodeVariants(), IsEmpty());
}

TEST_F(KuVariantsCaptureNodesTest, NamesakeOutsideTheCapturedRootCounts) {
  const osg::NodePtr car = scene.group("Car");
  inactive(scene.group("Mirror", car));
  scene.group("Mirror", scene.group("Wall"));
  capture(set, only(&CaptureFlags::nodes), {car});
  EXPECT_THAT(content(), ElementsAre("target Car"));
  EXPECT_THAT(scriptLines(), ElementsAre("findNodePath(\"Car/Mirror\").setActive(false)"));
}

TEST_F(KuVariantsCaptureNodesTest, NamesakeAmongTheSceneplatesDoesNotCount) {
  inactive(scene.group("Logo"));
  scene.sceneplate("Logo");
  captureNodes();
  EXPECT_THAT(content(), ElementsAre("node Logo=!Disable", "target Root"));
  EXPECT_THAT(scriptLines(), IsEmpty());
}

TEST_F(KuVariantsCaptureNodesTest, InactiveNamesakesAreStoredAsOne) {
  inactive(scene.group("Mirror", scene.group("Left")));
  inactive(scene.group("Mirror", scene.group("Right")));
  captureNodes();
  EXPECT_THAT(content(), ElementsAre("node Mirror=!Disable", "target Root"));
  EXPECT_THAT(scriptLines(), IsEmpty());
}

TEST_F(KuVariantsCaptureNodesTest, SiblingsOfOneNameGiveTheSameLineEach) {
  inactive(scene.group("Mirror"));
  inactive(scene.group("Mirror"));
  scene.group("Mirror");
  captureNodes();
  EXPECT_THAT(scriptLines(), ElementsAre("findNodePath(\"Mirror\").setActive(false)",
                                         "findNodePath(\"Mirror\").setActive(false)"));
}

TEST_F(KuVariantsCaptureNodesTest, InactiveSwitchWithAnActiveNamesakeGetsBothStateAndScriptLine) {
  inactive(scene.switchNode("Body", 0, {"Coupe"}));
  scene.group("Body");
  captureNodes();
  EXPECT_THAT(content(), ElementsAre("node Body=!Disable", "target Root"));
  EXPECT_THAT(scriptLines(), ElementsAre("findNodePath(\"Body\").setActive(false)"));
}

TEST_F(KuVariantsCaptureNodesTest, InactiveSwitchWithNoneAndAnActiveNamesakeStaysNone) {
  inactive(scene.switchNode("Body", -1, {"Coupe"}));
  scene.group("Body");
  captureNodes();
  EXPECT_THAT(content(), ElementsAre("node Body=!None", "target Root"));
  EXPECT_THAT(scriptLines(), ElementsAre("findNodePath(\"Body\").setActive(false)"));
}

TEST_F(KuVariantsCaptureNodesTest, UnnamedInactiveNodeAloneIsSkipped) {
  const osg::NodePtr unnamed = inactive(scene.group(""));
  scene.switchNode("Body", 0, {"Coupe"}, unnamed);
  captureNodes();
  EXPECT_THAT(content(), ElementsAre("target Root"));
  EXPECT_THAT(scriptLines(), IsEmpty());
}

TEST_F(KuVariantsCaptureNodesTest, UnnamedInactiveNodeBesideAnActiveOneGetsAScriptLine) {
  inactive(scene.group("", scene.group("Car")));
  scene.group("");
  captureNodes();
  EXPECT_EQ(set.getScript(), "findNodePath(\"Car/\").setActive(false)");
}

TEST_F(KuVariantsCaptureNodesTest, InactiveNodesThatAreNoGroupsAreNotLookedAt) {
  inactive(scene.bare("Empty"));
  inactive(scene.light("Lamp", true));
  captureNodes();
  EXPECT_THAT(content(), ElementsAre("target Root"));
}

TEST_F(KuVariantsCaptureNodesTest, LightIsEnabledOnlyWhereActiveAndOn) {
  scene.light("On", true);
  scene.light("Off", false);
  inactive(scene.light("Hidden", true));
  inactive(scene.light("HiddenOff", false));
  scene.light("", true);
  capture(only(&CaptureFlags::lights));
  EXPECT_THAT(content(),
              ElementsAre("light On=!Enable", "light Off=!Disable", "light Hidden=!Disable",
                          "light HiddenOff=!Disable", "target Root"));
}

TEST_F(KuVariantsCaptureNodesTest, TransformIsStoredWithTheStateThatTheVariantCallsPresent) {
  scene.transforms("Door", {"Closed", "Open"}, 0, 1);
  capture(only(&CaptureFlags::transforms));
  EXPECT_THAT(content(), ElementsAre("transform Door=Open", "target Root"));
}

TEST_F(KuVariantsCaptureNodesTest, TransformWithoutSupposedStateTakesTheDefault) {
  scene.transforms("Door", {"Closed", "Open"}, 1, -1);
  capture(only(&CaptureFlags::transforms));
  EXPECT_THAT(content(), ElementsAre("transform Door=!Next", "target Root"));
}

TEST_F(KuVariantsCaptureNodesTest, TransformOutsideItsStatesIsSkipped) {
  scene.transforms("Door", {"Closed", "Open"}, 2, 1);
  capture(only(&CaptureFlags::transforms));
  EXPECT_THAT(content(), ElementsAre("target Root"));
}

TEST_F(KuVariantsCaptureNodesTest, TransformWithoutStatesIsSkipped) {
  scene.transforms("Door", {}, 0, 0);
  capture(only(&CaptureFlags::transforms));
  EXPECT_THAT(content(), ElementsAre("target Root"));
  EXPECT_THAT(kuVariants::getTransformVariants(), IsEmpty());
}

TEST_F(KuVariantsCaptureNodesTest, TransformWithUnnamedStatesIsSkipped) {
  scene.transforms("Door", {"", ""}, 0, 0);
  capture(only(&CaptureFlags::transforms));
  EXPECT_THAT(content(), ElementsAre("target Root"));
}

TEST_F(KuVariantsCaptureNodesTest, InactiveTransformIsStoredAllTheSame) {
  inactive(scene.transforms("Door", {"Closed", "Open"}, 1, 1));
  capture(only(&CaptureFlags::transforms));
  EXPECT_THAT(content(), ElementsAre("transform Door=Open", "target Root"));
}
