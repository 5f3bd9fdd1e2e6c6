// One state of one variant, optimised against one scene: what stays and what goes, kind by kind.
// The variant is named "Choice" and bound to "Roof", so that the two names cannot be mistaken.

#include "capture/CaptureTest.h"
#include "standalone/scene/MaterialFields.h"
#include "standalone/scene/Materials.h"
#include "standalone/scene/ScenePool.h"

using ::testing::ValuesIn;

namespace {

class StateOptimisationTest : public CaptureTest, public ::testing::WithParamInterface<StateRow> {
 protected:
  void SetUp() override { GetParam().build(scene); }

  static Texts expected() {
    if (!GetParam().stays) return {};
    return {std::string("Choice=") + GetParam().state};
  }
};

class kuNodeStateOptimisationTest : public StateOptimisationTest {};
class kuMaterialStateOptimisationTest : public StateOptimisationTest {};
class kuLightStateOptimisationTest : public StateOptimisationTest {};
class kuOverlayStateOptimisationTest : public StateOptimisationTest {};
class kuTransformStateOptimisationTest : public StateOptimisationTest {};

void nothing(SceneBuilder&) {}
void roofSwitch(SceneBuilder& scene) { scene.switchNode("Roof", 0, {"Open", "Shut"}); }
void roofGroup(SceneBuilder& scene) { scene.group("Roof"); }

const StateRow nodeRows[] = {
    {"WithoutANodeAStateGoes", nothing, "Open", false},
    {"WithoutANodeAKeywordGoes", nothing, "!Enable", false},
    {"NodeOfTheVariantsOwnNameDoesNotCount",
     [](SceneBuilder& scene) { scene.switchNode("Choice", 0, {"Open"}); }, "Open", false},
    {"NodeOfAnotherCaseDoesNotCount",
     [](SceneBuilder& scene) { scene.switchNode("roof", 0, {"Open"}); }, "Open", false},
    {"NodeAmongTheSceneplatesDoesNotCount",
     [](SceneBuilder& scene) { scene.sceneplateSwitch("Roof", 0, {"Open"}); }, "Open", false},
    {"NameOfAChildStays", roofSwitch, "Shut", true},
    {"NameOfNoChildGoes", roofSwitch, "Ajar", false},
    {"NameOfAChildInAnotherCaseGoes", roofSwitch, "open", false},
    {"EmptyStateIsTheNameOfNoChildAndGoes", roofSwitch, "", false},
    {"EmptyStateIsTheNameOfANamelessChildAndStays",
     [](SceneBuilder& scene) { scene.switchNode("Roof", 0, {""}); }, "", true},
    {"NameOfAGrandchildGoes",
     [](SceneBuilder& scene) {
       scene.group("Ajar", scene.switchNode("Roof", 0, {"Open"})->getChild(0));
     },
     "Ajar", false},
    {"NameOfAChildBeyondAsciiStays",
     [](SceneBuilder& scene) {
       scene.switchNode("Roof", 0,
                        {"Ge\xc3\xb6"
                         "ffnet"});
     },
     "Ge\xc3\xb6"
     "ffnet",
     true},
    {"SwitchWithoutChildrenRemovesTheState",
     [](SceneBuilder& scene) { scene.switchNode("Roof", -1, {}); }, "Open", false},
    {"KeywordOfANodeStays", roofGroup, "!Enable", true},
    {"KeywordOfASwitchStays", roofSwitch, "!Next", true},
    {"KeywordOfASwitchWithoutChildrenStays",
     [](SceneBuilder& scene) { scene.switchNode("Roof", -1, {}); }, "!All", true},
    {"UnknownKeywordStays", roofSwitch, "!Sideways", true},
    {"BlankAheadOfAKeywordMakesItAPlainState", roofSwitch, " !Enable", false},
    {"PlainStateOfANodeThatIsNoSwitchStays", roofGroup, "Open", true},
    {"PlainStateOfANodeWithoutCoreStays", [](SceneBuilder& scene) { scene.bare("Roof"); }, "Open",
     true},
    {"PlainStateOfATransformStays",
     [](SceneBuilder& scene) { scene.transforms("Roof", {"Shut"}, 0, 0); }, "Open", true},
    {"ChildOfBothSwitchesStays",
     [](SceneBuilder& scene) {
       scene.switchNode("Roof", 0, {"Open"});
       scene.switchNode("Roof", 0, {"Shut", "Open"});
     },
     "Open", true},
    {"ChildOfTheFirstSwitchAloneGoes",
     [](SceneBuilder& scene) {
       scene.switchNode("Roof", 0, {"Open"});
       scene.switchNode("Roof", 0, {"Shut"});
     },
     "Open", false},
    {"ChildOfTheSecondSwitchAloneGoes",
     [](SceneBuilder& scene) {
       scene.switchNode("Roof", 0, {"Shut"});
       scene.switchNode("Roof", 0, {"Open"});
     },
     "Open", false},
    {"OtherNodesOfTheNameDoNotCountBesideASwitchThatHasTheChild",
     [](SceneBuilder& scene) {
       scene.bare("Roof");
       scene.group("Roof");
       scene.switchNode("Roof", 0, {"Open"});
     },
     "Open", true},
    {"SwitchBehindOtherNodesOfTheNameIsJudged",
     [](SceneBuilder& scene) {
       scene.bare("Roof");
       scene.group("Roof");
       scene.switchNode("Roof", 0, {"Shut"});
     },
     "Open", false},
};

const StateRow overlayRows[] = {
    {"WithoutASceneplateAStateGoes", nothing, "Open", false},
    {"WithoutASceneplateAKeywordGoes", nothing, "!Enable", false},
    {"NodeOfTheSceneDoesNotCount", roofSwitch, "Open", false},
    {"SceneplateOfTheVariantsOwnNameDoesNotCount",
     [](SceneBuilder& scene) { scene.sceneplateSwitch("Choice", 0, {"Open"}); }, "Open", false},
    {"NameOfAChildStays",
     [](SceneBuilder& scene) {
       scene.sceneplateSwitch("Roof", 0, {"Shut", "Open"});
     },
     "Open", true},
    {"NameOfNoChildGoes", [](SceneBuilder& scene) { scene.sceneplateSwitch("Roof", 0, {"Shut"}); },
     "Open", false},
    {"NameOfAChildInAnotherCaseGoes",
     [](SceneBuilder& scene) { scene.sceneplateSwitch("Roof", 0, {"Open"}); }, "open", false},
    {"SwitchWithoutChildrenRemovesTheState",
     [](SceneBuilder& scene) { scene.sceneplateSwitch("Roof", -1, {}); }, "Open", false},
    {"KeywordOfASceneplateStays", [](SceneBuilder& scene) { scene.sceneplate("Roof"); }, "!Enable",
     true},
    {"KeywordOfASwitchStays",
     [](SceneBuilder& scene) { scene.sceneplateSwitch("Roof", 0, {"Open"}); }, "!Next", true},
    {"PlainStateOfASceneplateThatIsNoSwitchStays",
     [](SceneBuilder& scene) { scene.sceneplate("Roof"); }, "Open", true},
    {"PlainStateOfANodeWithoutCoreStays",
     [](SceneBuilder& scene) { scene.bare("Roof", scene.sceneplateRoot()); }, "Open", true},
    {"ChildOfBothSwitchesStays",
     [](SceneBuilder& scene) {
       scene.sceneplateSwitch("Roof", 0, {"Open"});
       scene.sceneplateSwitch("Roof", 0, {"Shut", "Open"});
     },
     "Open", true},
    {"ChildOfTheFirstSwitchAloneGoes",
     [](SceneBuilder& scene) {
       scene.sceneplateSwitch("Roof", 0, {"Open"});
       scene.sceneplateSwitch("Roof", 0, {"Shut"});
     },
     "Open", false},
    {"ChildOfTheSecondSwitchAloneGoes",
     [](SceneBuilder& scene) {
       scene.sceneplateSwitch("Roof", 0, {"Shut"});
       scene.sceneplateSwitch("Roof", 0, {"Open"});
     },
     "Open", false},
    {"SwitchBehindAPlainSceneplateIsJudged",
     [](SceneBuilder& scene) {
       scene.sceneplate("Roof");
       scene.sceneplateSwitch("Roof", 0, {"Shut"});
     },
     "Open", false},
};

void roofPaint(SceneBuilder& scene) {
  scene.switchMaterial("Roof", {scene.material("Red"), scene.material("Blue")}, 0);
}

/** A material with states that nevertheless is not multi-state. */
class SingleMaterial final : public osg::Material {
 public:
  static void enter(const std::string& name) {
    const osg::FCPtr<SingleMaterial> material(new SingleMaterial);
    material->hostFields().name = name;
    kuStandalone::ScenePool::of(kuStandalone::Scene::the().pool).enter(material);
  }
  bool isMultiState() const override { return false; }
  void getStateNames(std::vector<std::string>& names) const override { names.push_back("Red"); }
  bool setCurrentState(unsigned) override { return false; }
  bool getCurrentState(int&) const override { return false; }
  bool getCurrentStateName(std::string&) const override { return false; }
  bool hasSubMaterial(const osg::MaterialPtr&, bool) const override { return false; }

