// The optimisation of a set as a whole, and of all sets.

#include <functional>

#include "capture/CaptureTest.h"
#include "standalone/scene/MaterialFields.h"
#include "standalone/scene/ScenePool.h"
#include "support/BracketRecorder.h"
#include "support/ManagerDump.h"
#include "support/SceneDump.h"

using kuStandalone::Scene;
using kuStandalone::ScenePool;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class kuVariantSetOptimisationTest : public CaptureTest {
 protected:
  /** A state of each kind and a name in each list, bound to names that begin with @p prefix. */
  static void fill(kuVariantSet& filled, const QString& prefix) {
    bindNode(prefix + "Node", prefix + "Roof");
    bindMaterial(prefix + "Material", prefix + "Paint");
    bindLight(prefix + "Light", prefix + "Lamp");
    bindOverlay(prefix + "Overlay", prefix + "Logo");
    bindTransform(prefix + "Transform", prefix + "Door");
    filled.addNodeVariant(prefix + "Node", "Open");
    filled.addMaterialVariant(prefix + "Material", "Red");
    filled.addLightVariant(prefix + "Light", "!Enable");
    filled.addOverlayVariant(prefix + "Overlay", "Front");
    filled.addTransformVariant(prefix + "Transform", "Shut");
    filled.addGeometry(prefix + "Body");
    filled.addViewpoint(prefix + "View");
    filled.addAnimation(prefix + "Clip");
  }

  /** What a set filled so refers to. */
  void build(const std::string& prefix) {
    scene.switchNode(prefix + "Roof", 0, {"Open"});
    scene.presetMaterial(prefix + "Paint", {"Red"}, 0);
    scene.light(prefix + "Lamp", true);
    scene.sceneplateSwitch(prefix + "Logo", 0, {"Front"});
    scene.transforms(prefix + "Door", {"Shut"}, 0, 0);
    scene.geometry(prefix + "Body");
    scene.camera(prefix + "View");
    Scene::the().animationBlocks[prefix + "Clip"] = {};
  }
};

/** A material that runs an action whenever it is asked for its states. */
class AskedMaterial final : public osg::Material {
 public:
  static void enter(const std::string& name, std::function<void()> action) {
    const osg::FCPtr<AskedMaterial> material(new AskedMaterial(std::move(action)));
    material->hostFields().name = name;
    ScenePool::of(Scene::the().pool).enter(material);
  }
  bool isMultiState() const override { return true; }
  void getStateNames(std::vector<std::string>&) const override { _asked(); }
  bool setCurrentState(unsigned) override { return false; }
  bool getCurrentState(int&) const override { return false; }
  bool getCurrentStateName(std::string&) const override { return false; }
  bool hasSubMaterial(const osg::MaterialPtr&, bool) const override { return false; }

 private:
  explicit AskedMaterial(std::function<void()> asked)
      : osg::Material(osg::Material::_type), _asked(std::move(asked)) {}
  std::function<void()> _asked;
};

}  // namespace

TEST_F(kuVariantSetOptimisationTest, EveryReferenceThatReachesTheSceneStays) {
  fill(set, "");
  build("");
  const std::string before = managerDump();
  set.optimize();
  EXPECT_EQ(managerDump(), before);
}

TEST_F(kuVariantSetOptimisationTest, EveryReferenceThatReachesNothingGoes) {
  fill(set, "");
  set.optimize();
  EXPECT_TRUE(set.isEmpty());
  EXPECT_THAT(setNames(), ElementsAre("Set"));
}

TEST_F(kuVariantSetOptimisationTest, StatesOfVariantsThatTheManagerDoesNotHaveStayInAllKinds) {
  set.addNodeVariant("Lost", "Open");
  set.addMaterialVariant("Lost", "Red");
  set.addLightVariant("Lost", "!Enable");
  set.addOverlayVariant("Lost", "Front");
  set.addTransformVariant("Lost", "!Enable");
  const std::string before = managerDump();
  set.optimize();
  EXPECT_EQ(managerDump(), before);
}

TEST_F(kuVariantSetOptimisationTest, StateGoesThoughAVariantOfAnotherKindReachesTheScene) {
  bindNode("Choice", "Lamp");
  bindLight("Choice", "Lost");
  scene.light("Lamp", true);
  set.addNodeVariant("Choice", "!Enable");
  set.addLightVariant("Choice", "!Enable");
  set.optimize();
  EXPECT_THAT(texts(set.getNodeVariants()), ElementsAre("Choice=!Enable"));
  EXPECT_THAT(texts(set.getLightVariants()), IsEmpty());
}

TEST_F(kuVariantSetOptimisationTest, StatesThatStayKeepTheirOrder) {
  scene.switchNode("Roof", 0, {"Open"});
  for (const char* variant : {"A", "B", "C", "D"}) {
    bindNode(variant, "Roof");
    set.addNodeVariant(variant, *variant == 'A' || *variant == 'C' ? "Lost" : "Open");
  }
  set.optimize();
  EXPECT_THAT(texts(set.getNodeVariants()), ElementsAre("B=Open", "D=Open"));
}

