#include "scene/kuNodeVariant.h"

#include "standalone/scene/SceneNode.h"
#include "support/SceneTest.h"
#include "support/VariantText.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

using Texts = std::vector<std::string>;

class NodeVariantOptions : public SceneTest {
 protected:
  static void addChild(const osg::NodePtr& node, const std::string& name) {
    kuStandalone::SceneNode::of(node).addChild(
        kuStandalone::SceneNode::create(name, kuStandalone::GroupCore::create()));
  }
};

TEST_F(NodeVariantOptions, DefaultMadeVariantIsEmpty) {
  const kuNodeVariant variant;
  EXPECT_EQ(variant.getName(), "");
  EXPECT_EQ(variant.getNode(), "");
  EXPECT_EQ(variant.getDefault(), "");
  EXPECT_THAT(optionTexts(variant), IsEmpty());
}

TEST_F(NodeVariantOptions, NullNodeGivesAnEmptyVariant) {
  const kuNodeVariant variant{osg::NodePtr()};
  EXPECT_EQ(variant.getName(), "");
  EXPECT_THAT(optionTexts(variant), IsEmpty());
}

TEST_F(NodeVariantOptions, SwitchListsKeywordsThenChildrenOnceEach) {
  const kuNodeVariant variant(scene.switchNode("Rims", 1, {"Steel", "Alloy", "Steel"}));
  EXPECT_EQ(variant.getName(), "Rims");
  EXPECT_EQ(variant.getNode(), "Rims");
  EXPECT_EQ(variant.getDefault(), "Alloy");
  EXPECT_EQ(optionTexts(variant), (Texts{"!All", "!None", "!Next *", "!Next (Loop) *",
                                         "!Previous *", "!Previous (Loop) *", "Steel", "Alloy"}));
}

TEST_F(NodeVariantOptions, DefaultOfASwitchIsTheChildThatShowsOrNone) {
  EXPECT_EQ(kuNodeVariant(scene.switchNode("A", 0, {"X", "Y"})).getDefault(), "X");
  EXPECT_EQ(kuNodeVariant(scene.switchNode("B", -1, {"X", "Y"})).getDefault(), "!None");
  EXPECT_EQ(kuNodeVariant(scene.switchNode("C", 2, {"X", "Y"})).getDefault(), "!None");
  EXPECT_EQ(kuNodeVariant(scene.switchNode("D", -3, {"X", "Y"})).getDefault(), "!None");
}

TEST_F(NodeVariantOptions, SwitchThatShowsAllHasTheDefaultNone) {
  EXPECT_EQ(kuNodeVariant(scene.switchNode("Rims", -2, {"Steel"})).getDefault(), "!None");
}

TEST_F(NodeVariantOptions, TransformListsStepsThenItsNumberedStates) {
  const kuNodeVariant variant(scene.transforms("Door", {"Closed", "Open"}, 1, -1));
  EXPECT_EQ(variant.getDefault(), "!Next (Loop)");
  EXPECT_EQ(optionTexts(variant), (Texts{"!Next *", "!Next (Loop) *", "!Previous *",
                                         "!Previous (Loop) *", "Transform 0", "Transform 1"}));
}

TEST_F(NodeVariantOptions, OtherNodesListOnOffAndToggle) {
  const osg::NodePtr dark = scene.bare("Dark");
  SceneBuilder::setActive(dark, false);
  const kuNodeVariant lit(scene.group("Lit"));
  EXPECT_EQ(lit.getDefault(), "!Enable");
  EXPECT_EQ(optionTexts(lit), (Texts{"!Enable", "!Disable", "!Toggle *"}));
  EXPECT_EQ(kuNodeVariant(dark).getDefault(), "!Disable");
}

TEST_F(NodeVariantOptions, UnnamedNodeLeavesTheNamesEmptyAndGivesOptions) {
  const kuNodeVariant variant(scene.switchNode("", 0, {"Steel"}));
  EXPECT_EQ(variant.getName(), "");
  EXPECT_EQ(variant.getNode(), "");
  EXPECT_EQ(variant.getDefault(), "Steel");
  EXPECT_EQ(variant.getOptions().size(), 7u);
}

TEST_F(NodeVariantOptions, CopiesAreWholeAndSetNodeLeavesTheOptions) {
  kuNodeVariant variant(scene.group("Roof"));
  variant.setNode("Elsewhere");
  const kuNodeVariant copy = variant;
  EXPECT_EQ(copy.getName(), "Roof");
  EXPECT_EQ(copy.getNode(), "Elsewhere");
  EXPECT_EQ(copy.getDefault(), "!Enable");
  EXPECT_EQ(optionTexts(copy), (Texts{"!Enable", "!Disable", "!Toggle *"}));
}

