#include "scene/kuNodeVariant.h"

#include "StepTable.h"
#include "support/SceneTest.h"

namespace {

class NodeSwitchSteps : public SceneTest, public ::testing::WithParamInterface<StepTable> {};

TEST_P(NodeSwitchSteps, LeadToTheChoiceOfTheTable) {
  ASSERT_EQ(GetParam().expected.size(), 6u);
  forEachStep(GetParam(), [&](std::size_t count, int choice, int expected) {
    scene = SceneBuilder();
    const osg::NodePtr node = scene.switchNode("Switch", choice, childNames(count));
    kuNodeVariant(node).select(QString(GetParam().state));
    EXPECT_EQ(SceneBuilder::choice(node), expected) << placeText(choice, count);
  });
}

// Columns: the choices from -4 to one beyond the count. Rows: counts from 0 to 5.
INSTANTIATE_TEST_SUITE_P(
    Keywords, NodeSwitchSteps,
    ::testing::Values(StepTable{"Next",
                                "!Next",
                                {{0, 0, 0, 0, 0, 0},
                                 {0, 0, 0, 0, 0, 0, 0},
                                 {1, 1, 1, 0, 1, 1, 1, 1},
                                 {2, 2, 2, 0, 1, 2, 2, 2, 2},
                                 {3, 3, 3, 0, 1, 2, 3, 3, 3, 3},
                                 {4, 4, 4, 0, 1, 2, 3, 4, 4, 4, 4}}},
                      StepTable{"NextLoop",
                                "!Next (Loop)",
                                {{0, 0, 0, 0, 0, 0},
                                 {0, 0, 0, 0, 0, 0, 0},
                                 {0, 0, 0, 0, 1, 0, 0, 0},
                                 {0, 0, 0, 0, 1, 2, 0, 0, 0},
                                 {0, 0, 0, 0, 1, 2, 3, 0, 0, 0},
                                 {0, 0, 0, 0, 1, 2, 3, 4, 0, 0, 0}}},
                      StepTable{"Previous",
                                "!Previous",
                                {{-1, -1, -1, -1, -1, -1},
                                 {0, 0, 0, 0, 0, 0, 0},
                                 {0, 0, 0, 0, 0, 0, 1, 1},
                                 {0, 0, 0, 0, 0, 0, 1, 2, 2},
                                 {0, 0, 0, 0, 0, 0, 1, 2, 3, 3},
                                 {0, 0, 0, 0, 0, 0, 1, 2, 3, 4, 4}}},
                      StepTable{"PreviousLoop",
                                "!Previous (Loop)",
                                {{-1, -1, -1, -1, -1, -1},
                                 {0, 0, 0, 0, 0, 0, 0},
                                 {1, 1, 1, 1, 1, 0, 1, 1},
                                 {2, 2, 2, 2, 2, 0, 1, 2, 2},
                                 {3, 3, 3, 3, 3, 0, 1, 2, 3, 3},
                                 {4, 4, 4, 4, 4, 0, 1, 2, 3, 4, 4}}},
                      StepTable{"All",
                                "!All",
                                {{-2, -2, -2, -2, -2, -2},
                                 {-2, -2, -2, -2, -2, -2, -2},
                                 {-2, -2, -2, -2, -2, -2, -2, -2},
                                 {-2, -2, -2, -2, -2, -2, -2, -2, -2},
                                 {-2, -2, -2, -2, -2, -2, -2, -2, -2, -2},
                                 {-2, -2, -2, -2, -2, -2, -2, -2, -2, -2, -2}}},
                      StepTable{"None",
                                "!None",
                                {{-1, -1, -1, -1, -1, -1},
                                 {-1, -1, -1, -1, -1, -1, -1},
                                 {-1, -1, -1, -1, -1, -1, -1, -1},
                                 {-1, -1, -1, -1, -1, -1, -1, -1, -1},
                                 {-1, -1, -1, -1, -1, -1, -1, -1, -1, -1},
                                 {-1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1}}},
                      StepTable{"EnableLeavesTheChoice",
                                "!Enable",
                                {{-4, -3, -2, -1, 0, 1},
                                 {-4, -3, -2, -1, 0, 1, 2},
                                 {-4, -3, -2, -1, 0, 1, 2, 3},
                                 {-4, -3, -2, -1, 0, 1, 2, 3, 4},
                                 {-4, -3, -2, -1, 0, 1, 2, 3, 4, 5},
                                 {-4, -3, -2, -1, 0, 1, 2, 3, 4, 5, 6}}},
                      StepTable{"DisableLeavesTheChoice",
                                "!Disable",
                                {{-4, -3, -2, -1, 0, 1},
                                 {-4, -3, -2, -1, 0, 1, 2},
                                 {-4, -3, -2, -1, 0, 1, 2, 3},
                                 {-4, -3, -2, -1, 0, 1, 2, 3, 4},
                                 {-4, -3, -2, -1, 0, 1, 2, 3, 4, 5},
                                 {-4, -3, -2, -1, 0, 1, 2, 3, 4, 5, 6}}},
                      StepTable{"ToggleLeavesTheChoice",
                                "!Toggle",
                                {{-4, -3, -2, -1, 0, 1},
                                 {-4, -3, -2, -1, 0, 1, 2},
                                 {-4, -3, -2, -1, 0, 1, 2, 3},
                                 {-4, -3, -2, -1, 0, 1, 2, 3, 4},
                                 {-4, -3, -2, -1, 0, 1, 2, 3, 4, 5},
                                 {-4, -3, -2, -1, 0, 1, 2, 3, 4, 5, 6}}},
                      StepTable{"NameOfAChild",
                                "Child 2",
                                {{-4, -3, -2, -1, 0, 1},
                                 {-4, -3, -2, -1, 0, 1, 2},
                                 {-4, -3, -2, -1, 0, 1, 2, 3},
                                 {2, 2, 2, 2, 2, 2, 2, 2, 2},
                                 {2, 2, 2, 2, 2, 2, 2, 2, 2, 2},
                                 {2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2}}}),
    StepTableTitle());

class NodeTransformSteps : public SceneTest, public ::testing::WithParamInterface<StepTable> {};

// The choice of a transform is unsigned: what the table writes as -1 is the highest number.
TEST_P(NodeTransformSteps, LeadToTheChoiceOfTheTable) {
  ASSERT_EQ(GetParam().expected.size(), 6u);
  forEachStep(GetParam(), [&](std::size_t count, int choice, int expected) {
    scene = SceneBuilder();
    const osg::NodePtr node =
        scene.transforms("Door", childNames(count), static_cast<unsigned>(choice), -1);
    kuNodeVariant(node).select(QString(GetParam().state));
    EXPECT_EQ(SceneBuilder::transformChoice(node), static_cast<unsigned>(expected))
        << placeText(choice, count);
  });
}

const std::vector<std::vector<int>> AlwaysZero = {
    {0, 0, 0, 0, 0, 0},          {0, 0, 0, 0, 0, 0, 0},          {0, 0, 0, 0, 0, 0, 0, 0},
    {0, 0, 0, 0, 0, 0, 0, 0, 0}, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0}, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}};

