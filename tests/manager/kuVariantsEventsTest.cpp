#include "host/kernel/kuController.h"
#include "manager/kuVariants.h"
#include "model/kuVariantGroup.h"
#include "model/kuVariantSet.h"
#include "standalone/kernel/MessageWatch.h"
#include "support/VariantsTest.h"

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class kuVariantsEventsTest : public VariantsTest {
 protected:
  static kuVariantSet* makeSet(const char* name) {
    return kuVariants::createVariantSet(name, false, nullptr);
  }

  /** A variant of each kind named after it, and a set with a state for each. */
  static kuVariantSet* makeAll() {
    kuVariants::createNodeVariant("Roof", false);
    kuVariants::createMaterialVariant("Paint", false);
    kuVariants::createLightVariant("Lamp", false);
    kuVariants::createOverlayVariant("Badge", false);
    kuVariants::createTransformVariant("Door", false);
    kuVariantSet* set = makeSet("Summer");
    set->addNodeVariant("Roof", "Open");
    set->addMaterialVariant("Paint", "Red");
    set->addLightVariant("Lamp", "!Enable");
    set->addOverlayVariant("Badge", "!Enable");
    set->addTransformVariant("Door", "Ajar");
    return set;
  }

  static bool isEmpty() {
    return kuVariants::getNodeVariants().empty() && kuVariants::getMaterialVariants().empty() &&
           kuVariants::getLightVariants().empty() && kuVariants::getOverlayVariants().empty() &&
           kuVariants::getTransformVariants().empty() && kuVariants::getVariantSets().empty() &&
           kuVariants::getVariantGroups().empty();
  }
};

const char* const connectedMessages[] = {
    "selectNodeVariants/1 variant:qstrings=[]", "selectMaterialVariants/1 variant:qstrings=[]",
    "selectLightVariants/1 variant:qstrings=[]", "selectOverlayVariants/1 variant:qstrings=[]",
    "selectTransformVariants/1 variant:qstrings=[]"};

}  // namespace

TEST_F(kuVariantsEventsTest, InstanceIsOne) {
  ASSERT_TRUE(kuVariants::the());
  EXPECT_EQ(kuVariants::the(), kuVariants::the());
}

TEST_F(kuVariantsEventsTest, ClearAllVariantsEmptiesTheManagerKindByKind) {
  makeAll();
  kuVariants::createVariantGroup("Seasons", false, true)->add(kuVariants::findVariantSet("Summer"));
  EXPECT_TRUE(kuController::call("clearAllVariants", 1));
  EXPECT_TRUE(isEmpty());
  EXPECT_THAT(messages.lines(),
              ElementsAre("clearAllVariants/1 bare", "nodeVariantChanged/1 bare",
                          "materialVariantChanged/1 bare", "lightVariantChanged/1 bare",
                          "overlayVariantChanged/1 bare", "transformVariantChanged/0 bare",
                          "variantSetChanged/1 bare", "variantGroupChanged/1 bare"));
}

TEST_F(kuVariantsEventsTest, ClearAllOfAnEmptyManagerSendsAllSevenMessages) {
  kuMessage unread;
  kuVariants::clearAll(unread);
  EXPECT_THAT(messages.lines(),
              ElementsAre("nodeVariantChanged/1 bare", "materialVariantChanged/1 bare",
                          "lightVariantChanged/1 bare", "overlayVariantChanged/1 bare",
                          "transformVariantChanged/0 bare", "variantSetChanged/1 bare",
                          "variantGroupChanged/1 bare"));
}

TEST_F(kuVariantsEventsTest, EachKindIsGoneWhenItIsAnnounced) {
  makeAll();
  bool nodesGone = false;
  bool setsStillThere = false;
  const kuStandalone::MessageWatch watch([&](const kuStandalone::PassedMessage& message) {
    if (message.name != "nodeVariantChanged") return;
    nodesGone = kuVariants::getNodeVariants().empty() && !kuVariants::findNodeVariant("Roof");
    setsStillThere = kuVariants::findVariantSet("Summer") != nullptr;
  });
  kuController::call("clearAllVariants", 1);
  EXPECT_TRUE(nodesGone);
  EXPECT_TRUE(setsStillThere);
}

TEST_F(kuVariantsEventsTest, IdsGoOnAfterClearAll) {
  const auto set = makeSet("Summer")->id();
  const auto group = kuVariants::createVariantGroup("Seasons", false, true)->id();
  kuController::call("clearAllVariants", 1);
  EXPECT_EQ(makeSet("Summer")->id(), set + 1);
  EXPECT_EQ(kuVariants::createVariantGroup("Seasons", false, true)->id(), group + 1);
}

TEST_F(kuVariantsEventsTest, ClearAllKeepsTheRecursion) {
  kuVariants::setRecursion(true);
  kuController::call("clearAllVariants", 1);
  EXPECT_TRUE(kuVariants::getRecursion());
  kuVariants::setRecursion(false);
}

