#include <QCoreApplication>
#include <QElapsedTimer>
#include <QStringList>
#include <functional>

#include "host/session/kuSession.h"
#include "manager/kuVariants.h"
#include "model/kuVariantGroup.h"
#include "scene/kuLightVariant.h"
#include "scene/kuMaterialVariant.h"
#include "scene/kuNodeVariant.h"
#include "standalone/script/ClippingSettings.h"
#include "support/MessageReceiver.h"
#include "support/NatsBroker.h"
#include "support/SelectionScene.h"
#include "support/SessionEvents.h"
#include "support/kuVariantsTestAccess.h"

// What the two selections hand to a session that is ready, over a real broker. A command that was
// pushed shows as an event of the session; what runs here alone shows as none.

using namespace kuStandalone;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

using Lines = std::vector<std::string>;

class SelectionInSession : public SelectionScene {
 protected:
  SelectionInSession() {
    Session::Joining joining = Session::join(
        testOptions(broker.url(), "review", "Ada"),
        [this](const SessionEvent& event) { events.push_back(eventText(event).toStdString()); });
    session = std::move(joining.session);
    EXPECT_TRUE(session) << joining.error.toStdString();
    QElapsedTimer time;
    for (time.start(); session && !session->isJoinCompleted() && time.elapsed() < 10000;)
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
    EXPECT_TRUE(kuSession::the().isReadyToUse());
    events.clear();
    messages.clear();
  }

  kuVariantSet& another(const char* name) {
    kuVariantSet* made = kuVariants::createVariantSet(name, false, nullptr);
    messages.clear();
    return *made;
  }
  kuVariantGroup& group(bool shared) {
    kuVariantGroup* made = kuVariants::createVariantGroup("Seasons", false, true);
    made->setSyncInCollaboration(shared);
    made->add(&set());
    return *made;
  }
  static kuVariant& roofVariant() { return *kuVariants::findNodeVariant("Roof"); }

  NatsBroker broker;
  std::unique_ptr<Session> session;
  Lines events;
};

const char* const roofCloses =
    "variantsNodesChanged/1 variantName:string=Roof visible:strings=[Closed] "
    "invisible:strings=[Open] parent:string=Roof path:string=Roof|";
const char* const roofSelected = "nodeVariantSelected/1 variant:void*=kuVariant Roof";
const char* const begins = "variantsSetSelected/1 variantSetName:string=Summer";
const char* const ends = "variantsSetSelected/1 variantSetName:string=";
const char* const bare = "variantSetSelected/1 bare";
const char* const setRan = "ran SelectVariantSet own";
const char* const variantRan = "ran SelectVariant own";

}  // namespace

TEST_F(SelectionInSession, VariantIsPushedAndSelectedOnceByItsCommand) {
  roofVariant().select("Closed");
  EXPECT_THAT(events, ElementsAre(variantRan));
  EXPECT_THAT(messages.lines(), ElementsAre(roofCloses, roofSelected));
  EXPECT_TRUE(kuSession::the().isReadyToUse());
}