TEST_F(kuVariantSetOptimisationTest, WhatRefersToNoVariantIsNeverTouched) {
  kuVariantGroup* group = makeGroup("Group");
  group->add(&set);
  set.setHotkey("Ctrl+A");
  set.setComment("Comment");
  set.setShowInVRMenu(false);
  set.setSyncInCollaboration(false);
  set.setScript("findNode('Lost')");
  set.setPreview(QByteArray("picture"));
  set.setInclInfo(true, false, true, false, true, false);
  set.setSequentialAnimation(true);
  set.addTargetNodeName("Lost");
  set.addMaterialSnapshot("Lost|Body", "Lost paint");
  set.addValue("key", "value");
  set.setClippingState(1);
  set.setClippingContourWidth(7);
  kuVariants::createNodeVariant("Lost", false)->add("Option", "F5");
  const std::string before = managerDump();
  set.optimize();
  EXPECT_EQ(managerDump(), before);
}

TEST_F(kuVariantSetOptimisationTest, VariantsStayInTheManagerWithTheirOptions) {
  fill(set, "");
  kuVariants::findNodeVariant("Node")->add("Open", "F5");
  set.optimize();
  EXPECT_EQ(managerDump(),
            "set Set\n"
            "nodeVariant Node base=Roof\n  option Open hotkey=F5 key=16777268\n"
            "materialVariant Material base=Paint\n"
            "lightVariant Light base=Lamp\n"
            "overlayVariant Overlay base=Logo\n"
            "transformVariant Transform base=Door\n");
}

TEST_F(kuVariantSetOptimisationTest, NothingIsSentLoggedOrChangedInTheScene) {
  fill(set, "");
  fill(set, "Lost ");
  build("");
  const std::string before = dumpScene(Scene::the());
  const BracketRecorder brackets;
  set.optimize();
  kuVariants::optimizeVariantSets();
  EXPECT_THAT(messages.lines(), IsEmpty());
  EXPECT_THAT(log, IsEmpty());
  EXPECT_THAT(brackets.brackets(), IsEmpty());
  EXPECT_EQ(dumpScene(Scene::the()), before);
}

TEST_F(kuVariantSetOptimisationTest, SecondOptimisationFindsNothingMore) {
  fill(set, "");
  fill(set, "Lost ");
  build("");
  set.optimize();
  const std::string after = managerDump();
  set.optimize();
  EXPECT_EQ(managerDump(), after);
}

TEST_F(kuVariantSetOptimisationTest, PassOfMaterialsComesBehindNodesAndAheadOfTheRest) {
  fill(set, "");
  std::vector<std::size_t> sizes;
  AskedMaterial::enter("Paint", [&] {
    sizes = {set.getNodeVariants().size(),     set.getLightVariants().size(),
             set.getGeometries().size(),       set.getViewpoints().size(),
             set.getAnimations().size(),       set.getOverlayVariants().size(),
             set.getTransformVariants().size()};
  });
  set.optimize();
  EXPECT_THAT(sizes, ElementsAre(0u, 1u, 1u, 1u, 1u, 1u, 1u));
}

TEST_F(kuVariantSetOptimisationTest, ListIsWholeUntilAllOfItIsJudged) {
  std::vector<std::size_t> sizes;
  AskedMaterial::enter("Paint", [&] { sizes.push_back(set.getMaterialVariants().size()); });
  for (const char* variant : {"A", "B", "C"}) {
    bindMaterial(variant, "Paint");
    set.addMaterialVariant(variant, "Lost");
  }
  set.optimize();
  EXPECT_THAT(sizes, ElementsAre(3u, 3u, 3u));
  EXPECT_THAT(texts(set.getMaterialVariants()), IsEmpty());
}

TEST_F(kuVariantSetOptimisationTest, KeptStateStaysWhereItIsInMemory) {
  fill(set, "Lost ");
  fill(set, "");
  build("");
  const kuVariantState* roof = set.findNodeVariant("Node");
  set.optimize();
  EXPECT_EQ(set.findNodeVariant("Node"), roof);
}

TEST_F(kuVariantSetOptimisationTest, AllSetsAreOptimisedAndNoneNorAnyGroupIsRemoved) {
  kuVariantGroup* group = makeGroup("Group");
  makeGroup("Empty group");
  kuVariantSet& second = makeSet("Second", group);
  kuVariantSet& third = makeSet("Third", group);
  fill(set, "Lost ");
  fill(second, "");
  fill(third, "Lost ");
  fill(third, "");
  build("");
  kuVariants::optimizeVariantSets();
  EXPECT_TRUE(set.isEmpty());
  EXPECT_EQ(texts(second.getLightVariants()), Texts{"Light=!Enable"});
  EXPECT_EQ(texts(third.getLightVariants()), Texts{"Light=!Enable"});
  EXPECT_EQ(texts(third.getAnimations()), Texts{"Clip"});
  EXPECT_EQ(texts(third.getNodeVariants()), Texts{"Node=Open"});
  EXPECT_THAT(setNames(), ElementsAre("Set", "Second", "Third"));
  EXPECT_THAT(groupNames(), ElementsAre("Group", "Empty group"));
  EXPECT_EQ(second.getGroup(), group);
}

TEST_F(kuVariantSetOptimisationTest, EveryOptimisationLooksAtTheSceneAnew) {
  fill(set, "");
  build("");
  kuVariants::optimizeVariantSets();
  scene = SceneBuilder();
  kuVariants::optimizeVariantSets();
  EXPECT_TRUE(set.isEmpty());
}

TEST_F(kuVariantSetOptimisationTest, EmptiedSetStaysUntilTheEmptySetsAreCleared) {
  fill(set, "");
  kuVariants::optimizeVariantSets();
  EXPECT_THAT(setNames(), ElementsAre("Set"));
  kuVariants::clearEmptyVariantSets();
  EXPECT_THAT(setNames(), IsEmpty());
}
