#include "scene/kuLightVariant.h"

#include "host/utils/kuLights.h"
#include "manager/kuVariants.h"
#include "support/VariantsTest.h"
#include "support/kuVariantsTestAccess.h"

using ::testing::ElementsAre;

namespace {

class kuLightVariantTest : public VariantsTest {
 protected:
  /** A variant that the manager owns, bound to the nodes of that name. */
  static kuLightVariant& bound(const QString& name) {
    kuLightVariant& variant = *kuVariants::createLightVariant(name, false);
    variant.setNode(name);
    return variant;
  }
  static const std::string Selected;
};
const std::string kuLightVariantTest::Selected =
    "lightVariantSelected/1 variant:void*=kuVariant Lamp";

TEST_F(kuLightVariantTest, ALightGivesThreeOptionsAndItsStateAsDefault) {
  const kuLightVariant off(scene.light("Lamp", false));
  ASSERT_EQ(off.getOptions().size(), 3u);
  EXPECT_EQ(off.getOptions()[0].getName(), "!Enable");
  EXPECT_EQ(off.getOptions()[1].getName(), "!Disable");
  EXPECT_EQ(off.getOptions()[2].getName(), "!Toggle");
  EXPECT_FALSE(off.getOptions()[0].getAction());
  EXPECT_FALSE(off.getOptions()[1].getAction());
  EXPECT_TRUE(off.getOptions()[2].getAction());
  EXPECT_EQ(off.getDefault(), "!Disable");
  EXPECT_EQ(off.getNode(), "Lamp");
  EXPECT_EQ(kuLightVariant(scene.light("Other", true)).getDefault(), "!Enable");
}

TEST_F(kuLightVariantTest, ANodeThatIsNoLightGivesTheNameAlone) {
  const kuLightVariant variant(scene.group("Lamp"));
  EXPECT_EQ(variant.getName(), "Lamp");
  EXPECT_TRUE(variant.getOptions().empty());
  EXPECT_EQ(variant.getDefault(), "");
}

TEST_F(kuLightVariantTest, ToggleTurnsTwoClonesOnce) {
  const osg::NodePtr lamp = scene.light("Lamp", false);
  scene.clone(lamp);
  kuLightVariant& variant = bound("Lamp");
  variant.select(QString("!Toggle"));
  EXPECT_TRUE(kuLights::getOn(lamp));
  EXPECT_THAT(messages.lines(),
              ElementsAre("variantsLightsChanged/1 variantName:string=Lamp "
                          "enabled:strings=[Lamp] disabled:strings=[] parent:string= path:string=",
                          Selected));
}

TEST_F(kuLightVariantTest, ToggleTurnsTwoLightsOfOneNameEach) {
  const osg::NodePtr first = scene.light("Lamp", false);
  const osg::NodePtr second = scene.light("Lamp", true);
  bound("Lamp").select(QString("!Toggle"));
  EXPECT_TRUE(kuLights::getOn(first));
  EXPECT_FALSE(kuLights::getOn(second));
  EXPECT_THAT(messages.lines(),
              ElementsAre("variantsLightsChanged/1 variantName:string=Lamp "
                          "enabled:strings=[Lamp] disabled:strings=[] parent:string= path:string=",
                          "variantsLightsChanged/1 variantName:string=Lamp "
                          "enabled:strings=[] disabled:strings=[Lamp] parent:string= path:string=",
                          Selected));
}

TEST_F(kuLightVariantTest, TheFirstLightAnswersWhereOtherNodesComeBefore) {
  scene.group("Lamp");
  scene.light("Lamp", true);
  scene.group("Lamp");
  kuLightVariant& variant = bound("Lamp");
  EXPECT_EQ(variant.getCurrent(), "!Enable");
  variant.updateVariants();
  EXPECT_EQ(variant.getOptions().size(), 3u);
  EXPECT_EQ(variant.getDefault(), "!Enable");
}

TEST_F(kuLightVariantTest, EnableOfALightThatIsOnIsAnnounced) {
  scene.light("Lamp", true);
  bound("Lamp").select(QString("!Enable"));
  EXPECT_EQ(messages.linesOf("variantsLightsChanged").size(), 1u);
}

TEST_F(kuLightVariantTest, DisableTurnsOff) {
  const osg::NodePtr lamp = scene.light("Lamp", true);
  bound("Lamp").select(QString("!Disable"));
  EXPECT_FALSE(kuLights::getOn(lamp));
}

TEST_F(kuLightVariantTest, AnotherStateOnlyEndsTheSelection) {
  const osg::NodePtr lamp = scene.light("Lamp", true);
  bound("Lamp").select(QString("Child"));
  EXPECT_TRUE(kuLights::getOn(lamp));
  EXPECT_THAT(messages.lines(), ElementsAre(Selected));
  EXPECT_TRUE(log.empty());
}

TEST_F(kuLightVariantTest, UpdateLosesHotkeysAndDefault) {
  scene.light("Lamp", true);
  kuLightVariant& variant = bound("Lamp");
  variant.add("!Enable", "Ctrl+A");
  variant.setDefault(QString("!Disable"));
  variant.updateVariants();
  EXPECT_EQ(variant.find("!Enable")->getHotkey(), "");
  EXPECT_EQ(variant.getDefault(), "!Enable");
}

TEST_F(kuLightVariantTest, PathLeadsFromTheSceneToTheLight) {
  const osg::NodePtr lamp = scene.light("Lamp", true, scene.group("Car"));
  EXPECT_EQ(kuVariantsTestAccess::lightPath(lamp), "Car|Lamp|");
}

TEST_F(kuLightVariantTest, UpdateWithoutALightKeepsTheDefault) {
  kuLightVariant& variant = bound("Lamp");
  variant.add("!Enable", "");
  variant.setDefault(QString("!Disable"));
  variant.updateVariants();
  EXPECT_TRUE(variant.getOptions().empty());
  EXPECT_EQ(variant.getDefault(), "!Disable");
  EXPECT_EQ(variant.getCurrent(), "");
}

}  // namespace
