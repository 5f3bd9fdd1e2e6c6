#include "scene/kuVariantCreator.h"

#include <algorithm>
#include <memory>
#include <typeinfo>

#include "host/kernel/kuScenegraph.h"
#include "manager/kuVariants.h"
#include "scene/kuLightVariantCreator.h"
#include "scene/kuNodeVariant.h"
#include "scene/kuNodeVariantCreator.h"
#include "scene/kuOverlayVariantCreator.h"
#include "scene/kuTransformVariant.h"
#include "scene/kuTransformVariantCreator.h"
#include "support/ManagerDump.h"
#include "support/MessageReceiver.h"
#include "support/VariantText.h"
#include "support/VariantsTest.h"
#include "support/kuVariantsTestAccess.h"

using osg::Action;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

using Lines = std::vector<std::string>;

/** One of the four classes, and what the table says of it. */
struct CreatorCase {
  const char* name;
  std::unique_ptr<kuVariantCreator> (*make)();
  /** "node Roof" for each variant that a walk over the scene of the fixture makes. */
  Lines made;
  /** What is sent after each walk. */
  Lines sent;
};

std::ostream& operator<<(std::ostream& stream, const CreatorCase& entry) {
  return stream << entry.name;
}

template <class Creator>
std::unique_ptr<kuVariantCreator> make() {
  return std::make_unique<Creator>();
}

/** The variants of all kinds in the manager's order: "node Roof". */
Lines variantNames() {
  Lines names;
  const auto append = [&](const std::string& kind, const auto& list) {
    for (const kuVariant* variant : list)
      names.push_back(kind + " " + variant->getName().toStdString());
  };
  append("node", kuVariants::getNodeVariants());
  append("material", kuVariants::getMaterialVariants());
  append("light", kuVariants::getLightVariants());
  append("overlay", kuVariants::getOverlayVariants());
  append("transform", kuVariants::getTransformVariants());
  return names;
}

/**
 * A scene with a node of each kind:
 *
 *   Car
 *     Roof, a switch: Hardtop with the switch Rack (Rails) below it, Softtop
 *     Hollow, a switch without children
 *     Door, with named transforms: Lamp, a light, below it
 *     Seat, with transforms without names
 *     Bare, without a core
 *   Sun, a light
 */
class Creator : public VariantsTest, public ::testing::WithParamInterface<CreatorCase> {
 protected:
  Creator() : creator(GetParam().make()) {
    car = scene.group("Car");
    const osg::NodePtr roof = scene.switchNode("Roof", 0, {"Hardtop", "Softtop"}, car);
    scene.switchNode("Rack", 0, {"Rails"}, roof->getChild(0));
    scene.switchNode("Hollow", 0, {}, car);
    scene.light("Lamp", true, scene.transforms("Door", {"Shut", "Ajar"}, 0, 0, car));
    scene.transforms("Seat", {"", ""}, 0, 0, car);
    scene.bare("Bare", car);
    scene.light("Sun", true);
    messages.clear();
  }

  osg::NodePtr car;
  const std::unique_ptr<kuVariantCreator> creator;
};

TEST_P(Creator, MakesAVariantForEachNodeOfItsKindAndSendsTheMessageOfTheTable) {
  EXPECT_TRUE(creator->traverse(scene.root()));
  EXPECT_EQ(variantNames(), GetParam().made);
  EXPECT_EQ(messages.lines(), GetParam().sent);
}

TEST_P(Creator, AWalkThatFindsNothingSendsTheSame) {
  EXPECT_TRUE(creator->traverse(scene.group("Empty")));
  EXPECT_THAT(variantNames(), IsEmpty());
  EXPECT_EQ(messages.lines(), GetParam().sent);
}

TEST_P(Creator, ANullNodeSendsTheSameAndIsTrue) {
  EXPECT_TRUE(creator->traverse(osg::NullFC));
  EXPECT_THAT(variantNames(), IsEmpty());
  EXPECT_EQ(messages.lines(), GetParam().sent);
}

TEST_P(Creator, WalksBelowTheNodeAlone) {
  EXPECT_TRUE(creator->traverse(car));
  Lines expected = GetParam().made;
  expected.erase(std::remove(expected.begin(), expected.end(), "light Sun"), expected.end());
  EXPECT_EQ(variantNames(), expected);
}

