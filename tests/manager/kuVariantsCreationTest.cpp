#include "host/utils/kuMaterials.h"
#include "manager/kuVariants.h"
#include "scene/kuLightVariant.h"
#include "scene/kuMaterialVariant.h"
#include "scene/kuNodeVariant.h"
#include "scene/kuOverlayVariant.h"
#include "scene/kuTransformVariant.h"
#include "standalone/kernel/MessageWatch.h"
#include "support/VariantsTest.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/** Variants made from what stands in the scene. */
class kuVariantsCreationTest : public VariantsTest {
 protected:
  static std::vector<std::string> options(const kuVariant& variant) {
    std::vector<std::string> names;
    for (const kuVariantOption& option : variant.getOptions())
      names.push_back(option.getName().toStdString());
    return names;
  }

  static bool inPool(const char* name) { return kuMaterials::findMaterial(name).isValid(); }
};

}  // namespace

TEST_F(kuVariantsCreationTest, NodeGivesNameOptionsAndDefault) {
  const auto* roof =
      kuVariants::createNodeVariant(scene.switchNode("Roof", 1, {"Open", "Closed"}), true);
  ASSERT_TRUE(roof);
  EXPECT_EQ(roof->getName(), "Roof");
  EXPECT_THAT(options(*roof), ElementsAre("!All", "!None", "!Next", "!Next (Loop)", "!Previous",
                                          "!Previous (Loop)", "Open", "Closed"));
  EXPECT_THAT(messages.lines(), ElementsAre("nodeVariantAdded/1 variant:void*=kuVariant Roof"));
}

TEST_F(kuVariantsCreationTest, LightGivesNameOptionsAndDefault) {
  const auto* lamp = kuVariants::createLightVariant(scene.light("Lamp", true), true);
  ASSERT_TRUE(lamp);
  EXPECT_THAT(options(*lamp), ElementsAre("!Enable", "!Disable", "!Toggle"));
  EXPECT_EQ(lamp->getDefault(), "!Enable");
  EXPECT_THAT(messages.lines(), ElementsAre("lightVariantAdded/1 variant:void*=kuVariant Lamp"));
}

TEST_F(kuVariantsCreationTest, SceneplateGivesNameOptionsAndDefault) {
  const auto* badge = kuVariants::createOverlayVariant(scene.sceneplate("Badge"), true);
  ASSERT_TRUE(badge);
  EXPECT_THAT(options(*badge), ElementsAre("!Enable", "!Disable", "!Toggle"));
  EXPECT_THAT(messages.lines(), ElementsAre("overlayVariantAdded/1 variant:void*=kuVariant Badge"));
}

TEST_F(kuVariantsCreationTest, TransformIsFilledBeforeItIsAnnounced) {
  const auto node = scene.transforms("Door", {"Shut", "Ajar"}, 0, 0);
  std::vector<std::string> announced;
  const kuStandalone::MessageWatch watch([&](const kuStandalone::PassedMessage& message) {
    void* pointer = nullptr;
    ASSERT_TRUE(message.record->get("variant", pointer));
    announced = options(*static_cast<kuVariant*>(pointer));
  });
  ASSERT_TRUE(kuVariants::createTransformVariant(node, true));
  EXPECT_THAT(announced, ElementsAre("!Next", "!Next (Loop)", "!Previous", "!Previous (Loop)",
                                     "Shut", "Ajar"));
  EXPECT_THAT(messages.lines(),
              ElementsAre("transformVariantAdded/0 variant:void*=kuVariant Door"));
}

