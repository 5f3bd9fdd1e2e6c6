#include "session/kuSessionVariantCommand.h"

#include "CommandBytes.h"
#include "host/session/kuSessionCommandFactory.h"
#include "manager/kuVariants.h"
#include "scene/kuNodeVariant.h"
#include "standalone/session/SessionClient.h"
#include "support/MessageReceiver.h"
#include "support/SelectionScene.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

using Lines = std::vector<std::string>;

const char* const opens =
    "variantsNodesChanged/1 variantName:string=Roof visible:strings=[Open] "
    "invisible:strings=[Closed] parent:string=Roof path:string=Roof|";
const char* const closes =
    "variantsNodesChanged/1 variantName:string=Roof visible:strings=[Closed] "
    "invisible:strings=[Open] parent:string=Roof path:string=Roof|";
const char* const roofSelected = "nodeVariantSelected/1 variant:void*=kuVariant Roof";

/** What a sender pushes, and a partner of it: the scene and the manager are the partner's. */
class SessionVariant : public SelectionScene {
 protected:
  static kuVariant& roofVariant() { return *kuVariants::findNodeVariant("Roof"); }

  /** The bytes of a command that is made while the roof's variant stands in a state. */
  QByteArray sentFrom(const char* state, const char* newState) {
    roofVariant().select(state);
    const QByteArray bytes =
        CommandBytes::written(kuSessionVariantCommand(&roofVariant(), newState));
    messages.clear();
    return bytes;
  }

  /** A partner receives it. */
  void receive(const QByteArray& bytes) {
    const auto command = kuSessionCommandFactory::the().create("SelectVariant");
    ASSERT_TRUE(CommandBytes::readWhole(*command, bytes));
    kuStandalone::SessionClient client;
    command->execute(&client);
  }

  void partnerStandsIn(const char* state) {
    roofVariant().select(state);
    messages.clear();
  }
};

}  // namespace

TEST_F(SessionVariant, PartnerInTheSendersOldStateRunsOneSelect) {
  const QByteArray sent = sentFrom("Open", "Closed");
  receive(sent);
  EXPECT_THAT(messages.lines(), ElementsAre(closes, roofSelected));
  EXPECT_EQ(roof(), 1);
}

TEST_F(SessionVariant, PartnerInAnotherStateRunsTwoSelects) {
  const QByteArray sent = sentFrom("Open", "Closed");
  partnerStandsIn("Closed");
  receive(sent);
  EXPECT_THAT(messages.lines(), ElementsAre(opens, roofSelected, closes, roofSelected));
  EXPECT_EQ(roof(), 1);
}

TEST_F(SessionVariant, SenderRunsOneSelectOfItsOwnCommand) {
  kuSessionVariantCommand command(&roofVariant(), "Closed");
  kuStandalone::SessionClient client;
  command.execute(&client);
  EXPECT_THAT(messages.lines(), ElementsAre(closes, roofSelected));
}

TEST_F(SessionVariant, StepLeadsEveryPartnerToTheSendersState) {
  const auto trim = scene.switchNode("Trim", 0, {"A", "B", "C"});
  kuVariant& variant = *kuVariants::createNodeVariant(trim, false);
  struct Row {
    const char* from;
    const char* step;
    const char* to;
  };
  for (const Row& row :
       {Row{"B", "!Next", "C"}, Row{"C", "!Next", "C"}, Row{"B", "!Next (Loop)", "C"},
        Row{"C", "!Next (Loop)", "A"}, Row{"B", "!Previous", "A"}, Row{"A", "!Previous", "A"},
        Row{"B", "!Previous (Loop)", "A"}, Row{"A", "!Previous (Loop)", "C"}}) {
    for (const char* partner : {"A", "B", "C", "!All", "!None"}) {
      SCOPED_TRACE(std::string(row.from) + " " + row.step + ", partner in " + partner);
      variant.select(row.from);
      const QByteArray sent = CommandBytes::written(kuSessionVariantCommand(&variant, row.step));
      variant.select(partner);
      receive(sent);
      EXPECT_EQ(variant.getCurrent(), row.to);
    }
  }
}

