#include "document/kuVariantVerifier.h"

#include "VerifierTest.h"
#include "scene/kuLightVariant.h"
#include "scene/kuTransformVariant.h"
#include "standalone/scene/SceneNode.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/** What the manager holds, and the whole report about it. */
struct ReportCase {
  const char* title;
  void (*arrange)();
  ReportLines expected;
};

std::ostream& operator<<(std::ostream& stream, const ReportCase& entry) {
  return stream << entry.title;
}

class Report : public VerifierTest, public ::testing::WithParamInterface<ReportCase> {};

TEST_P(Report, HasTheLinesOfTheTable) {
  GetParam().arrange();
  EXPECT_EQ(report(), GetParam().expected);
  EXPECT_THAT(messages.lines(), IsEmpty());
}

const auto Title = [](const auto& info) { return std::string(info.param.title); };

INSTANTIATE_TEST_SUITE_P(
    VariantSet, Report,
    ::testing::Values(
        ReportCase{"NodeVariantNotFound",
                   [] { variantSet().addNodeVariant("V", "Open"); },
                   {"Error,VariantSet,S,V,,node variant not found"}},
        ReportCase{"NodeVariantWithoutAName",
                   [] { variantSet().addNodeVariant("", "Open"); },
                   {"Error,VariantSet,S,,,node variant not found"}},
        ReportCase{"NodeStateNotFound",
                   [] {
                     nodeVariant("Roof", "", {"Open"});
                     variantSet().addNodeVariant("V", "Closed");
                   },
                   {"Error,VariantSet,S,V,Closed,requested state not found in node variant",
                    "Info,NodeVariant,V,Roof,,valid"}},
        ReportCase{"EmptyNodeStateIsNeverFound",
                   [] {
                     nodeVariant("Car", "", {""});
                     variantSet().addNodeVariant("V", "");
                   },
                   {"Error,VariantSet,S,V,,requested state not found in node variant",
                    "Error,NodeVariant,V,Car,,empty state in node variant"}},
        ReportCase{"MaterialVariantNotFound",
                   [] { variantSet().addMaterialVariant("M", "Red"); },
                   {"Error,VariantSet,S,M,,material variant not found"}},
        ReportCase{"MaterialStateNotFound",
                   [] {
                     materialVariant("Paint", "", {"Red"});
                     variantSet().addMaterialVariant("M", "Blue");
                   },
                   {"Error,VariantSet,S,M,Blue,requested state not found in material variant",
                    "Info,MaterialVariant,M,Paint,,valid"}},
        ReportCase{
            "KindsAreLookedUpApart",
            [] {
              nodeVariant("Roof", "", {"Open"});
              variantSet().addMaterialVariant("V", "Open");
            },
            {"Error,VariantSet,S,V,,material variant not found", "Info,NodeVariant,V,Roof,,valid"}},
        ReportCase{"Valid",
                   [] {
                     nodeVariant("Roof", "", {"Open", "!Next"});
                     materialVariant("Paint", "", {"Red"});
                     variantSet().addNodeVariant("V", "!Next");
                     kuVariants::findVariantSet("S")->addMaterialVariant("M", "Red");
                   },
                   {"Info,VariantSet,S,,,valid", "Info,NodeVariant,V,Roof,,valid",
                    "Info,MaterialVariant,M,Paint,,valid"}},
        ReportCase{"AllErrorsOfASetNodesBeforeMaterialsInTheOrderOfTheirStates",
                   [] {
                     nodeVariant("Roof", "", {"Open"});
                     kuVariantSet& set = variantSet();
                     set.addMaterialVariant("Gone", "Red");
                     set.addNodeVariant("Lost", "Open");
                     set.addNodeVariant("V", "Shut");
                     set.addNodeVariant("Missing", "Open");
                   },
                   {"Error,VariantSet,S,Lost,,node variant not found",
                    "Error,VariantSet,S,V,Shut,requested state not found in node variant",
                    "Error,VariantSet,S,Missing,,node variant not found",
                    "Error,VariantSet,S,Gone,,material variant not found",
                    "Info,NodeVariant,V,Roof,,valid"}},
        ReportCase{"ErrorsOfOneSetLeaveTheNextOneValid",
                   [] {
                     variantSet("B").addNodeVariant("V", "Open");
                     variantSet("A");
                   },
                   {"Error,VariantSet,B,V,,node variant not found", "Info,VariantSet,A,,,valid"}}),
    Title);

