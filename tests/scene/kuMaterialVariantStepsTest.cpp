#include "scene/kuMaterialVariant.h"

#include "StepTable.h"
#include "ToldStateMaterial.h"
#include "support/SceneTest.h"

namespace {

/** Stands in the tables for a material that is not set at all. */
constexpr int Unset = -9;

class MaterialSteps : public SceneTest, public ::testing::WithParamInterface<StepTable> {};

TEST_P(MaterialSteps, SetTheStateOfTheTable) {
  ASSERT_EQ(GetParam().expected.size(), 6u);
  forEachStep(GetParam(), [&](std::size_t count, int present, int expected) {
    scene = SceneBuilder();
    const auto material = ToldStateMaterial::create("Paint", childNames(count), present);
    kuMaterialVariant(material).select(QString(GetParam().state));
    const std::vector<int> set = expected == Unset ? std::vector<int>() : std::vector{expected};
    EXPECT_EQ(material->set, set) << placeText(present, count);
  });
}

const std::vector<int> NoStates(6, Unset);
const std::vector<std::vector<int>> NothingSet = {
    std::vector<int>(6, Unset), std::vector<int>(7, Unset),  std::vector<int>(8, Unset),
    std::vector<int>(9, Unset), std::vector<int>(10, Unset), std::vector<int>(11, Unset)};

// Columns: the present indices from -4 to one beyond the count. Rows: counts from 0 to 5.
INSTANTIATE_TEST_SUITE_P(Keywords, MaterialSteps,
                         ::testing::Values(StepTable{"Next",
                                                     "!Next",
                                                     {NoStates,
                                                      {0, 0, 0, 0, 0, 0, 0},
                                                      {0, 0, 0, 0, 1, 1, 1, 1},
                                                      {0, 0, 0, 0, 1, 2, 2, 2, 2},
                                                      {0, 0, 0, 0, 1, 2, 3, 3, 3, 3},
                                                      {0, 0, 0, 0, 1, 2, 3, 4, 4, 4, 4}}},
                                           StepTable{"NextLoop",
                                                     "!Next (Loop)",
                                                     {NoStates,
                                                      {0, 0, 0, 0, 0, 0, 0},
                                                      {0, 0, 0, 0, 1, 0, 0, 0},
                                                      {0, 0, 0, 0, 1, 2, 0, 0, 0},
                                                      {0, 0, 0, 0, 1, 2, 3, 0, 0, 0},
                                                      {0, 0, 0, 0, 1, 2, 3, 4, 0, 0, 0}}},
                                           StepTable{"Previous",
                                                     "!Previous",
                                                     {NoStates,
                                                      {0, 0, 0, 0, 0, 0, 0},
                                                      {0, 0, 0, 0, 0, 0, 1, 1},
                                                      {0, 0, 0, 0, 0, 0, 1, 2, 2},
                                                      {0, 0, 0, 0, 0, 0, 1, 2, 3, 3},
                                                      {0, 0, 0, 0, 0, 0, 1, 2, 3, 4, 4}}},
                                           StepTable{"PreviousLoop",
                                                     "!Previous (Loop)",
                                                     {NoStates,
                                                      {0, 0, 0, 0, 0, 0, 0},
                                                      {1, 1, 1, 1, 1, 0, 1, 1},
                                                      {2, 2, 2, 2, 2, 0, 1, 2, 2},
                                                      {3, 3, 3, 3, 3, 0, 1, 2, 3, 3},
                                                      {4, 4, 4, 4, 4, 0, 1, 2, 3, 4, 4}}},
                                           StepTable{"NameOfAState",
                                                     "Child 2",
                                                     {NoStates,
                                                      std::vector<int>(7, Unset),
                                                      std::vector<int>(8, Unset),
                                                      {2, 2, 2, 2, 2, 2, 2, 2, 2},
                                                      {2, 2, 2, 2, 2, 2, 2, 2, 2, 2},
                                                      {2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2}}},
                                           StepTable{"AllSetsNothing", "!All", NothingSet},
                                           StepTable{"NoneSetsNothing", "!None", NothingSet},
                                           StepTable{"EnableSetsNothing", "!Enable", NothingSet},
                                           StepTable{"DisableSetsNothing", "!Disable", NothingSet},
                                           StepTable{"ToggleSetsNothing", "!Toggle", NothingSet}),
                         StepTableTitle());

}  // namespace
