#include "host/utils/kuNodeUtils.h"
#include "manager/kuVariants.h"
#include "model/kuVariantGroup.h"
#include "model/kuVariantSet.h"
#include "standalone/kernel/MessageWatch.h"
#include "support/VariantsTest.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class kuVariantsSetsTest : public VariantsTest {
 protected:
  static kuVariantSet* make(const char* name, kuVariantGroup* group = nullptr) {
    return kuVariants::createVariantSet(name, false, group);
  }
};

}  // namespace

TEST_F(kuVariantsSetsTest, NewSetIsAnnouncedInItsGroup) {
  kuVariantGroup* seasons = kuVariants::createVariantGroup("Seasons", false, true);
  kuVariantSet* summer = kuVariants::createVariantSet("Summer", true, seasons);
  ASSERT_TRUE(summer);
  EXPECT_EQ(summer->getName(), "Summer");
  EXPECT_EQ(summer->getGroup(), seasons);
  EXPECT_THAT(seasons->getVariantSets(), ElementsAre(summer));
  EXPECT_THAT(kuVariants::getVariantSets(), ElementsAre(summer));
  EXPECT_THAT(messages.lines(), ElementsAre("variantSetAdded/1 variant:void*=kuVariantSet Summer"));
}

TEST_F(kuVariantsSetsTest, NewSetIsSilentAndUngroupedWhereAskedFor) {
  EXPECT_EQ(make("Summer")->getGroup(), nullptr);
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(kuVariantsSetsTest, EmptyNameMakesNoSet) {
  EXPECT_EQ(kuVariants::createVariantSet("", true, nullptr), nullptr);
  EXPECT_THAT(messages.lines(), IsEmpty());
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(kuVariantsSetsTest, ExistingNameWarnsAndLeavesTheGroupAlone) {
  kuVariantGroup* seasons = kuVariants::createVariantGroup("Seasons", false, true);
  const kuVariantSet* summer = make("Summer");
  EXPECT_EQ(kuVariants::createVariantSet("Summer", true, seasons), nullptr);
  EXPECT_THAT(seasons->getVariantSets(), IsEmpty());
  EXPECT_EQ(summer->getGroup(), nullptr);
  EXPECT_THAT(log, ElementsAre("warning: A variant set with that name already exists."));
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(kuVariantsSetsTest, NewSetThatAReceiverRemovesIsNotAnswered) {
  const kuStandalone::MessageWatch watch([](const kuStandalone::PassedMessage& message) {
    if (message.name == "variantSetAdded") kuVariants::removeVariantSet("Summer");
  });
  EXPECT_EQ(kuVariants::createVariantSet("Summer", true, nullptr), nullptr);
  EXPECT_THAT(kuVariants::getVariantSets(), IsEmpty());
}

TEST_F(kuVariantsSetsTest, SetsAreFoundByNameAndById) {
  kuVariantSet* summer = make("Summer");
  kuVariantSet* winter = make("Winter");
  EXPECT_EQ(winter->id(), summer->id() + 1);
  EXPECT_EQ(kuVariants::findVariantSet("Winter"), winter);
  EXPECT_EQ(kuVariants::findVariantSet("winter"), nullptr);
  EXPECT_EQ(kuVariants::findVariantSet(""), nullptr);
  EXPECT_EQ(kuVariants::getVariantSet(summer->id()), summer);
  EXPECT_EQ(kuVariants::getVariantSet(winter->id()), winter);
  EXPECT_EQ(kuVariants::getVariantSet(winter->id() + 1), nullptr);
}

TEST_F(kuVariantsSetsTest, RenamedSetIsFoundByItsNewNameAndTheFirstWins) {
  kuVariantSet* summer = make("Summer");
  kuVariantSet* winter = make("Winter");
  summer->setName("Winter");
  EXPECT_EQ(kuVariants::findVariantSet("Summer"), nullptr);
  EXPECT_EQ(kuVariants::findVariantSet("Winter"), summer);
  kuVariants::removeVariantSet("Winter");
  EXPECT_EQ(kuVariants::findVariantSet("Winter"), winter);
}

TEST_F(kuVariantsSetsTest, RemovedSetIsAliveAndUnlistedWhileItIsAnnounced) {
  kuVariantGroup* seasons = kuVariants::createVariantGroup("Seasons", false, true);
  kuVariantSet* spring = make("Spring", seasons);
  make("Summer", seasons);
  kuVariantSet* autumn = make("Autumn", seasons);
  QString announced;
  bool grouped = false;
  const kuStandalone::MessageWatch watch([&](const kuStandalone::PassedMessage& message) {
    void* pointer = nullptr;
    ASSERT_TRUE(message.record->get("variant", pointer));
    announced = static_cast<kuVariantSet*>(pointer)->getName();
    grouped = static_cast<kuVariantSet*>(pointer)->getGroup() == seasons;
    EXPECT_EQ(kuVariants::findVariantSet("Summer"), nullptr);
  });
  EXPECT_TRUE(kuVariants::removeVariantSet("Summer"));
  EXPECT_EQ(announced, "Summer");
  EXPECT_TRUE(grouped);
  EXPECT_THAT(kuVariants::getVariantSets(), ElementsAre(spring, autumn));
  EXPECT_THAT(seasons->getVariantSets(), ElementsAre(spring, autumn));
  EXPECT_THAT(messages.lines(), ElementsAre("variantSetRemoved/1 variant:void*=unlisted"));
}

TEST_F(kuVariantsSetsTest, RemovalOfAnUnknownSetIsTrueAndSilent) {
  EXPECT_TRUE(kuVariants::removeVariantSet("Summer"));
  make("Winter");
  EXPECT_TRUE(kuVariants::removeVariantSet("Summer"));
  EXPECT_TRUE(kuVariants::removeVariantSet(""));
  EXPECT_EQ(kuVariants::getVariantSets().size(), 1u);
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(kuVariantsSetsTest, NamelessSetIsRemovedByTheEmptyName) {
  make("Summer")->setName("");
  const kuVariantSet* winter = make("Winter");
  messages.clear();
  EXPECT_TRUE(kuVariants::removeVariantSet(""));
  EXPECT_THAT(kuVariants::getVariantSets(), ElementsAre(winter));
  EXPECT_THAT(messages.lines(), ElementsAre("variantSetRemoved/1 variant:void*=unlisted"));
}

TEST_F(kuVariantsSetsTest, RemovedSetIsNotFoundByItsIdAndTheOthersStillAre) {
  const auto summer = make("Summer")->id();
  kuVariantSet* winter = make("Winter");
  kuVariants::removeVariantSet("Summer");
  EXPECT_EQ(kuVariants::getVariantSet(summer), nullptr);
  EXPECT_EQ(kuVariants::getVariantSet(winter->id()), winter);
  EXPECT_EQ(kuVariants::getVariantSet(0), nullptr);
  EXPECT_EQ(make("Summer")->id(), winter->id() + 1);
}

TEST_F(kuVariantsSetsTest, NewSetStandsInItsGroupWhenItIsAnnounced) {
  kuVariantGroup* seasons = kuVariants::createVariantGroup("Seasons", false, true);
  std::size_t inGroup = 0;
  const kuStandalone::MessageWatch watch(
      [&](const kuStandalone::PassedMessage&) { inGroup = seasons->getVariantSets().size(); });
  kuVariants::createVariantSet("Summer", true, seasons);
  EXPECT_EQ(inGroup, 1u);
}

TEST_F(kuVariantsSetsTest, SetsAreGoneWhenTheirClearingIsTold) {
  make("Summer");
  std::size_t left = 7;
  const kuStandalone::MessageWatch watch(
      [&](const kuStandalone::PassedMessage&) { left = kuVariants::getVariantSets().size(); });
  kuVariants::clearVariantSets();
  EXPECT_EQ(left, 0u);
}

TEST_F(kuVariantsSetsTest, RemovedVariantLeavesItsStatesInTheSets) {
  kuVariants::createNodeVariant("Roof", false);
  kuVariantSet* summer = make("Summer");
  summer->addNodeVariant("Roof", "Open");
  kuVariants::removeNodeVariant("Roof");
  ASSERT_TRUE(summer->findNodeVariant("Roof"));
  EXPECT_EQ(summer->findNodeVariant("Roof")->getState(), "Open");
}

TEST_F(kuVariantsSetsTest, ClearingDestroysAllSetsAndTellsOnce) {
  kuVariantGroup* seasons = kuVariants::createVariantGroup("Seasons", false, true);
  make("Summer", seasons);
  make("Winter", seasons);
  kuVariants::clearVariantSets();
  EXPECT_THAT(kuVariants::getVariantSets(), IsEmpty());
  EXPECT_THAT(seasons->getVariantSets(), IsEmpty());
  EXPECT_EQ(kuVariants::findVariantSet("Summer"), nullptr);
  EXPECT_THAT(messages.lines(), ElementsAre("variantSetChanged/1 bare"));
}

TEST_F(kuVariantsSetsTest, UngroupedSetsStandInTheOrderOfTheList) {
  kuVariantGroup* seasons = kuVariants::createVariantGroup("Seasons", false, true);
  kuVariantSet* day = make("Day");
  kuVariantSet* summer = make("Summer", seasons);
  kuVariantSet* night = make("Night");
  EXPECT_THAT(kuVariants::getUngroupedVariantSets(), ElementsAre(day, night));
  seasons->clear();
  EXPECT_THAT(kuVariants::getUngroupedVariantSets(), ElementsAre(day, summer, night));
}

TEST_F(kuVariantsSetsTest, NoSetIsUngroupedWhereAllAreInGroups) {
  make("Summer", kuVariants::createVariantGroup("Seasons", false, true));
  EXPECT_THAT(kuVariants::getUngroupedVariantSets(), IsEmpty());
}

TEST_F(kuVariantsSetsTest, FreeNameComesBackUnchanged) {
  make("Summer");
  EXPECT_EQ(kuVariants::getUniqueVariantSetName("Winter"), "Winter");
  EXPECT_EQ(kuVariants::getUniqueVariantSetName(QString::fromUtf8("Fr\xc3\xbchling")),
            QString::fromUtf8("Fr\xc3\xbchling"));
}

TEST_F(kuVariantsSetsTest, TakenNameIsMadeUniqueByTheRuleOfNodes) {
  make("Fr\xc3\xbchling");
  const QString unique = kuVariants::getUniqueVariantSetName(QString::fromUtf8("Fr\xc3\xbchling"));
  EXPECT_EQ(unique.toStdString(),
            kuNodeUtils::getUniqueName("Fr\xc3\xbchling", {"Fr\xc3\xbchling"}));
  EXPECT_NE(unique, QString::fromUtf8("Fr\xc3\xbchling"));
  EXPECT_EQ(kuVariants::findVariantSet(unique), nullptr);
}