// The present state.

TEST_F(NodeVariantOptions, CurrentOfASwitchTellsAllFromNoneAndNamesTheChild) {
  const std::vector<std::pair<int, const char*>> expected = {
      {-4, ""}, {-3, ""}, {-2, "!All"}, {-1, "!None"}, {0, "X"}, {1, "Y"}, {2, ""}, {3, ""}};
  for (const auto& [choice, state] : expected) {
    scene = SceneBuilder();
    EXPECT_EQ(kuNodeVariant(scene.switchNode("S", choice, {"X", "Y"})).getCurrent(), state)
        << choice;
  }
}

TEST_F(NodeVariantOptions, CurrentOfATransformIsItsFlagAndNeverItsChoice) {
  const osg::NodePtr door = scene.transforms("Door", {"Closed", "Open"}, 1, -1);
  const kuNodeVariant variant(door);
  EXPECT_EQ(variant.getCurrent(), "!Enable");
  SceneBuilder::setActive(door, false);
  EXPECT_EQ(variant.getCurrent(), "!Disable");
}

TEST_F(NodeVariantOptions, CurrentLooksAtTheFirstNodeAlone) {
  const osg::NodePtr first = scene.group("Roof");
  const osg::NodePtr second = scene.group("Roof");
  SceneBuilder::setActive(second, false);
  EXPECT_EQ(kuNodeVariant(second).getCurrent(), "!Enable");
  SceneBuilder::setActive(first, false);
  EXPECT_EQ(kuNodeVariant(second).getCurrent(), "!Disable");
}

TEST_F(NodeVariantOptions, CurrentWithoutANodeIsEmpty) {
  kuNodeVariant variant(scene.group("Roof"));
  variant.setNode("Elsewhere");
  EXPECT_EQ(variant.getCurrent(), "");
}

// Rebuilding.

TEST_F(NodeVariantOptions, UpdateKeepsHotkeysAndFollowsTheChildren) {
  const osg::NodePtr node = scene.switchNode("Rims", -1, {"Steel"});
  kuNodeVariant variant(node);
  variant.find("!Next")->setHotkey("F5");
  variant.find("Steel")->setHotkey("F6");
  variant.add("Gone", "F7");
  addChild(node, "Alloy");
  variant.updateVariants();
  EXPECT_EQ(optionTexts(variant),
            (Texts{"!All", "!None", "!Next * [F5]", "!Next (Loop) *", "!Previous *",
                   "!Previous (Loop) *", "Steel [F6]", "Alloy"}));
}

TEST_F(NodeVariantOptions, UpdateBringsUnseenStepsBackAsNormalOptions) {
  scene.switchNode("Rims", 0, {"Steel"});
  scene.group("Roof");
  kuNodeVariant rims;
  rims.setNode("Rims");
  rims.updateVariants();
  EXPECT_EQ(optionTexts(rims), (Texts{"!All", "!None", "!Next", "!Next (Loop)", "!Previous",
                                      "!Previous (Loop)", "Steel"}));
  kuNodeVariant roof;
  roof.setNode("Roof");
  roof.updateVariants();
  EXPECT_EQ(optionTexts(roof), (Texts{"!Enable", "!Disable", "!Toggle"}));
}

TEST_F(NodeVariantOptions, UpdateKeepsTheFlagsOfStatesAndMakesStepsActions) {
  scene.switchNode("Rims", 0, {"Steel"});
  kuNodeVariant variant;
  variant.setNode("Rims");
  variant.add(true, "!All", "");
  variant.add(true, "Steel", "");
  variant.add(false, "!Next", "");
  variant.updateVariants();
  EXPECT_EQ(optionTexts(variant), (Texts{"!All *", "!None", "!Next *", "!Next (Loop)", "!Previous",
                                         "!Previous (Loop)", "Steel *"}));
}

TEST_F(NodeVariantOptions, UpdateOfATransformDropsTheHotkeysOfItsStates) {
  kuNodeVariant variant(scene.transforms("Door", {"Closed", "Open"}, 0, -1));
  variant.find("!Previous")->setHotkey("F5");
  variant.find("Transform 1")->setHotkey("F6");
  variant.updateVariants();
  EXPECT_EQ(optionTexts(variant), (Texts{"!Next *", "!Next (Loop) *", "!Previous * [F5]",
                                         "!Previous (Loop) *", "Transform 0", "Transform 1"}));
  EXPECT_EQ(variant.getDefault(), "!Next (Loop)");
}

