#include <memory>

#include "host/kernel/kuScenegraph.h"
#include "manager/kuVariants.h"
#include "scene/kuNodeVariant.h"
#include "support/MessageReceiver.h"
#include "support/MessageRecorder.h"
#include "support/SceneTest.h"
#include "support/kuVariantsTestAccess.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class NodeVariantSelect : public SceneTest {
 protected:
  ~NodeVariantSelect() override { kuVariants::setRecursion(false); }

  /** Selects a state of a variant over the nodes named "S", which is named "V". */
  static void select(const char* state) {
    kuNodeVariant variant;
    variant.setName("V");
    variant.setNode("S");
    variant.select(QString(state));
  }

  MessageRecorder messages{[](const void* pointer) {
    return static_cast<const kuVariant*>(pointer)->getName().toStdString();
  }};
};

const std::string Selected = "nodeVariantSelected/1 variant:void*=V";

TEST_F(NodeVariantSelect, NameOfAChildShowsItAndTellsWhatShows) {
  const osg::NodePtr car = scene.group("Car");
  const osg::NodePtr node = scene.switchNode("S", 0, {"X", "Y", "Z"}, car);
  select("Y");
  EXPECT_EQ(SceneBuilder::choice(node), 1);
  EXPECT_THAT(messages.lines(),
              ElementsAre("variantsNodesChanged/1 variantName:string=V visible:strings=[Y] "
                          "invisible:strings=[X,Z] parent:string=S path:string=Car|S|",
                          Selected));
}

TEST_F(NodeVariantSelect, OfEqualChildrenTheFirstShows) {
  const osg::NodePtr node = scene.switchNode("S", 0, {"X", "Y", "Y"});
  select("Y");
  EXPECT_EQ(SceneBuilder::choice(node), 1);
}

TEST_F(NodeVariantSelect, NextOnTwoClonesStepsOnceAndTellsOfBoth) {
  const osg::NodePtr node = scene.switchNode("S", 0, {"X", "Y", "Z"});
  scene.clone(node);
  select("!Next");
  EXPECT_EQ(SceneBuilder::choice(node), 1);
  const std::string changed =
      "variantsNodesChanged/1 variantName:string=V visible:strings=[Y] invisible:strings=[X,Z] "
      "parent:string=S path:string=S|";
  EXPECT_THAT(messages.lines(), ElementsAre(changed, changed, Selected));
}

TEST_F(NodeVariantSelect, NextOnTwoCoresStepsEachFromItsOwnChoice) {
  const osg::NodePtr first = scene.switchNode("S", 0, {"X", "Y", "Z"});
  const osg::NodePtr second = scene.switchNode("S", 1, {"X", "Y", "Z"});
  select("!Next");
  EXPECT_EQ(SceneBuilder::choice(first), 1);
  EXPECT_EQ(SceneBuilder::choice(second), 2);
}

TEST_F(NodeVariantSelect, CloneSeenAgainKeepsTheChoiceAndIsEnabledAndTold) {
  const osg::NodePtr node = scene.switchNode("S", 0, {"X", "Y"});
  const osg::NodePtr copy = scene.clone(node);
  SceneBuilder::setActive(copy, false);
  kuVariants::setRecursion(true);
  int told = 0;
  // A change of the choice between the two nodes shows that the second one leaves it alone.
  MessageReceiver receiver("variantsNodesChanged", [&](kuMessage&) {
    if (told++ == 0) kuStandalone::SwitchCore::of(node->getCore()).choice = 0;
  });
  select("Y");
  EXPECT_EQ(told, 2);
  EXPECT_EQ(SceneBuilder::choice(node), 0);
  EXPECT_TRUE(copy->getActive());
}

TEST_F(NodeVariantSelect, TransformClonesStepOnceAndNothingIsTold) {
  const osg::NodePtr node = scene.transforms("S", {"A", "B", "C"}, 0, -1);
  scene.clone(node);
  select("!Next");
  EXPECT_EQ(SceneBuilder::transformChoice(node), 1u);
  EXPECT_THAT(messages.lines(), ElementsAre(Selected));
}

TEST_F(NodeVariantSelect, AllIsAnsweredAsCurrentWhileEveryChildIsToldInvisible) {
  const osg::NodePtr node = scene.switchNode("S", 0, {"X", "Y"});
  select("!All");
  EXPECT_EQ(kuNodeVariant(node).getCurrent(), "!All");
  EXPECT_THAT(messages.lines(),
              ElementsAre("variantsNodesChanged/1 variantName:string=V visible:strings=[] "
                          "invisible:strings=[X,Y] parent:string=S path:string=S|",
                          Selected));
}

