// What is not shared stays where it was selected.

#include "LiveTest.h"

TEST_F(LiveTest, SetOfAGroupThatIsNotSharedIsSelectedHereAloneAndItsVariantsToo) {
  LivePartner &ada = join("Ada"), &ben = join("Ben");
  ada.type(QStringList{"select Sport", "select Doors Open", "select Night Drive"});
  ada.waitForCommands(2);
  ben.waitForCommands(2);
  expectSameOrder({&ada, &ben}, 2);
  // Nothing went into the order between the two shared ones.
  EXPECT_EQ(ben.commands()[0].sequence + 1, ben.commands()[1].sequence);
  ASSERT_EQ(ada.events("selected").size(), 3u);
  EXPECT_FALSE(ada.events("selected")[1]["shared"].toBool());
  EXPECT_EQ(stateOf(ada.state(), "transform", "Bonnet"), "Open");
  EXPECT_EQ(stateOf(ben.state(), "transform", "Bonnet"), "Closed");
  // What is shared and touches the same variants brings them together again.
  ada.type(QString("select Base Model"));
  ben.waitForCommands(3);
  expectSameStates({&ada, &ben});
}

TEST_F(LiveTest, SetThatIsItselfNotSharedIsSelectedHereAlone) {
  document = write("own.xml",
                   sample("car.variants.xml")
                       .replace("<VariantSet name=\"Jack\" comment=\"Puts the jack beside the "
                                "car, or away\" showinvrmenu=\"true\" synccollaboration=\"true\"",
                                "<VariantSet name=\"Jack\" synccollaboration=\"false\""));
  LivePartner &ada = join("Ada"), &ben = join("Ben");
  ada.type(QStringList{"select Jack", "variant material:Paint=Blue"});
  ben.waitForCommands(1);
  EXPECT_EQ(stateOf(ada.state(), "node", "Jack"), "!Enable");
  EXPECT_EQ(stateOf(ben.state(), "node", "Jack"), "!Disable");
  EXPECT_EQ(stateOf(ben.state(), "material", "Paint"), "Blue");
  expectSameOrder({&ada, &ben}, 1);
  // The variant itself is shared.
  ben.type(QString("variant node:Jack=!Toggle"));
  ada.waitForCommands(2);
  EXPECT_EQ(stateOf(ada.state(), "node", "Jack"), "!Enable");
  expectSameStates({&ada, &ben});
}

TEST_F(LiveTest, SetThatIsNotSharedDoesNotGoOutWhenTheBrokerIsBackEither) {
  LivePartner &ada = join("Ada"), &ben = join("Ben");
  broker->kill();
  ada.waitFor("broker-lost");
  ada.type(QStringList{"select Doors Open", "select Sport"});
  ada.waitFor("selected", 2);
  broker->restart();
  ada.waitFor("broker-back");
  ben.waitForCommands(1);
  EXPECT_EQ(ben.commands()[0].sets, QStringList{"Sport"});
  EXPECT_EQ(stateOf(ben.state(), "light", "Interior Light"), "!Disable");
  ben.type(QString("select Base Model"));
  ada.waitForCommands(2);
  expectSameStates({&ada, &ben});
}