TEST_F(NodeVariantOptions, UpdateOfATransformRestoresAStateAsTheDefault) {
  kuNodeVariant variant(scene.transforms("Door", {"Closed", "Open"}, 0, -1));
  for (const auto& [before, after] : std::vector<std::pair<const char*, const char*>>{
           {"Transform 1", "Transform 1"}, {"Transform 2", "!Next (Loop)"}, {"", "!Next (Loop)"}}) {
    variant.setDefault(QString(before));
    variant.updateVariants();
    EXPECT_EQ(variant.getDefault(), after) << before;
  }
}

TEST_F(NodeVariantOptions, UpdateRestoresAStepThatCameBackAsNormalOptionAsTheDefault) {
  scene.transforms("Door", {"Closed", "Open"}, 0, -1);
  kuNodeVariant variant;
  variant.setNode("Door");
  variant.setDefault(QString("!Previous"));
  variant.updateVariants();
  EXPECT_EQ(optionTexts(variant), (Texts{"!Next", "!Next (Loop)", "!Previous", "!Previous (Loop)",
                                         "Transform 0", "Transform 1"}));
  EXPECT_EQ(variant.getDefault(), "!Previous");
}

TEST_F(NodeVariantOptions, UpdateOfAnotherNodeKeepsHotkeysAndMakesToggleAnAction) {
  kuNodeVariant variant(scene.group("Roof"));
  variant.find("!Enable")->setHotkey("F5");
  variant.find("!Disable")->setAction(true);
  variant.find("!Toggle")->setHotkey("F6");
  variant.find("!Toggle")->setAction(false);
  variant.updateVariants();
  EXPECT_EQ(optionTexts(variant), (Texts{"!Enable [F5]", "!Disable *", "!Toggle * [F6]"}));
}

TEST_F(NodeVariantOptions, UpdateLooksAtTheFirstNodeAlone) {
  scene.switchNode("S", 0, {"X"});
  kuNodeVariant variant(scene.group("S"));
  variant.updateVariants();
  EXPECT_EQ(variant.getOptions().size(), 7u);
}

TEST_F(NodeVariantOptions, UpdateTakesTheDefaultTwoOptionsBehindTheChoice) {
  const std::vector<std::pair<int, const char*>> expected = {
      {-2, "!None"},           {-1, "!None"}, {0, "!Next"}, {1, "!Next (Loop)"}, {2, "!Previous"},
      {3, "!Previous (Loop)"}, {4, "A"},      {5, "B"},     {6, "!None"}};
  for (const auto& [choice, state] : expected) {
    scene = SceneBuilder();
    kuNodeVariant variant(scene.switchNode("S", choice, {"A", "B", "C", "D", "E", "F"}));
    variant.setDefault(QString());
    variant.updateVariants();
    EXPECT_EQ(variant.getDefault(), state) << choice;
  }
}

TEST_F(NodeVariantOptions, UpdateWithEqualChildrenNeverReadsBeyondTheOptions) {
  kuNodeVariant variant(scene.switchNode("S", 5, {"A", "A", "A", "A", "A", "A"}));
  variant.setDefault(QString());
  variant.updateVariants();
  EXPECT_EQ(variant.getOptions().size(), 7u);
  EXPECT_EQ(variant.getDefault(), "!None");
}

TEST_F(NodeVariantOptions, UpdateRestoresTheOldDefaultUnlessItIsGoneOrAnAction) {
  const osg::NodePtr node = scene.switchNode("Rims", 0, {"Steel", "Alloy"});
  const std::vector<std::pair<const char*, const char*>> expected = {
      {"Alloy", "Alloy"}, {"!All", "!All"}, {"Gone", "!Next"}, {"!Previous", "!Next"}};
  for (const auto& [before, after] : expected) {
    kuNodeVariant variant(node);
    variant.setDefault(QString(before));
    variant.updateVariants();
    EXPECT_EQ(variant.getDefault(), after) << before;
  }
}

TEST_F(NodeVariantOptions, UpdateOfAnotherNodeTakesTheDefaultFromItsFlag) {
  const osg::NodePtr roof = scene.group("Roof");
  kuNodeVariant variant(roof);
  variant.setDefault(QString());
  SceneBuilder::setActive(roof, false);
  variant.updateVariants();
  EXPECT_EQ(variant.getDefault(), "!Disable");
}

TEST_F(NodeVariantOptions, UpdateWithoutANodeEmptiesTheOptionsAndKeepsTheDefault) {
  kuNodeVariant variant(scene.group("Roof"));
  variant.setNode("Elsewhere");
  variant.updateVariants();
  EXPECT_THAT(optionTexts(variant), IsEmpty());
  EXPECT_EQ(variant.getDefault(), "!Enable");
}

}  // namespace