 private:
  SingleMaterial() : osg::Material(osg::Material::_type) {}
};

const StateRow materialRows[] = {
    {"WithoutAMaterialAStateGoes", nothing, "Red", false},
    {"WithoutAMaterialAKeywordGoes", nothing, "!Next", false},
    {"MaterialOfTheVariantsOwnNameDoesNotCount",
     [](SceneBuilder& scene) { scene.presetMaterial("Choice", {"Red"}, 0); }, "Red", false},
    {"MaterialOutsideThePoolDoesNotCount",
     [](SceneBuilder& scene) {
       scene.geometry("Body", kuStandalone::PresetMaterial::create("Roof", {"Red"}, 0));
     },
     "Red", false},
    {"StateOfASwitchMaterialStays", roofPaint, "Blue", true},
    {"StateOfAPresetMaterialStays",
     [](SceneBuilder& scene) {
       scene.presetMaterial("Roof", {"Matt", "Gloss"}, 0);
     },
     "Gloss", true},
    {"UnknownStateGoes", roofPaint, "Green", false},
    {"StateInAnotherCaseGoes", roofPaint, "red", false},
    {"EmptyStateGoes", roofPaint, "", false},
    {"MaterialWithoutStatesRemovesTheState", [](SceneBuilder& scene) { scene.material("Roof"); },
     "Red", false},
    {"KeywordStays", roofPaint, "!Next", true},
    {"KeywordOfAMaterialWithoutStatesStays", [](SceneBuilder& scene) { scene.material("Roof"); },
     "!Enable", true},
    {"StatesOfAMaterialThatIsNotMultiStateCount",
     [](SceneBuilder&) { SingleMaterial::enter("Roof"); }, "Red", true},
    {"MaterialThatIsNotMultiStateRemovesAnUnknownState",
     [](SceneBuilder&) { SingleMaterial::enter("Roof"); }, "Blue", false},
    {"StateOfBothMaterialsStays",
     [](SceneBuilder& scene) {
       scene.presetMaterial("Roof", {"Red"}, 0);
       scene.presetMaterial("Roof", {"Blue", "Red"}, 0);
     },
     "Red", true},
    {"StateOfTheFirstMaterialAloneGoes",
     [](SceneBuilder& scene) {
       scene.presetMaterial("Roof", {"Red"}, 0);
       scene.material("Roof");
     },
     "Red", false},
    {"StateOfTheSecondMaterialAloneGoes",
     [](SceneBuilder& scene) {
       scene.presetMaterial("Roof", {"Blue"}, 0);
       scene.presetMaterial("Roof", {"Red"}, 0);
     },
     "Red", false},
};

void roofLight(SceneBuilder& scene) { scene.light("Roof", false); }

const StateRow lightRows[] = {
    {"WithoutALightAStateGoes", nothing, "!Enable", false},
    {"LightOfTheVariantsOwnNameDoesNotCount",
     [](SceneBuilder& scene) { scene.light("Choice", true); }, "!Enable", false},
    {"NodeThatIsNoLightDoesNotCount", roofGroup, "!Enable", false},
    {"LightAmongTheSceneplatesDoesNotCount",
     [](SceneBuilder& scene) { scene.light("Roof", true, scene.sceneplateRoot()); }, "!Enable",
     false},
    {"LightOfAnotherCaseDoesNotCount", [](SceneBuilder& scene) { scene.light("roof", true); },
     "!Enable", false},
    {"KeywordOfALightStays", roofLight, "!Disable", true},
    {"AnyOtherStateOfALightStaysToo", roofLight, "Sideways", true},
    {"EmptyStateOfALightStaysToo", roofLight, "", true},
    {"CloneOfALightCountsByItsOwnName",
     [](SceneBuilder& scene) { scene.clone(scene.light("Lamp", true), "Roof"); }, "!Enable", true},
    {"LightBesideAnotherNodeOfTheNameCounts",
     [](SceneBuilder& scene) {
       scene.group("Roof");
       scene.light("Roof", true, scene.group("Hidden"));
     },
     "!Enable", true},
};

const StateRow transformRows[] = {
    {"WithoutANodeAStateGoes", nothing, "Open", false},
    {"NodeOfTheVariantsOwnNameDoesNotCount",
     [](SceneBuilder& scene) { scene.transforms("Choice", {"Open"}, 0, 0); }, "Open", false},
    {"TransformStateStays",
     [](SceneBuilder& scene) {
       scene.transforms("Roof", {"Open", "Shut"}, 0, 0);
     },
     "Open", true},
    {"LaterTransformStateStays",
     [](SceneBuilder& scene) {
       scene.transforms("Roof", {"Open", "Shut"}, 0, 0);
     },
     "Shut", true},
    {"UnknownTransformStateGoes",
     [](SceneBuilder& scene) { scene.transforms("Roof", {"Open"}, 0, 0); }, "Ajar", false},
    {"TransformStateInAnotherCaseGoes",
     [](SceneBuilder& scene) { scene.transforms("Roof", {"Open"}, 0, 0); }, "open", false},
    {"KeywordIsAnUnknownTransformStateAndGoes",
     [](SceneBuilder& scene) { scene.transforms("Roof", {"Open"}, 0, 0); }, "!Enable", false},
    {"StepKeywordGoesToo", [](SceneBuilder& scene) { scene.transforms("Roof", {"Open"}, 0, 0); },
     "!Next", false},
    {"TransformStateThatBearsAKeywordsNameStays",
     [](SceneBuilder& scene) { scene.transforms("Roof", {"!Enable"}, 0, 0); }, "!Enable", true},
    {"NodeWithoutTransformStatesRemovesTheState", roofSwitch, "Open", false},
    {"NodeWithoutCoreRemovesTheState", [](SceneBuilder& scene) { scene.bare("Roof"); }, "Open",
     false},
    {"TransformWhoseStatesAreAllNamelessRemovesTheEmptyState",
     [](SceneBuilder& scene) {
       scene.transforms("Roof", {"", ""}, 0, 0);
     },
     "", false},
    {"NamelessStateBesideANamedOneStays",
     [](SceneBuilder& scene) {
       scene.transforms("Roof", {"Open", ""}, 0, 0);
     },
     "", true},
    {"StateOfTheFirstNodeAloneStays",
     [](SceneBuilder& scene) {
       scene.transforms("Roof", {"Open"}, 0, 0);
       scene.transforms("Roof", {"Shut"}, 0, 0);
     },
     "Open", true},
    {"StateOfTheLastNodeAloneStays",
     [](SceneBuilder& scene) {
       scene.bare("Roof");
       scene.transforms("Roof", {"Shut"}, 0, 0);
       scene.transforms("Roof", {"Open"}, 0, 0);
     },
     "Open", true},
    {"StateOfNoneOfTheNodesGoes",
     [](SceneBuilder& scene) {
       scene.transforms("Roof", {"Shut"}, 0, 0);
       scene.transforms("Roof", {"Ajar"}, 0, 0);
     },
     "Open", false},
};

}  // namespace

