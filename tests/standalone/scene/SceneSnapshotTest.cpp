#include "standalone/scene/SceneSnapshot.h"

#include "host/osg/EditCP.h"
#include "host/utils/kuLights.h"
#include "host/utils/kuMaterials.h"
#include "standalone/scene/Materials.h"
#include "standalone/scene/SceneNode.h"
#include "standalone/scene/ScenePool.h"
#include "standalone/script/ClippingSettings.h"
#include "support/BracketRecorder.h"
#include "support/SceneDump.h"
#include "support/SceneTest.h"

using namespace kuStandalone;
using ::testing::IsEmpty;

namespace {

Transform shifted(double x) {
  Transform transform;
  transform.translation = {x, 0, 0};
  return transform;
}

/** A scene with one of everything that can change. */
struct Sample {
  explicit Sample(SceneBuilder& builder) : scene(builder) {
    SceneNode::of(moved).setTransform(shifted(1));
    SceneBuilder::setActive(hidden, false);
    SceneNode::of(body).setRenderLayer(RenderLayer::create({}, {{"Night", {true, false, true}}}));
    scene.camera("Front");
    scene.camera("Rear");
    Scene::the().activeViewpoint = "Front";
  }

  SceneBuilder& scene;
  osg::MaterialPtr red = scene.material("Red"), blue = scene.material("Blue");
  osg::SwitchMaterialPtr paint = scene.switchMaterial("Paint", {red, blue}, 0);
  osg::MaterialPtr finish = scene.presetMaterial("Finish", {"Matte", "Gloss"}, -1);
  osg::MaterialPtr unpooled = PresetMaterial::create("Unpooled", {"Matte", "Gloss"}, 0);
  osg::NodePtr door = scene.group("Door");
  osg::NodePtr moved = scene.group("Moved");
  osg::NodePtr hidden = scene.group("Hidden");
  osg::NodePtr lamp = scene.light("Lamp", false);
  osg::NodePtr roof = scene.switchNode("Roof", 0, {"Closed", "Open"});
  osg::NodePtr bonnet = scene.transforms("Bonnet", {"Shut", "Wide"}, 0, -1);
  osg::NodePtr body = scene.geometry("Body", paint);
  osg::NodePtr seat = scene.geometry("Seat", unpooled);
  osg::NodePtr shell = scene.materialGroup("Shell", red);
  osg::NodePtr sun = scene.light("Sun", true);
  osg::NodePtr title = scene.sceneplateSwitch("Title", -1, {"English", "Deutsch"});
};

void setChoice(const osg::NodePtr& node, int choice) {
  const auto core = osg::SwitchPtr::dcast(node->getCore());
  const osg::EditCP edit(core);
  core->setChoice(choice);
}

void setActive(const osg::NodePtr& node, bool active) {
  const osg::EditCP edit(node);
  node->setActive(active);
}

void moveTo(const osg::NodePtr& node, const Transform& transform) {
  const osg::EditCP edit(node);
  SceneNode::of(node).moveTo(transform);
}

TransformSwitchCore& openEdit(const osg::NodePtr& node) {
  osg::beginEditCP(node->getCore(), osg::AllFieldsMask, 1);
  return TransformSwitchCore::of(node->getCore());
}

void closeEdit(const osg::NodePtr& node) { osg::endEditCP(node->getCore(), osg::AllFieldsMask, 1); }

ScenePool& pool() { return ScenePool::of(Scene::the().pool); }

RenderLayer& layerOf(const osg::NodePtr& node) { return *SceneNode::of(node).renderLayer(); }

struct Change {
  const char* name;
  void (*make)(Sample&);
};

const Change changes[] = {
    {"NodeHidden", [](Sample& s) { setActive(s.door, false); }},
    {"NodeShown", [](Sample& s) { setActive(s.hidden, true); }},
    {"NodeMoved", [](Sample& s) { moveTo(s.door, shifted(2)); }},
    {"NodeMovedToTheOrigin", [](Sample& s) { moveTo(s.moved, Transform()); }},
    {"SwitchChoice", [](Sample& s) { setChoice(s.roof, -2); }},
    {"TransformChoice",
     [](Sample& s) {
       openEdit(s.bonnet).setChoice(1);
       closeEdit(s.bonnet);
     }},
    {"SupposedIndex",
     [](Sample& s) {
       openEdit(s.bonnet).setSupposed(1);
       closeEdit(s.bonnet);
     }},
    {"LightOff", [](Sample& s) { kuLights::setOn(s.sun, false); }},
    {"LightOn", [](Sample& s) { kuLights::setOn(s.lamp, true); }},
    {"MaterialOfAGeometry",
     [](Sample& s) {
       const osg::EditCP edit(s.body->getCore());
       osg::GeometryPtr::dcast(s.body->getCore())->setMaterial(s.blue);
     }},
    {"NoMaterialOfAGeometry",
     [](Sample& s) {
       const osg::EditCP edit(s.body->getCore());
       osg::GeometryPtr::dcast(s.body->getCore())->setMaterial(osg::NullFC);
     }},
    {"MaterialOfAGroup",
     [](Sample& s) {
       const osg::EditCP edit(s.shell->getCore());
       osg::MaterialGroupPtr::dcast(s.shell->getCore())->setMaterial(s.blue);
     }},
    {"GroupIgnored", [](Sample& s) { MaterialGroupCore::of(s.shell->getCore()).ignore = true; }},
    {"RenderLayer", [](Sample& s) { layerOf(s.body).activateState("Night"); }},
    {"StoredRenderLayer", [](Sample& s) { layerOf(s.body).storeState("Day"); }},
    {"ReplacedRenderLayer", [](Sample& s) { layerOf(s.body).storeState("Night"); }},
    {"SwitchMaterialChoice", [](Sample& s) { s.paint->setCurrentState(1); }},
    {"SwitchMaterialPartAdded",
     [](Sample& s) {
       const osg::EditCP edit(s.paint);
       s.paint->addMaterial(s.finish);
     }},
    {"SwitchMaterialPartTaken",
     [](Sample& s) {
       const osg::EditCP edit(s.paint);
       s.paint->subMaterial(s.red);
     }},
    {"Preset", [](Sample& s) { s.finish->setCurrentState(1); }},
    {"PresetOfAMaterialOutsideThePool", [](Sample& s) { s.unpooled->setCurrentState(1); }},
    {"MaterialRenamed", [](Sample& s) { kuMaterials::setName(s.red, "Rosso", false); }},
    {"MaterialAdded", [](Sample& s) { s.scene.material("Red"); }},
    {"MaterialTakenOut", [](Sample& s) { pool().remove(s.red); }},
    {"MaterialTakenOutAndRenamed",
     [](Sample& s) {
       pool().remove(s.red);
       kuMaterials::setName(s.red, "Rosso", false);
     }},
    {"SceneplateHidden", [](Sample& s) { setActive(s.title, false); }},
    {"SceneplateChoice", [](Sample& s) { setChoice(s.title, 1); }},
    {"ActiveViewpoint", [](Sample&) { Scene::the().activeViewpoint = "Rear"; }},
    {"ViewpointPose", [](Sample&) { Scene::the().viewpoints[1].pose = shifted(9); }},
    {"ViewpointAdded", [](Sample&) { Scene::the().addViewpoint(Viewpoint()); }},
    {"CameraMoved", [](Sample&) { moveTo(Scene::the().cameras[0].node, shifted(3)); }},
    {"CameraLens", [](Sample&) { Scene::the().cameras[0].yfov = 0.1; }},
};

class SceneSnapshotTest : public SceneTest {
 protected:
  SceneSnapshotTest() { ClippingSettings::the() = ClippingSettings(); }
  ~SceneSnapshotTest() override { ClippingSettings::the() = ClippingSettings(); }

