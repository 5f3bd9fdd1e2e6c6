#include "SceneCaptureTest.h"
#include "host/utils/kuMaterials.h"
#include "host/utils/kuNodeUtils.h"
#include "support/kuVariantsTestAccess.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Materials of geometries and material groups in the capture of one set.

namespace {

class KuVariantsCaptureMaterialsTest : public SceneCaptureTest {
 protected:
  void captureMaterials() { capture(only(&CaptureFlags::mats)); }
  static std::string materialAt(const osg::NodePtr& node) {
    return kuMaterials::getName(kuNodeUtils::getMaterial(node));
  }
};

}  // namespace

TEST_F(KuVariantsCaptureMaterialsTest, PlainMaterialGetsASnapshotAndNoVariant) {
  scene.geometry("Hood", scene.material("Red"), scene.group("Car"));
  captureMaterials();
  EXPECT_THAT(content(), ElementsAre("target Root", "snapshot Car/Hood=Red"));
  EXPECT_THAT(kuVariants::getMaterialVariants(), IsEmpty());
}

TEST_F(KuVariantsCaptureMaterialsTest, MaterialWithStatesIsStoredWithItsPresentOne) {
  scene.geometry("Hood", scene.presetMaterial("Paint", {"Dry", "Wet"}, 1));
  captureMaterials();
  EXPECT_THAT(content(), ElementsAre("material Paint=Wet", "target Root", "snapshot Hood=Paint"));
}

TEST_F(KuVariantsCaptureMaterialsTest, MaterialWithoutPresentStateGetsASnapshotAlone) {
  scene.geometry("Hood", scene.presetMaterial("Paint", {"Dry", "Wet"}, -1));
  captureMaterials();
  EXPECT_THAT(content(), ElementsAre("target Root", "snapshot Hood=Paint"));
  EXPECT_THAT(kuVariants::getMaterialVariants(), IsEmpty());
}

TEST_F(KuVariantsCaptureMaterialsTest, SubMaterialsWithStatesAreStoredAfterTheirSwitch) {
  const osg::MaterialPtr wet = scene.presetMaterial("Lacquer", {"Dry", "Wet"}, 1);
  const osg::MaterialPtr undecided = scene.presetMaterial("Wax", {"Thin"}, -1);
  const osg::MaterialPtr inner = scene.switchMaterial("Inner", {scene.material("Grey")}, 0);
  scene.geometry("Hood",
                 scene.switchMaterial("Paint", {scene.material("Red"), wet, undecided, inner}, 0));
  captureMaterials();
  EXPECT_THAT(content(), ElementsAre("material Paint=Red", "material Lacquer=Wet",
                                     "material Inner=Grey", "target Root", "snapshot Hood=Paint"));
}

TEST_F(KuVariantsCaptureMaterialsTest, SubMaterialsOfSubMaterialsAreNotLookedAt) {
  const osg::MaterialPtr lacquer = scene.presetMaterial("Lacquer", {"Dry", "Wet"}, 1);
  const osg::MaterialPtr inner = scene.switchMaterial("Inner", {lacquer}, 0);
  scene.geometry("Hood", scene.switchMaterial("Paint", {inner}, 0));
  captureMaterials();
  EXPECT_THAT(content(), ElementsAre("material Paint=Inner", "material Inner=Lacquer",
                                     "target Root", "snapshot Hood=Paint"));
}

TEST_F(KuVariantsCaptureMaterialsTest, UnnamedMaterialWithStatesIsSkipped) {
  scene.geometry("Hood", scene.presetMaterial("", {"Dry"}, 0));
  captureMaterials();
  EXPECT_THAT(content(), ElementsAre("target Root", "snapshot Hood="));
}

TEST_F(KuVariantsCaptureMaterialsTest, GeometryWithoutMaterialIsSkipped) {
  scene.geometry("Hood");
  captureMaterials();
  EXPECT_THAT(content(), ElementsAre("target Root"));
}

TEST_F(KuVariantsCaptureMaterialsTest, NodesBelowAGeometryAreNotLookedAt) {
  const osg::NodePtr hood = scene.geometry("Hood", scene.material("Red"));
  scene.switchNode("Scoop", 0, {"Open"}, hood);
  scene.geometry("Badge", scene.material("Chrome"), hood);
  CaptureFlags flags = only(&CaptureFlags::mats);
  flags.nodes = true;
  capture(flags);
  EXPECT_THAT(content(), ElementsAre("target Root", "snapshot Hood=Red"));
}

TEST_F(KuVariantsCaptureMaterialsTest, MaterialGroupIsStoredAndItsChildrenAreWalked) {
  const osg::NodePtr trim =
      scene.materialGroup("Trim", scene.presetMaterial("Metal", {"Matt", "Shiny"}, 1));
  scene.geometry("Strip", scene.material("Black"), trim);
  captureMaterials();
  EXPECT_THAT(content(), ElementsAre("material Metal=Shiny", "target Root", "snapshot Trim=Metal",
                                     "snapshot Trim/Strip=Black"));
}

TEST_F(KuVariantsCaptureMaterialsTest, MaterialGroupsTellWhetherTheyAreIgnored) {
  const osg::NodePtr trim = scene.materialGroup("Trim", scene.material("Chrome"));
  const osg::NodePtr inner = scene.materialGroup("Inner", {}, trim);
  kuStandalone::MaterialGroupCore::of(inner->getCore()).ignore = true;
  captureMaterials();
  EXPECT_EQ(set.getScript(),
            "setIgnoreMaterialGroup(\"Trim\",false)\nsetIgnoreMaterialGroup(\"Trim/Inner\",true)");
  EXPECT_THAT(content(), ElementsAre("target Root", "snapshot Trim=Chrome"));
}

