// Everybody selects at once.

#include "LiveTest.h"

namespace {

/** How often somebody else's command follows in the order. */
int changesOfSender(const std::vector<ToldCommand>& commands) {
  int changes = 0;
  for (std::size_t i = 1; i < commands.size(); ++i)
    changes += commands[i].by != commands[i - 1].by ? 1 : 0;
  return changes;
}

}  // namespace

TEST_F(LiveTest, ThreeWhoSelectAtOnceRunTheSameCommandsInTheSameOrderAndEndAlike) {
  LivePartner &ada = join("Ada"), &ben = join("Ben"), &cleo = join("Cleo");
  constexpr int each = 60;
  ada.type(storm(0, each));
  ben.type(storm(1, each));
  cleo.type(storm(2, each));
  const Partners all{&ada, &ben, &cleo};
  settle(all);
  expectSameOrder(all, 3 * each + 3);
  // One after the other would be two.
  EXPECT_GT(changesOfSender(ada.commands()), 2) << "they did not select at once";
  expectSameStates(all);
}

TEST_F(LiveTest, EachWhoSelectsSeesTheOwnSelectionsInTheOrderInWhichTheyWereTyped) {
  LivePartner &ada = join("Ada"), &ben = join("Ben");
  const QStringList sets{"Sport",       "Family", "Base Model", "Winter Trip",
                         "Night Drive", "Jack",   "Sport",      "Summer Trip"};
  for (const QString& set : sets) {
    ada.type("select " + set);
    ben.type(QString("variant material:Paint=!Next (Loop)"));
  }
  const Partners both{&ada, &ben};
  settle(both);
  for (const LivePartner* partner : both) {
    QStringList seen;
    for (const ToldCommand& command : partner->commands()) {
      if (command.by == "Ada") seen += command.sets;
    }
    EXPECT_EQ(seen, sets) << "of " << partner->name().toStdString();
  }
  expectSameOrder(both, 2 * int(sets.size()) + 2);
  expectSameStates(both);
}
