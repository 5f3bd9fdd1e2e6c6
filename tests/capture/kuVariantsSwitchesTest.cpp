// The rules by which switches are compared, and the merging of equal ones.

#include "capture/MaterialCaptureTest.h"
#include "support/BracketRecorder.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::ValuesIn;

namespace {

using Access = kuVariantsTestAccess;

/** The materials that the rows speak of. */
struct Palette {
  explicit Palette(SceneBuilder& scene)
      : red(scene.material("Red")),
        otherRed(scene.material("Red")),
        blue(scene.material("Blue")),
        inner(scene.switchMaterial("Inner", {red}, 0)),
        innerTwin(scene.switchMaterial("Inner twin", {red}, 1)),
        empty(scene.switchMaterial("Empty", {}, 0)),
        otherEmpty(scene.switchMaterial("Other empty", {}, 0)),
        target(scene.switchMaterial("Target", {}, 0)) {}

  osg::MaterialPtr red, otherRed, blue;
  osg::SwitchMaterialPtr inner, innerTwin, empty, otherEmpty, target;
};

osg::SwitchMaterialPtr switchOf(const osg::MFMaterialPtr& materials, unsigned choice = 0) {
  return kuStandalone::createSwitchMaterial("Switch", materials, choice);
}

osg::SwitchMaterialPtr filled(const Palette& of, const osg::MFMaterialPtr& materials) {
  const osg::EditCP edit(of.target, osg::MultiMaterial::MaterialsFieldMask);
  for (const osg::MaterialPtr& material : materials)
    of.target->addMaterial(material);
  return of.target;
}

struct Row {
  const char* name;
  bool (*asked)(const Palette& of);
  bool answer;
};
void PrintTo(const Row& row, std::ostream* out) { *out << row.name; }

class SwitchRuleTest : public MaterialCaptureTest, public ::testing::WithParamInterface<Row> {};

TEST_P(SwitchRuleTest, Answers) { EXPECT_EQ(GetParam().asked(Palette(scene)), GetParam().answer); }

const Row comparisons[] = {
    {"SameMaterialsInTheSameOrderAreEqual",
     [](const Palette& of) {
       return Access::compareSwitches(switchOf({of.red, of.blue}), switchOf({of.red, of.blue}));
     },
     true},
    {"TheChoiceDoesNotCount",
     [](const Palette& of) {
       return Access::compareSwitches(switchOf({of.red, of.blue}, 0),
                                      switchOf({of.red, of.blue}, 1));
     },
     true},
    {"ASwitchEqualsItself",
     [](const Palette& of) { return Access::compareSwitches(of.inner, of.inner); }, true},
    {"AnotherOrderDiffers",
     [](const Palette& of) {
       return Access::compareSwitches(switchOf({of.red, of.blue}), switchOf({of.blue, of.red}));
     },
     false},
    {"AMaterialMoreDiffers",
     [](const Palette& of) {
       return Access::compareSwitches(switchOf({of.red}), switchOf({of.red, of.blue}));
     },
     false},
    {"AMaterialLessDiffers",
     [](const Palette& of) {
       return Access::compareSwitches(switchOf({of.red, of.blue}), switchOf({of.red}));
     },
     false},
    {"ADifferenceInTheLastOneCounts",
     [](const Palette& of) {
       return Access::compareSwitches(switchOf({of.red, of.blue}), switchOf({of.red, of.red}));
     },
     false},
    {"MaterialsOfOneNameDiffer",
     [](const Palette& of) {
       return Access::compareSwitches(switchOf({of.red}), switchOf({of.otherRed}));
     },
     false},
    {"EqualSwitchesInsideDiffer",
     [](const Palette& of) {
       return Access::compareSwitches(switchOf({of.inner}), switchOf({of.innerTwin}));
     },
     false},
    {"TwoEmptyOnesDiffer",
     [](const Palette& of) { return Access::compareSwitches(of.empty, of.otherEmpty); }, false},
    {"AnEmptyOneDiffersFromItself",
     [](const Palette& of) { return Access::compareSwitches(of.empty, of.empty); }, false},
    {"AnEmptyOneDiffersFromAFilledOne",
     [](const Palette& of) { return Access::compareSwitches(of.empty, of.inner); }, false},
};
INSTANTIATE_TEST_SUITE_P(Compare, SwitchRuleTest, ValuesIn(comparisons),
                         [](const auto& row) { return std::string(row.param.name); });

const Row additions[] = {
    {"AnEmptySwitchHasNothing",
     [](const Palette& of) { return Access::checkIfMaterialAlreadyAdded(of.red, of.empty); },
     false},
    {"AnEmptySwitchHasNoSwitch",
     [](const Palette& of) { return Access::checkIfMaterialAlreadyAdded(of.inner, of.empty); },
     false},
    {"APlainMaterialIsFoundByIdentity",
     [](const Palette& of) {
       return Access::checkIfMaterialAlreadyAdded(of.blue, filled(of, {of.red, of.blue}));
     },
     true},
    {"APlainMaterialIsNotFoundByItsName",
     [](const Palette& of) {
       return Access::checkIfMaterialAlreadyAdded(of.otherRed, filled(of, {of.red}));
     },
     false},
    {"APlainMaterialInAnEntryIsNotFound",
     [](const Palette& of) {
       return Access::checkIfMaterialAlreadyAdded(of.red, filled(of, {of.blue, of.inner}));
     },
     false},
    {"ASwitchIsFoundByAnEqualEntry",
     [](const Palette& of) {
       return Access::checkIfMaterialAlreadyAdded(of.innerTwin, filled(of, {of.blue, of.inner}));
     },
     true},
    {"ASwitchIsFoundByItself",
     [](const Palette& of) {
       return Access::checkIfMaterialAlreadyAdded(of.inner, filled(of, {of.inner}));
     },
     true},
    {"ASwitchIsNotFoundByADifferentOne",
     [](const Palette& of) {
       return Access::checkIfMaterialAlreadyAdded(switchOf({of.blue}), filled(of, {of.inner}));
     },
     false},
    {"ASwitchIsNotFoundByTheMaterialsOfTheSwitchItself",
     [](const Palette& of) {
       return Access::checkIfMaterialAlreadyAdded(of.inner, filled(of, {of.red}));
     },
     false},
    {"AnEmptySwitchIsNotFoundAlsoWhereItIsAnEntry",
     [](const Palette& of) {
       return Access::checkIfMaterialAlreadyAdded(of.empty, filled(of, {of.empty, of.otherEmpty}));
     },
     false},
};
INSTANTIATE_TEST_SUITE_P(AlreadyAdded, SwitchRuleTest, ValuesIn(additions),
                         [](const auto& row) { return std::string(row.param.name); });

const Row recursions[] = {
    {"ASwitchThatHoldsTheTargetRecurs",
     [](const Palette& of) {
       return Access::checkForMaterialRecursion(switchOf({of.red, of.target}), of.target);
     },
     true},
    {"ASwitchThatHoldsAnEqualOneDoesNot",
     [](const Palette& of) {
       return Access::checkForMaterialRecursion(switchOf({of.innerTwin}), of.inner);
     },
     false},
    {"OneLevelFurtherDownIsNotLookedAt",
     [](const Palette& of) {
       return Access::checkForMaterialRecursion(switchOf({switchOf({of.target})}), of.target);
     },
     false},
    {"TheTargetItselfDoesNot",
     [](const Palette& of) { return Access::checkForMaterialRecursion(of.inner, of.inner); },
     false},
    {"AnEmptySwitchDoesNot",
     [](const Palette& of) { return Access::checkForMaterialRecursion(of.empty, of.target); },
     false},
    {"APlainMaterialDoesNot",
     [](const Palette& of) {
       return Access::checkForMaterialRecursion(of.red, filled(of, {of.red}));
     },
     false},
    {"NoMaterialDoesNot",
     [](const Palette& of) {
       return Access::checkForMaterialRecursion(osg::NullFC, filled(of, {of.red}));
     },
     false},
};
INSTANTIATE_TEST_SUITE_P(Recursion, SwitchRuleTest, ValuesIn(recursions),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