INSTANTIATE_TEST_SUITE_P(Keywords, NodeTransformSteps,
                         ::testing::Values(StepTable{"Next",
                                                     "!Next",
                                                     {{-1, -1, -1, -1, -1, -1},
                                                      {0, 0, 0, 0, 0, 0, 0},
                                                      {1, 1, 1, 0, 1, 1, 1, 1},
                                                      {2, 2, 2, 0, 1, 2, 2, 2, 2},
                                                      {3, 3, 3, 0, 1, 2, 3, 3, 3, 3},
                                                      {4, 4, 4, 0, 1, 2, 3, 4, 4, 4, 4}}},
                                           StepTable{"NextLoop",
                                                     "!Next (Loop)",
                                                     {{0, 0, 0, 0, 0, 0},
                                                      {0, 0, 0, 0, 0, 0, 0},
                                                      {0, 0, 0, 0, 1, 0, 0, 0},
                                                      {0, 0, 0, 0, 1, 2, 0, 0, 0},
                                                      {0, 0, 0, 0, 1, 2, 3, 0, 0, 0},
                                                      {0, 0, 0, 0, 1, 2, 3, 4, 0, 0, 0}}},
                                           StepTable{"Previous",
                                                     "!Previous",
                                                     {{-1, -1, -1, -1, -1, -1},
                                                      {0, 0, 0, 0, 0, 0, 0},
                                                      {1, 1, 1, 1, 0, 0, 1, 1},
                                                      {2, 2, 2, 2, 0, 0, 1, 2, 2},
                                                      {3, 3, 3, 3, 0, 0, 1, 2, 3, 3},
                                                      {4, 4, 4, 4, 0, 0, 1, 2, 3, 4, 4}}},
                                           StepTable{"PreviousLoop",
                                                     "!Previous (Loop)",
                                                     {{-1, -1, -1, -1, -1, 0},
                                                      {0, 0, 0, 0, 0, 0, 1},
                                                      {1, 1, 1, 1, 1, 0, 1, 2},
                                                      {2, 2, 2, 2, 2, 0, 1, 2, 3},
                                                      {3, 3, 3, 3, 3, 0, 1, 2, 3, 4},
                                                      {4, 4, 4, 4, 4, 0, 1, 2, 3, 4, 5}}},
                                           StepTable{"AllGoesToZero", "!All", AlwaysZero},
                                           StepTable{"NoneGoesToZero", "!None", AlwaysZero},
                                           StepTable{"EnableGoesToZero", "!Enable", AlwaysZero},
                                           StepTable{"DisableGoesToZero", "!Disable", AlwaysZero},
                                           StepTable{"ToggleGoesToZero", "!Toggle", AlwaysZero},
                                           StepTable{"UnknownStateGoesToZero", "Open", AlwaysZero},
                                           StepTable{"NumberOfAState",
                                                     "Transform 2",
                                                     {{2, 2, 2, 2, 2, 2},
                                                      {2, 2, 2, 2, 2, 2, 2},
                                                      {2, 2, 2, 2, 2, 2, 2, 2},
                                                      {2, 2, 2, 2, 2, 2, 2, 2, 2},
                                                      {2, 2, 2, 2, 2, 2, 2, 2, 2, 2},
                                                      {2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2}}}),
                         StepTableTitle());

}  // namespace