TEST_P(kuNodeStateOptimisationTest, Optimise) {
  bindNode("Choice", "Roof");
  set.addNodeVariant("Choice", GetParam().state);
  set.optimize();
  EXPECT_EQ(texts(set.getNodeVariants()), expected());
}

TEST_P(kuOverlayStateOptimisationTest, Optimise) {
  bindOverlay("Choice", "Roof");
  set.addOverlayVariant("Choice", GetParam().state);
  set.optimize();
  EXPECT_EQ(texts(set.getOverlayVariants()), expected());
}

TEST_P(kuMaterialStateOptimisationTest, Optimise) {
  bindMaterial("Choice", "Roof");
  set.addMaterialVariant("Choice", GetParam().state);
  set.optimize();
  EXPECT_EQ(texts(set.getMaterialVariants()), expected());
}

TEST_P(kuLightStateOptimisationTest, Optimise) {
  bindLight("Choice", "Roof");
  set.addLightVariant("Choice", GetParam().state);
  set.optimize();
  EXPECT_EQ(texts(set.getLightVariants()), expected());
}

TEST_P(kuTransformStateOptimisationTest, Optimise) {
  bindTransform("Choice", "Roof");
  set.addTransformVariant("Choice", GetParam().state);
  set.optimize();
  EXPECT_EQ(texts(set.getTransformVariants()), expected());
}

INSTANTIATE_TEST_SUITE_P(Rules, kuNodeStateOptimisationTest, ValuesIn(nodeRows), rowName);
INSTANTIATE_TEST_SUITE_P(Rules, kuOverlayStateOptimisationTest, ValuesIn(overlayRows), rowName);
INSTANTIATE_TEST_SUITE_P(Rules, kuMaterialStateOptimisationTest, ValuesIn(materialRows), rowName);
INSTANTIATE_TEST_SUITE_P(Rules, kuLightStateOptimisationTest, ValuesIn(lightRows), rowName);
INSTANTIATE_TEST_SUITE_P(Rules, kuTransformStateOptimisationTest, ValuesIn(transformRows), rowName);
