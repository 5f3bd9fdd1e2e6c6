#include <QApplication>
#include <QProgressDialog>
#include <QTimer>

#include "SceneCaptureTest.h"
#include "host/kernel/kuScenegraph.h"
#include "host/utils/kuNodeUtils.h"
#include "standalone/kernel/HostState.h"
#include "standalone/scene/SceneNode.h"
#include "support/kuVariantsTestAccess.h"

using kuStandalone::HostState;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// A capture from its beginning to its end.

namespace {

class KuVariantsCaptureTest : public SceneCaptureTest {
 protected:
  /** What somebody sees whom the event loop lets run: the dialogue, the busy state, the states. */
  std::string sight() const {
    const bool isShown = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
    std::string text = isShown ? "dialogue" : "no dialogue";
    if (HostState::the().busy) text += ", busy";
    for (const std::string& state : texts(set.getNodeVariants()))
      text += ", " + state;
    for (const std::string& state : texts(set.getOverlayVariants()))
      text += ", " + state;
    return text;
  }

  /** A car of a thousand geometries in groups of ten, all of one material. */
  void buildThousandNodes(const osg::MaterialPtr& material) {
    for (int group = 0; group < 100; ++group) {
      const std::string number = std::to_string(group);
      const osg::NodePtr node = scene.group("Group" + number);
      for (int part = 0; part < 10; ++part)
        scene.geometry("Part" + number + "." + std::to_string(part), material, node);
    }
  }
};

}  // namespace

TEST_F(KuVariantsCaptureTest, EventsRunBetweenTheStepsAndTheNodes) {
  scene.switchNode("Body", 0, {"Coupe"});
  scene.switchNode("Roof", 0, {"Open"});
  SceneBuilder::setActive(scene.sceneplate("Logo"), false);
  SceneBuilder::setActive(scene.sceneplate("Title"), false);
  set.addNodeVariant("Old", "State");
  Texts sights;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [&] {
    if (sights.empty() || sights.back() != sight()) sights.push_back(sight());
  });
  timer.start(0);
  CaptureFlags flags = only(&CaptureFlags::nodes);
  flags.sceneplates = true;
  capture(flags);
  EXPECT_THAT(sights,
              ElementsAre("dialogue, Old=State", "dialogue, busy", "dialogue, busy, Body=Coupe",
                          "dialogue, busy, Body=Coupe, Roof=Open",
                          "dialogue, busy, Body=Coupe, Roof=Open, Logo=!Disable"));
  EXPECT_EQ(sight(), "no dialogue, Body=Coupe, Roof=Open, Logo=!Disable, Title=!Disable");
}

TEST_F(KuVariantsCaptureTest, SetThatHeldContentStartsCleared) {
  scene.switchNode("Body", 0, {"Coupe"});
  set.addNodeVariant("Old", "State");
  set.addMaterialVariant("Old", "State");
  set.addLightVariant("Old", "State");
  set.addOverlayVariant("Old", "State");
  set.addTransformVariant("Old", "State");
  set.addViewpoint("Old");
  set.setDefaultViewpoint("Old");
  set.addAnimation("Old");
  set.addTargetNodeName("Old");
  set.addValue("Old", "Value");
  set.addMaterialSnapshot("Old", "Material");
  set.setScript("old()");
  set.setInclInfo(true, true, true, true, true, true);
  set.addGeometry("Kept");
  set.setPreview("kept");
  CaptureFlags flags = only(&CaptureFlags::nodes);
  flags.renderLayers = true;
  capture(flags);
  EXPECT_EQ(setDump(set),
            "set Set script=activateRenderLayerState(\"Set\") incl=100000 preview=kept\n"
            "  node Body=Coupe\n"
            "  geometry Kept\n"
            "  target Root\n");
}

TEST_F(KuVariantsCaptureTest, RootsAreCapturedInTheirOrder) {
  const osg::NodePtr car = scene.group("Car");
  scene.switchNode("Body", 0, {"Coupe"}, car);
  scene.materialGroup("Trim", {}, car);
  const osg::NodePtr wall = scene.group("Wall");
  scene.switchNode("Gate", 0, {"Shut"}, wall);
  scene.materialGroup("Bricks", {}, wall);
  scene.switchNode("Outside", 0, {"Left"});
  CaptureFlags flags = only(&CaptureFlags::nodes);
  flags.mats = true;
  capture(set, flags, {wall, car});
  EXPECT_THAT(content(),
              ElementsAre("node Gate=Shut", "node Body=Coupe", "target Wall", "target Car"));
  EXPECT_THAT(scriptLines(), ElementsAre("setIgnoreMaterialGroup(\"Wall/Bricks\",false)",
                                         "setIgnoreMaterialGroup(\"Car/Trim\",false)"));
}