TEST_F(kuVariantsEventsTest, SendVariantsChangedHasAnOrderOfItsOwnAndModeOneThroughout) {
  makeAll();
  kuVariants::sendVariantsChanged();
  EXPECT_FALSE(isEmpty());
  EXPECT_THAT(messages.lines(),
              ElementsAre("lightVariantChanged/1 bare", "nodeVariantChanged/1 bare",
                          "materialVariantChanged/1 bare", "overlayVariantChanged/1 bare",
                          "transformVariantChanged/1 bare", "variantSetChanged/1 bare",
                          "variantGroupChanged/1 bare"));
}

TEST_F(kuVariantsEventsTest, RenamesAreAnnouncedWithModeZero) {
  kuVariantSet* summer = makeSet("Summer");
  kuVariantGroup* seasons = kuVariants::createVariantGroup("Seasons", false, true);
  summer->setName("Spring");
  seasons->add(summer);
  summer->setName("Autumn");
  seasons->setName("Times");
  EXPECT_THAT(messages.lines(),
              ElementsAre("variantSetRenamed/0 oldName:string=Summer newName:string=Spring "
                          "groupName:string=ungrouped",
                          "variantSetRenamed/0 oldName:string=Spring newName:string=Autumn "
                          "groupName:string=Seasons",
                          "variantGroupRenamed/0 oldName:string=Seasons newName:string=Times"));
}

TEST_F(kuVariantsEventsTest, ConnectedVariantsGoOutListByList) {
  kuVariantSet* summer = makeAll();
  kuVariants::createNodeVariant("Boot", false);
  summer->addNodeVariant("absent", "Open");
  summer->addNodeVariant("Boot", "Open");
  summer->showConnectedVariants();
  EXPECT_THAT(messages.lines(), ElementsAre("selectNodeVariants/1 variant:qstrings=[Roof,Boot]",
                                            "selectMaterialVariants/1 variant:qstrings=[Paint]",
                                            "selectLightVariants/1 variant:qstrings=[Lamp]",
                                            "selectOverlayVariants/1 variant:qstrings=[Badge]",
                                            "selectTransformVariants/1 variant:qstrings=[Door]"));
}

TEST_F(kuVariantsEventsTest, SetWhoseVariantsAreAllGoneSendsFiveEmptyVectors) {
  const kuVariantSet* summer = makeAll();
  kuVariants::removeNodeVariant("Roof");
  kuVariants::removeMaterialVariant("Paint");
  kuVariants::removeLightVariant("Lamp");
  kuVariants::removeOverlayVariant("Badge");
  kuVariants::removeTransformVariant("Door");
  messages.clear();
  kuVariants::showConnectedVariants(summer->getName());
  EXPECT_THAT(messages.lines(), ::testing::ElementsAreArray(connectedMessages));
}

TEST_F(kuVariantsEventsTest, ConnectedVariantsOfAnUnknownSetSendNothing) {
  makeAll();
  kuVariants::showConnectedVariants("Winter");
  kuVariants::showConnectedVariants("summer");
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(kuVariantsEventsTest, ConnectedVariantsAreThoseOfTheFirstSetOfTheName) {
  makeSet("Winter")->setName("Summer");
  messages.clear();
  kuVariants::findVariantSet("Summer")->addNodeVariant("Boot", "Open");
  kuVariants::createNodeVariant("Boot", false);
  makeSet("Other")->setName("Summer");
  messages.clear();
  kuVariants::showConnectedVariants("Summer");
  EXPECT_EQ(messages.lines().at(0), "selectNodeVariants/1 variant:qstrings=[Boot]");
}

TEST_F(kuVariantsEventsTest, ConnectedVariantsOfANamelessSetAreFoundToo) {
  makeSet("Summer")->setName("");
  messages.clear();
  kuVariants::showConnectedVariants("");
  EXPECT_THAT(messages.lines(), ::testing::ElementsAreArray(connectedMessages));
}

TEST_F(kuVariantsEventsTest, AllFiveMessagesGoOutAlsoWhereAReceiverRemovesTheSet) {
  for (int call = 1; call <= 5; ++call) {
    kuVariantSet* summer = makeAll();
    messages.clear();
    int seen = 0;
    const kuStandalone::MessageWatch watch([&](const kuStandalone::PassedMessage&) {
      if (++seen == call) kuVariants::removeVariantSet("Summer");
    });
    summer->showConnectedVariants();
    std::vector<std::string> lines = messages.lines();
    EXPECT_EQ(lines.size(), 6u) << call;  // with the removal's own
    EXPECT_EQ(lines.back().rfind(call == 5 ? "variantSetRemoved" : "selectTransform", 0), 0u);
    kuController::call("clearAllVariants", 1);
  }
}