TEST_F(SelectionInSession, VariantThatTheManagerDoesNotHaveIsPushedAndNowhereSelected) {
  kuNodeVariant temporary;
  temporary.setName("Nowhere");
  temporary.select("Closed");
  EXPECT_THAT(events, ElementsAre(variantRan));
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(SelectionInSession, DefaultOfAVariantIsPushedAlsoWhereItIsEmpty) {
  roofVariant().setDefault("");
  roofVariant().select();
  EXPECT_THAT(events, ElementsAre(variantRan));
}

TEST_F(SelectionInSession, SharedSetWithoutAGroupIsPushedAndSelectedOnceByItsCommand) {
  set().addNodeVariant("Roof", "Closed");
  set().addAnimation("A");
  set().select(true, false, false);
  EXPECT_THAT(events, ElementsAre(setRan));
  EXPECT_THAT(
      messages.lines(),
      ElementsAre(begins, roofCloses, roofSelected,
                  "animationStart/1 animation-name:string=A instantaneous:bool=false", ends, bare));
}

TEST_F(SelectionInSession, OwnFlagAndThatOfTheGroupDecideWhetherASetIsPushed) {
  struct Row {
    const char* name;
    bool own;
    const char* group;
    bool pushed;
  };
  for (const Row& row :
       {Row{"on, no group", true, "", true}, Row{"off, no group", false, "", false},
        Row{"on, group on", true, "on", true}, Row{"on, group off", true, "off", false},
        Row{"off, group on", false, "on", false}, Row{"off, group off", false, "off", false}}) {
    SCOPED_TRACE(row.name);
    build();
    events.clear();
    set().addNodeVariant("Roof", "Closed");
    set().setSyncInCollaboration(row.own);
    if (*row.group) group(QString(row.group) == "on");
    set().select(true, false, false);
    EXPECT_EQ(events, row.pushed ? Lines{setRan} : Lines());
    EXPECT_EQ(roof(), 1);
  }
}

TEST_F(SelectionInSession, SetOfAGroupWhoseFlagIsOffSelectsItsVariantsHereAlone) {
  fill();
  group(false);
  set().select(true, false, false);
  EXPECT_THAT(events, IsEmpty());
  EXPECT_EQ(roof(), 1);
  EXPECT_EQ(paint()->getChoice(), 1u);
  EXPECT_EQ(SceneBuilder::transformChoice(doorNode()), 1u);
  EXPECT_EQ(SceneBuilder::choice(badgeNode()), 1);
}

TEST_F(SelectionInSession, VariantsArePushedAgainAfterASetThatIsNotShared) {
  set().setSyncInCollaboration(false);
  set().addNodeVariant("Roof", "Closed");
  set().select(true, false, false);
  roofVariant().select("Open");
  EXPECT_THAT(events, ElementsAre(variantRan));
}

TEST_F(SelectionInSession, BlockBeginsBehindTheFirstMessageOfTheSet) {
  set().setSyncInCollaboration(false);
  const MessageReceiver receiver("variantsSetSelected", [](kuMessage& message) {
    std::string name;
    message.get("variantSetName", name);
    if (!name.empty()) roofVariant().select("Closed");
  });
  set().select(true, false, false);
  EXPECT_THAT(events, ElementsAre(variantRan));
}

TEST_F(SelectionInSession, BlockEndsBeforeTheScriptTheAnimationsAndTheLastMessages) {
  set().setSyncInCollaboration(false);
  set().addAnimation("A");
  const MessageReceiver receiver("animationStart",
                                 [](kuMessage&) { roofVariant().select("Closed"); });
  set().select(true, false, false);
  EXPECT_THAT(events, ElementsAre(variantRan));
}

TEST_F(SelectionInSession, InnerSetThatIsNotSharedEndsTheBlockOfTheOuterOne) {
  // Blocks are not counted.
  another("Winter").setSyncInCollaboration(false);
  set().setSyncInCollaboration(false);
  set().addNodeVariant("Roof", "Closed");
  set().addLightVariant("Lamp", "!Enable");
  const MessageReceiver receiver("nodeVariantSelected",
                                 [](kuMessage&) { kuVariants::selectVariantSet("Winter", false); });
  set().select(true, false, false);
  EXPECT_THAT(events, ElementsAre(variantRan));
}

TEST_F(SelectionInSession, WhatASharedSetSelectsInTurnIsNotPushedAgain) {
  set().addNodeVariant("Roof", "Closed");
  another("Winter").addMaterialVariant("Paint", "Blue");
  const MessageReceiver receiver("nodeVariantSelected", [](kuMessage&) {
    kuVariants::selectVariantSet("Winter", false);
    kuVariants::findLightVariant("Lamp")->select("!Enable");
  });
  kuVariants::selectVariantSet("Summer", false);
  EXPECT_THAT(events, ElementsAre(setRan));
  EXPECT_EQ(paint()->getChoice(), 1u);
}

TEST_F(SelectionInSession, FlagsOfTheCallHoldHereAndInstantaneousIsNotHandedOn) {
  fill();
  set().select(false, true, true);
  EXPECT_FALSE(ClippingSettings::the().hideScene);
  EXPECT_EQ(viewpoint(), "");
  set().select(true, true, true);
  EXPECT_EQ(viewpoint(), "");
  EXPECT_EQ(messages.linesOf("animationStart").front(),
            "animationStart/1 animation-name:string=Doors instantaneous:bool=false");
  EXPECT_THAT(events, ElementsAre(setRan, setRan));
}

TEST_F(SelectionInSession, PushedSetOpensNoCacheAndSendsNothingByItself) {
  // A set that the manager does not have is pushed by its name, and found nowhere.
  kuVariantSet unlisted("Unlisted");
  for (int i = 0; i < 4; ++i)
    unlisted.addNodeVariant(QString::number(i), "s");
  unlisted.select(true, false, false);
  EXPECT_THAT(events, ElementsAre(setRan));
  EXPECT_THAT(messages.lines(), IsEmpty());
  EXPECT_EQ(frames(), 0u);
}

TEST_F(SelectionInSession, DefaultsArePushedVariantByVariant) {
  set().addNodeVariant("Roof", "Closed");
  set().addMaterialVariant("Paint", "Blue");
  set().addOverlayVariant("Badge", "Large");
  set().selectDefault();
  EXPECT_THAT(events, ElementsAre(variantRan, variantRan));
  EXPECT_THAT(messages.linesOf("variantSetSelected"),
              ElementsAre("variantSetSelected/1 variantSet:void*=kuVariantSet Summer"));
}

TEST_F(SelectionInSession, SequentialSetMovesItsCursorOnceForEachPush) {
  for (const char* name : {"A", "B", "C"})
    set().addAnimation(name);
  set().setSequentialAnimation(true);
  for (int i = 0; i < 4; ++i)
    set().select(true, false, false);
  Lines started;
  for (const std::string& line : messages.linesOf("animationStart"))
    started.push_back(line.substr(line.find('=') + 1, 1));
  EXPECT_THAT(started, ElementsAre("A", "B", "C", "A"));
}

TEST_F(SelectionInSession, SetThatAReceiverRemovesUnderWayDisturbsNothing) {
  fill();
  const MessageReceiver receiver("nodeVariantSelected",
                                 [](kuMessage&) { kuVariants::removeVariantSet("Summer"); });
  set().select(true, false, false);
  EXPECT_EQ(viewpoint(), "Rear");
  EXPECT_THAT(kuVariants::getVariantSets(), IsEmpty());
  EXPECT_THAT(events, ElementsAre(setRan));
}

TEST_F(SelectionInSession, VariantThatAReceiverRemovesUnderWayDisturbsNothing) {
  const MessageReceiver receiver("nodeVariantSelected",
                                 [](kuMessage&) { kuVariants::removeNodeVariant("Roof"); });
  roofVariant().select("Closed");
  EXPECT_EQ(roof(), 1);
  EXPECT_THAT(events, ElementsAre(variantRan));
}

TEST_F(SelectionInSession, GroupThatAReceiverRemovesUnderWayLeavesNothingBlocked) {
  group(false);
  set().addNodeVariant("Roof", "Closed");
  {
    const MessageReceiver receiver("nodeVariantSelected",
                                   [](kuMessage&) { kuVariants::removeVariantGroup("Seasons"); });
    set().select(true, false, false);
  }
  EXPECT_THAT(events, IsEmpty());
  roofVariant().select("Open");
  EXPECT_THAT(events, ElementsAre(variantRan));
}

TEST_F(SelectionInSession, ExceptionOutOfAReceiverLeavesNothingBlocked) {
  set().setSyncInCollaboration(false);
  set().addNodeVariant("Roof", "Closed");
  {
    const MessageReceiver receiver("nodeVariantSelected", [](kuMessage&) { throw 1; });
    EXPECT_THROW(set().select(true, false, false), int);
  }
  roofVariant().select("Open");
  EXPECT_THAT(events, ElementsAre(variantRan));
}
