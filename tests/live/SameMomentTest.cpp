// The same step on two machines.

#include <QElapsedTimer>
#include <QFile>

#include "LiveTest.h"

namespace {

/** A selection is longer than that on its way to the broker; a sign of life is not, and there is at
 * most one in the time. */
constexpr int bytesOfASelection = 300;
constexpr int timeToSend = 900;

/** How many connections hold at least a selection that the broker has not read yet. */
int waitingSelections(const NatsBroker& broker) {
  const int port = broker.address().section(':', 1).toInt();
  const QString local = QString("0100007F:%1").arg(port, 4, 16, QChar('0')).toUpper();
  QFile table("/proc/net/tcp");
  EXPECT_TRUE(table.open(QIODevice::ReadOnly));
  int waiting = 0;
  for (const QString& line : QString::fromLatin1(table.readAll()).split('\n')) {
    const QStringList columns = line.simplified().split(' ');
    if (columns.size() < 5 || columns[1] != local || columns[3] != "01") continue;
    const int bytes = columns[4].section(':', 1).toInt(nullptr, 16);
    waiting += bytes >= bytesOfASelection ? 1 : 0;
  }
  return waiting;
}

/** Paint, as each change of a command left it; "-" where it changed nothing. */
QStringList paintsOf(const std::vector<ToldCommand>& commands, int from) {
  QStringList paints;
  for (auto command = commands.begin() + from; command != commands.end(); ++command) {
    QString paint = "-";
    for (const QJsonValue& change : command->changed) {
      if (change.toObject()["name"] == "Paint") paint = change.toObject()["after"].toString();
    }
    paints += paint;
  }
  return paints;
}

class SameMoment : public LiveTest {
 protected:
  /** Both type the line, and the broker takes neither before both have sent it. False if the time
   * in which it may stand still was over before. */
  bool typeAtOnce(LivePartner& ada, LivePartner& ben, const QString& line) {
    broker->pause();
    ada.type(line);
    ben.type(line);
    const bool areSent = waitUntil([this] { return waitingSelections(*broker) == 2; }, timeToSend);
    broker->resume();
    return areSent;
  }

  /** Repeats that from the same state until it happened at the same moment. Answers how many
   * selections were typed. */
  int stepAtOnce(LivePartner& ada, LivePartner& ben, const QString& line);
};

int SameMoment::stepAtOnce(LivePartner& ada, LivePartner& ben, const QString& line) {
  int typed = 0;
  for (int attempt = 0; attempt < 10; ++attempt) {
    ada.type(QString("variant material:Paint=Red"));
    typed += 3;
    ben.waitForCommands(typed - 2);
    ada.waitForCommands(typed - 2);
    const bool isAtOnce = typeAtOnce(ada, ben, line);
    ada.waitForCommands(typed);
    ben.waitForCommands(typed);
    const bool isUndisturbed =
        ada.events("broker-lost").empty() && ben.events("broker-lost").empty();
    if (isAtOnce || !isUndisturbed) return isUndisturbed ? typed : 0;
  }
  return 0;
}

}  // namespace

TEST_F(SameMoment, NextOfAVariantOnTwoMachinesLeadsOneStepOn) {
  LivePartner &ada = join("Ada"), &ben = join("Ben");
  const int typed = stepAtOnce(ada, ben, "variant material:Paint=!Next");
  ASSERT_GT(typed, 0) << "the two were never at the same moment";
  expectSameOrder({&ada, &ben}, typed);
  EXPECT_EQ(paintsOf(ada.commands(), typed - 2), (QStringList{"Blue", "-"}));
  EXPECT_EQ(paintsOf(ben.commands(), typed - 2), (QStringList{"Blue", "-"}));
  EXPECT_EQ(stateOf(ada.state(), "material", "Paint"), "Blue");
  expectSameStates({&ada, &ben});
}

TEST_F(SameMoment, SetOfStepsOnTwoMachinesLeadsOneStepOn) {
  document = write("shared.xml",
                   sample("car.variants.xml")
                       .replace("synccollaboration=\"false\"", "synccollaboration=\"true\""));
  LivePartner &ada = join("Ada"), &ben = join("Ben");
  const int typed = stepAtOnce(ada, ben, "select Next Colour");
  ASSERT_GT(typed, 0) << "the two were never at the same moment";
  expectSameOrder({&ada, &ben}, typed);
  EXPECT_EQ(paintsOf(ada.commands(), typed - 2), (QStringList{"Blue", "-"}));
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
  EXPECT_EQ(paintsOf(ada.commands(), 0), (QStringList{"Blue", "Silver"}));
  EXPECT_EQ(paintsOf(ben.commands(), 0), (QStringList{"Blue", "Silver"}));
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
