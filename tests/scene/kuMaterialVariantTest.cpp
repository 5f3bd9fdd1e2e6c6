#include "scene/kuMaterialVariant.h"

#include <memory>

#include "ToldStateMaterial.h"
#include "host/utils/kuMaterials.h"
#include "support/MessageReceiver.h"
#include "support/MessageRecorder.h"
#include "support/SceneTest.h"
#include "support/VariantText.h"
#include "support/kuVariantsTestAccess.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

using Texts = std::vector<std::string>;

const Texts Steps = {"!Next *", "!Next (Loop) *", "!Previous *", "!Previous (Loop) *"};

Texts stepsAnd(const Texts& states) {
  Texts texts = Steps;
  texts.insert(texts.end(), states.begin(), states.end());
  return texts;
}

Texts subMaterialNames(const osg::SwitchMaterialPtr& material) {
  Texts names;
  material->getStateNames(names);
  return names;
}

osg::MaterialPtr find(const char* name) { return kuMaterials::findMaterial(name); }

class MaterialVariant : public SceneTest {
 protected:
  /** A switch "Paint" of materials of those names. */
  osg::SwitchMaterialPtr paint(const Texts& names, unsigned choice) {
    std::vector<osg::MaterialPtr> materials;
    for (const std::string& name : names)
      materials.push_back(scene.material(name));
    return scene.switchMaterial("Paint", materials, choice);
  }

  MessageRecorder messages{[](const void* pointer) {
    return static_cast<const kuVariant*>(pointer)->getName().toStdString();
  }};
};

// Construction.

TEST_F(MaterialVariant, DefaultMadeAndNullMaterialGiveEmptyVariants) {
  EXPECT_THAT(optionTexts(kuMaterialVariant()), IsEmpty());
  EXPECT_THAT(optionTexts(kuMaterialVariant(osg::MaterialPtr())), IsEmpty());
}