TEST_F(KuVariantsCaptureTest, RootThatIsASwitchIsCapturedItself) {
  const osg::NodePtr body = scene.switchNode("Body", 0, {"Coupe"});
  capture(set, only(&CaptureFlags::nodes), {body});
  EXPECT_THAT(content(), ElementsAre("node Body=Coupe", "target Body"));
}

TEST_F(KuVariantsCaptureTest, GeometrySharedByTwoRootsIsHandledOnce) {
  const osg::NodePtr left = scene.geometry("Left", scene.material("Red"));
  const osg::NodePtr right = scene.clone(left, "Right");
  capture(set, only(&CaptureFlags::mats), {right, left});
  EXPECT_THAT(content(), ElementsAre("target Right", "target Left", "snapshot Right=Red"));
}

TEST_F(KuVariantsCaptureTest, NullRootIsPassedOver) {
  const osg::NodePtr body = scene.switchNode("Body", 0, {"Coupe"});
  capture(set, everything(), {kuNodePtr(), body});
  EXPECT_THAT(content(), ElementsAre("node Body=Coupe", "target", "target Body"));
}

TEST_F(KuVariantsCaptureTest, NoRootsGiveNoTargets) {
  scene.switchNode("Body", 0, {"Coupe"});
  capture(set, only(&CaptureFlags::nodes), {});
  EXPECT_THAT(content(), IsEmpty());
  EXPECT_EQ(inclInfo(set), "100000");
}

TEST_F(KuVariantsCaptureTest, ThreeCapturesOfOneSceneGiveEqualContent) {
  const osg::NodePtr hood = scene.geometry(
      "Hood", scene.switchMaterial("Paint", {scene.material("Red"), scene.material("Blue")}, 1));
  scene.clone(hood, "Copy");
  scene.switchNode("Body", 0, {"Coupe"});
  SceneBuilder::setActive(scene.group("Mirror"), false);
  scene.group("Mirror", scene.group("Wall"));
  CaptureFlags flags = everything();
  flags.renderLayers = false;
  capture(flags);
  const Texts first = content();
  const Texts firstScript = scriptLines();
  EXPECT_THAT(first, ElementsAre("node Body=Coupe", "material Paint=Blue", "target Root",
                                 "snapshot Hood=Paint"));
  capture(flags);
  EXPECT_EQ(content(), first);
  EXPECT_EQ(scriptLines(), firstScript);
  kuVariantSet& other = makeSet("Other");
  capture(other, flags, {scene.root()});
  EXPECT_EQ(content(other), first);
  EXPECT_EQ(scriptLines(other), firstScript);
  EXPECT_EQ(content(), first);
}

TEST_F(KuVariantsCaptureTest, ActiveFlagChangedBetweenTwoCapturesIsSeen) {
  SceneBuilder::setActive(scene.group("Mirror"), false);
  const osg::NodePtr other = scene.group("Mirror", scene.group("Wall"));
  capture(only(&CaptureFlags::nodes));
  EXPECT_THAT(content(), ElementsAre("target Root"));
  EXPECT_THAT(scriptLines(), ElementsAre("findNodePath(\"Mirror\").setActive(false)"));
  SceneBuilder::setActive(other, false);
  capture(only(&CaptureFlags::nodes));
  EXPECT_THAT(content(), ElementsAre("node Mirror=!Disable", "target Root"));
  EXPECT_THAT(scriptLines(), IsEmpty());
}

TEST_F(KuVariantsCaptureTest, OneChangedMaterialOfAThousandNodesGivesOneSwitch) {
  buildThousandNodes(scene.material("Red"));
  capture(only(&CaptureFlags::mats));
  ASSERT_EQ(set.getMaterialSnapshots().size(), 1000u);
  EXPECT_THAT(texts(set.getMaterialVariants()), IsEmpty());

  const osg::NodePtr part = kuScenegraph::findNode("Part50.5");
  kuNodeUtils::setMaterial(part, scene.material("Blue"), false, false);
  kuVariantSet& second = makeSet("Second");
  capture(second, only(&CaptureFlags::mats), {scene.root()});

  std::map<QString, QString> expected;
  for (const auto& entry : set.getMaterialSnapshots())
    expected[entry.first] = "Red";
  expected["Group50/Part50.5"] = "Switch";
  EXPECT_EQ(set.getMaterialSnapshots(), expected);
  EXPECT_EQ(second.getMaterialSnapshots(), expected);
  EXPECT_THAT(texts(set.getMaterialVariants()), ElementsAre("Switch=Red"));
  EXPECT_THAT(texts(second.getMaterialVariants()), ElementsAre("Switch=Blue"));
}
