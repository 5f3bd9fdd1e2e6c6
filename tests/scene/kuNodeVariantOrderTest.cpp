#include "host/osg/Switch.h"
#include "host/osg/SwitchComponentTransform.h"
#include "manager/kuVariants.h"
#include "scene/kuNodeVariant.h"
#include "standalone/scene/SceneNode.h"
#include "support/BracketRecorder.h"
#include "support/MessageReceiver.h"
#include "support/MessageRecorder.h"
#include "support/SceneTest.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

namespace {

/** In which order a selection acts and tells, and in which brackets it changes the scene. */
class NodeVariantOrder : public SceneTest {
 protected:
  ~NodeVariantOrder() override { kuVariants::setRecursion(false); }

  /** Selects a state of a variant over the nodes named "S", which is named "V". */
  static void select(const char* state) {
    kuNodeVariant variant;
    variant.setName("V");
    variant.setNode("S");
    variant.select(QString(state));
  }

  /** Whether @p observed is active at each message that a selection sends of its nodes. */
  static std::vector<bool> activeWhenTold(const char* state, const osg::NodePtr& observed) {
    std::vector<bool> active;
    const MessageReceiver receiver("variantsNodesChanged",
                                   [&](kuMessage&) { active.push_back(observed->getActive()); });
    select(state);
    return active;
  }

  /** Another node "S" over the core of @p original, with children of its own. */
  void sameCore(const osg::NodePtr& original, const std::vector<std::string>& children) {
    const osg::NodePtr node = kuStandalone::SceneNode::create("S", original->getCore());
    kuStandalone::SceneNode::of(scene.root()).addChild(node);
    for (const std::string& child : children)
      scene.group(child, node);
  }