TEST_F(MaterialVariant, SwitchGivesStepsThenItsSubMaterials) {
  const kuMaterialVariant variant(paint({"Red", "Blue"}, 1));
  EXPECT_EQ(variant.getName(), "Paint");
  EXPECT_EQ(variant.getMaterial(), "Paint");
  EXPECT_EQ(variant.getDefault(), "Blue");
  EXPECT_EQ(optionTexts(variant), stepsAnd({"Red", "Blue"}));
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(MaterialVariant, DefaultIsThePresentStateOrElseTheFirst) {
  const auto defaultAt = [&](int told, const Texts& states) {
    scene = SceneBuilder();
    return kuMaterialVariant(ToldStateMaterial::create("Paint", states, told)).getDefault();
  };
  EXPECT_EQ(defaultAt(1, {"Red", "Blue"}), "Blue");
  EXPECT_EQ(defaultAt(2, {"Red", "Blue"}), "Red");
  EXPECT_EQ(defaultAt(-1, {"Red", "Blue"}), "Red");
  EXPECT_EQ(defaultAt(ToldStateMaterial::TellsNone, {"Red", "Blue"}), "Red");
  EXPECT_EQ(defaultAt(0, {}), "");
}

TEST_F(MaterialVariant, PlainMaterialIsWrappedAndTheSwitchTakesItsPlace) {
  const osg::MaterialPtr plain = scene.material("M");
  const osg::NodePtr geometry = scene.geometry("Part", plain);
  const osg::NodePtr group = scene.materialGroup("Body", plain);
  const kuMaterialVariant variant(plain);
  EXPECT_EQ(variant.getName(), "M Switch");
  EXPECT_EQ(variant.getMaterial(), "M Switch");
  EXPECT_EQ(variant.getDefault(), "M");
  EXPECT_EQ(optionTexts(variant), stepsAnd({"M"}));
  const auto created = osg::SwitchMaterialPtr::dcast(find("M Switch"));
  ASSERT_TRUE(created);
  EXPECT_EQ(subMaterialNames(created), Texts{"M"});
  EXPECT_EQ(created->getChoice(), 0u);
  EXPECT_EQ(osg::GeometryPtr::dcast(geometry->getCore())->getMaterial(), created);
  EXPECT_EQ(osg::MaterialGroupPtr::dcast(group->getCore())->getMaterial(), created);
  EXPECT_THAT(messages.lines(), ElementsAre("#65536"));
}

TEST_F(MaterialVariant, WrappingTwiceGivesTwoSwitches) {
  const osg::MaterialPtr plain = scene.material("M");
  const kuMaterialVariant first(plain);
  const kuMaterialVariant second(plain);
  EXPECT_EQ(kuMaterials::findMaterials("M Switch").size(), 2u);
}

TEST_F(MaterialVariant, UnnamedPlainMaterialGivesAnEmptyVariantAndLeavesTheScene) {
  const osg::MaterialPtr plain = scene.material("");
  const osg::NodePtr part = scene.geometry("Part", plain);
  const kuMaterialVariant variant(plain);
  EXPECT_EQ(variant.getMaterial(), "");
  EXPECT_THAT(optionTexts(variant), IsEmpty());
  EXPECT_EQ(osg::GeometryPtr::dcast(part->getCore())->getMaterial(), plain);
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(MaterialVariant, UnnamedSwitchLeavesTheNamesEmptyAndGivesOptions) {
  const kuMaterialVariant variant(scene.switchMaterial("", {scene.material("Red")}, 0));
  EXPECT_EQ(variant.getName(), "");
  EXPECT_EQ(optionTexts(variant), stepsAnd({"Red"}));
}

// Selection.

TEST_F(MaterialVariant, SelectedStateIsSetAndToldWithItsNameAsBytes) {
  const osg::SwitchMaterialPtr material = paint({"Red", "Blue"}, 0);
  kuMaterialVariant variant(material);
  variant.setName("V");
  variant.select(QString("Blue"));
  EXPECT_EQ(material->getChoice(), 1u);
  EXPECT_THAT(messages.lines(),
              ElementsAre("variantsMaterialChanged/1 variantName:string=V materialName:chars=Blue "
                          "materialBaseName:string=Paint",
                          "materialVariantSelected/1 variant:void*=V"));
}

TEST_F(MaterialVariant, NextAtTheLastStateSetsAndTellsItAgain) {
  const osg::SwitchMaterialPtr material = paint({"Red", "Blue"}, 1);
  kuMaterialVariant(material).select(QString("!Next"));
  EXPECT_EQ(material->getChoice(), 1u);
  EXPECT_THAT(messages.lines(), ElementsAre("variantsMaterialChanged/1 variantName:string=Paint "
                                            "materialName:chars=Blue materialBaseName:string=Paint",
                                            "materialVariantSelected/1 variant:void*=Paint"));
}

TEST_F(MaterialVariant, PreviousFromBeyondTheLastLandsOnTheLast) {
  const auto material = ToldStateMaterial::create("Paint", {"Red", "Blue", "Green"}, 7);
  kuMaterialVariant(material).select(QString("!Previous"));
  EXPECT_THAT(material->set, ElementsAre(2));
}

TEST_F(MaterialVariant, MaterialWithoutAPresentStateStepsAsFromTheFirst) {
  const auto material =
      ToldStateMaterial::create("Paint", {"Red", "Blue"}, ToldStateMaterial::TellsNone);
  kuMaterialVariant(material).select(QString("!Next"));
  EXPECT_THAT(material->set, ElementsAre(1));
  EXPECT_EQ(kuVariantsTestAccess::presentState(material), 0);
  material->told = 7;
  EXPECT_EQ(kuVariantsTestAccess::presentState(material), 7);
}

TEST_F(MaterialVariant, EachMaterialOfTheNameStepsFromItsOwnState) {
  const auto first = ToldStateMaterial::create("Paint", {"Red", "Blue", "Green"}, 0);
  const auto second = ToldStateMaterial::create("Paint", {"Red", "Blue", "Green"}, 1);
  kuMaterialVariant(first).select(QString("!Next"));
  EXPECT_THAT(first->set, ElementsAre(1));
  EXPECT_THAT(second->set, ElementsAre(2));
  EXPECT_EQ(messages.linesOf("variantsMaterialChanged").size(), 2u);
}

TEST_F(MaterialVariant, OfEqualStatesTheFirstIsSetAlsoByAStep) {
  const auto material = ToldStateMaterial::create("Paint", {"Red", "Blue", "Red"}, 1);
  kuMaterialVariant(material).select(QString("!Next"));
  EXPECT_THAT(material->set, ElementsAre(0));
}

TEST_F(MaterialVariant, UnknownStateIsSilentAndOnlyTheSelectionIsTold) {
  const osg::SwitchMaterialPtr material = paint({"Red", "Blue"}, 1);
  kuMaterialVariant(material).select(QString("Gone"));
  EXPECT_EQ(material->getChoice(), 1u);
  EXPECT_THAT(log, IsEmpty());
  EXPECT_THAT(messages.lines(), ElementsAre("materialVariantSelected/1 variant:void*=Paint"));
}

TEST_F(MaterialVariant, MaterialWithoutStatesIsPassedOver) {
  scene.material("Plain");
  kuMaterialVariant variant;
  variant.setMaterial("Plain");
  variant.select(QString("!Next"));
  EXPECT_EQ(variant.getCurrent(), "");
  EXPECT_THAT(messages.lines(), ElementsAre("materialVariantSelected/1 variant:void*="));
}

TEST_F(MaterialVariant, CurrentIsThePresentStateOrEmpty) {
  const auto material = ToldStateMaterial::create("Paint", {"Red", "Blue"}, 1);
  const kuMaterialVariant variant(material);
  EXPECT_EQ(variant.getCurrent(), "Blue");
  for (const int told : {-1, 2, ToldStateMaterial::TellsNone}) {
    material->told = told;
    EXPECT_EQ(variant.getCurrent(), "") << told;
  }
}

TEST_F(MaterialVariant, CurrentOfAMissingMaterialIsEmpty) {
  kuMaterialVariant variant;
  variant.setMaterial("Gone");
  EXPECT_EQ(variant.getCurrent(), "");
}

class MaterialVariantReceivers : public SceneTest {};

TEST_F(MaterialVariantReceivers, ReceiverMayDeleteTheVariantInTheMidstOfItsSelection) {
  const auto first = ToldStateMaterial::create("Paint", {"Red", "Blue"}, 0);
  const auto second = ToldStateMaterial::create("Paint", {"Red", "Blue"}, 0);
  auto variant = std::make_unique<kuMaterialVariant>(first);
  variant->setDefault(QString("Blue"));
  void* const before = static_cast<kuVariant*>(variant.get());
  void* selected = nullptr;
  const kuStandalone::MessageWatch watch([&](const kuStandalone::PassedMessage& message) {
    if (message.name == "materialVariantSelected") message.record->get("variant", selected);
  });
  const MessageReceiver receiver("variantsMaterialChanged", [&](kuMessage&) { variant.reset(); });
  variant->select();
  EXPECT_THAT(second->set, ElementsAre(1));
  EXPECT_EQ(selected, before);
}

TEST_F(MaterialVariantReceivers, ReceiverMayRenameTheStateWhoseNameItReads) {
  const osg::MaterialPtr red = scene.material("Red");
  kuMaterialVariant variant(scene.switchMaterial("Paint", {red}, 0));
  std::string read;
  const MessageReceiver receiver("variantsMaterialChanged", [&](kuMessage& message) {
    const char* name = nullptr;
    message.get("materialName", name);
    kuMaterials::setName(red, "A name that is much longer than the one before", true);
    read = name;
  });
  variant.select(QString("Red"));
  EXPECT_EQ(read, "Red");
}

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

}  // namespace
