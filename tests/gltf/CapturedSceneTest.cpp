#include "host/services/kuCameraService.h"
#include "host/services/kuKernelServiceFactory.h"
#include "host/utils/NodeUtils.h"
#include "standalone/gltf/SceneFile.h"
#include "standalone/gltf/SceneWriter.h"
#include "standalone/scene/Materials.h"
#include "standalone/scene/SceneNode.h"
#include "support/SceneDump.h"
#include "support/SceneTest.h"

using namespace kuStandalone;

namespace {

/** What a capture changes in a scene, saved and loaded again. */
class CapturedScene : public SceneTest {
 protected:
  static std::unique_ptr<Scene> load(const QByteArray& bytes) {
    SceneLoadResult result = loadSceneData(bytes, "f");
    EXPECT_EQ(result.error, "") << bytes.toStdString();
    return result.scene ? std::move(result.scene) : std::make_unique<Scene>();
  }

  static void install(const char* members) {
    Scene::install(load(QByteArray(R"({"asset":{"version":"2.0"},)") + members + "}"));
  }

  static void expectRoundTrip() {
    for (const bool binary : {false, true}) {
      const QByteArray bytes = sceneData(Scene::the(), binary);
      const std::unique_ptr<Scene> again = load(bytes);
      EXPECT_EQ(dumpScene(*again), dumpScene(Scene::the())) << bytes.toStdString();
      EXPECT_EQ(sceneData(*again, binary), bytes);
    }
  }

  static std::string createViewpoint(const QString& name, std::size_t camera) {
    kuCameraService& service = *kuKernelServiceFactory::the().getService<kuCameraService>();
    const kudCameraBaseNode looks(Scene::the().viewpoints.at(camera).id);
    return service.createViewpoint(name, service.findSetNamedViewpointTrack(looks))
        .getName()
        .toStdString();
  }

  static osg::NodePtr find(const char* name) { return kuScenegraph::findNode(name).getNode(); }

  static void moveTo(const osg::NodePtr& node, double x) {
    Transform moved;
    moved.translation = {x, 0.5, 0};
    moved.scale = {2, 2, 2};
    SceneNode::of(node).setTransform(moved);
  }

