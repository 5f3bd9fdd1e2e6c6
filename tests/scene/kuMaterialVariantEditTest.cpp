#include "MaterialVariantTest.h"
#include "ToldStateMaterial.h"
#include "scene/kuMaterialVariant.h"
#include "support/BracketRecorder.h"
#include "support/VariantText.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

namespace {

// Editing.

TEST_F(MaterialVariant, EditableAreUnlockedSwitchesAlone) {
  const osg::SwitchMaterialPtr material = paint({"Red"}, 0);
  const kuMaterialVariant variant(material);
  EXPECT_TRUE(variant.isEditable());
  EXPECT_TRUE(kuMaterialVariant(scene.environmentSwitchMaterial("Sky", {}, 0)).isEditable());
  material->hostFields().locked = true;
  EXPECT_FALSE(variant.isEditable());
  EXPECT_FALSE(kuMaterialVariant().isEditable());
}

TEST_F(MaterialVariant, AddOfAMaterialAppendsItAndItsOption) {
  const osg::SwitchMaterialPtr material = paint({"Red"}, 0);
  kuMaterialVariant variant(material);
  variant.add(scene.material("Blue"), "F5");
  EXPECT_EQ(subMaterialNames(material), (Texts{"Red", "Blue"}));
  EXPECT_EQ(optionTexts(variant), stepsAnd({"Red", "Blue [F5]"}));
  EXPECT_THAT(messages.lines(), ElementsAre("updateMaterials/1 bare"));
}

TEST_F(MaterialVariant, AddOfASubMaterialLeavesTheSwitchAndMindsTheOptionAlone) {
  const osg::SwitchMaterialPtr material = paint({"Red"}, 0);
  kuMaterialVariant variant(material);
  variant.add(material->getMaterial(0), "F5");
  EXPECT_EQ(optionTexts(variant), stepsAnd({"Red"}));
  variant.clear();
  variant.add(material->getMaterial(0), "F5");
  EXPECT_EQ(optionTexts(variant), Texts{"Red [F5]"});
  EXPECT_EQ(subMaterialNames(material), Texts{"Red"});
  EXPECT_EQ(messages.lines().size(), 2u);
}

TEST_F(MaterialVariant, AddOfANameChangesTheOptionsUntilTheNextUpdate) {
  const osg::SwitchMaterialPtr material = paint({"Red"}, 0);
  kuMaterialVariant variant(material);
  variant.add(QString("Blue"), "F5");
  EXPECT_EQ(optionTexts(variant), stepsAnd({"Red", "Blue [F5]"}));
  EXPECT_EQ(subMaterialNames(material), Texts{"Red"});
  EXPECT_THAT(messages.lines(), IsEmpty());
  variant.updateVariants();
  EXPECT_EQ(optionTexts(variant), stepsAnd({"Red"}));
}

TEST_F(MaterialVariant, RemoveOfAMaterialTakesItOutWithItsOption) {
  const osg::SwitchMaterialPtr material = paint({"Red", "Blue"}, 0);
  kuMaterialVariant variant(material);
  variant.remove(material->getMaterial(0));
  EXPECT_EQ(subMaterialNames(material), Texts{"Blue"});
  EXPECT_EQ(optionTexts(variant), stepsAnd({"Blue"}));
  EXPECT_THAT(messages.lines(), ElementsAre("updateMaterials/1 bare"));
}

TEST_F(MaterialVariant, RemoveOfANamePassesOverTheSecondOfTwoNeighbours) {
  const osg::SwitchMaterialPtr material = paint({"Red", "Red", "Blue", "Red"}, 0);
  kuMaterialVariant variant(material);
  variant.remove(QString("Red"));
  EXPECT_EQ(subMaterialNames(material), (Texts{"Red", "Blue"}));
  EXPECT_EQ(optionTexts(variant), stepsAnd({"Blue"}));
  EXPECT_THAT(messages.lines(), ElementsAre("updateMaterials/1 bare"));
}

TEST_F(MaterialVariant, RemoveOfANameLeavesOneOfThreeNeighbours) {
  const osg::SwitchMaterialPtr material = paint({"Red", "Red", "Red"}, 0);
  const osg::MaterialPtr second = material->getMaterial(1);
  kuMaterialVariant(material).remove(QString("Red"));
  ASSERT_EQ(subMaterialNames(material), Texts{"Red"});
  EXPECT_EQ(material->getMaterial(0), second);
}

TEST_F(MaterialVariant, RemoveOfANameWithoutAMatchIsToldAllTheSame) {
  const osg::SwitchMaterialPtr material = paint({"Red"}, 0);
  kuMaterialVariant variant(material);
  variant.remove(QString("Gone"));
  variant.remove(QString());
  EXPECT_EQ(subMaterialNames(material), Texts{"Red"});
  EXPECT_THAT(messages.lines(), ElementsAre("updateMaterials/1 bare", "updateMaterials/1 bare"));
}

TEST_F(MaterialVariant, RemoveOfTheEmptyNameTakesAnUnnamedSubMaterialOut) {
  const osg::SwitchMaterialPtr material = paint({"", "Red"}, 0);
  kuMaterialVariant(material).remove(QString());
  EXPECT_EQ(subMaterialNames(material), Texts{"Red"});
}

TEST_F(MaterialVariant, AddAndRemoveOfAnUnnamedMaterialDoNothing) {
  const osg::SwitchMaterialPtr material = paint({"", "Red"}, 0);
  kuMaterialVariant variant(material);
  variant.add(scene.material(""), "");
  variant.remove(material->getMaterial(0));
  EXPECT_EQ(material->getMaterials().size(), 2u);
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(MaterialVariant, NullMaterialIsNeitherAddedNorRemoved) {
  kuMaterialVariant variant(paint({"Red"}, 0));
  variant.add(osg::MaterialPtr(), "");
  variant.remove(osg::MaterialPtr());
  EXPECT_EQ(optionTexts(variant), stepsAnd({"Red"}));
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(MaterialVariant, RemoveOfAStrangerTakesTheOptionOfItsNameOut) {
  const osg::SwitchMaterialPtr material = paint({"Red"}, 0);
  kuMaterialVariant variant(material);
  variant.remove(scene.material("Red"));
  EXPECT_EQ(subMaterialNames(material), Texts{"Red"});
  EXPECT_EQ(optionTexts(variant), stepsAnd({}));
  EXPECT_THAT(messages.lines(), ElementsAre("updateMaterials/1 bare"));
}

TEST_F(MaterialVariant, SubMaterialsChangeInBracketsOfTheirFieldAndAreToldAfterwards) {
  const osg::SwitchMaterialPtr material = paint({"Red"}, 0);
  kuMaterialVariant variant(material);
  const BracketRecorder recorder;
  std::vector<std::size_t> closedWhenTold;
  const kuStandalone::MessageWatch watch([&](const kuStandalone::PassedMessage&) {
    closedWhenTold.push_back(recorder.brackets().size());
  });
  const osg::MaterialPtr blue = scene.material("Blue");
  variant.add(blue, "");
  variant.add(blue, "");
  variant.remove(blue);
  variant.remove(blue);
  variant.remove(QString("Red"));
  variant.remove(QString("Red"));
  const auto edit = Pair("SwitchMaterial", osg::MultiMaterialBase::MaterialsFieldMask);
  EXPECT_THAT(recorder.brackets(), ElementsAre(edit, edit, edit, edit));
  EXPECT_THAT(closedWhenTold, ElementsAre(1u, 1u, 2u, 3u, 4u, 4u));
}

TEST_F(MaterialVariant, OptionsAreChangedBeforeTheSubMaterialsAreTold) {
  kuMaterialVariant variant(paint({"Red"}, 0));
  std::vector<std::size_t> optionsWhenTold;
  const kuStandalone::MessageWatch watch([&](const kuStandalone::PassedMessage&) {
    optionsWhenTold.push_back(variant.getOptions().size());
  });
  const osg::MaterialPtr blue = scene.material("Blue");
  variant.add(blue, "");
  variant.remove(blue);
  variant.remove(QString("Red"));
  EXPECT_THAT(optionsWhenTold, ElementsAre(6u, 5u, 4u));
}

TEST_F(MaterialVariant, MissingLockedAndOtherMaterialsAreNotEdited) {
  const osg::MaterialPtr blue = scene.material("Blue");
  const osg::SwitchMaterialPtr locked = paint({"Red"}, 0);
  locked->hostFields().locked = true;
  scene.material("Plain");
  for (const char* name : {"Gone", "Paint", "Plain"}) {
    kuMaterialVariant variant;
    variant.setMaterial(name);
    variant.add(blue, "");
    variant.remove(blue);
    variant.remove(QString("Red"));
    EXPECT_THAT(optionTexts(variant), IsEmpty()) << name;
  }
  EXPECT_EQ(subMaterialNames(locked), Texts{"Red"});
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(MaterialVariant, PresetsCannotBeEditedButSelectedByName) {
  const osg::MaterialPtr presets = scene.presetMaterial("Leather", {"Matte", "Gloss"}, 0);
  kuMaterialVariant variant(presets);
  EXPECT_FALSE(variant.isEditable());
  variant.add(scene.material("Blue"), "");
  variant.remove(QString("Matte"));
  EXPECT_EQ(optionTexts(variant), stepsAnd({"Matte", "Gloss"}));
  EXPECT_THAT(messages.lines(), IsEmpty());
  variant.select(QString("Gloss"));
  EXPECT_EQ(variant.getCurrent(), "Gloss");
}

// Rebuilding.

TEST_F(MaterialVariant, UpdateKeepsHotkeysAndFlagsAndFollowsTheStates) {
  kuMaterialVariant variant(paint({"Red", "Blue"}, 0));
  variant.find("!Next")->setHotkey("F5");
  variant.find("!Previous")->setAction(false);
  variant.find("Red")->setHotkey("F6");
  variant.find("Red")->setAction(true);
  variant.remove(QString("Blue"));
  variant.add(scene.material("Green"), "");
  variant.updateVariants();
  EXPECT_EQ(optionTexts(variant), (Texts{"!Next * [F5]", "!Next (Loop) *", "!Previous *",
                                         "!Previous (Loop) *", "Red * [F6]", "Green"}));
}

TEST_F(MaterialVariant, UpdateBringsUnseenStepsBackAsNormalOptions) {
  paint({"Red"}, 0);
  kuMaterialVariant variant;
  variant.setMaterial("Paint");
  variant.updateVariants();
  EXPECT_EQ(optionTexts(variant),
            (Texts{"!Next", "!Next (Loop)", "!Previous", "!Previous (Loop)", "Red"}));
}

TEST_F(MaterialVariant, UpdateRestoresTheOldDefaultOrTakesThePresentState) {
  const osg::SwitchMaterialPtr material = paint({"Red", "Blue"}, 1);
  const std::vector<std::pair<const char*, const char*>> expected = {
      {"Red", "Red"}, {"Gone", "Blue"}, {"!Next", "Blue"}, {"", "Blue"}};
  for (const auto& [before, after] : expected) {
    kuMaterialVariant variant(material);
    variant.setDefault(QString(before));
    variant.updateVariants();
    EXPECT_EQ(variant.getDefault(), after) << before;
  }
}

TEST_F(MaterialVariant, UpdateWithoutAPresentStateKeepsADefaultThatNamesNothing) {
  kuMaterialVariant variant(
      ToldStateMaterial::create("Paint", {"Red"}, ToldStateMaterial::TellsNone));
  variant.setDefault(QString("Gone"));
  variant.updateVariants();
  EXPECT_EQ(variant.getDefault(), "Gone");
}

TEST_F(MaterialVariant, UpdateAtAnIndexBeyondTheStatesKeepsADefaultThatNamesNothing) {
  for (const int told : {-1, 1}) {
    kuMaterialVariant variant(ToldStateMaterial::create("Paint", {"Red"}, told));
    variant.setDefault(QString("Gone"));
    variant.updateVariants();
    EXPECT_EQ(variant.getDefault(), "Gone") << told;
    scene = SceneBuilder();
  }
}

TEST_F(MaterialVariant, UpdateAsksForThePresentStateAlsoWhereTheDefaultIsRestored) {
  const auto material = ToldStateMaterial::create("Paint", {"Red", "Blue"}, 1);
  kuMaterialVariant variant(material);
  variant.setDefault(QString("Red"));
  const int before = material->asked;
  variant.updateVariants();
  EXPECT_EQ(material->asked, before + 1);
  EXPECT_EQ(variant.getDefault(), "Red");
}

TEST_F(MaterialVariant, UpdateWithoutAMaterialWithStatesEmptiesTheOptionsAndKeepsTheDefault) {
  scene.material("Plain");
  for (const char* name : {"Gone", "Plain"}) {
    scene.material("Red");
    kuMaterialVariant variant;
    variant.add(QString("Red"), "F5");
    variant.setDefault(QString("Red"));
    variant.setMaterial(name);
    variant.updateVariants();
    EXPECT_THAT(optionTexts(variant), IsEmpty()) << name;
    EXPECT_EQ(variant.getDefault(), "Red") << name;
  }
}

TEST_F(MaterialVariant, HideAndShowTouchTheUsersAloneAndNoSubtree) {
  const osg::SwitchMaterialPtr material = paint({"Red"}, 0);
  const osg::NodePtr group = scene.materialGroup("Body", material);
  const osg::NodePtr below = scene.group("Below", group);
  const osg::NodePtr part = scene.geometry("Part", material);
  kuMaterialVariant variant(material);
  variant.hideGeometry();
  EXPECT_FALSE(group->getActive());
  EXPECT_FALSE(part->getActive());
  EXPECT_TRUE(below->getActive());
  SceneBuilder::setActive(below, false);
  variant.showGeometry();
  EXPECT_TRUE(group->getActive());
  EXPECT_TRUE(part->getActive());
  EXPECT_FALSE(below->getActive());
}

TEST_F(MaterialVariant, HideAndShowReachTheUsersOfEveryMaterialOfTheNameInBracketsOfTheFlag) {
  const osg::NodePtr first = scene.geometry("First", scene.material("Paint"));
  const osg::NodePtr second = scene.geometry("Second", scene.material("Paint"));
  kuMaterialVariant variant;
  variant.setMaterial("Paint");
  const BracketRecorder recorder;
  variant.hideGeometry();
  EXPECT_FALSE(first->getActive());
  EXPECT_FALSE(second->getActive());
  variant.showGeometry();
  EXPECT_TRUE(first->getActive());
  EXPECT_TRUE(second->getActive());
  const auto flag = Pair("Node", osg::Node::TravMaskFieldMask);
  EXPECT_THAT(recorder.brackets(), ElementsAre(flag, flag, flag, flag));
}

}  // namespace
