#include "VariantsScriptTest.h"
#include "host/utils/kuNodeUtils.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"
#include "scene/kuNodeVariant.h"
#include "scene/kuTransformVariant.h"
#include "script/kuVariantSetPtr.h"
#include "support/ManagerDump.h"
#include "support/MessageReceiver.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

namespace {

using Entries = std::vector<std::pair<std::string, std::string>>;

Entries entries(const std::list<kuVariantState>& states) {
  Entries all;
  for (const kuVariantState& state : states)
    all.emplace_back(state.getVariant().toStdString(), state.getState().toStdString());
  return all;
}

/** With the set "A", which scripts know as s. */
class SetPtrStates : public VariantsScriptTest {
 protected:
  SetPtrStates() : set(kuVariants::createVariantSet("A", false, nullptr)) {
    put("s", set);
    messages.clear();
  }

  kuVariantSet* set;
};

TEST_F(SetPtrStates, AddGeometryAddsANodeStateAndNoGeometry) {
  scene.switchNode("Roof", 0, {"Open", "Closed"});
  EXPECT_TRUE(run("s.addGeometry(findNode('Roof'), 'Closed')"));
  EXPECT_EQ(entries(set->getNodeVariants()), (Entries{{"Roof", "Closed"}}));
  EXPECT_THAT(set->getGeometries(), IsEmpty());
  EXPECT_THAT(messages.lines(), ElementsAre("nodeVariantAdded/1 variant:void*=kuVariant Roof"));
}

TEST_F(SetPtrStates, AddGeometryTakesAnyState) {
  scene.switchNode("Roof", 0, {"Open"});
  EXPECT_TRUE(run("s.addGeometry(findNode('Roof'), 'Gr\xC3\xBCn')"));
  EXPECT_EQ(entries(set->getNodeVariants()), (Entries{{"Roof", "Gr\xC3\xBCn"}}));
}

TEST_F(SetPtrStates, AddMaterialAddsAMaterialState) {
  scene.switchMaterial("Paint", {scene.material("Red"), scene.material("Blue")}, 0);
  EXPECT_TRUE(run("s.addMaterial(findMaterial('Paint'), 'Blue')"));
  EXPECT_EQ(entries(set->getMaterialVariants()), (Entries{{"Paint", "Blue"}}));
  EXPECT_THAT(messages.lines(),
              ElementsAre("materialVariantAdded/1 variant:void*=kuVariant Paint"));
}

TEST_F(SetPtrStates, AddMaterialOfAPlainMaterialNamesItsSwitch) {
  scene.material("Red");
  EXPECT_TRUE(run("s.addMaterial(findMaterial('Red'), 'any')"));
  EXPECT_EQ(entries(set->getMaterialVariants()), (Entries{{"Red Switch", "any"}}));
}

TEST_F(SetPtrStates, AddLightAddsAnyState) {
  scene.light("Sun", true);
  EXPECT_TRUE(run("s.addLight(findNode('Sun'), 'no such state')"));
  EXPECT_EQ(entries(set->getLightVariants()), (Entries{{"Sun", "no such state"}}));
  EXPECT_THAT(messages.lines(), ElementsAre("lightVariantAdded/1 variant:void*=kuVariant Sun"));
}

TEST_F(SetPtrStates, AddTransformAddsAStateThatTheNodeHas) {
  scene.transforms("Door", {"Open", "Closed"}, 0, 0);
  EXPECT_TRUE(run("s.addTransform(findNode('Door'), 'Closed')"));
  EXPECT_EQ(entries(set->getTransformVariants()), (Entries{{"Door", "Closed"}}));
  EXPECT_THAT(messages.lines(),
              ElementsAre("transformVariantAdded/0 variant:void*=kuVariant Door"));
}

TEST_F(SetPtrStates, AddTransformOfAnUnknownStateAddsNothing) {
  scene.transforms("Door", {"Open"}, 0, 0);
  EXPECT_TRUE(
      run("s.addTransform(findNode('Door'), 'Closed')\ns.addTransform(findNode('Door'), '')"));
  EXPECT_THAT(entries(set->getTransformVariants()), IsEmpty());
  EXPECT_TRUE(kuVariants::findTransformVariant("Door"));
}

TEST_F(SetPtrStates, AddTransformSeesAStateThatIsNewInTheScene) {
  const osg::NodePtr door = scene.transforms("Door", {"Open"}, 0, 0);
  kuTransformVariant* variant = kuVariants::createTransformVariant(door, false);
  kuNodeUtils::setTransformVariantName(door, 0, "T\xC3\xBCr");
  ASSERT_FALSE(variant->find(QString::fromUtf8("T\xC3\xBCr")));
  EXPECT_TRUE(run("s.addTransform(findNode('Door'), 'T\xC3\xBCr')"));
  EXPECT_EQ(entries(set->getTransformVariants()), (Entries{{"Door", "T\xC3\xBCr"}}));
}

/** What is known is not looked up again in the scene. */
TEST_F(SetPtrStates, AddTransformOfAKnownStateLeavesTheOptionsAsTheyAre) {
  const osg::NodePtr door = scene.transforms("Door", {"Open"}, 0, 0);
  kuTransformVariant* variant = kuVariants::createTransformVariant(door, false);
  kuNodeUtils::setTransformVariantName(door, 0, "New");
  EXPECT_TRUE(run("s.addTransform(findNode('Door'), 'Open')"));
  EXPECT_EQ(entries(set->getTransformVariants()), (Entries{{"Door", "Open"}}));
  EXPECT_FALSE(variant->find("New"));
}

TEST_F(SetPtrStates, AddTransformOfANodeWithoutStatesAddsNothing) {
  scene.group("Door");
  EXPECT_TRUE(run("s.addTransform(findNode('Door'), '!Next')"));
  EXPECT_EQ(managerDump(), "set A\n");
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(SetPtrStates, InvalidObjectsAddNothing) {
  EXPECT_TRUE(
      run("s.addGeometry(kuNodePtr(), 'a')\ns.addLight(findNode('None'), 'a')\n"
          "s.addTransform(kuNodePtr(), 'a')\ns.addMaterial(kuMaterialPtr(), 'a')"));
  EXPECT_EQ(managerDump(), "set A\n");
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(SetPtrStates, UnnamedObjectsAddNothing) {
  scene.switchNode("", 0, {"Open"}, scene.group("Top"));
  scene.material("");
  EXPECT_TRUE(
      run("n = findNode('Top').getChildren()[0]\ns.addGeometry(n, 'a')\ns.addLight(n, 'a')\n"
          "s.addTransform(n, 'a')\ns.addMaterial(findMaterial(''), 'a')"));
  EXPECT_EQ(managerDump(), "set A\n");
}

TEST_F(SetPtrStates, VariantThatAReceiverRemovesAtOnceAddsNothing) {
  scene.switchNode("Roof", 0, {"Open"});
  const MessageReceiver receiver("nodeVariantAdded",
                                 [](kuMessage&) { kuVariants::removeNodeVariant("Roof"); });
  EXPECT_TRUE(run("s.addGeometry(findNode('Roof'), 'Open')"));
  EXPECT_EQ(managerDump(), "set A\n");
}

TEST_F(SetPtrStates, EmptyStateIsTheDefaultOfTheVariant) {
  scene.switchNode("Roof", 1, {"Open", "Closed"});
  EXPECT_TRUE(run("s.addGeometry(findNode('Roof'), '')"));
  EXPECT_EQ(entries(set->getNodeVariants()),
            (Entries{{"Roof", kuVariants::findNodeVariant("Roof")->getDefault().toStdString()}}));
}

}  // namespace
