#include "manager/kuVariants.h"
#include "scene/kuLightVariant.h"
#include "scene/kuMaterialVariant.h"
#include "scene/kuNodeVariant.h"
#include "scene/kuOverlayVariant.h"
#include "scene/kuTransformVariant.h"
#include "support/MessageReceiver.h"
#include "support/SelectionScene.h"
#include "support/kuVariantsTestAccess.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

using Tables = QVector<QMap<QString, QString>>;

/** What SelectionScene's set holds when it is filled, as the scene stands at first. */
const Tables atFirst = {{{"Roof", "Open"}},
                        {{"Paint", "Red"}},
                        {{"Door", "Shut"}},
                        {{"Lamp", "!Disable"}},
                        {{"Badge", "Small"}}};
const Tables filled = {{{"Roof", "Closed"}},
                       {{"Paint", "Blue"}},
                       {{"Door", "Ajar"}},
                       {{"Lamp", "!Enable"}},
                       {{"Badge", "Large"}}};

class kuVariantSetCurrentStateTest : public SelectionScene {
 protected:
  Tables current() {
    Tables tables;
    int cursor = 0;
    set().getCurrentState(tables, cursor);
    return tables;
  }
  int& cursor() { return kuVariantsTestAccess::animationCursor(set()); }

  std::vector<std::string> selected() const {
    std::vector<std::string> names;
    for (const std::string& line : messages.lines()) {
      const auto found = line.find("Selected/1 variant:void*=kuVariant ");
      if (found != std::string::npos) names.push_back(line.substr(line.rfind(' ') + 1));
    }
    return names;
  }
};

}  // namespace

TEST_F(kuVariantSetCurrentStateTest, GetAnswersWhatTheSceneShowsAndNotTheSetsStates) {
  fill();
  EXPECT_EQ(current(), atFirst);
  set().select(false, true, false);
  EXPECT_EQ(current(), filled);
}

TEST_F(kuVariantSetCurrentStateTest, GetAnswersTheCursorAndFiveTablesAlsoForAnEmptySet) {
  cursor() = 7;
  Tables tables;
  int answered = 0;
  set().getCurrentState(tables, answered);
  EXPECT_EQ(tables, Tables(5));
  EXPECT_EQ(answered, 7);
}

TEST_F(kuVariantSetCurrentStateTest, GetIntoTablesWithOlderEntriesLeavesThemBesideTheNewOnes) {
  set().addNodeVariant("Roof", "Closed");
  Tables tables = {{{"Roof", "old"}, {"Gone", "x"}}, {}, {}, {}, {{"Gone", "y"}}};
  int answered = 0;
  set().getCurrentState(tables, answered);
  EXPECT_EQ(tables, (Tables{{{"Roof", "Open"}, {"Gone", "x"}}, {}, {}, {}, {{"Gone", "y"}}}));
}

TEST_F(kuVariantSetCurrentStateTest, GetBringsTheTablesToFiveAlsoFromMore) {
  Tables tables(7);
  tables[0]["Kept"] = "x";
  tables[6]["Dropped"] = "y";
  int answered = 0;
  set().getCurrentState(tables, answered);
  EXPECT_EQ(tables, (Tables{{{"Kept", "x"}}, {}, {}, {}, {}}));
}

TEST_F(kuVariantSetCurrentStateTest, GetLeavesOutVariantsThatTheManagerDoesNotHave) {
  fill();
  set().addNodeVariant("Absent", "Open");
  kuVariants::removeMaterialVariant("Paint");
  EXPECT_EQ(current(), (Tables{{{"Roof", "Open"}},
                               {},
                               {{"Door", "Shut"}},
                               {{"Lamp", "!Disable"}},
                               {{"Badge", "Small"}}}));
}

TEST_F(kuVariantSetCurrentStateTest, GetKeepsVariantsOfOneNameApartByTheirKind) {
  kuVariants::createLightVariant(scene.light("Roof", true), false);
  set().addNodeVariant("Roof", "Closed");
  set().addLightVariant("Roof", "!Toggle");
  EXPECT_EQ(current(), (Tables{{{"Roof", "Open"}}, {}, {}, {{"Roof", "!Enable"}}, {}}));
}

