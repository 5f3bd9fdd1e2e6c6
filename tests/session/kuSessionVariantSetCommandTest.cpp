#include "session/kuSessionVariantSetCommand.h"

#include "CommandBytes.h"
#include "host/session/kuSessionCommandFactory.h"
#include "manager/kuVariants.h"
#include "scene/kuNodeVariant.h"
#include "standalone/script/ClippingSettings.h"
#include "standalone/session/SessionClient.h"
#include "support/MessageReceiver.h"
#include "support/SelectionScene.h"
#include "support/kuVariantsTestAccess.h"

using namespace kuStandalone;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

using Lines = std::vector<std::string>;

const char* const begins = "variantsSetSelected/1 variantSetName:string=Summer";
const char* const ends = "variantsSetSelected/1 variantSetName:string=";
const char* const bare = "variantSetSelected/1 bare";

/** What a sender pushes, and a partner of it: the scene and the manager are the partner's. */
class SessionSet : public SelectionScene {
 protected:
  QByteArray sent(bool execute = true, bool skipViewpoint = false) {
    return CommandBytes::written(kuSessionVariantSetCommand(&set(), execute, skipViewpoint));
  }

  /** A partner receives it. */
  void receive(const QByteArray& bytes, bool joined = true) {
    const auto command = kuSessionCommandFactory::the().create("SelectVariantSet");
    ASSERT_TRUE(CommandBytes::readWhole(*command, bytes));
    messages.clear();
    SessionClient client(joined);
    command->execute(&client);
  }

  static void move(const char* variant, const char* state) {
    kuVariants::findNodeVariant(variant)->select(state);
  }

  Lines started() const { return messages.linesOf("animationStart"); }

  static Lines start(const char* name, const char* instantaneous) {
    return {std::string("animationStart/1 animation-name:string=") + name +
            " instantaneous:bool=" + instantaneous};
  }
};

}  // namespace

TEST_F(SessionSet, PartnerInTheSendersOldStateSelectsTheSetAlone) {
  set().addNodeVariant("Roof", "Closed");
  receive(sent());
  EXPECT_THAT(messages.lines(),
              ElementsAre(begins,
                          "variantsNodesChanged/1 variantName:string=Roof visible:strings=[Closed] "
                          "invisible:strings=[Open] parent:string=Roof path:string=Roof|",
                          "nodeVariantSelected/1 variant:void*=kuVariant Roof", ends, bare));
}

TEST_F(SessionSet, PartnerInAnotherStateIsBroughtToTheSendersFirst) {
  set().addNodeVariant("Roof", "Closed");
  const QByteArray bytes = sent();
  move("Roof", "Closed");
  receive(bytes);
  const char* const selected = "nodeVariantSelected/1 variant:void*=kuVariant Roof";
  EXPECT_THAT(messages.lines(),
              ElementsAre("variantsNodesChanged/1 variantName:string=Roof visible:strings=[Open] "
                          "invisible:strings=[Closed] parent:string=Roof path:string=Roof|",
                          selected, begins,
                          "variantsNodesChanged/1 variantName:string=Roof visible:strings=[Closed] "
                          "invisible:strings=[Open] parent:string=Roof path:string=Roof|",
                          selected, ends, bare));
}

TEST_F(SessionSet, StepInASetLeadsThePartnerToTheSendersState) {
  kuVariant& trim =
      *kuVariants::createNodeVariant(scene.switchNode("Trim", 1, {"A", "B", "C"}), false);
  set().addNodeVariant("Trim", "!Next (Loop)");
  const QByteArray bytes = sent();
  move("Trim", "C");
  receive(bytes);
  EXPECT_EQ(trim.getCurrent(), "C");
}

TEST_F(SessionSet, SendersCursorDecidesWhichAnimationComesNext) {
  for (const char* name : {"A", "B", "C"})
    set().addAnimation(name);
  set().setSequentialAnimation(true);
  kuVariantsTestAccess::animationCursor(set()) = 2;
  const QByteArray bytes = sent();
  kuVariantsTestAccess::animationCursor(set()) = 0;
  receive(bytes);
  EXPECT_EQ(started(), start("C", "false"));
  EXPECT_EQ(kuVariantsTestAccess::animationCursor(set()), 3);
}

TEST_F(SessionSet, CursorFromTheWireThatIsNoPlaceBeginsAnew) {
  set().addAnimation("A");
  set().setSequentialAnimation(true);
  for (const int cursor : {-1, 1, 2000000000}) {
    SCOPED_TRACE(cursor);
    kuVariantsTestAccess::animationCursor(set()) = cursor;
    const QByteArray bytes = sent();
    receive(bytes);
    EXPECT_EQ(started(), start("A", "false"));
  }
}

