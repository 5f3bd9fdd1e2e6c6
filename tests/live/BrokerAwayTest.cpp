// The broker ends without a word, and comes back.

#include <QMap>
#include <QSet>

#include "LiveTest.h"

namespace {

/** How often each command ran, by its id. */
QMap<QString, int> runs(const std::vector<ToldCommand>& commands) {
  QMap<QString, int> counts;
  for (const ToldCommand& command : commands)
    ++counts[command.id];
  return counts;
}

/** The ids of what a partner selected. */
QSet<QString> ownIds(const LivePartner& partner) {
  QSet<QString> ids;
  for (const ToldCommand& command : partner.commands()) {
    if (command.isOwn) ids += command.id;
  }
  return ids;
}

/** What the broker had taken when it was selected: it was told with its place the first time. */
QSet<QString> acknowledgedIds(const LivePartner& partner) {
  QSet<QString> seen, acknowledged;
  for (const ToldCommand& command : partner.commands()) {
    if (!command.isOwn || seen.contains(command.id)) continue;
    seen += command.id;
    if (command.sequence > 0) acknowledged += command.id;
  }
  return acknowledged;
}

class BrokerAway : public LiveTest {
 protected:
  static constexpr int part = 20;

  /** Each selects a part of a storm; none waits. */
  void type(int which) {
    for (int person = 0; person < int(all.size()); ++person)
      all[std::size_t(person)]->type(storm(person, 4 * part).mid(which * part, part));
  }
  void waitFor(const QString& event, int count = 1) {
    for (LivePartner* partner : all)
      partner->waitFor(event, count);
  }
  /** Nothing was lost and nothing ran twice, but what somebody did alone and had to do again. */
  void expectNothingLostAndNothingTwice();
  /** All have those commands of the order that they were told of in one order. */
  void expectOneOrder();

  Partners all{&join("Ada"), &join("Ben"), &join("Cleo")};
};

void BrokerAway::expectNothingLostAndNothingTwice() {
  for (const LivePartner* sender : all) {
    const QSet<QString> own = ownIds(*sender), acknowledged = acknowledgedIds(*sender);
    for (const LivePartner* partner : all) {
      SCOPED_TRACE(sender->name().toStdString() + " to " + partner->name().toStdString());
      const QMap<QString, int> counts = runs(partner->commands());
      for (const QString& id : own) {
        const bool mayRunAgain = partner == sender && !acknowledged.contains(id);
        EXPECT_GE(counts[id], 1) << id.toStdString() << " was lost";
        EXPECT_LE(counts[id], mayRunAgain ? 2 : 1) << id.toStdString() << " ran too often";
      }
    }
  }
}

void BrokerAway::expectOneOrder() {
  QMap<qint64, QString> order;
  for (const LivePartner* partner : all) {
    qint64 last = 0;
    for (const ToldCommand& command : partner->commands()) {
      if (command.sequence == 0) continue;
      EXPECT_GT(command.sequence, last) << "at " << partner->name().toStdString();
      last = command.sequence;
      if (!order.contains(last)) order[last] = command.id;
      EXPECT_EQ(command.id, order[last]) << "at " << partner->name().toStdString();
    }
  }
}

}  // namespace

TEST_F(BrokerAway, InTheMidstOfAStormLosesNothingAndRunsNothingTwiceAndAllEndAlike) {
  type(0);
  all[0]->waitForCommands(part);
  broker->kill();
  type(1);
  waitFor("broker-lost");
  type(2);
  // All of that has happened when the answer comes.
  for (LivePartner* partner : all)
    partner->state();
  broker->restart();
  type(3);
  waitFor("broker-back");
  settle(all);
  for (const LivePartner* partner : all) {
    EXPECT_EQ(ownIds(*partner).size(), 4 * part + 1) << "of " << partner->name().toStdString();
    const int acknowledged = acknowledgedIds(*partner).size();
    EXPECT_GT(acknowledged, 1) << "of " << partner->name().toStdString();
    EXPECT_LE(acknowledged, 3 * part + 1) << "of " << partner->name().toStdString();
  }
  expectNothingLostAndNothingTwice();
  expectOneOrder();
  expectSameStates(all);
}

TEST_F(BrokerAway, TwiceInAStormLosesNothingAndAllEndAlike) {
  for (int round = 0; round < 2; ++round) {
    type(2 * round);
    broker->kill();
    waitFor("broker-lost", round + 1);
    type(2 * round + 1);
    broker->restart();
    waitFor("broker-back", round + 1);
  }
  settle(all);
  expectNothingLostAndNothingTwice();
  expectOneOrder();
  expectSameStates(all);
}

TEST_F(BrokerAway, WhatOneDoesAloneAndAnotherDoesAloneComesIntoOneOrder) {
  broker->kill();
  waitFor("broker-lost");
  all[0]->type(QString("variant material:Paint=Silver"));
  all[1]->type(QString("variant material:Paint=Blue"));
  all[2]->type(QString("select Winter Trip"));
  for (LivePartner* partner : all)
    partner->waitForCommands(1);
  broker->restart();
  waitFor("broker-back");
  settle(all);
  EXPECT_EQ(stateOf(all[2]->state(), "node", "Rack"), "Rails");
  EXPECT_EQ(stateOf(all[0]->state(), "overlay", "Season"), "Winter");
  expectNothingLostAndNothingTwice();
  expectOneOrder();
  expectSameStates(all);
}

TEST_F(BrokerAway, NewcomerBehindTheLossOfTheBrokerEndsAlike) {
  type(0);
  waitFor("selected", part);
  broker->kill();
  waitFor("broker-lost");
  type(1);
  broker->restart();
  waitFor("broker-back");
  settle(all);
  all.push_back(&join("Late"));
  expectSameStates(all);
}