INSTANTIATE_TEST_SUITE_P(
    NodeVariantOverASwitch, Report,
    ::testing::Values(
        ReportCase{"NodeNotFound",
                   [] {
                     nodeVariant("Hood", "Gone", {"", "Lost"});
                   },
                   {"Error,NodeVariant,V,Hood,,switch-node not found"}},
        ReportCase{"WithoutABase",
                   [] { nodeVariant("", "", {"Open"}); },
                   {"Error,NodeVariant,V,,,switch-node not found"}},
        ReportCase{"DefaultIsNoOption",
                   [] {
                     nodeVariant("Roof", "Open", {"Closed", "Lost"});
                   },
                   {"Error,NodeVariant,V,Roof,Open,"
                    "default node state not found in node variant"}},
        ReportCase{"DefaultIsNoChild",
                   [] {
                     nodeVariant("Roof", "Shut", {"Shut", "Lost"});
                   },
                   {"Error,NodeVariant,V,Roof,Shut,"
                    "default node state not found in switch node"}},
        ReportCase{"DefaultEnableWithoutTheOption",
                   [] { nodeVariant("Roof", "!Enable", {"Open"}); },
                   {"Error,NodeVariant,V,Roof,!Enable,"
                    "default node state not found in node variant"}},
        ReportCase{"DefaultEnableWithTheOptionPassesAsAKeyword",
                   [] { nodeVariant("Roof", "!Enable", {"!Enable"}); },
                   {"Info,NodeVariant,V,Roof,,valid"}},
        ReportCase{"DefaultIsAChild",
                   [] {
                     nodeVariant("Roof", "Closed", {"Open", "Closed"});
                   },
                   {"Info,NodeVariant,V,Roof,,valid"}},
        ReportCase{"EmptyDefaultGoesToTheOptions",
                   [] { nodeVariant("Roof", "", {"Shut"}); },
                   {"Error,NodeVariant,V,Roof,Shut,node state not found in switch node"}},
        ReportCase{"EmptyOption",
                   [] {
                     nodeVariant("Roof", "Open", {"", "Open"});
                   },
                   {"Error,NodeVariant,V,Roof,,empty state in node variant"}},
        ReportCase{"OptionIsNoChild",
                   [] {
                     nodeVariant("Roof", "Open", {"Open", "Shut"});
                   },
                   {"Error,NodeVariant,V,Roof,Shut,node state not found in switch node"}},
        ReportCase{"OptionDiffersInCase",
                   [] {
                     nodeVariant("Roof", "", {"open", "!all"});
                   },
                   {"Error,NodeVariant,V,Roof,open,node state not found in switch node",
                    "Error,NodeVariant,V,Roof,!all,node state not found in switch node"}},
        ReportCase{"ThreeBadOptionsGiveThreeErrorsAndNoInfo",
                   [] {
                     nodeVariant("Roof", "", {"Shut", "", "Open", "!Toggle"});
                   },
                   {"Error,NodeVariant,V,Roof,Shut,node state not found in switch node",
                    "Error,NodeVariant,V,Roof,,empty state in node variant",
                    "Error,NodeVariant,V,Roof,!Toggle,node state not found in switch node"}},
        ReportCase{"WithoutOptions",
                   [] { nodeVariant("Roof", "", {}); },
                   {"Info,NodeVariant,V,Roof,,valid"}}),
    Title);