TEST_F(SessionSet, AnimationsAreInstantaneousExactlyWhileTheClientIsStillJoining) {
  set().addAnimation("A");
  const QByteArray bytes = sent();
  receive(bytes, false);
  EXPECT_EQ(started(), start("A", "true"));
  receive(bytes, true);
  EXPECT_EQ(started(), start("A", "false"));
}

TEST_F(SessionSet, WhetherTheClientHasJoinedIsAskedBeforeTheStatesAreSet) {
  set().addNodeVariant("Roof", "Closed");
  set().addAnimation("A");
  const QByteArray bytes = sent();
  move("Roof", "Closed");
  const auto command = kuSessionCommandFactory::the().create("SelectVariantSet");
  ASSERT_TRUE(CommandBytes::readWhole(*command, bytes));
  SessionClient client(false);
  const MessageReceiver receiver("nodeVariantSelected",
                                 [&](kuMessage&) { client.isComplete = true; });
  command->execute(&client);
  EXPECT_EQ(started(), start("A", "true"));
}

TEST_F(SessionSet, ReadCommandExecutesAndMovesTheCameraWhateverTheSendersFlagsWere) {
  for (const bool execute : {false, true}) {
    for (const bool skipViewpoint : {false, true}) {
      SCOPED_TRACE(std::to_string(execute) + std::to_string(skipViewpoint));
      build();
      fill();
      receive(sent(execute, skipViewpoint));
      EXPECT_TRUE(ClippingSettings::the().hideScene);
      EXPECT_EQ(viewpoint(), "Rear");
      EXPECT_EQ(started().size(), 2u);
    }
  }
}

TEST_F(SessionSet, SendersOwnCommandKeepsTheSendersFlags) {
  struct Row {
    bool execute, skipViewpoint;
    const char* viewpoint;
  };
  for (const Row& row : {Row{false, false, "Front"}, Row{false, true, ""}, Row{true, false, "Rear"},
                         Row{true, true, ""}}) {
    SCOPED_TRACE(std::to_string(row.execute) + std::to_string(row.skipViewpoint));
    build();
    fill();
    SessionClient client(true);
    kuSessionVariantSetCommand(&set(), row.execute, row.skipViewpoint).execute(&client);
    EXPECT_EQ(ClippingSettings::the().hideScene, row.execute);
    EXPECT_EQ(viewpoint(), row.viewpoint);
    EXPECT_EQ(roof(), 1);
  }
}

TEST_F(SessionSet, UnknownSetHasNoEffectAndItsTablesNeither) {
  set().addNodeVariant("Roof", "Open");
  const QByteArray bytes = sent();
  set().setName("Winter");
  move("Roof", "Closed");
  receive(bytes);
  EXPECT_THAT(messages.lines(), IsEmpty());
  EXPECT_EQ(roof(), 1);
}

TEST_F(SessionSet, CommandWithoutSetHasNoEffect) {
  SessionClient client(true);
  kuSessionVariantSetCommand(nullptr, true, false).execute(&client);
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(SessionSet, CommandWithoutTablesSetsTheCursorAndSelects) {
  set().addAnimation("A");
  set().addAnimation("B");
  set().setSequentialAnimation(true);
  receive(QByteArray::fromHex("0000000c 00530075006d006d00650072 00000001 00000000"));
  EXPECT_THAT(messages.lines(), ElementsAre(begins,
                                            "animationStart/1 animation-name:string=B "
                                            "instantaneous:bool=false",
                                            ends, bare));
}

TEST_F(SessionSet, SetThatAReceiverRemovesWhileTheStatesAreSetIsNotSelected) {
  set().addNodeVariant("Roof", "Closed");
  set().addLightVariant("Lamp", "!Enable");
  const QByteArray bytes = sent();
  move("Roof", "Closed");
  const MessageReceiver receiver("nodeVariantSelected",
                                 [](kuMessage&) { kuVariants::removeVariantSet("Summer"); });
  receive(bytes);
  EXPECT_THAT(messages.linesOf("variantsSetSelected"), IsEmpty());
  EXPECT_EQ(roof(), 0);
}

TEST_F(SessionSet, SetThatAReceiverRenamesWhileTheStatesAreSetIsSelected) {
  set().addNodeVariant("Roof", "Closed");
  const QByteArray bytes = sent();
  move("Roof", "Closed");
  const MessageReceiver receiver("nodeVariantSelected", [](kuMessage&) {
    if (kuVariantSet* renamed = kuVariants::findVariantSet("Summer")) renamed->setName("Winter");
  });
  receive(bytes);
  EXPECT_EQ(messages.linesOf("variantsSetSelected"),
            (Lines{"variantsSetSelected/1 variantSetName:string=Winter", ends}));
}
