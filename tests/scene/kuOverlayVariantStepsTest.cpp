#include "scene/kuOverlayVariant.h"

#include "StepTable.h"
#include "support/SceneTest.h"

namespace {

class OverlaySteps : public SceneTest, public ::testing::WithParamInterface<StepTable> {};

TEST_P(OverlaySteps, LeadToTheChoiceOfTheTable) {
  ASSERT_EQ(GetParam().expected.size(), 6u);
  forEachStep(GetParam(), [&](std::size_t count, int choice, int expected) {
    scene = SceneBuilder();
    const osg::NodePtr node = scene.sceneplateSwitch("Plates", choice, childNames(count));
    kuOverlayVariant(node).select(QString(GetParam().state));
    EXPECT_EQ(SceneBuilder::choice(node), expected) << placeText(choice, count);
  });
}

const std::vector<std::vector<int>> Unchanged = {{-4, -3, -2, -1, 0, 1},
                                                 {-4, -3, -2, -1, 0, 1, 2},
                                                 {-4, -3, -2, -1, 0, 1, 2, 3},
                                                 {-4, -3, -2, -1, 0, 1, 2, 3, 4},
                                                 {-4, -3, -2, -1, 0, 1, 2, 3, 4, 5},
                                                 {-4, -3, -2, -1, 0, 1, 2, 3, 4, 5, 6}};

// Columns: the choices from -4 to one beyond the count. Rows: counts from 0 to 5.
INSTANTIATE_TEST_SUITE_P(
    Keywords, OverlaySteps,
    ::testing::Values(StepTable{"None",
                                "!None",
                                {{-1, -1, -1, -1, -1, -1},
                                 {-1, -1, -1, -1, -1, -1, -1},
                                 {-1, -1, -1, -1, -1, -1, -1, -1},
                                 {-1, -1, -1, -1, -1, -1, -1, -1, -1},
                                 {-1, -1, -1, -1, -1, -1, -1, -1, -1, -1},
                                 {-1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1}}},
                      StepTable{"All",
                                "!All",
                                {{-2, -2, -2, -2, -2, -2},
                                 {-2, -2, -2, -2, -2, -2, -2},
                                 {-2, -2, -2, -2, -2, -2, -2, -2},
                                 {-2, -2, -2, -2, -2, -2, -2, -2, -2},
                                 {-2, -2, -2, -2, -2, -2, -2, -2, -2, -2},
                                 {-2, -2, -2, -2, -2, -2, -2, -2, -2, -2, -2}}},
                      StepTable{"Next",
                                "!Next",
                                {{0, 0, 0, -1, -1, -1},
                                 {0, 0, 0, 0, 0, 0, 0},
                                 {0, 0, 0, 0, 1, 1, 1, 1},
                                 {0, 0, 0, 0, 1, 2, 2, 2, 2},
                                 {0, 0, 0, 0, 1, 2, 3, 3, 3, 3},
                                 {0, 0, 0, 0, 1, 2, 3, 4, 4, 4, 4}}},
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
                                {{0, 0, 0, 0, 0, -1},
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
                      StepTable{"NameOfAChild",
                                "Child 2",
                                {{-4, -3, -2, -1, 0, 1},
                                 {-4, -3, -2, -1, 0, 1, 2},
                                 {-4, -3, -2, -1, 0, 1, 2, 3},
                                 {2, 2, 2, 2, 2, 2, 2, 2, 2},
                                 {2, 2, 2, 2, 2, 2, 2, 2, 2, 2},
                                 {2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2}}},
                      StepTable{"UnknownStateLeavesTheChoice", "Elsewhere", Unchanged},
                      StepTable{"EnableLeavesTheChoice", "!Enable", Unchanged},
                      StepTable{"DisableLeavesTheChoice", "!Disable", Unchanged},
                      StepTable{"ToggleLeavesTheChoice", "!Toggle", Unchanged}),
    StepTableTitle());

}  // namespace