TEST_F(NodeVariantSelect, NoneTellsEveryChildInvisibleAndEnablesNothing) {
  const osg::NodePtr node = scene.switchNode("S", 0, {"X", "Y"});
  SceneBuilder::setActive(node, false);
  kuVariants::setRecursion(true);
  select("!None");
  EXPECT_FALSE(node->getActive());
  EXPECT_THAT(messages.lines(),
              ElementsAre("variantsNodesChanged/1 variantName:string=V visible:strings=[] "
                          "invisible:strings=[X,Y] parent:string=S path:string=S|",
                          Selected));
}

TEST_F(NodeVariantSelect, ChildNamedLikeAKeywordCannotBeReachedByName) {
  const osg::NodePtr node = scene.switchNode("S", 1, {"!Next", "Y", "Z"});
  select("!Next");
  EXPECT_EQ(SceneBuilder::choice(node), 2);
}

TEST_F(NodeVariantSelect, UnknownChildIsLoggedOncePerNodeAndTheSceneStays) {
  const osg::NodePtr node = scene.switchNode("S", 1, {"X", "Y"});
  scene.clone(node);
  select("Gone");
  EXPECT_EQ(SceneBuilder::choice(node), 1);
  EXPECT_THAT(log, ElementsAre("error: Nodevariant V does not have a child called Gone",
                               "error: Nodevariant V does not have a child called Gone"));
  EXPECT_THAT(messages.lines(), ElementsAre(Selected));
}

TEST_F(NodeVariantSelect, DisableOnASwitchActsTellsAndEndsInTheErrorLine) {
  const osg::NodePtr node = scene.switchNode("S", 1, {"X", "Y"});
  select("!Disable");
  EXPECT_FALSE(node->getActive());
  EXPECT_EQ(SceneBuilder::choice(node), 1);
  EXPECT_THAT(messages.lines(),
              ElementsAre("variantsNodesChanged/1 variantName:string=V visible:strings=[Y] "
                          "invisible:strings=[X] parent:string=S path:string=S|",
                          Selected));
  EXPECT_THAT(log, ElementsAre("error: Nodevariant V does not have a child called !Disable"));
}

TEST_F(NodeVariantSelect, EnableAndToggleOnASwitchActAndEndInTheErrorLine) {
  const osg::NodePtr node = scene.switchNode("S", 1, {"X", "Y"});
  SceneBuilder::setActive(node, false);
  select("!Enable");
  EXPECT_TRUE(node->getActive());
  select("!Toggle");
  EXPECT_FALSE(node->getActive());
  EXPECT_THAT(log, ElementsAre("error: Nodevariant V does not have a child called !Enable",
                               "error: Nodevariant V does not have a child called !Toggle"));
  EXPECT_EQ(messages.linesOf("variantsNodesChanged").size(), 2u);
}

TEST_F(NodeVariantSelect, DisableOnATransformSetsTheFlagAndStateZero) {
  const osg::NodePtr node = scene.transforms("S", {"A", "B", "C"}, 2, -1);
  select("!Disable");
  EXPECT_FALSE(node->getActive());
  EXPECT_EQ(SceneBuilder::transformChoice(node), 0u);
  EXPECT_THAT(messages.lines(),
              ElementsAre("variantsNodesChanged/1 variantName:string=V visible:strings=[] "
                          "invisible:strings=[S] parent:string=Root path:string=S|",
                          Selected));
}

TEST_F(NodeVariantSelect, EnableDisableAndToggleOfAPlainNodeTellOfTheNodeItself) {
  const osg::NodePtr node = scene.group("S", scene.group("Car"));
  const std::string dark =
      "variantsNodesChanged/1 variantName:string=V visible:strings=[] invisible:strings=[S] "
      "parent:string=Car path:string=Car|S|";
  const std::string lit =
      "variantsNodesChanged/1 variantName:string=V visible:strings=[S] invisible:strings=[] "
      "parent:string=Car path:string=Car|S|";
  select("!Disable");
  EXPECT_FALSE(node->getActive());
  select("!Enable");
  EXPECT_TRUE(node->getActive());
  select("!Toggle");
  EXPECT_FALSE(node->getActive());
  select("!Toggle");
  EXPECT_TRUE(node->getActive());
  EXPECT_THAT(messages.lines(),
              ElementsAre(dark, Selected, lit, Selected, dark, Selected, lit, Selected));
}