TEST_F(KuVariantsCaptureMaterialsTest, PathWithPercentSignsStaysAsItIs) {
  scene.materialGroup("%2 %1", {});
  captureMaterials();
  EXPECT_EQ(set.getScript(), "setIgnoreMaterialGroup(\"%2 %1\",false)");
}

TEST_F(KuVariantsCaptureMaterialsTest, MaterialGroupWithEnvironmentMaterialIsTakenWithMats) {
  scene.materialGroup("Backdrop", scene.environmentMaterial("Painted"));
  captureMaterials();
  EXPECT_THAT(content(), ElementsAre("target Root", "snapshot Backdrop=Painted"));
}

TEST_F(KuVariantsCaptureMaterialsTest, CloneOfAGeometryIsNotHandledAgain) {
  const osg::NodePtr left =
      scene.geometry("Left", scene.switchMaterial("Paint", {scene.material("Red")}, 0));
  scene.clone(left, "Right");
  CaptureFlags flags = only(&CaptureFlags::mats);
  flags.transforms = true;
  capture(flags);
  EXPECT_THAT(content(), ElementsAre("material Paint=Red", "target Root", "snapshot Left=Paint"));
}

TEST_F(KuVariantsCaptureMaterialsTest, CloneIsStillCheckedForItsActiveFlag) {
  const osg::NodePtr left = scene.geometry("Left", scene.material("Red"));
  SceneBuilder::setActive(scene.clone(left, "Right"), false);
  CaptureFlags flags = only(&CaptureFlags::mats);
  flags.nodes = true;
  capture(flags);
  EXPECT_THAT(content(), ElementsAre("node Right=!Disable", "target Root", "snapshot Left=Red"));
}

TEST_F(KuVariantsCaptureMaterialsTest, InactiveOriginalMakesItsCloneSeenAllTheSame) {
  const osg::NodePtr left = scene.geometry("Left", scene.material("Red"));
  scene.clone(left, "Right");
  SceneBuilder::setActive(left, false);
  captureMaterials();
  EXPECT_THAT(content(), ElementsAre("target Root"));
}

TEST_F(KuVariantsCaptureMaterialsTest, CoresMetByOneCaptureAreForgottenByTheNext) {
  const osg::NodePtr left = scene.geometry("Left", scene.material("Red"));
  scene.clone(left, "Right");
  captureMaterials();
  EXPECT_TRUE(kuVariantsTestAccess::capturedGeometryCores().empty());
  kuVariantSet& second = makeSet("Second");
  capture(second, only(&CaptureFlags::mats), {scene.root()});
  EXPECT_EQ(content(second), content());
  EXPECT_TRUE(kuVariantsTestAccess::capturedGeometryCores().empty());
}

TEST_F(KuVariantsCaptureMaterialsTest, ClonesOfOtherCoresAreHandledEach) {
  const osg::NodePtr trim = scene.materialGroup("Trim", scene.material("Chrome"));
  scene.clone(trim, "Copy");
  scene.clone(scene.transforms("Door", {"Closed", "Open"}, 1, 1), "Gate");
  CaptureFlags flags = only(&CaptureFlags::mats);
  flags.transforms = true;
  capture(flags);
  EXPECT_THAT(content(), ElementsAre("transform Door=Open", "transform Gate=Open", "target Root",
                                     "snapshot Copy=Chrome", "snapshot Trim=Chrome"));
}

TEST_F(KuVariantsCaptureMaterialsTest, FirstSiblingOfANameGivesItsMaterialToTheOthers) {
  const osg::NodePtr first = scene.geometry("Hood", scene.material("Red"));
  const osg::NodePtr second = scene.geometry("Hood", scene.material("Blue"));
  const osg::NodePtr third = scene.materialGroup("Hood", scene.material("Green"));
  const osg::NodePtr elsewhere =
      scene.geometry("Hood", scene.material("Black"), scene.group("Car"));
  captureMaterials();
  EXPECT_THAT(content(),
              ElementsAre("target Root", "snapshot Car/Hood=Black", "snapshot Hood=Red"));
  EXPECT_THAT(
      Texts({materialAt(first), materialAt(second), materialAt(third), materialAt(elsewhere)}),
      ElementsAre("Red", "Red", "Red", "Black"));
}

TEST_F(KuVariantsCaptureMaterialsTest, FirstSiblingGivesItsMaterialAlsoWhereAnotherIsCaptured) {
  const osg::NodePtr first = scene.geometry("Hood", scene.material("Red"));
  const osg::NodePtr second = scene.geometry("Hood", scene.material("Blue"));
  capture(set, only(&CaptureFlags::mats), {second});
  EXPECT_THAT(content(), ElementsAre("target Hood", "snapshot Hood=Blue"));
  EXPECT_THAT(Texts({materialAt(first), materialAt(second)}), ElementsAre("Red", "Red"));
}

TEST_F(KuVariantsCaptureMaterialsTest, NodesWhosePathsCollideKeepTheirMaterials) {
  const osg::NodePtr first = scene.geometry("Lebaco", scene.material("Red"));
  const osg::NodePtr second = scene.geometry("Motedu", scene.material("Blue"));
  captureMaterials();
  ASSERT_EQ(kuVariantsTestAccess::nodePathIndex().at(0x31748591).size(), 2u);
  EXPECT_THAT(content(), ElementsAre("target Root", "snapshot Lebaco=Red", "snapshot Motedu=Blue"));
  EXPECT_THAT(Texts({materialAt(first), materialAt(second)}), ElementsAre("Red", "Blue"));
}
