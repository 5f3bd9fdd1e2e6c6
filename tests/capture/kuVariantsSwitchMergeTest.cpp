// A new switch is merged into an equal earlier one. No capture does so by itself.

#include "capture/MaterialCaptureTest.h"
#include "support/BracketRecorder.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class kuVariantsSwitchMergeTest : public MaterialCaptureTest {
 protected:
  kuVariantsSwitchMergeTest() {
    for (const char* name : {"First", "Second"})
      kuVariants::createMaterialVariant(findSwitch(name), false);
    setWith("A", {{"Roof", "Second"}, {"Hood", "Second"}}).addMaterialVariant("Second", "Red");
    kuVariantSet& b = setWith("B", {{"Roof", "Other"}});
    b.addMaterialVariant("First", "Blue");
    b.addMaterialVariant("Second", "Blue");
    setWith("C", {{"Hood", "Second"}}).addMaterialVariant("Other", "Red");
    met.createdSwitches = {first, second};
  }

  void optimize(const osg::MaterialPtr& oldMaterial) {
    kuVariantsTestAccess::optimizeMaterialSwitches(roof, "Roof", oldMaterial, second, met);
  }
  Texts createdSwitches() const {
    Texts names;
    for (const osg::SwitchMaterialPtr& material : met.createdSwitches)
      names.emplace_back(kuMaterials::getName(material));
    return names;
  }
  static Texts variants() {
    Texts names;
    for (const kuMaterialVariant* variant : kuVariants::getMaterialVariants())
      names.push_back(variant->getName().toStdString());
    return names;
  }
  /** Fails unless everything is as it was at the start, the roof's material apart. */
  void expectNothingDone(const char* roofs) {
    EXPECT_THAT(sets(), ElementsAre("A: Hood=Second Roof=Second | Second=Red",
                                    "B: Roof=Other | First=Blue Second=Blue",
                                    "C: Hood=Second | Other=Red"));
    EXPECT_THAT(variants(), ElementsAre("First", "Second"));
    EXPECT_THAT(nodes(), ElementsAre(std::string("Roof: ") + roofs));
    EXPECT_THAT(messages.lines(), IsEmpty());
  }

  const osg::MaterialPtr red = scene.material("Red");
  const osg::MaterialPtr blue = scene.material("Blue");
  const osg::SwitchMaterialPtr first = scene.switchMaterial("First", {red, blue}, 0);
  const osg::SwitchMaterialPtr second = scene.switchMaterial("Second", {red, blue}, 1);
  const osg::NodePtr roof = scene.geometry("Roof", second);
  kuVariantsTestAccess::CaptureContainers met;
};

}  // namespace

TEST_F(kuVariantsSwitchMergeTest, NewSwitchGivesWayToAnEqualEarlierOne) {
  optimize(red);
  EXPECT_THAT(nodes(), ElementsAre("Roof: First"));
  EXPECT_THAT(switches(), ElementsAre("First: *Red Blue"));
  EXPECT_THAT(createdSwitches(), ElementsAre("First"));
  EXPECT_THAT(variants(), ElementsAre("First"));
  // Each set loses its state; snapshots change where the set has the path, whatever they named.
  EXPECT_THAT(sets(), ElementsAre("A: Hood=Second Roof=First", "B: Roof=First | First=Blue",
                                  "C: Hood=Second | Other=Red"));
  EXPECT_THAT(messages.lines(), ElementsAre("materialVariantRemoved/1 bare"));
}

TEST_F(kuVariantsSwitchMergeTest, NewSwitchNeedNotBeAmongTheCreatedOnes) {
  met.createdSwitches = {first};
  optimize(red);
  EXPECT_THAT(nodes(), ElementsAre("Roof: First"));
  EXPECT_THAT(createdSwitches(), ElementsAre("First"));
}

TEST_F(kuVariantsSwitchMergeTest, FirstEqualOneOfTheContainerIsTaken) {
  const osg::SwitchMaterialPtr third = scene.switchMaterial("Third", {red, blue}, 0);
  met.createdSwitches = {first, second, third};
  const osg::SwitchMaterialPtr expected = first < third ? first : third;
  optimize(red);
  EXPECT_EQ(kuNodeUtils::getMaterial(roof), expected);
  EXPECT_EQ(met.createdSwitches.size(), 2u);
}

TEST_F(kuVariantsSwitchMergeTest, NullSwitchInTheContainerIsPassedOver) {
  met.createdSwitches = {osg::SwitchMaterialPtr(), first};
  optimize(red);
  EXPECT_THAT(nodes(), ElementsAre("Roof: First"));
}

TEST_F(kuVariantsSwitchMergeTest, MergedSwitchIsTakenOffItsOtherNodesToo) {
  const osg::NodePtr hood = scene.geometry("Hood", second);
  optimize(red);
  EXPECT_FALSE(kuNodeUtils::getMaterial(hood));
}

TEST_F(kuVariantsSwitchMergeTest, NodeOfAMaterialGroupGetsTheEarlierSwitchToo) {
  const osg::NodePtr group = scene.materialGroup("Group", second);
  kuVariantsTestAccess::optimizeMaterialSwitches(group, "Roof", red, second, met);
  EXPECT_EQ(kuNodeUtils::getMaterial(group), first);
}

TEST_F(kuVariantsSwitchMergeTest, NodeWithoutAMaterialStaysAsItIs) {
  bear(roof, osg::NullFC);
  optimize(red);
  EXPECT_THAT(nodes(), IsEmpty());
  EXPECT_THAT(variants(), ElementsAre("First", "Second"));
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(kuVariantsSwitchMergeTest, NodeThatKeptItsMaterialStaysAsItIs) {
  optimize(second);
  expectNothingDone("Second");
}

TEST_F(kuVariantsSwitchMergeTest, NodeWithAPlainMaterialStaysAsItIs) {
  bear(roof, red);
  optimize(blue);
  expectNothingDone("Red");
}

TEST_F(kuVariantsSwitchMergeTest, SwitchIsNotMergedIntoItself) {
  met.createdSwitches = {second};
  optimize(red);
  expectNothingDone("Second");
  EXPECT_THAT(createdSwitches(), ElementsAre("Second"));
}

TEST_F(kuVariantsSwitchMergeTest, SwitchThatNoOtherEqualsIsNotMerged) {
  met.createdSwitches = {scene.switchMaterial("Turned", {blue, red}, 0), second};
  optimize(red);
  expectNothingDone("Second");
}

TEST_F(kuVariantsSwitchMergeTest, EmptySwitchesAreNotMerged) {
  const osg::SwitchMaterialPtr empty = scene.switchMaterial("Empty", {}, 0);
  met.createdSwitches = {scene.switchMaterial("Other empty", {}, 0), empty};
  bear(roof, empty);
  optimize(red);
  expectNothingDone("Empty");
}