TEST_P(Creator, AsAGraphOpItWalksTheSameAndSendsNothing) {
  osg::GraphOp& operation = *creator;
  EXPECT_TRUE(operation.traverse(scene.root()));
  EXPECT_EQ(variantNames(), GetParam().made);
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_P(Creator, ASecondWalkMakesNothingNew) {
  creator->traverse(scene.root());
  const std::string before = managerDump();
  EXPECT_TRUE(creator->traverse(scene.root()));
  EXPECT_EQ(managerDump(), before);
}

TEST_P(Creator, GoesOnBelowEveryNode) {
  for (const char* name : {"Car", "Roof", "Hollow", "Door", "Sun", "Bare"}) {
    const osg::NodePtr node = kuScenegraph::findNode(name).getNode();
    EXPECT_EQ(kuVariantsTestAccess::enter(*creator, node), Action::Continue) << name;
  }
  EXPECT_EQ(kuVariantsTestAccess::enter(*creator, osg::NullFC), Action::Continue);
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_P(Creator, LeavesWithContinueWhateverItIsGiven) {
  for (const Action::ResultE given :
       {Action::Continue, Action::Skip, Action::Break, Action::Quit}) {
    EXPECT_EQ(kuVariantsTestAccess::leave(*creator, car, given), Action::Continue) << given;
    EXPECT_EQ(kuVariantsTestAccess::leave(*creator, osg::NullFC, given), Action::Continue);
  }
}

TEST_P(Creator, BearsTheNameOfItsClass) { EXPECT_EQ(creator->getName(), GetParam().name); }

TEST_P(Creator, CreateGivesANewOneOfTheClass) {
  const std::unique_ptr<osg::GraphOp> created(creator->create());
  ASSERT_TRUE(created);
  EXPECT_NE(created.get(), creator.get());
  EXPECT_EQ(typeid(*created), typeid(*creator));
  EXPECT_EQ(created->getName(), GetParam().name);
}

TEST_P(Creator, HasNoParameters) {
  EXPECT_EQ(creator->usage(), "");
  creator->setParams("switch=none; !All");
  EXPECT_EQ(creator->usage(), "");
  EXPECT_TRUE(creator->traverse(scene.root()));
  EXPECT_EQ(variantNames(), GetParam().made);
}

const auto Name = [](const auto& info) { return std::string(info.param.name); };

INSTANTIATE_TEST_SUITE_P(Kinds, Creator,
                         ::testing::Values(CreatorCase{"kuNodeVariantCreator",
                                                       make<kuNodeVariantCreator>,
                                                       {"node Roof", "node Rack"},
                                                       {}},
                                           CreatorCase{"kuOverlayVariantCreator",
                                                       make<kuOverlayVariantCreator>,
                                                       {"overlay Roof", "overlay Rack"},
                                                       {}},
                                           CreatorCase{"kuLightVariantCreator",
                                                       make<kuLightVariantCreator>,
                                                       {"light Lamp", "light Sun"},
                                                       {"lightVariantChanged/1 bare"}},
                                           CreatorCase{"kuTransformVariantCreator",
                                                       make<kuTransformVariantCreator>,
                                                       {"transform Door"},
                                                       {"transformVariantChanged/0 bare"}}),
                         Name);

class CreatorNodes : public VariantsTest {};

TEST_F(CreatorNodes, ASwitchUnderASwitchGetsAVariantToo) {
  const osg::NodePtr roof = scene.switchNode("Roof", 1, {"Hardtop", "Softtop"});
  scene.switchNode("Inner", 0, {"A"}, roof);
  kuNodeVariantCreator().traverse(roof);
  kuOverlayVariantCreator().traverse(roof);
  EXPECT_THAT(variantNames(),
              ElementsAre("node Roof", "node Inner", "overlay Roof", "overlay Inner"));
}

TEST_F(CreatorNodes, SceneplatesGetVariantsOfBothKinds) {
  scene.sceneplateSwitch("Season", 0, {"Summer", "Winter"});
  kuNodeVariantCreator().traverse(scene.sceneplateRoot());
  kuOverlayVariantCreator().traverse(scene.sceneplateRoot());
  EXPECT_THAT(variantNames(), ElementsAre("node Season", "overlay Season"));
}

TEST_F(CreatorNodes, VariantsHaveTheOptionsAndTheDefaultOfTheirNode) {
  scene.switchNode("Roof", 1, {"Hardtop", "Softtop"});
  scene.transforms("Door", {"Shut", "Ajar"}, 1, 1);
  kuNodeVariantCreator().traverse(scene.root());
  kuTransformVariantCreator().traverse(scene.root());
  const kuNodeVariant& roof = *kuVariants::findNodeVariant("Roof");
  EXPECT_EQ(roof.getNode(), "Roof");
  EXPECT_EQ(roof.getDefault(), "Softtop");
  EXPECT_THAT(optionTexts(roof),
              ElementsAre("!All", "!None", "!Next *", "!Next (Loop) *", "!Previous *",
                          "!Previous (Loop) *", "Hardtop", "Softtop"));
  EXPECT_THAT(optionTexts(*kuVariants::findTransformVariant("Door")),
              ElementsAre("!Next *", "!Next (Loop) *", "!Previous *", "!Previous (Loop) *", "Shut",
                          "Ajar"));
}

TEST_F(CreatorNodes, ANameThatHasAVariantKeepsItAsItIs) {
  scene.switchNode("Roof", 0, {"Hardtop"});
  kuNodeVariant* const former = kuVariants::createNodeVariant("Roof", false);
  former->add("Former", "");
  kuNodeVariantCreator().traverse(scene.root());
  EXPECT_THAT(kuVariants::getNodeVariants(), ElementsAre(former));
  EXPECT_THAT(optionTexts(*former), ElementsAre("Former"));
}

TEST_F(CreatorNodes, OfTwoNodesOfOneNameTheFirstGivesTheOptions) {
  scene.switchNode("Roof", 0, {"Hardtop"});
  scene.switchNode("Roof", 0, {"Softtop"});
  kuNodeVariantCreator().traverse(scene.root());
  ASSERT_THAT(variantNames(), ElementsAre("node Roof"));
  EXPECT_EQ(optionTexts(*kuVariants::findNodeVariant("Roof")).back(), "Hardtop");
}

TEST_F(CreatorNodes, ClonesGetOneVariantForEachName) {
  const osg::NodePtr roof = scene.switchNode("Roof", 0, {"Hardtop"});
  scene.clone(roof);
  scene.clone(roof, "Second Roof");
  kuNodeVariantCreator().traverse(scene.root());
  EXPECT_THAT(variantNames(), ElementsAre("node Roof", "node Second Roof"));
}

TEST_F(CreatorNodes, NodesWithoutANameArePassedOverAndThoseBelowAreNot) {
  const osg::NodePtr unnamed = scene.switchNode("", 0, {"Hardtop"});
  scene.switchNode("Rack", 0, {"Rails"}, unnamed->getChild(0));
  scene.light("Lamp", true, scene.light("", true));
  scene.transforms("Door", {"Shut"}, 0, 0, scene.transforms("", {"Shut"}, 0, 0));
  kuNodeVariantCreator().traverse(scene.root());
  kuOverlayVariantCreator().traverse(scene.root());
  kuLightVariantCreator().traverse(scene.root());
  kuTransformVariantCreator().traverse(scene.root());
  EXPECT_THAT(variantNames(),
              ElementsAre("node Rack", "light Lamp", "overlay Rack", "transform Door"));
}

TEST_F(CreatorNodes, TheNodeItselfIsWalkedToo) {
  kuLightVariantCreator().traverse(scene.light("Sun", true));
  EXPECT_THAT(variantNames(), ElementsAre("light Sun"));
}

TEST_F(CreatorNodes, AReceiverSeesAllVariantsOfTheWalk) {
  scene.light("Sun", true);
  scene.light("Lamp", true);
  Lines seen;
  const MessageReceiver receiver("lightVariantChanged", [&](kuMessage&) { seen = variantNames(); });
  kuLightVariantCreator().traverse(scene.root());
  EXPECT_THAT(seen, ElementsAre("light Sun", "light Lamp"));
}

TEST_F(CreatorNodes, CopiesMovesAndAssignmentsCarryTheName) {
  const kuNodeVariantCreator original;
  kuNodeVariantCreator copy(original);
  const kuNodeVariantCreator moved(std::move(copy));
  kuNodeVariantCreator assigned;
  assigned = moved;
  EXPECT_EQ(moved.getName(), "kuNodeVariantCreator");
  EXPECT_EQ(assigned.getName(), "kuNodeVariantCreator");
  scene.switchNode("Roof", 0, {"Hardtop"});
  EXPECT_TRUE(assigned.traverse(scene.root()));
  EXPECT_THAT(variantNames(), ElementsAre("node Roof"));
}

}  // namespace