  static std::string dump() { return dumpScene(Scene::the()); }

  Sample sample{scene};
};

class SceneSnapshotChangeTest : public SceneSnapshotTest,
                                public ::testing::WithParamInterface<Change> {};

TEST_P(SceneSnapshotChangeTest, IsUndone) {
  const std::string before = dump();
  const SceneSnapshot snapshot(Scene::the());
  for (const char* round : {"first", "second"}) {
    GetParam().make(sample);
    EXPECT_NE(dump(), before) << round;
    snapshot.restore(Scene::the());
    EXPECT_EQ(dump(), before) << round;
  }
}

INSTANTIATE_TEST_SUITE_P(Of, SceneSnapshotChangeTest, ::testing::ValuesIn(changes),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(SceneSnapshotTest, AllChangesAtOnceAreUndone) {
  const std::string before = dump();
  const SceneSnapshot snapshot(Scene::the());
  for (const Change& change : changes)
    change.make(sample);
  snapshot.restore(Scene::the());
  EXPECT_EQ(dump(), before);
}

TEST_F(SceneSnapshotTest, TouchesNothingWhereNothingChanged) {
  const SceneSnapshot snapshot(Scene::the());
  const BracketRecorder recorder;
  snapshot.restore(Scene::the());
  EXPECT_THAT(recorder.brackets(), IsEmpty());
}

TEST_F(SceneSnapshotTest, TouchesOnlyWhatChanged) {
  const SceneSnapshot snapshot(Scene::the());
  setChoice(sample.roof, 1);
  const BracketRecorder recorder;
  snapshot.restore(Scene::the());
  EXPECT_THAT(recorder.brackets(), ::testing::ElementsAre(BracketRecorder::Bracket(
                                       "Switch", osg::Switch::ChoiceFieldMask)));
}

TEST_F(SceneSnapshotTest, PutsARenderLayerBackInOneBracket) {
  const SceneSnapshot snapshot(Scene::the());
  layerOf(sample.body).activateState("Night");
  layerOf(sample.body).storeState("Day");
  const BracketRecorder recorder;
  snapshot.restore(Scene::the());
  EXPECT_THAT(recorder.brackets(),
              ::testing::ElementsAre(BracketRecorder::Bracket(
                  "RaytracingGeoAttachment",
                  RenderLayer::PresentFieldMask | RenderLayer::StatesFieldMask)));
}

TEST_F(SceneSnapshotTest, FindsARenamedMaterialByItsFormerNameAgain) {
  const SceneSnapshot snapshot(Scene::the());
  kuMaterials::setName(sample.red, "Rosso", false);
  snapshot.restore(Scene::the());
  EXPECT_EQ(kuMaterials::findMaterial("Red").getMaterial(), sample.red);
  EXPECT_FALSE(kuMaterials::findMaterial("Rosso").isValid());
}

TEST_F(SceneSnapshotTest, PutsTheClippingBack) {
  ClippingSettings& clipping = ClippingSettings::the();
  clipping.position = {1, 2, 3};
  const SceneSnapshot snapshot(Scene::the());
  clipping.enabled = clipping.invert = clipping.hideScene = true;
  clipping.position = {4, 5, 6};
  clipping.contourWidth = 7;
  snapshot.restore(Scene::the());
  EXPECT_FALSE(clipping.enabled || clipping.invert || clipping.hideScene);
  EXPECT_EQ(clipping.position, osg::Pnt3f(1, 2, 3));
  EXPECT_EQ(clipping.contourWidth, ClippingSettings().contourWidth);
}

TEST_F(SceneSnapshotTest, LeavesNodesThatWereAddedSinceAsTheyAre) {
  const SceneSnapshot snapshot(Scene::the());
  const osg::NodePtr added = scene.group("Added");
  setActive(added, false);
  setActive(sample.door, false);
  snapshot.restore(Scene::the());
  EXPECT_EQ(added->getParent(), scene.root());
  EXPECT_FALSE(added->getActive());
  EXPECT_TRUE(sample.door->getActive());
}

TEST_F(SceneSnapshotTest, LeavesNodesOutThatWereTakenOutSince) {
  const SceneSnapshot snapshot(Scene::the());
  SceneNode::of(scene.root()).removeChild(sample.roof);
  sample.roof = osg::NullFC;
  setActive(sample.door, false);
  snapshot.restore(Scene::the());
  EXPECT_EQ(Scene::the().nodes.names.find("Roof"), nullptr);
  EXPECT_TRUE(sample.door->getActive());
}

TEST_F(SceneSnapshotTest, MayOutliveItsScene) {
  auto snapshot = std::make_unique<SceneSnapshot>(Scene::the());
  Scene::install(std::make_unique<Scene>());
  snapshot.reset();
  EXPECT_TRUE(sample.roof->getActive());
}

}  // namespace
