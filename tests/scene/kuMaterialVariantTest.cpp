#include "scene/kuMaterialVariant.h"

#include <memory>

#include "MaterialVariantTest.h"
#include "ToldStateMaterial.h"
#include "support/BracketRecorder.h"
#include "support/MessageReceiver.h"
#include "support/VariantText.h"
#include "support/kuVariantsTestAccess.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

namespace {

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

TEST_F(MaterialVariant, WrappingIsToldOnceTheSwitchStandsInThePoolAndAtItsUsers) {
  const osg::MaterialPtr plain = scene.material("M");
  const osg::NodePtr part = scene.geometry("Part", plain);
  osg::MaterialPtr pooled;
  osg::MaterialPtr used;
  const kuStandalone::MessageWatch watch([&](const kuStandalone::PassedMessage& message) {
    if (message.record->number() != 0x10000) return;
    pooled = find("M Switch");
    used = osg::GeometryPtr::dcast(part->getCore())->getMaterial();
  });
  const kuMaterialVariant variant(plain);
  EXPECT_TRUE(pooled);
  EXPECT_EQ(used, pooled);
}

TEST_F(MaterialVariant, WrappingLeavesTheUsersOfOtherMaterials) {
  const osg::MaterialPtr other = scene.material("Other");
  const osg::NodePtr part = scene.geometry("Part", other);
  const kuMaterialVariant variant(scene.material("M"));
  EXPECT_EQ(osg::GeometryPtr::dcast(part->getCore())->getMaterial(), other);
}

TEST_F(MaterialVariant, WrappingChangesTheSceneInBracketsOfAllFields) {
  const osg::MaterialPtr plain = scene.material("M");
  scene.materialGroup("Body", plain);
  scene.geometry("Part", plain);
  const BracketRecorder recorder;
  const kuMaterialVariant variant(plain);
  const auto ofAll = [](const char* type) { return Pair(type, osg::AllFieldsMask); };
  // The first is the naming of the switch.
  EXPECT_THAT(recorder.brackets(),
              ElementsAre(ofAll("SwitchMaterial"), ofAll("SwitchMaterial"), ofAll("MaterialPool"),
                          ofAll("MaterialGroup"), ofAll("Geometry")));
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

TEST_F(MaterialVariant, StateIsSetBeforeItIsTold) {
  const auto material = ToldStateMaterial::create("Paint", {"Red", "Blue"}, 0);
  std::vector<int> setWhenTold;
  const MessageReceiver receiver("variantsMaterialChanged",
                                 [&](kuMessage&) { setWhenTold = material->set; });
  kuMaterialVariant(material).select(QString("Blue"));
  EXPECT_THAT(setWhenTold, ElementsAre(1));
}

TEST_F(MaterialVariant, ReceiverThatRenamesTheVariantFindsTheNewNamesAtTheNextMaterial) {
  const auto first = ToldStateMaterial::create("Paint", {"Red"}, 0);
  const auto second = ToldStateMaterial::create("Paint", {"Red"}, 0);
  kuMaterialVariant variant(first);
  const MessageReceiver receiver("variantsMaterialChanged", [&](kuMessage&) {
    variant.setName("Renamed");
    variant.setMaterial("Elsewhere");
  });
  variant.select(QString("Red"));
  EXPECT_THAT(second->set, ElementsAre(0));
  EXPECT_THAT(messages.linesOf("variantsMaterialChanged"),
              ElementsAre("variantsMaterialChanged/1 variantName:string=Paint "
                          "materialName:chars=Red materialBaseName:string=Paint",
                          "variantsMaterialChanged/1 variantName:string=Renamed "
                          "materialName:chars=Red materialBaseName:string=Elsewhere"));
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

}  // namespace