TEST_F(SessionVariant, EmptyOldStateOfTheSenderIsSelectedFirstWhereThePartnerStandsElsewhere) {
  // In the sender's scene nothing bears the variant's name.
  kuVariant& hood = *kuVariants::createNodeVariant("Hood", false);
  const QByteArray sent = CommandBytes::written(kuSessionVariantCommand(&hood, "Up"));
  kuVariants::removeNodeVariant("Hood");
  kuVariants::createNodeVariant(scene.switchNode("Hood", 0, {"Down", "Up"}), false);
  messages.clear();
  receive(sent);
  const char* const selected = "nodeVariantSelected/1 variant:void*=kuVariant Hood";
  // No child is called so: the selection of the empty state changes nothing.
  EXPECT_THAT(messages.lines(),
              ElementsAre(selected,
                          "variantsNodesChanged/1 variantName:string=Hood visible:strings=[Up] "
                          "invisible:strings=[Down] parent:string=Hood path:string=Hood|",
                          selected));
}

TEST_F(SessionVariant, EmptyOldStateIsNotSelectedWhereThePartnerHasNoStateEither) {
  kuVariant& hood = *kuVariants::createNodeVariant("Hood", false);
  const QByteArray sent = CommandBytes::written(kuSessionVariantCommand(&hood, "Up"));
  messages.clear();
  receive(sent);
  EXPECT_THAT(messages.lines(), ElementsAre("nodeVariantSelected/1 variant:void*=kuVariant Hood"));
}

TEST_F(SessionVariant, VariantOfUnknownKindHasNoEffectAtThePartner) {
  kuVariant plain;
  plain.setName("Roof");
  receive(CommandBytes::written(kuSessionVariantCommand(&plain, "Closed")));
  EXPECT_THAT(messages.lines(), IsEmpty());
  EXPECT_EQ(roof(), 0);
}

TEST_F(SessionVariant, UnknownNamesAndKindsHaveNoEffect) {
  for (const char* bytes : {"00000008 0048006f006f0064 00000000 00000002 0041 00000002",
                            "00000008 0052006f006f0066 00000000 00000002 0041 00000003",
                            "00000008 0052006f006f0066 00000000 00000002 0041 00000005",
                            "00000008 0052006f006f0066 00000000 00000002 0041 80000000",
                            "00000008 0072006f006f0066 00000000 00000002 0041 00000002",
                            "00000000 00000000 00000002 0041 00000002"}) {
    SCOPED_TRACE(bytes);
    receive(QByteArray::fromHex(bytes));
    EXPECT_THAT(messages.lines(), IsEmpty());
  }
}

TEST_F(SessionVariant, CommandWithoutVariantHasNoEffect) {
  kuSessionVariantCommand command(nullptr, "Closed");
  kuStandalone::SessionClient client;
  command.execute(&client);
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(SessionVariant, VariantThatAReceiverRemovesInTheFirstSelectIsNotSelectedAgain) {
  const QByteArray sent = sentFrom("Open", "Closed");
  partnerStandsIn("Closed");
  const MessageReceiver receiver("nodeVariantSelected",
                                 [](kuMessage&) { kuVariants::removeNodeVariant("Roof"); });
  receive(sent);
  EXPECT_EQ(messages.linesOf("variantsNodesChanged"), Lines{opens});
  EXPECT_EQ(roof(), 0);
}

TEST_F(SessionVariant, VariantThatAReceiverRenamesInTheFirstSelectGoesOn) {
  const QByteArray sent = sentFrom("Open", "Closed");
  partnerStandsIn("Closed");
  const MessageReceiver receiver("nodeVariantSelected", [](kuMessage&) {
    if (kuVariant* variant = kuVariants::findNodeVariant("Roof")) variant->setName("Top");
  });
  receive(sent);
  EXPECT_EQ(roof(), 1);
}
