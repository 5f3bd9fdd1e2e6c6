// People come late, and come back.

#include <QFile>
#include <QJsonDocument>
#include <algorithm>

#include "LiveTest.h"

namespace {

QStringList setsOf(const QJsonObject& event) {
  QStringList sets;
  for (const QJsonValue& set : event["sets"].toArray())
    sets += set.toString();
  return sets;
}

/** The messages of a trace with their attributes, as far as they tell of these names. */
QStringList traced(const QString& file, const QStringList& names) {
  QFile trace(file);
  EXPECT_TRUE(trace.open(QIODevice::ReadOnly));
  QStringList lines;
  for (const QByteArray& line : trace.readAll().split('\n')) {
    const QJsonObject message = QJsonDocument::fromJson(line).object();
    const QString name = message["message"].toString();
    if (!names.contains(name)) continue;
    const QJsonObject attributes = message["attributes"].toObject();
    lines += name + ' ' + QJsonDocument(attributes).toJson(QJsonDocument::Compact);
  }
  return lines;
}

}  // namespace

TEST_F(LiveTest, LateJoinerRunsTheLastSelectionOfEachTargetAloneAndEndsAlike) {
  LivePartner& ada = join("Ada");
  ada.type(QStringList{"select Sport", "select Summer Trip", "variant material:Paint=Silver",
                       "select Sport", "variant material:Paint=!Next (Loop)",
                       "variant material:Paint=!Next (Loop)"});
  ada.waitForCommands(6);
  const QString trace = write("trace", "");
  LivePartner& late = join("Late", {"--trace", trace});
  EXPECT_EQ(setsOf(late.events("joined").front()), (QStringList{"Summer Trip", "Sport"}));
  expectSameStates({&ada, &late});
  late.type(QString("quit"));
  EXPECT_EQ(late.waitForEnd(), 0);
  // Each brings first what its sender saw: the second "Sport" that it was selected already, but
  // for the paint.
  EXPECT_EQ(traced(trace, {"variantsSetSelected", "materialVariantSelected"}),
            (QStringList{R"(variantsSetSelected {"variantSetName":"Summer Trip"})",
                         R"(variantsSetSelected {"variantSetName":""})",
                         R"(materialVariantSelected {"variant":"Fabric Switch"})",
                         R"(materialVariantSelected {"variant":"Paint"})",
                         R"(variantsSetSelected {"variantSetName":"Sport"})",
                         R"(materialVariantSelected {"variant":"Paint"})",
                         R"(materialVariantSelected {"variant":"Fabric Switch"})",
                         R"(variantsSetSelected {"variantSetName":""})",
                         R"(materialVariantSelected {"variant":"Paint"})",
                         R"(materialVariantSelected {"variant":"Paint"})"}));
  EXPECT_EQ(stateOf(ada.state(), "material", "Paint"), "Red");
}

TEST_F(LiveTest, AnimationsJumpToTheirEndsUntilALateJoinerHasCaughtUp) {
  LivePartner& ada = join("Ada");
  ada.type(QString("select Summer Trip"));
  ada.waitForCommands(1);
  const QString trace = write("trace", "");
  LivePartner& late = join("Late", {"--trace", trace});
  ada.type(QString("select Summer Trip"));
  late.waitForCommands(1);
  expectSameStates({&ada, &late});
  late.type(QString("quit"));
  EXPECT_EQ(late.waitForEnd(), 0);
  EXPECT_EQ(traced(trace, {"animationStart"}),
            (QStringList{R"(animationStart {"animation-name":"Drive","instantaneous":true})",
                         R"(animationStart {"animation-name":"Drive","instantaneous":false})"}));
}

TEST_F(LiveTest, WhoJoinsInTheMidstOfAStormRunsTheRestInTheOrderOfAllAndEndsAlike) {
  LivePartner &ada = join("Ada"), &ben = join("Ben");
  constexpr int each = 50;
  const QStringList adas = storm(0, 3 * each), bens = storm(1, 3 * each);
  ada.type(adas.mid(0, each));
  ben.type(bens.mid(0, each));
  LivePartner& late = start("Late");
  ada.type(adas.mid(each, each));
  ben.type(bens.mid(each, each));
  late.waitFor("joined");
  ada.type(adas.mid(2 * each));
  ben.type(bens.mid(2 * each));
  settle({&ada, &ben});
  expectSameOrder({&ada, &ben}, 6 * each + 2);
  const QStringList order = orderOf(ada.commands());
  ASSERT_TRUE(waitUntil([&] { return orderOf(late.commands()).endsWith(order.back()); }));
  const QStringList seen = orderOf(late.commands());
  EXPECT_EQ(seen, order.mid(order.size() - seen.size()));
  EXPECT_GE(seen.size(), 2 * each);
  EXPECT_EQ(QStringList(setsOf(late.events("joined").front())).removeDuplicates(), 0);
  expectSameStates({&ada, &ben, &late});
}

TEST_F(LiveTest, WhoIsKilledAndComesBackEndsAlike) {
  LivePartner &ada = join("Ada"), &cleo = join("Cleo");
  constexpr int each = 40;
  {
    LivePartner& ben = join("Ben");
    ada.type(storm(0, each));
    ben.type(storm(1, each));
    cleo.type(storm(2, each));
    ben.waitForCommands(each);
    ben.kill();
    forget(ben);
  }
  LivePartner& again = join("Ben");
  ada.type(storm(2, each));
  settle({&ada, &again, &cleo});
  const std::vector<ToldCommand> all = ada.commands();
  const auto isBens = [](const ToldCommand& command) { return command.by == "Ben"; };
  const int bens = int(std::count_if(all.begin(), all.end(), isBens));
  EXPECT_GT(bens, 1);
  expectSameOrder({&ada, &cleo}, 3 * each + 2 + bens);
  expectSameStates({&ada, &again, &cleo});
}