TEST_F(NodeVariantSelect, ToggleOfClonesTurnsEachNodesOwnFlag) {
  const osg::NodePtr node = scene.group("S");
  const osg::NodePtr copy = scene.clone(node);
  SceneBuilder::setActive(copy, false);
  select("!Toggle");
  EXPECT_FALSE(node->getActive());
  EXPECT_TRUE(copy->getActive());
}

TEST_F(NodeVariantSelect, UnknownStateOfAPlainNodeIsSilent) {
  const osg::NodePtr node = scene.group("S");
  select("Open");
  EXPECT_TRUE(node->getActive());
  EXPECT_THAT(log, IsEmpty());
  EXPECT_THAT(messages.lines(), ElementsAre(Selected));
}

TEST_F(NodeVariantSelect, MissingNodeOnlyTellsOfTheSelection) {
  select("!Next");
  EXPECT_THAT(log, IsEmpty());
  EXPECT_THAT(messages.lines(), ElementsAre(Selected));
}

TEST_F(NodeVariantSelect, NumberBeyondTheTransformsIsSetAllTheSame) {
  const osg::NodePtr node = scene.transforms("S", {"A", "B", "C"}, 0, -1);
  select("Transform 99");
  EXPECT_EQ(SceneBuilder::transformChoice(node), 99u);
}