TEST_F(kuVariantSetCurrentStateTest, GetSendsNothing) {
  fill();
  current();
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(kuVariantSetCurrentStateTest, SetWithAnEmptyVectorStillSetsTheCursor) {
  set().setCurrentState({}, 5);
  EXPECT_EQ(cursor(), 5);
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(kuVariantSetCurrentStateTest, SetWithFourTablesSetsTheCursorAlone) {
  set().setCurrentState({{{"Roof", "Closed"}}, {}, {}, {}}, -3);
  EXPECT_EQ(cursor(), -3);
  EXPECT_EQ(roof(), 0);
}

TEST_F(kuVariantSetCurrentStateTest, SetReadsFiveTablesOfMore) {
  set().setCurrentState({{{"Roof", "Closed"}}, {}, {}, {}, {}, {{"Roof", "Open"}}}, 0);
  EXPECT_EQ(roof(), 1);
  EXPECT_THAT(selected(), ElementsAre("Roof"));
}

TEST_F(kuVariantSetCurrentStateTest, SetSelectsTheKindsInTheirOrderAndEachInTheOrderOfItsKeys) {
  for (const char* name : {"Bonnet", "Arch"})
    kuVariants::createNodeVariant(scene.switchNode(name, 0, {"a", "b"}), false);
  Tables tables = filled;
  tables[0]["Bonnet"] = "b";
  tables[0]["Arch"] = "b";
  set().setCurrentState(tables, 0);
  EXPECT_THAT(selected(),
              // Door has no message of its own.
              ElementsAre("Arch", "Bonnet", "Roof", "Paint", "Lamp", "Badge"));
  EXPECT_EQ(SceneBuilder::transformChoice(doorNode()), 1u);
}

TEST_F(kuVariantSetCurrentStateTest, SetTakesTransformsBeforeLights) {
  unsigned doorAtTheLight = 0;
  const MessageReceiver receiver("lightVariantSelected", [&](kuMessage&) {
    doorAtTheLight = SceneBuilder::transformChoice(doorNode());
  });
  set().setCurrentState(filled, 0);
  EXPECT_EQ(doorAtTheLight, 1u);
}

TEST_F(kuVariantSetCurrentStateTest, SetSkipsAKeyWhoseVariantHasGone) {
  kuVariants::removeNodeVariant("Roof");
  messages.clear();
  set().setCurrentState(filled, 0);
  EXPECT_THAT(selected(), ElementsAre("Paint", "Lamp", "Badge"));
  EXPECT_EQ(roof(), 0);
}

TEST_F(kuVariantSetCurrentStateTest, SetLooksAKeyUpInTheKindOfItsTableAlone) {
  set().setCurrentState({{{"Paint", "Blue"}}, {{"Roof", "Closed"}}, {}, {}, {}}, 0);
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(kuVariantSetCurrentStateTest, GetThenSetOnTheSameSceneSelectsNothing) {
  fill();
  set().setCurrentState(current(), 0);
  EXPECT_THAT(messages.lines(), IsEmpty());
  set().select(false, true, false);
  messages.clear();
  set().setCurrentState(current(), 0);
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(kuVariantSetCurrentStateTest, SetReachesVariantsThatAreNotInTheSetAndKeepsItsStates) {
  set().addNodeVariant("Roof", "Open");
  set().setCurrentState(filled, 0);
  EXPECT_EQ(paint()->getChoice(), 1u);
  EXPECT_EQ(set().findNodeVariant("Roof")->getState(), "Open");
  EXPECT_THAT(set().getMaterialVariants(), IsEmpty());
}

TEST_F(kuVariantSetCurrentStateTest, SetThatAReceiverRemovesStillBringsTheVariantsToTheirStates) {
  const MessageReceiver receiver("nodeVariantSelected",
                                 [](kuMessage&) { kuVariants::removeVariantSet("Summer"); });
  set().setCurrentState(filled, 0);
  EXPECT_THAT(selected(), ElementsAre("Roof", "Paint", "Lamp", "Badge"));
}

TEST_F(kuVariantSetCurrentStateTest, TablesThatAReceiverEmptiesAreGoneThroughAsTheyWere) {
  Tables tables = filled;
  const MessageReceiver receiver("nodeVariantSelected", [&](kuMessage&) { tables.clear(); });
  set().setCurrentState(tables, 0);
  EXPECT_THAT(selected(), ElementsAre("Roof", "Paint", "Lamp", "Badge"));
}

TEST_F(kuVariantSetCurrentStateTest, VariantsThatAReceiverRemovesAreSkipped) {
  const MessageReceiver receiver("nodeVariantSelected",
                                 [](kuMessage&) { kuVariants::removeMaterialVariant("Paint"); });
  set().setCurrentState(filled, 0);
  EXPECT_THAT(selected(), ElementsAre("Roof", "Lamp", "Badge"));
}