TEST_F(kuVariantsCreationTest, NodeWithoutTransformStatesGivesNoTransformVariant) {
  EXPECT_EQ(kuVariants::createTransformVariant(scene.group("Door"), true), nullptr);
  EXPECT_EQ(kuVariants::createTransformVariant(osg::NodePtr(), true), nullptr);
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(kuVariantsCreationTest, NodeWithoutTransformStatesIsRefusedAlsoWhereTheVariantExists) {
  kuVariants::createTransformVariant("Door", false);
  EXPECT_EQ(kuVariants::createTransformVariant(scene.group("Door"), true), nullptr);
}

TEST_F(kuVariantsCreationTest, UnnamedObjectsGiveNothing) {
  EXPECT_EQ(kuVariants::createNodeVariant(scene.group(""), true), nullptr);
  EXPECT_EQ(kuVariants::createLightVariant(scene.light("", true), true), nullptr);
  EXPECT_EQ(kuVariants::createOverlayVariant(scene.sceneplate(""), true), nullptr);
  EXPECT_EQ(kuVariants::createTransformVariant(scene.transforms("", {"A"}, 0, 0), true), nullptr);
  EXPECT_EQ(kuVariants::createMaterialVariant(scene.material(""), true), nullptr);
  EXPECT_EQ(kuVariants::createNodeVariant(osg::NodePtr(), true), nullptr);
  EXPECT_EQ(kuVariants::createMaterialVariant(osg::MaterialPtr(), true), nullptr);
  EXPECT_THAT(kuVariants::getNodeVariants(), IsEmpty());
  EXPECT_THAT(kuVariants::getMaterialVariants(), IsEmpty());
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(kuVariantsCreationTest, ExistingVariantsAreAnsweredAsTheyAre) {
  const auto* node = kuVariants::createNodeVariant("Roof", false);
  const auto* light = kuVariants::createLightVariant("Lamp", false);
  const auto* overlay = kuVariants::createOverlayVariant("Badge", false);
  const auto* transform = kuVariants::createTransformVariant("Door", false);
  EXPECT_EQ(kuVariants::createNodeVariant(scene.switchNode("Roof", 0, {"Open"}), true), node);
  EXPECT_EQ(kuVariants::createLightVariant(scene.light("Lamp", true), true), light);
  EXPECT_EQ(kuVariants::createOverlayVariant(scene.sceneplate("Badge"), true), overlay);
  EXPECT_EQ(kuVariants::createTransformVariant(scene.transforms("Door", {"A"}, 0, 0), true),
            transform);
  EXPECT_THAT(options(*node), IsEmpty());
  EXPECT_THAT(options(*transform), IsEmpty());
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(kuVariantsCreationTest, PlainMaterialIsWrappedAndThenAnnounced) {
  const auto* paint = kuVariants::createMaterialVariant(scene.material("Paint"), true);
  ASSERT_TRUE(paint);
  EXPECT_EQ(paint->getName(), "Paint Switch");
  EXPECT_TRUE(inPool("Paint Switch"));
  EXPECT_THAT(messages.lines(),
              ElementsAre("#65536", "materialVariantAdded/1 variant:void*=kuVariant Paint Switch"));
}

TEST_F(kuVariantsCreationTest, PlainMaterialFindsTheVariantOfItsSwitch) {
  const auto paint = scene.material("Paint");
  const auto* existing = kuVariants::createMaterialVariant(paint, false);
  const auto* namesake = kuVariants::createMaterialVariant("Paint", false);
  messages.clear();
  EXPECT_EQ(kuVariants::createMaterialVariant(paint, true), existing);
  EXPECT_NE(existing, namesake);
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(kuVariantsCreationTest, MaterialWithStatesFindsTheVariantOfItsOwnName) {
  const auto paint = scene.presetMaterial("Paint", {"Matte", "Gloss"}, 0);
  kuVariants::createMaterialVariant("Paint Switch", false);
  const auto* created = kuVariants::createMaterialVariant(paint, true);
  ASSERT_TRUE(created);
  EXPECT_EQ(created->getName(), "Paint");
  EXPECT_EQ(kuVariants::createMaterialVariant(paint, true), created);
  EXPECT_FALSE(inPool("Paint Switch"));
  EXPECT_THAT(messages.lines(),
              ElementsAre("materialVariantAdded/1 variant:void*=kuVariant Paint"));
}

TEST_F(kuVariantsCreationTest, LostSwitchOfAKnownVariantIsMadeAnew) {
  const auto* known = kuVariants::createMaterialVariant("Paint Switch", false);
  const auto paint = scene.material("Paint");
  EXPECT_EQ(kuVariants::createMaterialVariant(paint, true), known);
  EXPECT_TRUE(inPool("Paint Switch"));
  EXPECT_THAT(options(*known), IsEmpty());
  EXPECT_THAT(kuVariants::getMaterialVariants(), ElementsAre(known));
  EXPECT_THAT(messages.lines(), ElementsAre("#65536"));
}

TEST_F(kuVariantsCreationTest, KnownVariantThatAReceiverRemovesDuringTheRepairIsNotAnswered) {
  kuVariants::createMaterialVariant("Paint Switch", false);
  const kuStandalone::MessageWatch watch([](const kuStandalone::PassedMessage& message) {
    if (message.record->number()) kuVariants::removeMaterialVariant("Paint Switch");
  });
  EXPECT_EQ(kuVariants::createMaterialVariant(scene.material("Paint"), true), nullptr);
}

TEST_F(kuVariantsCreationTest, LookForTheSwitchOfAMaterialWithStatesChangesNothing) {
  const auto paint = scene.presetMaterial("Paint", {"Matte", "Gloss"}, 0);
  const auto* known = kuVariants::createMaterialVariant("Paint", false);
  EXPECT_EQ(kuVariants::createMaterialVariant(paint, true), known);
  EXPECT_FALSE(inPool("Paint Switch"));
  EXPECT_THAT(messages.lines(), IsEmpty());
}
