// The same step on two machines.

#include "HeldConnections.h"
#include "LiveTest.h"

namespace {

/** Paint, as each change of a command left it; "-" where it changed nothing. */
QStringList paintsOf(const LivePartner& partner) {
  QStringList paints;
  for (const ToldCommand& command : partner.commands()) {
    QString paint = "-";
    for (const QJsonValue& change : command.changed) {
      if (change.toObject()["name"] == "Paint") paint = change.toObject()["after"].toString();
    }
    paints += paint;
  }
  return paints;
}

class SameMoment : public LiveTest {
 protected:
  QString url() const override { return connections.url() + "/review"; }

  struct Typed {
    LivePartner* by;
    QString line;
  };

  /** Two lines are typed and sent before either partner hears of the other. */
  void typeAtOnce(const Typed& one, const Typed& other) {
    connections.hold();
    one.by->type(one.line);
    other.by->type(other.line);
    EXPECT_TRUE(waitUntil([this] { return connections.holding(".command.") == 2; }, 1500))
        << "they did not send it in the time in which they wait for the broker";
    connections.release();
    for (LivePartner* partner : {one.by, other.by}) {
      partner->waitForCommands(2);
      EXPECT_TRUE(partner->events("broker-lost").empty());
    }
  }

  HeldConnections connections{*broker};
};

}  // namespace

TEST_F(SameMoment, NextOfAVariantOnTwoMachinesLeadsOneStepOn) {
  LivePartner &ada = join("Ada"), &ben = join("Ben");
  typeAtOnce({&ada, "variant material:Paint=!Next"}, {&ben, "variant material:Paint=!Next"});
  expectSameOrder({&ada, &ben}, 2);
  EXPECT_EQ(paintsOf(ada), (QStringList{"Blue", "-"}));
  EXPECT_EQ(paintsOf(ben), (QStringList{"Blue", "-"}));
  EXPECT_EQ(stateOf(ada.state(), "material", "Paint"), "Blue");
  expectSameStates({&ada, &ben});
}

TEST_F(SameMoment, SetOfStepsOnTwoMachinesLeadsOneStepOn) {
  document = write("shared.xml",
                   sample("car.variants.xml")
                       .replace("synccollaboration=\"false\"", "synccollaboration=\"true\""));
  LivePartner &ada = join("Ada"), &ben = join("Ben");
  typeAtOnce({&ada, "select Next Colour"}, {&ben, "select Next Colour"});
  expectSameOrder({&ada, &ben}, 2);
  EXPECT_EQ(paintsOf(ada), (QStringList{"Blue", "-"}));
  EXPECT_EQ(stateOf(ada.state(), "material", "Paint"), "Blue");
  expectSameStates({&ada, &ben});
}

TEST_F(SameMoment, DifferentVariantsOnTwoMachinesBothStand) {
  LivePartner &ada = join("Ada"), &ben = join("Ben");
  typeAtOnce({&ada, "variant node:Roof=Open Top"}, {&ben, "variant material:Paint=!Next"});
  expectSameOrder({&ada, &ben}, 2);
  EXPECT_EQ(stateOf(ada.state(), "node", "Roof"), "Open Top");
  EXPECT_EQ(stateOf(ada.state(), "material", "Paint"), "Blue");
  expectSameStates({&ada, &ben});
}

TEST_F(SameMoment, NextOnTwoMachinesOneAfterTheOtherLeadsTwoStepsOn) {
  LivePartner &ada = join("Ada"), &ben = join("Ben");
  ada.type(QString("variant material:Paint=!Next"));
  ben.waitForCommands(1);
  ben.type(QString("variant material:Paint=!Next"));
  ada.waitForCommands(2);
  ben.waitForCommands(2);
  EXPECT_EQ(paintsOf(ada), (QStringList{"Blue", "Silver"}));
  EXPECT_EQ(paintsOf(ben), (QStringList{"Blue", "Silver"}));
  expectSameStates({&ada, &ben});
}

TEST_F(SameMoment, NextOnTwoMachinesThatTheBrokerLeavesAloneLeadsOneStepOn) {
  LivePartner &ada = join("Ada"), &ben = join("Ben");
  broker->pause();
  ada.type(QString("variant material:Paint=!Next"));
  ben.type(QString("variant material:Paint=!Next"));
  ada.waitForCommands(1);
  ben.waitForCommands(1);
  EXPECT_EQ(orderOf(ada.commands()) + orderOf(ben.commands()), QStringList());
  broker->resume();
  ada.waitFor("broker-back");
  ben.waitFor("broker-back");
  settle({&ada, &ben});
  EXPECT_EQ(stateOf(ada.state(), "material", "Paint"), "Blue");
  expectSameStates({&ada, &ben});
}

TEST_F(SameMoment, OppositeSelectionsEndWithTheLaterOneEverywhere) {
  LivePartner &ada = join("Ada"), &ben = join("Ben"), &cleo = join("Cleo");
  constexpr int rounds = 10;
  for (int round = 1; round <= rounds; ++round) {
    ada.type(QString("variant node:Roof=Open Top"));
    ben.type(QString("variant node:Roof=Softtop"));
    for (LivePartner* partner : {&ada, &ben, &cleo})
      partner->waitForCommands(2 * round);
    const QString last = cleo.commands().back().by == "Ada" ? "Open Top" : "Softtop";
    EXPECT_EQ(stateOf(cleo.state(), "node", "Roof"), last) << "in round " << round;
    expectSameStates({&ada, &ben, &cleo});
  }
  expectSameOrder({&ada, &ben, &cleo}, 2 * rounds);
}