  /** Puts a new switch with these materials into the pool, as a capture does. */
  static void fill(const osg::SwitchMaterialPtr& made, const char* name,
                   std::initializer_list<osg::MaterialPtr> materials, unsigned choice) {
    const osg::EditCP edit(made);
    for (const osg::MaterialPtr& material : materials)
      made->addMaterial(material);
    made->setChoice(choice);
    kuMaterials::setName(made, name, true);
    const osg::EditCP pool(kuScenegraph::getMaterialPool());
    kuScenegraph::getMaterialPool()->add(made);
  }
};

TEST_F(CapturedScene, NewViewpointsComeBackWhereTheyWereTaken) {
  install(R"("scenes":[{"nodes":[0,1]}],"nodes":[{"name":"Front","camera":0},)"
          R"({"name":"Back","camera":0,"scale":[3,3,3]}],"cameras":[{"type":"perspective",)"
          R"("perspective":{"yfov":0.5,"znear":0.1}}])");
  EXPECT_EQ(createViewpoint("Set", 0), "Set");
  moveTo(find("Front"), 4);
  EXPECT_EQ(createViewpoint("Set", 0), "Set1");
  EXPECT_EQ(createViewpoint("Back", 1), "Back1");
  moveTo(find("Back"), 5);
  Scene::the().activeViewpoint = "Set1";
  expectRoundTrip();
}

TEST_F(CapturedScene, ViewpointsOfCamerasOfOneNameComeBackAtTheirCamera) {
  install(R"("scenes":[{"nodes":[0,1,2]}],"nodes":[{"name":"Rig"},{"name":"Eye","camera":0},)"
          R"({"name":"Eye","camera":0}],"cameras":[{"type":"perspective",)"
          R"("perspective":{"yfov":0.5,"znear":0.1}}])");
  const osg::NodePtr second = Scene::the().cameras.at(1).node;
  moveTo(second, 7);
  EXPECT_EQ(createViewpoint("Set", 1), "Set");
  EXPECT_EQ(createViewpoint("Set", 0), "Set1");
  expectRoundTrip();
}

TEST_F(CapturedScene, ViewpointsOfAProgramsCamerasOfOneNameComeBackToo) {
  scene.camera("Eye");
  scene.camera("Eye");
  moveTo(Scene::the().cameras.at(1).node, 7);
  createViewpoint("Set", 1);
  createViewpoint("Set", 0);
  expectRoundTrip();
}

TEST_F(CapturedScene, CameraOfAViewpointMayBeToldByItsNode) {
  SceneLoadResult result = loadSceneData(
      R"({"asset":{"version":"2.0"},"scenes":[{"nodes":[0,1],"extras":{"viewpoints":[)"
      R"({"name":"Low","camera":1},{"name":"Lost","camera":7}]}}],)"
      R"("nodes":[{"name":"Eye","camera":0},{"name":"Eye","camera":0}],)"
      R"("cameras":[{"type":"perspective","perspective":{"yfov":0.5,"znear":0.1}}]})",
      "f");
  ASSERT_EQ(result.error, "");
  ASSERT_EQ(result.scene->viewpoints.size(), 3u);
  EXPECT_EQ(result.scene->viewpoints[2].name, "Low");
  EXPECT_EQ(result.scene->viewpoints[2].camera, 1u);
  EXPECT_EQ(result.warnings,
            std::vector<std::string>{
                "f: scene.extras.viewpoints[1].camera: there is no camera at node 7"});
}

TEST_F(CapturedScene, RenamedNodesComeBack) {
  scene.group("Box", scene.group("Box"));
  scene.camera("Front");
  scene.sceneplate("Logo");
  NodeUtils::setName(scene.root()->getChild(0)->getChild(0), "Box1", true);
  NodeUtils::setName(find("Front"), "Front1", true);
  NodeUtils::setName(Scene::the().sceneplates.root->getChild(0), "Logo \xC3\xA4\"<", true);
  expectRoundTrip();
}

TEST_F(CapturedScene, RenamedNodesOfClonesComeBack) {
  const auto wheel = scene.group("Wheel");
  scene.group("Rim", wheel);
  scene.clone(wheel);
  scene.clone(wheel, "Spare");
  NodeUtils::setName(wheel->getChild(0), "Rim1", true);
  NodeUtils::setName(find("Spare"), "Wheel1", true);
  expectRoundTrip();
}

TEST_F(CapturedScene, RenamedParentOfWhatTheLoaderMadeComesBack) {
  install(
      R"("scenes":[{"nodes":[0,1]}],"nodes":[{"name":"Body","mesh":0},{"name":"Body","mesh":1}],)"
      R"("meshes":[{"primitives":[{},{}]},{"primitives":[{}]}])");
  NodeUtils::setName(Scene::the().nodes.root->getChild(0), "Body1", true);
  NodeUtils::setName(Scene::the().nodes.root->getChild(1), "Body2", true);
  expectRoundTrip();
}

TEST_F(CapturedScene, NewSwitchesInThePoolAndAtCoresComeBack) {
  install(R"("scenes":[{"nodes":[0,1]}],"nodes":[{"name":"Body","mesh":0},)"
          R"({"name":"Group","extras":{"materialGroup":{"material":1,"ignore":true}}}],)"
          R"("materials":[{"name":"Red"},{"name":"Blue"}],)"
          R"("meshes":[{"primitives":[{"material":0}]}])");
  const osg::MaterialPtr red = kuMaterials::findMaterial("Red"),
                         blue = kuMaterials::findMaterial("Blue");
  const auto inner = osg::SwitchMaterial::create(), outer = osg::SwitchMaterial::create();
  fill(inner, "Switch", {red, blue}, 1);
  fill(outer, "Switch2", {inner, PlainMaterial::create("Outside")}, 0);
  fill(osg::SwitchMaterial::create(), "Unused", {}, 3);
  kuNodeUtils::setMaterial(find("Body"), inner, false, false);
  const auto group = osg::MaterialGroupPtr::dcast(find("Group")->getCore());
  {
    const osg::EditCP edit(group);
    group->setMaterial(outer);
  }
  EXPECT_TRUE(group->getIgnore());
  expectRoundTrip();
}

TEST_F(CapturedScene, NewEnvironmentSwitchesComeBack) {
  const auto studio = EnvironmentMaterial::create("Studio");
  const auto sky = osg::UEnvironmentSwitchMaterial::create();
  fill(sky, "Switch", {studio, scene.material("Red")}, 1);
  scene.geometry("Dome", sky);
  expectRoundTrip();
}

TEST_F(CapturedScene, RemovedMaterialsStayAway) {
  install(
      R"("scenes":[{"nodes":[0]}],"nodes":[{"name":"Body","extras":{"geometry":{"material":1}}}],)"
      R"("materials":[{"name":"Red"},{"name":"Paint","extras":{"switch":{"materials":[0,2]}}},)"
      R"({"name":"Blue"}])");
  kuMaterials::removeMaterial(kuMaterials::findMaterial("Red"));
  expectRoundTrip();
  kuMaterials::removeMaterial(kuMaterials::findMaterial("Paint"));
  expectRoundTrip();
}

TEST_F(CapturedScene, RenamedTransformStatesComeBack) {
  install(R"("scenes":[{"nodes":[0]}],"nodes":[{"name":"Door","extras":{"transforms":[)"
          R"({"name":"Open","translation":[1,0,0]},{"name":"Open"}],"transform":1}}])");
  kuNodeUtils::setTransformVariantName(find("Door"), 1, "Open1");
  kuNodeUtils::setTransformVariantName(find("Door"), 0, "");
  expectRoundTrip();
}

TEST_F(CapturedScene, IgnoreFlagsOfMaterialGroupsComeBack) {
  const auto ignored = scene.materialGroup("Ignored", scene.material("Red"));
  scene.materialGroup("Shown", {});
  MaterialGroupCore::of(ignored->getCore()).ignore = true;
  expectRoundTrip();
}

}  // namespace