INSTANTIATE_TEST_SUITE_P(
    NodeVariantOverAnotherNode, Report,
    ::testing::Values(
        ReportCase{"IllegalDefault",
                   [] {
                     nodeVariant("Car", "On", {"On", "Lost"});
                   },
                   {"Error,NodeVariant,V,Car,,"
                    "node is not a switch-node and has illegal default value"}},
        ReportCase{"DefaultNeedsNoOption",
                   [] { nodeVariant("Car", "!Disable", {"!Toggle"}); },
                   {"Info,NodeVariant,V,Car,,valid"}},
        ReportCase{"EmptyDefaultGoesToTheOptions",
                   [] { nodeVariant("Car", "", {"On"}); },
                   {"Error,NodeVariant,V,Car,On,node state not found in switch node"}},
        ReportCase{"EmptyOption",
                   [] { nodeVariant("Car", "!Enable", {""}); },
                   {"Error,NodeVariant,V,Car,,empty state in node variant"}},
        ReportCase{"NodeWithoutACore",
                   [] { nodeVariant("Bare", "Open", {"!Enable"}); },
                   {"Error,NodeVariant,V,Bare,,"
                    "node is not a switch-node and has illegal default value"}},
        ReportCase{"NodeWithoutACoreCanBeValid",
                   [] {
                     nodeVariant("Bare", "!Enable", {"!Enable", "!Disable", "!Toggle"});
                   },
                   {"Info,NodeVariant,V,Bare,,valid"}},
        ReportCase{"TransformNode",
                   [] {
                     nodeVariant("Door", "", {"!Next", "Transform 0"});
                   },
                   {"Error,NodeVariant,V,Door,!Next,node state not found in switch node",
                    "Error,NodeVariant,V,Door,Transform 0,node state not found in switch node"}},
        ReportCase{"DefaultOfATransformNode",
                   [] { nodeVariant("Door", "!Next (Loop)", {"!Next (Loop)"}); },
                   {"Error,NodeVariant,V,Door,,"
                    "node is not a switch-node and has illegal default value"}}),
    Title);

INSTANTIATE_TEST_SUITE_P(
    MaterialVariant, Report,
    ::testing::Values(ReportCase{"MaterialNotFound",
                                 [] {
                                   materialVariant("Varnish", "Gone", {"", "Lost"});
                                 },
                                 {"Error,MaterialVariant,M,Varnish,,switch-material not found"}},
                      ReportCase{"PlainMaterial",
                                 [] {
                                   materialVariant("Chrome", "Gone", {"", "Lost"});
                                 },
                                 {"Error,MaterialVariant,M,Chrome,,"
                                  "material is not a switch, substance or xrite-material"}},
                      ReportCase{"DefaultIsNoOption",
                                 [] {
                                   materialVariant("Paint", "Red", {"Blue", "Lost"});
                                 },
                                 {"Error,MaterialVariant,M,Paint,Red,"
                                  "default material state not found in material variant"}},
                      ReportCase{"DefaultIsNoState",
                                 [] {
                                   materialVariant("Paint", "Green", {"Green", ""});
                                 },
                                 {"Error,MaterialVariant,M,Paint,Green,"
                                  "default material state not found in switch material"}},
                      ReportCase{"DefaultNextIsAnErrorAlthoughTheOptionPasses",
                                 [] { materialVariant("Paint", "!Next", {"!Next"}); },
                                 {"Error,MaterialVariant,M,Paint,!Next,"
                                  "default material state not found in switch material"}},
                      ReportCase{"EmptyDefaultGoesToTheOptions",
                                 [] { materialVariant("Paint", "", {"Green"}); },
                                 {"Error,MaterialVariant,M,Paint,Green,"
                                  "material state not found in switch material"}},
                      ReportCase{
                          "EmptyOption",
                          [] {
                            materialVariant("Paint", "Red", {"", "Red"});
                          },
                          {"Error,MaterialVariant,M,Paint,,empty state in material variant"}},
                      ReportCase{"OptionIsNoState",
                                 [] {
                                   materialVariant("Paint", "Red", {"Red", "Green"});
                                 },
                                 {"Error,MaterialVariant,M,Paint,Green,"
                                  "material state not found in switch material"}},
                      ReportCase{"SwitchIsValid",
                                 [] {
                                   materialVariant("Paint", "Blue", {"Red", "Blue"});
                                 },
                                 {"Info,MaterialVariant,M,Paint,,valid"}},
                      ReportCase{"PresetsAreValid",
                                 [] { materialVariant("Glass", "Tinted", {"Tinted"}); },
                                 {"Info,MaterialVariant,M,Glass,,valid"}},
                      ReportCase{"ThreeBadOptionsGiveThreeErrorsAndNoInfo",
                                 [] {
                                   materialVariant("Paint", "", {"Green", "", "Red", "!All"});
                                 },
                                 {"Error,MaterialVariant,M,Paint,Green,"
                                  "material state not found in switch material",
                                  "Error,MaterialVariant,M,Paint,,empty state in material variant",
                                  "Error,MaterialVariant,M,Paint,!All,"
                                  "material state not found in switch material"}}),
    Title);