TEST_F(NodeVariantSelect, UnknownStateOfATransformSilentlyGoesToZero) {
  const osg::NodePtr node = scene.transforms("S", {"A", "B", "C"}, 2, -1);
  select("Open");
  EXPECT_EQ(SceneBuilder::transformChoice(node), 0u);
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(NodeVariantSelect, NodeThatIsNoSwitchAnyMoreTakesNoChildState) {
  scene.bare("S");
  select("!All");
  EXPECT_THAT(messages.lines(), ElementsAre(Selected));
}

// Reaching beyond the node.

TEST_F(NodeVariantSelect, WithoutRecursionInactiveAncestorsAndSubtreesStay) {
  const osg::NodePtr above = scene.group("Above");
  const osg::NodePtr node = scene.switchNode("S", 0, {"X", "Y"}, above);
  SceneBuilder::setActive(above, false);
  SceneBuilder::setActive(node->getChild(1), false);
  select("Y");
  EXPECT_FALSE(above->getActive());
  EXPECT_FALSE(node->getChild(1)->getActive());
}

TEST_F(NodeVariantSelect, WithRecursionSubtreeAndAncestorsUpToAnActiveOneAreEnabled) {
  const osg::NodePtr top = scene.group("Top");
  const osg::NodePtr active = scene.group("Active", top);
  const osg::NodePtr above = scene.group("Above", active);
  const osg::NodePtr node = scene.switchNode("S", 0, {"X", "Y"}, above);
  const osg::NodePtr deep = scene.group("Deep", node->getChild(0));
  for (const osg::NodePtr& dark : {top, above, node, node->getChild(0), deep})
    SceneBuilder::setActive(dark, false);
  kuVariants::setRecursion(true);
  select("Y");
  EXPECT_FALSE(top->getActive());
  EXPECT_TRUE(above->getActive());
  EXPECT_TRUE(node->getActive());
  EXPECT_TRUE(node->getChild(0)->getActive());
  EXPECT_TRUE(deep->getActive());
}

TEST_F(NodeVariantSelect, RecursionOfEnableAndToggleReachesTheSubtree) {
  const osg::NodePtr node = scene.group("S");
  const osg::NodePtr below = scene.group("Below", node);
  kuVariants::setRecursion(true);
  for (const char* state : {"!Enable", "!Toggle"}) {
    SceneBuilder::setActive(node, false);
    SceneBuilder::setActive(below, false);
    select(state);
    EXPECT_TRUE(below->getActive()) << state;
  }
}

TEST_F(NodeVariantSelect, RecursionOfANullNodeDoesNothing) {
  kuVariants::setRecursion(true);
  kuVariantsTestAccess::recurseEnable(osg::NullFC);
  kuVariants::setRecursion(false);
  const osg::NodePtr node = scene.group("S");
  SceneBuilder::setActive(node, false);
  kuVariantsTestAccess::recurseEnable(node);
  EXPECT_FALSE(node->getActive());
}

TEST_F(NodeVariantSelect, HideDarkensGeometriesAloneAndShowLightsTheWholeSubtree) {
  const osg::NodePtr group = scene.group("S");
  const osg::NodePtr part = scene.geometry("Part", {}, scene.switchNode("Inner", -1, {}, group));
  const osg::NodePtr dark = scene.group("Dark", group);
  SceneBuilder::setActive(dark, false);
  kuNodeVariant variant(group);
  variant.hideGeometry();
  EXPECT_TRUE(group->getActive());
  EXPECT_TRUE(part->getParent()->getActive());
  EXPECT_FALSE(part->getActive());
  variant.showGeometry();
  EXPECT_TRUE(part->getActive());
  EXPECT_TRUE(dark->getActive());
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(NodeVariantSelect, HideAndShowOfAMissingNodeDoNothing) {
  const osg::NodePtr part = scene.geometry("Part");
  kuNodeVariant variant(part);
  variant.setNode("Elsewhere");
  variant.hideGeometry();
  EXPECT_TRUE(part->getActive());
  SceneBuilder::setActive(part, false);
  variant.showGeometry();
  EXPECT_FALSE(part->getActive());
}

// Paths.

TEST_F(NodeVariantSelect, PathNamesEveryNodeBelowTheRootAndEndsWithABar) {
  const osg::NodePtr b = scene.group("B", scene.group("A"));
  EXPECT_EQ(kuVariantsTestAccess::nodePath(scene.group("C", b)), "A|B|C|");
  EXPECT_EQ(kuVariantsTestAccess::nodePath(scene.root()), "");
  EXPECT_EQ(kuVariantsTestAccess::nodePath(osg::NullFC), "");
}

TEST_F(NodeVariantSelect, NodeNamedRootCutsThePathsBelowIt) {
  const osg::NodePtr inner = scene.group("Root", scene.group("A"));
  EXPECT_EQ(kuVariantsTestAccess::nodePath(scene.group("C", inner)), "C|");
  EXPECT_EQ(kuVariantsTestAccess::nodePath(inner), "");
}

TEST_F(NodeVariantSelect, NodeWithoutAParentHasAnEmptyParentName) {
  kuMessage message;
  kuVariantsTestAccess::callNodesChanged(scene.root(), message);
  EXPECT_THAT(messages.lines(),
              ElementsAre("variantsNodesChanged/1 visible:strings=[Root] invisible:strings=[] "
                          "parent:string= path:string="));
}

TEST_F(NodeVariantSelect, ValuesThatTheMessageHeldStayAndVisibleIsReplacedInItsPlace) {
  const osg::NodePtr node = scene.group("S");
  kuMessage message;
  message.set("visible", false, true);
  message.set("extra", std::string("kept"), true);
  kuVariantsTestAccess::callNodesChanged(node, message);
  EXPECT_THAT(messages.lines(),
              ElementsAre("variantsNodesChanged/1 visible:strings=[S] extra:string=kept "
                          "invisible:strings=[] parent:string=Root path:string=S|"));
}

// Receivers.

// Without the recorder, which would ask the deleted variant for its name.
class NodeVariantReceivers : public SceneTest {};

TEST_F(NodeVariantReceivers, ReceiverMayDeleteTheVariantInTheMidstOfItsSelection) {
  const osg::NodePtr first = scene.switchNode("S", 0, {"X", "Y"});
  const osg::NodePtr second = scene.switchNode("S", 0, {"X", "Y"});
  auto variant = std::make_unique<kuNodeVariant>(first);
  variant->setDefault(QString("Y"));
  void* const before = static_cast<kuVariant*>(variant.get());
  void* selected = nullptr;
  const kuStandalone::MessageWatch watch([&](const kuStandalone::PassedMessage& message) {
    if (message.name == "nodeVariantSelected") message.record->get("variant", selected);
  });
  const MessageReceiver receiver("variantsNodesChanged", [&](kuMessage&) { variant.reset(); });
  variant->select();
  EXPECT_EQ(SceneBuilder::choice(second), 1);
  EXPECT_EQ(selected, before);
}

TEST_F(NodeVariantSelect, ReceiverMayTakeTheNodesAway) {
  scene.switchNode("S", 0, {"X", "Y"});
  scene.switchNode("S", 0, {"X", "Y"});
  const MessageReceiver receiver("variantsNodesChanged",
                                 [&](kuMessage&) { scene = SceneBuilder(); });
  select("Y");
  EXPECT_EQ(messages.lines().back(), Selected);
}

}  // namespace
