#include <gmock/gmock.h>

#include "model/kuVariantSet.h"

using ::testing::ElementsAre;

namespace {

/** All that the getters answer: numbers and flags in the order of the getters below. */
std::vector<float> answers(const kuVariantSet& set) {
  std::vector<float> all{float(set.getClippingState()),       float(set.getClippingInvert()),
                         float(set.getClippingHideScene()),   float(set.getClippingShowPlane()),
                         float(set.getClippingShowGrid()),    float(set.getClippingShowContour()),
                         float(set.getClippingContourWidth())};
  for (const osg::Vector<float, 3>& vector :
       {osg::Vector<float, 3>(set.getClippingPlanePosition()), set.getClippingPlaneNormal(),
        set.getClippingPlaneColor(), set.getClippingGridColor(), set.getClippingContourColor()}) {
    for (std::size_t i = 0; i < 3; ++i)
      all.push_back(vector[i]);
  }
  return all;
}

TEST(kuVariantSetClippingTest, ANewSetHasTheDefaults) {
  EXPECT_THAT(answers(kuVariantSet("Cut")),
              ElementsAre(0, 0, 0, 1, 1, 1, 1, 0, 0, 0, 0, 1, 0, 0.2F, 0.3F, 0.4F, 0.63F, 0.82F,
                          0.89F, 1, 0.7F, 0));
}

/** A setter with a value that is no default, and the one answer that it changes. */
struct SetterRow {
  const char* name;
  void (*set)(kuVariantSet&);
  std::size_t place;
  float answer;
};

const SetterRow Setters[] = {
    {"State", [](kuVariantSet& set) { set.setClippingState(3); }, 0, 3},
    {"NegativeState", [](kuVariantSet& set) { set.setClippingState(-1); }, 0, -1},
    {"Invert", [](kuVariantSet& set) { set.setClippingInvert(true); }, 1, 1},
    {"HideScene", [](kuVariantSet& set) { set.setClippingHideScene(true); }, 2, 1},
    {"ShowPlane", [](kuVariantSet& set) { set.setClippingShowPlane(false); }, 3, 0},
    {"ShowGrid", [](kuVariantSet& set) { set.setClippingShowGrid(false); }, 4, 0},
    {"ShowContour", [](kuVariantSet& set) { set.setClippingShowContour(false); }, 5, 0},
    {"ContourWidth", [](kuVariantSet& set) { set.setClippingContourWidth(7); }, 6, 7},
    {"PositionX", [](kuVariantSet& set) { set.setClippingPlanePositionX(0.1); }, 7, 0.1F},
    {"PositionY", [](kuVariantSet& set) { set.setClippingPlanePositionY(0.1); }, 8, 0.1F},
    {"PositionZ", [](kuVariantSet& set) { set.setClippingPlanePositionZ(0.1); }, 9, 0.1F},
    {"NormalX", [](kuVariantSet& set) { set.setClippingPlaneNormalX(0.1); }, 10, 0.1F},
    {"NormalY", [](kuVariantSet& set) { set.setClippingPlaneNormalY(0.1); }, 11, 0.1F},
    {"NormalZ", [](kuVariantSet& set) { set.setClippingPlaneNormalZ(0.1); }, 12, 0.1F},
    {"PlaneR", [](kuVariantSet& set) { set.setClippingPlaneColorR(0.1); }, 13, 0.1F},
    {"PlaneG", [](kuVariantSet& set) { set.setClippingPlaneColorG(0.1); }, 14, 0.1F},
    {"PlaneB", [](kuVariantSet& set) { set.setClippingPlaneColorB(0.1); }, 15, 0.1F},
    {"GridR", [](kuVariantSet& set) { set.setClippingGridColorR(0.1); }, 16, 0.1F},
    {"GridG", [](kuVariantSet& set) { set.setClippingGridColorG(0.1); }, 17, 0.1F},
    {"GridB", [](kuVariantSet& set) { set.setClippingGridColorB(0.1); }, 18, 0.1F},
    {"ContourR", [](kuVariantSet& set) { set.setClippingContourColorR(0.1); }, 19, 0.1F},
    {"ContourG", [](kuVariantSet& set) { set.setClippingContourColorG(0.1); }, 20, 0.1F},
    {"ContourB", [](kuVariantSet& set) { set.setClippingContourColorB(0.1); }, 21, 0.1F},
};

class ClippingSetter : public ::testing::TestWithParam<SetterRow> {};

TEST_P(ClippingSetter, ChangesItsOwnAnswerAlone) {
  kuVariantSet set("Cut");
  std::vector<float> expected = answers(set);
  expected.at(GetParam().place) = GetParam().answer;
  GetParam().set(set);
  EXPECT_EQ(answers(set), expected);
}

INSTANTIATE_TEST_SUITE_P(kuVariantSet, ClippingSetter, ::testing::ValuesIn(Setters),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(kuVariantSetClippingTest, ReplacingTheSettingsReplacesAllOfThem) {
  kuVariantSet other("Other");
  for (const SetterRow& row : Setters)
    row.set(other);
  kuVariantSet set("Cut");
  set.setAnalyzerVariant(other.getAnalyzerVariant());
  EXPECT_EQ(answers(set), answers(other));
  EXPECT_EQ(answers(set).at(21), 0.1F);
}

}  // namespace