  MessageRecorder messages;
};

TEST_F(NodeVariantOrder, AncestorsOfASwitchAreEnabledBeforeItIsToldExceptByNone) {
  const osg::NodePtr above = scene.group("Above");
  scene.switchNode("S", 0, {"X", "Y"}, above);
  kuVariants::setRecursion(true);
  for (const char* state :
       {"!All", "!Next", "!Next (Loop)", "!Previous", "!Previous (Loop)", "Y"}) {
    SceneBuilder::setActive(above, false);
    EXPECT_THAT(activeWhenTold(state, above), ElementsAre(true)) << state;
  }
  SceneBuilder::setActive(above, false);
  EXPECT_THAT(activeWhenTold("!None", above), ElementsAre(false));
}

TEST_F(NodeVariantOrder, AncestorsOfAPlainNodeAreEnabledBeforeItIsToldUnlessItGoesDark) {
  const osg::NodePtr above = scene.group("Above");
  const osg::NodePtr node = scene.group("S", above);
  kuVariants::setRecursion(true);
  for (const char* state : {"!Enable", "!Toggle"}) {
    SceneBuilder::setActive(above, false);
    SceneBuilder::setActive(node, false);
    EXPECT_THAT(activeWhenTold(state, above), ElementsAre(true)) << state;
  }
  for (const char* state : {"!Disable", "!Toggle"}) {
    SceneBuilder::setActive(above, false);
    SceneBuilder::setActive(node, true);
    EXPECT_THAT(activeWhenTold(state, above), ElementsAre(false)) << state;
  }
}

TEST_F(NodeVariantOrder, EnableOfAnInactiveTransformIsToldBeforeItGoesToStateZero) {
  const osg::NodePtr node = scene.transforms("S", {"A", "B", "C"}, 2, -1);
  const osg::NodePtr below = scene.group("Below", node);
  SceneBuilder::setActive(node, false);
  SceneBuilder::setActive(below, false);
  kuVariants::setRecursion(true);
  unsigned choiceWhenTold = 99;
  const MessageReceiver receiver("variantsNodesChanged", [&](kuMessage&) {
    choiceWhenTold = SceneBuilder::transformChoice(node);
  });
  select("!Enable");
  EXPECT_TRUE(node->getActive());
  EXPECT_TRUE(below->getActive());
  EXPECT_EQ(choiceWhenTold, 2u);
  EXPECT_EQ(SceneBuilder::transformChoice(node), 0u);
  EXPECT_THAT(messages.lines(),
              ElementsAre("variantsNodesChanged/1 variantName:string=V visible:strings=[S] "
                          "invisible:strings=[] parent:string=Root path:string=S|",
                          "nodeVariantSelected/1 variant:void*=pointer"));
}

TEST_F(NodeVariantOrder, StepOfATransformEnablesNothing) {
  const osg::NodePtr node = scene.transforms("S", {"A", "B"}, 0, -1);
  SceneBuilder::setActive(node, false);
  kuVariants::setRecursion(true);
  select("!Next");
  EXPECT_FALSE(node->getActive());
  EXPECT_EQ(SceneBuilder::transformChoice(node), 1u);
}

TEST_F(NodeVariantOrder, ErrorOfASwitchComesAfterItsVisibilityIsTold) {
  scene.switchNode("S", 0, {"X"});
  std::size_t loggedWhenTold = 99;
  const MessageReceiver receiver("variantsNodesChanged",
                                 [&](kuMessage&) { loggedWhenTold = log.size(); });
  select("!Enable");
  EXPECT_EQ(loggedWhenTold, 0u);
  EXPECT_EQ(log.size(), 1u);
}

TEST_F(NodeVariantOrder, CloneWithoutTheChildIsLoggedAndItsCoreCountsAsSeen) {
  const osg::NodePtr node = scene.switchNode("S", 0, {"X"});
  sameCore(node, {"X", "Y"});
  select("Y");
  EXPECT_EQ(SceneBuilder::choice(node), 0);
  EXPECT_THAT(log, ElementsAre("error: Nodevariant V does not have a child called Y"));
  EXPECT_EQ(messages.linesOf("variantsNodesChanged").size(), 1u);
}

TEST_F(NodeVariantOrder, CloneWithoutTheChildIsLoggedAlsoAfterTheChoiceWasSet) {
  const osg::NodePtr node = scene.switchNode("S", 0, {"X", "Y"});
  sameCore(node, {"X"});
  select("Y");
  EXPECT_EQ(SceneBuilder::choice(node), 1);
  EXPECT_THAT(log, ElementsAre("error: Nodevariant V does not have a child called Y"));
  EXPECT_EQ(messages.linesOf("variantsNodesChanged").size(), 1u);
}

TEST_F(NodeVariantOrder, ChoiceBeyondTheChildrenOrBelowAllIsToldAsEveryChildInvisible) {
  for (const int choice : {-3, 2, 7}) {
    scene = SceneBuilder();
    messages.clear();
    scene.switchNode("S", choice, {"X", "Y"});
    ::testing::internal::CaptureStderr();
    select("!Disable");
    EXPECT_THAT(::testing::internal::GetCapturedStderr(),
                ::testing::Not(::testing::HasSubstr("out of range")));
    EXPECT_THAT(messages.linesOf("variantsNodesChanged"),
                ElementsAre("variantsNodesChanged/1 variantName:string=V visible:strings=[] "
                            "invisible:strings=[X,Y] parent:string=S path:string=S|"))
        << choice;
  }
}

TEST_F(NodeVariantOrder, ReceiverThatRenamesTheVariantFindsTheNewNameAtTheNextNode) {
  const osg::NodePtr first = scene.switchNode("S", 0, {"X"});
  scene.switchNode("S", 0, {});
  scene.switchNode("S", 0, {"X"});
  kuNodeVariant variant(first);
  std::vector<std::string> told;
  const MessageReceiver receiver("variantsNodesChanged", [&](kuMessage& message) {
    std::string name;
    message.get("variantName", name);
    told.push_back(name);
    variant.setName("Renamed");
  });
  variant.select(QString("X"));
  EXPECT_THAT(told, ElementsAre("S", "Renamed"));
  EXPECT_THAT(log, ElementsAre("error: Nodevariant Renamed does not have a child called X"));
}

TEST_F(NodeVariantOrder, NamesBeyondAsciiGoOutInUtf8) {
  kuNodeVariant variant(scene.switchNode("T\u00fcr", 0, {"Gr\u00fcn", "\u8d64"}));
  variant.select(QString::fromUtf8("\u8d64"));
  variant.select(QString::fromUtf8("\u00e4"));
  EXPECT_THAT(messages.linesOf("variantsNodesChanged"),
              ElementsAre("variantsNodesChanged/1 variantName:string=T\u00fcr "
                          "visible:strings=[\u8d64] invisible:strings=[Gr\u00fcn] "
                          "parent:string=T\u00fcr path:string=T\u00fcr|"));
  EXPECT_THAT(log, ElementsAre("error: Nodevariant T\u00fcr does not have a child called \u00e4"));
}

TEST_F(NodeVariantOrder, KeywordsInOtherLettersAreNamesOfChildren) {
  const osg::NodePtr node = scene.switchNode("S", 0, {"X", "!next", "!all"});
  select("!next");
  EXPECT_EQ(SceneBuilder::choice(node), 1);
  select("!all");
  EXPECT_EQ(SceneBuilder::choice(node), 2);
  select("!disable");
  EXPECT_TRUE(node->getActive());
  EXPECT_THAT(log, ElementsAre("error: Nodevariant V does not have a child called !disable"));
}

TEST_F(NodeVariantOrder, ChildNamedLikeAVisibilityKeywordIsShownByIt) {
  const osg::NodePtr node = scene.switchNode("S", 0, {"X", "!Disable"});
  select("!Disable");
  EXPECT_FALSE(node->getActive());
  EXPECT_EQ(SceneBuilder::choice(node), 1);
  EXPECT_THAT(log, IsEmpty());
  EXPECT_EQ(messages.linesOf("variantsNodesChanged").size(), 2u);
}

TEST_F(NodeVariantOrder, HideAndShowReachEveryNodeOfTheName) {
  const osg::NodePtr first = scene.geometry("S");
  const osg::NodePtr second = scene.geometry("S");
  kuNodeVariant variant(first);
  variant.hideGeometry();
  EXPECT_FALSE(first->getActive());
  EXPECT_FALSE(second->getActive());
  variant.showGeometry();
  EXPECT_TRUE(first->getActive());
  EXPECT_TRUE(second->getActive());
}

TEST_F(NodeVariantOrder, ShowLeavesAncestorsInactiveAlsoWithRecursion) {
  const osg::NodePtr above = scene.group("Above");
  kuNodeVariant variant(scene.group("S", above));
  SceneBuilder::setActive(above, false);
  kuVariants::setRecursion(true);
  variant.showGeometry();
  EXPECT_FALSE(above->getActive());
}

// Brackets.

TEST_F(NodeVariantOrder, ChoiceOfASwitchIsSetOnceForAllClonesInABracketOfAllFields) {
  scene.clone(scene.switchNode("S", 0, {"X", "Y"}));
  const BracketRecorder recorder;
  select("Y");
  EXPECT_THAT(recorder.brackets(), ElementsAre(Pair("Switch", osg::AllFieldsMask)));
}

TEST_F(NodeVariantOrder, ChoiceIsSetInABracketAlsoWhereItStays) {
  scene.switchNode("S", 1, {"X", "Y"});
  const BracketRecorder recorder;
  select("Y");
  EXPECT_THAT(recorder.brackets(), ElementsAre(Pair("Switch", osg::AllFieldsMask)));
}

TEST_F(NodeVariantOrder, ChoiceOfATransformIsSetInABracketOfTheChoice) {
  scene.transforms("S", {"A", "B"}, 0, -1);
  const BracketRecorder recorder;
  select("Transform 1");
  EXPECT_THAT(recorder.brackets(),
              ElementsAre(Pair("SwitchComponentTransform",
                               osg::SwitchComponentTransformBase::ChoiceFieldMask)));
}

TEST_F(NodeVariantOrder, FlagIsSetInABracketOfTheFlagAlsoWhereItStays) {
  scene.group("S");
  const BracketRecorder recorder;
  select("!Enable");
  select("!Disable");
  select("!Toggle");
  const auto flag = Pair("Node", osg::Node::TravMaskFieldMask);
  EXPECT_THAT(recorder.brackets(), ElementsAre(flag, flag, flag));
}

TEST_F(NodeVariantOrder, RecursionSetsTheNodeTwiceThenWhatIsBelowAndAbove) {
  const osg::NodePtr above = scene.group("Above");
  scene.group("Below", scene.group("S", above));
  SceneBuilder::setActive(above, false);
  kuVariants::setRecursion(true);
  const BracketRecorder recorder;
  select("!Enable");
  const auto flag = Pair("Node", osg::Node::TravMaskFieldMask);
  EXPECT_THAT(recorder.brackets(), ElementsAre(flag, flag, flag, flag));
}

TEST_F(NodeVariantOrder, HideOpensABracketForEachGeometryAndShowForEachNode) {
  const osg::NodePtr group = scene.group("S");
  scene.geometry("Part", {}, group);
  kuNodeVariant variant(group);
  BracketRecorder recorder;
  const auto flag = Pair("Node", osg::Node::TravMaskFieldMask);
  variant.hideGeometry();
  EXPECT_THAT(recorder.brackets(), ElementsAre(flag));
  recorder.clear();
  variant.showGeometry();
  EXPECT_THAT(recorder.brackets(), ElementsAre(flag, flag));
}

}  // namespace