TEST_F(VerifierTest, SetsComeBeforeNodeVariantsAndTheseBeforeMaterialVariantsInListOrder) {
  materialVariant("Paint", "", {}, "M2");
  materialVariant("Paint", "", {}, "M1");
  nodeVariant("Hood", "", {}, "V2");
  nodeVariant("Roof", "", {}, "V1");
  variantSet("S2");
  variantSet("S1");
  EXPECT_THAT(report(),
              ElementsAre("Info,VariantSet,S2,,,valid", "Info,VariantSet,S1,,,valid",
                          "Error,NodeVariant,V2,Hood,,switch-node not found",
                          "Info,NodeVariant,V1,Roof,,valid", "Info,MaterialVariant,M2,Paint,,valid",
                          "Info,MaterialVariant,M1,Paint,,valid"));
}

TEST_F(VerifierTest, ASetWithoutNodeAndMaterialStatesIsValidWhateverElseItHolds) {
  kuVariantSet& set = variantSet();
  set.addLightVariant("Gone", "!Enable");
  set.addOverlayVariant("Gone", "!Enable");
  set.addTransformVariant("Gone", "Open");
  set.addViewpoint("Gone");
  set.addAnimation("Gone");
  set.addGeometry("Gone");
  set.addTargetNodeName("Gone");
  set.addMaterialSnapshot("Gone|", "Gone");
  EXPECT_THAT(report(), ElementsAre("Info,VariantSet,S,,,valid"));
}

TEST_F(VerifierTest, LightOverlayAndTransformVariantsAndGroupsAreNotChecked) {
  kuVariants::createLightVariant("L", false)->setNode("Gone");
  kuVariants::createOverlayVariant("O", false);
  kuVariants::createTransformVariant("T", false)->setNode("Gone");
  kuVariants::createVariantGroup("G", false, true);
  EXPECT_THAT(report(), IsEmpty());
}

TEST_F(VerifierTest, AVariantIsHeldAgainstTheFirstNodeOfTheName) {
  scene.switchNode("Lid", 0, {"Up"});
  scene.group("Lid");
  nodeVariant("Lid", "Up", {"Up"});
  EXPECT_THAT(report(), ElementsAre("Info,NodeVariant,V,Lid,,valid"));
}

/** A switch of a class of its own. */
struct DerivedSwitch final : osg::Switch {
  static const osg::FieldContainerType type;
  DerivedSwitch() : osg::Switch(type) {}
};
const osg::FieldContainerType DerivedSwitch::type("DerivedSwitch", &osg::Switch::_type);

TEST_F(VerifierTest, ACoreThatDerivesFromTheSwitchIsASwitch) {
  const osg::NodePtr node = scene.bare("Lid");
  kuStandalone::SceneNode::of(node).setCore(osg::NodeCorePtr(new DerivedSwitch));
  scene.group("Up", node);
  nodeVariant("Lid", "Up", {"Up", "!All"});
  EXPECT_THAT(report(), ElementsAre("Info,NodeVariant,V,Lid,,valid"));
}

TEST_F(VerifierTest, TheSceneStaysAsItIs) {
  nodeVariant("Roof", "Closed", {"Open", "Closed"});
  materialVariant("Chrome", "", {});
  variantSet().addNodeVariant("V", "Closed");
  report();
  EXPECT_EQ(kuVariants::findNodeVariant("V")->getCurrent(), "Open");
  EXPECT_THAT(log, IsEmpty());
}

}  // namespace
